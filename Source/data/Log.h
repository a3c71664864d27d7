#pragma once

#include <atomic>

#include "data/CodedItems.h"
#include "data/Contradictions.h"
#include "data/DataElement.h"
#include "data/DirectoryWrites.h"
#include "data/LogVersion.h"
#include "data/UniversalURI.h"

class Component;
class DataReader;
class DataWriter;
class UniversalDataReader;
class UniversalDataWriter;

// The state of one log: everything that has a code in it, the elements that hold current values, and the version of its
// format. Writers of a log ask it for codes; readers register what a log's directory says and then resolve each entry's
// codes, by array read. Any number can be open at once.
// Ownership: a log owns what is registered in it or made by it, except names of static life and, in the process's own
// log, the universals.
// Threads: names, coded names and accesses have a lock each; an operation takes only its own.
class Log {
public:
    // The version in force is the newest, and every universal is known by name. The logger, which may be null, takes
    // what the log itself has to say; it is borrowed.
    explicit Log(const Logger* logger = nullptr);
    ~Log();
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    // The log that this thread uses: of its innermost Use, else the process's own.
    static Log& Current() { return InUse_ != nullptr ? *InUse_ : OfProcess(); }
    // The vehicle's: the static universals have their codes in it, and components belong to it.
    static Log& OfProcess();

    // As long as it lives, a log is this thread's current one. Uses end in the reverse order of their beginnings.
    class Use {
    public:
        // Borrowed, outlives the use.
        explicit Use(Log& log) : before_(InUse_) { InUse_ = &log; }
        ~Use() { InUse_ = before_; }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

    private:
        Log* const before_;  // borrowed; null: none
    };

    void setLogger(const Logger* logger) { logger_ = logger; }  // borrowed
    const Logger& getLogger() const;                            // one that says nothing when none was set
    // In force: by it entries are decoded and written.
    LogVersion& version() { return version_; }
    const LogVersion& version() const { return version_; }
    // What becomes of names that are new while the log is written.
    DirectoryWrites& directoryWrites() { return directoryWrites_; }
    // Words that the names of the log's parts may begin with; borrowed, null for none.
    void setPriorityWords(const FlexArray<const char*>* words) { priorityWords_ = words; }
    const FlexArray<const char*>* getPriorityWords() const { return priorityWords_; }

    // Puts the universals where the empty log has them. Idempotent.
    void construct();
    // Forgets every code, name, access and element. Objects live on until uninitialize, since writers may still hold
    // entries that point to them.
    void clearDirectory();
    void uninitialize();  // releases everything but the universals, which stay in an empty log
    // For the reading of a directory: codes that were not read from a log become free again, and names without a code
    // leave the lists; they stay findable by text, and registration puts them back.
    void takeBackCodesNotRead();
    bool isDirectoryRead() const { return directoryRead_; }  // at least one record was registered
    void setDirectoryRead() { directoryRead_ = true; }
    const Str& getSideFile() const { return sideFile_; }  // where the directory was read from; empty: the log
    void setSideFile(const Str& path) { sideFile_ = path; }
    // A directory record of no known kind was passed over.
    void countUnknownRecord() { ++unknownRecords_; }
    unsigned long getUnknownRecords() const { return unknownRecords_; }  // directory records that were of no known kind

    // Element names. Register takes ownership of uri: the result is the registered name, or null (uri deleted) for a
    // code that is out of range or taken by another name.
    // Codify copies the code of the registered name of that text, or registers uri itself, by address: uri then lives
    // as long as the log. While directory writes are on, a name without a code gets the next one.
    void codifyElementURI(ElementURI& uri);
    ElementURI* registerElementURI(ElementURI* uri);
    void deRegisterElementURI(ElementURI* uri);  // forgets it; an owned object lives on
    // Null for a code that no name has.
    ElementURI* getElementURI(unsigned short code) const {
        MutexLocker lock(elementURIs_.mutex_);
        return elementURIs_.byCode_.at(code);
    }
    ElementURI* findElementURI(const Str& name) const;               // exact, also a universal without a code
    unsigned short getElementURICode(const char* name) const;        // ElementURI::NO_CODE when not in the log
    const ElementURI& getUniversal(const UniversalURI& name) const;  // which has its code in this log
    unsigned int getElementURICount() const {                        // names that have a code
        MutexLocker lock(elementURIs_.mutex_);
        return elementURIs_.count_;
    }
    // All codes below it may be in use; none from it on is.
    unsigned short getNextElementURICode() const { return elementURIs_.nextCode_; }

