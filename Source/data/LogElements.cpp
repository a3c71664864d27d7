// A log's elements and the components' accesses to them.

#include "data/BlobValue.h"
#include "data/DataReader.h"
#include "data/DataWriter.h"
#include "data/Log.h"

namespace {

// The value of a new element: NaN, 0 or ""; null for a type that does not exist.
DataValue* EmptyValue(const ElementURI& uri, const Unit& unit, BinaryDataType type) {
    if (type != STRVALUE || uri.getBlobType() == NOT_BLOB) return unit.dataValue(type);
    BlobValue* const value = new BlobValue(uri);
    value->setUnit(unit);
    return value;
}

void ReportChange(const Logger& logger, const char* what, const Str& name, const Str& from, const Str& to) {
    Str text("Attempt to change ");
    text << what << " of universal '" << name << "' from " << from << " to " << to;
    logger.syslog(text, Syslog::ERROR);
}

// The name with the unit and type of the universal that it feeds, where it has none of its own.
ElementURI TypedLike(const ElementURI& uri, const UniversalURI& universal) {
    if (&uri.getUnit() != &ElementURI::UNSPECIFIED_UNIT || uri.getBinaryType() != NO_TYPE) return uri;
    return ElementURI(uri.getCode(), uri, uri.getElementType(), universal.getUnit(), universal.getBinaryType(),
                      universal.getBlobType(), universal.getDimension1(), universal.getDimension2(),
                      universal.getDimension3());
}

}  // namespace

DataElement* Log::newDataElement(const ElementURI& uri, Component* component, const Unit& unit, BinaryDataType type,
                                 float accuracy) {
    DataElement* const known = getElement(uri);
    return known != nullptr ? known : newDataElement(uri, component, EmptyValue(uri, unit, type), accuracy);
}

DataElement* Log::newDataElement(const ElementURI& uri, Component*, DataValue* value, float accuracy) {
    MutexLocker lock(elementURIs_.mutex_);
    DataElement* element = getElement(uri);
    if (element != nullptr) {
        delete value;
        return element;
    }
    if (uri.getElementType() == ElementURI::CONFIG_ELEMENT) {
        element = new ConfigDataElement(uri, value, accuracy);
    } else {
        element = new SimpleDataElement(uri, value, accuracy);
    }
    adopt(uri, element);
    return element;
}

UniversalDataElement* Log::newUniversalElement(const UniversalURI& uri, Component* component, const Unit& unit,
                                               BinaryDataType type) {
    MutexLocker lock(elementURIs_.mutex_);
    UniversalDataElement* const known = universalElements_.get(uri);
    if (known != nullptr) return known;
    const std::unique_ptr<DataValue> value(EmptyValue(uri, unit, type));
    return newUniversalElement(uri, component, value.get());
}

UniversalDataElement* Log::newUniversalElement(const UniversalURI& uri, Component*, const DataValue* value) {
    MutexLocker lock(elementURIs_.mutex_);
    UniversalDataElement* const known = universalElements_.get(uri);
    if (known == nullptr) {
        DataValue* const own = value == nullptr ? nullptr : value->copy();
        UniversalDataElement* const element =
            new UniversalDataElement(*codifiedURI(uri), own, DataElement::NO_ACCURACY);
        universalElements_.put(uri, element, false);
        adopt(uri, element);
        return element;
    }
    if (value == nullptr) return known;
    const Unit& base = known->getBaseUnit();
    if (&base != &value->getBaseUnit()) {
        ReportChange(getLogger(), "base unit", uri, base.getName(), value->getBaseUnit().getName());
    } else if (known->getTypeSize() != value->getTypeSize()) {
        ReportChange(getLogger(), "type size", uri, Str(known->getTypeSize(), 10), Str(value->getTypeSize(), 10));
    }
    return known;
}

void Log::mapDataElement(ElementURI* uri, DataElement* element) {
    MutexLocker lock(elementURIs_.mutex_);
    adopt(*uri, element);
}

