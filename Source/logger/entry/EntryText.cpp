#include "logger/entry/EntryText.h"

#include "logger/entry/LogEntry.h"

namespace EntryText {

static const long MICROS = 1000000;
static const long long EXACT_SECONDS = 1LL << 32;

// A double of less than 2^32 seconds is within 0.3 microseconds of the instant it stands for. So "%.*f" of it has the
// digits of the integers, rounded, unless the instant lies halfway between two steps of the last decimal.
static bool HasExactDigits(const timeval& t, long step) {
    return t.tv_sec >= 0 && t.tv_sec < EXACT_SECONDS && t.tv_usec >= 0 && t.tv_usec < MICROS &&
           2 * (t.tv_usec % step) != step;
}

static void AppendFraction(TextBuffer& text, long fraction, unsigned int decimals) {
    char digits[6];
    for (unsigned int i = decimals; i-- > 0; fraction /= 10) digits[i] = static_cast<char>('0' + fraction % 10);
    text.append('.').append(digits, decimals);
}

void AppendSeconds(TextBuffer& text, const Timestamp& t, unsigned int decimals) {
    const timeval& instant = t.getTimeval();
    const long step = decimals == 6 ? 1 : 1000;
    if (!HasExactDigits(instant, step)) {
        text.appendFixed(t.asDouble(), decimals);
        return;
    }
    const long steps = (instant.tv_usec + step / 2) / step;
    const bool carries = steps == MICROS / step;
    text.appendInt(instant.tv_sec + (carries ? 1 : 0));
    AppendFraction(text, carries ? 0 : steps, decimals);
}

void AppendStamp(TextBuffer& text, const Timestamp& t, unsigned int decimals) {
    char time[Timestamp::TEXT_ROOM];
    text.append(t.toString(time, sizeof time, 3)).append(',');
    AppendSeconds(text, t, decimals);
    text.append(' ');
}

void AppendName(TextBuffer& text, const Str* name) {
    text.append(name == nullptr ? LogEntry::UNKNOWN : *name);
}

}  // namespace EntryText
