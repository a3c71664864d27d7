#include "logger/writer/approximation/LinearApproximationLogWriter.h"

#include <gtest/gtest.h>

#include "logger/writer/binary/BinaryLogWriter.h"
#include "support/EntryCollector.h"
#include "support/MemoryStreams.h"
#include "support/NameList.h"

static const float ERRORS[] = {1, 1};
static const float EXACT[] = {0};
static const float BOUNDS[] = {9, 0.5f};

TEST(LinearApproximationLogWriterTest, ACycleStartFollowsWhatItForcesOut) {
    SmallLog log;
    DataAccess* a = log.declare("A.x");
    DataAccess* b = log.declare("B.y");
    NameList names({"A.x", "B.y"});
    EntryCollector out;
    LinearApproximationLogWriter writer(&out, names.count(), names.list(), nullptr, ERRORS, true, false);
    const std::pair<LogEntry*, const char*> steps[] = {
        {log.cycle(0), ""},
        {log.data(a, 0.1, 0), "0.1=0"},
        {log.data(b, 0.2, 5), "0.2=5"},
        {log.cycle(1), "0.1=0 0.2=5 cycle 0"},  // ends the cycle of second 0
        {log.data(a, 1.1, 0), ""},
        {log.data(b, 1.2, 5), ""},
        {log.cycle(2), ""},  // nothing was passed on in this cycle
        {log.data(a, 2.1, 9), "1.1=0"},
        {log.cycle(3), "2.1=9 1.2=5 cycle 2"}};
    for (const auto& [entry, passedOn] : steps) {
        writer.write(entry, nullptr);
        EXPECT_EQ(passedOn, out.take()) << entry->toString(nullptr).cStr();
    }
    writer.writeFooter();
    EXPECT_EQ("2.1=9 1.2=5 2.1=9 1.2=5 cycle 3", out.take());
}

// A single value far off ends a segment, and the next would take its place; it comes twice, and stays. A name listed
// again has the bound of its last place and one series.
TEST(LinearApproximationLogWriterTest, AVariableThatServesItselfKeepsASpike) {
    for (const bool servesItself : {false, true}) {
        SmallLog log;
        DataAccess* a = servesItself ? log.declareServing("A.x", "A.x") : log.declare("A.x");
        NameList names({"A.x", "A.x"});
        EntryCollector out;
        LinearApproximationLogWriter writer(&out, 2, names.list(), nullptr, BOUNDS, false, false);
        for (int i = 0; i < 8; ++i) writer.write(log.bestData(a, i, i == 3 ? 5 : 0), nullptr);
        writer.writeFooter();
        EXPECT_EQ(servesItself ? "0=0 2=0 3=5 4=0 7=0" : "0=0 2=0 7=0", out.take());
    }
}

// What is no number, and what is forced, passes unchanged. Codes change from input to input: nothing pending may reach
// the next one.
TEST(LinearApproximationLogWriterTest, SeriesEndWithTheirInput) {
    Log run;
    const Log::Use use(run);
    NameList names({"A.text", "B.y"});
    EntryCollector out;
    LinearApproximationLogWriter writer(&out, names.count(), names.list(), nullptr, ERRORS, false, false);
    {
        SmallLog log(run);
        DataAccess* a = log.declareText("A.text");
        DataAccess* b = log.declare("B.y");
        for (int i = 0; i < 2; ++i) {
            writer.write(log.text(a, i, "same"), nullptr);
            writer.write(log.data(b, i, 7), nullptr);
        }
        writer.forceWrite(log.data(b, 1.5, 8));
        writer.forceWrite(log.data(log.declare("C.other"), 1.5, 8));
        writer.write(log.syslog(2, "hello"), nullptr);
        EXPECT_EQ("0=same 0=7 1=same 1.5=8 1.5=8 2012-06-01T12:30:02.000Z,1338553802.000 [Mission](INFO): hello",
                  out.take());
        writer.resetInputs();
    }
    SmallLog log(run);
    log.declare("Z.other");
    DataAccess* other = log.declare("A.x");  // has the code that B.y had
    writer.write(log.data(other, 3, 0), nullptr);
    writer.write(log.data(log.declare("B.y"), 4, 0), nullptr);
    writer.resetInputs();
    EXPECT_EQ("1=7 reset 4=0 4=0 reset", out.take());
    writer.writeFooter();  // the codes of the last input are gone as well
    EXPECT_EQ("", out.take());
}