    // Coded names, alike.
    // Register as for element names: name is taken over.
    CodedStr* registerCodedName(CodedStr* name);
    CodedStr* getName(unsigned short code) const {
        MutexLocker lock(names_.mutex_);
        return names_.byCode_.at(code);
    }
    CodedStr* findCodedName(const Str& name) const;  // null when unknown
    CodedStr& getCodedName(const Str& name);         // registered with the next code when new
    unsigned short getNextNameCode() const { return names_.nextCode_; }

    // Data accesses, alike.
    // Register as for element names: access is taken over.
    DataAccess* registerDataAccess(DataAccess* access);
    DataAccess* getDataAccess(unsigned short code) const {
        MutexLocker lock(dataAccesses_.mutex_);
        return dataAccesses_.byCode_.at(code);
    }
    // The access that says the same as the accessor; made when new, and coded while directory writes are on.
    DataAccess* getDataAccess(const DataAccessor& accessor, UniversalDataElement* universal);
    unsigned int getDataAccessCount() const {  // accesses that have a code
        MutexLocker lock(dataAccesses_.mutex_);
        return dataAccesses_.count_;
    }
    unsigned short getNextDataAccessCode() const { return dataAccesses_.nextCode_; }
    // The access that describes an element: in ascending code, for a universal code those that serve it, failing any,
    // as for every other code, those of that element; the first with a known type, else the first. Null when none.
    DataAccess* findDescribingAccess(unsigned short elementCode, bool isUniversal) const;
    // Grows with what an access without type can inherit: accesses, and types that accesses have inherited.
    unsigned int countTypes() const { return getDataAccessCount() + inheritedTypes_; }
    // An access has got its type from another.
    void countInheritedType() { ++inheritedTypes_; }

    // The items in the order of registration, those without a code included.
    const FlexArray<CodedStr*>& getNames() const { return names_.list_; }
    const FlexArray<ElementURI*>& getElementURIs() const { return elementURIs_.list_; }
    const FlexArray<DataAccess*>& getDataAccesses() const { return dataAccesses_.list_; }
    // For the writing of a directory: the next code for an item without one; false when it has one or none is left.
    bool giveNextCode(ElementURI* uri);
    bool giveNextCode(CodedStr* name);
    bool giveNextCode(DataAccess* access);

    // Grows whenever a code comes to stand for something else: what was found by codes must then be found anew.
    unsigned int getChanges() const { return changes_.load(std::memory_order_relaxed); }

    // What a log says of a code otherwise than what is registered under it holds from there on, until it says again
    // what is registered: entries are decoded by it, but nothing is known by it.
    void beginReading(const Str& name);  // from the log's start, where it has said nothing yet
    // Sums up what was not reported one by one.
    void endReading() { contradictions_.end(); }
    // Quick to ask: false for a log that never contradicts itself.
    bool isAnythingRetold() const { return retoldCount_.load(std::memory_order_relaxed) != 0; }
    DataAccess* getToldAccess(unsigned short code) const {  // what the log has last said of the code
        return isAnythingRetold() ? findToldAccess(code) : getDataAccess(code);
    }
    // The log says of the access, of its element, universal or owner otherwise than what is registered.
    bool isRetold(const DataAccess& told) const;
    Str describeContradiction() const;  // the first there is; empty when there is none

    // Elements, owned by the log; values given are taken over (newUniversalElement copies). An element that the name
    // has already is returned as it is, and a value given is then released.
    // A new element holds the empty value of its type: NaN, 0, "". Accuracies are in the base unit.
    DataElement* newDataElement(const ElementURI& uri, Component* component, const Unit& unit, BinaryDataType type,
                                float accuracy);
    DataElement* newDataElement(const ElementURI& uri, Component* component, DataValue* value, float accuracy);
    UniversalDataElement* newUniversalElement(const UniversalURI& uri, Component* component, const Unit& unit,
                                              BinaryDataType type);
    UniversalDataElement* newUniversalElement(const UniversalURI& uri, Component* component, const DataValue* value);
    void mapDataElement(ElementURI* uri, DataElement* element);  // takes the element over
    // Gives the element the value that the configuration holds under "Config/" + its name, if any; makes it when null.
    void configureNewDataElement(Component* component, const ElementURI& uri, DataElement*& element);
    // Null where no value has come yet, or none can.
    DataElement* getElement(unsigned short code) const {
        MutexLocker lock(elementURIs_.mutex_);
        return elementsByCode_.at(code);
    }
    DataElement* getElement(const ElementURI& uri) const;

