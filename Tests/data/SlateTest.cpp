#include "data/Slate.h"

#include <functional>
#include <memory>
#include <thread>
#include <tuple>

#include "data/BlobValue.h"
#include "data/Component.h"
#include "data/DataReader.h"
#include "data/DataWriter.h"
#include "support/SlateFixture.h"
#include "units/Units.h"

class SlateTest : public SlateFixture {
protected:
    static ElementURI* Register(unsigned short code, const char* name) {
        return Slate::RegisterElementURI(new ElementURI(code, name, ElementURI::DATA_ELEMENT));
    }
    static ElementURI Named(const char* name) {
        return ElementURI(ElementURI::NO_CODE, name, ElementURI::DATA_ELEMENT);
    }
    static DataAccess* RegisterAccess(unsigned short code, unsigned short element,
                                      unsigned short universal = ElementURI::NO_CODE, BinaryDataType type = FLOAT3,
                                      const char* unit = "meter") {
        const unsigned short size = type == NO_TYPE ? 0 : 3;
        return Slate::RegisterDataAccess(new DataAccess(0, element, universal, unit, type, size, code));
    }
};

// Reading side

TEST_F(SlateTest, ANameReadFromALogStandsUnderItsCode) {
    ElementURI* depth = Register(7, "Depth.depth");
    ASSERT_NE(nullptr, depth);
    EXPECT_EQ(8, Slate::GetNextElementURICode());
    EXPECT_EQ(depth, Slate::GetElementURI(7));
    EXPECT_EQ(7, Slate::GetElementURICode("Depth.depth"));
    EXPECT_EQ(nullptr, Register(7, "Depth.rate")) << "the code is taken";
    EXPECT_EQ(depth, Register(7, "Depth.depth")) << "the same name again";
    EXPECT_EQ(nullptr, Slate::FindElementURI("Depth.rate"));
    EXPECT_EQ(1u, Slate::GetElementURICount());
}

TEST_F(SlateTest, CodesOutOfRangeAreRefused) {
    for (unsigned short code : std::initializer_list<unsigned short>{16383, 16384, 65535}) {
        EXPECT_EQ(nullptr, Register(code, "A.b"));
        EXPECT_EQ(nullptr, Slate::RegisterCodedName(new CodedStr("A", code)));
        EXPECT_EQ(nullptr, RegisterAccess(code, 0));
        EXPECT_EQ(nullptr, Slate::GetElementURI(code));
        EXPECT_EQ(nullptr, Slate::GetName(code));
        EXPECT_EQ(nullptr, Slate::GetDataAccess(code));
        EXPECT_EQ(nullptr, Slate::GetElement(code));
    }
    EXPECT_EQ(0, Slate::GetNextElementURICode() + Slate::GetNextNameCode() + Slate::GetNextDataAccessCode());
    EXPECT_NE(nullptr, Register(16382, "A.b"));
    EXPECT_EQ(16383, Slate::GetNextElementURICode());
    EXPECT_EQ(nullptr, Slate::GetElementURI(500)) << "never registered";
}

TEST_F(SlateTest, AUniversalTakesTheCodeOfTheLog) {
    EXPECT_EQ(ElementURI::NO_CODE, Slate::GetElementURICode("depth"));
    const ElementURI& depth = slate_.getUniversal(UniversalURI::DEPTH);
    EXPECT_EQ(&depth, Register(7, "depth"));
    EXPECT_EQ(7, depth.getCode());
    EXPECT_EQ(&depth, Register(9, "depth")) << "under a second code";
    EXPECT_EQ(&depth, Slate::GetElementURI(7));
    EXPECT_EQ(1u, Slate::GetElementURICount());
}

