#include "data/ElementURI.h"

#include <tuple>

#include "Records.h"
#include "support/SlateFixture.h"
#include "units/Units.h"

typedef SlateFixture ElementURITest;

TEST_F(ElementURITest, JoinsComponentAndElement) {
    const std::tuple<const char*, const char*, const char*> names[] = {{"CTD", "depth", "CTD.depth"},
                                                                       {"CTD", ".depth", "CTD.depth"},
                                                                       {"", "depth", "depth"},
                                                                       {nullptr, "depth", "depth"},
                                                                       {"CTD", "", "CTD."}};
    for (const auto& [component, element, name] : names) {
        EXPECT_STREQ(name, ElementURI::buildURI(component, element).cStr());
    }
}

TEST_F(ElementURITest, RecordsByKind) {
    const ElementURI::ElementType data = ElementURI::DATA_ELEMENT;
    const Unit& none = Units::NONE;
    const std::pair<ElementURI, const char*> records[] = {
        {ElementURI(0x2A, "Depth.depth", data), " code=002A elementURI=\"Depth.depth\" type=02\n"},
        {ElementURI(1, "N.m", data, none, STRVALUE, BLOB_FLOAT64LE, 3, 3),
         " code=0001 elementURI=\"N.m\" type=12 blobType=11 fixedSize=0003,0003\n"},
        {ElementURI(1, "N.c", ElementURI::CONFIG_ELEMENT, none, STRVALUE, BLOB_UINT8, 2, 3, 10),
         " code=0001 elementURI=\"N.c\" type=11 blobType=08 fixedSize=0002,0003,000A\n"},
        {ElementURI(1, "N.any", data, none, STRVALUE, BLOB_INT8),
         " code=0001 elementURI=\"N.any\" type=12 blobType=01 fixedSize=0000\n"},
        {ElementURI(ElementURI::NO_CODE, "", ElementURI::UNIVERSAL_ELEMENT), " code=3FFF elementURI=\"\" type=04\n"},
    };
    for (const auto& [uri, record] : records) {
        EXPECT_EQ(record, RecordOf(uri));
        const std::unique_ptr<ElementURI> read = ReadBack<ElementURI>(record);
        ASSERT_NE(nullptr, read) << record;
        EXPECT_EQ(record, RecordOf(*read));
    }
    EXPECT_EQ(3, records[2].first.getDimensions());
    EXPECT_TRUE(log_.take().empty());
}

TEST_F(ElementURITest, MalformedRecordsGiveNothing) {
    const Str full = " code=0001 elementURI=\"N.m\" type=12 blobType=11 fixedSize=0003,0003,0003\n";
    ExpectNothingOfCut<ElementURI>(full);
    const std::string longest = " code=0001 elementURI=\"" + std::string(255, 'x');
    EXPECT_NE(nullptr, ReadBack<ElementURI>((longest + "\" type=02\n").c_str()));
    EXPECT_EQ(nullptr, ReadBack<ElementURI>((longest + "x\" type=02\n").c_str()));
    const char* const records[] = {" code=0001 elementURI=\"N.m\" type=02",
                                   " code=0001 elementURI=\"N.m\" type=02\r",
                                   " code=0001 elementURI=\"N.m\" type=05\n",
                                   " code=0001 elementURI=\"N.m\" type=22\n",
                                   " code=0001 elementURI=\"N.m\" type=12\n",
                                   " code=0001 elementURI=\"N.m\" type=12 blobType=11 fixedSize=0003,\n",
                                   " code=0001 elementURI=\"N.m\" type=12 blobType=11 fixedSize=0003,0000\n",
                                   " code=0001 elementURI=\"N.m\" type=12 blobType=11 fixedSize=0001,0001,0001,0001\n"};
    for (const char* record : records) EXPECT_EQ(nullptr, ReadBack<ElementURI>(record)) << record;
}

TEST_F(ElementURITest, ImpossibleArraysKeepTheirNameOnly) {
    const std::tuple<std::string, BlobType, bool> arrays[] = {
        // with whether it is reported
        {"blobType=08 fixedSize=FFFF", BLOB_UINT8, false},
        {"blobType=09 fixedSize=8000", BLOB_UINT16LE, true},
        {"blobType=11 fixedSize=FFFF,FFFF,FFFF", BLOB_FLOAT64LE, true},
        {"blobType=13 fixedSize=0001", NOT_BLOB, true},
        {"blobType=00 fixedSize=0001", NOT_BLOB, true},
        {"blobType=FF fixedSize=FFFF,FFFF,FFFF", NOT_BLOB, true}};
    for (const auto& [array, blobType, isReported] : arrays) {
        const auto uri = ReadBack<ElementURI>((" code=0007 elementURI=\"N.m\" type=12 " + array + "\n").c_str());
        ASSERT_NE(nullptr, uri) << array;
        EXPECT_EQ(7, uri->getCode());
        EXPECT_EQ(blobType, uri->getBlobType()) << array;
        EXPECT_EQ(isReported ? 0 : 1, uri->getDimensions()) << array;
        EXPECT_EQ(isReported ? 1u : 0u, log_.take().size()) << array;
    }
}

TEST_F(ElementURITest, TakesTheCodeOfTheRegisteredName) {
    Slate::RegisterElementURI(new ElementURI(7, "CTD.temperature.raw", ElementURI::DATA_ELEMENT));
    const ElementURI again("CTD", "temperature", "raw", ElementURI::DATA_ELEMENT, Units::CELSIUS);
    EXPECT_EQ(7, again.getCode());
    EXPECT_EQ(ElementURI::FindURI("CTD.temperature.raw"), Slate::GetElementURI(again));
    EXPECT_EQ(nullptr, ElementURI::FindURI("ctd.temperature.raw"));
}
