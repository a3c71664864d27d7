#include "data/DataAccess.h"

#include "Records.h"
#include "units/Units.h"

static const char* const DEPTH =
    " code=0001 owner=0000 element=0002 universal=3FFF unitName=\"meter\" type=0B size=0003 fl=01\n";

TEST(DataAccessTest, RecordsTellEveryField) {
    const char* const records[] = {
        DEPTH, " code=00AB owner=3FFF element=0010 universal=FFFF unitName=\"none\" type=FF size=0000 fl=00\n",
        " code=0001 owner=0000 element=0002 universal=0003 unitName=\"furlong\" type=00 size=FFFF fl=07\n",
        " code=0001 owner=0000 element=0002 universal=0003 unitName=\"\" type=90 size=0001 fl=04\n"};
    for (const char* record : records) {
        const std::unique_ptr<DataAccess> access = ReadBack<DataAccess>(record);
        ASSERT_NE(nullptr, access) << record;
        EXPECT_EQ(record, RecordOf(*access));
    }
    const std::unique_ptr<DataAccess> reader = ReadBack<DataAccess>(records[1]);
    EXPECT_FALSE(reader->isWriter());
    EXPECT_TRUE(reader->isUntyped());
    EXPECT_EQ(0x10, reader->getEffectiveUniversalCode());
    EXPECT_EQ(&Units::NONE, reader->getUnit());
    const std::unique_ptr<DataAccess> writer = ReadBack<DataAccess>(records[2]);
    EXPECT_TRUE(writer->isWriter() && writer->getNoInterpFlag());
    EXPECT_EQ(Logger::TIME_PRECISION_MILLIS, writer->getTimePrecision());
    EXPECT_EQ(nullptr, writer->getUnit());
}

TEST(DataAccessTest, MalformedRecordsGiveNothing) {
    const Str full = DEPTH;
    ExpectNothingOfCut<DataAccess>(full);
    for (size_t i = 0; i < full.length(); ++i) {  // no field may begin or end elsewhere
        Str damaged = full;
        damaged.setChar(i, '~');
        const bool isInUnitName = i > full.find('"') && i < full.findLastOf('"');
        EXPECT_EQ(isInUnitName, ReadBack<DataAccess>(damaged) != nullptr) << damaged.cStr();
    }
}

TEST(DataAccessTest, Description) {
    const DataAccess untyped(0, 2, DataAccess::NO_CODE, "none", NO_TYPE, 0, 1, DataAccessor::DATA_READER);
    EXPECT_STREQ("owner=0000 element=0002 universal=3FFF type=FFFF size=0000 rw=00", untyped.asString(false).cStr());
    const DataAccess endless(0, 2, 3, std::string(2000, 'u').c_str(), FLOAT3, 3);
    EXPECT_EQ(1023u, endless.asString(true).length());
}

TEST(DataAccessTest, StrategiesByTheirWholeWord) {
    const std::pair<const char*, int> words[] = {{"MinPower", 0},   {"MaxFrequency", 3}, {"AllDevices", 4},
                                                 {"MinPowerX", -1}, {"MinPowe", -1},     {"", -1}};
    for (const auto& [word, strategy] : words) EXPECT_EQ(strategy, DataAccessor::Str2RequestStrategy(word)) << word;
    EXPECT_STREQ("MinLatency", DataAccessor::RequestStrategy2Str(2));
    EXPECT_STREQ("none.", DataAccessor::RequestStrategy2Str(5));
    EXPECT_STREQ("none.", DataAccessor::RequestStrategy2Str(-1));
}
