// Calls and signals of org.freedesktop.Notifications.
#include "companion/notifications.h"

#include "companion/notification_card.h"

#include <chrono>
#include <systemd/sd-bus.h>
#include <vector>

namespace tavo::companion {

namespace {

constexpr const char* kName = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";
constexpr std::chrono::milliseconds kFindPatience{400}; // until the bus says who holds its cards
constexpr std::chrono::seconds kRetry{30};              // after a bus that never let us in
constexpr std::uint64_t kLateReplies = 300'000'000;     // microseconds in which a reply that is late still counts
// Until a card goes to our own window. It comes back from there when the service was only slow.
constexpr std::chrono::milliseconds kReplyPatience{900};
constexpr std::chrono::milliseconds kCapabilityPatience{400}; // of these
constexpr std::uint32_t kClosedByPerson = 2;

// The library's handlers have its own type for the error; ours are not to know its header.
template <int (*Function)(sd_bus_message*, void*, void*)>
int Forward(sd_bus_message* message, void* self, sd_bus_error* error) {
    return Function(message, self, error);
}

} // namespace

// A card on its way to the service.
struct Notifications::Question {
    Notifications* Owner = nullptr;
    std::uint32_t Number = 0;
    CardText Text;
    std::uint32_t Replaced = 0;
    sd_bus_slot* Slot = nullptr; // of the call, once it was sent
    Instant HeldUntil;           // it waits for what the service can do
    Instant Deadline;
    bool IsLate = false; // nobody waits for it any more

    Question() = default;
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;