TEST_F(SlateTest, CodedNamesRegisterAlike) {
    CodedStr* name = Slate::RegisterCodedName(new CodedStr("Depth", 3));
    EXPECT_EQ(name, Slate::GetName(3));
    EXPECT_EQ(name, Slate::RegisterCodedName(new CodedStr("Depth", 3)));
    EXPECT_EQ(nullptr, Slate::RegisterCodedName(new CodedStr("Navigation", 3)));
    EXPECT_EQ(nullptr, Slate::FindCodedName("Navigation"));
    EXPECT_EQ(4, Slate::GetCodedName("Navigation").getCode());
    EXPECT_EQ(&Slate::GetCodedName("Navigation"), Slate::GetName(4));
}

TEST_F(SlateTest, AccessesAreToldApartByWhatTheyAttach) {
    DataAccess* access = RegisterAccess(0, 5, ElementURI::NO_CODE, NO_TYPE);
    EXPECT_EQ(access, RegisterAccess(0, 5)) << "which leaves its type open";
    EXPECT_EQ(FLOAT3, access->getBinaryType());
    EXPECT_EQ(access, RegisterAccess(0, 5, ElementURI::NO_CODE, NO_TYPE)) << "its type may have been inherited";
    EXPECT_EQ(access, RegisterAccess(0, 5, ElementURI::NO_CODE, FLOAT3, "m")) << "under another name";
    EXPECT_EQ(nullptr, RegisterAccess(0, 6));
    EXPECT_EQ(nullptr, RegisterAccess(0, 5, 1));
    EXPECT_EQ(nullptr, RegisterAccess(0, 5, ElementURI::NO_CODE, FLOAT4));
    EXPECT_EQ(nullptr, RegisterAccess(0, 5, ElementURI::NO_CODE, FLOAT3, "kilometer"));
    DataAccess* twin = RegisterAccess(1, 5, ElementURI::NO_CODE, NO_TYPE);
    EXPECT_NE(access, twin) << "two that differ by code alone are two";
    EXPECT_EQ(2u, Slate::GetDataAccessCount());
    EXPECT_EQ(2, Slate::GetNextDataAccessCode());
}

// What the log says otherwise holds until it says again what it said first.
TEST_F(SlateTest, WhatIsRetoldIsNotKnown) {
    const auto registerBlob = [](unsigned short dimension) {
        return Slate::RegisterElementURI(
            new ElementURI(4, "A.b", ElementURI::DATA_ELEMENT, Units::NONE, NO_TYPE, BLOB_FLOAT64LE, dimension));
    };
    const ElementURI* const blob = registerBlob(3);
    DataAccess* const access = RegisterAccess(9, 4, 5);
    const std::function<const void*()> retellings[] = {
        [] { return Slate::RegisterCodedName(new CodedStr("Other", 0)); },
        [] { return Register(4, "A.c"); },
        [&] { return registerBlob(2); },
        [] { return Register(5, "B.d"); },
        [] { return RegisterAccess(9, 4, 5, FLOAT3, "second"); },
    };
    for (const auto& retell : retellings) {
        Slate::RegisterCodedName(new CodedStr("Owner", 0));
        registerBlob(3);
        Register(5, "universal");
        RegisterAccess(9, 4, 5);
        EXPECT_FALSE(slate_.isAnythingRetold());
        EXPECT_EQ(nullptr, retell());
        EXPECT_TRUE(slate_.isAnythingRetold() && slate_.isRetold(*access));
    }
    EXPECT_STREQ("second", slate_.getToldAccess(9)->getUnitName().cStr());
    EXPECT_TRUE(access == Slate::GetDataAccess(9) && blob == Slate::GetElementURI(4));
    EXPECT_EQ(Lines(), log_.take()) << "no log is being read";
    slate_.beginReading("dive");
    EXPECT_TRUE(!slate_.isAnythingRetold() && access == slate_.getToldAccess(9));
    for (int i = 0; i < 2; ++i) RegisterAccess(9, 4, 5, FLOAT3, "second");
    slate_.endReading();
    EXPECT_EQ(1u, log_.take().size());
}

