#pragma once

#include "utils/hdf5/Hdf5File.h"

// A group or a data set of a file: it bears attributes and can be referred to. Closed when it goes.
// An open item costs the library some 20 KB, so one that stays for long rests while it is not used.
// Errors: see Hdf5File; an item without id (its making failed) does nothing.
class Hdf5Item {
public:
    Hdf5Item(Hdf5File& file, Hdf5Id id) : file_(file), id_(id) {}  // the file is borrowed, the id taken over
    Hdf5Item(Hdf5Item&& item) noexcept : file_(item.file_), id_(item.id_), resting_(item.resting_) { item.id_ = -1; }
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
    void rest();           // closes the item until it is used again

protected:
    // Makes this one of the items that rest when others are used; it stays as long as the file.
    void open(Hdf5Id id);
    Hdf5Id id();  // of the open item, until another one is opened

    Hdf5File& file_;

private:
    void addAtt(const char* name, Hdf5Id space, Hdf5Id fileType, Hdf5Id memoryType, const void* value);
    void addScalarAtt(const char* name, Hdf5Id fileType, Hdf5Id memoryType, const void* value);

    Hdf5Id id_;
    uint64_t resting_ = 0;  // the reference to the item while it rests; 0: it does not
};
