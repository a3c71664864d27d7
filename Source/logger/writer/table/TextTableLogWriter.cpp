#include "logger/writer/table/TextTableLogWriter.h"

#include <algorithm>
#include <cstring>

#include "io/OutText.h"
#include "logger/entry/DataEntry.h"
#include "logger/entry/EntryText.h"

static const unsigned int TIME_DECIMALS = 3;
static const char NO_VALUE[] = "nan";
static const char NUMBER_CHARACTERS[] = "0123456789.-naif ";

TextTableLogWriter::TextTableLogWriter(const char* separator, int varCount, char** varList, char** unitList,
                                       bool hideUnits, bool interpolate)
    : TableLogWriter(varCount, varList, unitList, interpolate),
      separator_(separator),
      separatorLength_(strlen(separator)),
      hideUnits_(hideUnits),
      cells_(new Cell[varCount]) {
    for (const unsigned char c : {'"', '\r', '\n'}) forcesQuotes_[c] = true;
    if (separatorLength_ == 1) forcesQuotes_[static_cast<unsigned char>(*separator_)] = true;
    numbersArePlain_ = separatorLength_ == 1 && !needsQuotes(NUMBER_CHARACTERS, strlen(NUMBER_CHARACTERS));
    for (int column = 0; column < varCount; ++column) setCell(cells_[column], NO_VALUE, strlen(NO_VALUE));
}

unsigned int TextTableLogWriter::writeHeader() {
    if (!isValid()) return 0;
    wroteFooter_ = false;
    OutText line(*logStream_);
    line.append("Timestamp").append(separator_).append("EpochSeconds");
    for (int column = 0; column < columns_.count(); ++column) {
        appendCell(line, columns_.name(column), strlen(columns_.name(column)));
    }
    line.append('\n');
    return static_cast<unsigned int>(line.put());
}

// A text is made once for its value, however many rows show it.
unsigned int TextTableLogWriter::writeToColumn(const DataEntry* entry, int column) {
    Cell& cell = cells_[column];
    if (entry == nullptr) {
        setCell(cell, NO_VALUE, strlen(NO_VALUE));
        return 0;
    }
    const Unit& unit = entry->displayUnit(columns_.unit(column));
    if (putNumber(cell, *entry, unit)) return 0;
    TextBuffer text;
    entry->appendValue(text, &unit, hideUnits_);
    setCell(cell, text.data(), text.length());
    if (entry->isNumber() && !needsQuotes(text.data(), text.length())) cell.plainUnit_ = &unit;
    return 0;
}

unsigned int TextTableLogWriter::writeRow() {
    if (!isValid()) return 0;
    OutText line(*logStream_);
    appendTimes(line);
    appendCells(line);
    line.append('\n');
    return static_cast<unsigned int>(line.put());
}

unsigned int TextTableLogWriter::writeFooter() {
    if (wroteFooter_) return 0;
    TableLogWriter::writeFooter();
    wroteFooter_ = true;
    return writeRow();
}

void TextTableLogWriter::appendTimes(TextBuffer& line) const {
    if (separatorLength_ == 1 && *separator_ == ',') {
        EntryText::AppendTimes(line, lastTime_, TIME_DECIMALS);
    } else {
        char time[Timestamp::TEXT_ROOM];
        line.append(lastTime_.toString(time, sizeof time, TIME_DECIMALS)).append(separator_);
        line.appendFixed(lastTime_.asDouble(), TIME_DECIMALS);
    }
}

void TextTableLogWriter::appendCells(TextBuffer& line) const {
    char* at = line.roomFor(cellsLength_ + Cell::ROOM);
    for (int column = 0; column < columns_.count(); ++column) {
        const Cell& cell = cells_[column];
        if (cell.length_ <= Cell::COMMON_LENGTH) {
            memcpy(at, cell.text_, Cell::COMMON_LENGTH);
        } else {
            memcpy(at, cell.long_ == nullptr ? cell.text_ : cell.long_->data(), cell.length_);
        }
        at += cell.length_;
    }
    line.addUpTo(at);
}

// Puts a number straight into its cell; false where the text may need quotes or another place.
bool TextTableLogWriter::putNumber(Cell& cell, const DataEntry& entry, const Unit& unit) {
    if (!numbersArePlain_ || &unit != cell.plainUnit_ || !entry.isNumber()) return false;
    char* const place = cell.text_ + separatorLength_;
    TextBuffer text(place, Cell::ROOM - separatorLength_);
    entry.appendValue(text, &unit, hideUnits_);
    if (text.data() != place) return false;
    setLength(cell, separatorLength_ + text.length());
    return true;
}

void TextTableLogWriter::setCell(Cell& cell, const char* text, size_t length) {
    TextBuffer whole;
    appendCell(whole, text, length);
    setLength(cell, whole.length());
    if (whole.length() <= Cell::ROOM) {
        memcpy(cell.text_, whole.data(), whole.length());
    } else {
        cell.long_.reset(new Str(whole.data(), whole.length()));
    }
}

void TextTableLogWriter::setLength(Cell& cell, size_t length) {
    cellsLength_ += length - cell.length_;
    cell.length_ = static_cast<unsigned int>(length);
    if (cell.long_ != nullptr) cell.long_.reset();
}

void TextTableLogWriter::appendCell(TextBuffer& line, const char* text, size_t length) const {
    line.append(separator_, separatorLength_);
    if (!needsQuotes(text, length)) {
        line.append(text, length);
        return;
    }
    line.append('"');
    for (size_t i = 0; i < length; ++i) {
        if (text[i] == '"') line.append('"');
        line.append(text[i]);
    }
    line.append('"');
}

bool TextTableLogWriter::needsQuotes(const char* text, size_t length) const {
    const auto forces = [this](char c) { return forcesQuotes_[static_cast<unsigned char>(c)]; };
    return std::any_of(text, text + length, forces) ||
           (separatorLength_ > 1 && memmem(text, length, separator_, separatorLength_) != nullptr);
}
