#include "logger/writer/json/PackedItems.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include "utils/AuvMath.h"
#include "utils/TextBuffer.h"

static const size_t LONGEST_ITEM = 32;  // characters of a number or a bracket, with what separates it from the next

template <typename T>
void PackedItems::put(Kind kind, const T& value) {
    char bytes[1 + sizeof value];
    bytes[0] = kind;
    memcpy(bytes + 1, &value, sizeof value);
    put(bytes, sizeof bytes);
}

void PackedItems::addNumber(double number) {
    putPending();
    longestText_ += LONGEST_ITEM;
    if (!std::isfinite(number)) return put(NOTHING);
    const double last = last_;
    last_ = number;
    if (AuvMath::AreSameBits(number, last)) return put(SAME);
    const double change = number - last;
    const short step = std::fabs(change) <= SHRT_MAX ? static_cast<short>(change) : 0;
    if (AuvMath::AreSameBits(last + step, number)) return put(STEP, step);
    const float narrow = static_cast<float>(number);
    if (AuvMath::AreSameBits(narrow, number)) return put(FLOAT, narrow);
    put(DOUBLE, number);
}

void PackedItems::addOther(Kind kind) {
    putPending();
    last_ = 0;
    longestText_ += LONGEST_ITEM;
    put(kind);
}

void PackedItems::addText(const char* text, size_t length) {
    addOther(TEXT);
    longestText_ += length;
    put(&length, sizeof length);
    put(text, length);
}

void PackedItems::addAgain(const Piece& piece, size_t times) {
    if (pending_.piece_.place_ != piece.place_ || pending_.piece_.length_ != piece.length_) putPending();
    pending_ = {piece, pending_.times_ + times};
    longestText_ += (piece.longestText_ + LONGEST_ITEM) * times;
}

void PackedItems::putPending() {
    if (pending_.times_ == 0) return;
    put(AGAIN, pending_);
    pending_.times_ = 0;
    last_ = 0;
}

PackedItems::State PackedItems::beginPiece() {
    putPending();
    return state();
}

PackedItems::Piece PackedItems::endPiece(const State& begin) {
    putPending();
    return {begin.length_, series_.length() - begin.length_, longestText_ - begin.longestText_};
}

void PackedItems::takeBack(const State& end) {
    series_.cutTo(end.length_);
    longestText_ = end.longestText_;
    pending_ = end.pending_;
    last_ = end.last_;
}

bool PackedItems::Reader::next() {
    if (!take(kind_)) return false;
    if (kind_ >= TEXT) number_ = 0;
    switch (kind_) {
        case STEP:
            return takeStep();
        case FLOAT:
            return takeFloat();
        case DOUBLE:
            return take(number_);
        case TEXT:
            return take(textLength_);
        case AGAIN:
            return take(repetition_);
        default:
            return true;
    }
}

bool PackedItems::Reader::takeStep() {
    short step = 0;
    if (!take(step)) return false;
    number_ += step;
    return true;
}

bool PackedItems::Reader::takeFloat() {
    float narrow = 0;
    if (!take(narrow)) return false;
    number_ = narrow;
    return true;
}

void PackedItems::Reader::copyText(TextBuffer& to) {
    while (textLength_ > 0 && fill(1)) {
        const size_t part = std::min(textLength_, filled_ - at_);
        to.append(window_ + at_, part);
        at_ += part;
        textLength_ -= part;
    }
}

// False at the end, and where the series cannot be read.
bool PackedItems::Reader::fill(size_t needed) {
    if (needed <= filled_ - at_) return true;
    std::copy(window_ + at_, window_ + filled_, window_);
    filled_ -= at_;
    at_ = 0;
    while (needed > filled_) {
        const size_t count = series_.read(place_, window_ + filled_, std::min(WINDOW - filled_, end_ - place_));
        if (count == 0) return false;
        place_ += count;
        filled_ += count;
    }
    return true;
}