// A name has one element, of the form that the log gave it first.
TEST_F(SlateTest, AnArrayUnderASecondCodeKeepsItsForm) {
    for (int i = 0; i < 2; ++i) {
        Register(0, "A.b");
        Slate::RegisterElementURI(
            new ElementURI(1, "A.b", ElementURI::DATA_ELEMENT, Units::NONE, NO_TYPE, BLOB_FLOAT64LE, 3));
        EXPECT_TRUE(slate_.isRetold(*RegisterAccess(1, 1))) << i;
        EXPECT_FALSE(slate_.isRetold(*RegisterAccess(0, 0))) << i;
    }
}

TEST_F(SlateTest, TheDescribingAccess) {
    RegisterAccess(0, 5, 16383, NO_TYPE);
    RegisterAccess(2, 5, 16383, FLOAT3);
    RegisterAccess(3, 6, 5, NO_TYPE);
    RegisterAccess(4, 7, 5, FLOAT4);
    RegisterAccess(6, 8, 9, NO_TYPE);
    RegisterAccess(7, 9, 65535, NO_TYPE);
    const std::tuple<unsigned short, bool, int> cases[] = {
        // element, whether it is a universal, access
        {5, false, 2},      // the first that knows its type
        {5, true, 4},       // of those that serve the universal
        {9, true, 6},       // none knows its type: the first
        {9, false, 7},      //
        {6, true, 3},       // nothing serves it: its own
        {1, true, -1},      //
        {16383, true, -1},  // what has no universal serves none
        {65535, true, -1},
    };
    for (const auto& [element, isUniversal, code] : cases) {
        const DataAccess* access = slate_.findDescribingAccess(element, isUniversal);
        EXPECT_EQ(code, access == nullptr ? -1 : access->getCode()) << element << isUniversal;
    }
}

// Writing side

TEST_F(SlateTest, NamesGetCodesOnlyWhileDirectoryWritesAreOn) {
    ElementURI& depth = *Slate::FindElementURI("depth");
    for (int i = 0; i < 2; ++i) Slate::CodifyElementURI(depth);
    EXPECT_EQ(ElementURI::NO_CODE, depth.getCode());
    EXPECT_EQ(0u, Slate::GetElementURICount());

    Slate::SimulateDirectoryWrites();
    ElementURI copy(depth);
    Slate::CodifyElementURI(copy);
    Slate::CodifyElementURI(depth);
    EXPECT_EQ(0, copy.getCode() + depth.getCode());
    EXPECT_EQ(&depth, Slate::GetElementURI(0));
    EXPECT_EQ(1, Slate::GetNextElementURICode());
}

TEST_F(SlateTest, AWholeDeclarationByComponents) {
    Slate::SimulateDirectoryWrites();
    Component sensor("Sensor");
    Component pilot("Pilot");
    const ElementURI depth = Named("Sensor.depth");
    DataReader* early = Slate::NewReader(&pilot, Named("Sensor.heading"));
    UniversalDataWriter* writer =
        Slate::NewUniversalWriter(&sensor, depth, UniversalURI::LATITUDE, Logger::TIME_PRECISION_MILLIS, true);
    UniversalDataReader* reader = Slate::NewUniversalReader(&pilot, UniversalURI::LATITUDE);
    DataReader* own = Slate::NewInputReader(&pilot, depth);

    const std::pair<const DataAccessor*, const char*> records[] = {
        {early, " code=0000 owner=0001 element=0000 universal=3FFF unitName=\"unspecified\" type=FF size=0000 fl=00\n"},
        {writer, " code=0001 owner=0000 element=0002 universal=0001 unitName=\"degree\" type=37 size=0006 fl=07\n"},
        {reader, " code=0002 owner=0001 element=0001 universal=FFFF unitName=\"degree\" type=FF size=0000 fl=00\n"},
        {own, " code=0003 owner=0001 element=0002 universal=3FFF unitName=\"degree\" type=37 size=0006 fl=00\n"}};
    for (const auto& [accessor, record] : records) {
        EXPECT_STREQ(record, accessor->getDataAccess()->recordText().cStr());
    }
    EXPECT_EQ(own->getDataAccess(), Slate::NewReader(&pilot, depth)->getDataAccess()) << "nothing new to say";
    EXPECT_EQ(4u, Slate::GetDataAccessCount());
    EXPECT_EQ(writer->getElement(), Slate::GetElement(2));
}

