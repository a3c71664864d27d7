#include "logger/writer/json/JsonArray.h"

#include <cjson/cJSON.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <memory>

#include "io/OutStream.h"
#include "logger/writer/json/JsonNumber.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"
#include "utils/TextBuffer.h"
#include "utils/Utf8.h"

namespace {
// The text of items.
class ItemsText {
public:
    // Hands the text to the stream in parts; it keeps the whole text where there is none.
    ItemsText(PackedItems& items, const char* separator, OutStream* out)
        : items_(items), separator_(separator), out_(out) {}

    void addAll();
    void add(const PackedItems::Piece& piece);

private:
    struct Kept {
        size_t place_;
        Str text_;
    };
    static constexpr size_t GATHERED = 65536;  // bytes that are written together
    static constexpr unsigned int KEPT = 4;    // texts that may come again
    static constexpr size_t SHORT = 2500000;   // characters of one, enough for all elements that a log brings

    void addItem(PackedItems::Reader& item);
    void addNumber(double number);
    void addAgain(const PackedItems::Repetition& repetition);
    const Str& textOf(const PackedItems::Piece& piece);
    void separate();
    void flush();

    PackedItems& items_;
    const char* const separator_;
    OutStream* const out_;
    TextBuffer text_;
    bool isFirst_ = true;  // of the array or of a nested one
    double number_ = NAN;  // the last one, and its text
    char digits_[JsonNumber::LONGEST];
    size_t digitCount_ = 0;
    FlexArray<Kept*> kept_{true, KEPT};  // owned, the latest first
};

void ItemsText::addAll() {
    text_.append('[');
    add(items_.stored());
    addAgain(items_.pending());
    text_.append(']');
    flush();
}

void ItemsText::add(const PackedItems::Piece& piece) {
    for (PackedItems::Reader item(items_, piece); item.next();) {
        addItem(item);
        if (out_ != nullptr && text_.length() >= GATHERED) flush();
    }
}

void ItemsText::addItem(PackedItems::Reader& item) {
    switch (item.kind()) {
        case PackedItems::NOTHING:
            separate();
            text_.append("null", 4);
            break;
        case PackedItems::TEXT:
            separate();
            item.copyText(text_);
            break;
        case PackedItems::BEGIN:
            separate();
            text_.append('[');
            isFirst_ = true;
            break;
        case PackedItems::END:
            text_.append(']');
            isFirst_ = false;
            break;
        case PackedItems::AGAIN:
            addAgain(item.repetition());
            break;
        default:
            addNumber(item.number());
    }
}

void ItemsText::addNumber(double number) {
    if (number != number_ || std::signbit(number) != std::signbit(number_)) {
        digitCount_ = static_cast<size_t>(JsonNumber::Put(digits_, number) - digits_);
        number_ = number;
    }
    separate();
    text_.append(digits_, digitCount_);
}

// What is repeated may hold repetitions itself.
void ItemsText::addAgain(const PackedItems::Repetition& repetition) {
    const Str* const text = repetition.piece_.longestText_ <= SHORT ? &textOf(repetition.piece_) : nullptr;
    for (size_t i = 0; i < repetition.times_; ++i) {
        separate();
        isFirst_ = true;
        if (text == nullptr) {
            add(repetition.piece_);
        } else {
            text_.append(*text);
        }
        isFirst_ = false;
        if (out_ != nullptr && text_.length() >= GATHERED) flush();
    }
}

const Str& ItemsText::textOf(const PackedItems::Piece& piece) {
    for (unsigned int i = 0; i < kept_.size(); ++i) {
        if (kept_.at(i)->place_ == piece.place_) return kept_.at(i)->text_;
    }
    ItemsText text(items_, separator_, nullptr);
    text.add(piece);
    if (kept_.size() == KEPT) delete kept_.pop(-1);
    kept_.insert(0, new Kept{piece.place_, text.text_.toStr()});
    return kept_.at(0)->text_;
}

void ItemsText::separate() {
    if (!isFirst_) text_.append(separator_);
    isFirst_ = false;
}

void ItemsText::flush() {
    out_->write(text_.data(), text_.length());
    text_.clear();
}
}  // namespace

void JsonArray::addString(const Str& text) {
    const Str valid = Utf8::Sanitized(text, Utf8::REPLACE_NUL);
    const std::unique_ptr<cJSON, void (*)(cJSON*)> item(cJSON_CreateStringReference(valid.cStr()), cJSON_Delete);
    const std::unique_ptr<char, void (*)(void*)> written(cJSON_PrintUnformatted(item.get()), cJSON_free);
    if (written == nullptr) return store().refuse(ENOMEM);
    addText(written.get(), strlen(written.get()));
}

void JsonArray::write(OutStream& out) {
    ItemsText(*this, separator_, &out).addAll();
}
