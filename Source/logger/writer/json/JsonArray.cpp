#include "logger/writer/json/JsonArray.h"

#include <cjson/cJSON.h>

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstring>
#include <memory>

#include "io/OutStream.h"
#include "utils/TextBuffer.h"
#include "utils/Utf8.h"

static const int FEW_DIGITS = 15;  // every decimal number of so many digits survives in a double
static const int ALL_DIGITS = 17;  // every double survives in so many digits
static const size_t LONGEST_NUMBER = 32;
static const char* const NOTHING = "null";
static const char REPEAT = '\0';
static const size_t GATHERED = 65536;  // bytes that are written together

static bool AreAlike(double a, double b) {
    return std::fabs(a - b) <= std::max(std::fabs(a), std::fabs(b)) * DBL_EPSILON;
}

void JsonArray::beginItem() {
    if (!isAtStart_) text_.append(separator_, strlen(separator_));
    isAtStart_ = false;
}

void JsonArray::addItem(const char* text, size_t length) {
    beginItem();
    text_.append(text, length);
}

void JsonArray::beginArray() {
    addItem("[", 1);
    isAtStart_ = true;
}

void JsonArray::endArray() {
    text_.append("]", 1);
    isAtStart_ = false;
}

size_t JsonArray::nextPlace() const {
    return isAtStart_ ? length() : length() + strlen(separator_);
}

// Few digits, unless they tell of another number.
void JsonArray::addNumber(double number) {
    if (!std::isfinite(number)) return addItem(NOTHING, strlen(NOTHING));
    char digits[LONGEST_NUMBER];
    char* const limit = digits + LONGEST_NUMBER;
    char* end = std::to_chars(digits, limit, number, std::chars_format::general, FEW_DIGITS).ptr;
    double told = 0;
    std::from_chars(digits, end, told);
    if (!AreAlike(told, number)) end = std::to_chars(digits, limit, number, std::chars_format::general, ALL_DIGITS).ptr;
    addItem(digits, static_cast<size_t>(end - digits));
}

void JsonArray::addString(const Str& text) {
    const Str valid = Utf8::Sanitized(text, Utf8::REPLACE_NUL);
    const std::unique_ptr<cJSON, void (*)(cJSON*)> item(cJSON_CreateStringReference(valid.cStr()), cJSON_Delete);
    const std::unique_ptr<char, void (*)(void*)> written(cJSON_PrintUnformatted(item.get()), cJSON_free);
    if (written == nullptr) return text_.refuse();
    addItem(written.get(), strlen(written.get()));
}

void JsonArray::addAgain(size_t place, size_t length, size_t times) {
    Repetition repetition = {place, length, times};
    Repetition last = {};
    const bool followsOne = repetitionEnd_ != 0 && repetitionEnd_ == this->length();
    if (followsOne) memcpy(&last, text_.data() + repetitionEnd_ - sizeof last, sizeof last);
    if (last.place_ == place && last.length_ == length) {
        repetition.times_ += last.times_;
        text_.cutTo(repetitionEnd_ - sizeof last - sizeof REPEAT);
    }
    if (repetition.times_ == 0) return;
    text_.append(&REPEAT, sizeof REPEAT);
    text_.append(&repetition, sizeof repetition);
    repetitionEnd_ = this->length();
}

static void Flush(OutStream& out, TextBuffer& gathered) {
    out.write(gathered.data(), gathered.length());
    gathered.clear();
}

static void Put(OutStream& out, TextBuffer& gathered, const char* text, size_t length) {
    if (gathered.length() + length > GATHERED) Flush(out, gathered);
    if (length > GATHERED) {
        out.write(text, length);
    } else {
        gathered.append(text, length);
    }
}

void JsonArray::write(OutStream& out) {
    TextBuffer gathered;
    Put(out, gathered, "[", 1);
    write(out, gathered, 0, length());
    Put(out, gathered, "]", 1);
    Flush(out, gathered);
}

// What is repeated may hold repetitions itself.
void JsonArray::write(OutStream& out, TextBuffer& gathered, size_t from, size_t end) {
    while (from < end) {
        const char* const text = text_.data() + from;
        const char* const mark = static_cast<const char*>(memchr(text, REPEAT, end - from));
        const size_t plain = mark == nullptr ? end - from : static_cast<size_t>(mark - text);
        Put(out, gathered, text, plain);
        from += plain;
        if (mark == nullptr) return;
        Repetition repetition;
        memcpy(&repetition, mark + sizeof REPEAT, sizeof repetition);
        from += sizeof REPEAT + sizeof repetition;
        for (size_t i = 0; i < repetition.times_; ++i) {
            Put(out, gathered, separator_, strlen(separator_));
            write(out, gathered, repetition.place_, repetition.place_ + repetition.length_);
        }
    }
}
