#pragma once

#include "data/DataAccess.h"
#include "data/StrValue.h"
#include "logger/entry/LogEntry.h"

// How the data entries of an access lie in the log, behind their header:
//   the time    with a flag: whether a value follows
//   the length  of the value, two bytes, where the access does not declare it
//   the value
// They come from a stream or from a ByteCursor.
class DataForm {
public:
    DataForm() = default;
    explicit DataForm(const DataAccess& access)
        : precision_(access.getTimePrecision()), type_(access.getBinaryType()), size_(access.getTypeSize()) {}

    BinaryDataType getType() const { return type_; }

    // Adds the time to t; false where it does not come.
    template <typename Source>
    bool takeTime(Timestamp& t, bool& changed, Source& from, bool timesHaveFlag) const {
        return LogEntry::TakeTimestamp(t, changed, from, precision_, timesHaveFlag);
    }
    // The bytes of the value and their number; null where they do not come. A stream needs room for them, of 65535
    // bytes.
    template <typename Source>
    const char* takeValue(unsigned short& size, Source& from, char* room = nullptr) const {
        size = size_;
        if (isText() && !from.takeUShort(size)) return nullptr;
        return from.take(size, room);
    }
    // Into a value of the type.
    void store(DataValue& value, const char* bytes, unsigned short size) const {
        if (isText()) {
            static_cast<StrValue&>(value).fromBinary(bytes, size);
        } else {
            value.fromBinary(bytes);
        }
    }

private:
    bool isText() const { return type_ == STRVALUE; }

    Logger::TimePrecisionType precision_ = Logger::TIME_PRECISION_MICROS;
    BinaryDataType type_ = NO_TYPE;
    unsigned short size_ = 0;
};
