#pragma once

#include <atomic>

#include "data/CodedItems.h"
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
class UniversalDataReader;
class UniversalDataWriter;

// The process-wide registry of everything that has a code in the log: element names, coded names, data accesses and
// the elements that hold current values. Writers of a log ask it for codes; readers register what a log's directory
// says and then resolve each entry's codes, by array read.
// Ownership: the Slate owns what is registered in it or made by it, except universals and other names of static life.
// Threads: names, coded names and accesses have a lock each; an operation takes only its own.
class Slate {
public:
    // The versions in force after each one that a log or side file tells: one that is not known changes nothing.
    struct LogVersions {
        unsigned int inForce_ = 0;  // a bit each; no known version is as high as 32
        unsigned short first_ = 0;

        void add(unsigned short version) {
            if (!areTold()) first_ = version;
            inForce_ |= 1u << (version & 31);
        }
        bool areTold() const { return inForce_ != 0; }
        bool agreeWith(const LogVersions& other) const {  // they share one, or one tells none
            return !areTold() || !other.areTold() || (inForce_ & other.inForce_) != 0;
        }
    };

    // Puts the universals where the empty Slate has them. Idempotent; at the start their own constructors do it.
    static void Construct();
    // Forgets every code, name, access and element. Objects live on until Uninitialize, since writers may still hold
    // entries that point to them.
    static void ClearDirectory();
    // The same, and deletes the objects: for when nobody holds entries or accessors any more. Element names alone stay,
    // as they do for the life of the process, and serve again when a log brings a name of the same text.
    static void ReleaseDirectory();
    static void Uninitialize();  // releases everything but the universals, which stay in an empty Slate

    // Reads the directory records of the log or side file at path (its numbered parts included) and registers them.
    // Values are passed over. DirectoryRead_ becomes true when at least one record was registered. The log version in
    // force is then the one that the log begins with, if it tells one.
    static void ReadDirectory(const Str& path);
    // The same, saying whether messages about the file are shown (they are not when the log is read again later).
    static void ReadDirectory(const Str& path, bool showMessages);
    // Reads the side file of a log, which is the log's name with ".dir", unless what the log itself says before its
    // first other entry contradicts it: then nothing stays registered, the log version in force is as before, and one
    // message names both files. Where the log begins with its version, the side file's does not rule.
    static void ReadSideFile(const Str& log, bool showMessages);
    static bool IsDirectoryRead() { return DirectoryRead_; }
    static const Str& GetSideFile() { return SideFile_; }  // where the directory was read from; empty: a log

    static void EnableDirectoryWrites() { DirectoryWritesEnabled_ = true; }      // new names get a code and an entry
    static void SimulateDirectoryWrites() { DirectoryWritesSimulated_ = true; }  // new names get a code only
    static void StopDirectoryWrites() { DirectoryWritesEnabled_ = DirectoryWritesSimulated_ = false; }
    // Gives every item without a code the next one and writes the whole directory to the writer; with a null writer
    // only the entries of items that have just been given a code, to the directory engine.
    static void WriteDirectory(LogWriter* writer, bool restarted);
    static void WriteElementURIEntry(ElementURI* uri, LogWriter* writer, bool restarted);
    static void WriteNameEntry(CodedStr* name, LogWriter* writer, bool restarted);
    static void WriteDataAccessEntry(DataAccess* access, LogWriter* writer, bool restarted);
    // Where directory entries without a writer go; borrowed, null (as at the start) means nowhere.
    static void SetDirectoryEngine(LogEngine* engine) {
        DirectoryEngine_ = engine;
        EmitElementURI_ = engine == nullptr ? nullptr : &WriteElementURIEntry;
        EmitName_ = engine == nullptr ? nullptr : &WriteNameEntry;
        EmitDataAccess_ = engine == nullptr ? nullptr : &WriteDataAccessEntry;
    }

    // Element names. Register takes ownership of uri: the result is the registered name, or null (uri deleted) for a
    // code that is out of range or taken by another name.
    // Codify copies the code of the registered name of that text, or registers uri itself, by address: uri then lives
    // as long as the process. While directory writes are on, a name without a code gets the next one.
    static void CodifyElementURI(ElementURI& uri);
    static ElementURI* RegisterElementURI(ElementURI* uri);
    static void DeRegisterElementURI(ElementURI* uri);  // forgets it; an owned object lives on
    static ElementURI* GetElementURI(const unsigned short& code) {
        MutexLocker lock(ElementMutex_);
        return ElementURIArray_.at(code);
    }
    static ElementURI* GetElementURI(const ElementURI& uri);
    static ElementURI* FindElementURI(const Str& name);         // exact, also a universal without a code
    static unsigned short GetElementURICode(const char* name);  // ElementURI::NO_CODE when not in the log
    static unsigned int GetElementURICount() {                  // names that have a code
        MutexLocker lock(ElementMutex_);
        return ElementURIs_.count_;
    }

    // Coded names, alike.
    static CodedStr* RegisterCodedName(CodedStr* name);
    static CodedStr* GetName(const unsigned short& code) {
        MutexLocker lock(NameMutex_);
        return NameArray_.at(code);
    }
    static CodedStr* FindCodedName(const Str& name);  // null when unknown
    static CodedStr& GetCodedName(const Str& name);   // registered with the next code when new

