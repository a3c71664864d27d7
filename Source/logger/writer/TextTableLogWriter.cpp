#include "logger/writer/TextTableLogWriter.h"

#include "logger/entry/DataEntry.h"
#include "utils/TextBuffer.h"

static const int TIME_DECIMALS = 3;
static const char* const NO_VALUE = "nan";

TextTableLogWriter::TextTableLogWriter(const char* separator, int varCount, char** varList, char** unitList,
                                       bool hideUnits, bool interpolate)
    : TableLogWriter(varCount, varList, unitList, interpolate),
      separator_(separator),
      hideUnits_(hideUnits),
      valueStrings_(new Str[varCount]) {
    for (int column = 0; column < varCount; ++column) valueStrings_[column] = NO_VALUE;
}

unsigned int TextTableLogWriter::writeHeader() {
    if (!isValid()) return 0;
    TextBuffer line;
    line.append("Timestamp").append(separator_).append("EpochSeconds");
    for (int column = 0; column < columns_.count(); ++column) {
        line.append(separator_).append(quoted(columns_.name(column)));
    }
    line.append('\n');
    return static_cast<unsigned int>(logStream_->write(line.data(), line.length()).bytesWritten());
}

unsigned int TextTableLogWriter::writeToColumn(const DataEntry* entry, int column) {
    valueStrings_[column] =
        entry == nullptr ? Str(NO_VALUE) : quoted(entry->getDataValueString(columns_.unit(column), hideUnits_));
    return 0;
}

unsigned int TextTableLogWriter::writeRow() {
    if (!isValid()) return 0;
    char time[Timestamp::TEXT_ROOM];
    TextBuffer line;
    line.append(lastTime_.toString(time, sizeof time, TIME_DECIMALS)).append(separator_);
    line.appendFixed(lastTime_.asDouble(), TIME_DECIMALS);
    for (int column = 0; column < columns_.count(); ++column) {
        line.append(separator_).append(valueStrings_[column]);
    }
    line.append('\n');
    return static_cast<unsigned int>(logStream_->write(line.data(), line.length()).bytesWritten());
}

unsigned int TextTableLogWriter::writeFooter() {
    if (wroteFooter_) return 0;
    TableLogWriter::writeFooter();
    wroteFooter_ = true;
    return writeRow();
}

Str TextTableLogWriter::quoted(const Str& text) const {
    const bool plain = text.find(separator_) == Str::NO_POS && text.find('"') == Str::NO_POS &&
                       text.find('\r') == Str::NO_POS && text.find('\n') == Str::NO_POS;
    if (plain) return text;
    TextBuffer cell;
    cell.append('"');
    for (size_t i = 0; i < text.length(); ++i) {
        if (text[i] == '"') cell.append('"');
        cell.append(text[i]);
    }
    return cell.append('"').toStr();
}
