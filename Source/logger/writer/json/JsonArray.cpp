#include "logger/writer/json/JsonArray.h"

#include <cjson/cJSON.h>

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <memory>

#include "utils/Utf8.h"

static const int FEW_DIGITS = 15;  // every decimal number of so many digits survives in a double
static const int ALL_DIGITS = 17;  // every double survives in so many digits
static const size_t LONGEST_NUMBER = 32;

static bool AreAlike(double a, double b) {
    return std::fabs(a - b) <= std::max(std::fabs(a), std::fabs(b)) * DBL_EPSILON;
}

TextBuffer& JsonArray::beginItem() {
    if (text_.data()[text_.length() - 1] != '[') text_.append(separator_);
    return text_;
}

void JsonArray::beginArray() {
    beginItem().append('[');
}

// Few digits, unless they tell of another number.
void JsonArray::addNumber(double number) {
    if (!std::isfinite(number)) {
        beginItem().append("null");
        return;
    }
    char digits[LONGEST_NUMBER];
    char* const limit = digits + LONGEST_NUMBER;
    char* end = std::to_chars(digits, limit, number, std::chars_format::general, FEW_DIGITS).ptr;
    double told = 0;
    std::from_chars(digits, end, told);
    if (!AreAlike(told, number)) end = std::to_chars(digits, limit, number, std::chars_format::general, ALL_DIGITS).ptr;
    beginItem().append(digits, static_cast<size_t>(end - digits));
}

void JsonArray::addString(const Str& text) {
    const Str valid = Utf8::Sanitized(text, Utf8::REPLACE_NUL);
    const std::unique_ptr<cJSON, void (*)(cJSON*)> item(cJSON_CreateStringReference(valid.cStr()), cJSON_Delete);
    const std::unique_ptr<char, void (*)(void*)> written(cJSON_PrintUnformatted(item.get()), cJSON_free);
    beginItem().append(written == nullptr ? "null" : written.get());
}

const char* JsonArray::finish() {
    text_.append(']').append('\0');
    return text_.data();
}