TEST_F(SlateTest, CodesEndAt16382) {
    Slate::SimulateDirectoryWrites();
    Slate::RegisterCodedName(new CodedStr("last but one", CodedStr::NO_CODE - 2));
    EXPECT_EQ(CodedStr::NO_CODE - 1, Slate::GetCodedName("last").getCode());
    EXPECT_EQ(CodedStr::NO_CODE, Slate::GetCodedName("one too many").getCode());
    EXPECT_EQ(nullptr, Slate::GetName(CodedStr::NO_CODE));
}

// Threads

TEST_F(SlateTest, OneThreadRegistersWhileAnotherLooksUp) {
    static const unsigned short COUNT = 5000;  // the collections grow several times meanwhile
    std::thread registering([this] {
        const Log::Use use(slate_);
        for (unsigned short code = 0; code < COUNT; ++code) {
            const Str number(static_cast<size_t>(code), 10);
            Slate::RegisterCodedName(new CodedStr(number, code));
            const ElementURI* const uri = Register(code, ("A.b" + number).cStr());
            Slate::NewDataElement(*uri, nullptr, Units::METER, FLOAT3, 0);
            RegisterAccess(code, code);
        }
    });
    for (unsigned short found = 0; found < COUNT;) {
        const DataAccess* const access = Slate::GetDataAccess(found);
        if (access == nullptr) continue;
        EXPECT_EQ(found, access->getElementCode());
        EXPECT_EQ(found, Slate::GetName(found)->getCode());
        EXPECT_EQ(found, Slate::GetElementURI(found)->getCode());
        EXPECT_NE(nullptr, Slate::GetElement(found));
        EXPECT_LT(found, Slate::GetDataAccessCount());
        ++found;
    }
    registering.join();
}

// Elements

TEST_F(SlateTest, AnElementStandsBesideItsName) {
    const ElementURI before = Named("A.before");
    DataElement* early = Slate::NewDataElement(before, nullptr, Units::METER, FLOAT3, 0);
    EXPECT_EQ(early, Slate::GetElement(before));
    Register(3, "A.before");
    EXPECT_EQ(early, Slate::GetElement(3));
    EXPECT_EQ(3, early->getUri().getCode());

    const ElementURI* uri = Register(4, "A.after");
    EXPECT_EQ(nullptr, Slate::GetElement(4));
    DataElement* element = Slate::NewDataElement(*uri, nullptr, Units::METER, FLOAT3, 0);
    EXPECT_EQ(element, Slate::GetElement(4));
    EXPECT_EQ(element, Slate::NewDataElement(*uri, nullptr, Units::SECOND.dataValue(DOUBLE8), 0));
    EXPECT_TRUE(element->getDataValue()->isNaN());

    Slate::DeRegisterElementURI(Slate::GetElementURI(4));
    EXPECT_EQ(nullptr, Slate::GetElement(4));
    EXPECT_TRUE(Slate::FindElementURI("A.after") == nullptr && Slate::GetElementURI(4) == nullptr);
    EXPECT_EQ(1u, Slate::GetElementURICount());
}

TEST_F(SlateTest, ABlobNameMakesABlob) {
    const ElementURI* uri = Slate::RegisterElementURI(new ElementURI(
        0, "A.m", ElementURI::DATA_ELEMENT, ElementURI::UNSPECIFIED_UNIT, NO_TYPE, BLOB_FLOAT64LE, 3, 3));
    const DataElement* element = Slate::NewDataElement(*uri, nullptr, Units::METER, STRVALUE, 0);
    EXPECT_NE(nullptr, dynamic_cast<const BlobValue*>(element->getDataValue()));
    EXPECT_EQ(&Units::METER, &element->getUnit());
}

