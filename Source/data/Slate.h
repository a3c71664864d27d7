#pragma once

#include "data/CodedStr.h"
#include "data/DataAccess.h"
#include "data/DataElement.h"
#include "data/ElementURI.h"
#include "data/UniversalURI.h"
#include "utils/FastMap.h"
#include "utils/FlexArray.h"
#include "utils/Mutex.h"

class Component;
class DataReader;
class DataWriter;
class LogEngine;
class LogWriter;
class Logger;

// The process-wide registry of everything that has a code in the log: element names, coded names, data accesses and
// the elements that hold current values. Writers of a log ask it for codes; readers register what a log's directory
// says and then resolve each entry's codes, by array read.
// Ownership: the Slate owns what is registered in it, except universals and other names of static life.
// Threads: names, coded names and accesses have a lock each; an operation takes only its own.
class Slate {
public:
    static void Construct();          // idempotent; every operation calls it
    // Forgets every code, name, access and element value. Objects live on until Uninitialize, since writers may still
    // hold entries that point to them.
    static void ClearDirectory();
    static void Uninitialize();       // releases everything but the universals

    // Reads the directory records of the log or side file at path (its numbered parts included) and registers them.
    // Values are passed over. DirectoryRead_ becomes true when at least one record was registered.
    static void ReadDirectory(const Str& path);
    // The same, saying whether messages about the file are shown (they are not when the log is read again later).
    static void ReadDirectory(const Str& path, bool showMessages);
    static bool IsDirectoryRead() { return DirectoryRead_; }

    static void EnableDirectoryWrites() { DirectoryWritesEnabled_ = true; }       // new names get a code and an entry
    static void SimulateDirectoryWrites() { DirectoryWritesSimulated_ = true; }   // new names get a code only
    static void StopDirectoryWrites();
    // Gives every item without a code the next one and writes the whole directory to the writer; with a null writer
    // only the entries of items that have just been given a code, to the directory engine.
    static void WriteDirectory(LogWriter* writer, bool restarted);
    static void WriteElementURIEntry(ElementURI* uri, LogWriter* writer, bool restarted);
    static void WriteNameEntry(CodedStr* name, LogWriter* writer, bool restarted);
    static void WriteDataAccessEntry(DataAccess* access, LogWriter* writer, bool restarted);
    // Where directory entries without a writer go; borrowed, null (as at the start) means nowhere.
    static void SetDirectoryEngine(LogEngine* engine) { DirectoryEngine_ = engine; }

    // Element names. Register takes ownership of uri: the result is the registered name, or null (uri deleted) for a
    // code that is out of range or taken by another name.
    static void CodifyElementURI(ElementURI& uri);
    static ElementURI* RegisterElementURI(ElementURI* uri);
    static void DeRegisterElementURI(ElementURI* uri);
    static ElementURI* GetElementURI(const unsigned short& code) { return ElementURIArray_.at(code); }
    static ElementURI* GetElementURI(const ElementURI& uri);
    static ElementURI* FindElementURI(const Str& name);            // exact, also a universal without a code
    static unsigned short GetElementURICode(const char* name);     // ElementURI::NO_CODE when not in the log
    static unsigned int GetElementURICount();                      // names that have a code

    // Coded names, alike.
    static CodedStr* RegisterCodedName(CodedStr* name);
    static CodedStr* GetName(const unsigned short& code) { return NameArray_.at(code); }
    static CodedStr* FindCodedName(const Str& name);               // null when unknown
    static CodedStr& GetCodedName(const Str& name);                // registered with the next code when new

    // Data accesses, alike.
    static DataAccess* RegisterDataAccess(DataAccess* access);
    static DataAccess* GetDataAccess(const unsigned short& code) { return DataAccessArray_.at(code); }
    static DataAccess* GetDataAccess(const DataAccessor& accessor, UniversalDataElement* universal);   // made when new
    static unsigned int GetDataAccessCount();
    // The access that describes an element: in ascending code, for a universal code those that serve it, failing any,
    // as for every other code, those of that element; the first with a known type, else the first. Null when none.
    static DataAccess* FindDescribingAccess(unsigned short elementCode, bool isUniversal);

    // Elements, owned by the Slate; values given are taken over (NewUniversalElement copies).
    static DataElement* NewDataElement(const ElementURI& uri, Component* component, const Unit& unit,
                                       BinaryDataType type, float accuracy);
    static DataElement* NewDataElement(const ElementURI& uri, Component* component, DataValue* value, float accuracy);
    static UniversalDataElement* NewUniversalElement(const UniversalURI& uri, Component* component, const Unit& unit,
                                                     BinaryDataType type);
    static UniversalDataElement* NewUniversalElement(const UniversalURI& uri, Component* component,
                                                     const DataValue* value);
    static void MapDataElement(ElementURI* uri, DataElement* element);
    static void ConfigureNewDataElement(Component* component, const ElementURI& uri, DataElement*& element);
    static DataElement* GetElement(const unsigned short& code) { return DataElementArray_.at(code); }
    static DataElement* GetElement(const ElementURI& uri);

    static void SetLogger(const Logger* logger) { Logger_ = logger; }   // borrowed
    static const Logger& GetLogger();                                   // one that says nothing when none was set

    static unsigned short NextElementURICode_;
    static unsigned short NextNameCode_;
    static unsigned short NextDataAccessCode_;
    static bool DirectoryRead_;

private:
    static const unsigned int CAPACITY = 32;
    static const unsigned int MAX_CAPACITY = 16384;

    // By text. Names, accesses and elements are owned here or by the lists below.
    static FastMap<ElementURI, DataElement*> DataElementMap_;
    static FastMap<ElementURI, UniversalDataElement*> UniversalMap_;
    static FastMap<Str, DataAccess*> DataAccessMap_;      // by record text, code included
    static FastMap<Str, ElementURI*> ElementURIMap_;
    static FastMap<Str, CodedStr*> NameMap_;
    // By code, without ownership.
    static FlexArray<ElementURI*> ElementURIArray_;
    static FlexArray<CodedStr*> NameArray_;
    static FlexArray<DataAccess*> DataAccessArray_;
    static FlexArray<DataElement*> DataElementArray_;     // beside the name of the same code
    // In the order of registration.
    static FlexArray<ElementURI*> ElementURIList_;
    static FlexArray<CodedStr*> NameList_;
    static FlexArray<DataAccess*> DataAccessList_;

    static bool DirectoryWritesEnabled_;
    static bool DirectoryWritesSimulated_;
    static LogEngine* DirectoryEngine_;                   // borrowed
    static const Logger* Logger_;                         // borrowed
    static Mutex ElementMutex_;
    static Mutex NameMutex_;
    static Mutex DataAccessMutex_;
};
