#include "data/DataElement.h"

#include <cmath>

#include "data/Component.h"
#include "data/DataReader.h"
#include "data/DataWriter.h"
#include "data/Double.h"
#include "support/SlateFixture.h"
#include "units/Units.h"

static const Timestamp T(1338553800, 400000);

class DataElementTest : public SlateFixture {
protected:
    static ElementURI Named(const char* name, ElementURI::ElementType type = ElementURI::DATA_ELEMENT) {
        return ElementURI(ElementURI::NO_CODE, name, type, Units::METER, FLOAT3);
    }

    Component sensor_{"Sensor"};
    Component pilot_{"Pilot"};
};

TEST_F(DataElementTest, ReadsWhatWasWrittenWhileItsSupplierIsActive) {
    DataWriter* writer = Slate::NewOutputWriter(&sensor_, Named("Sensor.depth"));
    DataReader* reader = Slate::NewReader(&pilot_, Named("Sensor.depth"));
    double depth = 0;
    EXPECT_FALSE(reader->read(Units::METER, depth));
    EXPECT_EQ(Lines{"ERROR Sensor.depth: data element is not active."}, log_.take());

    EXPECT_TRUE(writer->write(Units::KILOMETER, 0.5, T));
    EXPECT_FALSE(writer->write(Units::METER, 500, T)) << "the same value again";
    EXPECT_EQ(500, reader->asDouble(Units::METER));
    EXPECT_FALSE(reader->read(Units::SECOND, depth));
    EXPECT_EQ(reader, writer->getElement()->findReader(&pilot_));
    EXPECT_EQ(writer, writer->getElement()->findWriter(&sensor_));
    EXPECT_EQ(T, reader->getElement()->getTimestamp());
    EXPECT_TRUE(log_.take().empty());

    sensor_.setActive(false);
    EXPECT_TRUE(std::isnan(reader->asDouble(Units::METER)));
    sensor_.setActive(true);
    EXPECT_EQ(500, reader->asDouble(Units::METER));
    writer->getElement()->setInvalid(true);
    EXPECT_TRUE(std::isnan(reader->asDouble(Units::METER)));
    writer->write(Units::METER, 1, T);
    EXPECT_EQ(1, reader->asDouble(Units::METER));
}

TEST_F(DataElementTest, IsOrphanedUntilSomebodySuppliesIt) {
    DataWriter* command = Slate::NewWriter(&pilot_, Named("Sensor.depth"));
    DataElement* element = command->getElement();
    command->write(Units::METER, 1.0, T);
    EXPECT_TRUE(element->isOrphaned());
    EXPECT_FALSE(element->isActive() || element->isActivatable());

    Slate::NewOutputWriter(&sensor_, Named("Sensor.depth"));
    EXPECT_TRUE(element->isActive() && element->isActivatable());
    sensor_.setFailed(true);
    EXPECT_FALSE(element->isActive() || element->isActivatable());

    EXPECT_TRUE(Slate::NewInputReader(&pilot_, Named("Sensor.depth"))->isInput());
    EXPECT_FALSE(Slate::NewReader(&pilot_, Named("Sensor.depth"))->isInput());

    DataWriter* fixed = Slate::NewWriter(&pilot_, Named("Config/x", ElementURI::CONFIG_ELEMENT));
    fixed->write(Units::METER, 1.0, T);
    EXPECT_TRUE(fixed->getElement()->isActive()) << "configuration needs no supplier";
}

TEST_F(DataElementTest, AUniversalFollowsTheBestOfItsSources) {
    UniversalDataWriter* rough = Slate::NewUniversalWriter(&sensor_, Named("Sensor.depth"), UniversalURI::DEPTH);
    UniversalDataWriter* fine = Slate::NewUniversalWriter(&pilot_, Named("Pilot.depth"), UniversalURI::DEPTH);
    UniversalDataReader* reader = Slate::NewUniversalReader(&pilot_, UniversalURI::DEPTH);
    UniversalDataReader* thrifty = Slate::NewUniversalReader(&pilot_, UniversalURI::DEPTH, DataAccessor::MIN_POWER);
    rough->getElement()->setAccuracy(Units::METER, 2);
    rough->getElement()->setCosts(1, 1, 1);
    fine->getElement()->setAccuracy(Units::METER, 1);

    rough->write(Units::METER, 10.0, T);
    EXPECT_EQ(10, reader->asDouble(Units::METER));
    fine->write(Units::METER, 11.0, T);
    rough->write(Units::METER, 12.0, T);
    EXPECT_TRUE(fine->isBest());
    EXPECT_FALSE(rough->isBest());
    EXPECT_EQ(11, reader->asDouble(Units::METER));
    EXPECT_EQ(12, thrifty->asDouble(Units::METER));
    EXPECT_EQ(12, Slate::GetElement(UniversalURI::DEPTH)->asInt(*thrifty, Units::METER));
    EXPECT_EQ(fine, Slate::GetElement(UniversalURI::DEPTH)->getNotifier());

    pilot_.setActive(false);
    EXPECT_EQ(12, reader->asDouble(Units::METER));
    const DataElement* const depth = Slate::GetElement(UniversalURI::DEPTH);
    EXPECT_EQ(2u, depth->readerCount());
    for (Component* const component : {&pilot_, &sensor_}) {
        EXPECT_TRUE(depth->isActivatable());
        component->setFailed(true);
    }
    EXPECT_FALSE(depth->isActivatable());
}