    // Data accesses, alike.
    static DataAccess* RegisterDataAccess(DataAccess* access);
    static DataAccess* GetDataAccess(const unsigned short& code) {
        MutexLocker lock(DataAccessMutex_);
        return DataAccessArray_.at(code);
    }
    // The access that says the same as the accessor; made when new, and coded while directory writes are on.
    static DataAccess* GetDataAccess(const DataAccessor& accessor, UniversalDataElement* universal);
    static unsigned int GetDataAccessCount() {  // accesses that have a code
        MutexLocker lock(DataAccessMutex_);
        return DataAccesses_.count_;
    }
    // The access that describes an element: in ascending code, for a universal code those that serve it, failing any,
    // as for every other code, those of that element; the first with a known type, else the first. Null when none.
    static DataAccess* FindDescribingAccess(unsigned short elementCode, bool isUniversal);

    // What a log says of a code otherwise than what is registered under it holds from there on, until it says again
    // what is registered: entries are decoded by it, but nothing is known by it. Of each code it is reported once a
    // log, of the first MAX_CONTRADICTIONS_SHOWN codes.
    static constexpr unsigned int MAX_CONTRADICTIONS_SHOWN = 30;
    static void BeginLog(const Str& name);  // it is read from its start, where it has said nothing yet
    static void EndLog();  // reports how many codes were not shown; outside of a log nothing is reported
    static bool IsAnythingRetold() { return RetoldCount_.load(std::memory_order_relaxed) != 0; }
    static DataAccess* GetToldAccess(unsigned short code) {  // what the log has last said of the code
        return IsAnythingRetold() ? FindToldAccess(code) : GetDataAccess(code);
    }
    // The log says of the access, of its element, universal or owner otherwise than what is registered.
    static bool IsRetold(const DataAccess& told);
    static Str DescribeContradiction();  // the first there is; empty when there is none

    // Elements, owned by the Slate; values given are taken over (NewUniversalElement copies). An element that the name
    // has already is returned as it is, and a value given is then released.
    // A new element holds the empty value of its type: NaN, 0, "". Accuracies are in the base unit.
    static DataElement* NewDataElement(const ElementURI& uri, Component* component, const Unit& unit,
                                       BinaryDataType type, float accuracy);
    static DataElement* NewDataElement(const ElementURI& uri, Component* component, DataValue* value, float accuracy);
    static UniversalDataElement* NewUniversalElement(const UniversalURI& uri, Component* component, const Unit& unit,
                                                     BinaryDataType type);
    static UniversalDataElement* NewUniversalElement(const UniversalURI& uri, Component* component,
                                                     const DataValue* value);
    static void MapDataElement(ElementURI* uri, DataElement* element);  // takes the element over
    // Gives the element the value that the configuration holds under "Config/" + its name, if any; makes it when null.
    static void ConfigureNewDataElement(Component* component, const ElementURI& uri, DataElement*& element);
    static DataElement* GetElement(const unsigned short& code) {
        MutexLocker lock(ElementMutex_);
        return DataElementArray_.at(code);
    }
    static DataElement* GetElement(const ElementURI& uri);

    // A component's accesses, owned by the Slate. Each registers and codifies the name, makes the element where it is
    // missing, in the name's unit and type, and gets its data access. uri may be short-lived. Directory writes are
    // turned on first: an access made before has no codes to put into the log.
    //
    //   Slate::EnableDirectoryWrites();
    //   Component sensor("Depth");
    //   const ElementURI uri(ElementURI::NO_CODE, "Depth.depth", ElementURI::DATA_ELEMENT, Units::METER, FLOAT3);
    //   DataWriter* writer = Slate::NewOutputWriter(&sensor, uri);
    //   const bool changed = writer->write(Units::METER, 1.5, t);   // what the data entry on this writer says
    static DataWriter* NewWriter(Component* owner, const ElementURI& uri,
                                 Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS,
                                 bool noInterpFlag = false);
    // The same by the component that supplies the element: the element is active only while such a component is.
    static DataWriter* NewOutputWriter(Component* owner, const ElementURI& uri,
                                       Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS,
                                       bool noInterpFlag = false);
    // An output writer whose element feeds a universal; uri's unit and type are the universal's where it has none.
    static UniversalDataWriter* NewUniversalWriter(Component* owner, const ElementURI& uri,
                                                   const UniversalURI& universal,
                                                   Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS,
                                                   bool noInterpFlag = false);
    static DataReader* NewReader(Component* owner, const ElementURI& uri,
                                 Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS);
    static DataReader* NewInputReader(Component* owner, const ElementURI& uri,
                                      Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS);
    static UniversalDataReader* NewUniversalReader(Component* owner, const UniversalURI& universal,
                                                   DataAccessor::RequestStrategy strategy = DataAccessor::MIN_ERROR,
                                                   Logger::TimePrecisionType precision = Logger::TIME_PRECISION_MICROS);

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

