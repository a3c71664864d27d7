#include "utils/netcdf/NetCdfBlock.h"

#include <netcdf.h>

#include <algorithm>
#include <cstring>

#include "utils/AuvMath.h"

namespace {

// What the library shows where nothing was written.
template <typename T>
constexpr T FILL_VALUE = T();
template <>
constexpr signed char FILL_VALUE<signed char> = NC_FILL_BYTE;
template <>
constexpr short FILL_VALUE<short> = NC_FILL_SHORT;
template <>
constexpr int FILL_VALUE<int> = NC_FILL_INT;
template <>
constexpr float FILL_VALUE<float> = NC_FILL_FLOAT;
template <>
constexpr double FILL_VALUE<double> = NC_FILL_DOUBLE;
template <>
constexpr unsigned char FILL_VALUE<unsigned char> = NC_FILL_UBYTE;
template <>
constexpr unsigned short FILL_VALUE<unsigned short> = NC_FILL_USHORT;
template <>
constexpr unsigned int FILL_VALUE<unsigned int> = NC_FILL_UINT;
template <>
constexpr long long FILL_VALUE<long long> = NC_FILL_INT64;
template <>
constexpr unsigned long long FILL_VALUE<unsigned long long> = NC_FILL_UINT64;

template <typename T>
T LowBits(double value) {
    return static_cast<T>(AuvMath::Truncate<int>(value));
}

template <typename T, T (*FIT)(double)>
void PutInteger(char* at, double value) {
    const T fitted = AuvMath::IsNaN(value) ? FILL_VALUE<T> : FIT(value);
    memcpy(at, &fitted, sizeof fitted);
}

template <typename T>
void PutFloating(char* at, double value) {
    const T fitted = static_cast<T>(value);
    memcpy(at, &fitted, sizeof fitted);
}

template <typename T>
void PutFill(char* at) {
    memcpy(at, &FILL_VALUE<T>, sizeof(T));
}

template <typename T, T (*FIT)(double)>
constexpr NetCdfElementKind IntegerKind() {
    return {sizeof(T), &PutInteger<T, FIT>, &PutFill<T>};
}

template <typename T>
constexpr NetCdfElementKind FloatingKind() {
    return {sizeof(T), &PutFloating<T>, &PutFill<T>};
}

void PutNothing(char*, double) {}

// No text: the library does not show whether an empty one was written.
void PutNoText(char* at) {
    memset(at, 0, sizeof(const char*));
}

constexpr NetCdfElementKind KINDS[] = {
    // by NetCdf::NetCdfType
    {1, &PutNothing, &PutFill<char>},
    IntegerKind<signed char, &LowBits<signed char>>(),
    IntegerKind<char, &LowBits<char>>(),
    IntegerKind<short, &LowBits<short>>(),
    IntegerKind<int, &AuvMath::Narrow<int>>(),
    FloatingKind<float>(),
    FloatingKind<double>(),
    IntegerKind<unsigned char, &LowBits<unsigned char>>(),
    IntegerKind<unsigned short, &LowBits<unsigned short>>(),
    IntegerKind<unsigned int, &AuvMath::Narrow<unsigned int>>(),
    IntegerKind<long long, &AuvMath::Narrow<long long>>(),
    IntegerKind<unsigned long long, &AuvMath::Narrow<unsigned long long>>(),
    {sizeof(const char*), &PutNothing, &PutNoText},
};

}  // namespace

NetCdfBlock::NetCdfBlock(NetCdf::NetCdfType type, int nDims, const size_t* recordShape, size_t maxRecords)
    : kind_(KINDS[type]), holdsTexts_(type == NetCdf::NC_STRING_TYPE), counts_{}, capacity_(maxRecords) {
    for (int i = 1; i < nDims; ++i) elements_ *= counts_[i] = recordShape[i - 1];
}

void NetCdfBlock::limitTo(size_t maxRecords) {
    capacity_ = std::max<size_t>(1, std::min(capacity_, maxRecords));
}

void NetCdfBlock::addNumber(double value) {
    if (elements_ != 1) {
        addUnwritten();
        setElement(0, value);
        return;
    }
    void* const at = bytes_.extend(kind_.size_);
    if (at == nullptr) return;
    ++count_;
    kind_.put_(static_cast<char*>(at), lastValue_ = value);
}

void NetCdfBlock::addUnwritten() {
    char* at = static_cast<char*>(bytes_.extend(recordBytes()));
    if (at == nullptr) return;
    ++count_;
    for (size_t i = 0; i < elements_; ++i, at += kind_.size_) kind_.putFill_(at);
}

void NetCdfBlock::addText(const Str& text) {
    addUnwritten();
    if (!holdsTexts_ || elements_ == 0 || isRefused()) return;
    const size_t start = texts_.length() + 1;
    texts_.append(text.cStr(), strlen(text.cStr()) + 1);
    memcpy(bytes_.data() + bytes_.length() - recordBytes(), &start, sizeof start);
}

void NetCdfBlock::setElement(size_t index, double value) {
    lastValue_ = value;
    if (index >= elements_ || isRefused()) return;
    kind_.put_(bytes_.data() + bytes_.length() - recordBytes() + index * kind_.size_, value);
}

int NetCdfBlock::flush(const NetCdf::NetCdfVar& var) {
    if (count_ == 0) return NC_NOERR;
    const size_t start[NetCdf::MAX_DIMS] = {var.numRecs_ - count_};
    counts_[0] = count_;
    if (holdsTexts_) pointToTexts();
    const int status = nc_put_vara(var.ncId_, var.varId_, start, counts_, bytes_.data());
    bytes_.clear();
    texts_.clear();
    count_ = 0;
    return status;
}

void NetCdfBlock::pointToTexts() {
    static_assert(sizeof(size_t) == sizeof(const char*), "a place turns into a pointer where it stands");
    for (size_t i = 0; i < count_ * elements_; ++i) {
        size_t start = 0;
        memcpy(&start, bytes_.data() + i * sizeof start, sizeof start);
        const char* const text = start == 0 ? "" : texts_.data() + start - 1;
        memcpy(bytes_.data() + i * sizeof text, &text, sizeof text);
    }
}
