#pragma once

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "data/BlobValue.h"
#include "data/DataAccess.h"
#include "data/Slate.h"
#include "data/StrValue.h"
#include "logger/entry/DataEntry.h"
#include "logger/entry/DirectoryEntry.h"
#include "logger/entry/EventEntry.h"
#include "logger/entry/SyslogEntry.h"
#include "units/Units.h"

// A log made entry by entry, for the tests of whatever takes entries. What the entries speak of is declared in the
// Slate as reading a log's directory would, with codes from 0 in the order of declaration; entries are owned by the
// log. As long as it lives, its state is that of the current log.
//
//   SmallLog log;
//   DataAccess* depth = log.declare("Depth.depth", Units::METER, FLOAT3);
//   writer.write(log.cycle(0), nullptr);
//   writer.write(log.data(depth, 0.4, 1.5), nullptr);      // 1.5 m, 0.4 s after the start
//   writer.write(log.syslog(0.5, "hello"), nullptr);
//
// Names are "component.element". Times are seconds after the start, to the microsecond; numbers are in the unit
// declared.
class SmallLog {
public:
    static constexpr int START = 1338553800;  // 2012-06-01T12:30:00Z

    SmallLog() : own_(new Log(&Slate::GetLogger())), slate_(*own_) { slate_.clearDirectory(); }
    // The next input of a run whose inputs have one state after the other.
    explicit SmallLog(Log& run) : slate_(run) { slate_.clearDirectory(); }
    SmallLog(const SmallLog&) = delete;
    SmallLog& operator=(const SmallLog&) = delete;

    static Timestamp At(double seconds) {
        const long long micros = std::llround(seconds * 1e6);
        return Timestamp(static_cast<int>(START + micros / 1000000), static_cast<unsigned int>(micros % 1000000));
    }

    // Declarations; each gives the access that data entries are made with, owned by the Slate.
    DataAccess* declare(const char* name, const Unit& unit = Units::NONE, BinaryDataType type = DOUBLE8,
                        ElementURI::ElementType kind = ElementURI::DATA_ELEMENT) {
        return declareAccess(componentOf(name), declareElement(name, kind), DataAccess::NO_CODE, unit, type);
    }
    DataAccess* declareSetting(const char* name, const Unit& unit = Units::NONE, BinaryDataType type = DOUBLE8) {
        return declare(name, unit, type, ElementURI::SETTING_ELEMENT);
    }
    // An access that never gets a type: no value comes through it.
    DataAccess* declareUntyped(const char* name, const Unit& unit = Units::NONE) {
        return declare(name, unit, NO_TYPE);
    }
    DataAccess* declareText(const char* name) { return declare(name, Units::NONE, STRVALUE); }
    DataAccess* declareBlob(const char* name, const Unit& unit, BlobType blobType, unsigned short dimension1 = 0,
                            unsigned short dimension2 = 0, unsigned short dimension3 = 0) {
        const ElementURI* element =
            declareElement(name, ElementURI::DATA_ELEMENT, blobType, dimension1, dimension2, dimension3);
        return declareAccess(componentOf(name), element, DataAccess::NO_CODE, unit, STRVALUE);
    }
    // An element whose best values count as the universal's too; the log then knows the universal by name. The name may
    // be the universal's own.
    DataAccess* declareServing(const char* universal, const char* name, const Unit& unit = Units::NONE,
                               BinaryDataType type = DOUBLE8) {
        const ElementURI* served = declareElement(universal, ElementURI::UNIVERSAL_ELEMENT);
        const ElementURI* element = declareElement(name);
        const unsigned short code = element == served ? ElementURI::SELF_CODE : served->getCode();
        return declareAccess(componentOf(name), element, code, unit, type);
    }
    // Another component's reading of a declared element.
    DataAccess* declareReader(const char* component, const DataAccess* of) {
        return declareAccess(component, Slate::GetElementURI(of->getElementCode()), of->getUniversalCode(),
                             *of->getUnit(), of->getBinaryType(), DataAccessor::DATA_READER);
    }
    // From here on a name that is not declared counts as one that the log does not hold.
    void endDirectory() { slate_.setDirectoryRead(); }