    ~Question() { sd_bus_slot_unref(Slot); }
};

Notifications::Notifications(Events events) : Told(std::move(events)) {}

Notifications::~Notifications() {
    Questions.clear();
    Disconnect();
}

void Notifications::Disconnect() {
    ForgetCapabilities();
    while (!Questions.empty()) {
        TakeReply(Questions.begin()->first, std::nullopt);
    }
    // Not flushed: a bus that hangs would hold us up. What could be sent was sent at once.
    Bus = sd_bus_close_unref(Bus);
    FindEnd.reset();
    IsLetIn = false;
    ServiceName.clear();
}

bool Notifications::Connect() {
    if (Bus != nullptr) {
        return true;
    }
    if (Clock::now() < NextTry) {
        return false;
    }
    if (sd_bus_open_user(&Bus) < 0) {
        Bus = nullptr;
        return false;
    }
    // Sent as soon as the bus lets us in; nothing here waits for that.
    if (!Listen() || !FindService()) {
        Disconnect();
        return false;
    }
    return true;
}

bool Notifications::Listen() {
    constexpr const char* ownerRule = "type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',"
                                      "arg0='org.freedesktop.Notifications'";
    const auto listen = [this](const char* signal, auto handler) {
        return sd_bus_match_signal_async(Bus, nullptr, kName, kPath, kName, signal, handler, nullptr, this) >= 0;
    };
    return listen("ActivationToken", Forward<OnToken>) && listen("ActionInvoked", Forward<OnAction>) &&
           listen("NotificationClosed", Forward<OnClosed>) &&
           sd_bus_add_match_async(Bus, nullptr, ownerRule, Forward<OnOwnerChanged>, nullptr, this) >= 0;
}

int Notifications::Descriptor() const {
    return Bus == nullptr ? -1 : sd_bus_get_fd(Bus);
}

int Notifications::PollEvents() const {
    return Bus == nullptr ? 0 : sd_bus_get_events(Bus);
}

std::optional<Instant> Notifications::Deadline() const {
    std::optional<Instant> earliest = FindEnd;
    for (const auto& [number, question] : Questions) {
        if (!question->IsLate) {
            earliest = Earlier(earliest, question->Slot == nullptr ? question->HeldUntil : question->Deadline);
        }
    }
    std::uint64_t time = 0; // of the clock that Instant has, in microseconds
    if (Bus != nullptr && sd_bus_get_timeout(Bus, &time) > 0 && time != UINT64_MAX) {
        earliest = Earlier(earliest, Instant(std::chrono::microseconds(time)));
    }
    return earliest;
}

bool Notifications::Process() {
    int result = 1;
    while (Bus != nullptr && result > 0) {
        result = sd_bus_process(Bus, nullptr);
    }
    if (result < 0) {
        NextTry = IsLetIn ? Instant() : Clock::now() + kRetry;
        Disconnect();
        Told.ServiceChanged();
    }
    TakeTime();
    return Bus != nullptr;
}

void Notifications::TakeTime() {
    const Instant now = Clock::now();
    if (FindEnd && *FindEnd <= now) {
        FindEnd.reset();
        IsSilent = true;
    }
    SendHeld();
    std::vector<std::uint32_t> late;
    for (const auto& [number, question] : Questions) {
        if (!question->IsLate && question->Deadline <= now) {
            question->IsLate = true;
            late.push_back(number);
        }
    }
    IsSilent = IsSilent || !late.empty();
    for (const std::uint32_t number : late) {
        Told.Replied(number, std::nullopt);
    }
}

std::string Notifications::NameService(const char* owner) const {
    sd_id128_t bus{};
    if (owner == nullptr || *owner == '\0' || sd_bus_get_bus_id(Bus, &bus) < 0) {
        return {};
    }
    std::array<char, SD_ID128_STRING_MAX> text{};
    return std::string(sd_id128_to_string(bus, text.data())) + ' ' + owner;
}

bool Notifications::FindService() {
    FindEnd = Clock::now() + kFindPatience;
    return sd_bus_call_method_async(Bus, nullptr, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                    "org.freedesktop.DBus", "GetNameOwner", Forward<OnOwner>, this, "s", kName) >= 0;
}

int Notifications::OnOwner(sd_bus_message* message, void* self, void*) {
    auto* notifications = static_cast<Notifications*>(self);
    const bool isLate = !notifications->FindEnd;
    const char* owner = nullptr;
    notifications->FindEnd.reset();
    notifications->IsLetIn = true;
    notifications->IsSilent = notifications->IsSilent && !isLate; // it only was the bus that did not answer
    if (sd_bus_message_is_method_error(message, nullptr) != 0 || sd_bus_message_read(message, "s", &owner) < 0) {
        return 0; // there is none
    }
    notifications->ServiceName = notifications->NameService(owner);
    notifications->AskCapabilities(); // so that they are known when something is due
    if (isLate) {
        notifications->Told.ServiceChanged();
    }
    return 0;
}

void Notifications::ForgetCapabilities() {
    sd_bus_slot_unref(CapabilitiesSlot);
    CapabilitiesSlot = nullptr;
    KnowsCapabilities = false;
    TakesMarkup = true;
}

// One that cannot be asked is taken for one that does not answer.
void Notifications::AskCapabilities() {
    sd_bus_message* call = nullptr;
    if (CapabilitiesSlot == nullptr &&
        sd_bus_message_new_method_call(Bus, &call, kName, kPath, kName, "GetCapabilities") >= 0) {
        static_cast<void>(sd_bus_call_async(Bus, &CapabilitiesSlot, call, Forward<OnCapabilities>, this, kLateReplies));
    }
    sd_bus_message_unref(call);
}

int Notifications::OnCapabilities(sd_bus_message* message, void* self, void*) {
    auto* notifications = static_cast<Notifications*>(self);
    notifications->ForgetCapabilities();
    if (sd_bus_message_is_method_error(message, nullptr) == 0) {
        notifications->KnowsCapabilities = true;
        notifications->IsSilent = false;
        notifications->TakesMarkup = false;
        const char* word = nullptr;
        if (sd_bus_message_enter_container(message, 'a', "s") > 0) {
            while (sd_bus_message_read(message, "s", &word) > 0) {
                notifications->TakesMarkup = notifications->TakesMarkup || std::string_view(word) == "body-markup";
            }
        }
    }
    for (const auto& [number, question] : notifications->Questions) {
        question->HeldUntil = Instant(); // an error is no reason to wait either: the card itself tells more
    }
    notifications->SendHeld();
    return 0;
}

bool Notifications::Ask(std::uint32_t question, const CardText& text, std::uint32_t replaced) {
    if (!Connect()) {
        return false;
    }
    if (!KnowsCapabilities || IsSilent) {
        AskCapabilities();
    }
    if (IsSilent) {
        return false; // it is asked for nothing but what it can do, until it answers
    }
    auto asked = std::make_unique<Question>();
    asked->Owner = this;
    asked->Number = question;
    asked->Text = text;
    asked->Replaced = replaced;
    asked->HeldUntil = Clock::now() + kCapabilityPatience;
    asked->Deadline = Clock::now() + kReplyPatience;
    if (KnowsCapabilities && !Send(*asked)) {
        return false;
    }
    Questions.insert_or_assign(question, std::move(asked));
    return true;
}

bool Notifications::Send(Question& question) {
    sd_bus_message* call = nullptr;
    int result = sd_bus_message_new_method_call(Bus, &call, kName, kPath, kName, "Notify");
    if (result >= 0) {
        result = AppendCard(call, question.Text, question.Replaced, TakesMarkup);
    }
    if (result >= 0) {
        result = sd_bus_call_async(Bus, &question.Slot, call, Forward<OnReply>, &question, kLateReplies);
    }
    sd_bus_message_unref(call);
    return result >= 0;
}

void Notifications::SendHeld() {
    std::vector<std::uint32_t> refused;
    const Instant now = Clock::now();
    for (const auto& [number, question] : Questions) {
        const bool isHeld = question->Slot == nullptr && !question->IsLate;
        if (isHeld && (KnowsCapabilities || question->HeldUntil <= now) && (Bus == nullptr || !Send(*question))) {
            refused.push_back(number);
        }
    }
    for (const std::uint32_t number : refused) {
        TakeReply(number, std::nullopt);
    }
}

int Notifications::OnReply(sd_bus_message* message, void* question, void*) {
    const auto* asked = static_cast<Question*>(question);
    Notifications& self = *asked->Owner;
    std::optional<reminders::PlacedCard> placed;
    std::uint32_t card = 0;
    if (sd_bus_message_is_method_error(message, nullptr) == 0 && sd_bus_message_read(message, "u", &card) >= 0) {
        self.IsSilent = false;
        self.ServiceName = self.NameService(sd_bus_message_get_sender(message)); // our call may have started it
        placed = {card, self.ServiceName};
    }
    self.TakeReply(asked->Number, placed);
    return 0;
}

// Nothing, of one that is late, was told already.
void Notifications::TakeReply(std::uint32_t number, const std::optional<reminders::PlacedCard>& placed) {
    const auto asked = Questions.find(number);
    if (asked == Questions.end()) {
        return; // settled by what another answer brought about
    }
    const std::unique_ptr<Question> question = std::move(asked->second);
    Questions.erase(asked);
    if (placed || !question->IsLate) {
        Told.Replied(number, placed);
    }
}

void Notifications::TakeBack(std::uint32_t card) {
    if (Bus != nullptr && !ServiceName.empty()) {
        // Nobody waits for the answer: one that is gone already cannot be closed.
        static_cast<void>(sd_bus_call_method_async(Bus, nullptr, kName, kPath, kName, "CloseNotification", nullptr,
                                                   nullptr, "u", card));
    }
}

// Comes right before the action that it is for.
int Notifications::OnToken(sd_bus_message* message, void* self, void*) {
    auto* notifications = static_cast<Notifications*>(self);
    const char* token = nullptr;
    if (sd_bus_message_read(message, "us", &notifications->TokenCard, &token) >= 0) {
        notifications->Token = token;
    }
    return 0;
}

int Notifications::OnAction(sd_bus_message* message, void* self, void*) {
    auto* notifications = static_cast<Notifications*>(self);
    std::uint32_t card = 0;
    const char* key = nullptr;
    if (sd_bus_message_read(message, "us", &card, &key) >= 0) {
        const std::string token = notifications->TokenCard == card ? std::move(notifications->Token) : std::string();
        notifications->Token.clear();
        if (const CardAction* action = FindAction(key)) {
            notifications->Told.Answered(card, action->Meaning, action->Snooze, token);
        }
    }
    return 0;
}

int Notifications::OnClosed(sd_bus_message* message, void* self, void*) {
    std::uint32_t card = 0;
    std::uint32_t reason = 0;
    if (sd_bus_message_read(message, "uu", &card, &reason) >= 0 && reason == kClosedByPerson) {
        static_cast<Notifications*>(self)->Told.Answered(card, reminders::Answer::Closed, 0, "");
    }
    return 0;
}

int Notifications::OnOwnerChanged(sd_bus_message* message, void* self, void*) {
    auto* notifications = static_cast<Notifications*>(self);
    const char* words[3] = {}; // the name, who had it, who has it now
    if (sd_bus_message_read(message, "sss", &words[0], &words[1], &words[2]) < 0) {
        return 0;
    }
    notifications->ForgetCapabilities();
    notifications->IsSilent = false;
    const std::string name = notifications->NameService(words[2]);
    // At the session's end the service goes first: nothing is put up elsewhere until something is due.
    if (!name.empty()) {
        const bool isOther = name != notifications->ServiceName;
        notifications->ServiceName = name;
        notifications->AskCapabilities();
        if (isOther) {
            notifications->Told.ServiceChanged();
        }
    }
    return 0;
}

} // namespace tavo::companion
