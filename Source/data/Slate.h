#pragma once

#include "data/Log.h"

class LogWriter;

// What the vehicle's components know as the Slate: the log that this thread uses (Log::Current). Each operation is that
// log's own, described there. Whoever reads or writes logs holds the Log itself.
//
//   Slate::EnableDirectoryWrites();
//   Component sensor("Depth");
//   const ElementURI uri(ElementURI::NO_CODE, "Depth.depth", ElementURI::DATA_ELEMENT, Units::METER, FLOAT3);
//   DataWriter* writer = Slate::NewOutputWriter(&sensor, uri);
//   const bool changed = writer->write(Units::METER, 1.5, t);   // what the data entry on this writer says
class Slate {
public:
    static void Construct() { log().construct(); }
    static void ClearDirectory() { log().clearDirectory(); }
    static void Uninitialize() { log().uninitialize(); }
    static void SetLogger(const Logger* logger) { log().setLogger(logger); }
    static const Logger& GetLogger() { return log().getLogger(); }

    // The directory as a whole: these stand among the log readers, and programs that call them link those.
    static void ReadDirectory(const Str& path);
    static void WriteDirectory(LogWriter* writer, bool restarted);
    static void WriteElementURIEntry(ElementURI* uri, LogWriter* writer, bool restarted);
    static void WriteNameEntry(CodedStr* name, LogWriter* writer, bool restarted);
    static void WriteDataAccessEntry(DataAccess* access, LogWriter* writer, bool restarted);
    static bool IsDirectoryRead() { return log().isDirectoryRead(); }
    static void EnableDirectoryWrites() { log().directoryWrites().enable(); }
    static void SimulateDirectoryWrites() { log().directoryWrites().simulate(); }

    static void CodifyElementURI(ElementURI& uri) { log().codifyElementURI(uri); }
    static ElementURI* RegisterElementURI(ElementURI* uri) { return log().registerElementURI(uri); }
    static void DeRegisterElementURI(ElementURI* uri) { log().deRegisterElementURI(uri); }
    static ElementURI* GetElementURI(const unsigned short& code) { return log().getElementURI(code); }
    static ElementURI* GetElementURI(const ElementURI& uri) { return log().findElementURI(uri); }
    static ElementURI* FindElementURI(const Str& name) { return log().findElementURI(name); }
    static unsigned short GetElementURICode(const char* name) { return log().getElementURICode(name); }
    static unsigned int GetElementURICount() { return log().getElementURICount(); }
    static unsigned short GetNextElementURICode() { return log().getNextElementURICode(); }

    static CodedStr* RegisterCodedName(CodedStr* name) { return log().registerCodedName(name); }
    static CodedStr* GetName(const unsigned short& code) { return log().getName(code); }
    static CodedStr* FindCodedName(const Str& name) { return log().findCodedName(name); }
    static CodedStr& GetCodedName(const Str& name) { return log().getCodedName(name); }
    static unsigned short GetNextNameCode() { return log().getNextNameCode(); }

    static DataAccess* RegisterDataAccess(DataAccess* access) { return log().registerDataAccess(access); }
    static DataAccess* GetDataAccess(const unsigned short& code) { return log().getDataAccess(code); }
    static DataAccess* GetDataAccess(const DataAccessor& accessor, UniversalDataElement* universal) {
        return log().getDataAccess(accessor, universal);
    }
    static unsigned int GetDataAccessCount() { return log().getDataAccessCount(); }
    static unsigned short GetNextDataAccessCode() { return log().getNextDataAccessCode(); }

    static DataElement* NewDataElement(const ElementURI& uri, Component* component, const Unit& unit,
                                       BinaryDataType type, float accuracy) {
        return log().newDataElement(uri, component, unit, type, accuracy);
    }
    static DataElement* NewDataElement(const ElementURI& uri, Component* component, DataValue* value, float accuracy) {
        return log().newDataElement(uri, component, value, accuracy);
    }
    static UniversalDataElement* NewUniversalElement(const UniversalURI& uri, Component* component, const Unit& unit,
                                                     BinaryDataType type) {
        return log().newUniversalElement(uri, component, unit, type);
    }
    static UniversalDataElement* NewUniversalElement(const UniversalURI& uri, Component* component,
                                                     const DataValue* value) {
        return log().newUniversalElement(uri, component, value);
    }
    static void MapDataElement(ElementURI* uri, DataElement* element) { log().mapDataElement(uri, element); }
    static void ConfigureNewDataElement(Component* component, const ElementURI& uri, DataElement*& element) {
        log().configureNewDataElement(component, uri, element);
    }
    static DataElement* GetElement(const unsigned short& code) { return log().getElement(code); }
    static DataElement* GetElement(const ElementURI& uri) { return log().getElement(uri); }

    static DataWriter* NewWriter(Component* owner, const ElementURI& uri,
                                 Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS,
                                 bool noInterpFlag = false) {
        return log().newWriter(owner, uri, precision, noInterpFlag);
    }
    static DataWriter* NewOutputWriter(Component* owner, const ElementURI& uri,
                                       Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS,
                                       bool noInterpFlag = false) {
        return log().newOutputWriter(owner, uri, precision, noInterpFlag);
    }
    static UniversalDataWriter* NewUniversalWriter(Component* owner, const ElementURI& uri,
                                                   const UniversalURI& universal,
                                                   Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS,
                                                   bool noInterpFlag = false) {
        return log().newUniversalWriter(owner, uri, universal, precision, noInterpFlag);
    }
    static DataReader* NewReader(Component* owner, const ElementURI& uri,
                                 Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS) {
        return log().newReader(owner, uri, precision);
    }
    static DataReader* NewInputReader(Component* owner, const ElementURI& uri,
                                      Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS) {
        return log().newInputReader(owner, uri, precision);
    }
    static UniversalDataReader* NewUniversalReader(
        Component* owner, const UniversalURI& universal,
        DataAccessor::RequestStrategy strategy = DataAccessor::MIN_ERROR,
        Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS) {
        return log().newUniversalReader(owner, universal, strategy, precision);
    }

    // One-shot access without an attachment, by name (ElementURI) or code (unsigned short). False without such an
    // element, and for a read when it was never set or the unit does not fit; a write says whether the value changed.
    template <typename Key, typename T>
    static bool ReadOnce(const Key& key, const Unit& unit, T& value) {
        const DataElement* const element = GetElement(key);
        return element != nullptr && element->hasValue() && element->getDataValue()->copyTo(unit, value);
    }
    template <typename Key>
    static bool ReadOnce(const Key& key, DataValue& value) {
        const DataElement* const element = GetElement(key);
        return element != nullptr && element->hasValue() && element->getDataValue()->copyTo(value);
    }
    template <typename Key, typename T>
    static bool WriteOnce(const Key& key, const Unit& unit, const T& value, const Timestamp& t) {
        DataElement* const element = GetElement(key);
        return element != nullptr && element->set(unit, value, t);
    }
    template <typename Key>
    static bool WriteOnce(const Key& key, const DataValue& value, const Timestamp& t) {
        DataElement* const element = GetElement(key);
        return element != nullptr && element->set(value, t);
    }

private:
    static Log& log() { return Log::Current(); }
};
