#pragma once

#include <cstddef>

// An owned, length-counted byte string, always NUL-terminated. It may hold any byte, NUL included.
// Every empty string shares one static buffer and owns nothing. A null C string counts as an empty one.
// Memory that is used up ends the process. Threads: not synchronised; users lock.
class Str {
public:
    static constexpr size_t NO_POS = 0xFFFFFFFF;  // not found; as a length argument: take the C string length
    static constexpr size_t MAX_LEN = 1048576;    // bytes; a guide for users, nothing is cut here
    static const Str EMPTY_STR;

    constexpr Str() noexcept : length_(0), chars_(NoChars_) {}    // usable before any static object is built
    Str(const char* s, size_t len = NO_POS);                      // a null s with a length gives that many zero bytes
    Str(const Str& s);                                            // copies the bytes
    Str(Str&& s) noexcept;                                        // leaves s empty
    Str(const Str& s, size_t pos, size_t len);                    // as s.substr(pos, len)
    explicit Str(bool value);                                     // "1" or "0"
    explicit Str(double value, unsigned int precision = 6);       // as intoString
    Str(int value, unsigned int base, unsigned int digitOffset);  // as intoString
    Str(size_t value, unsigned int base);                         // upper-case digits; base 0 is 10, 1 is 2, at most 36
    virtual ~Str();

    Str& operator=(const Str& s);
    Str& operator=(Str&& s) noexcept;  // s gets what this held
    Str& operator=(const char* s);     // up to the NUL
    Str& operator=(double value);      // with 6 decimals

    // Appending. Each makes a new block: a TextBuffer is cheaper for a text of many pieces. s may lie in this string.
    Str& operator+=(bool value);       // "1" or "0"
    Str& operator+=(unsigned char c);  // the byte itself, as for char; no digits
    Str& operator+=(char c);           // also a NUL
    Str& operator+=(double value);     // with 6 decimals
    Str& operator+=(int value);        // in base 10
    Str& operator+=(size_t value);     // in base 10
    Str& operator+=(const char* s);    // up to the NUL; null adds nothing
    Str& operator+=(const Str& s);     // with any NUL in it
    template <typename T>
    Str& operator<<(const T& value) {  // as += of its type
        return *this += value;
    }
    Str& append(const Str& s);               // as +=
    Str& append(const char* s, size_t len);  // len NO_POS: up to the NUL; null adds nothing
    Str& pushBack(unsigned char c);          // as +=

    // The bytes and the NUL behind them; never null, and valid until the string is changed or goes.
    const char* cStr() const { return chars_; }
    const char* data() const { return chars_; }
    size_t length() const { return length_; }  // bytes, without the terminating NUL
    size_t size() const { return length_; }    // the same
    bool isEmpty() const { return length_ == 0; }
    char operator[](size_t index) const { return index < length_ ? chars_[index] : '\0'; }  // NUL at or past the length

    // Below, equal to or above 0, by the bytes taken unsigned and then by the length. A C string ends at its NUL.
    int compare(const Str& other) const;
    int compare(const char* s) const;
    bool operator==(const Str& other) const { return compare(other) == 0; }
    bool operator!=(const Str& other) const { return compare(other) != 0; }
    bool operator<(const Str& other) const { return compare(other) < 0; }
    bool operator==(const char* s) const { return compare(s) == 0; }
    bool operator!=(const char* s) const { return compare(s) != 0; }

    // Both ignore the case of letters and compare no further than a NUL; a prefix or suffix longer than the string
    // gives false, an empty one true. len NO_POS: up to the NUL.
    bool startsWith(const char* prefix, size_t len = NO_POS) const;
    bool startsWith(const Str& prefix) const { return startsWith(prefix.chars_, prefix.length_); }
    bool endsWith(const char* suffix, size_t len = NO_POS) const;
    bool endsWith(const Str& suffix) const { return endsWith(suffix.chars_, suffix.length_); }

