// Everything that the form draws, with its place, font, colour and alignment.
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

#include <regex>

namespace tavo::test {
namespace {

class DrawnForm : public testing::Test {
  protected:
    // Texts are in the ordinary 10 points, on one line and in its middle, unless another font or format is written.
    void Expect(std::int32_t mode, const std::string& expected) {
        Desk.Check([this, expected] {
            const std::regex usual(" format 2084 \\[Arial -13 400\\]");
            EXPECT_EQ(std::regex_replace(ToText(Desk.Device.See.LastFrame()->Calls), usual, ""), expected);
        });
        Desk.Cancel();
        EXPECT_EQ(Desk.RunNew(mode), IDCANCEL);
    }

    EditDesk Desk{At(2026, 11, 21, 14, 47)};
};

TEST_F(DrawnForm, OfAnAlarm) {
    Desk.Subject(u"Tea");
    Desk.Device.Tap(2, 2);
    Expect(kModeNewAlarm, "fill 0,0,240,268 #FFFFFF\n"
                          "line 5,14 to 235,14 pen 1 #999999\n"
                          "text 5,15,65,40 #59636E \"Subject :\"\n"
                          "text 68,15,235,40 #000000 \"Tea\"\n"
                          "line 5,40 to 235,40 pen 1 #999999\n"
                          "text 5,41,65,66 #59636E \"Date :\"\n"
                          "text 68,41,235,66 #000000 \"2026.11.21 (Sat)\"\n"
                          "line 5,66 to 235,66 pen 1 #999999\n"
                          "text 5,67,65,92 #59636E \"Time :\"\n"
                          "text 68,67,235,92 #000000 \"02:30:00 PM\"\n"
                          "line 5,92 to 235,92 pen 1 #999999\n"
                          "text 5,93,65,118 #59636E \"Recur :\"\n"
                          "text 68,93,235,118 #000000 \"Once\"\n"
                          "line 5,118 to 235,118 pen 1 #999999\n"
                          "text 5,119,65,144 #59636E \"Alarm :\"\n"
                          "text 68,119,187,144 #000000 \"Sound off\"\n"
                          "bitmap 300 196,123,212,139 from 0,0,16,16\n"
                          "bitmap 301 214,123,230,139 from 0,0,16,16\n"
                          "line 5,144 to 235,144 pen 1 #999999\n"
                          "text 5,145,65,170 #59636E \"Memo :\"\n"
                          "text 68,145,235,170 #2664B4 \"Edit memo...\"\n"
                          "line 5,170 to 235,170 pen 1 #999999\n");
}

TEST_F(DrawnForm, OfAHolidayAndOfAnAnniversary) {
    for (const std::int32_t mode : {kModeNewHoliday, kModeNewAnniversary}) {
        Expect(mode, "fill 0,0,240,268 #FFFFFF\n"
                     "line 5,14 to 235,14 pen 1 #999999\n"
                     "text 5,15,65,40 #59636E \"Subject :\"\n"
                     "text 68,15,235,40 #000000 \"\"\n"
                     "line 5,40 to 235,40 pen 1 #999999\n"
                     "text 5,41,65,66 #59636E \"Date :\"\n"
                     "text 68,41,235,66 #000000 \"2026.11.21 (Sat)\"\n"
                     "line 5,66 to 235,66 pen 1 #999999\n"
                     "text 5,67,65,92 #59636E \"Recur :\"\n"
                     "text 68,67,235,92 #000000 \"Once\"\n"
                     "line 5,92 to 235,92 pen 1 #999999\n"
                     "text 5,93,65,118 #59636E \"Alarm :\"\n"
                     "text 68,93,112,118 #000000 \"No\"\n"
                     "text 121,93,150,118 #686868 format 2086 [Arial -13 400] \"12\"\n"
                     "text 159,93,228,118 #686868 \"Hour(s)\"\n"
                     "line 65,118 to 235,118 pen 1 #999999\n"
                     "text 5,119,65,144 #59636E \"\"\n"
                     "text 68,119,187,144 #686868 \"Sound off\"\n"
                     "bitmap 300 196,123,212,139 from 0,0,16,16\n"
                     "bitmap 301 214,123,230,139 from 0,0,16,16\n"
                     "line 5,144 to 235,144 pen 1 #999999\n"
                     "text 5,145,65,170 #59636E \"Memo :\"\n"
                     "text 68,145,235,170 #2664B4 \"Edit memo...\"\n"
                     "line 5,170 to 235,170 pen 1 #999999\n");
    }
}

TEST_F(DrawnForm, OfAnAppointment) {
    Expect(kModeNewAppointment, "fill 0,0,240,268 #FFFFFF\n"
                                "line 5,9 to 235,9 pen 1 #999999\n"
                                "text 5,10,65,35 #59636E \"Subject :\"\n"
                                "text 68,10,235,35 #000000 \"\"\n"
                                "line 5,35 to 235,35 pen 1 #999999\n"
                                "text 5,36,65,61 #59636E \"Start :\"\n"
                                "text 68,36,145,61 #000000 \"2026.11.21\"\n"
                                "text 153,36,227,61 #000000 \"02:30 PM\"\n"
                                "line 5,61 to 235,61 pen 1 #999999\n"
                                "text 5,62,65,87 #59636E \"End :\"\n"
                                "text 68,62,145,87 #000000 \"2026.11.21\"\n"
                                "text 153,62,227,87 #000000 \"02:30 PM\"\n"
                                "line 65,87 to 235,87 pen 1 #999999\n"
                                "text 5,88,65,113 #59636E \"\"\n"
                                "fill 68,94,81,107 #999999\n"
                                "fill 69,95,80,106 #FFFFFF\n"
                                "text 87,88,230,113 #000000 \"All day\"\n"
                                "line 5,113 to 235,113 pen 1 #999999\n"
                                "text 5,114,65,139 #59636E \"Recur :\"\n"
                                "text 68,114,235,139 #000000 \"Once\"\n"
                                "line 5,139 to 235,139 pen 1 #999999\n"
                                "text 5,140,65,165 #59636E \"Alarm :\"\n"
                                "text 68,140,112,165 #000000 \"No\"\n"
                                "text 121,140,150,165 #686868 format 2086 [Arial -13 400] \"12\"\n"
                                "text 159,140,228,165 #686868 \"Hour(s)\"\n"
                                "line 65,165 to 235,165 pen 1 #999999\n"
                                "text 5,166,65,191 #59636E \"\"\n"
                                "text 68,166,187,191 #686868 \"Sound off\"\n"
                                "bitmap 300 196,170,212,186 from 0,0,16,16\n"
                                "bitmap 301 214,170,230,186 from 0,0,16,16\n"
                                "line 5,191 to 235,191 pen 1 #999999\n"
                                "text 5,192,65,217 #59636E \"Memo :\"\n"
                                "text 68,192,235,217 #2664B4 \"Edit memo...\"\n"
                                "line 5,217 to 235,217 pen 1 #999999\n");
}

TEST_F(DrawnForm, OfAnAllDayAppointmentWithAShownRow) {
    Desk.TapAllDay();
    Desk.ShowRow(4);
    Expect(kModeNewAppointment, "fill 0,0,240,268 #FFFFFF\n"
                                "line 5,9 to 235,9 pen 1 #999999\n"
                                "text 5,10,65,35 #59636E \"Subject :\"\n"
                                "text 68,10,235,35 #000000 \"\"\n"
                                "line 5,35 to 235,35 pen 1 #999999\n"
                                "text 5,36,65,61 #59636E \"Start :\"\n"
                                "text 68,36,145,61 #000000 \"2026.11.21\"\n"
                                "text 140,36,235,61 #000000 \"All day recurring\"\n"
                                "line 5,61 to 235,61 pen 1 #999999\n"
                                "text 5,62,65,87 #59636E \"End :\"\n"
                                "text 68,62,145,87 #000000 \"2026.11.21\"\n"
                                "text 140,62,235,87 #000000 \"All day recurring\"\n"
                                "line 65,87 to 235,87 pen 1 #999999\n"
                                "text 5,88,65,113 #59636E \"\"\n"
                                "fill 68,94,81,107 #999999\n"
                                "fill 69,95,80,106 #FFFFFF\n"
                                "line 71,100 to 74,103 pen 2 #2664B4\n"
                                "line 74,103 to 78,97 pen 2 #2664B4\n"
                                "text 87,88,230,113 #000000 \"All day\"\n"
                                "line 5,113 to 235,113 pen 1 #999999\n"
                                "fill 5,114,235,139 #E6EFFA\n"
                                "text 5,114,65,139 #59636E \"Recur :\"\n"
                                "line 5,139 to 235,139 pen 1 #999999\n"
                                "text 5,140,65,165 #59636E \"Alarm :\"\n"
                                "text 68,140,112,165 #000000 \"No\"\n"
                                "text 121,140,150,165 #686868 format 2086 [Arial -13 400] \"12\"\n"
                                "text 159,140,228,165 #686868 \"Hour(s)\"\n"
                                "line 65,165 to 235,165 pen 1 #999999\n"
                                "text 5,166,65,191 #59636E \"\"\n"
                                "text 68,166,187,191 #686868 \"Sound off\"\n"
                                "bitmap 300 196,170,212,186 from 0,0,16,16\n"
                                "bitmap 301 214,170,230,186 from 0,0,16,16\n"
                                "line 5,191 to 235,191 pen 1 #999999\n"
                                "text 5,192,65,217 #59636E \"Memo :\"\n"
                                "text 68,192,235,217 #2664B4 \"Edit memo...\"\n"
                                "line 5,217 to 235,217 pen 1 #999999\n");
}

} // namespace
} // namespace tavo::test
