#include "data/Slate.h"

#include "data/Logger.h"
#include "utils/StaticOrder.h"

#define SLATE_COLLECTION STATIC_ORDER(STATIC_ORDER_REGISTRIES)

FastMap<ElementURI, DataElement*> Slate::DataElementMap_ SLATE_COLLECTION;
FastMap<ElementURI, UniversalDataElement*> Slate::UniversalMap_ SLATE_COLLECTION;
FastMap<Str, DataAccess*> Slate::DataAccessMap_ SLATE_COLLECTION;
FastMap<Str, ElementURI*> Slate::ElementURIMap_ SLATE_COLLECTION;
FastMap<Str, CodedStr*> Slate::NameMap_ SLATE_COLLECTION;

FlexArray<ElementURI*> Slate::ElementURIArray_ SLATE_COLLECTION(false, CAPACITY, MAX_CAPACITY);
FlexArray<CodedStr*> Slate::NameArray_ SLATE_COLLECTION(false, CAPACITY, MAX_CAPACITY);
FlexArray<DataAccess*> Slate::DataAccessArray_ SLATE_COLLECTION(false, CAPACITY, MAX_CAPACITY);
FlexArray<DataElement*> Slate::DataElementArray_ SLATE_COLLECTION(false, CAPACITY, MAX_CAPACITY);

FlexArray<ElementURI*> Slate::RetoldElementURIs_ SLATE_COLLECTION(true, CAPACITY, MAX_CAPACITY);
FlexArray<CodedStr*> Slate::RetoldNames_ SLATE_COLLECTION(true, CAPACITY, MAX_CAPACITY);
FlexArray<DataAccess*> Slate::RetoldDataAccesses_ SLATE_COLLECTION(true, CAPACITY, MAX_CAPACITY);
std::atomic<unsigned int> Slate::RetoldCount_{0};

FlexArray<ElementURI*> Slate::ElementURIList_ SLATE_COLLECTION;
FlexArray<CodedStr*> Slate::NameList_ SLATE_COLLECTION;
FlexArray<DataAccess*> Slate::DataAccessList_ SLATE_COLLECTION;

FlexArray<ElementURI*> Slate::ElementURIStore_ SLATE_COLLECTION(true);
FlexArray<CodedStr*> Slate::NameStore_ SLATE_COLLECTION(true);
FlexArray<DataAccess*> Slate::DataAccessStore_ SLATE_COLLECTION(true);
FlexArray<DataElement*> Slate::DataElementStore_ SLATE_COLLECTION(true);
FlexArray<DataAccessor*> Slate::DataAccessorStore_ SLATE_COLLECTION(true);
FastMap<Str, ElementURI*> Slate::ReleasedURIs_ SLATE_COLLECTION;

FlexArray<ElementURI*> Slate::ElementURIsCodedHere_ SLATE_COLLECTION;
FlexArray<CodedStr*> Slate::NamesCodedHere_ SLATE_COLLECTION;
FlexArray<DataAccess*> Slate::DataAccessesCodedHere_ SLATE_COLLECTION;

Mutex Slate::ElementMutex_ SLATE_COLLECTION;
Mutex Slate::NameMutex_ SLATE_COLLECTION;
Mutex Slate::DataAccessMutex_ SLATE_COLLECTION;

CodedItems<ElementURI> Slate::ElementURIs_ = {"element",           ElementURIMap_,     ElementURIArray_,
                                              ElementURIList_,     ElementURIStore_,   ElementURIsCodedHere_,
                                              NextElementURICode_, RetoldElementURIs_, RetoldCount_};
CodedItems<CodedStr> Slate::Names_ = {"name",          NameMap_,      NameArray_,   NameList_,   NameStore_,
                                      NamesCodedHere_, NextNameCode_, RetoldNames_, RetoldCount_};
CodedItems<DataAccess> Slate::DataAccesses_ = {"data access",       DataAccessMap_,      DataAccessArray_,
                                               DataAccessList_,     DataAccessStore_,    DataAccessesCodedHere_,
                                               NextDataAccessCode_, RetoldDataAccesses_, RetoldCount_};

unsigned short Slate::NextElementURICode_ = 0;
unsigned short Slate::NextNameCode_ = 0;
unsigned short Slate::NextDataAccessCode_ = 0;
bool Slate::DirectoryRead_ = false;
bool Slate::DirectoryWritesEnabled_ = false;
bool Slate::DirectoryWritesSimulated_ = false;
LogEngine* Slate::DirectoryEngine_ = nullptr;
void (*Slate::EmitElementURI_)(ElementURI*, LogWriter*, bool) = nullptr;
void (*Slate::EmitName_)(CodedStr*, LogWriter*, bool) = nullptr;
void (*Slate::EmitDataAccess_)(DataAccess*, LogWriter*, bool) = nullptr;
const Logger* Slate::Logger_ = nullptr;
Str Slate::SideFile_ SLATE_COLLECTION;
Str Slate::LogName_ SLATE_COLLECTION;
unsigned int Slate::ContradictionCount_ = 0;