    // Searches give a place counted from the string's start, NO_POS when nothing is found or from lies past the end;
    // only findLastOf(char) gives the all-ones size_t instead. A byte of 0x80 or above is never found by the
    // single-character searches. An empty text is found at from, or at the end.
    size_t find(char c, size_t from = 0) const;
    size_t find(const char* s, size_t from = 0) const;
    size_t find(const Str& s, size_t from = 0) const;
    size_t findLastOf(char c) const;         // NUL: the length
    size_t findLastOf(const char* s) const;  // where the last whole one begins
    size_t findLastOf(const Str& s) const;

    Str substr(size_t pos, size_t len = NO_POS) const;  // clipped to what is there; empty when pos lies past the end
    // The pieces between the separators, "a,,b" by "," giving "a", "" and "b": a new array of count strings, which the
    // caller releases with delete[]. An empty string, or a separator that is empty or absent, gives one piece.
    Str* split(int& count, const char* sep, size_t sepLen = NO_POS) const;
    Str asHex() const;  // two upper-case digits a byte

    // Takes len bytes (NO_POS: up to the NUL): the first copyLen from s, or all, and NULs for the rest or a null s. s
    // may lie in this string.
    void set(const char* s, size_t len = NO_POS, size_t copyLen = NO_POS);
    void setInside(size_t pos, const char* s, size_t len);  // overwrites what lies inside; never grows
    bool setChar(size_t index, char c);                     // false at or past the length
    void replaceChar(char from, char to);                   // every one
    // Byte by byte, ASCII letters alone.
    void toUpper();
    void toLower();

    // Overwrite the string with the number's text: "%.*f", cut at 30 characters, or an int as by IntToAscii.
    virtual Str& intoString(double value, unsigned int precision);
    virtual Str& intoString(int value, unsigned int base, unsigned int digitOffset);

    // The raw forms of find and findLastOf; an empty buf gives NO_POS. Here and below len NO_POS means up to the NUL.
    static size_t Find(const char* buf, char c, size_t len = NO_POS);
    static size_t FindLastOf(const char* buf, char c, size_t len = NO_POS);  // absent: the all-ones size_t
    // XOR of the bytes into acc, which the caller has set.
    static void Checksum(unsigned char& acc, const char* buf, size_t len = NO_POS);
    // The same of what stands between '$', failing that '!', and '*' or the end; false without
    // either.
    static bool NmeaChecksum(unsigned char& acc, const char* buf, size_t len = NO_POS);
    // True when the two digits behind '*', upper-case if letters, are that checksum: "$GPGLL,*7C".
    static bool NmeaValidate(const char* buf, size_t len = NO_POS);
    // Digits and NUL into buf; the result is the number of characters without the NUL. Base 0 is 10 and 1 is 2;
    // letters are upper-case, those after Q in the vehicle's own order. digitOffset shifts every digit in the table of
    // 36, '?' standing for one past it. A buffer that is too small loses the sign and the leading digits.
    static unsigned int IntToAscii(int value, char* buf, unsigned int base, unsigned int bufLen,
                                   unsigned int digitOffset);
    // Of this string.
    void checksum(unsigned char& acc) const { Checksum(acc, chars_, length_); }
    bool nmeaChecksum(unsigned char& acc) const { return NmeaChecksum(acc, chars_, length_); }
    bool nmeaValidate() const { return NmeaValidate(chars_, length_); }

private:
    void release();  // gives the block back, if there is one
    void swap(Str& s) noexcept;
    size_t findText(const char* s, size_t len, size_t from) const;
    size_t findLastText(const char* s, size_t len) const;

    static char NoChars_[1];  // the one empty text

    size_t length_;  // bytes, without the terminating NUL
    char* chars_;    // owned unless it is NoChars_
};

// A new string of both; neither is changed.
Str operator+(const Str& a, const Str& b);
Str operator+(const char* a, const Str& b);
