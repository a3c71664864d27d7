#pragma once

#include "utils/hdf5/Hdf5File.h"

// A group or a data set of a file: it bears attributes and can be referred to. Closed when it goes.
// Errors: see Hdf5File; an item without id (its making failed) does nothing.
class Hdf5Item {
public:
    Hdf5Item(Hdf5File& file, Hdf5Id id) : file_(file), id_(id) {}  // the file is borrowed, the id taken over
    Hdf5Item(Hdf5Item&& item) noexcept : file_(item.file_), id_(item.id_) { item.id_ = -1; }
    virtual ~Hdf5Item();
    Hdf5Item(const Hdf5Item&) = delete;
    Hdf5Item& operator=(const Hdf5Item&) = delete;

    // Attributes; one that is there already keeps its value. A text is of fixed length, UTF-8 where it is not ASCII.
    void addAtt(const char* name, const Str& text);
    void addAtt(const char* name, const char* text) { addAtt(name, Str(text)); }
    void addAtt(const char* name, int value);
    void addAtt(const char* name, unsigned char value);
    // A list of texts, each of its own length; none when they are too many for an attribute (about 4000).
    void addAtt(const char* name, const Str* texts, size_t count);
    bool hasAtt(const char* name);  // false after a failure

    uint64_t reference();  // to this item, for a column of references; 0 when there is none

protected:
    Hdf5File& file_;
    Hdf5Id id_;

private:
    void addAtt(const char* name, Hdf5Id space, Hdf5Id fileType, Hdf5Id memoryType, const void* value);
    void addScalarAtt(const char* name, Hdf5Id fileType, Hdf5Id memoryType, const void* value);
};