TEST_F(SlateTest, AUniversalElementKeepsItsForm) {
    UniversalDataElement* depth = Slate::NewUniversalElement(UniversalURI::DEPTH, nullptr, Units::METER, FLOAT4);
    EXPECT_EQ(depth, Slate::NewUniversalElement(UniversalURI::DEPTH, nullptr, Units::SECOND, DOUBLE8));
    const DataValue* const none = nullptr;
    EXPECT_EQ(depth, Slate::NewUniversalElement(UniversalURI::DEPTH, nullptr, none));
    EXPECT_TRUE(log_.take().empty());
    for (DataValue* const other : {Units::SECOND.dataValue(FLOAT4), Units::KILOMETER.dataValue(DOUBLE8)}) {
        const std::unique_ptr<DataValue> value(other);
        EXPECT_EQ(depth, Slate::NewUniversalElement(UniversalURI::DEPTH, nullptr, value.get()));
    }
    EXPECT_EQ((Lines{"ERROR Attempt to change base unit of universal 'depth' from meter to second",
                     "ERROR Attempt to change type size of universal 'depth' from 4 to 8"}),
              log_.take());
}

TEST_F(SlateTest, ConfigurationGivesANewElementItsValue) {
    const ElementURI config(ElementURI::NO_CODE, "Config/A.b", ElementURI::CONFIG_ELEMENT);
    DataElement* configured = Slate::NewDataElement(config, nullptr, Units::METER, FLOAT4, 0);
    DataElement* element = nullptr;
    Slate::ConfigureNewDataElement(nullptr, Named("A.b"), element);
    EXPECT_EQ(nullptr, element) << "nothing is configured yet";
    configured->set(Units::METER, 2.0f, Timestamp(1, 0));
    Slate::ConfigureNewDataElement(nullptr, Named("A.b"), element);
    ASSERT_NE(nullptr, element);
    float value = 0;
    EXPECT_TRUE(Slate::ReadOnce(Named("A.b"), Units::METER, value));
    EXPECT_EQ(2.0f, value);
}

// Life

TEST_F(SlateTest, AClearedDirectoryForgetsButKeepsObjects) {
    const ElementURI* depth = Register(0, "Depth.depth");
    Register(1, "depth");
    const CodedStr* name = Slate::RegisterCodedName(new CodedStr("Depth", 0));
    const DataAccess* access = RegisterAccess(0, 0);
    const DataElement* element = Slate::NewDataElement(*depth, nullptr, Units::METER, FLOAT3, 0);
    slate_.setDirectoryRead();

    Slate::ClearDirectory();
    EXPECT_EQ(0u, Slate::GetElementURICount() + Slate::GetDataAccessCount());
    EXPECT_EQ(0, Slate::GetNextElementURICode() + Slate::GetNextNameCode() + Slate::GetNextDataAccessCode());
    EXPECT_FALSE(Slate::IsDirectoryRead());
    EXPECT_EQ(nullptr, Slate::FindElementURI("Depth.depth"));
    EXPECT_EQ(nullptr, Slate::FindCodedName("Depth"));
    EXPECT_TRUE(Slate::GetElement(0) == nullptr && Slate::GetElement(*depth) == nullptr);
    EXPECT_EQ(&slate_.getUniversal(UniversalURI::DEPTH), Slate::FindElementURI("depth"));
    EXPECT_EQ(ElementURI::NO_CODE, Slate::GetElementURICode("depth"));

    EXPECT_STREQ("Depth.depth", depth->cStr()) << "entries may still point to it";
    EXPECT_STREQ("Depth", name->cStr());
    EXPECT_EQ(&Units::METER, access->getUnit());
    EXPECT_STREQ("Depth.depth", element->getUri().cStr());
    EXPECT_NE(depth, Register(0, "Depth.depth")) << "a new name";
}
