#pragma once

#include <memory>

#include "data/DataAccessor.h"
#include "data/ElementURI.h"
#include "data/Logger.h"
#include "units/BinaryDataType.h"
#include "units/Units.h"
#include "utils/Mutex.h"
#include "utils/Str.h"

class InStream;
class Log;
class OutStream;
class TextBuffer;
class UniversalDataElement;

// The coded record of one attachment: which component reads or writes which element, under which universal name, in
// which unit, type and size. Data entries refer to it by code.
class DataAccess {
public:
    static constexpr unsigned short NO_CODE = 16383;

    // From a log record; the unit is found by name when it is first asked for.
    DataAccess(unsigned short ownerCode, unsigned short elementCode, unsigned short universalCode, const char* unitName,
               BinaryDataType binaryType, unsigned short typeSize, unsigned short code = NO_CODE,
               DataAccessor::AccessorType accessorType = DataAccessor::DATA_WRITER);
    // For an output of our own, in a known unit.
    DataAccess(unsigned short ownerCode, unsigned short elementCode, unsigned short universalCode, const Unit& unit,
               BinaryDataType binaryType, unsigned short typeSize, unsigned short code,
               DataAccessor::AccessorType accessorType);
    // For a live accessor.
    DataAccess(const DataAccessor& accessor, UniversalDataElement* universal, unsigned short code);
    DataAccess(const DataAccess&) = delete;
    DataAccess& operator=(const DataAccess&) = delete;

    unsigned short getCode() const { return code_; }
    // For the log that registers the access; its place there does not follow.
    void setCode(unsigned short code) { code_ = code; }
    // Codes of the component's name, of the element and of the universal that it serves, in its log. SELF_CODE stands
    // for the element itself; NUM_CODES or above, else, for none.
    unsigned short getOwnerCode() const { return ownerCode_; }
    unsigned short getElementCode() const { return elementCode_; }
    unsigned short getUniversalCode() const { return universalCode_; }
    // The code under which a best value also counts: SELF_CODE stands for the element itself. NUM_CODES or above: none.
    unsigned short getEffectiveUniversalCode() const {
        return universalCode_ == ElementURI::SELF_CODE ? elementCode_ : universalCode_;
    }
    const Unit* getUnit() const {  // null when the log's unit name names no unit
        return unit_ != nullptr || unitLookedUp_ ? unit_ : lookUpUnit();
    }
    const Unit& unitOrNone() const {
        const Unit* const unit = getUnit();
        return unit == nullptr ? Units::NONE : *unit;
    }
    Str getUnitName() const;  // the name as the log gave it; "none" without a unit
    // How its values lie in the log, and in how many bytes; of a text the size says only that it has a type.
    BinaryDataType getBinaryType() const { return binaryType_; }
    unsigned short getTypeSize() const { return typeSize_; }
    // Values can be decoded; isUntyped: nothing is known of them. A record may tell half of it and be neither.
    bool isTyped() const { return binaryType_ >= STRVALUE && typeSize_ != 0; }
    bool isUntyped() const { return binaryType_ == NO_TYPE && typeSize_ == 0; }
    DataAccessor::AccessorType getAccessorType() const { return accessorType_; }
    bool isWriter() const { return accessorType_ == DataAccessor::DATA_WRITER; }
    bool getNoInterpFlag() const { return noInterpFlag_; }  // values must not be interpolated between samples
    void setNoInterpFlag(bool noInterp) { noInterpFlag_ = noInterp; }
    // Of the times of its entries in the log.
    Logger::TimePrecisionType getTimePrecision() const { return timePrecision_; }
    void setTimePrecision(Logger::TimePrecisionType precision) { timePrecision_ = precision; }
    // Nothing in the record, read under the same code, speaks against this access. A record without type leaves unit,
    // type and size open, and so does an access that has found none yet.
    bool agreesWith(const DataAccess& record) const;
    bool declaresTheSame(const DataAccess& other) const;  // everything but the code is equal
    // Not null. A unit that has not been looked up stays a name.
    void copyUnitsTypeAndSizeFrom(const DataAccess* other);
    // How much was known of types when this access, without one, last looked for one to inherit; 0 before it did.
    unsigned int getTypesSeen() const { return typesSeen_; }
    void setTypesSeen(unsigned int typesSeen) { typesSeen_ = typesSeen; }

    // ` code=0001 owner=0000 element=0002 universal=3FFF unitName="meter" type=0B size=0003 fl=01` and a line feed; the
    // number of bytes written.
    size_t write(OutStream& out) const;
    Str recordText() const;  // that record
    // A new access, owned by the caller; null when the record is malformed.
    static DataAccess* Read(InStream& in);
    // "Navigator-->Navigator.heading=", before a value in the log's lines: who did what to which element. The arrow of
    // a write is doubled for a best value; unknown stands for a name that the log does not give.
    void appendLabel(TextBuffer& text, const Log& log, bool best, const Str& unknown) const;
    // One line for people, at most 1023 characters; with markup it starts with the code and names the unit.
    Str asString(bool markup) const;

private:
    const Unit* lookUpUnit() const;
    bool makeLabels(const Log& log, const Str& unknown) const;
    // The same component on the same element, in the same way; unit, type and size may differ.
    bool isSameAttachment(const DataAccess& other) const;
    bool hasUnitOf(const DataAccess& other) const;  // under whatever name
    bool hasTypeOf(const DataAccess& other) const {
        return binaryType_ == other.binaryType_ && typeSize_ == other.typeSize_;
    }
    unsigned char flags() const;
    void setFlags(unsigned char flags);

    unsigned short ownerCode_;
    unsigned short elementCode_;
    unsigned short universalCode_;
    mutable const Unit* unit_ = nullptr;  // a constant of the process; null until resolved
    BinaryDataType binaryType_;
    unsigned short typeSize_;
    DataAccessor::AccessorType accessorType_;
    unsigned short code_;
    std::unique_ptr<Str> tempUnitName_;  // the unit name of a log record; null when the unit was given
    mutable bool unitLookedUp_ = false;  // the name, found or not
    bool noInterpFlag_ = false;
    mutable Str labels_[2];           // of other values, and of best ones
    mutable bool hasLabels_ = false;  // for good: they give both names
    mutable Mutex labelMutex_;
    unsigned int typesSeen_ = 0;
    Logger::TimePrecisionType timePrecision_ = Logger::TIME_PRECISION_MICROS;
};
