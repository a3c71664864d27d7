#pragma once

#include <functional>

#include "utils/FlexArray.h"
#include "utils/Str.h"

// Where the entries of a log may lie: in the file of the log's own name or, without it, in numbered parts, "slate0000",
// "slate0001" and so on. A part may also be called ".bak" at its end and, with priority words, "Courier0000".
class LogFiles {
public:
    // Offered a name, whether there is such a file or not; true: no other is wanted in its stead.
    typedef std::function<bool(const Str& name)> Take;

    // A number may be missing where a later one is not; the parts have ended where so many in a row are missing.
    static constexpr int MAX_MISSING = 20;

    LogFiles(const Str& log, const FlexArray<const char*>* priorities)  // borrowed; null: none
        : log_(log), priorities_(priorities) {}

    // The name of a numbered part: "slate0003".
    Str part(unsigned int number) const;
    // Offers the names of one part, in the order in which they are tried, until one is taken; false: none was.
    bool offerPart(const Str& part, const Take& take) const;
    // Offers the log's own name and, unless it is that of a file, those of its parts.
    void offerAll(const Take& take) const;

    static bool IsFile(const Str& path);  // a regular one, which can be read

private:
    bool offerPriorityNames(const Str& part, const Take& take) const;

    const Str log_;
    const FlexArray<const char*>* const priorities_;
};
