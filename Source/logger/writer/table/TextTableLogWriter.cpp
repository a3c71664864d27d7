#include "logger/writer/table/TextTableLogWriter.h"

#include <algorithm>
#include <cstring>

#include "logger/entry/DataEntry.h"

static const unsigned int TIME_DECIMALS = 3;
static const char* const NO_VALUE = "nan";

TextTableLogWriter::TextTableLogWriter(const char* separator, const RequestedVariables& variables, bool hideUnits,
                                       bool interpolate)
    : TableLogWriter(nullptr, variables, interpolate),
      separator_(separator),
      separatorLength_(strlen(separator)),
      hideUnits_(hideUnits),
      valueStrings_(new Str[columns_.count()]) {
    for (const unsigned char c : {'"', '\r', '\n'}) forcesQuotes_[c] = true;
    if (separatorLength_ == 1) forcesQuotes_[static_cast<unsigned char>(*separator_)] = true;
    for (int column = 0; column < columns_.count(); ++column) setCell(column, NO_VALUE, strlen(NO_VALUE));
}

unsigned int TextTableLogWriter::writeHeader() {
    if (!isValid()) return 0;
    wroteFooter_ = false;
    line_.clear();
    line_.append("Timestamp").append(separator_).append("EpochSeconds");
    for (int column = 0; column < columns_.count(); ++column) {
        appendCell(columns_.name(column), strlen(columns_.name(column)));
    }
    return putLine();
}

// A text is made once for its value, however many rows show it.
unsigned int TextTableLogWriter::writeToColumn(const DataEntry* entry, int column) {
    if (entry == nullptr) {
        setCell(column, NO_VALUE, strlen(NO_VALUE));
    } else {
        value_.clear();
        entry->appendValue(value_, columns_.unit(column), hideUnits_);
        setCell(column, value_.data(), value_.length());
    }
    return 0;
}

unsigned int TextTableLogWriter::writeRow() {
    if (!isValid()) return 0;
    line_.clear();
    appendTime();
    for (int column = 0; column < columns_.count(); ++column) line_.append(valueStrings_[column]);
    return putLine();
}

// Without any cycle start the only row has no time.
void TextTableLogWriter::appendTime() {
    if (!lastTime_.isSet()) {
        line_.append(NO_VALUE).append(separator_).append(NO_VALUE);
        return;
    }
    char time[Timestamp::TEXT_ROOM];
    line_.append(lastTime_.toString(time, sizeof time, TIME_DECIMALS)).append(separator_);
    line_.appendFixed(lastTime_.asDouble(), TIME_DECIMALS);
}

unsigned int TextTableLogWriter::writeFooter() {
    if (wroteFooter_) return 0;
    TableLogWriter::writeFooter();
    wroteFooter_ = true;
    return writeRow();
}

unsigned int TextTableLogWriter::putLine() {
    line_.append('\n');
    return static_cast<unsigned int>(logStream_->write(line_.data(), line_.length()).bytesWritten());
}

void TextTableLogWriter::setCell(int column, const char* text, size_t length) {
    line_.clear();
    appendCell(text, length);
    valueStrings_[column].set(line_.data(), line_.length());
}

void TextTableLogWriter::appendCell(const char* text, size_t length) {
    line_.append(separator_, separatorLength_);
    if (!needsQuotes(text, length)) {
        line_.append(text, length);
        return;
    }
    line_.append('"');
    for (size_t i = 0; i < length; ++i) {
        if (text[i] == '"') line_.append('"');
        line_.append(text[i]);
    }
    line_.append('"');
}

bool TextTableLogWriter::needsQuotes(const char* text, size_t length) const {
    const auto forces = [this](char c) { return forcesQuotes_[static_cast<unsigned char>(c)]; };
    return std::any_of(text, text + length, forces) ||
           (separatorLength_ > 1 && memmem(text, length, separator_, separatorLength_) != nullptr);
}
