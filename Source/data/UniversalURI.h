#pragma once

#include "data/ElementURI.h"

// A standard name without a component: a quantity that many components can supply, with a fixed unit.
class UniversalURI : public ElementURI {
public:
    // Codifies itself like other names of static life: for those of the catalogue.
    explicit UniversalURI(const char* name, const Unit& unit = UNSPECIFIED_UNIT, BinaryDataType binaryType = NO_TYPE,
                          BlobType blobType = NOT_BLOB, unsigned short dimension1 = 0, unsigned short dimension2 = 0,
                          unsigned short dimension3 = 0);

    bool isUniversal() const override { return true; }
    static UniversalURI* FindURI(const Str& name);  // null when the text names no universal

    static const Str NAME;  // what stands for all of them where a component's name would stand

    // The catalogue, built before main in the order of UniversalCatalogue.inc. Codes change while a log is read.
#define UNIVERSAL(member, name, unit) static UniversalURI member;
#define UNIVERSAL_TYPED(member, name, unit, type) static UniversalURI member;
#define UNIVERSAL_BLOB(member, name, unit, ...) static class UniversalBlobURI member;
#include "data/UniversalCatalogue.inc"
#undef UNIVERSAL
#undef UNIVERSAL_TYPED
#undef UNIVERSAL_BLOB

    // All of them, in that order.
    enum : unsigned int {
        CATALOGUE_SIZE = 0
#define UNIVERSAL(...) +1
#define UNIVERSAL_TYPED(...) +1
#define UNIVERSAL_BLOB(...) +1
#include "data/UniversalCatalogue.inc"
#undef UNIVERSAL
#undef UNIVERSAL_TYPED
#undef UNIVERSAL_BLOB
    };
    static UniversalURI* const CATALOGUE[CATALOGUE_SIZE];
};

// A universal whose value is an array.
class UniversalBlobURI : public UniversalURI {
public:
    UniversalBlobURI(const char* name, const Unit& unit, BlobType blobType, unsigned short dimension1,
                     unsigned short dimension2 = 0, unsigned short dimension3 = 0)
        : UniversalURI(name, unit, STRVALUE, blobType, dimension1, dimension2, dimension3) {}
};
