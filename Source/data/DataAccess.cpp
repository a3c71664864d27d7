#include "data/DataAccess.h"

#include "data/Component.h"
#include "data/DataElement.h"
#include "data/Log.h"
#include "data/RecordText.h"
#include "io/InStream.h"
#include "io/OutStream.h"
#include "units/UnitRegistry.h"
#include "utils/TextBuffer.h"

namespace {

// The flags byte of the record.
const unsigned char WRITER_FLAG = 1;
const unsigned char NO_INTERP_FLAG = 2;
const unsigned char MILLIS_FLAG = 4;

const unsigned int MAX_UNIT_NAME_LENGTH = 255;  // bytes that a record read from a log holds at most
const size_t MAX_DESCRIPTION_LENGTH = 1023;
const char* const NO_UNIT = "none";

bool ReadCode(InStream& in, const char* label, unsigned short& code) {
    return RecordText::ReadFixed(in, label) && RecordText::ReadHex4(in, code);
}

unsigned short OwnerCode(const DataAccessor& accessor) {
    const Component* const owner = accessor.getOwner();
    return owner == nullptr ? CodedStr::NO_CODE : owner->getName().getCode();
}

unsigned short UniversalCode(const DataAccessor& accessor, const UniversalDataElement* universal) {
    if (universal == nullptr) return ElementURI::NO_CODE;
    const bool isItself = universal->getUri() == accessor.getUri();
    return isItself ? ElementURI::SELF_CODE : universal->getUri().getCode();
}

}  // namespace

DataAccess::DataAccess(unsigned short ownerCode, unsigned short elementCode, unsigned short universalCode,
                       const char* unitName, BinaryDataType binaryType, unsigned short typeSize, unsigned short code,
                       DataAccessor::AccessorType accessorType)
    : ownerCode_(ownerCode),
      elementCode_(elementCode),
      universalCode_(universalCode),
      binaryType_(binaryType),
      typeSize_(typeSize),
      accessorType_(accessorType),
      code_(code),
      tempUnitName_(new Str(unitName)) {}

DataAccess::DataAccess(unsigned short ownerCode, unsigned short elementCode, unsigned short universalCode,
                       const Unit& unit, BinaryDataType binaryType, unsigned short typeSize, unsigned short code,
                       DataAccessor::AccessorType accessorType)
    : ownerCode_(ownerCode),
      elementCode_(elementCode),
      universalCode_(universalCode),
      unit_(&unit),
      binaryType_(binaryType),
      typeSize_(typeSize),
      accessorType_(accessorType),
      code_(code) {}

// A reader of what nothing has written yet leaves the type open: the log's reader takes it from the writer's access.
DataAccess::DataAccess(const DataAccessor& accessor, UniversalDataElement* universal, unsigned short code)
    : DataAccess(OwnerCode(accessor), accessor.getUri().getCode(), UniversalCode(accessor, universal),
                 accessor.getUnit(), NO_TYPE, 0, code, accessor.getAccessorType()) {
    noInterpFlag_ = accessor.getNoInterpFlag();
    timePrecision_ = accessor.getTimePrecision();
    const DataElement* const element = accessor.getElement();
    if (!isWriter() && element->writerCount() == 0) return;
    binaryType_ = element->getBinaryType();
    typeSize_ = static_cast<unsigned short>(element->getTypeSize());
}

const Unit* DataAccess::lookUpUnit() const {
    unitLookedUp_ = true;
    return unit_ = UnitRegistry::FindUnit(*tempUnitName_);
}

Str DataAccess::getUnitName() const {
    if (tempUnitName_ != nullptr) return *tempUnitName_;
    return unit_ == nullptr ? NO_UNIT : unit_->getName();
}

bool DataAccess::isSameAttachment(const DataAccess& other) const {
    return ownerCode_ == other.ownerCode_ && elementCode_ == other.elementCode_ &&
           universalCode_ == other.universalCode_ && flags() == other.flags();
}

// Names that name no unit are compared as they are.
bool DataAccess::hasUnitOf(const DataAccess& other) const {
    return getUnitName() == other.getUnitName() || (getUnit() != nullptr && getUnit() == other.getUnit());
}

bool DataAccess::declaresTheSame(const DataAccess& other) const {
    return isSameAttachment(other) && hasTypeOf(other) && getUnitName() == other.getUnitName();
}

bool DataAccess::agreesWith(const DataAccess& record) const {
    const bool leavesOpen = isUntyped() || record.isUntyped();
    return isSameAttachment(record) && (leavesOpen || (hasTypeOf(record) && hasUnitOf(record)));
}

void DataAccess::copyUnitsTypeAndSizeFrom(const DataAccess* other) {
    unit_ = other->unit_;
    unitLookedUp_ = other->unitLookedUp_;
    tempUnitName_.reset(other->tempUnitName_ == nullptr ? nullptr : new Str(*other->tempUnitName_));
    binaryType_ = other->binaryType_;
    typeSize_ = other->typeSize_;
}

