#pragma once

#include <cstddef>
#include <cstring>

#include "logger/writer/json/SampleStore.h"

class TextBuffer;

// The items of an array in few bytes: a number that is the one before takes one, another that is a small step away
// three, any other five or nine. What comes again is kept once: a few bytes of a log can repeat an array of any length.
// Errors: those of the store.
class PackedItems {
public:
    enum Kind : char { NOTHING, SAME, STEP, FLOAT, DOUBLE, TEXT, BEGIN, END, AGAIN };
    // One item or several, of which the first is no number.
    struct Piece {
        size_t place_;
        size_t length_;
        size_t longestText_;  // characters that the items take at most as text
    };
    struct Repetition {
        Piece piece_;
        size_t times_;
    };
    // How much there is.
    struct State {
        size_t length_;
        size_t longestText_;
        Repetition pending_;
        double last_;
    };

    explicit PackedItems(SampleStore& store) : series_(store) {}

    void addNumber(double number);                  // nothing for NaN and infinity
    void addText(const char* text, size_t length);  // of any bytes
    void beginArray() { addOther(BEGIN); }          // a nested one; what is added from here on goes there
    void endArray() { addOther(END); }
    void addAgain(const Piece& piece, size_t times);  // so many times more

    // What is added between these two is a piece.
    State beginPiece();
    Piece endPiece(const State& begin);
    State state() const { return {series_.length(), longestText_, pending_, last_}; }
    void takeBack(const State& end);  // what came since

    // All that there is: a piece, and how often one comes again behind it.
    Piece stored() const { return {0, series_.length(), longestText_}; }
    const Repetition& pending() const { return pending_; }
    SampleStore& store() { return series_.store(); }

    // Goes through the items of a piece in their order.
    class Reader {
    public:
        Reader(PackedItems& items, const Piece& piece)
            : series_(items.series_), place_(piece.place_), end_(piece.place_ + piece.length_) {}
        Reader(const Reader&) = delete;
        Reader& operator=(const Reader&) = delete;

        bool next();  // false behind the last one
        Kind kind() const { return kind_; }
        double number() const { return number_; }  // also of the kinds SAME, STEP and FLOAT
        const Repetition& repetition() const { return repetition_; }
        void copyText(TextBuffer& to);  // once

    private:
        static constexpr size_t WINDOW = 8192;  // bytes

        bool fill(size_t needed);
        template <typename T>
        bool take(T& value) {
            if (!fill(sizeof value)) return false;
            memcpy(&value, window_ + at_, sizeof value);
            at_ += sizeof value;
            return true;
        }
        bool takeStep();
        bool takeFloat();

        SampleSeries& series_;
        size_t place_;  // of what is to be read next
        const size_t end_;
        Kind kind_ = NOTHING;
        double number_ = 0;
        Repetition repetition_ = {};
        size_t textLength_ = 0;
        size_t at_ = 0;      // in the window
        size_t filled_ = 0;  // of it
        char window_[WINDOW];
    };

private:
    void addOther(Kind kind);
    void put(const void* bytes, size_t length) { series_.append(bytes, length); }
    void put(Kind kind) { put(&kind, sizeof kind); }
    template <typename T>
    void put(Kind kind, const T& value);
    void putPending();

    SampleSeries series_;
    double last_ = 0;  // number; 0 after what is none
    size_t longestText_ = 0;
    Repetition pending_ = {};  // may yet grow
};
