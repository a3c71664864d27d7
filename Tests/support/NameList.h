#pragma once

#include <initializer_list>
#include <string>
#include <vector>

// The list of names or units that writers borrow, as the command line gives it: NameList({"Depth.depth", nullptr}).
class NameList {
public:
    NameList(std::initializer_list<const char*> names) {
        texts_.reserve(names.size());
        for (const char* name : names) {
            texts_.emplace_back(name == nullptr ? "" : name);
            pointers_.push_back(name == nullptr ? nullptr : texts_.back().data());
        }
    }
    NameList(const NameList&) = delete;
    NameList& operator=(const NameList&) = delete;

    int count() const { return static_cast<int>(pointers_.size()); }
    char** list() { return pointers_.data(); }

private:
    std::vector<std::string> texts_;
    std::vector<char*> pointers_;  // into texts_
};
