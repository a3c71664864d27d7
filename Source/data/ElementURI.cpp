#include "data/ElementURI.h"

#include <memory>

#include "data/BlobValue.h"
#include "data/Log.h"
#include "data/RecordText.h"
#include "io/InStream.h"
#include "utils/StaticOrder.h"
#include "utils/TextBuffer.h"

const Unit ElementURI::UNSPECIFIED_UNIT STATIC_ORDER(STATIC_ORDER_UNSPECIFIED_UNIT)("unspecified", "_", NO_TYPE);

namespace {

const size_t MAX_BLOB_BYTES = 65535;  // what the two-byte length of a value in the log can say

// Reads `0003,0003` up to the line feed, which is consumed; false for anything else.
bool ReadFixedSize(InStream& in, unsigned short dimensions[3]) {
    for (int i = 0; i < 3; ++i) {
        if (!RecordText::ReadHex4(in, dimensions[i]) || (i > 0 && dimensions[i] == 0)) return false;
        char next;
        if (in.read(&next, 1).bytesRead() != 1) return false;
        if (next == '\n') return true;
        if (next != ',') return false;
    }
    return false;
}

}  // namespace

ElementURI::ElementURI(const Str& component, const Str& element, ElementType elementType, const Unit& unit,
                       BinaryDataType binaryType, BlobType blobType, unsigned short dimension1,
                       unsigned short dimension2, unsigned short dimension3)
    : ElementURI(NO_CODE, buildURI(component, element), elementType, unit, binaryType, blobType, dimension1, dimension2,
                 dimension3) {
    Log::Current().codifyElementURI(*this);
}

ElementURI::ElementURI(const Str& component, const Str& part, const Str& lastPart, ElementType elementType,
                       const Unit& unit, BinaryDataType binaryType, BlobType blobType, unsigned short dimension1,
                       unsigned short dimension2, unsigned short dimension3)
    : ElementURI(buildURI(component, part), lastPart, elementType, unit, binaryType, blobType, dimension1, dimension2,
                 dimension3) {}

ElementURI::ElementURI(unsigned short code, const Str& name, ElementType elementType, const Unit& unit,
                       BinaryDataType binaryType, BlobType blobType, unsigned short dimension1,
                       unsigned short dimension2, unsigned short dimension3)
    : Str(name),
      elementType_(elementType),
      unit_(&unit),
      binaryType_(binaryType),
      code_(code),
      blobType_(blobType),
      dimension1_(dimension1),
      dimension2_(dimension2),
      dimension3_(dimension3) {}

Str ElementURI::buildURI(const Str& component, const Str& element) {
    if (component.isEmpty()) return element;
    return element[0] == '.' ? component + element : component + "." + element;
}

ElementURI ElementURI::Create(const Str& component, const Str& element) {
    return ElementURI(NO_CODE, buildURI(component, element), BASE_ELEMENT);
}

ElementURI* ElementURI::FindURI(const Str& name) {
    return Log::Current().findElementURI(name);
}

int ElementURI::getDimensions() const {
    return (dimension1_ != 0) + (dimension2_ != 0) + (dimension3_ != 0);
}

bool ElementURI::agreesWith(const ElementURI& record) const {
    if (*this != record) return false;
    return isUniversal() || (blobType_ == record.blobType_ && dimension1_ == record.dimension1_ &&
                             dimension2_ == record.dimension2_ && dimension3_ == record.dimension3_);
}

Str ElementURI::recordText() const {
    TextBuffer record;
    record.append(" code=").appendHexDigits(code_, 4);
    record.append(" elementURI=\"").append(*this).append('"');
    record.append(" type=").appendHexDigits(static_cast<unsigned>(elementType_ | blobFlag()), 2);
    if (blobType_ != NOT_BLOB) {
        record.append(" blobType=").appendHexDigits(static_cast<unsigned>(blobType_), 2);
        record.append(" fixedSize=").appendHexDigits(dimension1_, 4);
        if (dimension2_ != 0) record.append(',').appendHexDigits(dimension2_, 4);
        if (dimension2_ != 0 && dimension3_ != 0) record.append(',').appendHexDigits(dimension3_, 4);
    }
    record.append('\n');
    return record.toStr();
}

size_t ElementURI::write(OutStream& out) const {
    return RecordText::Write(out, recordText());
}

ElementURI* ElementURI::Read(InStream& in) {
    return Read(in, Log::Current().getLogger());
}

ElementURI* ElementURI::Read(InStream& in, const Logger& logger) {
    unsigned short code = NO_CODE;
    Str name;
    unsigned char type = 0;
    if (!RecordText::ReadFixed(in, " code=") || !RecordText::ReadHex4(in, code)) return nullptr;
    if (!RecordText::ReadFixed(in, " elementURI=\"")) return nullptr;
    if (!RecordText::ReadQuoted(in, MAX_NAME_LENGTH + 1, name)) return nullptr;
    if (!RecordText::ReadFixed(in, " type=") || !RecordText::ReadHex2(in, type)) return nullptr;
    const int elementType = type & ~BLOB_VALUE_FLAG;
    if (elementType > UNIVERSAL_ELEMENT) return nullptr;

    std::unique_ptr<ElementURI> uri(new ElementURI(code, name, static_cast<ElementType>(elementType)));
    const bool isRead = (type & BLOB_VALUE_FLAG) != 0 ? uri->readBlobForm(in, logger) : RecordText::ReadFixed(in, "\n");
    return isRead ? uri.release() : nullptr;
}

bool ElementURI::readBlobForm(InStream& in, const Logger& logger) {
    unsigned char blobType = NOT_BLOB;
    unsigned short dimensions[3] = {0, 0, 0};
    if (!RecordText::ReadFixed(in, " blobType=") || !RecordText::ReadHex2(in, blobType)) return false;
    if (!RecordText::ReadFixed(in, " fixedSize=") || !ReadFixedSize(in, dimensions)) return false;
    if (blobType == NOT_BLOB || blobType >= BLOB_TYPE_COUNT) {
        reportBlob(logger, " has the unknown array type 0x", blobType);
        return true;
    }
    blobType_ = static_cast<BlobType>(blobType);
    size_t bytes = BlobValue::ELEMENT_SIZE[blobType];
    for (unsigned short dimension : dimensions) bytes *= dimension != 0 ? dimension : 1;
    if (bytes > MAX_BLOB_BYTES) {
        reportBlob(logger, " has dimensions that no value in a log can have, bytes 0x", bytes);
        return true;
    }
    dimension1_ = dimensions[0];
    dimension2_ = dimensions[1];
    dimension3_ = dimensions[2];
    return true;
}

void ElementURI::reportBlob(const Logger& logger, const char* problem, size_t number) const {
    const Str text = "Element " + *this + problem;
    logger.syslog(text.cStr(), number, Syslog::ERROR);
}