TEST_F(DataElementTest, EveryStrategyHasItsBestSource) {
    const struct {
        const char* name_;
        float power_, error_, latency_, frequency_;
    } sources[] = {{"A.unknown", NAN, NAN, NAN, NAN}, {"A.thrifty", 1, 9, 9, 2}, {"A.exact", 9, 1, 9, 1},
                   {"A.quick", 9, 9, 1, 2},           {"A.busy", 9, 9, 9, 3},    {"A.late", 1, 1, 1, 3}};
    for (const auto& source : sources) {
        DataWriter* const writer = Slate::NewUniversalWriter(&sensor_, Named(source.name_), UniversalURI::DEPTH);
        writer->getElement()->setCosts(source.power_, source.latency_, source.frequency_);
        writer->getElement()->setAccuracy(Units::METER, source.error_);
        writer->write(Units::METER, 10.0, T);
    }
    const UniversalDataElement* const depth = Slate::GetElement(Named("A.exact"))->getUniversal();
    const std::pair<DataAccessor::RequestStrategy, const char*> best[] = {{DataAccessor::MIN_POWER, "A.thrifty"},
                                                                          {DataAccessor::MIN_ERROR, "A.exact"},
                                                                          {DataAccessor::MIN_LATENCY, "A.quick"},
                                                                          {DataAccessor::MAX_FREQUENCY, "A.busy"},
                                                                          {DataAccessor::ALL_DEVICES, "A.unknown"}};
    for (const auto& [strategy, name] : best) EXPECT_STREQ(name, depth->getBest(strategy)->getUri().cStr());
}

TEST_F(DataElementTest, AccuraciesConvertAsDifferences) {
    DataElement element(Named("x"), Units::CELSIUS.dataValue(DOUBLE8), DataElement::NO_ACCURACY);
    EXPECT_TRUE(std::isnan(element.getWrittenAccuracy(Units::CELSIUS)));
    DataWriter writer(&sensor_, &element, Logger::TIME_PRECISION_MICROS, false);
    element.setWithAccuracy(writer, Double(Units::FAHRENHEIT, 32, true), 0.9f, T);
    EXPECT_FLOAT_EQ(0.5f, element.getBaseAccuracy());
    element.setAccuracy(Units::CELSIUS, 0.5f);
    EXPECT_FLOAT_EQ(0.5f, element.getBaseAccuracy());
    EXPECT_FLOAT_EQ(0.5f, element.getWrittenAccuracy(Units::CELSIUS));
    EXPECT_TRUE(std::isnan(element.getAccuracy(Units::CELSIUS))) << "not active";
}

TEST_F(DataElementTest, OneShotAccessKnowsNamesAndCodes) {
    const unsigned short code = 7;
    const ElementURI* uri = Slate::RegisterElementURI(new ElementURI(code, "A.b", ElementURI::DATA_ELEMENT));
    bool flag = false;
    EXPECT_FALSE(Slate::WriteOnce(code, Units::BOOL, true, T)) << "no element yet";
    DataElement* element = Slate::NewDataElement(*uri, nullptr, nullptr, DataElement::NO_ACCURACY);
    EXPECT_FALSE(element->set(Units::BOOL, true, T)) << "no value";
    EXPECT_EQ(NO_TYPE, element->getBinaryType());
    element->setBaseUnit(Units::KILOMETER);
    element->setTypeSize(3);
    EXPECT_EQ(&Units::METER, &element->getBaseUnit());
    EXPECT_EQ(3u, element->getTypeSize());
    EXPECT_FALSE(Slate::ReadOnce(code, Units::BOOL, flag)) << "never set";
    element->setDataValue(Units::BOOL.dataValue(UCHAR1));
    EXPECT_EQ(1u, element->getTypeSize()) << "a value tells its own";
    EXPECT_TRUE(Slate::WriteOnce(*uri, Units::BOOL, true, T));
    EXPECT_TRUE(Slate::ReadOnce(code, Units::BOOL, flag) && flag);
}
