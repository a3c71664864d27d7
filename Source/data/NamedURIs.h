#pragma once

#include "data/ElementURI.h"

// The kinds of component-scoped names. All codify themselves, so they are for names that live as long as the process.

// A datum that a component measures or computes.
class DataURI : public ElementURI {
public:
    DataURI(const Str& component, const Str& element, const Unit& unit = UNSPECIFIED_UNIT,
            BinaryDataType binaryType = NO_TYPE)
        : ElementURI(component, element, DATA_ELEMENT, unit, binaryType) {}
};

// A datum whose value is an array of up to three dimensions, or of any length when none is given.
class BlobURI : public ElementURI {
public:
    BlobURI(const Str& component, const Str& element, const Unit& unit, BlobType blobType,
            unsigned short dimension1 = 0, unsigned short dimension2 = 0, unsigned short dimension3 = 0)
        : ElementURI(component, element, DATA_ELEMENT, unit, STRVALUE, blobType, dimension1, dimension2, dimension3) {}
};

// What a mission sets on a component.
class SettingURI : public ElementURI {
public:
    SettingURI(const Str& component, const Str& element, const Unit& unit = UNSPECIFIED_UNIT,
               BinaryDataType binaryType = NO_TYPE)
        : ElementURI(component, element, SETTING_ELEMENT, unit, binaryType) {}
};

// What the vehicle's configuration fixes.
class ConfigURI : public ElementURI {
public:
    static ConfigURI NO_CONFIG_URI;  // the empty name

    ConfigURI(const Str& component, const Str& element, const Unit& unit = UNSPECIFIED_UNIT,
              BinaryDataType binaryType = NO_TYPE)
        : ElementURI(component, element, CONFIG_ELEMENT, unit, binaryType) {}
};
