// The properties go the way of the editor, rules and kinds that of an import.
#include "tools/item_change.h"

#include "host/exchange/event_series.h"
#include "host/locale/utf.h"
#include "host/outlook/change_names.h"
#include "host/outlook/export_reader.h"
#include "tools/item_kind.h"
#include "tools/repeat_words.h"
#include "tools/series_move.h"

#include <array>

namespace tavo::tools {
namespace {

constexpr std::array<TagList, 3> kLists = {TagList::Alarm, TagList::Holiday, TagList::Anniversary};

// To the first day that a rule in words names.
void MoveToRule(const RepeatRule& rule, ItemTimes& times) {
    const rules::DayNumber day = rules::DayOf(times.Start);
    const rules::Seconds later = (FindFirstDay(rule, day) - day) * rules::kSecondsPerDay;
    times.Start += later;
    times.End += later;
}

} // namespace

std::optional<ItemPlan> PlanItem(const ItemOptions& options, std::string& error) {
    const std::optional<ItemTimes> times = WorkOutTimes(options, nullptr, GetNow(), error);
    if (!times) {
        return std::nullopt;
    }
    ItemPlan plan;
    plan.Times = *times;
    plan.Kind = options.Kind.value_or(ExportKind::Appointment);
    plan.IsMoved = true;
    if (!FitToKind(plan.Kind, options, plan.Times, error)) {
        return std::nullopt;
    }
    if (options.Rule) {
        MoveToRule(*options.Rule, plan.Times);
    }
    return plan;
}

std::optional<ItemPlan> PlanChange(const ItemOptions& options, const rules::StoredItem& stored, ExportKind kind,
                                   std::string& error) {
    const std::optional<ItemTimes> times = WorkOutTimes(options, &stored, GetNow(), error);
    if (!times) {
        return std::nullopt;
    }
    ItemPlan plan;
    plan.Times = *times;
    plan.Kind = options.Kind.value_or(kind);
    if (!FitToKind(plan.Kind, options, plan.Times, error)) {
        return std::nullopt;
    }
    if (options.Rule) {
        MoveToRule(*options.Rule, plan.Times);
    }
    plan.IsMoved =
        plan.Times.Start != stored.Start || plan.Times.End != stored.End || plan.Times.AllDay != stored.AllDay;
    const rules::DayNumber from = rules::DayOf(stored.Start);
    const rules::DayNumber to = rules::DayOf(plan.Times.Start);
    if (!stored.IsRecurring() || options.Rule || options.NoRepeat || from == to) {
        return plan;
    }
    if (stored.Pattern.Type == kRecursForeign) {
        error = "Its rule is of another calendar and names days of its own: say with --repeat how it repeats then.";
        return std::nullopt;
    }
    plan.OldPattern = stored.Pattern;
    plan.NewPattern = MovePattern(stored.Pattern, from, to);
    return plan;
}

ItemChange::ItemChange(const outlook::StorePtr& store, const ItemOptions& options)
    : Store(store), Options(options), Writer(store) {}

Status ItemChange::Make(const ItemPlan& plan) {
    ComPtr<IAppointment> appointment;
    Status status = Writer.Begin(outlook::kNameOfNew);
    if (Succeeded(status)) {
        status = outlook::MakeOutlookApp(Store)->CreateItem(kItemAppointment, appointment);
    }
    return Succeeded(status) ? Put(*appointment, plan) : status;
}

Status ItemChange::Change(const ItemPlan& plan) {
    ComPtr<IAppointment> appointment;
    Status status = Writer.Begin(outlook::kNameOfChange);
    if (Succeeded(status)) {
        status = outlook::MakeOutlookApp(Store)->GetItemFromOid(Options.Item, appointment);
    }
    return Succeeded(status) ? Put(*appointment, plan) : status;
}

Status ItemChange::ChangeOccurrence(IAppointment& occurrence, const ItemPlan& plan) {
    Status status = Writer.Begin(outlook::kNameOfChange);
    if (Succeeded(status)) {
        status = PutTexts(occurrence);
    }
    if (Succeeded(status)) {
        status = occurrence.put_Start(rules::DateFromSeconds(plan.Times.Start));
    }
    if (Succeeded(status)) {
        status = occurrence.put_End(rules::DateFromSeconds(plan.Times.End));
    }
    Item = Options.Item;
    return Succeeded(status) ? occurrence.Save() : status;
}

Status ItemChange::Put(IAppointment& appointment, const ItemPlan& plan) {
    Status status = PutTexts(appointment);
    if (Succeeded(status) && Options.NoRepeat) {
        status = appointment.ClearRecurrencePattern();
    }
    if (Succeeded(status) && plan.IsMoved) {
        status = PutTimes(appointment, plan);
    }
    if (Succeeded(status)) {
        status = PutReminder(appointment, plan);
    }
    if (Succeeded(status)) {
        status = appointment.Save();
    }
    if (Succeeded(status)) {
        status = appointment.get_Oid(Item);
    }
    if (Succeeded(status) && Options.Rule) {
        status = PutRule();
    }
    return Succeeded(status) && Options.Kind ? PutKind(*Options.Kind) : status;
}

Status ItemChange::PutTexts(IAppointment& appointment) {
    const auto put = [&](const std::optional<std::string>& text, auto setter) {
        return text ? (appointment.*setter)(locale::ToUtf16(*text)) : Status::Ok;
    };
    Status status = put(Options.Subject, &IAppointment::put_Subject);
    if (Succeeded(status)) {
        status = put(Options.Location, &IAppointment::put_Location);
    }
    return Succeeded(status) ? put(Options.Note, &IAppointment::put_Body) : status;
}

Status ItemChange::PutTimes(IAppointment& appointment, const ItemPlan& plan) {
    Status status = appointment.put_Start(rules::DateFromSeconds(plan.Times.Start));
    if (Succeeded(status)) {
        status = appointment.put_End(rules::DateFromSeconds(plan.Times.End));
    }
    if (Succeeded(status)) {
        status = appointment.put_AllDayEvent(plan.Times.AllDay);
    }
    ComPtr<IRecurrencePattern> pattern;
    if (Succeeded(status) && plan.OldPattern) {
        status = appointment.GetRecurrencePattern(pattern);
    }
    return Succeeded(status) && pattern ? PutPattern(*pattern, *plan.OldPattern, plan.NewPattern) : status;
}

Status ItemChange::PutReminder(IAppointment& appointment, const ItemPlan& plan) {
    if (Options.NoRemind) {
        return appointment.put_ReminderSet(false);
    }
    const bool becomesAlarm = Options.Kind == ExportKind::Alarm;
    Status status = Status::Ok;
    if (becomesAlarm || Options.Remind) {
        status = appointment.put_ReminderSet(true);
        if (Succeeded(status)) {
            const int lead = plan.Kind == ExportKind::Alarm ? 0 : Options.Remind.value_or(0);
            status = appointment.put_ReminderMinutesBeforeStart(lead);
        }
    }
    if (Failed(status) || !(becomesAlarm || Options.Remind || Options.Sound)) {
        return status;
    }
    std::u16string sound;
    status = Options.Sound ? Status::Ok : appointment.get_ReminderSoundFile(sound);
    sound = Options.Sound ? locale::ToUtf16(*Options.Sound) : sound;
    if (Succeeded(status)) {
        status = appointment.put_ReminderOptions(sound.empty() ? kRemindSilently : kRemindAloud);
    }
    return Succeeded(status) ? appointment.put_ReminderSoundFile(sound) : status;
}

Status ItemChange::PutRule() {
    rules::StoredItem item;
    Status status = Store->ReadItem(Item, item);
    if (Failed(status)) {
        return status;
    }
    if (!exchange::TakeRule(WriteRule(*Options.Rule, rules::DayOf(item.Start)), item, Fault)) {
        return Status::InvalidArgument;
    }
    exchange::ImportOutcome outcome;
    status = Writer.ChangeRule(Item, item, outcome);
    Fault = outcome.Reason;
    return Succeeded(status) && outcome.Result == exchange::ImportResult::Refused ? Status::InvalidArgument : status;
}

Status ItemChange::PutKind(ExportKind kind) {
    Status status = Status::Ok;
    for (const TagList list : kLists) {
        if (Succeeded(status)) {
            const bool joins = static_cast<int>(list) == static_cast<int>(kind);
            status = Writer.RequestTag(list, Item, joins ? exchange::TagWish::Join : exchange::TagWish::Leave);
        }
    }
    return status;
}

Status ReadKind(const outlook::StorePtr& store, Oid oid, ExportKind& kind) {
    std::vector<TagList> lists;
    const Status status = outlook::ExportReader(store).ReadKinds(oid, lists);
    kind = lists.empty() ? ExportKind::Appointment : static_cast<ExportKind>(lists.front());
    return status;
}

Status ItemChange::Finish(rules::StoredItem& item) {
    const Status status = Writer.Commit();
    return Succeeded(status) ? Store->ReadItem(Item, item) : status;
}

} // namespace tavo::tools
