#include "data/Log.h"

#include "data/DirectorySink.h"
#include "data/Logger.h"
#include "utils/StaticOrder.h"

namespace {

const Logger SILENT_LOGGER STATIC_ORDER(STATIC_ORDER_REGISTRIES)("Slate", nullptr);

}  // namespace

Log Log::Process_ STATIC_ORDER(STATIC_ORDER_REGISTRIES)((Log::OfProcessOnly()));

Log& Log::OfProcess() {
    return Process_;
}

// The process's own log may be in use meanwhile, by another thread, and change the codes of what is copied.
Log::Log(const Logger* logger) : logger_(logger) {
    MutexLocker lock(Process_.elementURIs_.mutex_);
    for (const UniversalURI* universal : UniversalURI::CATALOGUE) {
        UniversalURI* const own = new UniversalURI(*universal);
        own->setCode(ElementURI::NO_CODE);
        universals_.push(own);
        codifyElementURI(*own);
    }
}

Log::~Log() = default;

const Logger& Log::getLogger() const {
    return logger_ == nullptr ? SILENT_LOGGER : *logger_;
}

UniversalURI* Log::universalAt(unsigned int index) const {
    return universals_.isEmpty() ? UniversalURI::CATALOGUE[index] : universals_.at(index);
}

const ElementURI& Log::getUniversal(const UniversalURI& name) const {
    for (unsigned int i = 0; i < UniversalURI::CATALOGUE_SIZE; ++i) {
        if (*universalAt(i) == name) return *universalAt(i);
    }
    return name;
}

void Log::construct() {
    MutexLocker lock(elementURIs_.mutex_);
    for (unsigned int i = 0; i < UniversalURI::CATALOGUE_SIZE; ++i) {
        elementURIs_.byText_.put(*universalAt(i), universalAt(i), false);
    }
}

void Log::clearDirectory() {
    {
        MutexLocker lock(elementURIs_.mutex_);
        elementURIs_.forget();
        elements_.clear();
        universalElements_.clear();
        elementsByCode_.clear();
    }
    {
        MutexLocker lock(names_.mutex_);
        names_.forget();
    }
    {
        MutexLocker lock(dataAccesses_.mutex_);
        dataAccesses_.forget();
    }
    directoryRead_ = false;
    sideFile_ = Str::EMPTY_STR;
    construct();
}

void Log::uninitialize() {
    clearDirectory();
    directoryWrites_.stop();
    directoryWrites_.setSink(nullptr);
    accessorStore_.clear();
    elementStore_.clear();
    dataAccesses_.store_.clear();
    names_.store_.clear();
    elementURIs_.store_.clear();
}

void Log::beginReading(const Str& name) {
    contradictions_.begin(name);
    {
        MutexLocker lock(elementURIs_.mutex_);
        elementURIs_.forgetRetold();
    }
    {
        MutexLocker lock(names_.mutex_);
        names_.forgetRetold();
    }
    MutexLocker lock(dataAccesses_.mutex_);
    dataAccesses_.forgetRetold();
}

template <typename T>
void Log::announce(T& item) {
    DirectorySink* const sink = directoryWrites_.sinkOfNewItems();
    if (sink != nullptr) sink->takeNew(item);
}

void Log::takeBackCodesNotRead() {
    {
        MutexLocker lock(dataAccesses_.mutex_);
        for (unsigned int i = 0; i < dataAccesses_.codedHere_.size(); ++i) {
            dataAccesses_.byText_.pop(dataAccesses_.codedHere_.at(i)->recordText());
        }
        dataAccesses_.takeBackCodesNotRead();
    }
    {
        MutexLocker lock(names_.mutex_);
        names_.takeBackCodesNotRead();
    }
    MutexLocker lock(elementURIs_.mutex_);
    elementURIs_.takeBackCodesNotRead();
    elementsByCode_.clear();
    ++changes_;
    for (unsigned int i = 0; i < elements_.size(); ++i) {
        const ElementURI* const uri = elementURIs_.byText_.get(elements_.getIndexed(i)->getUri());
        if (uri != nullptr) placeElement(*uri);
    }
}

// Element names

bool Log::giveNextCode(ElementURI* uri) {
    MutexLocker lock(elementURIs_.mutex_);
    if (!elementURIs_.giveNextCode(uri)) return false;
    placeElement(*uri);
    return true;
}

void Log::codifyElementURI(ElementURI& uri) {
    MutexLocker lock(elementURIs_.mutex_);
    ElementURI* known = elementURIs_.byText_.get(uri);
    if (known == nullptr) {
        known = &uri;
        elementURIs_.byText_.put(uri, known, false);
        elementURIs_.list_.push(known);
    }
    if (directoryWrites_.giveCodes() && giveNextCode(known)) announce(*known);
    uri.setCode(known->getCode());
}

ElementURI* Log::codifiedURI(const ElementURI& uri) {
    MutexLocker lock(elementURIs_.mutex_);
    ElementURI* known = elementURIs_.byText_.get(uri);
    if (known == nullptr) {
        known = elementURIs_.own(new ElementURI(uri));
        known->setCode(ElementURI::NO_CODE);
    }
    codifyElementURI(*known);
    return known;
}

ElementURI* Log::registerElementURI(ElementURI* uri) {
    MutexLocker lock(elementURIs_.mutex_);
    const unsigned short code = uri->getCode();
    ElementURI* const registered = elementURIs_.add(uri, *uri);
    if (registered != nullptr) placeElement(*registered);
    contradictions_.report(elementURIs_, code);
    return registered;
}

