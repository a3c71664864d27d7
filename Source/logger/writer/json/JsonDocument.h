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
    explicit JsonLeaf(bool formatted) : values_(formatted), times_(formatted) {}

    // Adds a text or array of the element, by add when it is not still the one that came before.
    template <typename Add>
    void addOnce(unsigned short elementCode, const StrValue& value, const Add& add) {
        if (addAgain(elementCode, value)) return;
        const size_t place = values_.nextPlace();
        add();
        remember(elementCode, value, place);
    }
    void forget() { latest_.clear(); }  // codes stand for other elements from here on
    bool isRefused() const { return values_.isRefused() || times_.isRefused(); }

    JsonArray values_;
    JsonArray times_;

private:
    // Of one of the elements, which are many only where they serve a universal.
    struct Latest {
        unsigned short elementCode_;
        Str bytes_;
        const Unit* unit_;
        size_t place_;  // of its text
        size_t length_;
    };
    Latest* latestOf(unsigned short elementCode);
    bool addAgain(unsigned short elementCode, const StrValue& value);
    void remember(unsigned short elementCode, const StrValue& value, size_t place);

    FlexArray<Latest*> latest_{true, 1};  // owned
};

// A document of variables: their names, split at each '.', are the names of nested objects. It lives in memory until
// it is written.
class JsonDocument {
public:
    explicit JsonDocument(bool formatted);  // formatted: over many lines, indented

    // Gives a name its object, with the members "value", "units" and "time"; the leaf is the document's. ':' and '/'
    // in a name count as '.'. Null when a name that is equal then has its object already.
    // Where the place of an object is taken by a member of another kind, '_' is appended to its name.
    JsonLeaf* addLeaf(const Str& name, const char* units);
    // No name has an object yet.
    bool isEmpty() const { return places_.size() == 0; }
    bool isRefused() const { return refused_; }  // there was no memory for an object
    size_t heldBytes() const;                    // of the samples

    // The whole document. False, with nothing written, when there is no memory for its names.
    bool write(OutStream& out);
    void forgetElements();  // as the leaves do

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
    FastMap<Str, Place*> places_;  // owned, by the name with dots
    bool refused_ = false;
};
