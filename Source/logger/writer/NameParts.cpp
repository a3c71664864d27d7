#include "logger/writer/NameParts.h"

NameParts::NameParts(const Str& name) : path_(name) {
    path_.replaceChar(':', '.');
    path_.replaceChar('/', '.');
    parts_.reset(path_.split(count_, "."));
}