    static void SetLogger(const Logger* logger) { Logger_ = logger; }  // borrowed
    static const Logger& GetLogger();                                  // one that says nothing when none was set

    static unsigned short NextElementURICode_;
    static unsigned short NextNameCode_;
    static unsigned short NextDataAccessCode_;
    static bool DirectoryRead_;

private:
    static constexpr unsigned int CAPACITY = 32;
    static constexpr unsigned int MAX_CAPACITY = 16384;

    static LogVersions ScanDirectory(const Str& path, bool showMessages);
    // For the reading of a directory: codes that were not read from a log become free again, and names without a code
    // leave the lists; they stay findable by text, and registration puts them back.
    static void TakeBackCodesNotRead();
    // For the writing of a directory: the next code for an item without one; false when it has one or none is left.
    static bool GiveNextCode(ElementURI* uri);
    static bool GiveNextCode(CodedStr* name);
    static bool GiveNextCode(DataAccess* access);

    static DataAccess* FindToldAccess(unsigned short code);
    template <typename T>
    static void ReportRetold(CodedItems<T>& items, unsigned short code);
    static Str WhatIsContradicted();

    static bool CodesNewItems() { return DirectoryWritesEnabled_ || DirectoryWritesSimulated_; }
    static ElementURI* ReusedName(ElementURI* uri);  // what stands for a name that a log brings; uri may be deleted
    static ElementURI* CodifiedURI(const ElementURI& uri);  // the registered name of that text, registering a copy
    // In ascending code, of the accesses for which that code is the one: the first with a known type, else the first.
    static DataAccess* FirstDescribing(unsigned short (DataAccess::*whose)() const, unsigned short code);
    static void PlaceElement(const ElementURI& uri);  // the name's element beside the name
    static void Adopt(const ElementURI& uri, DataElement* element);
    static DataElement* ElementToAttach(const ElementURI& uri, Component* owner);
    static DataReader* AttachReader(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                                    bool isInput);
    static DataWriter* AttachWriter(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                                    bool noInterpFlag, bool supplies);
    template <typename Accessor>
    static Accessor* Attach(Accessor* accessor, UniversalDataElement* universal);

    // By text, without ownership.
    static FastMap<ElementURI, DataElement*> DataElementMap_;
    static FastMap<ElementURI, UniversalDataElement*> UniversalMap_;
    static FastMap<Str, DataAccess*> DataAccessMap_;  // by record text, code included
    static FastMap<Str, ElementURI*> ElementURIMap_;
    static FastMap<Str, CodedStr*> NameMap_;
    // By code, without ownership.
    static FlexArray<ElementURI*> ElementURIArray_;
    static FlexArray<CodedStr*> NameArray_;
    static FlexArray<DataAccess*> DataAccessArray_;
    static FlexArray<DataElement*> DataElementArray_;  // beside the name of the same code
    // By code, what the log says otherwise; owned.
    static FlexArray<ElementURI*> RetoldElementURIs_;
    static FlexArray<CodedStr*> RetoldNames_;
    static FlexArray<DataAccess*> RetoldDataAccesses_;
    static std::atomic<unsigned int> RetoldCount_;
    // In the order of registration, without ownership.
    static FlexArray<ElementURI*> ElementURIList_;
    static FlexArray<CodedStr*> NameList_;
    static FlexArray<DataAccess*> DataAccessList_;
    // What the Slate owns, until Uninitialize.
    static FlexArray<ElementURI*> ElementURIStore_;
    static FlexArray<CodedStr*> NameStore_;
    static FlexArray<DataAccess*> DataAccessStore_;
    static FlexArray<DataElement*> DataElementStore_;
    static FlexArray<DataAccessor*> DataAccessorStore_;
    static FastMap<Str, ElementURI*> ReleasedURIs_;  // names that no log in use has; owned
    // Items whose code was not read from a log, without ownership.
    static FlexArray<ElementURI*> ElementURIsCodedHere_;
    static FlexArray<CodedStr*> NamesCodedHere_;
    static FlexArray<DataAccess*> DataAccessesCodedHere_;
    // The collections above, by kind.
    static CodedItems<ElementURI> ElementURIs_;
    static CodedItems<CodedStr> Names_;
    static CodedItems<DataAccess> DataAccesses_;

    static bool DirectoryWritesEnabled_;
    static bool DirectoryWritesSimulated_;
    static LogEngine* DirectoryEngine_;  // borrowed
    // Write the entry of a new item to that engine; null while there is none. Entries stand floors above the Slate, and
    // only a program that sets an engine needs them.
    static void (*EmitElementURI_)(ElementURI* uri, LogWriter* writer, bool restarted);
    static void (*EmitName_)(CodedStr* name, LogWriter* writer, bool restarted);
    static void (*EmitDataAccess_)(DataAccess* access, LogWriter* writer, bool restarted);
    static const Logger* Logger_;  // borrowed
    static Str SideFile_;
    static Str LogName_;                      // of the log that is being read; empty: none is
    static unsigned int ContradictionCount_;  // reported or counted of that log
    static Mutex ElementMutex_;
    static Mutex NameMutex_;
    static Mutex DataAccessMutex_;
};
