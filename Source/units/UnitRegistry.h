#pragma once

#include "utils/FastMap.h"
#include "utils/Str.h"

class Unit;

// Finds a unit by its name or its abbreviation, both keys of one sorted map. It does not own the units.
// Threads: filled while the process starts, on one thread; read without a lock afterwards.
class UnitRegistry {
public:
    // Called by every unit. A key that is taken already is reported on standard error and skipped, except an
    // abbreviation of an equal unit, which is skipped silently.
    static void AddUnit(const Unit* unit);
    static const Unit* FindUnit(const Str& key);   // exact and case-sensitive; null when there is none
    static unsigned int Size();                    // number of keys, more than there are units
    static Str GetIndexedKey(unsigned int index);  // names and abbreviations in byte order; empty when out of range
    static const Unit* GetIndexedUnit(unsigned int index);  // of that key; null when out of range

private:
    typedef FastMap<const Str, const Unit*> UnitMap;

    UnitRegistry() = default;
    void addName(const Unit* unit);
    void addAbbreviation(const Unit* unit);

    UnitMap unitMap_;

    static UnitRegistry* Instance_;  // owned; made on the first AddUnit
    struct StaticDestructor {
        ~StaticDestructor();
    };
    static StaticDestructor StaticDestructor_;
};
