#pragma once

#include <hdf5.h>

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "utils/hdf5/Hdf5Library.h"

// Reads an HDF5 file and shows its data sets as text, by what they declare themselves to be:
//   "double{1,2}: 1.5 nan"    "char{2,1}: ab"    "cell{1,2}: [char{1,1}: a] [empty double]"    "strings{1,2}: a|bc|"
// Types that have no Matlab class are shown alike: "numbers", "texts", "references".
class Hdf5Reader {
public:
    explicit Hdf5Reader(const std::string& path) {
        Hdf5Library::Prepare();
        file_ = H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
    }
    ~Hdf5Reader() {
        if (file_ >= 0) H5Fclose(file_);
    }
    Hdf5Reader(const Hdf5Reader&) = delete;
    Hdf5Reader& operator=(const Hdf5Reader&) = delete;

    bool isOpen() const { return file_ >= 0; }
    bool has(const std::string& path) const { return H5Oexists_by_name(file_, path.c_str(), H5P_DEFAULT) > 0; }
    std::string show(const std::string& path) const {
        const hid_t id = H5Dopen2(file_, path.c_str(), H5P_DEFAULT);
        if (id < 0) return "none";
        const std::string text = showSet(id);
        H5Dclose(id);
        return text;
    }
    // The text of an attribute of a group or data set, with " (UTF-8)" where it declares that; "none" without one.
    std::string att(const std::string& path, const char* name) const {
        const hid_t id = H5Oopen(file_, path.c_str(), H5P_DEFAULT);
        const std::string text = id < 0 ? "none" : attOf(id, name);
        if (id >= 0) H5Oclose(id);
        return text;
    }
    // The names in a group, each followed by a blank.
    std::string list(const std::string& path = "/") const {
        std::string names;
        H5Literate_by_name(file_, path.c_str(), H5_INDEX_NAME, H5_ITER_INC, nullptr, &AddName, &names, H5P_DEFAULT);
        return names;
    }

private:
    static herr_t AddName(hid_t, const char* name, const H5L_info_t*, void* names) {
        *static_cast<std::string*>(names) += name + std::string(" ");
        return 0;
    }
    static std::string attOf(hid_t id, const char* name) {
        if (H5Aexists(id, name) <= 0) return "none";
        const hid_t att = H5Aopen(id, name, H5P_DEFAULT);
        const hid_t type = H5Aget_type(att);
        std::string text(H5Tget_size(type), '\0');
        H5Aread(att, type, text.data());
        if (H5Tget_cset(type) == H5T_CSET_UTF8) text += " (UTF-8)";
        H5Tclose(type);
        H5Aclose(att);
        return text.c_str();
    }

    std::string showSet(hid_t set) const {
        const hid_t space = H5Dget_space(set);
        const hid_t type = H5Dget_type(set);
        std::vector<hsize_t> dims(static_cast<size_t>(H5Sget_simple_extent_ndims(space)));
        H5Sget_simple_extent_dims(space, dims.data(), nullptr);
        const size_t count = static_cast<size_t>(H5Sget_simple_extent_npoints(space));
        std::ostringstream out;
        if (H5Aexists(set, "MATLAB_empty") > 0) {
            out << "empty " << attOf(set, "MATLAB_class");
        } else {
            out << kindOf(set, type);
            for (size_t i = 0; i < dims.size(); ++i) out << (i == 0 ? '{' : ',') << dims[i];
            out << "}:";
            showElements(out, set, type, count);
        }
        H5Tclose(type);
        H5Sclose(space);
        return out.str();
    }
    static std::string kindOf(hid_t set, hid_t type) {
        const std::string matlabClass = attOf(set, "MATLAB_class");
        if (matlabClass != "none") return matlabClass;
        const H5T_class_t typeClass = H5Tget_class(type);
        return typeClass == H5T_STRING ? "texts" : typeClass == H5T_REFERENCE ? "references" : "numbers";
    }
    void showElements(std::ostringstream& out, hid_t set, hid_t type, size_t count) const {
        const H5T_class_t typeClass = H5Tget_class(type);
        if (typeClass == H5T_FLOAT) {
            for (const double number : read<double>(set, H5T_NATIVE_DOUBLE, count)) out << ' ' << number;
        } else if (typeClass == H5T_INTEGER) {
            out << ' ';
            for (const uint16_t unit : read<uint16_t>(set, H5T_NATIVE_UINT16, count)) {
                if (unit < 0x80 && unit != 0) {
                    out << static_cast<char>(unit);
                } else {
                    out << "\\x" << std::hex << unit << std::dec;
                }
            }
        } else if (typeClass == H5T_STRING) {
            out << ' ';
            for (char* text : read<char*>(set, type, count)) {
                out << text << '|';
                H5free_memory(text);  // the library made it
            }
        } else {
            for (const hobj_ref_t& reference : read<hobj_ref_t>(set, H5T_STD_REF_OBJ, count)) {
                const hid_t item = H5Rdereference2(set, H5P_DEFAULT, H5R_OBJECT, &reference);
                out << " [" << showSet(item) << ']';
                H5Dclose(item);
            }
        }
    }
    template <typename T>
    static std::vector<T> read(hid_t set, hid_t type, size_t count) {
        std::vector<T> elements(count);
        H5Dread(set, type, H5S_ALL, H5S_ALL, H5P_DEFAULT, elements.data());
        return elements;
    }

    hid_t file_;
};
