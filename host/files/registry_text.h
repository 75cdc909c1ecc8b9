// The text of the registry file: sections and values as lines, everything else kept as it stands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::files {

struct RegistryValue {
    std::uint32_t Type = 0;
    std::vector<std::uint8_t> Data;
    friend bool operator==(const RegistryValue&, const RegistryValue&) = default;
};

// Section and value names are compared without case; of two equal ones the first counts.
class RegistryText {
  public:
    RegistryText() = default;
    explicit RegistryText(std::string_view text);

    std::string ToText() const;

    // A plain number, as a person writes it: name=1
    std::optional<int> FindNumber(std::u16string_view section, std::u16string_view name) const;
    void SetNumber(std::u16string_view section, std::u16string_view name, int number);

    // Text is shown in quotes, name="\Windows\Alarm1.wav"; any other bytes in hexadecimal, name=hex(1):5c,00
    std::optional<RegistryValue> FindValue(std::u16string_view section, std::u16string_view name) const;
    void SetValue(std::u16string_view section, std::u16string_view name, const RegistryValue& value);

    bool HasSection(std::u16string_view section) const { return FindSection(section).has_value(); }

    void AddSection(std::u16string_view section);

  private:
    std::optional<std::size_t> FindSection(std::u16string_view section) const;
    std::optional<std::size_t> FindLine(std::u16string_view section, std::u16string_view name) const;
    void SetLine(std::u16string_view section, std::u16string_view name, const std::string& written);

    std::vector<std::string> Lines;
};

// The name as it stands in the file. Units that would break a line (control characters, = [ ] % # ; ", a blank at an
// end) are written %XXXX.
std::string WriteRegistryName(std::u16string_view name);

} // namespace tavo::files