namespace {

const Logger SILENT_LOGGER SLATE_COLLECTION("Slate", nullptr);

}  // namespace

const Logger& Slate::GetLogger() {
    return Logger_ == nullptr ? SILENT_LOGGER : *Logger_;
}

void Slate::Construct() {
    MutexLocker lock(ElementMutex_);
    for (UniversalURI* universal : UniversalURI::CATALOGUE) ElementURIMap_.put(*universal, universal, false);
}

void Slate::ClearDirectory() {
    {
        MutexLocker lock(ElementMutex_);
        ElementURIs_.forget();
        DataElementMap_.clear();
        UniversalMap_.clear();
        DataElementArray_.clear();
    }
    {
        MutexLocker lock(NameMutex_);
        Names_.forget();
    }
    {
        MutexLocker lock(DataAccessMutex_);
        DataAccesses_.forget();
    }
    DirectoryRead_ = false;
    SideFile_ = Str::EMPTY_STR;
    Construct();
}

void Slate::ReleaseDirectory() {
    ClearDirectory();
    DataAccessorStore_.clear();
    DataElementStore_.clear();
    DataAccessStore_.clear();
    NameStore_.clear();
    for (int i = ElementURIStore_.getMaxIndex(); i >= 0 && ReleasedURIs_.size() < MAX_CAPACITY; --i) {
        ElementURI* const uri = ElementURIStore_.at(static_cast<unsigned int>(i));
        if (ReleasedURIs_.put(*uri, uri, true)) ElementURIStore_.pop(i);
    }
}

void Slate::Uninitialize() {
    ReleaseDirectory();
    StopDirectoryWrites();
    DirectoryEngine_ = nullptr;
    EmitElementURI_ = nullptr;
    EmitName_ = nullptr;
    EmitDataAccess_ = nullptr;
    ElementURIStore_.clear();
    ReleasedURIs_.clear();
}

void Slate::TakeBackCodesNotRead() {
    {
        MutexLocker lock(DataAccessMutex_);
        for (unsigned int i = 0; i < DataAccessesCodedHere_.size(); ++i) {
            DataAccessMap_.pop(DataAccessesCodedHere_.at(i)->recordText());
        }
        DataAccesses_.takeBackCodesNotRead();
    }
    {
        MutexLocker lock(NameMutex_);
        Names_.takeBackCodesNotRead();
    }
    MutexLocker lock(ElementMutex_);
    ElementURIs_.takeBackCodesNotRead();
    DataElementArray_.clear();
    for (unsigned int i = 0; i < DataElementMap_.size(); ++i) {
        const ElementURI* const uri = ElementURIMap_.get(DataElementMap_.getIndexed(i)->getUri());
        if (uri != nullptr) PlaceElement(*uri);
    }
}

// Element names

bool Slate::GiveNextCode(ElementURI* uri) {
    MutexLocker lock(ElementMutex_);
    if (!ElementURIs_.giveNextCode(uri)) return false;
    PlaceElement(*uri);
    return true;
}

void Slate::CodifyElementURI(ElementURI& uri) {
    MutexLocker lock(ElementMutex_);
    ElementURI* known = ElementURIMap_.get(uri);
    if (known == nullptr) {
        known = &uri;
        ElementURIMap_.put(uri, known, false);
        ElementURIList_.push(known);
    }
    const bool isNew = CodesNewItems() && GiveNextCode(known);
    if (isNew && DirectoryWritesEnabled_ && EmitElementURI_ != nullptr) EmitElementURI_(known, nullptr, false);
    uri.setCode(known->getCode());
}

ElementURI* Slate::CodifiedURI(const ElementURI& uri) {
    MutexLocker lock(ElementMutex_);
    ElementURI* known = ElementURIMap_.get(uri);
    if (known == nullptr) {
        known = ElementURIs_.own(new ElementURI(uri));
        known->setCode(ElementURI::NO_CODE);
    }
    CodifyElementURI(*known);
    return known;
}

ElementURI* Slate::ReusedName(ElementURI* uri) {
    const bool isNew =
        uri->hasCode() && GetElementURI(uri->getCode()) == nullptr && ElementURIMap_.get(*uri) == nullptr;
    ElementURI* const released = isNew ? ReleasedURIs_.pop(*uri) : nullptr;
    if (released == nullptr) return uri;
    *released = *uri;
    delete uri;
    return released;
}

ElementURI* Slate::RegisterElementURI(ElementURI* uri) {
    MutexLocker lock(ElementMutex_);
    const unsigned short code = uri->getCode();
    uri = ReusedName(uri);
    ElementURI* const registered = ElementURIs_.add(uri, *uri);
    if (registered != nullptr) PlaceElement(*registered);
    ReportRetold(ElementURIs_, code);
    return registered;
}

