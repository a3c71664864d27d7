#include "data/BlobValue.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <memory>
#include <tuple>
#include <vector>

#include "data/ElementURI.h"

static ElementURI Name(BlobType type, const Unit& unit = Units::NONE) {
    return ElementURI(ElementURI::NO_CODE, "Sonar.ranges", ElementURI::DATA_ELEMENT, unit, STRVALUE, type);
}

// The same number as every type lays it down, and each type's limits.
TEST(BlobValueTest, EachTypeHasItsBytesAndItsLimits) {
    // The bytes of 2, and what -1e30 and 1e30 are stored as.
    const std::tuple<BlobType, const char*, double, double> types[] = {
        {BLOB_INT8, "02", SCHAR_MIN, SCHAR_MAX},
        {BLOB_INT16LE, "0200", SHRT_MIN, SHRT_MAX},
        {BLOB_INT16BE, "0002", SHRT_MIN, SHRT_MAX},
        {BLOB_INT32LE, "02000000", INT_MIN, INT_MAX},
        {BLOB_INT32BE, "00000002", INT_MIN, INT_MAX},
        {BLOB_INT64LE, "0200000000000000", -0x1p63, 0x1p63},
        {BLOB_INT64BE, "0000000000000002", -0x1p63, 0x1p63},
        {BLOB_UINT8, "02", 0, UCHAR_MAX},
        {BLOB_UINT16LE, "0200", 0, USHRT_MAX},
        {BLOB_UINT16BE, "0002", 0, USHRT_MAX},
        {BLOB_UINT32LE, "02000000", 0, UINT_MAX},
        {BLOB_UINT32BE, "00000002", 0, UINT_MAX},
        {BLOB_UINT64LE, "0200000000000000", 0, 0x1p64},
        {BLOB_UINT64BE, "0000000000000002", 0, 0x1p64},
        {BLOB_FLOAT32LE, "00000040", -1e30f, 1e30f},
        {BLOB_FLOAT32BE, "40000000", -1e30f, 1e30f},
        {BLOB_FLOAT64LE, "0000000000000040", -1e30, 1e30},
        {BLOB_FLOAT64BE, "4000000000000000", -1e30, 1e30},
    };
    const double numbers[] = {2, -1e30, 1e30};
    for (const auto& [type, hex, lowest, highest] : types) {
        const BlobValue blob(Units::NONE, numbers, 3, Name(type));
        std::vector<double> readBack(3);
        EXPECT_TRUE(blob.copyTo(Units::NONE, readBack.data(), 3)) << type;
        EXPECT_EQ(Str(hex), blob.getValue().substr(0, BlobValue::ELEMENT_SIZE[type]).asHex()) << type;
        EXPECT_EQ(std::vector<double>({2, lowest, highest}), readBack) << type;
    }
}

TEST(BlobValueTest, ElementsAreConvertedThroughTheUnit) {
    BlobValue blob(Units::CENTIMETER, std::unique_ptr<int[]>(new int[2]{150, 250}).get(), 2,
                   Name(BLOB_FLOAT32LE, Units::METER));
    double value = 0;
    EXPECT_TRUE(blob.get(1, Units::METER, value));
    EXPECT_EQ(2.5, value);
    EXPECT_TRUE(blob.set(0, Units::KILOMETER, 1));
    EXPECT_TRUE(blob.get(0, Units::CENTIMETER, value));
    EXPECT_EQ(100000, value);
    EXPECT_FALSE(blob.get(0, Units::SECOND, value));
    EXPECT_TRUE(std::isnan(value));
}

TEST(BlobValueTest, MatricesAndCubesLieRowByRow) {
    const float rows[2][3] = {{1, 2, 3}, {4, 5, 6}};
    const float* const matrix[] = {rows[0], rows[1]};
    BlobValue blob(Name(BLOB_INT16BE));
    EXPECT_TRUE(blob.setFrom(Units::NONE, matrix, 2, 3));
    EXPECT_EQ(Str("000100020003000400050006"), blob.getValue().asHex());
    EXPECT_FALSE(blob.setFrom(Units::NONE, matrix, 2, 3));

    int cells[3][1][2];
    int* const planeRows[3][1] = {{cells[0][0]}, {cells[1][0]}, {cells[2][0]}};
    int* const* const cube[] = {planeRows[0], planeRows[1], planeRows[2]};
    EXPECT_TRUE(blob.copyTo(Units::NONE, cube, 3, 1, 2));
    EXPECT_EQ(4, cells[1][0][1]);
    EXPECT_EQ(5, cells[2][0][0]);
    cells[2][0][1] = 7;
    const int* const constRows[3][1] = {{cells[0][0]}, {cells[1][0]}, {cells[2][0]}};
    const int* const* const constCube[] = {constRows[0], constRows[1], constRows[2]};
    EXPECT_TRUE(blob.setFrom(Units::NONE, constCube, 3, 1, 2));
    EXPECT_EQ(Str("000100020003000400050007"), blob.getValue().asHex());
}

// What is not there.
TEST(BlobValueTest, PastTheEndThereIsNothing) {
    BlobValue blob("\1\2\3", 3, Name(BLOB_UINT8));
    double values[4];
    EXPECT_FALSE(blob.copyTo(Units::NONE, values, 4));
    EXPECT_EQ(3, values[2]);
    EXPECT_TRUE(std::isnan(values[3]));
    unsigned short element = 1;
    EXPECT_TRUE(blob.getElement(0, element, true));
    EXPECT_EQ(0x0102, element);
    EXPECT_FALSE(blob.getElement(1, element, false));  // half of it
    EXPECT_EQ(0, element);
    EXPECT_FALSE(blob.getElement(SIZE_MAX / 2 + 1, element, false));
    EXPECT_FALSE(blob.setElement<short>(1, 5, false));
    EXPECT_FALSE(blob.set(3, Units::NONE, 1));
    EXPECT_EQ(Str("010203"), blob.getValue().asHex());
}

TEST(BlobValueTest, AnImpossibleTypeHasNoElements) {
    for (int type : {-1, 0, 19, 1000}) {
        BlobValue blob("1234", 4, Name(static_cast<BlobType>(type)));
        double value = 0;
        EXPECT_EQ(0u, blob.getCount()) << type;
        EXPECT_EQ(0u, blob.getTypeSize()) << type;
        EXPECT_FALSE(blob.get(0, Units::NONE, value)) << type;
        EXPECT_FALSE(blob.set(0, Units::NONE, 1)) << type;
    }
}
