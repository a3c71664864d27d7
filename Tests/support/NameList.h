#pragma once

#include <initializer_list>
#include <list>
#include <string>
#include <vector>

// The list of names or units that writers borrow, as the command line gives it: NameList({"Depth.depth", nullptr}).
class NameList {
public:
    NameList(std::initializer_list<const char*> names = {}) {
        for (const char* name : names) name == nullptr ? pointers_.push_back(nullptr) : add(name);
    }
    NameList(const NameList&) = delete;
    NameList(NameList&&) = default;
    NameList& operator=(const NameList&) = delete;

    void add(const std::string& name) { pointers_.push_back(texts_.emplace_back(name).data()); }

    int count() const { return static_cast<int>(pointers_.size()); }
    char** list() { return pointers_.data(); }
    char** listOrNull() { return pointers_.empty() ? nullptr : list(); }

private:
    std::list<std::string> texts_;
    std::vector<char*> pointers_;  // into texts_
};
