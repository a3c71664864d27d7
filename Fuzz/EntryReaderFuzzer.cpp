// A whole log of any bytes: every entry that decodes is written as text and in binary; damage is stepped over.
#include "FuzzStreams.h"
#include "data/Log.h"
#include "logger/engine/LogEngine.h"
#include "logger/reader/BinaryLogReader.h"
#include "logger/writer/binary/BinaryLogWriter.h"
#include "logger/writer/text/TextLogWriter.h"

namespace {

// Goes on one byte after the place where bytes that are no entry began, as the reader of files does.
void ReadAll(BinaryLogReader& reader, BytesInStream& in) {
    while (!in.eof()) {
        const size_t start = in.at();
        if (reader.read() == 0 && reader.hasError() && !in.eof()) in.seek(start + 1);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Log log;
    const Log::Use use(log);
    NullOutStream out;
    LogEngine console;
    LogEngine engine;
    const Logger logger("Fuzzer", &console);
    TextLogWriter* const text = new TextLogWriter(false);
    text->setOutStream(out);
    engine.addAssociation(text, nullptr);
    engine.addAssociation(new BinaryLogWriter(out, false), nullptr);

    BytesInStream in(data, size);
    const Str everyMission;
    BinaryLogReader reader(logger, Timestamp::NOT_SET_TIME, Timestamp::NOT_SET_TIME, everyMission, &engine, &console);
    reader.setInStream(in);
    ReadAll(reader, in);
    return 0;
}
