// The values that a unit makes.

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <typeinfo>

#include "data/Double.h"
#include "data/Float.h"
#include "data/Int.h"
#include "data/StrValue.h"

typedef std::unique_ptr<DataValue> Value;

static const struct {
    int type_;
    const std::type_info& class_;
    const char* unset_;     // its text
    const char* negative_;  // the text of one made from -2.5; null: none is made
} TYPES[] = {
    {STRVALUE, typeid(StrValue), "", nullptr},
    {UCHAR1, typeid(UChar), "0", "-2"},
    {SHORT2, typeid(Short), "0", "-2"},
    {USHORT2, typeid(UShort), "0", "-2"},
    {FLOAT2, typeid(Float2), "nan", "-2.500000"},
    {FLOAT3, typeid(Float3), "nan", "-2.500000"},
    {INT4, typeid(Int), "0", "-2"},
    {FLOAT4, typeid(Float), "nan", "-2.500000"},
    {DOUBLE8, typeid(Double), "nan", "-2.500000"},
    {DOUBLE4, typeid(Double4), "nan", "-2.500000"},
    {DOUBLE6, typeid(Double6), "nan", "-2.500000"},
    {1, typeid(Double), "nan", nullptr},  // no such type
    {std::numeric_limits<int>::max(), typeid(Double), "nan", nullptr},
};

TEST(UnitValuesTest, TheTypeDecidesTheClass) {
    for (const auto& t : TYPES) {
        const BinaryDataType type = static_cast<BinaryDataType>(t.type_);
        const Value unset(Units::METER.dataValue(type));
        const DataValue& made = *unset;
        EXPECT_TRUE(t.class_ == typeid(made)) << t.type_;
        EXPECT_EQ(&Units::METER, unset->getUnit()) << t.type_;
        EXPECT_EQ(Str(t.unset_), unset->toString(Units::METER)) << t.type_;

        const Value set(Units::METER(-2.5, type));
        ASSERT_EQ(t.negative_ != nullptr, set != nullptr) << t.type_;
        if (set == nullptr) continue;
        EXPECT_EQ(Str(t.negative_), set->toString(Units::METER)) << t.type_;
    }
}

TEST(UnitValuesTest, NumbersAreNarrowedAfterTheConversion) {
    for (int i = 0; i < 100; ++i) {
        double radians = 0;
        Value(Units::DEGREE.dataValue(i * 0.1, FLOAT4))->copyTo(Units::RADIAN, radians);
        EXPECT_EQ(static_cast<float>(Units::DEGREE.getSI(i * 0.1)), radians) << i;
    }
}

TEST(UnitValuesTest, WithoutATypeTheUnitDecides) {
    EXPECT_EQ(FLOAT3, Value(Units::METER.dataValue())->getBinaryType());
    EXPECT_EQ(DOUBLE4, Value(Units::DEGREE())->getBinaryType());
    EXPECT_EQ(INT4, Value(Units::COUNT(7))->getBinaryType());
}

TEST(UnitValuesTest, InitialValuesAreGivenInTheUnit) {
    EXPECT_EQ(Str("5000.000000"), Value(Units::KILOMETER(5))->toString(Units::METER));
    EXPECT_EQ(Str("1"), Value(Units::BOOL(true))->toString(Units::BOOL));
    EXPECT_EQ(Str("200"), Value(Units::COUNT(static_cast<unsigned char>(200)))->toString(Units::COUNT));
    EXPECT_EQ(Str("2147483647"), Value(Units::COUNT(1e12))->toString(Units::COUNT));
}
