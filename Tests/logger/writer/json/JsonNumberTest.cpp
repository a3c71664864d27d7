#include "logger/writer/json/JsonNumber.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstring>
#include <random>
#include <string>

// What the library does: few digits, unless they tell of another number.
static std::string PrintedTwice(double number) {
    char text[JsonNumber::LONGEST];
    snprintf(text, sizeof text, "%.15g", number);
    const double told = strtod(text, nullptr);
    const bool isTold =
        std::isfinite(told) && std::fabs(told - number) <= std::max(std::fabs(told), std::fabs(number)) * DBL_EPSILON;
    if (!isTold) snprintf(text, sizeof text, "%.17g", number);
    return text;
}

static void Check(double number) {
    for (const double x : {number, -number}) {
        char text[JsonNumber::LONGEST];
        ASSERT_EQ(PrintedTwice(x), std::string(text, JsonNumber::Put(text, x)));
    }
}

TEST(JsonNumberTest, EveryKindOfNumberHasTheLibrarysText) {
    for (const double number : {0.0, 0.1, 1 / 3.0, 1e-5, 1e-4, 999999999999999.0, 1e15, 9007199254740993.0, 5e-324,
                                DBL_MIN, DBL_MAX, 0.99999999999999989, 12345678.0009765625, 1000000000000000.5}) {
        Check(number);
    }
    for (int exponent = -320; exponent <= 308; ++exponent) {
        const double power = strtod(("1e" + std::to_string(exponent)).c_str(), nullptr);
        Check(power);
        Check(std::nextafter(power, 0));
        Check(std::nextafter(power, INFINITY));
    }
    std::mt19937_64 random(1);
    for (int i = 0; i < 5000; ++i) {
        const unsigned long long bits = random();
        double any = 0;
        memcpy(&any, &bits, sizeof any);
        if (std::isfinite(any)) Check(any);
        const double part = static_cast<double>(bits >> 11);
        Check(static_cast<float>(part) / 1e15F);                // a number of the log's, widened
        Check(std::ldexp(part, -static_cast<int>(bits % 60)));  // its decimals end in 5
        Check(std::round(part / 1e9) / 1000);                   // few digits
        Check((std::floor(part / 10) + 0.5) / 1e15);            // sixteen, between two of fifteen
    }
}