// Also of the next file: the series go on, the directory begins again.
TEST(LinearApproximationLogWriterTest, TheDirectoryOfTheOutputIsItsOwn) {
    SmallLog log;
    log.declare("Z.other");
    DataAccess* a = log.declare("Nav.x", Units::METER, DOUBLE6);
    DataAccess* c = log.declareServing("depth", "Ctd.depth", Units::METER, FLOAT4);
    NameList names({"Nav.x", "depth"}), units({"kilometer", nullptr});
    EntryCollector out;
    LinearApproximationLogWriter writer(&out, names.count(), names.list(), units.list(), ERRORS, false, true);
    writer.writeHeader();
    writer.write(log.data(a, 0, 0), nullptr);
    writer.write(log.bestData(c, 0, 3), nullptr);
    EXPECT_EQ(
        "VERSION 8 NAME 0 Nav ELEMENT 0 Nav.x "
        "ACCESSOR <a code=0000 owner=0000 element=0000 universal=3FFF unitName=\"kilometer\" type=37 size=0006 rw=01 "
        "0=0 ELEMENT 1 depth "
        "ACCESSOR <a code=0001 owner=3FFF element=0001 universal=3FFF unitName=\"meter\" type=0F size=0004 rw=01 0=3",
        out.take());
    writer.writeHeader();
    writer.write(log.data(a, 1, NAN), nullptr);
    EXPECT_EQ(0u, out.take().find("VERSION 8 NAME 0 Nav ELEMENT 0 Nav.x ACCESSOR"));
}

// Messages have the output's code of their facility, and what was not chosen has columns behind the others.
TEST(LinearApproximationLogWriterTest, WhatIsForcedIntoTheOutputIsDescribedToo) {
    class Codes : public EntryCollector {
    public:
        unsigned int write(const LogEntry* entry, const Unit* unit) override {
            if (entry->getType() != LogEntry::SYSLOG_LOG_ENTRY) return EntryCollector::write(entry, unit);
            const SyslogEntry& message = static_cast<const SyslogEntry&>(*entry);
            texts_.push_back(std::to_string(message.getLoggerFacility().getCode()) + ":" + message.getMessage().cStr());
            return 1;
        }
    };
    SmallLog log;
    DataAccess* other = log.declare("Z.other", Units::METER, INT4);
    DataAccess* a = log.declare("Nav.x");
    NameList names({"Nav.x"});
    Codes out;
    LinearApproximationLogWriter writer(&out, names.count(), names.list(), nullptr, EXACT, false, true);
    writer.write(log.syslog(0, "hello", Syslog::INFO, "Modem"), nullptr);
    writer.write(log.data(a, 0, 1), nullptr);
    for (int i = 0; i < 2; ++i) writer.forceWrite(log.data(other, i, 7));
    writer.write(log.syslog(1, "again", Syslog::INFO, "Nav"), nullptr);
    EXPECT_EQ(
        "VERSION 8 NAME 0 Modem 0:hello NAME 1 Nav ELEMENT 0 Nav.x "
        "ACCESSOR <a code=0000 owner=0001 element=0000 universal=3FFF unitName=\"none\" type=1F size=0008 rw=01 "
        "0=1 NAME 2 Z ELEMENT 1 Z.other "
        "ACCESSOR <a code=0001 owner=0002 element=0001 universal=3FFF unitName=\"meter\" type=0D size=0004 rw=01 "
        "0=7 1=7 1:again",
        out.take());
}

// What does not have the declared type, or comes without its bytes, would put the reader of the output out of step.
TEST(LinearApproximationLogWriterTest, EveryEntryOfTheOutputHasTheDeclaredForm) {
    SmallLog log;
    DataAccess* number = log.declare("A.x", Units::NONE, INT4);
    number->setNoInterpFlag(true);
    DataAccess* other = log.declareReader("B", number);
    NameList names({"A.x"});
    MemoryOutStream bytes;
    BinaryLogWriter* out = new BinaryLogWriter(bytes, false);
    LinearApproximationLogWriter writer(out, names.count(), names.list(), nullptr, EXACT, false, true);
    DataEntry unchanged(number, Units::NONE.dataValue(5, INT4), SmallLog::At(0), false, false);
    writer.write(&unchanged, nullptr);
    DataEntry notNumber(other, Units::NONE.dataValue(NAN, DOUBLE8), SmallLog::At(1), false, true);
    writer.write(&notNumber, nullptr);  // passes the first point again; no integer can be the second
    writer.write(log.data(number, 2, 7), nullptr);
    writer.write(log.text(number, 2, "text"), nullptr);
    const std::string start = " unitName=\"none\" type=0D size=0004 fl=03\n";
    const size_t data = bytes.bytes_.find(start) + start.size();  // each: header, eight bytes of time, value
    EXPECT_EQ("047F03008045F9360A05000000047F03008045F9360A05000000047F0300C045F9360A07000000",
              std::string(Str(bytes.bytes_.data() + data, bytes.bytes_.size() - data).asHex().cStr()));
}