void Log::configureNewDataElement(Component* component, const ElementURI& uri, DataElement*& element) {
    const DataElement* const configured = getElement(ElementURI::Create(Str(), "Config/" + uri));
    if (configured == nullptr || !configured->hasValue()) return;
    if (element == nullptr) {
        element = newDataElement(uri, component, configured->getDataValue()->copy(), configured->getBaseAccuracy());
    }
    element->set(*configured->getDataValue(), configured->getTimestamp());
}

DataElement* Log::getElement(const ElementURI& uri) const {
    MutexLocker lock(elementURIs_.mutex_);
    return elements_.get(uri);
}

void Log::adopt(const ElementURI& uri, DataElement* element) {
    elementStore_.push(element);
    elements_.put(uri, element, false);
    const ElementURI* const registered = elementURIs_.byText_.get(uri);
    if (registered != nullptr) placeElement(*registered);
}

void Log::placeElement(const ElementURI& uri) {
    DataElement* const element = elements_.get(uri);
    if (element == nullptr) return;
    element->setCode(uri.getCode());
    if (uri.hasCode()) elementsByCode_.set(uri.getCode(), element);
    ++changes_;
}

// Accesses of components

DataElement* Log::elementToAttach(const ElementURI& uri, Component* owner) {
    codifiedURI(uri);
    return newDataElement(uri, owner, uri.getUnit(), uri.getBinaryType(), DataElement::NO_ACCURACY);
}

template <typename Accessor>
Accessor* Log::attach(Accessor* accessor, UniversalDataElement* universal) {
    accessorStore_.push(accessor);
    accessor->setDataAccess(getDataAccess(*accessor, universal));
    return accessor;
}

DataWriter* Log::attachWriter(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                              bool noInterpFlag, bool supplies) {
    DataElement* const element = elementToAttach(uri, owner);
    DataWriter* const writer = new DataWriter(owner, element, precision, noInterpFlag);
    element->registerWrite(*writer, supplies);
    return attach(writer, nullptr);
}

DataWriter* Log::newWriter(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                           bool noInterpFlag) {
    return attachWriter(owner, uri, precision, noInterpFlag, false);
}

DataWriter* Log::newOutputWriter(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                                 bool noInterpFlag) {
    return attachWriter(owner, uri, precision, noInterpFlag, true);
}

UniversalDataWriter* Log::newUniversalWriter(Component* owner, const ElementURI& uri, const UniversalURI& universal,
                                             Logger::TimePrecisionType precision, bool noInterpFlag) {
    UniversalDataElement* const fed =
        newUniversalElement(universal, owner, universal.getUnit(), universal.getBinaryType());
    DataElement* const element = elementToAttach(TypedLike(uri, universal), owner);
    UniversalDataWriter* const writer = new UniversalDataWriter(owner, element, fed, precision, noInterpFlag);
    element->registerWrite(*writer, true);
    return attach(writer, fed);
}

DataReader* Log::attachReader(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                              bool isInput) {
    DataElement* const element = elementToAttach(uri, owner);
    DataReader* const reader = new DataReader(owner, element, precision, isInput);
    element->registerRead(*reader);
    return attach(reader, nullptr);
}

DataReader* Log::newReader(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision) {
    return attachReader(owner, uri, precision, false);
}

DataReader* Log::newInputReader(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision) {
    return attachReader(owner, uri, precision, true);
}

UniversalDataReader* Log::newUniversalReader(Component* owner, const UniversalURI& universal,
                                             DataAccessor::RequestStrategy strategy,
                                             Logger::TimePrecisionType precision) {
    UniversalDataElement* const element =
        newUniversalElement(universal, owner, universal.getUnit(), universal.getBinaryType());
    UniversalDataReader* const reader = new UniversalDataReader(owner, element, strategy, precision);
    element->registerRead(*reader);
    return attach(reader, element);
}
