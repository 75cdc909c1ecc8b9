// A draft as lines "name=value" of UTF-16, the low byte first: it can be read by people too.
#include "edit/appointment_draft.h"

#include "edit/edit_mode.h"
#include "edit/leading_number.h"
#include "framework/format.h"

#include <algorithm>
#include <limits>
#include <map>
#include <string_view>
#include <utility>

namespace tavo {

namespace {

constexpr std::u16string_view kFirstLine = u"Tavo Calendar draft 1";
constexpr std::u16string_view kLastLine = u"end";

// A value keeps to its line.
std::u16string Escape(std::u16string_view text) {
    std::u16string escaped;
    for (const char16_t character : text) {
        if (character == u'\n') {
            escaped += u"\\n";
        } else if (character == u'\\') {
            escaped += u"\\\\";
        } else {
            escaped += character;
        }
    }
    return escaped;
}

std::u16string Unescape(std::u16string_view text) {
    std::u16string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            plain += text[i];
        } else {
            ++i;
            plain += text[i] == u'n' ? u'\n' : text[i];
        }
    }
    return plain;
}

// Visits every value of a draft under its name, to write it or to read it.
template <class Visitor, class Rule> void VisitRule(Visitor& visit, std::u16string_view prefix, Rule& rule) {
    visit(prefix, u"type", rule.Rule.Type);
    visit(prefix, u"interval", rule.Rule.Interval);
    visit(prefix, u"mask", rule.Rule.Mask);
    visit(prefix, u"day", rule.Rule.DayOfMonth);
    visit(prefix, u"instance", rule.Rule.Instance);
    visit(prefix, u"month", rule.Rule.Month);
    visit(prefix, u"ends", rule.End);
    visit(prefix, u"last", rule.LastDay);
    visit(prefix, u"count", rule.Occurrences);
}

template <class Visitor, class Values> void VisitForm(Visitor& visit, std::u16string_view prefix, Values& form) {
    visit(prefix, u"subject", form.Subject);
    visit(prefix, u"start", form.Start);
    visit(prefix, u"end", form.End);
    visit(prefix, u"allday", form.AllDay);
    visit(prefix, u"recurrence", form.Recurrence);
    visit(prefix, u"rule", form.Rule);
    visit(prefix, u"reminds", form.Reminds);
    visit(prefix, u"lead", form.LeadValue);
    visit(prefix, u"unit", form.LeadUnit);
    visit(prefix, u"sound", form.Sound);
}

template <class Visitor, class Draft> void VisitDraft(Visitor& visit, Draft& draft) {
    visit(u"", u"mode", draft.Mode);
    visit(u"", u"item", draft.Item);
    VisitForm(visit, u"opened.", draft.Opened);
    VisitForm(visit, u"now.", draft.Now);
    visit.VisitNewer(u"ink", draft.Ink);
    visit.VisitNewer(u"day", draft.OneDay);
}

class DraftWriter {
  public:
    void operator()(std::u16string_view prefix, std::u16string_view name, const std::u16string& text) {
        Lines += FormatText(u"%s%s=%s\n", prefix, name, Escape(text));
    }

    void operator()(std::u16string_view prefix, std::u16string_view name, std::int32_t number) {
        Lines += FormatText(u"%s%s=%d\n", prefix, name, number);
    }

    void operator()(std::u16string_view prefix, std::u16string_view name, bool flag) {
        (*this)(prefix, name, std::int32_t{flag});
    }

    void operator()(std::u16string_view prefix, std::u16string_view name, RuleEnd end) {
        (*this)(prefix, name, static_cast<std::int32_t>(end));
    }

    void operator()(std::u16string_view prefix, std::u16string_view name, const SYSTEMTIME& time) {
        Lines += FormatText(u"%s%s=%04d-%02d-%02d %02d:%02d:%02d\n", prefix, name, time.Year, time.Month, time.Day,
                            time.Hour, time.Minute, time.Second);
    }

    void operator()(std::u16string_view prefix, std::u16string_view name, const std::optional<DraftRule>& rule) {
        (*this)(prefix, name, rule.has_value());
        if (rule) {
            VisitRule(*this, FormatText(u"%s%s.", prefix, name), *rule);
        }
    }

    void VisitNewer(std::u16string_view name, const std::u16string& text) { (*this)(u"", name, text); }

    void VisitNewer(std::u16string_view name, const std::optional<SYSTEMTIME>& time) {
        if (time) {
            (*this)(u"", name, *time);
        }
    }

