#include "data/BlobValue.h"

#include <limits>

#include "data/ElementURI.h"
#include "utils/TextBuffer.h"

namespace {

// What one element type is: its size, and its numbers as doubles.
struct ElementKind {
    size_t size_;
    bool (*get_)(const BlobValue& blob, size_t index, double& number);
    bool (*set_)(BlobValue& blob, size_t index, double number);
};

bool GetNone(const BlobValue&, size_t, double&) {
    return false;
}
bool SetNone(BlobValue&, size_t, double) {
    return false;
}

template <typename T, bool SWAP>
bool Get(const BlobValue& blob, size_t index, double& number) {
    T element;
    const bool isRead = blob.getElement(index, element, SWAP);
    number = static_cast<double>(element);
    return isRead;
}

template <typename T, bool SWAP>
bool Set(BlobValue& blob, size_t index, double number) {
    return blob.setElement(index, AuvMath::Narrow<T>(number), SWAP);
}

template <typename T>
constexpr ElementKind LittleEndian() {
    return {sizeof(T), &Get<T, false>, &Set<T, false>};
}

template <typename T>
constexpr ElementKind BigEndian() {
    return {sizeof(T), &Get<T, true>, &Set<T, true>};
}

constexpr ElementKind NO_KIND = {0, &GetNone, &SetNone};

constexpr std::array<ElementKind, BLOB_TYPE_COUNT> KINDS = {{
    NO_KIND,                         // NOT_BLOB
    LittleEndian<signed char>(),     // BLOB_INT8
    LittleEndian<short>(),           // BLOB_INT16LE
    BigEndian<short>(),              // BLOB_INT16BE
    LittleEndian<int>(),             // BLOB_INT32LE
    BigEndian<int>(),                // BLOB_INT32BE
    LittleEndian<long>(),            // BLOB_INT64LE
    BigEndian<long>(),               // BLOB_INT64BE
    LittleEndian<unsigned char>(),   // BLOB_UINT8
    LittleEndian<unsigned short>(),  // BLOB_UINT16LE
    BigEndian<unsigned short>(),     // BLOB_UINT16BE
    LittleEndian<unsigned int>(),    // BLOB_UINT32LE
    BigEndian<unsigned int>(),       // BLOB_UINT32BE
    LittleEndian<unsigned long>(),   // BLOB_UINT64LE
    BigEndian<unsigned long>(),      // BLOB_UINT64BE
    LittleEndian<float>(),           // BLOB_FLOAT32LE
    BigEndian<float>(),              // BLOB_FLOAT32BE
    LittleEndian<double>(),          // BLOB_FLOAT64LE
    BigEndian<double>(),             // BLOB_FLOAT64BE
}};

constexpr std::array<size_t, BLOB_TYPE_COUNT> SizesOfKinds() {
    std::array<size_t, BLOB_TYPE_COUNT> sizes{};
    for (size_t i = 0; i < sizes.size(); ++i) sizes[i] = KINDS[i].size_;
    return sizes;
}

const ElementKind& KindOf(BlobType type) {
    const size_t index = static_cast<size_t>(type);
    return index < KINDS.size() ? KINDS[index] : NO_KIND;
}

}  // namespace

const std::array<size_t, BLOB_TYPE_COUNT> BlobValue::ELEMENT_SIZE = SizesOfKinds();

BlobValue::BlobValue(const ElementURI& uri) : StrValue(Str(), uri.getUnit()), blobType_(uri.getBlobType()) {}

BlobValue::BlobValue(const void* raw, size_t count, const ElementURI& uri) : BlobValue(uri) {
    setFromRaw(raw, count);
}

size_t BlobValue::elementSize() const {
    return KindOf(blobType_).size_;
}

size_t BlobValue::getCount() const {
    const size_t size = elementSize();
    return size == 0 ? 0 : value_.length() / size;
}

void BlobValue::appendTo(TextBuffer& text, const Unit& unit) const {
    text.appendInt(static_cast<long long>(value_.length())).append(" bytes of ").append(unit.getName());
}

bool BlobValue::get(size_t index, const Unit& unit, double& value) const {
    const bool isRead = fits(unit) && KindOf(blobType_).get_(*this, index, value);
    value = isRead ? unit.getScaled(value) : std::numeric_limits<double>::quiet_NaN();
    return isRead;
}

bool BlobValue::set(size_t index, const Unit& unit, double value) {
    return KindOf(blobType_).set_(*this, index, unit.getSI(value));
}

bool BlobValue::setFromRaw(const void* raw, size_t count) {
    return StrValue::setFrom(Str(static_cast<const char*>(raw), count * elementSize()));
}

Str BlobValue::resize(size_t count) {
    Str before(value_);
    StrValue::setFrom(Str(static_cast<const char*>(nullptr), count * elementSize()));
    return before;
}
