#include "data/UniversalURI.h"

#include "data/Log.h"
#include "units/Units.h"
#include "utils/StaticOrder.h"

const Str UniversalURI::NAME STATIC_ORDER(STATIC_ORDER_NAMES)("Universal");

#define UNIVERSAL(member, ...) UniversalURI UniversalURI::member STATIC_ORDER(STATIC_ORDER_UNIVERSALS)(__VA_ARGS__);
#define UNIVERSAL_TYPED(...) UNIVERSAL(__VA_ARGS__)
#define UNIVERSAL_BLOB(member, ...) \
    UniversalBlobURI UniversalURI::member STATIC_ORDER(STATIC_ORDER_UNIVERSALS)(__VA_ARGS__);
#include "data/UniversalCatalogue.inc"
#undef UNIVERSAL
#undef UNIVERSAL_TYPED
#undef UNIVERSAL_BLOB

UniversalURI* const UniversalURI::CATALOGUE[CATALOGUE_SIZE] = {
#define UNIVERSAL(member, ...) &member,
#define UNIVERSAL_TYPED(member, ...) &member,
#define UNIVERSAL_BLOB(member, ...) &member,
#include "data/UniversalCatalogue.inc"
#undef UNIVERSAL
#undef UNIVERSAL_TYPED
#undef UNIVERSAL_BLOB
};

UniversalURI::UniversalURI(const char* name, const Unit& unit, BinaryDataType binaryType, BlobType blobType,
                           unsigned short dimension1, unsigned short dimension2, unsigned short dimension3)
    : ElementURI("", name, UNIVERSAL_ELEMENT, unit, binaryType, blobType, dimension1, dimension2, dimension3) {}

UniversalURI* UniversalURI::FindURI(const Str& name) {
    ElementURI* uri = Log::Current().findElementURI(name);
    return uri != nullptr && uri->isUniversal() ? static_cast<UniversalURI*>(uri) : nullptr;
}
