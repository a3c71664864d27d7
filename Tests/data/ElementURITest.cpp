#include "data/ElementURI.h"

#include <memory>
#include <string>
#include <tuple>

#include "support/MemoryStreams.h"
#include "support/SlateFixture.h"
#include "units/Units.h"

typedef SlateFixture ElementURITest;

static std::unique_ptr<ElementURI> ReadBack(const Str& record) {
    MemoryInStream in(record);
    return std::unique_ptr<ElementURI>(ElementURI::Read(in));
}

static std::string Record(const ElementURI& uri) {
    MemoryOutStream out;
    const size_t written = uri.write(out);
    EXPECT_EQ(written, out.bytes_.size());
    return out.bytes_;
}

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
    const struct {
        ElementURI uri_;
        const char* record_;
    } records[] = {
        {ElementURI(0x2A, "Depth.depth", data), " code=002A elementURI=\"Depth.depth\" type=02\n"},
        {ElementURI(1, "N.m", data, none, STRVALUE, BLOB_FLOAT64LE, 3, 3),
         " code=0001 elementURI=\"N.m\" type=12 blobType=11 fixedSize=0003,0003\n"},
        {ElementURI(1, "N.c", ElementURI::CONFIG_ELEMENT, none, STRVALUE, BLOB_UINT8, 2, 3, 10),
         " code=0001 elementURI=\"N.c\" type=11 blobType=08 fixedSize=0002,0003,000A\n"},
        {ElementURI(1, "N.any", data, none, STRVALUE, BLOB_INT8),
         " code=0001 elementURI=\"N.any\" type=12 blobType=01 fixedSize=0000\n"},
        {ElementURI(ElementURI::NO_CODE, "", ElementURI::UNIVERSAL_ELEMENT), " code=3FFF elementURI=\"\" type=04\n"},
    };
    for (const auto& r : records) {
        EXPECT_EQ(r.record_, Record(r.uri_));
        const std::unique_ptr<ElementURI> read = ReadBack(r.record_);
        ASSERT_NE(nullptr, read) << r.record_;
        EXPECT_EQ(r.record_, Record(*read));
    }
    EXPECT_EQ(3, records[2].uri_.getDimensions());
    EXPECT_TRUE(log_.take().empty());
}

TEST_F(ElementURITest, MalformedRecordsGiveNothing) {
    const Str full = " code=0001 elementURI=\"N.m\" type=12 blobType=11 fixedSize=0003,0003,0003\n";
    ASSERT_NE(nullptr, ReadBack(full));
    for (size_t length = 0; length < full.length(); ++length) {
        EXPECT_EQ(nullptr, ReadBack(full.substr(0, length))) << length;
    }
    const std::string longest = " code=0001 elementURI=\"" + std::string(255, 'x');
    EXPECT_NE(nullptr, ReadBack((longest + "\" type=02\n").c_str()));
    EXPECT_EQ(nullptr, ReadBack((longest + "x\" type=02\n").c_str()));
    const char* const records[] = {
        " code=0001 elementURI=\"N.m\" type=02",
        " code=0001 elementURI=\"N.m\" type=02\r",
        " code=0001 elementURI=\"N.m\" type=05\n",
        " code=0001 elementURI=\"N.m\" type=22\n",
        " code=0001 elementURI=\"N.m\" type=12\n",
        " code=0001 elementURI=\"N.m\" type=12 blobType=11 fixedSize=0003,\n",
        " code=0001 elementURI=\"N.m\" type=12 blobType=11 fixedSize=0003,0000\n",
        " code=0001 elementURI=\"N.m\" type=12 blobType=11 fixedSize=0001,0001,0001,0001\n",
    };
    for (const char* record : records) EXPECT_EQ(nullptr, ReadBack(record)) << record;
}

TEST_F(ElementURITest, ImpossibleArraysKeepTheirNameOnly) {
    static const struct {
        const char* array_;
        BlobType blobType_;
        bool isReported_;
    } ARRAYS[] = {
        {"blobType=08 fixedSize=FFFF", BLOB_UINT8, false},
        {"blobType=09 fixedSize=8000", BLOB_UINT16LE, true},
        {"blobType=11 fixedSize=FFFF,FFFF,FFFF", BLOB_FLOAT64LE, true},
        {"blobType=13 fixedSize=0001", NOT_BLOB, true},
        {"blobType=00 fixedSize=0001", NOT_BLOB, true},
        {"blobType=FF fixedSize=FFFF,FFFF,FFFF", NOT_BLOB, true},
    };
    for (const auto& a : ARRAYS) {
        const std::unique_ptr<ElementURI> uri =
            ReadBack((std::string(" code=0007 elementURI=\"N.m\" type=12 ") + a.array_ + "\n").c_str());
        ASSERT_NE(nullptr, uri) << a.array_;
        EXPECT_EQ(7, uri->getCode());
        EXPECT_EQ(a.blobType_, uri->getBlobType()) << a.array_;
        EXPECT_EQ(a.isReported_ ? 0 : 1, uri->getDimensions()) << a.array_;
        EXPECT_EQ(a.isReported_ ? 1u : 0u, log_.take().size()) << a.array_;
    }
}

TEST_F(ElementURITest, TakesTheCodeOfTheRegisteredName) {
    Slate::RegisterElementURI(new ElementURI(7, "CTD.temperature.raw", ElementURI::DATA_ELEMENT));
    const ElementURI again("CTD", "temperature", "raw", ElementURI::DATA_ELEMENT, Units::CELSIUS);
    EXPECT_EQ(7, again.getCode());
    EXPECT_EQ(ElementURI::FindURI("CTD.temperature.raw"), Slate::GetElementURI(again));
    EXPECT_EQ(nullptr, ElementURI::FindURI("ctd.temperature.raw"));
}
