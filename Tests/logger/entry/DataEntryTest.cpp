#include "logger/entry/DataEntry.h"

#include <cmath>
#include <tuple>

#include "EntryFixture.h"
#include "data/BlobValue.h"
#include "data/StrValue.h"
#include "units/Units.h"

class DataEntryTest : public WorkedFixture {
protected:
    // An access of component 0 on the element with that code; rest: unit, type, size and flags of its record.
    void readAccess(int code, int element, const char* universal, const char* rest) {
        char record[160];
        snprintf(record, sizeof record, "a code=%04X owner=0000 element=%04X universal=%s unitName=%s\n", code, element,
                 universal, rest);
        readRecord(record);
    }
    static const DataAccess& accessAt(unsigned short code) { return *Slate::GetDataAccess(code); }
    // An entry at the time base that takes the value over.
    std::unique_ptr<DataEntry> entryOf(unsigned short code, DataValue* value) {
        return std::make_unique<DataEntry>(Slate::GetDataAccess(code), value, timeBase_, false, true);
    }
    static std::string textOf(const LogEntry& entry) { return entry.toString(nullptr).cStr(); }
};

static const char WORKED_DATA[] = "0C 0B 71 02 00 C0 3F";  // best, 1.5 m
static const char WORKED_UNCHANGED[] = "0C 03 19 64";

TEST_F(DataEntryTest, AValueReadIsTheElementsUnlessTheEntryIsCopied) {
    const auto entry = read<DataEntry>(FromHex(WORKED_DATA));
    EXPECT_TRUE(entry->isBest() && entry->isChanged() && entry->isDataWrite());
    const DataElement* element = Slate::GetElement(static_cast<unsigned short>(0));
    EXPECT_EQ(element->getDataValue(), entry->getDataValue());
    EXPECT_EQ(element->getTimestamp(), entry->getTimestamp());
    const auto unchanged = read<DataEntry>(FromHex(WORKED_UNCHANGED));
    EXPECT_FALSE(unchanged->isChanged());
    const DataEntry copy(*unchanged);
    read(FromHex("0C 0B 71 02 00 00 40"));  // 2 m
    EXPECT_EQ(unchanged->getNumber(Units::METER), 2);
    EXPECT_EQ(copy.getNumber(Units::METER), 1.5);
}

TEST_F(DataEntryTest, SkippedValuesLeaveTheSlateAsItIs) {
    const auto entry = read<DataEntry>(FromHex(WORKED_DATA), LogEntry::SKIP_VALUES);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->getDataValue(), nullptr);
    EXPECT_EQ(Slate::GetElement(static_cast<unsigned short>(0)), nullptr);
    EXPECT_EQ(read(FromHex("0C 0B 71 02 00 C0"), LogEntry::SKIP_VALUES), nullptr);  // torn all the same
}

TEST_F(DataEntryTest, TheArrowTellsWritersBestWritersAndReaders) {
    readAccess(1, 0, "3FFF", "\"meter\" type=0B size=0003 fl=00");
    const std::pair<const char*, std::string> arrows[] = {{"0C", "==>"}, {"04", "-->"}, {"14", "<--"}};
    for (const auto& [header, arrow] : arrows) {
        EXPECT_EQ(textOf(*read(FromHex(header) + FromHex("0B 71 02 00 C0 3F"))),
                  "2012-06-01T12:30:00.410Z,1338553800.410000 Depth" + arrow + "Depth.depth=1.500000 m");
    }
}

TEST_F(DataEntryTest, ANameThatTheLogGivesLaterIsShownFromThereOn) {
    readRecord("a code=0001 owner=0007 element=0000 universal=3FFF unitName=\"meter\" type=0B size=0003 fl=01\n");
    const auto entry = entryOf(1, Units::METER.dataValue(1.5f));
    EXPECT_EQ(textOf(*entry), "2012-06-01T12:30:00.400Z,1338553800.400000 Unknown-->Depth.depth=1.500000 m");
    readRecord("n code=0007 name=\"Pilot\"\n");
    EXPECT_EQ(textOf(*entry), "2012-06-01T12:30:00.400Z,1338553800.400000 Pilot-->Depth.depth=1.500000 m");
}

TEST_F(DataEntryTest, TextsAndArraysCarryTheirLength) {
    readRecord("e code=0001 elementURI=\"Depth.mode\" type=02\n");
    readRecord("e code=0002 elementURI=\"Depth.beams\" type=12 blobType=02 fixedSize=0002\n");
    readAccess(1, 1, "3FFF", "\"none\" type=00 size=0000 fl=05");
    readAccess(2, 2, "3FFF", "\"meter\" type=00 size=0000 fl=05");
    const std::string stamp = "2012-06-01T12:30:00.410Z,1338553800.410 Depth-->Depth.";
    const auto mode = read<DataEntry>(FromHex("14 2A 02 00 68 69"));
    EXPECT_EQ(textOf(*mode), stamp + "mode=hi");
    EXPECT_STREQ(mode->getDataValueString(nullptr, true).cStr(), "hi");
    const auto beams = read<DataEntry>(FromHex("24 2A 04 00 01 00 02 00"));
    EXPECT_EQ(textOf(*beams), stamp + "beams=4 bytes of meter");
    double second = 0;
    EXPECT_TRUE(static_cast<BlobValue*>(beams->getDataValue())->get(1, Units::METER, second));
    EXPECT_EQ(second, 2);
    EXPECT_STREQ(write(*beams).asHex().cStr(), "242A040001000200");
}

