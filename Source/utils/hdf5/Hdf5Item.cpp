#include "utils/hdf5/Hdf5Item.h"

#include <algorithm>

#include "utils/Utf8.h"
#include "utils/hdf5/Hdf5Handle.h"

Hdf5Item::~Hdf5Item() {
    if (id_ >= 0) H5Oclose(id_);
}

bool Hdf5Item::hasAtt(const char* name) {
    return file_.call([&] { return H5Aexists(id_, name); }) > 0;
}

void Hdf5Item::addAtt(const char* name, Hdf5Id fileType, Hdf5Id memoryType, const void* value) {
    if (hasAtt(name)) return;
    const Hdf5Handle space(file_.call([] { return H5Screate(H5S_SCALAR); }), &H5Sclose);
    const Hdf5Handle att(file_.call([&] { return H5Acreate2(id_, name, fileType, space, H5P_DEFAULT, H5P_DEFAULT); }),
                         &H5Aclose);
    file_.call([&] { return H5Awrite(att, memoryType, value); });
}

static bool IsAscii(const Str& text) {
    return std::all_of(text.data(), text.data() + text.length(), [](char c) { return (c & 0x80) == 0; });
}

void Hdf5Item::addAtt(const char* name, const Str& text) {
    const Str valid = Utf8::Sanitized(text);
    const Hdf5Handle type(file_.call([] { return H5Tcopy(H5T_C_S1); }), &H5Tclose);
    file_.call([&] { return H5Tset_size(type, std::max<size_t>(1, valid.length())); });
    if (!IsAscii(valid)) file_.call([&] { return H5Tset_cset(type, H5T_CSET_UTF8); });
    addAtt(name, type, type, valid.cStr());
}

void Hdf5Item::addAtt(const char* name, int value) {
    addAtt(name, H5T_STD_I32LE, H5T_NATIVE_INT, &value);
}

void Hdf5Item::addAtt(const char* name, unsigned char value) {
    addAtt(name, H5T_STD_U8LE, H5T_NATIVE_UCHAR, &value);
}

uint64_t Hdf5Item::reference() {
    static_assert(sizeof(hobj_ref_t) == sizeof(uint64_t), "a reference is one word");
    hobj_ref_t reference = 0;
    file_.call([&] { return H5Rcreate(&reference, id_, ".", H5R_OBJECT, -1); });
    return reference;
}
