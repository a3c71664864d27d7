#pragma once

#include "utils/Str.h"

class InStream;
class OutStream;

// A name with the number that stands for it in the log.
class CodedStr : public Str {
public:
    static constexpr unsigned short NO_CODE = 16383;      // a name without a code
    static constexpr unsigned int MAX_NAME_LENGTH = 253;  // bytes that a record read from a log holds at most

    CodedStr() = default;
    CodedStr(const Str& name, unsigned short code = NO_CODE) : Str(name), code_(code) {}
    CodedStr(const char* name, unsigned short code = NO_CODE) : Str(name), code_(code) {}

    unsigned short getCode() const { return code_; }
    // For the log that registers the name; the name's place there does not follow.
    void setCode(unsigned short code) { code_ = code; }

    // ` code=0005 name="Depth"` and a line feed; the number of bytes written.
    size_t write(OutStream& out) const;
    Str recordText() const;  // that record
    // A new name, owned by the caller; null when the record is malformed, with the stream where it stopped.
    static CodedStr* Read(InStream& in);

private:
    unsigned short code_ = NO_CODE;
};
