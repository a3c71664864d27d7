#pragma once

#include <cstddef>

// The text of numbers as the JSON library writes them.
namespace JsonNumber {
constexpr size_t LONGEST = 32;  // characters, more than any number takes

// Of 15 digits, or of 17 where 15 tell another number; null for NaN and infinity. Gives the end of the text.
char* Put(char* to, double number);
}  // namespace JsonNumber
