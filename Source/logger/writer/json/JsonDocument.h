#pragma once

#include <cjson/cJSON.h>

#include <memory>

#include "logger/writer/json/JsonArray.h"
#include "utils/FastMap.h"
#include "utils/Str.h"

class OutStream;

// What a variable has in the document: its samples and their times.
struct JsonLeaf {
    explicit JsonLeaf(bool formatted) : values_(formatted), times_(formatted) {}

    JsonArray values_;
    JsonArray times_;
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
    bool isEmpty() const { return places_.size() == 0; }

    // The whole document; it takes no more samples then. False, with nothing written, when its text would pass 2 GB or
    // does not fit into memory.
    bool write(OutStream& out);

private:
    struct DeleteTree {
        void operator()(cJSON* tree) const { cJSON_Delete(tree); }
    };
    // A leaf's object waits for the texts of its arrays.
    struct Place {
        JsonLeaf leaf_;
        cJSON* values_;
        cJSON* times_;
    };

    const bool formatted_;
    const std::unique_ptr<cJSON, DeleteTree> root_;
    FastMap<Str, Place*> places_;  // owned, by the name with dots
};
