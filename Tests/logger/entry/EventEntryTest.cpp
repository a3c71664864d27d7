#include "logger/entry/EventEntry.h"

#include <tuple>

#include "EntryFixture.h"
#include "data/Component.h"
#include "units/Units.h"

typedef WorkedFixture EventEntryTest;

// Every event 10 ms after the time base, as bytes and as text after the stamp.
TEST_F(EventEntryTest, EventsWriteReadAndPrint) {
    const Timestamp t = timeBase_ + Timespan(0, 10240);
    const unsigned short depth = 0, unknown = 5, farElement = 0xFFFF;
    const std::tuple<EventEntry, const char*, std::string> cases[] = {
        {{t, depth, 3}, "182A04030000", "Depth COMPONENT_ACTION Running Loop=3"},
        {{t, depth, -1}, "182A04FFFFFF", "Depth COMPONENT_ACTION Preempted"},
        {{t, unknown, 0}, "B82A04000000", "Unknown COMPONENT_ACTION Stopped"},
        {{t, depth, true}, "182A0001", "Depth COMPONENT_ACTION Loaded"},
        {{t, depth, false}, "182A0000", "Depth COMPONENT_ACTION Unloaded"},
        {{t, depth, FailureMode::HARDWARE, 2}, "182A0803020000", "Depth COMPONENT_ACTION HARDWARE, FailCount= 2"},
        {{t, depth, FailureMode::FailType(9), -2},
         "182A0809FEFFFF",
         "Depth COMPONENT_ACTION (undefined), FailCount= -2"},
        {{t, depth, unknown, EventEntry::DATA_STATE_CHANGE_VALID}, "100A2A80", "Depth SET_DATA_STATE Unknown=VALID"},
        {{t, depth, depth, EventEntry::SET_DATA_ACCURACY, 0.1},
         "08002ACDCCCC3D",
         "Depth SET_DATA_ACCURACY Depth.depth=0.100000"},
        {{t, EventEntry::MAX_ACTOR, farElement, EventEntry::NO_DATA_STATE_CHANGE},
         "03F8FF03FFFF2A00",
         "Unknown SET_DATA_STATE Unknown=NONE"},
    };
    for (const auto& [event, bytes, text] : cases) {
        EXPECT_STREQ(write(event).asHex().cStr(), bytes) << text;
        const auto entry = read(write(event));
        ASSERT_NE(entry, nullptr) << text;
        EXPECT_EQ(entry->toString(nullptr).cStr(), "2012-06-01T12:30:00.410Z,1338553800.410 " + text);
    }
    EXPECT_TRUE(write(EventEntry(timeBase_, EventEntry::MAX_ACTOR + 1, 1)).isEmpty());
}

TEST_F(EventEntryTest, EventsOfAComponentHaveItsCodes) {
    const Component component("Depth");
    const DataElement* const element =
        Slate::NewDataElement(*Slate::GetElementURI(0), nullptr, Units::METER, FLOAT3, DataElement::NO_ACCURACY);
    const std::pair<EventEntry, const char*> cases[] = {
        {{&component, true}, "Loaded"},
        {{&component, 3}, "Running Loop=3"},
        {{&component, FailureMode::HARDWARE, 2}, "HARDWARE, FailCount= 2"},
        {{&component, element, EventEntry::DATA_STATE_CHANGE_VALID}, "Depth.depth=VALID"},
        {{&component, element, EventEntry::SET_DATA_ACCURACY, 0.1}, "Depth.depth=0.100000"}};
    for (const auto& [event, text] : cases) {
        EXPECT_EQ(event.getActorCode(), 0);
        EXPECT_TRUE(event.toString(nullptr).endsWith(text)) << event.toString(nullptr).cStr();
    }
}

TEST_F(EventEntryTest, AnUnknownActionHasNoBody) {
    const auto entry = read<EventEntry>(FromHex("18 2A 0C"));
    ASSERT_NE(entry, nullptr);
    EXPECT_STREQ(entry->makeComponentActionString().cStr(), "Unknown Component Action");
    EXPECT_STREQ(write(*entry).asHex().cStr(), "182A0C");
}

TEST_F(EventEntryTest, TornEventsSayWhatIsMissing) {
    const std::pair<const char*, std::string> cases[] = {
        {"00 80 1A 86 5C 8B FC", "Encountered eof while reading start of cycle timestamp"},
        {"10", "Encountered eof while reading Data Element code"},
        {"10 00", "End of Binary File Reached while reading LogEntry Timestamp"},
        {"10 00 2A", "Encountered eof while reading Data Element state change"},
        {"08 00 2A 00 00 00", "Encountered eof while reading Data Element accuracy"},
        {"18 2A", "Encountered eof while reading Component Action"},
        {"18 2A 04 00 00", "Encountered eof while reading Run Loop"},
        {"18 2A 08", "Encountered eof while reading Failure Mode"},
        {"18 2A 08 03 00 00", "Encountered eof while reading Fail Count"},
        {"18 2A 00", "Encountered eof while reading Loaded state"},
    };
    for (const auto& [bytes, message] : cases) {
        EXPECT_EQ(read(FromHex(bytes)), nullptr);
        EXPECT_EQ(log_.take(), Lines{"ERROR " + message});
        EXPECT_FALSE(error_);
    }
}

TEST_F(EventEntryTest, ACycleStartSetsTheTimeBaseShiftedByTheCorrection) {
    const Str bytes = WORKED_LOG[WORKED_LOG_DIRECTORY].toBytes();
    const std::pair<Timespan, Timestamp> cases[] = {{Timespan::ZERO_TIMESPAN, {1338553800, 400000}},
                                                    {Timespan(-2, 500000), {1338553798, 900000}},
                                                    {Timespan::INVALID_TIMESPAN, {1338553800, 400000}}};
    for (const auto& [adjust, expected] : cases) {
        timeBase_ = Timestamp::NOT_SET_TIME;
        timeAdjust_ = adjust;
        EXPECT_EQ(read(bytes)->getTimestamp(), expected);
        EXPECT_EQ(timeBase_, expected);
    }
}

TEST_F(EventEntryTest, AnImpossibleCycleStartIsAnErrorAndLeavesTheTimeBase) {
    const Timestamp before = timeBase_;
    EXPECT_EQ(read(FromHex("00 00 00 00 00 00 00 40")), nullptr);  // 2^34 s
    EXPECT_TRUE(error_);
    EXPECT_EQ(timeBase_, before);
    EXPECT_EQ(log_.take(),
              (Lines{"ERROR EventEntry timebase value of 17179869184.00 is out of bounds.", "ERROR inStream at 0x8"}));
}

TEST_F(EventEntryTest, StatesAreNamedLowestBitFirst) {
    const std::pair<int, const char*> states[] = {
        {0, "NONE"},
        {72, "ORPHANED|INVALID"},
        {1, "(undefined)"},
        {129, "(undefined)|VALID"},
        {254, "UNAVAILABLE|AVAILABLE|ORPHANED|UNORPHANED|SET_BEST|INVALID|VALID"}};
    for (const auto& [state, text] : states) {
        EXPECT_STREQ(EventEntry::StateChangeToString(EventEntry::DataStateChange(state)).cStr(), text);
    }
}
