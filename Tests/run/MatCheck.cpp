// Shows every variable of a .mat file as another library reads it, one line each: its place, class and size as Matlab
// shows them, and its values in Matlab's order. Usage: matcheck FILE

#include <matio.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

const char* ClassName(matio_classes type) {
    static const std::map<matio_classes, const char*> NAMES = {{MAT_C_DOUBLE, "double"},
                                                               {MAT_C_CHAR, "char"},
                                                               {MAT_C_CELL, "cell"},
                                                               {MAT_C_STRUCT, "struct"},
                                                               {MAT_C_EMPTY, "empty"}};
    const auto found = NAMES.find(type);
    return found == NAMES.end() ? "other" : found->second;
}

size_t ElementCount(const matvar_t& variable) {
    size_t count = variable.rank > 0 ? 1 : 0;
    for (int i = 0; i < variable.rank; ++i) count *= variable.dims[i];
    return count;
}

void ShowValues(const matvar_t& variable) {
    for (size_t i = 0; variable.data != nullptr && i < ElementCount(variable); ++i) {
        if (variable.class_type == MAT_C_DOUBLE) printf(" %.10g", static_cast<const double*>(variable.data)[i]);
        if (variable.class_type != MAT_C_CHAR) continue;
        if (variable.data_type == MAT_T_UINT8 || variable.data_type == MAT_T_UTF8) {
            putchar(static_cast<const char*>(variable.data)[i]);
        } else {
            const int unit = static_cast<const mat_uint16_t*>(variable.data)[i];
            printf(unit < 0x80 ? "%c" : "\\x%x", unit);
        }
    }
}

void Show(const std::string& place, matvar_t& variable) {
    if (variable.class_type != MAT_C_STRUCT) {
        printf("%s %s", place.c_str(), ClassName(variable.class_type));
        for (int i = 0; i < variable.rank; ++i) printf("%c%zu", i == 0 ? ' ' : 'x', variable.dims[i]);
        putchar(':');
        ShowValues(variable);
        putchar('\n');
    }
    for (unsigned i = 0; variable.class_type == MAT_C_STRUCT && i < Mat_VarGetNumberOfFields(&variable); ++i) {
        matvar_t* const field = Mat_VarGetStructFieldByIndex(&variable, i, 0);
        if (field != nullptr) Show(place + "." + Mat_VarGetStructFieldnames(&variable)[i], *field);
    }
    for (size_t i = 0; variable.class_type == MAT_C_CELL && i < ElementCount(variable); ++i) {
        matvar_t* const cell = Mat_VarGetCell(&variable, static_cast<int>(i));
        if (cell != nullptr) Show(place + "{" + std::to_string(i + 1) + "}", *cell);
    }
}

}  // namespace

int main(int argc, char** argv) {
    mat_t* const file = argc == 2 ? Mat_Open(argv[1], MAT_ACC_RDONLY) : nullptr;
    if (file == nullptr) return 1;
    puts(Mat_GetHeader(file));
    while (matvar_t* const variable = Mat_VarReadNext(file)) {
        Show(variable->name, *variable);
        Mat_VarFree(variable);
    }
    Mat_Close(file);
    return 0;
}
