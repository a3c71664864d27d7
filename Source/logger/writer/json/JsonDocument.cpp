#include "logger/writer/json/JsonDocument.h"

#include <cstring>
#include <memory>

#include "io/OutStream.h"
#include "utils/Utf8.h"

static const char* const VALUE = "value";
static const char* const UNITS = "units";
static const char* const TIME = "time";

JsonDocument::JsonDocument(bool formatted) : formatted_(formatted), root_(cJSON_CreateObject()) {}

static bool HasMember(const cJSON* object, const char* name) {
    return cJSON_GetObjectItemCaseSensitive(object, name) != nullptr;
}

static bool CanBeParent(const cJSON* member) {
    return cJSON_IsObject(member);
}

// Neither a leaf nor a parent of objects with a leaf's names.
static bool CanBecomeLeaf(const cJSON* member) {
    return CanBeParent(member) && !HasMember(member, VALUE) && !HasMember(member, UNITS) && !HasMember(member, TIME);
}

// The first member that fits of those with the name and any number of '_' behind it; made if need be.
static cJSON* FindOrAdd(cJSON* parent, const Str& name, bool (*fits)(const cJSON* member)) {
    for (Str tried = Utf8::Sanitized(name, Utf8::REPLACE_NUL);; tried += "_") {
        cJSON* const member = cJSON_GetObjectItemCaseSensitive(parent, tried.cStr());
        if (member == nullptr) return cJSON_AddObjectToObject(parent, tried.cStr());
        if (fits(member)) return member;
    }
}

// A member whose text is borrowed, and not known yet.
static cJSON* AddArray(cJSON* object, const char* name) {
    cJSON* const item = cJSON_CreateStringReference("[]");
    item->type = cJSON_Raw | cJSON_IsReference;
    cJSON_AddItemToObject(object, name, item);
    return item;
}

JsonLeaf* JsonDocument::addLeaf(const Str& name, const char* units) {
    Str path(name);
    path.replaceChar(':', '.');
    path.replaceChar('/', '.');
    if (places_.get(path) != nullptr) return nullptr;
    cJSON* object = root_.get();
    size_t begin = 0;
    for (size_t dot = path.find('.'); dot != Str::NO_POS; dot = path.find('.', begin)) {
        object = FindOrAdd(object, path.substr(begin, dot - begin), CanBeParent);
        begin = dot + 1;
    }
    object = FindOrAdd(object, path.substr(begin), CanBecomeLeaf);
    cJSON* const values = AddArray(object, VALUE);
    cJSON_AddStringToObject(object, UNITS, units);
    Place* const place = new Place{JsonLeaf(formatted_), values, AddArray(object, TIME)};
    places_.put(path, place, true);
    return &place->leaf_;
}

bool JsonDocument::write(OutStream& out) {
    for (unsigned int i = 0; i < places_.size(); ++i) {
        Place& place = *places_.getIndexed(i);
        place.values_->valuestring = const_cast<char*>(place.leaf_.values_.finish());
        place.times_->valuestring = const_cast<char*>(place.leaf_.times_.finish());
    }
    const std::unique_ptr<char, void (*)(void*)> text(
        formatted_ ? cJSON_Print(root_.get()) : cJSON_PrintUnformatted(root_.get()), cJSON_free);
    if (text == nullptr) return false;
    out << text.get() << '\n';
    return true;
}