void Log::deRegisterElementURI(ElementURI* uri) {
    MutexLocker lock(elementURIs_.mutex_);
    if (elementURIs_.byText_.get(*uri) != uri) return;
    if (uri->hasCode()) elementsByCode_.set(uri->getCode(), nullptr);
    elementURIs_.remove(uri, *uri);
}

ElementURI* Log::findElementURI(const Str& name) const {
    MutexLocker lock(elementURIs_.mutex_);
    return elementURIs_.byText_.get(name);
}

unsigned short Log::getElementURICode(const char* name) const {
    const ElementURI* const uri = findElementURI(name);
    return uri == nullptr ? ElementURI::NO_CODE : uri->getCode();
}

// Coded names

bool Log::giveNextCode(CodedStr* name) {
    MutexLocker lock(names_.mutex_);
    return names_.giveNextCode(name);
}

CodedStr* Log::registerCodedName(CodedStr* name) {
    MutexLocker lock(names_.mutex_);
    const unsigned short code = name->getCode();
    CodedStr* const registered = names_.add(name, *name);
    contradictions_.report(names_, code);
    return registered;
}

CodedStr* Log::findCodedName(const Str& name) const {
    MutexLocker lock(names_.mutex_);
    return names_.byText_.get(name);
}

CodedStr& Log::getCodedName(const Str& name) {
    MutexLocker lock(names_.mutex_);
    CodedStr* known = names_.byText_.get(name);
    if (known == nullptr) {
        known = names_.own(new CodedStr(name));
        names_.byText_.put(name, known, false);
    }
    if (giveNextCode(known)) announce(*known);
    return *known;
}

// Data accesses

bool Log::giveNextCode(DataAccess* access) {
    MutexLocker lock(dataAccesses_.mutex_);
    if (access->getElementCode() >= ElementURI::NUM_CODES) return false;  // made while names got no codes
    const Str oldText = access->recordText();
    if (!dataAccesses_.giveNextCode(access)) return false;
    dataAccesses_.byText_.pop(oldText);
    dataAccesses_.byText_.put(access->recordText(), access, false);
    return true;
}

DataAccess* Log::registerDataAccess(DataAccess* access) {
    MutexLocker lock(dataAccesses_.mutex_);
    const unsigned short code = access->getCode();
    DataAccess* const holder = dataAccesses_.byCode_.at(code);
    if (holder != nullptr && holder->isUntyped() && holder->agreesWith(*access)) {
        holder->copyUnitsTypeAndSizeFrom(access);
    }
    DataAccess* const registered = dataAccesses_.add(access, access->recordText());
    contradictions_.report(dataAccesses_, code);
    return registered;
}

DataAccess* Log::getDataAccess(const DataAccessor& accessor, UniversalDataElement* universal) {
    MutexLocker lock(dataAccesses_.mutex_);
    std::unique_ptr<DataAccess> wanted(new DataAccess(accessor, universal, DataAccess::NO_CODE));
    for (unsigned int i = 0; i < dataAccesses_.list_.size(); ++i) {
        if (dataAccesses_.list_.at(i)->declaresTheSame(*wanted)) return dataAccesses_.list_.at(i);
    }
    DataAccess* const access = dataAccesses_.own(wanted.release());
    dataAccesses_.byText_.put(access->recordText(), access, false);
    dataAccesses_.list_.push(access);
    if (directoryWrites_.giveCodes() && giveNextCode(access)) announce(*access);
    return access;
}

DataAccess* Log::findDescribingAccess(unsigned short elementCode, bool isUniversal) const {
    if (elementCode >= ElementURI::NUM_CODES) return nullptr;
    MutexLocker lock(dataAccesses_.mutex_);
    DataAccess* const access = isUniversal ? firstDescribing(&DataAccess::getUniversalCode, elementCode) : nullptr;
    return access != nullptr ? access : firstDescribing(&DataAccess::getElementCode, elementCode);
}

DataAccess* Log::firstDescribing(unsigned short (DataAccess::*whose)() const, unsigned short code) const {
    DataAccess* first = nullptr;
    for (unsigned int i = 0; i < dataAccesses_.nextCode_; ++i) {
        DataAccess* const access = dataAccesses_.byCode_.at(i);
        if (access == nullptr || (access->*whose)() != code) continue;
        if (access->getBinaryType() != NO_TYPE) return access;
        if (first == nullptr) first = access;
    }
    return first;
}

DataAccess* Log::findToldAccess(unsigned short code) const {
    MutexLocker lock(dataAccesses_.mutex_);
    DataAccess* const told = dataAccesses_.retold_.at(code);
    return told != nullptr ? told : dataAccesses_.byCode_.at(code);
}

bool Log::isRetold(const DataAccess& told) const {
    {
        MutexLocker lock(dataAccesses_.mutex_);
        if (dataAccesses_.isRetold(told.getCode())) return true;
    }
    {
        MutexLocker lock(names_.mutex_);
        if (names_.isRetold(told.getOwnerCode())) return true;
    }
    MutexLocker lock(elementURIs_.mutex_);
    return elementURIs_.isRetold(told.getElementCode()) || elementURIs_.isRetold(told.getEffectiveUniversalCode());
}

Str Log::describeContradiction() const {
    {
        MutexLocker lock(dataAccesses_.mutex_);
        Str ofAccesses = Contradictions::First(dataAccesses_);
        if (!ofAccesses.isEmpty()) return ofAccesses;
    }
    {
        MutexLocker lock(names_.mutex_);
        Str ofNames = Contradictions::First(names_);
        if (!ofNames.isEmpty()) return ofNames;
    }
    MutexLocker lock(elementURIs_.mutex_);
    return Contradictions::First(elementURIs_);
}
