#include "logger/writer/json/JsonDocument.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "data/StrValue.h"
#include "io/OutStream.h"
#include "logger/writer/NameParts.h"
#include "utils/Utf8.h"

static const char* const VALUE = "value";
static const char* const UNITS = "units";
static const char* const TIME = "time";

// Stands in the text of the names, with a number behind it, for an array; the library writes no such character itself.
static const char MARK = '\x01';

JsonLeaf::Latest* JsonLeaf::latestOf(unsigned short elementCode) {
    for (unsigned int i = 0; i < latest_.size(); ++i) {
        if (latest_.at(i)->elementCode_ == elementCode) return latest_.at(i);
    }
    return nullptr;
}

// Short ones are kept as soon as they are compared.
void JsonLeaf::remember(unsigned short elementCode, const StrValue& value, const PackedItems::Piece& piece) {
    static const size_t SHORT_LENGTH = 32;
    Latest* latest = latestOf(elementCode);
    if (latest == nullptr && piece.length_ <= SHORT_LENGTH) return;
    if (latest == nullptr) latest_.push(latest = new Latest{elementCode, Str(), nullptr, {}});
    latest->bytes_ = value.getValue();
    latest->unit_ = value.getUnit();
    latest->piece_ = piece;
}

bool JsonLeaf::addAgain(unsigned short elementCode, const StrValue& value) {
    const Latest* const latest = latestOf(elementCode);
    if (latest == nullptr || latest->unit_ != value.getUnit() || latest->bytes_ != value.getValue()) return false;
    values_.addAgain(latest->piece_, 1);
    return true;
}

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

// A member that is written as it stands, which is not known yet; null without memory.
static cJSON* AddArray(cJSON* object, const char* name) {
    cJSON* const item = cJSON_CreateStringReference("");
    if (item == nullptr || !cJSON_AddItemToObject(object, name, item)) {
        cJSON_Delete(item);
        return nullptr;
    }
    item->type = cJSON_Raw | cJSON_IsReference;
    return item;
}

JsonLeaf* JsonDocument::addLeaf(const Str& name, const char* units) {
    const NameParts parts(name);
    if (places_.get(parts.path()) != nullptr) return nullptr;
    cJSON* object = root_.get();
    for (int i = 0; i < parts.groupCount(); ++i) object = FindOrAdd(object, parts.group(i), CanBeParent);
    object = FindOrAdd(object, parts.last(), CanBecomeLeaf);
    cJSON* const values = AddArray(object, VALUE);
    const bool hasUnits = cJSON_AddStringToObject(object, UNITS, units) != nullptr;
    cJSON* const times = AddArray(object, TIME);
    if (values == nullptr || !hasUnits || times == nullptr) samples_.refuse(ENOMEM);
    if (samples_.isRefused()) return nullptr;
    Place* const place = new Place{JsonLeaf(samples_, formatted_), values, times};
    places_.put(parts.path(), place, true);
    return &place->leaf_;
}

void JsonDocument::forgetElements() {
    for (unsigned int i = 0; i < places_.size(); ++i) places_.getIndexed(i)->leaf_.forget();
}

// The document with a mark for each array; empty without memory.
Str JsonDocument::printNames() {
    static const size_t MARK_ROOM = 16;
    const std::unique_ptr<char[]> marks(new char[2 * MARK_ROOM * places_.size()]);
    char* mark = marks.get();
    for (unsigned int i = 0; i < 2 * places_.size(); ++i, mark += MARK_ROOM) {
        const Place& place = *places_.getIndexed(i / 2);
        snprintf(mark, MARK_ROOM, "%c%u", MARK, i);
        (i % 2 == 0 ? place.values_ : place.times_)->valuestring = mark;
    }
    const std::unique_ptr<char, void (*)(void*)> text(
        formatted_ ? cJSON_Print(root_.get()) : cJSON_PrintUnformatted(root_.get()), cJSON_free);
    return Str(text.get());
}

void JsonDocument::writeArray(unsigned int number, OutStream& out) {
    JsonLeaf& leaf = places_.getIndexed(number / 2)->leaf_;
    (number % 2 == 0 ? leaf.values_ : leaf.times_).write(out);
}

void JsonDocument::write(OutStream& out) {
    const Str names = printNames();
    if (names.isEmpty()) return samples_.refuse(ENOMEM);
    const char* at = names.cStr();
    while (const char* const mark = strchr(at, MARK)) {
        out.write(at, static_cast<size_t>(mark - at));
        char* end = nullptr;
        writeArray(static_cast<unsigned int>(strtoul(mark + 1, &end, 10)), out);
        at = end;
    }
    out << at << '\n';
}
