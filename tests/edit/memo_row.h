// The memo row of the editor, and what becomes of the ink that its ink editor gives.
#pragma once

#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <vector>

namespace tavo::test {

using Bytes = std::vector<std::uint8_t>;

class MemoRow : public testing::Test {
  protected:
    void TapMemo() { Desk.ShowRow(5); }

    Oid GivenNote(const Bytes& ink) {
        return Desk.GivenAppointment(u"Wake", At(2026, 11, 23, 7, 0), At(2026, 11, 23, 7, 0),
                                     [&](IAppointment& item) { EXPECT_EQ(item.put_BodyInk(ink), Status::Ok); });
    }

    Bytes NoteOf(Oid oid) {
        ComPtr<IAppointment> item;
        Bytes ink;
        EXPECT_EQ(Desk.Connect()->GetItemFromOid(oid, item), Status::Ok);
        EXPECT_EQ(item->get_BodyInk(ink), Status::Ok);
        return ink;
    }

    Bytes BufferNow() {
        const auto bytes = Desk.State.Memo.Bytes();
        return {bytes.begin(), bytes.end()};
    }

    // What a kill would leave now.
    std::vector<std::filesystem::path> RecoveryFiles() {
        std::vector<std::filesystem::path> files;
        std::error_code error;
        const std::filesystem::path folder = std::filesystem::path(Desk.Device.Host().Root.Path()) / "Recovery";
        for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
            files.push_back(entry.path());
        }
        return files;
    }

    // More than an item takes.
    void DrawTooMuch() {
        Desk.EditInk = [this] {
            Desk.State.Memo.Fill(Bytes(std::size_t{5} * 1024 * 1024, 7));
            return IDOK;
        };
    }

    // Where the memos' folder should be there is a file then.
    void BlockMemoFolder() {
        std::filesystem::remove_all(std::filesystem::path(Desk.Device.Host().Root.Path()) / "My Documents" /
                                    "TavoCalendar");
        ASSERT_EQ(Desk.Device.Host().Files().WriteWholeFile(u"\\My Documents\\TavoCalendar", Bytes{1}),
                  ErrorCode::Success);
    }

    EditDesk Desk;
};

} // namespace tavo::test