TEST_F(DataEntryTest, TheShownUnitIsTheOneAskedForElseTheAccessesElseTheValues) {
    const auto entry = read<DataEntry>(FromHex(WORKED_DATA));
    EXPECT_STREQ(entry->getDataValueString(&Units::KILOMETER, false).cStr(), "0.001500 km");
    EXPECT_STREQ(entry->getDataValueString(&Units::KILOMETER, true).cStr(), "0.001500");
    EXPECT_STREQ(entry->getDataValueString(&Units::SECOND, false).cStr(), "nan s");
    const auto other = entryOf(0, Units::SECOND.dataValue(2.0));
    EXPECT_STREQ(other->getDataValueString(nullptr, false).cStr(), "2.000000 s");  // no unit of length fits
    const auto none = entryOf(0, nullptr);
    EXPECT_STREQ(none->getDataValueString(nullptr, false).cStr(), "NULL");
    EXPECT_TRUE(std::isnan(none->getNumber(Units::METER)));
    EXPECT_TRUE(write(*none).isEmpty());
}

// The search begins again whenever there is more to be found.
TEST_F(DataEntryTest, AnUntypedAccessTakesTheTypeOfARelatedOne) {
    static const char* const UNTYPED = "\"none\" type=FF size=0000 fl=00";
    readRecord("e code=0001 elementURI=\"Depth.late\" type=02\n");
    readRecord("e code=0002 elementURI=\"depth\" type=04\n");
    readAccess(1, 0, "3FFF", UNTYPED);  // between two siblings, 0 and 7: the later one
    readAccess(2, 1, "3FFF", UNTYPED);  // before access 3
    EXPECT_EQ(read(FromHex("24 2A 05 00")), nullptr);
    readAccess(3, 1, "0002", "\"second\" type=05 size=0002 fl=01");
    readAccess(4, 2, "FFFF", UNTYPED);  // the universal that access 3 serves
    readAccess(5, 1, "0002", UNTYPED);  // one that serves a universal inherits nothing
    readAccess(6, 2, "3FFF", UNTYPED);  // after access 4, once that has its type
    readAccess(7, 0, "3FFF", "\"meter\" type=0F size=0004 fl=01");
    EXPECT_NE(read(FromHex("14 2A 00 00 C0 3F")), nullptr);
    EXPECT_STREQ(accessAt(1).getUnit()->getName(), "meter");
    EXPECT_NE(read(FromHex("24 2A 05 00")), nullptr);
    EXPECT_EQ(accessAt(2).getBinaryType(), SHORT2);
    EXPECT_EQ(read(FromHex("64 2A 05 00")), nullptr);
    EXPECT_NE(read(FromHex("44 2A 05 00")), nullptr);
    EXPECT_EQ(accessAt(4).getTypeSize(), 2);
    EXPECT_NE(read(FromHex("64 2A 05 00")), nullptr);
    EXPECT_EQ(read(FromHex("54 2A 05 00")), nullptr);
    EXPECT_TRUE(error_);
    EXPECT_EQ(log_.take(), (Lines{"ERROR No type known for data access 0x2", "ERROR No type known for data access 0x6",
                                  "ERROR No type known for data access 0x5"}));
}

TEST_F(DataEntryTest, WhatCannotBeReadIsDroppedWithItsMessage) {
    readAccess(1, 7, "3FFF", "\"meter\" type=0B size=0003 fl=01");  // its element is not declared
    const std::tuple<const char*, Lines, bool, bool> cases[] = {
        // with whether it is an error, and an entry
        {"54 2A", {"ERROR No DataAccessor found for code 0x5", "ERROR inStream at 0x1"}, true, false},
        {"0C", {"ERROR End of Binary File Reached while reading LogEntry Timestamp"}, false, false},
        {"0C 2A 00 C0", {"ERROR End of Binary File Reached while reading DataEntry DataValue"}, false, false},
        {"14 2A 00 C0 3F", {"ERROR Could not find Element with code 0x7"}, false, true},
    };
    for (const auto& [bytes, messages, isError, isEntry] : cases) {
        EXPECT_EQ(read(FromHex(bytes)) != nullptr, isEntry) << bytes;
        EXPECT_EQ(log_.take(), messages);
        EXPECT_EQ(error_, isError) << bytes;
    }
}

