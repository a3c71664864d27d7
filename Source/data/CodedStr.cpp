#include "data/CodedStr.h"

#include "data/RecordText.h"
#include "io/InStream.h"
#include "utils/TextBuffer.h"

Str CodedStr::recordText() const {
    TextBuffer record;
    record.append(" code=").appendHexDigits(code_, 4).append(" name=\"").append(*this).append("\"\n");
    return record.toStr();
}

size_t CodedStr::write(OutStream& out) const {
    return RecordText::Write(out, recordText());
}

CodedStr* CodedStr::Read(InStream& in) {
    unsigned short code = NO_CODE;
    Str name;
    if (!RecordText::ReadFixed(in, " code=") || !RecordText::ReadHex4(in, code)) return nullptr;
    if (!RecordText::ReadFixed(in, " name=\"") || !RecordText::ReadQuoted(in, MAX_NAME_LENGTH + 2, name))
        return nullptr;
    if (name.length() > MAX_NAME_LENGTH) return nullptr;
    char lineEnd;
    if (in.read(&lineEnd, 1).bytesRead() != 1) return nullptr;
    return new CodedStr(name, code);
}
