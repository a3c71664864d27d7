#pragma once

#include <cstddef>

// An owned, length-counted byte string, always NUL-terminated. It may hold any byte, NUL included.
// Every empty string shares one static buffer and owns nothing.
// Threads: not synchronised; users lock.
class Str {
public:
    static constexpr size_t NO_POS = 0xFFFFFFFF;  // not found; as a length argument: take the C string length
    static constexpr size_t MAX_LEN = 1048576;    // bytes; a guide for users, nothing is cut here
    static const Str EMPTY_STR;

    constexpr Str() noexcept : length_(0), chars_(NoChars_) {}  // usable before any static object is built
    Str(const char* s, size_t len = NO_POS);                    // a null s with a length gives that many zero bytes
    Str(const Str& s);
    Str(Str&& s) noexcept;
    Str(const Str& s, size_t pos, size_t len);  // as s.substr(pos, len)
    explicit Str(bool value);                   // "1" or "0"
    explicit Str(double value, unsigned int precision = 6);
    Str(int value, unsigned int base, unsigned int digitOffset);
    Str(size_t value, unsigned int base);  // base 10 or 16, upper-case digits
    virtual ~Str();

    Str& operator=(const Str& s);
    Str& operator=(Str&& s) noexcept;
    Str& operator=(const char* s);
    Str& operator=(double value);

    Str& operator+=(bool value);
    Str& operator+=(unsigned char c);
    Str& operator+=(char c);
    Str& operator+=(double value);
    Str& operator+=(int value);
    Str& operator+=(size_t value);
    Str& operator+=(const char* s);
    Str& operator+=(const Str& s);
    template <typename T>
    Str& operator<<(const T& value) {
        return *this += value;
    }
    Str& append(const Str& s);
    Str& append(const char* s, size_t len);
    Str& pushBack(unsigned char c);

    const char* cStr() const { return chars_; }
    const char* data() const { return chars_; }
    size_t length() const { return length_; }
    size_t size() const { return length_; }
    bool isEmpty() const { return length_ == 0; }
    char operator[](size_t index) const { return index < length_ ? chars_[index] : '\0'; }  // NUL at or past the length

    int compare(const Str& other) const;  // below, equal to or above 0; bytes compare unsigned
    int compare(const char* s) const;
    bool operator==(const Str& other) const { return compare(other) == 0; }
    bool operator!=(const Str& other) const { return compare(other) != 0; }
    bool operator<(const Str& other) const { return compare(other) < 0; }
    bool operator==(const char* s) const { return compare(s) == 0; }
    bool operator!=(const char* s) const { return compare(s) != 0; }

    // Both ignore the case of letters; a prefix or suffix longer than the string gives false.
    bool startsWith(const char* prefix, size_t len = NO_POS) const;
    bool startsWith(const Str& prefix) const { return startsWith(prefix.chars_, prefix.length_); }
    bool endsWith(const char* suffix, size_t len = NO_POS) const;
    bool endsWith(const Str& suffix) const { return endsWith(suffix.chars_, suffix.length_); }

    // Searches give NO_POS when nothing is found, except that findLastOf(char) gives the all-ones size_t.
    // A byte of 0x80 or above is never found by the single-character searches.
    size_t find(char c, size_t from = 0) const;
    size_t find(const char* s, size_t from = 0) const;
    size_t find(const Str& s, size_t from = 0) const;
    size_t findLastOf(char c) const;
    size_t findLastOf(const char* s) const;
    size_t findLastOf(const Str& s) const;

    Str substr(size_t pos, size_t len = NO_POS) const;  // clipped to what is there
    // count + new array of count strings; the caller releases it with delete[]. An empty string gives one empty piece.
    Str* split(int& count, const char* sep, size_t sepLen = NO_POS) const;
    Str asHex() const;  // two upper-case digits a byte

    void set(const char* s, size_t len = NO_POS, size_t copyLen = NO_POS);
    void setInside(size_t pos, const char* s, size_t len);  // overwrites what lies inside; never grows
    bool setChar(size_t index, char c);                     // false at or past the length
    void replaceChar(char from, char to);
    void toUpper();
    void toLower();

    // Overwrite the string with the number's text.
    virtual Str& intoString(double value, unsigned int precision);
    virtual Str& intoString(int value, unsigned int base, unsigned int digitOffset);

    static size_t Find(const char* buf, char c, size_t len = NO_POS);
    static size_t FindLastOf(const char* buf, char c, size_t len = NO_POS);
    // XOR of the bytes into acc, which the caller has set.
    static void Checksum(unsigned char& acc, const char* buf, size_t len = NO_POS);
    static bool NmeaChecksum(unsigned char& acc, const char* buf, size_t len = NO_POS);
    static bool NmeaValidate(const char* buf, size_t len = NO_POS);
    // Digits and NUL into buf; the result is the number of characters without the NUL.
    static unsigned int IntToAscii(int value, char* buf, unsigned int base, unsigned int bufLen,
                                   unsigned int digitOffset);
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

Str operator+(const Str& a, const Str& b);
Str operator+(const char* a, const Str& b);
