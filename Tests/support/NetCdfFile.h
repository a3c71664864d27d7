#pragma once

#include <netcdf.h>

#include <string>
#include <vector>

// Reads a NetCDF file through the library. Variables are named by their path: "depth", "Depth/Depth.depth".
// What does not exist reads as empty.
class NetCdfFile {
public:
    explicit NetCdfFile(const std::string& path) { isOpen_ = nc_open(path.c_str(), NC_NOWRITE, &file_) == NC_NOERR; }
    ~NetCdfFile() {
        if (isOpen_) nc_close(file_);
    }
    NetCdfFile(const NetCdfFile&) = delete;
    NetCdfFile& operator=(const NetCdfFile&) = delete;

    bool isOpen() const { return isOpen_; }
    bool has(const std::string& path) const { return find(path).var_ >= 0; }
    nc_type type(const std::string& path) const {
        nc_type type = NC_NAT;
        const Place place = find(path);
        nc_inq_vartype(place.group_, place.var_, &type);
        return type;
    }
    // The lengths along the variable's dimensions.
    std::vector<size_t> shape(const std::string& path) const {
        const Place place = find(path);
        int count = 0;
        nc_inq_varndims(place.group_, place.var_, &count);
        std::vector<int> dims(count);
        nc_inq_vardimid(place.group_, place.var_, dims.data());
        std::vector<size_t> lengths(count);
        for (int i = 0; i < count; ++i) nc_inq_dimlen(place.group_, dims[i], &lengths[i]);
        return lengths;
    }
    std::vector<double> numbers(const std::string& path) const {
        const Place place = find(path);
        std::vector<double> values(size(path));
        if (!values.empty()) nc_get_var_double(place.group_, place.var_, values.data());
        return values;
    }
    std::vector<std::string> texts(const std::string& path) const {
        const Place place = find(path);
        std::vector<char*> values(size(path));
        std::vector<std::string> texts;
        if (values.empty() || nc_get_var_string(place.group_, place.var_, values.data()) != NC_NOERR) return texts;
        texts.assign(values.begin(), values.end());
        nc_free_string(values.size(), values.data());
        return texts;
    }
    // An attribute of a variable, or with an empty path of the file, as a text; numbers as "%g".
    std::string att(const std::string& path, const std::string& name) const {
        const Place place = path.empty() ? Place{file_, NC_GLOBAL} : find(path);
        nc_type type = NC_NAT;
        size_t length = 0;
        if (nc_inq_att(place.group_, place.var_, name.c_str(), &type, &length) != NC_NOERR) return "(none)";
        std::string text(length, '\0');
        if (type == NC_CHAR) {
            nc_get_att_text(place.group_, place.var_, name.c_str(), text.data());
            return text;
        }
        double number = 0;
        nc_get_att_double(place.group_, place.var_, name.c_str(), &number);
        char digits[32];
        snprintf(digits, sizeof digits, "%g", number);
        return digits;
    }

private:
    struct Place {
        int group_;
        int var_;  // -1: there is none
    };
    Place find(const std::string& path) const {
        const size_t slash = path.find('/');
        Place place{file_, -1};
        const bool isThere = slash == std::string::npos ||
                             nc_inq_grp_ncid(file_, path.substr(0, slash).c_str(), &place.group_) == NC_NOERR;
        const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
        if (!isThere || nc_inq_varid(place.group_, name.c_str(), &place.var_) != NC_NOERR) place.var_ = -1;
        return place;
    }
    size_t size(const std::string& path) const {
        size_t size = has(path) ? 1 : 0;
        for (size_t length : shape(path)) size *= length;
        return size;
    }

    int file_ = -1;
    bool isOpen_ = false;
};
