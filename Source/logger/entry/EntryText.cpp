#include "logger/entry/EntryText.h"

#include <cstring>

#include "logger/entry/LogEntry.h"
#include "utils/Digits.h"

namespace EntryText {

static const long MICROS = 1000000;
static const long MICROS_PER_MILLI = 1000;
static const unsigned long MILLIS = 1000;  // of a second
static const long long EXACT_SECONDS = 1LL << 32;
static const int DATE_DECIMALS = 3;
static const unsigned int MICRO_DECIMALS = 6;

// A double of less than 2^32 seconds is within 0.3 microseconds of the instant it stands for. So "%.*f" of it has the
// digits of the integers, rounded to milliseconds where asked for, unless the instant lies halfway between two
// milliseconds or rounds up to the next second.
static bool HasDigitsOfIntegers(const timeval& t, unsigned int decimals) {
    const bool isOrdinary = t.tv_sec >= 0 && t.tv_sec < EXACT_SECONDS && t.tv_usec >= 0 && t.tv_usec < MICROS;
    const long half = MICROS_PER_MILLI / 2;
    return isOrdinary &&
           (decimals == MICRO_DECIMALS || (t.tv_usec % MICROS_PER_MILLI != half && t.tv_usec < MICROS - half));
}

// The fraction as digits; the place behind them.
static char* PutFraction(char* at, long micros, unsigned int decimals) {
    const unsigned long fraction = static_cast<unsigned long>(micros);
    if (decimals == MICRO_DECIMALS) return Digits::PutSix(at, fraction);
    return Digits::PutThree(at, (fraction + MICROS_PER_MILLI / 2) / MICROS_PER_MILLI);
}

void AppendSeconds(TextBuffer& text, const Timestamp& t, unsigned int decimals) {
    const timeval& instant = t.getTimeval();
    if (!HasDigitsOfIntegers(instant, decimals)) {
        text.appendFixed(t.asDouble(), decimals);
        return;
    }
    text.appendInt(instant.tv_sec).append('.');
    text.addUpTo(PutFraction(text.roomFor(MICRO_DECIMALS + 1), instant.tv_usec, decimals));
}

// The stamp of one second, in which only the two fractions change: "2012-06-01T12:30:00.410Z,1338553800.410000".
struct SecondStamp {
    time_t second_ = -1;
    size_t dateFraction_ = 0;  // where it stands
    size_t fraction_ = 0;
    char text_[Timestamp::TEXT_ROOM + 24];
};

static void MakeStamp(SecondStamp& stamp, const Timestamp& t) {
    stamp.second_ = t.getTimeval().tv_sec;
    TextBuffer text(stamp.text_, sizeof stamp.text_);
    char date[Timestamp::TEXT_ROOM];
    text.append(t.toString(date, sizeof date, DATE_DECIMALS));
    stamp.dateFraction_ = text.length() - DATE_DECIMALS - 1;
    text.append(',').appendInt(stamp.second_).append('.');
    stamp.fraction_ = text.length();
}

// The date shows the milliseconds of the fraction in single precision, which differ from those of the integer only
// where that lies halfway between two.
static unsigned long DateMillis(const Timestamp& t) {
    const unsigned long micros = static_cast<unsigned long>(t.getTimeval().tv_usec);
    const unsigned long rest = micros % MICROS_PER_MILLI;
    if (rest == MICROS_PER_MILLI / 2) return static_cast<unsigned long>(t.printedFraction(DATE_DECIMALS));
    const unsigned long millis = micros / MICROS_PER_MILLI + (rest > MICROS_PER_MILLI / 2 ? 1 : 0);
    return millis == MILLIS ? 0 : millis;
}

static void AppendStampOfSecond(TextBuffer& text, const Timestamp& t, unsigned int decimals) {
    static thread_local SecondStamp stamp;
    if (t.getTimeval().tv_sec != stamp.second_) MakeStamp(stamp, t);
    char* const at = text.roomFor(sizeof stamp.text_);
    memcpy(at, stamp.text_, sizeof stamp.text_);
    *Digits::PutThree(at + stamp.dateFraction_, DateMillis(t)) = 'Z';
    text.addUpTo(PutFraction(at + stamp.fraction_, t.getTimeval().tv_usec, decimals));
}

void AppendTimes(TextBuffer& text, const Timestamp& t, unsigned int decimals) {
    if (HasDigitsOfIntegers(t.getTimeval(), decimals)) {
        AppendStampOfSecond(text, t, decimals);
    } else {
        char time[Timestamp::TEXT_ROOM];
        text.append(t.toString(time, sizeof time, DATE_DECIMALS)).append(',');
        AppendSeconds(text, t, decimals);
    }
}

void AppendStamp(TextBuffer& text, const Timestamp& t, unsigned int decimals) {
    AppendTimes(text, t, decimals);
    text.append(' ');
}

void AppendName(TextBuffer& text, const Str* name) {
    text.append(name == nullptr ? LogEntry::UNKNOWN : *name);
}

}  // namespace EntryText
