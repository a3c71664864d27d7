#pragma once

#include "data/BlobType.h"
#include "units/BinaryDataType.h"
#include "units/Unit.h"
#include "utils/Str.h"

class InStream;
class Logger;
class OutStream;

// The name of a datum: "component.element", with its kind, unit, stored type, code and, for an array, its element type
// and up to three fixed dimensions (0: absent).
class ElementURI : public Str {
public:
    enum ElementType : int {
        BASE_ELEMENT = 0,
        CONFIG_ELEMENT = 1,
        DATA_ELEMENT = 2,
        SETTING_ELEMENT = 3,
        UNIVERSAL_ELEMENT = 4,
    };
    static constexpr int BLOB_VALUE_FLAG = 16;            // ORed into the type in the text record of a blob
    static constexpr unsigned short NUM_CODES = 16383;    // codes run from 0 to NUM_CODES - 1
    static constexpr unsigned short NO_CODE = 16383;      // a name that has no code yet
    static constexpr unsigned short SELF_CODE = 65535;    // as a universal code: the access's own element
    static constexpr unsigned int MAX_NAME_LENGTH = 255;  // bytes that a record read from a log holds at most
    static const Unit UNSPECIFIED_UNIT;                   // for names whose unit is not known

    // Codifies the name in the current log, which keeps its address: for names that live as long as the process.
    ElementURI(const Str& component, const Str& element, ElementType elementType, const Unit& unit = UNSPECIFIED_UNIT,
               BinaryDataType binaryType = NO_TYPE, BlobType blobType = NOT_BLOB, unsigned short dimension1 = 0,
               unsigned short dimension2 = 0, unsigned short dimension3 = 0);
    // The same for component.part.part.
    ElementURI(const Str& component, const Str& part, const Str& lastPart, ElementType elementType,
               const Unit& unit = UNSPECIFIED_UNIT, BinaryDataType binaryType = NO_TYPE, BlobType blobType = NOT_BLOB,
               unsigned short dimension1 = 0, unsigned short dimension2 = 0, unsigned short dimension3 = 0);
    // With an explicit code (NO_CODE too): no log is asked.
    ElementURI(unsigned short code, const Str& name, ElementType elementType, const Unit& unit = UNSPECIFIED_UNIT,
               BinaryDataType binaryType = NO_TYPE, BlobType blobType = NOT_BLOB, unsigned short dimension1 = 0,
               unsigned short dimension2 = 0, unsigned short dimension3 = 0);
    ElementURI(const ElementURI&) = default;  // copies every field, the code included
    ElementURI& operator=(const ElementURI&) = default;

    virtual bool isUniversal() const { return false; }

    static Str buildURI(const Str& component, const Str& element);
    static ElementURI Create(const Str& component, const Str& element);  // without a code
    static ElementURI* FindURI(const Str& name);  // the registered name, borrowed from the current log; null if none

    unsigned short getCode() const { return code_; }
    void setCode(unsigned short code) { code_ = code; }
    bool hasCode() const { return code_ < NUM_CODES; }
    const Unit& getUnit() const { return *unit_; }
    BinaryDataType getBinaryType() const { return binaryType_; }
    ElementType getElementType() const { return elementType_; }
    BlobType getBlobType() const { return blobType_; }
    int getDimensions() const;  // how many are present
    unsigned short getDimension1() const { return dimension1_; }
    unsigned short getDimension2() const { return dimension2_; }
    unsigned short getDimension3() const { return dimension3_; }

    // ` code=002A elementURI="Depth.depth" type=02`, for a blob ` blobType=11 fixedSize=0003,0003`, and a line feed;
    // the number of bytes written.
    size_t write(OutStream& out) const;
    Str recordText() const;  // that record
    // Nothing in the record, read under the same code, speaks against this name: the same text, and an array of the
    // same form. A universal has its own form, whatever a log says.
    bool agreesWith(const ElementURI& record) const;
    // A new name, owned by the caller; null when the record is malformed. A blob whose type or size is impossible keeps
    // its name, loses its dimensions, and is reported once, without a logger through the current log's.
    static ElementURI* Read(InStream& in);
    static ElementURI* Read(InStream& in, const Logger& logger);

protected:
    ElementType elementType_;
    const Unit* unit_;  // a constant of the process
    BinaryDataType binaryType_;
    unsigned short code_;
    BlobType blobType_;
    unsigned short dimension1_;
    unsigned short dimension2_;
    unsigned short dimension3_;

private:
    int blobFlag() const { return blobType_ == NOT_BLOB ? 0 : BLOB_VALUE_FLAG; }
    // The rest of a blob's record; false when it is malformed.
    bool readBlobForm(InStream& in, const Logger& logger);
    void reportBlob(const Logger& logger, const char* problem, size_t number) const;
};
