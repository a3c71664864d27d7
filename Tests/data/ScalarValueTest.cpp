#include "data/ScalarValue.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>
#include <tuple>

#include "data/Double.h"
#include "data/Float.h"
#include "data/Int.h"
#include "support/MemoryStreams.h"

static const double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

static double Read(const DataValue& value, const Unit& unit) {
    double number = -1;
    value.copyTo(unit, number);
    return number;
}

static Str Bytes(const DataValue& value) {
    MemoryOutStream out;
    EXPECT_EQ(value.getTypeSize(), value.toStream(out));
    return out.hex();
}

// The log form: what each class writes, and what it reads back.

template <typename Class>
static void ExpectForm(double number, const char* hex, double readBack) {
    const Class value(Units::NONE, static_cast<typename Class::Number>(number), false);
    EXPECT_EQ(Str(hex), Bytes(value));
    MemoryOutStream out;
    value.toStream(out);
    out.bytes_.resize(sizeof(double));
    EXPECT_EQ(readBack, Read(Class(Units::NONE, out.bytes_.data()), Units::NONE)) << hex;
    Class reread;
    reread.fromBinary(out.bytes_.data());
    EXPECT_EQ(readBack, reread.getValue()) << hex;
}

TEST(ScalarValueTest, EachClassWritesItsBytesAndReadsThemBack) {
    ExpectForm<Double>(-0.1, "9A9999999999B9BF", -0.1);
    ExpectForm<Double6>(0x1.23456789abcdep0, "9A785634F23F", 0x1.23456789ap0);
    ExpectForm<Double4>(0.1, "CDCCCC3D", static_cast<double>(0.1f));
    ExpectForm<Float>(1.1f, "CDCC8C3F", 1.1f);
    ExpectForm<Float3>(1.1f, "CC8C3F", 0x1.1998p0);
    ExpectForm<Float2>(1.0, "803F", 1.0);
    ExpectForm<Float2>(1.1f, "8C3F", 0x1.18p0);
    ExpectForm<Int>(-2, "FEFFFFFF", -2);
    ExpectForm<Short>(-2, "FEFF", -2);
    ExpectForm<UShort>(40000, "409C", -25536);
    ExpectForm<UChar>(200, "C8", 200);
    ExpectForm<UChar>(456, "C8", 200);
}

TEST(ScalarValueTest, ReducedTypesBringNaNBack) {
    for (BinaryDataType type : {DOUBLE6, DOUBLE4, FLOAT3, FLOAT2}) {
        const std::unique_ptr<DataValue> value(Units::NONE.dataValue(type));
        MemoryOutStream out;
        value->toStream(out);
        value->setFrom(Units::NONE, 1.0);
        value->fromBinary(out.bytes_.data());
        EXPECT_TRUE(value->isNaN()) << type;
    }
}

// Whether a new number is a change, which decides whether it is logged.

template <typename Class>
static bool IsChange(typename Class::Number from, typename Class::Number to) {
    Class value(Units::NONE, from, false);
    const bool expected = !value.equalsForStorage(to);
    const bool changed = value.setFrom(Units::NONE, static_cast<double>(to));
    EXPECT_EQ(expected, changed);
    return changed;
}

TEST(ScalarValueTest, OnlyWhatReachesTheLogIsAChange) {
    const float notANumber = std::numeric_limits<float>::quiet_NaN();
    EXPECT_FALSE(IsChange<Double>(1.5, 1.5));
    EXPECT_TRUE(IsChange<Double>(1, 0x1.0000000000001p0));
    EXPECT_FALSE(IsChange<Double>(NOT_A_NUMBER, -NOT_A_NUMBER));
    EXPECT_TRUE(IsChange<Double>(NOT_A_NUMBER, 0));
    EXPECT_FALSE(IsChange<Double6>(1, 0x1.00000000000ffp0));
    EXPECT_TRUE(IsChange<Double6>(1, 0x1.00000000001p0));
    EXPECT_FALSE(IsChange<Double6>(NOT_A_NUMBER, -NOT_A_NUMBER));
    EXPECT_FALSE(IsChange<Double4>(1, 0x1.0000001p0));
    EXPECT_TRUE(IsChange<Double4>(1, 0x1.000002p0));
    EXPECT_FALSE(IsChange<Float3>(1, 0x1.0001fep0f));
    EXPECT_TRUE(IsChange<Float3>(1, 0x1.0002p0f));
    EXPECT_FALSE(IsChange<Float2>(1, 0x1.01fffep0f));
    EXPECT_TRUE(IsChange<Float2>(1, 0x1.02p0f));
    EXPECT_TRUE(IsChange<Float2>(notANumber, 1));
    EXPECT_TRUE(IsChange<Int>(1, 65537));
    EXPECT_FALSE(IsChange<Short>(1, 65537));
}