    std::u16string Lines;
};

class DraftReader {
  public:
    explicit DraftReader(std::map<std::u16string, std::u16string> values) : Values(std::move(values)) {}

    void operator()(std::u16string_view prefix, std::u16string_view name, std::u16string& text) {
        text = Unescape(Find(prefix, name));
    }

    void operator()(std::u16string_view prefix, std::u16string_view name, std::int32_t& number) {
        number = LeadingNumber(Find(prefix, name));
    }

    void operator()(std::u16string_view prefix, std::u16string_view name, bool& flag) {
        flag = LeadingNumber(Find(prefix, name)) != 0;
    }

    void operator()(std::u16string_view prefix, std::u16string_view name, RuleEnd& end) {
        end = static_cast<RuleEnd>(ReadNumber(Find(prefix, name), static_cast<std::int32_t>(RuleEnd::AfterCount)));
    }

    void operator()(std::u16string_view prefix, std::u16string_view name, SYSTEMTIME& time) {
        const std::u16string_view text = Find(prefix, name);
        const auto part = [&](std::size_t at, std::size_t size) {
            const std::u16string_view digits = text.substr(std::min(at, text.size()), size);
            return static_cast<std::uint16_t>(ReadNumber(digits, std::numeric_limits<std::uint16_t>::max()));
        };
        time = {part(0, 4), part(5, 2), 0, part(8, 2), part(11, 2), part(14, 2), part(17, 2), 0};
    }

    void operator()(std::u16string_view prefix, std::u16string_view name, std::optional<DraftRule>& rule) {
        bool hasRule = false;
        (*this)(prefix, name, hasRule);
        if (hasRule) {
            VisitRule(*this, FormatText(u"%s%s.", prefix, name), rule.emplace());
        }
    }

    // Drafts of earlier programs do not have it.
    void VisitNewer(std::u16string_view name, std::u16string& text) {
        const auto found = Values.find(std::u16string(name));
        text = found == Values.end() ? std::u16string() : Unescape(found->second);
    }

    void VisitNewer(std::u16string_view name, std::optional<SYSTEMTIME>& time) {
        if (Values.contains(std::u16string(name))) {
            (*this)(u"", name, time.emplace());
        }
    }

    bool IsWhole = true;

  private:
    // From none to the highest. A draft with a text that says anything else is no whole one.
    std::int32_t ReadNumber(std::u16string_view text, std::int32_t highest) {
        const std::optional<std::int32_t> number = WholeNumber(text, 0, highest);
        IsWhole = IsWhole && number.has_value();
        return number ? *number : std::int32_t();
    }

    std::u16string_view Find(std::u16string_view prefix, std::u16string_view name) {
        const auto found = Values.find(FormatText(u"%s%s", prefix, name));
        IsWhole = IsWhole && found != Values.end();
        return found == Values.end() ? std::u16string_view() : std::u16string_view(found->second);
    }

    std::map<std::u16string, std::u16string> Values;
};

} // namespace

std::vector<std::uint8_t> EncodeDraft(const AppointmentDraft& draft) {
    DraftWriter writer;
    VisitDraft(writer, draft);
    const std::u16string text = FormatText(u"%s\n%s%s\n", kFirstLine, writer.Lines, kLastLine);
    std::vector<std::uint8_t> bytes;
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return bytes;
}

std::optional<AppointmentDraft> DecodeDraft(std::span<const std::uint8_t> bytes) {
    std::vector<std::u16string> lines;
    std::u16string line;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto unit = static_cast<char16_t>(bytes[i] | bytes[i + 1] << 8);
        if (unit == u'\n') {
            lines.push_back(std::exchange(line, {}));
        } else {
            line += unit;
        }
    }
    if (lines.empty() || lines.front() != kFirstLine || lines.back() != kLastLine) {
        return std::nullopt;
    }
    std::map<std::u16string, std::u16string> values;
    for (const std::u16string& one : lines) {
        if (const std::size_t equals = one.find(u'='); equals != std::u16string::npos) {
            values[one.substr(0, equals)] = one.substr(equals + 1);
        }
    }
    DraftReader reader(std::move(values));
    AppointmentDraft draft;
    VisitDraft(reader, draft);
    const bool isMode = draft.Mode >= kModeNewAlarm && draft.Mode <= kModeAppointment;
    return reader.IsWhole && isMode ? std::optional(draft) : std::nullopt;
}

} // namespace tavo