// A size that contradicts the type: the value reads what is there, the rest counts as zero or is passed over. The entry
// takes as many bytes when it is written again.
TEST_F(DataEntryTest, TheDeclaredSizeIsReadAndWrittenWhateverTheTypeNeeds) {
    readAccess(1, 0, "3FFF", "\"meter\" type=0F size=0002 fl=05");
    readAccess(2, 0, "3FFF", "\"meter\" type=0F size=0006 fl=05");
    readAccess(3, 0, "3FFF", "\"meter\" type=0F size=0000 fl=05");
    const std::tuple<const char*, double, const char*> cases[] = {{"14 2A 00 80", 4.591774807899561e-41, "142A0080"},
                                                                  {"24 2A 00 00 C0 3F FF FF", 1.5, "242A0000C03F0000"},
                                                                  {"34 2A", 0, "342A"}};
    for (const auto& [bytes, value, written] : cases) {
        const auto entry = read<DataEntry>(FromHex(bytes));
        EXPECT_EQ(entry->getNumber(Units::METER), value) << bytes;
        EXPECT_STREQ(write(*entry).asHex().cStr(), written);
    }
}

// Which for the reader of a standard quantity is that of the first supplier, whatever supplies the value.
TEST_F(DataEntryTest, AValueIsWrittenInTheTypeThatItsAccessTells) {
    readRecord("e code=0001 elementURI=\"depth\" type=04\n");
    readAccess(1, 0, "0001", "\"meter\" type=0B size=0003 fl=05");
    readAccess(2, 1, "FFFF", "\"none\" type=FF size=0000 fl=04");
    readAccess(3, 0, "3FFF", "\"meter\" type=05 size=0002 fl=05");
    readAccess(4, 0, "3FFF", "\"none\" type=00 size=0000 fl=05");
    readAccess(5, 0, "3FFF", "\"meter\" type=40 size=0008 fl=05");
    const auto meters = [](double value) { return Units::METER.dataValue(value, DOUBLE8); };
    const std::tuple<unsigned short, DataValue*, const char*> cases[] = {
        {1, meters(1.5), "140200C03F"},
        {2, meters(1.5), "240200C03F"},
        {2, Units::METER.dataValue(1.5, FLOAT3), "240200C03F"},
        {3, meters(7.5), "34020700"},
        {3, new StrValue("text"), "34020000"},
        {4, meters(1.5), "44020000"},
        {4, new StrValue("hi"), "440202006869"},
        {5, meters(1.5), "5402000000000000F83F"}};
    for (const auto& [code, value, bytes] : cases) EXPECT_STREQ(bytes, write(*entryOf(code, value)).asHex().cStr());
}

TEST_F(DataEntryTest, LargeCodesTakeTheThreeByteHeaderAndLargerOnesAreNotWritten) {
    readAccess(8191, 0, "3FFF", "\"meter\" type=0B size=0003 fl=01");
    readAccess(8192, 0, "3FFF", "\"meter\" type=0B size=0003 fl=01");
    const auto fits = entryOf(8191, Units::METER.dataValue(1.5, FLOAT3));
    EXPECT_STREQ(write(*fits).asHex().cStr(), "03FAFF0200C03F");
    EXPECT_EQ(textOf(*read(write(*fits))), textOf(*fits));
    EXPECT_TRUE(write(*entryOf(8192, Units::METER.dataValue(1.5, FLOAT3))).isEmpty());
}

// Also where it has none yet, and as a double where the class of its value has nothing for it.
TEST_F(DataEntryTest, ANumberSetIsTheEntrysOwn) {
    const auto entry = read<DataEntry>(FromHex(WORKED_DATA));
    entry->setNumber(Units::KILOMETER, 0.004);
    EXPECT_NEAR(entry->getNumber(Units::METER), 4, 1e-3);
    EXPECT_EQ(read<DataEntry>(FromHex(WORKED_UNCHANGED))->getNumber(Units::METER), 1.5);
    const std::tuple<DataValue*, double, BinaryDataType, const Unit&, const char*> cases[] = {
        {Units::METER.dataValue(7, INT4), 9, INT4, Units::METER, "9000"},
        {Units::METER.dataValue(7, INT4), NAN, DOUBLE8, Units::METER, "nan"},
        {Units::METER.dataValue(7, FLOAT4), NAN, FLOAT4, Units::METER, "nan"},
        {new StrValue("7"), 9, DOUBLE8, Units::NONE, "9000.000000"},
        {nullptr, 1.5, DOUBLE8, Units::KILOMETER, "1500.000000"}};
    for (const auto& [before, number, type, unit, text] : cases) {
        const auto made = entryOf(0, before);
        made->setNumber(Units::KILOMETER, number);
        EXPECT_EQ(made->getDataValue()->getBinaryType(), type) << text;
        EXPECT_EQ(made->getDataValue()->getUnit(), &unit) << text;
        EXPECT_STREQ(made->getDataValueString(&Units::METER, true).cStr(), text);
    }
}