// Units.

TEST(ScalarValueTest, NumbersAreHeldInTheBaseUnit) {
    Double value(Units::CELSIUS, 20, true);
    EXPECT_DOUBLE_EQ(293.15, value.getValue());
    EXPECT_EQ(293.15, Double(Units::CELSIUS, 293.15, false).getValue());
    EXPECT_NEAR(20, Read(value, Units::CELSIUS), 1e-12);
    value.setFrom(Units::CELSIUS, 0.0);
    EXPECT_EQ(273.15, Read(value, Units::KELVIN));
    EXPECT_EQ(1, Int(Units::MILLIMETER, 1999, true).getValue());
}

TEST(ScalarValueTest, AUnitOfAnotherDimensionCannotBeRead) {
    const Double depth(Units::METER, 5, true);
    double number = 0;
    int integer = 7;
    EXPECT_FALSE(depth.copyTo(Units::SECOND, number) || depth.copyTo(Units::SECOND, integer));
    EXPECT_TRUE(std::isnan(number));
    EXPECT_EQ(0, integer);
    EXPECT_EQ(Str("nan"), depth.toString(Units::SECOND));
    Double time(Units::SECOND, 3, true);
    EXPECT_FALSE(time.setFrom(depth));
    EXPECT_EQ(3, time.getValue());
    EXPECT_TRUE(std::isnan(time.absDiff(&depth)));
    EXPECT_FALSE(time.equals(depth));
    EXPECT_EQ(0, time.compare(depth));
}

TEST(ScalarValueTest, AnotherValueTakesTheNumberInItsOwnUnit) {
    const Float3 value(Units::CELSIUS, 20.0f, true);
    const std::unique_ptr<DataValue> copy(value.copy());
    EXPECT_EQ(FLOAT3, copy->getBinaryType());
    EXPECT_EQ(&Units::CELSIUS, copy->getUnit());
    EXPECT_TRUE(value.equals(*copy));
    Short target(Units::KELVIN, 0, false);
    EXPECT_TRUE(value.copyTo(target));
    EXPECT_EQ(293, target.getValue());
}

TEST(ScalarValueTest, OnlyANumberOfTheSameClassAndUnitIsTakenOver) {
    const std::unique_ptr<DataValue> taker(Units::FOOT.dataValue(1.0, FLOAT4));
    double number = 0;
    const std::tuple<const Unit*, BinaryDataType, double> others[] = {
        {&Units::FOOT, DOUBLE8, 2.0}, {&Units::METER, FLOAT4, 2.0}, {&Units::FOOT, FLOAT4, NOT_A_NUMBER}};
    for (const auto& [unit, type, value] : others) {
        const std::unique_ptr<DataValue> other(unit->dataValue(value, type));
        EXPECT_FALSE(taker->takeOver(*other, number)) << unit->getName() << type << value;
    }
    EXPECT_FLOAT_EQ(1, static_cast<float>(Read(*taker, Units::FOOT)));
    for (const double value : {2.5, 0.0, -0.0}) {
        const std::unique_ptr<DataValue> same(Units::FOOT.dataValue(value, FLOAT4));
        EXPECT_TRUE(taker->takeOver(*same, number));
        EXPECT_EQ(Read(*same, Units::FOOT), number);
        EXPECT_EQ(std::signbit(value), std::signbit(number) && std::signbit(Read(*taker, Units::FOOT))) << value;
    }
}

