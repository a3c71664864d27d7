// The Slate's elements and the components' accesses to them.

#include "data/BlobValue.h"
#include "data/DataReader.h"
#include "data/DataWriter.h"
#include "data/Slate.h"

namespace {

// The value of a new element: NaN, 0 or ""; null for a type that does not exist.
DataValue* EmptyValue(const ElementURI& uri, const Unit& unit, BinaryDataType type) {
    if (type != STRVALUE || uri.getBlobType() == NOT_BLOB) return unit.dataValue(type);
    BlobValue* const value = new BlobValue(uri);
    value->setUnit(unit);
    return value;
}

void ReportChange(const char* what, const Str& name, const Str& from, const Str& to) {
    Str text("Attempt to change ");
    text << what << " of universal '" << name << "' from " << from << " to " << to;
    Slate::GetLogger().syslog(text, Syslog::ERROR);
}

// The name with the unit and type of the universal that it feeds, where it has none of its own.
ElementURI TypedLike(const ElementURI& uri, const UniversalURI& universal) {
    if (&uri.getUnit() != &ElementURI::UNSPECIFIED_UNIT || uri.getBinaryType() != NO_TYPE) return uri;
    return ElementURI(uri.getCode(), uri, uri.getElementType(), universal.getUnit(), universal.getBinaryType(),
                      universal.getBlobType(), universal.getDimension1(), universal.getDimension2(),
                      universal.getDimension3());
}

}  // namespace

DataElement* Slate::NewDataElement(const ElementURI& uri, Component* component, const Unit& unit, BinaryDataType type,
                                   float accuracy) {
    DataElement* const known = GetElement(uri);
    return known != nullptr ? known : NewDataElement(uri, component, EmptyValue(uri, unit, type), accuracy);
}

DataElement* Slate::NewDataElement(const ElementURI& uri, Component*, DataValue* value, float accuracy) {
    MutexLocker lock(ElementMutex_);
    DataElement* element = GetElement(uri);
    if (element != nullptr) {
        delete value;
        return element;
    }
    if (uri.getElementType() == ElementURI::CONFIG_ELEMENT) {
        element = new ConfigDataElement(uri, value, accuracy);
    } else {
        element = new SimpleDataElement(uri, value, accuracy);
    }
    Adopt(uri, element);
    return element;
}

UniversalDataElement* Slate::NewUniversalElement(const UniversalURI& uri, Component* component, const Unit& unit,
                                                 BinaryDataType type) {
    MutexLocker lock(ElementMutex_);
    UniversalDataElement* const known = UniversalMap_.get(uri);
    if (known != nullptr) return known;
    const std::unique_ptr<DataValue> value(EmptyValue(uri, unit, type));
    return NewUniversalElement(uri, component, value.get());
}

UniversalDataElement* Slate::NewUniversalElement(const UniversalURI& uri, Component*, const DataValue* value) {
    MutexLocker lock(ElementMutex_);
    UniversalDataElement* const known = UniversalMap_.get(uri);
    if (known == nullptr) {
        DataValue* const own = value == nullptr ? nullptr : value->copy();
        UniversalDataElement* const element =
            new UniversalDataElement(*CodifiedURI(uri), own, DataElement::NO_ACCURACY);
        UniversalMap_.put(uri, element, false);
        Adopt(uri, element);
        return element;
    }
    if (value == nullptr) return known;
    const Unit& base = known->getBaseUnit();
    if (&base != &value->getBaseUnit()) {
        ReportChange("base unit", uri, base.getName(), value->getBaseUnit().getName());
    } else if (known->getTypeSize() != value->getTypeSize()) {
        ReportChange("type size", uri, Str(known->getTypeSize(), 10), Str(value->getTypeSize(), 10));
    }
    return known;
}

void Slate::MapDataElement(ElementURI* uri, DataElement* element) {
    MutexLocker lock(ElementMutex_);
    Adopt(*uri, element);
}

