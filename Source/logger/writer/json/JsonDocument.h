#pragma once

#include <cjson/cJSON.h>

#include <memory>

#include "logger/writer/json/JsonArray.h"
#include "units/Unit.h"
#include "utils/FastMap.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"

class OutStream;
class StrValue;

// What a variable has in the document: its samples and their times.
struct JsonLeaf {
    JsonLeaf(SampleStore& store, bool formatted) : values_(store, formatted), times_(store, formatted) {}

    // Adds a text or array of the element, by add when it is not still the one that came before.
    template <typename Add>
    void addOnce(unsigned short elementCode, const StrValue& value, const Add& add) {
        if (addAgain(elementCode, value)) return;
        const PackedItems::State begin = values_.beginPiece();
        add();
        remember(elementCode, value, values_.endPiece(begin));
    }
    void forget() { latest_.clear(); }  // codes stand for other elements from here on

    JsonArray values_;
    JsonArray times_;

private:
    // Of one of the elements, which are many only where they serve a universal.
    struct Latest {
        unsigned short elementCode_;
        Str bytes_;
        const Unit* unit_;
        PackedItems::Piece piece_;
    };
    Latest* latestOf(unsigned short elementCode);
    bool addAgain(unsigned short elementCode, const StrValue& value);
    void remember(unsigned short elementCode, const StrValue& value, const PackedItems::Piece& piece);

    FlexArray<Latest*> latest_{true, 1};  // owned
};

// A document of variables: the parts of their names are the names of nested objects. The names live in memory until it
// is written, the samples in a store.
// Errors: at the first one it takes nothing more; failure tells.
class JsonDocument {
public:
    explicit JsonDocument(bool formatted);  // formatted: over many lines, indented

    // Gives a name its object, with the members "value", "units" and "time"; the leaf is the document's. Null when a
    // name of equal parts has its object already.
    // Where the place of an object is taken by a member of another kind, '_' is appended to its name.
    JsonLeaf* addLeaf(const Str& name, const char* units);
    // No name has an object yet.
    bool isEmpty() const { return places_.size() == 0; }
    SampleStore& samples() { return samples_; }
    const Str& failure() const { return samples_.failure(); }  // empty while there is none

    void write(OutStream& out);  // the whole document, or nothing when there is no memory for its names
    void forgetElements();       // as the leaves do

private:
    struct DeleteTree {
        void operator()(cJSON* tree) const { cJSON_Delete(tree); }
    };
    // A leaf and the members that stand for its arrays.
    struct Place {
        JsonLeaf leaf_;
        cJSON* values_;
        cJSON* times_;
    };
    Str printNames();
    void writeArray(unsigned int number, OutStream& out);

    const bool formatted_;
    const std::unique_ptr<cJSON, DeleteTree> root_;
    SampleStore samples_;
    FastMap<Str, Place*> places_;  // owned, by the name with dots
};