TEST(ScalarValueTest, UnitlessSidesPassNumbersUnchanged) {
    EXPECT_EQ(5, Read(Double(Units::METER, 5, true), Units::COUNT));
    EXPECT_EQ(50, Read(Float(Units::NONE_FLOAT, 0.5f, true), Units::PERCENT));
    EXPECT_EQ(1, Read(UChar(Units::BOOL, 1, true), Units::METER));
    Double withoutUnit;
    EXPECT_TRUE(withoutUnit.setFrom(Double(Units::KILOMETER, 2, true)));
    EXPECT_EQ(2000, Read(withoutUnit, Units::METER));
}

TEST(ScalarValueTest, OtherTypesReadAndWriteThroughTheNumber) {
    const std::tuple<double, bool, unsigned char, int> cases[] = {
        {0.5, false, 0, 0},          {-1.9, true, 0, -1},        {200.7, true, 200, 200},    {300, true, 255, 300},
        {1e300, true, 255, INT_MAX}, {-1e300, true, 0, INT_MIN}, {NOT_A_NUMBER, false, 0, 0}};
    for (const auto& [number, asBool, asUChar, asInt] : cases) {
        const Double value(Units::NONE, number, false);
        bool boolean;
        unsigned char byte;
        int integer;
        EXPECT_TRUE(value.copyTo(Units::NONE, boolean) && value.copyTo(Units::NONE, byte) &&
                    value.copyTo(Units::NONE, integer));
        EXPECT_EQ(std::make_tuple(asBool, asUChar, asInt), std::make_tuple(boolean, byte, integer)) << number;
        Int set(Units::NONE, 42, false);
        EXPECT_TRUE(set.setFrom(Units::NONE, number));
        EXPECT_EQ(asInt, set.getValue());
    }
    Int flag(Units::BOOL, 0, false);
    EXPECT_TRUE(flag.setFrom(Units::BOOL, true) && flag.equals(Units::BOOL, true));
}

// Comparing and arithmetic.

TEST(ScalarValueTest, ComparesInTheGivenUnit) {
    const Float value(Units::DEGREE, 45.0f, true);
    EXPECT_TRUE(value.equals(Units::DEGREE, 45.0f));
    EXPECT_EQ(-1, value.compare(Units::DEGREE, 46));
    EXPECT_EQ(1, value.compare(Units::DEGREE, 44.0));
    EXPECT_EQ(0, value.compare(Units::DEGREE, NOT_A_NUMBER));
    EXPECT_FALSE(Int(Units::NONE, 1, false).equals(Units::NONE, 1.5));
    EXPECT_EQ(-1, Int(Units::NONE, 1, false).compare(Units::NONE, 1.5));
    EXPECT_TRUE(Double().equals(Float()));
    EXPECT_FALSE(Double().equals(Units::NONE, 0.0));
    EXPECT_TRUE(Double(Units::METER, 2, true).equals(Int(Units::METER, 2, true)));
}

TEST(ScalarValueTest, ArithmeticRunsInTheBaseUnit) {
    const Double kilometre(Units::KILOMETER, 1, true);
    const Int metres(Units::METER, 1250, true);
    Double result(Units::MILLIMETER, 0, true);
    kilometre.minus(&metres, &result);
    EXPECT_EQ(-250, result.getValue());
    EXPECT_EQ(250, kilometre.absDiff(&metres));
    kilometre.times(2.5, &result);
    EXPECT_EQ(2500, result.getValue());
    kilometre.minus(std::make_unique<Double>(Units::SECOND, 1, true).get(), &result);
    EXPECT_EQ(2500, result.getValue());
}

// Text, copies, memory.

TEST(ScalarValueTest, Text) {
    EXPECT_EQ(Str("1.500000 m"), Double(Units::METER, 1.5, true).toString());
    EXPECT_EQ(Str("-7 count"), Int(Units::COUNT, -7, true).toString());
}
