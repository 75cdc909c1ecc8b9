// The words, put into practice.
#include "tests/support/test_device.h"

#include "framework/format.h"
#include "host/outlook/store.h"
#include "host/posix/store_machine.h"

#include <gtest/gtest.h>

namespace tavo::test {

namespace {

void Expect(Status status) {
    EXPECT_EQ(status, Status::Ok);
}

} // namespace

SYSTEMTIME At(int year, int month, int day, int hour, int minute) {
    SYSTEMTIME time;
    time.Year = static_cast<std::uint16_t>(year);
    time.Month = static_cast<std::uint16_t>(month);
    time.Day = static_cast<std::uint16_t>(day);
    time.Hour = static_cast<std::uint16_t>(hour);
    time.Minute = static_cast<std::uint16_t>(minute);
    return time;
}

headless::DeviceOptions WithStore(headless::DeviceOptions options) {
    options.Outlook = [](const std::filesystem::path& store, ComPtr<IPOutlookApp>& outlook) {
        outlook = outlook::CreateOutlookApp(posix::SystemMachine(), store, {});
        return Status::Ok;
    };
    return options;
}

Oid StoreWords::GivenAppointment(std::u16string_view subject, const SYSTEMTIME& start, const SYSTEMTIME& end,
                                 const ArrangeItem& arrange) {
    ComPtr<IAppointment> item;
    Expect(Outlook().CreateItem(kItemAppointment, item));
    Expect(item->put_Subject(subject));
    Expect(item->put_Start(ToDate(start)));
    Expect(item->put_End(ToDate(end)));
    if (arrange) {
        arrange(*item);
    }
    Expect(item->Save());
    Oid oid = 0;
    Expect(item->get_Oid(oid));
    return oid;
}

Oid StoreWords::GivenAllDay(std::u16string_view subject, const SYSTEMTIME& first, int days) {
    const DATE end = ToDate(first) + (days == 1 ? 0 : days);
    return GivenAppointment(subject, first, first, [end](IAppointment& item) {
        Expect(item.put_End(end));
        Expect(item.put_AllDayEvent(true));
    });
}

Oid StoreWords::GivenSeries(std::u16string_view subject, const SYSTEMTIME& start, const SYSTEMTIME& end,
                            std::int32_t type, const ArrangePattern& arrange) {
    SYSTEMTIME withWeekday;
    EXPECT_TRUE(Host.Locale().VariantTimeToSystemTime(ToDate(start), withWeekday));
    return GivenAppointment(subject, start, end, [&](IAppointment& item) {
        ComPtr<IRecurrencePattern> pattern;
        Expect(item.GetRecurrencePattern(pattern));
        Expect(pattern->put_RecurrenceType(type));
        Expect(pattern->put_PatternStartDate(ToDate(start)));
        Expect(pattern->put_StartTime(ToDate(start)));
        Expect(pattern->put_EndTime(ToDate(end)));
        Expect(pattern->put_NoEndDate(true));
        Expect(pattern->put_Interval(1));
        Expect(pattern->put_DayOfWeekMask(1 << withWeekday.DayOfWeek));
        Expect(pattern->put_DayOfMonth(start.Day));
        Expect(pattern->put_Instance((start.Day - 1) / 7 + 1));
        Expect(pattern->put_MonthOfYear(start.Month));
        if (arrange) {
            arrange(*pattern);
        }
    });
}

void StoreWords::Delete(Oid oid) {
    ComPtr<IAppointment> item;
    Expect(Outlook().GetItemFromOid(oid, item));
    Expect(item->Delete());
}

ComPtr<IPOutlookApp> StoreWords::NewConnection() {
    ComPtr<IPOutlookApp> outlook;
    Expect(Host.CoCreateInstance(outlook));
    return outlook;
}

ComPtr<IPOutlookApp> StoreWords::Connect() {
    ComPtr<IPOutlookApp> outlook = NewConnection();
    Expect(outlook->Logon(WindowHandle::None));
    return outlook;
}

IPOutlookApp& StoreWords::Outlook() {
    if (!Own) {
        Own = Connect();
    }
    return *Own;
}

DATE StoreWords::ToDate(const SYSTEMTIME& moment) {
    DATE date = 0;
    EXPECT_TRUE(Host.Locale().SystemTimeToVariantTime(moment, date));
    return date;
}

void TestDevice::GivenFile(std::u16string_view path, const std::vector<std::uint8_t>& bytes) {
    const std::u16string_view folder = path.substr(0, path.rfind(u'\\'));
    const ErrorCode made = folder.empty() ? ErrorCode::AlreadyExists : Host.Files().CreateDirectoryW(folder);
    EXPECT_TRUE(made == ErrorCode::Success || made == ErrorCode::AlreadyExists);
    EXPECT_EQ(Host.Files().WriteWholeFile(path, bytes), ErrorCode::Success);
}

std::optional<std::vector<std::uint8_t>> TestDevice::FileBytes(std::u16string_view path) {
    std::vector<std::uint8_t> bytes;
    if (Host.Files().ReadWholeFile(path, bytes) != ErrorCode::Success) {
        return std::nullopt;
    }
    return bytes;
}

void TestDevice::WillAnswer(int answer) {
    Host.Time.Script.Add([this, answer] { EXPECT_TRUE(Host.Navigation.AnswerBox(answer)); });
}

std::vector<std::u16string> TestDevice::MessagesShown() const {
    std::vector<std::u16string> messages;
    for (const MessageBoxDescription& box : Host.Seen.Boxes) {
        const bool isQuestion = box.Buttons == MessageBoxButtons::YesNo;
        messages.push_back(FormatText(u"%s|%s|%s", box.Caption, box.Text, isQuestion ? u"Yes No" : u"OK"));
    }
    return messages;
}

} // namespace tavo::test
