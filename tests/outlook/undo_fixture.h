// For the tests of what is taken back: the newest group's name, and taking it back.
#pragma once

#include "tests/outlook/store_fixture.h"

#include <string>
#include <vector>

namespace tavo::outlook::test {

class Undo : public StoreTest {
  protected:
    std::string UndoName() {
        std::u16string name;
        EXPECT_EQ(App->GetUndoName(name), Status::Ok);
        return {name.begin(), name.end()};
    }

    std::vector<Oid> TakeBack() {
        std::vector<Oid> restored;
        EXPECT_EQ(App->Undo(restored), Status::Ok);
        return restored;
    }
};

} // namespace tavo::outlook::test
