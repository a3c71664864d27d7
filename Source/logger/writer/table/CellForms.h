#pragma once

#include <memory>

#include "logger/entry/DataEntry.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"

// The cells of waiting rows as a few plain bytes: a number, or a text, and the form of its entry, which is all that the
// entries of one access have in common and is kept once. A text or array that comes again is kept once, too, since a
// few bytes of a log can repeat one of any length.
class CellForms {
    struct Text;

public:
    // A cell with a text is one use of it, which is released in the end. One of zeros stands for a lost cell.
    struct Cell {
        unsigned int form_ = 0;
        union {
            double number_ = 0;  // in the base unit
            Text* text_;         // or array; null: lost
        };
    };

    CellForms() = default;
    ~CellForms() { forget(); }
    CellForms(const CellForms&) = delete;
    CellForms& operator=(const CellForms&) = delete;

    Cell keep(const DataEntry& entry);
    Cell share(const Cell& cell) const;  // another use
    void release(const Cell& cell);
    void forget();                                   // when all cells have been released or lost
    size_t textBytes() const { return textBytes_; }  // in memory

    // The cell as an entry again, borrowed until the next of its form is asked for.
    const DataEntry* entry(const Cell& cell, const Timestamp& t) const;
    double number(const Cell& cell, const Unit& unit) const;                         // NaN for a text
    const Unit& unit(const Cell& cell) const;                                        // of its value
    const DataEntry& example(const Cell& cell) const { return *form(cell).entry_; }  // of its form, any value
    bool isText(const Cell& cell) const { return form(cell).isText_; }               // or array
    bool isNumber(const Cell& cell) const { return example(cell).isNumber(); }
    bool areSame(const Cell& a, const Cell& b) const;
    // A cell of the same form, with the number given in its unit; a double where the form cannot hold it.
    Cell withNumber(const Cell& cell, double number);

private:
    struct Text {
        Str bytes_;
        unsigned long uses_ = 0;
        Text** link_ = nullptr;  // to it, in the list of all
        Text* next_ = nullptr;
    };
    struct Form {
        std::unique_ptr<DataEntry> entry_;  // with the value of the last cell that it stood for
        bool isText_ = false;
        Form* nextOfBucket_ = nullptr;
        unsigned int index_ = 0;
        const Form* doubles_ = nullptr;  // of the same, as doubles; null before the first
    };
    static constexpr size_t BUCKETS = 4096;

    const Form& form(const Cell& cell) const { return *forms_.at(cell.form_); }
    Form* formOf(const DataEntry& entry);
    Text* textOf(const DataEntry& entry);
    Text* newText(const Str& bytes);
    void drop(Text* text);
    void release(Text* text);
    static bool Stands(const DataEntry& example, const DataEntry& entry);

    mutable FlexArray<Form*> forms_{true};
    std::unique_ptr<Form*[]> buckets_;  // by access code; null before the first cell
    std::unique_ptr<Text*[]> latest_;   // by element code, a use each; null before the first text
    Text* texts_ = nullptr;             // owned, a list of all
    size_t textBytes_ = 0;
};