void Slate::ConfigureNewDataElement(Component* component, const ElementURI& uri, DataElement*& element) {
    const DataElement* const configured = GetElement(ElementURI::Create(Str(), "Config/" + uri));
    if (configured == nullptr || !configured->hasValue()) return;
    if (element == nullptr) {
        element = NewDataElement(uri, component, configured->getDataValue()->copy(), configured->getBaseAccuracy());
    }
    element->set(*configured->getDataValue(), configured->getTimestamp());
}

DataElement* Slate::GetElement(const ElementURI& uri) {
    MutexLocker lock(ElementMutex_);
    return DataElementMap_.get(uri);
}

void Slate::Adopt(const ElementURI& uri, DataElement* element) {
    DataElementStore_.push(element);
    DataElementMap_.put(uri, element, false);
    const ElementURI* const registered = ElementURIMap_.get(uri);
    if (registered != nullptr) PlaceElement(*registered);
}

void Slate::PlaceElement(const ElementURI& uri) {
    DataElement* const element = DataElementMap_.get(uri);
    if (element == nullptr) return;
    element->setCode(uri.getCode());
    if (uri.hasCode()) DataElementArray_.set(uri.getCode(), element);
}

// Accesses of components

DataElement* Slate::ElementToAttach(const ElementURI& uri, Component* owner) {
    CodifiedURI(uri);
    return NewDataElement(uri, owner, uri.getUnit(), uri.getBinaryType(), DataElement::NO_ACCURACY);
}

template <typename Accessor>
Accessor* Slate::Attach(Accessor* accessor, UniversalDataElement* universal) {
    DataAccessorStore_.push(accessor);
    accessor->setDataAccess(GetDataAccess(*accessor, universal));
    return accessor;
}

DataWriter* Slate::AttachWriter(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                                bool noInterpFlag, bool supplies) {
    DataElement* const element = ElementToAttach(uri, owner);
    DataWriter* const writer = new DataWriter(owner, element, precision, noInterpFlag);
    element->registerWrite(*writer, supplies);
    return Attach(writer, nullptr);
}

DataWriter* Slate::NewWriter(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                             bool noInterpFlag) {
    return AttachWriter(owner, uri, precision, noInterpFlag, false);
}

DataWriter* Slate::NewOutputWriter(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                                   bool noInterpFlag) {
    return AttachWriter(owner, uri, precision, noInterpFlag, true);
}

UniversalDataWriter* Slate::NewUniversalWriter(Component* owner, const ElementURI& uri, const UniversalURI& universal,
                                               Logger::TimePrecisionType precision, bool noInterpFlag) {
    UniversalDataElement* const fed =
        NewUniversalElement(universal, owner, universal.getUnit(), universal.getBinaryType());
    DataElement* const element = ElementToAttach(TypedLike(uri, universal), owner);
    UniversalDataWriter* const writer = new UniversalDataWriter(owner, element, fed, precision, noInterpFlag);
    element->registerWrite(*writer, true);
    return Attach(writer, fed);
}

DataReader* Slate::AttachReader(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision,
                                bool isInput) {
    DataElement* const element = ElementToAttach(uri, owner);
    DataReader* const reader = new DataReader(owner, element, precision, isInput);
    element->registerRead(*reader);
    return Attach(reader, nullptr);
}

DataReader* Slate::NewReader(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision) {
    return AttachReader(owner, uri, precision, false);
}

DataReader* Slate::NewInputReader(Component* owner, const ElementURI& uri, Logger::TimePrecisionType precision) {
    return AttachReader(owner, uri, precision, true);
}

UniversalDataReader* Slate::NewUniversalReader(Component* owner, const UniversalURI& universal,
                                               DataAccessor::RequestStrategy strategy,
                                               Logger::TimePrecisionType precision) {
    UniversalDataElement* const element =
        NewUniversalElement(universal, owner, universal.getUnit(), universal.getBinaryType());
    UniversalDataReader* const reader = new UniversalDataReader(owner, element, strategy, precision);
    element->registerRead(*reader);
    return Attach(reader, element);
}
