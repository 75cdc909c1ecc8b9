// The properties go the way of the editor.
#include "tools/item_change.h"

#include "host/locale/utf.h"
#include "host/outlook/change_names.h"

namespace tavo::tools {

ItemChange::ItemChange(const outlook::StorePtr& store, const ItemOptions& options)
    : Store(store), Options(options), Writer(store) {}

Status ItemChange::Make(const ItemTimes& times) {
    ComPtr<IAppointment> appointment;
    Status status = Writer.Begin(outlook::kNameOfNew);
    if (Succeeded(status)) {
        status = outlook::MakeOutlookApp(Store)->CreateItem(kItemAppointment, appointment);
    }
    return Succeeded(status) ? Put(*appointment, times) : status;
}

Status ItemChange::Put(IAppointment& appointment, const ItemTimes& times) {
    Status status = PutTexts(appointment);
    if (Succeeded(status)) {
        status = appointment.put_Start(rules::DateFromSeconds(times.Start));
    }
    if (Succeeded(status)) {
        status = appointment.put_End(rules::DateFromSeconds(times.End));
    }
    if (Succeeded(status)) {
        status = appointment.put_AllDayEvent(times.AllDay);
    }
    if (Succeeded(status)) {
        status = appointment.Save();
    }
    return Succeeded(status) ? appointment.get_Oid(Item) : status;
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

Status ItemChange::Finish(rules::StoredItem& item) {
    const Status status = Writer.Commit();
    return Succeeded(status) ? Store->ReadItem(Item, item) : status;
}

} // namespace tavo::tools
