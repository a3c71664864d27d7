#pragma once

#include <memory>

#include "utils/Str.h"

// The parts of a variable's name, which end at '.', ':' and '/': the names of nested groups and, the last one, of the
// variable's own. There is always one; some may be empty.
class NameParts {
public:
    explicit NameParts(const Str& name);

    const Str& path() const { return path_; }  // the name with dots alone
    int groupCount() const { return count_ - 1; }
    const Str& group(int index) const { return parts_[static_cast<size_t>(index)]; }  // the outermost first
    const Str& last() const { return group(groupCount()); }

private:
    Str path_;
    int count_ = 0;
    std::unique_ptr<Str[]> parts_;
};
