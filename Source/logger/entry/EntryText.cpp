#include "logger/entry/EntryText.h"

#include <array>
#include <cstdio>
#include <cstring>

#include "logger/entry/LogEntry.h"

namespace EntryText {

static const long MICROS = 1000000;
static const long MICROS_PER_MILLI = 1000;
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

// "000" to "999", one after the other.
static constexpr std::array<char, 3000> TRIPLES = [] {
    std::array<char, 3000> triples{};
    for (size_t i = 0; i < triples.size(); ++i) {
        const size_t number = i / 3;
        const size_t digits[] = {number / 100, number / 10 % 10, number % 10};
        triples[i] = static_cast<char>('0' + digits[i % 3]);
    }
    return triples;
}();

static void PutTriple(char* at, long number) {
    memcpy(at, &TRIPLES[3 * static_cast<size_t>(number)], 3);
}

static void PutFraction(char* at, long micros, unsigned int decimals) {
    if (decimals != MICRO_DECIMALS) {
        PutTriple(at, (micros + MICROS_PER_MILLI / 2) / MICROS_PER_MILLI);
        return;
    }
    PutTriple(at, micros / MICROS_PER_MILLI);
    PutTriple(at + 3, micros % MICROS_PER_MILLI);
}

void AppendSeconds(TextBuffer& text, const Timestamp& t, unsigned int decimals) {
    const timeval& instant = t.getTimeval();
    if (!HasDigitsOfIntegers(instant, decimals)) {
        text.appendFixed(t.asDouble(), decimals);
        return;
    }
    char fraction[MICRO_DECIMALS];
    PutFraction(fraction, instant.tv_usec, decimals);
    text.appendInt(instant.tv_sec).append('.').append(fraction, decimals);
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
    t.toString(stamp.text_, Timestamp::TEXT_ROOM, DATE_DECIMALS);
    const size_t dateLength = strlen(stamp.text_);
    stamp.dateFraction_ = dateLength - DATE_DECIMALS - 1;
    char* const seconds = stamp.text_ + dateLength;
    stamp.fraction_ = dateLength + static_cast<size_t>(sprintf(seconds, ",%ld.", static_cast<long>(stamp.second_)));
}

static void AppendStampOfSecond(TextBuffer& text, const Timestamp& t, unsigned int decimals) {
    static thread_local SecondStamp stamp;
    if (t.getTimeval().tv_sec != stamp.second_) MakeStamp(stamp, t);
    PutTriple(stamp.text_ + stamp.dateFraction_, t.printedFraction(DATE_DECIMALS));
    PutFraction(stamp.text_ + stamp.fraction_, t.getTimeval().tv_usec, decimals);
    text.append(stamp.text_, stamp.fraction_ + decimals);
}

void AppendStamp(TextBuffer& text, const Timestamp& t, unsigned int decimals) {
    if (HasDigitsOfIntegers(t.getTimeval(), decimals)) {
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