    // A component's accesses, owned by the log. Each registers and codifies the name, makes the element where it is
    // missing, in the name's unit and type, and gets its data access. uri may be short-lived. Directory writes are
    // turned on first: an access made before has no codes to put into the log.
    DataWriter* newWriter(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                          bool noInterpFlag);
    // The same by the component that supplies the element: the element is active only while such a component is.
    DataWriter* newOutputWriter(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                                bool noInterpFlag);
    // An output writer whose element feeds a universal; uri's unit and type are the universal's where it has none.
    UniversalDataWriter* newUniversalWriter(Component* owner, const ElementURI& uri, const UniversalURI& universal,
                                            Logger::TimePrecisionType precision, bool noInterpFlag);
    DataReader* newReader(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision);
    DataReader* newInputReader(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision);
    UniversalDataReader* newUniversalReader(Component* owner, const UniversalURI& universal,
                                            DataAccessor::RequestStrategy strategy,
                                            Logger::TimePrecisionType precision);

private:
    class OfProcessOnly {};
    explicit Log(OfProcessOnly) {}  // the static universals codify themselves in it

    UniversalURI* universalAt(unsigned int index) const;  // in the order of the catalogue
    template <typename T>
    void announce(T& item);  // it has just got a code
    DataAccess* findToldAccess(unsigned short code) const;
    ElementURI* codifiedURI(const ElementURI& uri);  // the registered name of that text, registering a copy
    // In ascending code, of the accesses for which that code is the one: the first with a known type, else the first.
    DataAccess* firstDescribing(unsigned short (DataAccess::*whose)() const, unsigned short code) const;
    void placeElement(const ElementURI& uri);  // the name's element beside the name
    void adopt(const ElementURI& uri, DataElement* element);
    DataElement* elementToAttach(const ElementURI& uri, Component* owner);
    DataReader* attachReader(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                             bool isInput);
    DataWriter* attachWriter(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                             bool noInterpFlag, bool supplies);
    template <typename Accessor>
    Accessor* attach(Accessor* accessor, UniversalDataElement* universal);

    inline static thread_local Log* InUse_ = nullptr;  // borrowed; null: the process's own
    static Log Process_;

    const Logger* logger_ = nullptr;  // borrowed
    LogVersion version_;
    DirectoryWrites directoryWrites_;
    const FlexArray<const char*>* priorityWords_ = nullptr;  // borrowed
    bool directoryRead_ = false;
    Str sideFile_;
    unsigned long unknownRecords_ = 0;
    unsigned int inheritedTypes_ = 0;
    std::atomic<unsigned int> retoldCount_{0};
    std::atomic<unsigned int> changes_{1};
    Contradictions contradictions_{*this};

    // Owned, in the order of the catalogue; empty in the process's own log, which has the catalogue itself.
    FlexArray<UniversalURI*> universals_{true};
    CodedItems<ElementURI> elementURIs_{"element", retoldCount_, changes_};
    CodedItems<CodedStr> names_{"name", retoldCount_, changes_};
    CodedItems<DataAccess> dataAccesses_{"data access", retoldCount_, changes_};
    // Under the lock of the element names.
    FlexArray<DataElement*> elementStore_{true};  // what is owned, until uninitialize
    FlexArray<DataAccessor*> accessorStore_{true};
    FastMap<ElementURI, DataElement*> elements_;
    FastMap<ElementURI, UniversalDataElement*> universalElements_;
    FlexArray<DataElement*> elementsByCode_{false, CodedItems<ElementURI>::CAPACITY,
                                            CodedItems<ElementURI>::MAX_CAPACITY};  // beside the name of the same code
};