// What a log has named keeps its name, so the labels are made once for all lines.
void DataAccess::appendLabel(TextBuffer& text, const Log& log, bool best, const Str& unknown) const {
    const MutexLocker lock(labelMutex_);
    if (!hasLabels_) hasLabels_ = makeLabels(log, unknown);
    text.append(labels_[best]);
}

// True when the log gives both names.
bool DataAccess::makeLabels(const Log& log, const Str& unknown) const {
    const Str* const owner = log.getName(ownerCode_);
    const Str* const element = log.getElementURI(elementCode_);
    for (const bool best : {false, true}) {
        const char* const arrow = !isWriter() ? "<--" : best ? "==>" : "-->";
        labels_[best] = (owner == nullptr ? unknown : *owner) + arrow + (element == nullptr ? unknown : *element) + "=";
    }
    return owner != nullptr && element != nullptr;
}

unsigned char DataAccess::flags() const {
    return static_cast<unsigned char>((isWriter() ? WRITER_FLAG : 0) | (noInterpFlag_ ? NO_INTERP_FLAG : 0) |
                                      (timePrecision_ == Logger::TIME_PRECISION_MILLIS ? MILLIS_FLAG : 0));
}

void DataAccess::setFlags(unsigned char flags) {
    accessorType_ = (flags & WRITER_FLAG) != 0 ? DataAccessor::DATA_WRITER : DataAccessor::DATA_READER;
    noInterpFlag_ = (flags & NO_INTERP_FLAG) != 0;
    timePrecision_ = (flags & MILLIS_FLAG) != 0 ? Logger::TIME_PRECISION_MILLIS : Logger::TIME_PRECISION_MICROS;
}

Str DataAccess::recordText() const {
    TextBuffer record;
    record.append(" code=").appendHexDigits(code_, 4);
    record.append(" owner=").appendHexDigits(ownerCode_, 4);
    record.append(" element=").appendHexDigits(elementCode_, 4);
    record.append(" universal=").appendHexDigits(universalCode_, 4);
    record.append(" unitName=\"").append(getUnitName()).append('"');
    record.append(" type=").appendHexDigits(static_cast<unsigned char>(binaryType_), 2);
    record.append(" size=").appendHexDigits(typeSize_, 4);
    record.append(" fl=").appendHexDigits(flags(), 2).append('\n');
    return record.toStr();
}

size_t DataAccess::write(OutStream& out) const {
    const Str record = recordText();
    return out.write(record.data(), record.length()).bytesWritten();
}

DataAccess* DataAccess::Read(InStream& in) {
    unsigned short code = NO_CODE;
    unsigned short owner = CodedStr::NO_CODE;
    unsigned short element = ElementURI::NO_CODE;
    unsigned short universal = ElementURI::NO_CODE;
    Str unitName;
    unsigned char type = 0;
    unsigned short size = 0;
    unsigned char flags = 0;
    if (!ReadCode(in, " code=", code) || !ReadCode(in, " owner=", owner)) return nullptr;
    if (!ReadCode(in, " element=", element) || !ReadCode(in, " universal=", universal)) return nullptr;
    if (!RecordText::ReadFixed(in, " unitName=\"")) return nullptr;
    if (!RecordText::ReadQuoted(in, MAX_UNIT_NAME_LENGTH + 1, unitName)) return nullptr;
    if (!RecordText::ReadFixed(in, " type=") || !RecordText::ReadHex2(in, type)) return nullptr;
    if (!RecordText::ReadFixed(in, " size=") || !RecordText::ReadHex4(in, size)) return nullptr;
    if (!RecordText::ReadFixed(in, " fl=") || !RecordText::ReadHex2(in, flags)) return nullptr;
    if (!RecordText::ReadFixed(in, "\n")) return nullptr;

    const BinaryDataType binaryType = static_cast<BinaryDataType>(static_cast<signed char>(type));
    DataAccess* const access = new DataAccess(owner, element, universal, unitName.cStr(), binaryType, size, code);
    access->setFlags(flags);
    return access;
}

Str DataAccess::asString(bool markup) const {
    TextBuffer line;
    if (markup) line.append("<a code=").appendHexDigits(code_, 4).append(' ');
    line.append("owner=").appendHexDigits(ownerCode_, 4);
    line.append(" element=").appendHexDigits(elementCode_, 4);
    line.append(" universal=").appendHexDigits(universalCode_, 4).append(' ');
    if (markup) line.append("unitName=\"").append(getUnitName()).append("\" ");
    const unsigned short type = static_cast<unsigned short>(binaryType_);
    line.append("type=").appendHexDigits(type, type > 0xFF ? 4 : 2);  // FFFF for an access without a type
    line.append(" size=").appendHexDigits(typeSize_, 4);
    line.append(" rw=").appendHexDigits(accessorType_, 2);
    return line.toStr().substr(0, MAX_DESCRIPTION_LENGTH);
}