    // Entries, in the order of the clock or not, owned by the log.
    DataEntry* data(DataAccess* access, double seconds, double number) {
        return keep(dataEntry(access, seconds, access->getUnit()->dataValue(number, access->getBinaryType()), false));
    }
    DataEntry* bestData(DataAccess* access, double seconds, double number) {
        return keep(dataEntry(access, seconds, access->getUnit()->dataValue(number, access->getBinaryType()), true));
    }
    DataEntry* text(DataAccess* access, double seconds, const Str& text) {
        return keep(dataEntry(access, seconds, new StrValue(text), false));
    }
    // The elements as they lie in memory: their type must be that of the declaration.
    template <typename T>
    DataEntry* blob(DataAccess* access, double seconds, const std::vector<T>& elements) {
        BlobValue* value = new BlobValue(*Slate::GetElementURI(access->getElementCode()));
        value->fromBinary(elements.data(), static_cast<unsigned short>(elements.size() * sizeof(T)));
        value->setUnit(*access->getUnit());
        return keep(dataEntry(access, seconds, value, false));
    }
    EventEntry* cycle(double seconds) { return keep(new EventEntry(At(seconds))); }
    EventEntry* running(const char* component, double seconds, int loop) {
        return keep(new EventEntry(At(seconds), declareName(component)->getCode(), loop));
    }
    SyslogEntry* syslog(double seconds, const Str& message, Syslog::Severity severity = Syslog::INFO,
                        const char* facility = "Mission") {
        return keep(new SyslogEntry(message, severity, *declareName(facility), At(seconds)));
    }
    DirectoryEntry* version(short number) { return keep(new DirectoryEntry(number)); }
    DirectoryEntry* nameEntry(const DataAccess* access) {
        return keep(new DirectoryEntry(Slate::GetName(access->getOwnerCode())));
    }
    DirectoryEntry* elementEntry(const DataAccess* access) {
        return keep(new DirectoryEntry(Slate::GetElementURI(access->getElementCode())));
    }
    DirectoryEntry* universalEntry(const DataAccess* access) {
        return keep(new DirectoryEntry(Slate::GetElementURI(access->getUniversalCode())));
    }
    DirectoryEntry* accessEntry(DataAccess* access) { return keep(new DirectoryEntry(access)); }

private:
    static constexpr unsigned short TEXT_SIZE = 1;  // of an access: not 0, which would say that its type is not known

    static std::string componentOf(const std::string& name) { return name.substr(0, name.find('.')); }

    static CodedStr* declareName(const std::string& name) {
        CodedStr* known = Slate::FindCodedName(name.c_str());
        return known != nullptr ? known
                                : Slate::RegisterCodedName(new CodedStr(name.c_str(), Slate::GetNextNameCode()));
    }
    static ElementURI* declareElement(const char* name, ElementURI::ElementType kind = ElementURI::DATA_ELEMENT,
                                      BlobType blobType = NOT_BLOB, unsigned short dimension1 = 0,
                                      unsigned short dimension2 = 0, unsigned short dimension3 = 0) {
        ElementURI* known = Slate::FindElementURI(name);
        if (known != nullptr && known->hasCode()) return known;
        return Slate::RegisterElementURI(new ElementURI(Slate::GetNextElementURICode(), name, kind,
                                                        ElementURI::UNSPECIFIED_UNIT, NO_TYPE, blobType, dimension1,
                                                        dimension2, dimension3));
    }
    static DataAccess* declareAccess(const std::string& owner, const ElementURI* element, unsigned short universalCode,
                                     const Unit& unit, BinaryDataType type,
                                     DataAccessor::AccessorType accessorType = DataAccessor::DATA_WRITER) {
        return Slate::RegisterDataAccess(new DataAccess(declareName(owner)->getCode(), element->getCode(),
                                                        universalCode, unit.getName(), type, SizeOf(unit, type),
                                                        Slate::GetNextDataAccessCode(), accessorType));
    }
    static unsigned short SizeOf(const Unit& unit, BinaryDataType type) {
        if (type == STRVALUE) return TEXT_SIZE;
        if (type == NO_TYPE) return 0;
        const std::unique_ptr<DataValue> value(unit.dataValue(type));
        return static_cast<unsigned short>(value->getTypeSize());
    }
    static DataEntry* dataEntry(DataAccess* access, double seconds, DataValue* value, bool best) {
        return new DataEntry(access, value, At(seconds), best, true);
    }
    template <typename Entry>
    Entry* keep(Entry* entry) {
        entries_.emplace_back(entry);
        return entry;
    }

    const std::unique_ptr<Log> own_;
    Log& slate_;
    const Log::Use use_{slate_};
    std::vector<std::unique_ptr<LogEntry>> entries_;
};
