#include "logger/writer/table/TextTableLogWriter.h"

#include <algorithm>
#include <cstring>

#include "io/OutText.h"
#include "logger/entry/DataEntry.h"
#include "logger/entry/EntryText.h"

static const unsigned int TIME_DECIMALS = 3;
static const size_t TIMES_ROOM = 128;  // bytes that the times of a row, and separators of a usual length, do not exceed
static const char NO_VALUE[] = "nan";
static const char NUMBER_CHARACTERS[] = "0123456789.-naif ";  // and those of its unit

TextTableLogWriter::TextTableLogWriter(const char* separator, const RequestedVariables& variables, bool hideUnits,
                                       bool interpolate)
    : TableLogWriter(nullptr, variables, interpolate),
      separator_(separator),
      separatorLength_(strlen(separator)),
      hideUnits_(hideUnits),
      cells_(new Cell[columns_.count()]) {
    for (const unsigned char c : {'"', '\r', '\n'}) forcesQuotes_[c] = true;
    if (separatorLength_ == 1) forcesQuotes_[static_cast<unsigned char>(*separator_)] = true;
    quotesNumbers_ = separatorLength_ != 1 || needsQuotes(NUMBER_CHARACTERS, strlen(NUMBER_CHARACTERS));
    for (int column = 0; column < columns_.count(); ++column) setCell(column, nullptr);
}

unsigned int TextTableLogWriter::writeHeader() {
    if (!isValid()) return 0;
    wroteFooter_ = false;
    OutText line(*logStream_);
    line.append("Timestamp").append(separator_).append("EpochSeconds");
    for (int column = 0; column < columns_.count(); ++column) {
        const size_t begin = line.append(separator_).length();
        line.append(columns_.name(column));
        quoteWhereNeeded(line, begin);
    }
    line.append('\n');
    return static_cast<unsigned int>(line.put());
}

unsigned int TextTableLogWriter::writeToColumn(const DataEntry* entry, int column) {
    setCell(column, entry);
    return 0;
}

// A text is made once for its value, however many rows show it.
void TextTableLogWriter::setCell(int column, const DataEntry* entry) {
    Cell& cell = cells_[column];
    TextBuffer text(cell.text_, Cell::ROOM);
    text.append(separator_, separatorLength_);
    if (entry == nullptr) {
        text.append(NO_VALUE);
    } else {
        const Unit& unit = entry->displayUnit(columns_.unit(column));
        entry->appendValue(text, &unit, hideUnits_);
        if (!isPlainNumber(*entry, unit)) quoteWhereNeeded(text, separatorLength_);
    }
    cellsLength_ += text.length() - cell.length_;
    cell.keep(text);
}

unsigned int TextTableLogWriter::writeRow() {
    if (!isValid()) return 0;
    OutText row(*logStream_, TIMES_ROOM + cellsLength_ + Cell::ROOM);
    appendTime(row);
    char* at = row.roomFor(cellsLength_ + Cell::ROOM);
    for (int column = 0; column < columns_.count(); ++column) at = cells_[column].putTo(at);
    *at++ = '\n';
    row.addUpTo(at);
    return static_cast<unsigned int>(row.put());
}

// Without any cycle start the only row has no time.
void TextTableLogWriter::appendTime(TextBuffer& row) const {
    if (!lastTime_.isSet()) {
        row.append(NO_VALUE).append(separator_).append(NO_VALUE);
    } else if (separatorLength_ == 1 && *separator_ == ',') {
        EntryText::AppendTimes(row, lastTime_, TIME_DECIMALS);
    } else {
        char time[Timestamp::TEXT_ROOM];
        row.append(lastTime_.toString(time, sizeof time, TIME_DECIMALS)).append(separator_);
        row.appendFixed(lastTime_.asDouble(), TIME_DECIMALS);
    }
}

unsigned int TextTableLogWriter::writeFooter() {
    if (wroteFooter_) return 0;
    TableLogWriter::writeFooter();
    wroteFooter_ = true;
    return isWhole() ? writeRow() : 0;
}

void TextTableLogWriter::Cell::keep(const TextBuffer& text) {
    length_ = text.length();
    if (length_ > ROOM) {
        longText_.set(text.data(), length_);
    } else if (text.data() != text_) {
        memcpy(text_, text.data(), length_);
    }
}

char* TextTableLogWriter::Cell::putTo(char* at) const {
    if (length_ <= ROOM) {
        memcpy(at, text_, ROOM);
    } else {
        memcpy(at, longText_.data(), length_);
    }
    return at + length_;
}

// What the text has from there on.
void TextTableLogWriter::quoteWhereNeeded(TextBuffer& text, size_t begin) const {
    if (!needsQuotes(text.data() + begin, text.length() - begin)) return;
    const Str plain(text.data() + begin, text.length() - begin);
    text.addUpTo(text.data() + begin);
    text.append('"');
    for (size_t i = 0; i < plain.length(); ++i) {
        if (plain[i] == '"') text.append('"');
        text.append(plain[i]);
    }
    text.append('"');
}

// It is known to need no quotes, without a look at its digits.
bool TextTableLogWriter::isPlainNumber(const DataEntry& entry, const Unit& unit) const {
    if (quotesNumbers_ || !entry.isNumber()) return false;
    return hideUnits_ || !needsQuotes(unit.getAbbreviation(), unit.getAbbreviationLength());
}

bool TextTableLogWriter::needsQuotes(const char* text, size_t length) const {
    const auto forces = [this](char c) { return forcesQuotes_[static_cast<unsigned char>(c)]; };
    return std::any_of(text, text + length, forces) ||
           (separatorLength_ > 1 && memmem(text, length, separator_, separatorLength_) != nullptr);
}
