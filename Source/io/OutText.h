#pragma once

#include "io/OutStream.h"
#include "utils/TextBuffer.h"

// A text on its way to a stream: built in the room that the stream lends, as far as it fits there. Nothing else is
// written to the stream before put.
class OutText : public TextBuffer {
public:
    explicit OutText(OutStream& out) : OutText(out, out.roomFor(USUAL_LENGTH)) {}

    // Hands the text over, once; the number of bytes written.
    size_t put() {
        if (data() != place_) return out_.write(data(), length()).bytesWritten();
        out_.putUpTo(place_ + length());
        return length();
    }

private:
    static constexpr size_t USUAL_LENGTH = 1024;  // bytes that hardly a line exceeds

    OutText(OutStream& out, char* place) : TextBuffer(place, out.room()), out_(out), place_(place) {}

    OutStream& out_;     // borrowed
    char* const place_;  // in its room; null: none is lent
};