void Slate::DeRegisterElementURI(ElementURI* uri) {
    MutexLocker lock(ElementMutex_);
    if (ElementURIMap_.get(*uri) != uri) return;
    if (uri->hasCode()) DataElementArray_.set(uri->getCode(), nullptr);
    ElementURIs_.remove(uri, *uri);
}

ElementURI* Slate::GetElementURI(const ElementURI& uri) {
    return FindElementURI(uri);
}

ElementURI* Slate::FindElementURI(const Str& name) {
    MutexLocker lock(ElementMutex_);
    return ElementURIMap_.get(name);
}

unsigned short Slate::GetElementURICode(const char* name) {
    const ElementURI* const uri = FindElementURI(name);
    return uri == nullptr ? ElementURI::NO_CODE : uri->getCode();
}

// Coded names

bool Slate::GiveNextCode(CodedStr* name) {
    MutexLocker lock(NameMutex_);
    return Names_.giveNextCode(name);
}

CodedStr* Slate::RegisterCodedName(CodedStr* name) {
    MutexLocker lock(NameMutex_);
    const unsigned short code = name->getCode();
    CodedStr* const registered = Names_.add(name, *name);
    ReportRetold(Names_, code);
    return registered;
}

CodedStr* Slate::FindCodedName(const Str& name) {
    MutexLocker lock(NameMutex_);
    return NameMap_.get(name);
}

CodedStr& Slate::GetCodedName(const Str& name) {
    MutexLocker lock(NameMutex_);
    CodedStr* known = NameMap_.get(name);
    if (known == nullptr) {
        known = Names_.own(new CodedStr(name));
        NameMap_.put(name, known, false);
    }
    const bool isNew = GiveNextCode(known);
    if (isNew && DirectoryWritesEnabled_ && EmitName_ != nullptr) EmitName_(known, nullptr, false);
    return *known;
}

// Data accesses

bool Slate::GiveNextCode(DataAccess* access) {
    MutexLocker lock(DataAccessMutex_);
    if (access->getElementCode() >= ElementURI::NUM_CODES) return false;  // made while names got no codes
    const Str oldText = access->recordText();
    if (!DataAccesses_.giveNextCode(access)) return false;
    DataAccessMap_.pop(oldText);
    DataAccessMap_.put(access->recordText(), access, false);
    return true;
}

DataAccess* Slate::RegisterDataAccess(DataAccess* access) {
    MutexLocker lock(DataAccessMutex_);
    const unsigned short code = access->getCode();
    DataAccess* const holder = DataAccessArray_.at(code);
    if (holder != nullptr && holder->isUntyped() && holder->agreesWith(*access)) {
        holder->copyUnitsTypeAndSizeFrom(access);
    }
    DataAccess* const registered = DataAccesses_.add(access, access->recordText());
    ReportRetold(DataAccesses_, code);
    return registered;
}

DataAccess* Slate::GetDataAccess(const DataAccessor& accessor, UniversalDataElement* universal) {
    MutexLocker lock(DataAccessMutex_);
    std::unique_ptr<DataAccess> wanted(new DataAccess(accessor, universal, DataAccess::NO_CODE));
    for (unsigned int i = 0; i < DataAccessList_.size(); ++i) {
        if (DataAccessList_.at(i)->declaresTheSame(*wanted)) return DataAccessList_.at(i);
    }
    DataAccess* const access = DataAccesses_.own(wanted.release());
    DataAccessMap_.put(access->recordText(), access, false);
    DataAccessList_.push(access);
    const bool isNew = CodesNewItems() && GiveNextCode(access);
    if (isNew && DirectoryWritesEnabled_ && EmitDataAccess_ != nullptr) EmitDataAccess_(access, nullptr, false);
    return access;
}

DataAccess* Slate::FindDescribingAccess(unsigned short elementCode, bool isUniversal) {
    if (elementCode >= ElementURI::NUM_CODES) return nullptr;
    MutexLocker lock(DataAccessMutex_);
    DataAccess* const access = isUniversal ? FirstDescribing(&DataAccess::getUniversalCode, elementCode) : nullptr;
    return access != nullptr ? access : FirstDescribing(&DataAccess::getElementCode, elementCode);
}

DataAccess* Slate::FirstDescribing(unsigned short (DataAccess::*whose)() const, unsigned short code) {
    DataAccess* first = nullptr;
    for (unsigned int i = 0; i < NextDataAccessCode_; ++i) {
        DataAccess* const access = DataAccessArray_.at(i);
        if (access == nullptr || (access->*whose)() != code) continue;
        if (access->getBinaryType() != NO_TYPE) return access;
        if (first == nullptr) first = access;
    }
    return first;
}
