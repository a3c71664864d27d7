#include "utils/hdf5/Hdf5Item.h"

#include <algorithm>
#include <memory>

#include "utils/Utf8.h"
#include "utils/hdf5/Hdf5Handle.h"

Hdf5Item::~Hdf5Item() {
    const MemoryReserve::Loan memory;
    if (id_ >= 0 && memory.hasRoom()) H5Oclose(id_);
}

void Hdf5Item::open(Hdf5Id id) {
    id_ = id;
    if (id >= 0) file_.keepOpen(*this);
}

Hdf5Id Hdf5Item::id() {
    if (id_ < 0 && resting_ != 0) {
        open(file_.call([this] { return H5Rdereference2(file_.id(), H5P_DEFAULT, H5R_OBJECT, &resting_); }));
    }
    return id_;
}

void Hdf5Item::rest() {
    resting_ = reference();
    file_.call([this] { return H5Oclose(id_); });
    id_ = -1;
}

bool Hdf5Item::hasAtt(const char* name) {
    return file_.call([&] { return H5Aexists(id(), name); }) > 0;
}

void Hdf5Item::addAtt(const char* name, Hdf5Id space, Hdf5Id fileType, Hdf5Id memoryType, const void* value) {
    if (hasAtt(name)) return;
    const Hdf5Handle att(file_.call([&] { return H5Acreate2(id(), name, fileType, space, H5P_DEFAULT, H5P_DEFAULT); }),
                         &H5Aclose);
    file_.call([&] { return H5Awrite(att, memoryType, value); });
}

void Hdf5Item::addScalarAtt(const char* name, Hdf5Id fileType, Hdf5Id memoryType, const void* value) {
    const Hdf5Handle space(file_.call([] { return H5Screate(H5S_SCALAR); }), &H5Sclose);
    addAtt(name, space, fileType, memoryType, value);
}

static bool IsAscii(const Str& text) {
    return std::all_of(text.data(), text.data() + text.length(), [](char c) { return (c & 0x80) == 0; });
}

void Hdf5Item::addAtt(const char* name, const Str& text) {
    const MemoryReserve::Loan memory;
    const Str valid = Utf8::Sanitized(text);
    const Hdf5Handle type(file_.call([] { return H5Tcopy(H5T_C_S1); }), &H5Tclose);
    file_.call([&] { return H5Tset_size(type, std::max<size_t>(1, valid.length())); });
    if (!IsAscii(valid)) file_.call([&] { return H5Tset_cset(type, H5T_CSET_UTF8); });
    addScalarAtt(name, type, type, valid.cStr());
}

void Hdf5Item::addAtt(const char* name, int value) {
    addScalarAtt(name, H5T_STD_I32LE, H5T_NATIVE_INT, &value);
}

void Hdf5Item::addAtt(const char* name, unsigned char value) {
    addScalarAtt(name, H5T_STD_U8LE, H5T_NATIVE_UCHAR, &value);
}

static const size_t ATTRIBUTE_ROOM = 64000;  // bytes of an item's description that one attribute may take

void Hdf5Item::addAtt(const char* name, const Str* texts, size_t count) {
    static const size_t TEXT_SIZE = 16;  // length and place
    if (count == 0 || count > ATTRIBUTE_ROOM / TEXT_SIZE) return;
    const std::unique_ptr<hvl_t[]> values(new hvl_t[count]);
    for (size_t i = 0; i < count; ++i) values[i] = {texts[i].length(), const_cast<char*>(texts[i].data())};
    const hsize_t extent = count;
    const Hdf5Handle space(file_.call([&] { return H5Screate_simple(1, &extent, nullptr); }), &H5Sclose);
    const Hdf5Handle character(file_.call([] { return H5Tcopy(H5T_C_S1); }), &H5Tclose);
    const Hdf5Handle type(file_.call([&] { return H5Tvlen_create(character); }), &H5Tclose);
    addAtt(name, space, type, type, values.get());
}

uint64_t Hdf5Item::reference() {
    static_assert(sizeof(hobj_ref_t) == sizeof(uint64_t), "a reference is one word");
    hobj_ref_t reference = 0;
    file_.call([&] { return H5Rcreate(&reference, id(), ".", H5R_OBJECT, -1); });
    return reference;
}
