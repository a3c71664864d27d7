// The primitives that an entry's road is made of: codes, number and time text, and whole data entries.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>

#include "data/Log.h"
#include "io/InStream.h"
#include "io/OutStream.h"
#include "logger/entry/DataEntry.h"
#include "units/Units.h"
#include "utils/TextBuffer.h"
#include "utils/Timespan.h"

namespace {

const size_t ROOM = 1 << 16;
const int VALUES = 4096;

// A fixed piece of memory that is written from the start and read again and again.
class LoopOutStream : public OutStream {
public:
    using OutStream::write;
    OutStream& write(const char* buf, size_t n) override {
        memcpy(bytes_ + at_, buf, n);
        at_ += n;
        lastWritten_ = n;
        return *this;
    }
    bool isWritable() override { return true; }

    char bytes_[ROOM];
    size_t at_ = 0;
};

class LoopInStream : public InStream {
public:
    explicit LoopInStream(const LoopOutStream& source) : source_(source) {}
    InStream& read(char* buf, size_t n) override {
        memcpy(buf, source_.bytes_ + at_, n);
        at_ += n;
        lastRead_ = n;
        totalBytesRead_ += n;
        return *this;
    }
    const char* getName() override { return "loop"; }
    bool isReadable() override { return true; }
    bool eof() override { return false; }
    void rewindAtEnd() {
        if (at_ >= source_.at_) at_ = 0;
    }

private:
    const LoopOutStream& source_;
    size_t at_ = 0;
};

void CompactShortRead(benchmark::State& state) {
    LoopOutStream out;
    for (int i = 0; i < VALUES; ++i) out.writeUShortCompact(static_cast<unsigned short>(i * 5));
    LoopInStream in(out);
    unsigned short value = 0;
    for (auto _ : state) {
        in.readUShortCompact(value);
        benchmark::DoNotOptimize(value);
        in.rewindAtEnd();
    }
}
BENCHMARK(CompactShortRead);

void CompactLongRead(benchmark::State& state) {
    LoopOutStream out;
    for (int i = 0; i < VALUES; ++i) out.writeLongLongCompact(i * 977LL);
    LoopInStream in(out);
    long long value = 0;
    for (auto _ : state) {
        in.readLongLongCompact(value);
        benchmark::DoNotOptimize(value);
        in.rewindAtEnd();
    }
}
BENCHMARK(CompactLongRead);

void NumberAsText(benchmark::State& state) {
    char text[NumberText::MAX_LENGTH + 1];
    double value = 0;
    for (auto _ : state) {
        value += 1.2345678;
        benchmark::DoNotOptimize(NumberText::Fixed(value, 6, text));
    }
}
BENCHMARK(NumberAsText);

void TimeAsText(benchmark::State& state) {
    char text[Timestamp::TEXT_ROOM];
    Timestamp t(1557849600, 0);
    for (auto _ : state) {
        t.addFromMicros(1300);
        benchmark::DoNotOptimize(t.toString(text, sizeof(text), 3));
    }
}
BENCHMARK(TimeAsText);

// A log of one variable that changes with every entry.
class OneVariable {
public:
    OneVariable() {
        const ElementURI uri(0, "Bench.depth", ElementURI::DATA_ELEMENT, Units::METER, FLOAT3);
        log_.registerElementURI(new ElementURI(uri));
        access_ = log_.registerDataAccess(
            new DataAccess(0, 0, DataAccess::NO_CODE, Units::METER, FLOAT3, 3, 0, DataAccessor::DATA_WRITER));
        for (int i = 0; i < VALUES; ++i) {
            Timestamp t = base_;
            t.addFromMicros(i * 200);
            const DataEntry entry(access_, Units::METER.dataValue(0.25 * i, FLOAT3), t, true, true);
            entry.write(base_, out_);
        }
    }
    OneVariable(const OneVariable&) = delete;
    OneVariable& operator=(const OneVariable&) = delete;

    Log log_;
    const Log::Use use_{log_};
    DataAccess* access_;
    Timestamp base_{1557849600, 0};
    LoopOutStream out_;
};

void DataEntryRead(benchmark::State& state) {
    OneVariable log;
    LoopInStream in(log.out_);
    const Logger logger("benchmark", nullptr);
    Timespan adjust;
    bool error = false;
    for (auto _ : state) {
        delete LogEntry::Read(log.base_, adjust, in, logger, error);
        in.rewindAtEnd();
    }
}
BENCHMARK(DataEntryRead);

void DataEntryAsText(benchmark::State& state) {
    OneVariable log;
    const DataEntry entry(log.access_, Units::METER.dataValue(12.5, FLOAT3), log.base_, true, true);
    for (auto _ : state) benchmark::DoNotOptimize(entry.toString(nullptr));
}
BENCHMARK(DataEntryAsText);

}  // namespace
