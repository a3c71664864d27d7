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
    // The log as a whole; a logger is borrowed and may be null.
    static void Construct() { CurrentLog().construct(); }
    static void ClearDirectory() { CurrentLog().clearDirectory(); }
    static void Uninitialize() { CurrentLog().uninitialize(); }
    static void SetLogger(const Logger* logger) { CurrentLog().setLogger(logger); }
    static const Logger& GetLogger() { return CurrentLog().getLogger(); }

    // The directory as a whole: these stand among the log readers, and programs that call them link those.
    static void ReadDirectory(const Str& path);
    // The writer, which may be null, is borrowed for the call. restarted, of a writer that begins a file anew, makes no
    // difference: what is asked for is written in either case.
    static void WriteDirectory(LogWriter* writer, bool restarted);
    static void WriteElementURIEntry(ElementURI* uri, LogWriter* writer, bool restarted);
    static void WriteNameEntry(CodedStr* name, LogWriter* writer, bool restarted);
    static void WriteDataAccessEntry(DataAccess* access, LogWriter* writer, bool restarted);
    static bool IsDirectoryRead() { return CurrentLog().isDirectoryRead(); }
    // New items get codes and entries from here on; or, simulated, codes alone.
    static void EnableDirectoryWrites() { CurrentLog().directoryWrites().enable(); }
    static void SimulateDirectoryWrites() { CurrentLog().directoryWrites().simulate(); }

    // Element names: what is given to Register is taken over, what is found is the log's, null or NO_CODE when there is
    // none.
    static void CodifyElementURI(ElementURI& uri) { CurrentLog().codifyElementURI(uri); }
    static ElementURI* RegisterElementURI(ElementURI* uri) { return CurrentLog().registerElementURI(uri); }
    static void DeRegisterElementURI(ElementURI* uri) { CurrentLog().deRegisterElementURI(uri); }
    static ElementURI* GetElementURI(const unsigned short& code) { return CurrentLog().getElementURI(code); }
    static ElementURI* GetElementURI(const ElementURI& uri) { return CurrentLog().findElementURI(uri); }
    static ElementURI* FindElementURI(const Str& name) { return CurrentLog().findElementURI(name); }
    static unsigned short GetElementURICode(const char* name) { return CurrentLog().getElementURICode(name); }
    static unsigned int GetElementURICount() { return CurrentLog().getElementURICount(); }
    static unsigned short GetNextElementURICode() { return CurrentLog().getNextElementURICode(); }

    // Coded names, alike.
    static CodedStr* RegisterCodedName(CodedStr* name) { return CurrentLog().registerCodedName(name); }
    static CodedStr* GetName(const unsigned short& code) { return CurrentLog().getName(code); }
    static CodedStr* FindCodedName(const Str& name) { return CurrentLog().findCodedName(name); }
    static CodedStr& GetCodedName(const Str& name) { return CurrentLog().getCodedName(name); }
    static unsigned short GetNextNameCode() { return CurrentLog().getNextNameCode(); }

    // Data accesses, alike.
    static DataAccess* RegisterDataAccess(DataAccess* access) { return CurrentLog().registerDataAccess(access); }
    static DataAccess* GetDataAccess(const unsigned short& code) { return CurrentLog().getDataAccess(code); }
    static DataAccess* GetDataAccess(const DataAccessor& accessor, UniversalDataElement* universal) {
        return CurrentLog().getDataAccess(accessor, universal);
    }
    static unsigned int GetDataAccessCount() { return CurrentLog().getDataAccessCount(); }
    static unsigned short GetNextDataAccessCode() { return CurrentLog().getNextDataAccessCode(); }

    // Elements, owned by the log, which takes values and mapped elements over; accuracies are in the base unit. Null
    // where there is none.
    static DataElement* NewDataElement(const ElementURI& uri, Component* component, const Unit& unit,
                                       BinaryDataType type, float accuracy) {
        return CurrentLog().newDataElement(uri, component, unit, type, accuracy);
    }
    static DataElement* NewDataElement(const ElementURI& uri, Component* component, DataValue* value, float accuracy) {
        return CurrentLog().newDataElement(uri, component, value, accuracy);
    }
    static UniversalDataElement* NewUniversalElement(const UniversalURI& uri, Component* component, const Unit& unit,
                                                     BinaryDataType type) {
        return CurrentLog().newUniversalElement(uri, component, unit, type);
    }
    static UniversalDataElement* NewUniversalElement(const UniversalURI& uri, Component* component,
                                                     const DataValue* value) {
        return CurrentLog().newUniversalElement(uri, component, value);
    }
    static void MapDataElement(ElementURI* uri, DataElement* element) { CurrentLog().mapDataElement(uri, element); }
    static void ConfigureNewDataElement(Component* component, const ElementURI& uri, DataElement*& element) {
        CurrentLog().configureNewDataElement(component, uri, element);
    }
    static DataElement* GetElement(const unsigned short& code) { return CurrentLog().getElement(code); }
    static DataElement* GetElement(const ElementURI& uri) { return CurrentLog().getElement(uri); }

    // A component's accesses, owned by the log. The component outlives them; uri may be short-lived.
    static DataWriter* NewWriter(Component* owner, const ElementURI& uri,
                                 Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS,
                                 bool noInterpFlag = false) {
        return CurrentLog().newWriter(owner, uri, precision, noInterpFlag);
    }
    static DataWriter* NewOutputWriter(Component* owner, const ElementURI& uri,
                                       Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS,
                                       bool noInterpFlag = false) {
        return CurrentLog().newOutputWriter(owner, uri, precision, noInterpFlag);
    }
    static UniversalDataWriter* NewUniversalWriter(Component* owner, const ElementURI& uri,
                                                   const UniversalURI& universal,
                                                   Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS,
                                                   bool noInterpFlag = false) {
        return CurrentLog().newUniversalWriter(owner, uri, universal, precision, noInterpFlag);
    }
    static DataReader* NewReader(Component* owner, const ElementURI& uri,
                                 Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS) {
        return CurrentLog().newReader(owner, uri, precision);
    }
    static DataReader* NewInputReader(Component* owner, const ElementURI& uri,
                                      Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS) {
        return CurrentLog().newInputReader(owner, uri, precision);
    }
    static UniversalDataReader* NewUniversalReader(
        Component* owner, const UniversalURI& universal,
        DataAccessor::RequestStrategy strategy = DataAccessor::MIN_ERROR,
        Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS) {
        return CurrentLog().newUniversalReader(owner, universal, strategy, precision);
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
    static Log& CurrentLog() { return Log::Current(); }
};
