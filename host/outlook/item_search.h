// Items by words in their texts.
#pragma once

#include "host/outlook/session.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavo::outlook {

class ItemSearch final : public RefCounted<IItemSearch> {
  public:
    ItemSearch(ComPtr<Session> session, std::u16string_view text);

    Status Step(std::int32_t items, std::vector<FoundItem>& found) override;

  private:
    ~ItemSearch() override = default;

    bool Holds(std::string_view subject, std::string_view location, std::string_view body);

    ComPtr<Session> Owner;
    std::vector<std::string> Words; // folded
    std::string Folded;             // of the item that is looked at
    Oid Before;                     // all from here on have been looked at
};

} // namespace tavo::outlook
