#include "logger/entry/EntryText.h"

#include "logger/entry/LogEntry.h"

namespace EntryText {

static const long MICROS = 1000000;
static const long long EXACT_SECONDS = 1LL << 32;
static const int DATE_DECIMALS = 3;

static long StepOf(unsigned int decimals) {
    return decimals == 6 ? 1 : 1000;
}

// A double of less than 2^32 seconds is within 0.3 microseconds of the instant it stands for. So "%.*f" of it has the
// digits of the integers, rounded to a step, unless the instant lies halfway between two steps or rounds up to the next
// second.
static bool HasDigitsOfIntegers(const timeval& t, long step) {
    return t.tv_sec >= 0 && t.tv_sec < EXACT_SECONDS && t.tv_usec >= 0 && t.tv_usec + step / 2 < MICROS &&
           2 * (t.tv_usec % step) != step;
}

static void AppendFraction(TextBuffer& text, const timeval& t, unsigned int decimals) {
    const long step = StepOf(decimals);
    text.appendDigits(static_cast<unsigned long>((t.tv_usec + step / 2) / step), static_cast<int>(decimals));
}

void AppendSeconds(TextBuffer& text, const Timestamp& t, unsigned int decimals) {
    if (!HasDigitsOfIntegers(t.getTimeval(), StepOf(decimals))) {
        text.appendFixed(t.asDouble(), decimals);
        return;
    }
    text.appendInt(t.getTimeval().tv_sec).append('.');
    AppendFraction(text, t.getTimeval(), decimals);
}

// The parts of a stamp that stay the same for a second: "2012-06-01T12:30:00." and "Z,1338553800.".
struct SecondText {
    time_t second_ = -1;
    TextBuffer date_;
    TextBuffer seconds_;
};

static const SecondText& TextOfSecond(const Timestamp& t) {
    static thread_local SecondText current;
    const time_t second = t.getTimeval().tv_sec;
    if (second == current.second_) return current;
    char time[Timestamp::TEXT_ROOM];
    t.toString(time, sizeof time, DATE_DECIMALS);
    current.second_ = second;
    current.date_.clear();
    current.date_.append(time, strlen(time) - DATE_DECIMALS - 1);
    current.seconds_.clear();
    current.seconds_.append("Z,").appendInt(second).append('.');
    return current;
}

static void AppendStampOfSecond(TextBuffer& text, const Timestamp& t, unsigned int decimals) {
    const SecondText& second = TextOfSecond(t);
    text.append(second.date_.data(), second.date_.length());
    text.appendDigits(static_cast<unsigned long>(t.printedFraction(DATE_DECIMALS)), DATE_DECIMALS);
    text.append(second.seconds_.data(), second.seconds_.length());
    AppendFraction(text, t.getTimeval(), decimals);
}

void AppendStamp(TextBuffer& text, const Timestamp& t, unsigned int decimals) {
    if (HasDigitsOfIntegers(t.getTimeval(), StepOf(decimals))) {
        AppendStampOfSecond(text, t, decimals);
    } else {
        char time[Timestamp::TEXT_ROOM];
        text.append(t.toString(time, sizeof time, DATE_DECIMALS)).append(',');
        AppendSeconds(text, t, decimals);
    }
    text.append(' ');
}

void AppendName(TextBuffer& text, const Str* name) {
    text.append(name == nullptr ? LogEntry::UNKNOWN : *name);
}

}  // namespace EntryText
