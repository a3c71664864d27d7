#pragma once

#include "data/DataValue.h"
#include "logger/entry/LogEntry.h"
#include "logger/entry/PoolDrain.h"
#include "utils/RecyclingPool.h"

class DataAccess;
class DataAccessor;
class ByteCursor;
class DataElement;
struct KnownAccess;
class TextBuffer;

// A component read or wrote one datum.
class DataEntry final : public LogEntry {
public:
    static constexpr unsigned short BEST_MASK = 4;   // bit 2 of the header word
    static constexpr unsigned short CODE_SHIFT = 3;  // bits 3-15: the data access code
    static constexpr unsigned short MAX_CODE = 8191;

    // Takes the value over; it may be null. changed: the entry carries the value's bytes.
    DataEntry(DataAccess* dataAccess, DataValue* dataValue, const Timestamp& t, bool best, bool changed,
              Log& log = Log::Current());
    // Borrows the element's value. NOT_SET_TIME stands for now.
    DataEntry(DataAccessor* accessor, bool best, bool changed, const Timestamp& t = Timestamp::NOT_SET_TIME,
              Log& log = Log::Current());
    DataEntry(const DataEntry& other);                    // with a copy of the value, which it owns
    DataEntry(const DataEntry& other, DataValue* value);  // with another value, which is borrowed
    DataEntry& operator=(const DataEntry&) = delete;
    ~DataEntry() override;

    unsigned int write(Timestamp& timeBase, OutStream& out) const override;
    void appendTo(TextBuffer& text, const Unit* unit) const override;
    // The value's text in the unit given, failing that in the access's, failing that in its own; "NULL" without a
    // value.
    virtual Str getDataValueString(const Unit* unit, bool hideUnit) const;
    void appendValue(TextBuffer& text, const Unit* unit, bool hideUnit) const;  // the same text

    // How the datum was reached: the log's. Null in an entry that was made without one.
    DataAccess* getDataAccess() const { return dataAccess_; }
    DataValue* getDataValue() const { return dataValue_; }  // null when there is none
    const Unit& valueUnit() const { return dataValue_ == nullptr ? Units::NONE : dataValue_->unitOrNone(); }
    // The value is a number, though it may be NaN: no text, no array.
    bool isNumber() const { return dataValue_ != nullptr && dataValue_->getBinaryType() != STRVALUE; }
    // The value is the best of those that serve its universal.
    bool isBest() const { return best_; }
    void setBest(bool best) { best_ = best; }
    // The log has the value with the entry; else the entry repeats the one before.
    bool isChanged() const { return changed_; }
    // Else a component read the value. False without an access.
    bool isDataWrite() const;
    // ElementURI::NO_CODE without an access.
    unsigned short getElementCode() const;
    // Of the universal that the element serves; ElementURI::NUM_CODES or above: none.
    unsigned short getUniversalCode() const;
    // Of the universal as whose value it also counts, being the best; ElementURI::NUM_CODES or above: none.
    unsigned short getBestCode() const;
    // The value as a number in the unit; NaN without a value or where it is no number of such a unit.
    double getNumber(const Unit& unit) const;
    // The unit in which the value is shown when `unit` is asked for (null: none is).
    const Unit& displayUnit(const Unit* unit) const;
    // Borrowed; of the entry's own log.
    void setDataAccess(DataAccess* dataAccess) { dataAccess_ = dataAccess; }
    // Gives the entry a value of its own that holds the number: of the class it has, a double where it has none or its
    // class cannot hold the number.
    void setNumber(const Unit& unit, double number);

    // Makes the value read the element's current one and borrows it from there. With SKIP_VALUES the bytes are passed
    // over: the entry has no value and the log's elements stay as they are.
    static DataEntry* Read(Timestamp& timeBase, InStream& in, unsigned short header, const Logger& logger, bool& error,
                           Values values = STORE_VALUES, Log& log = Log::Current());

    // Without an access and a value; made for one entry after the other, by take.
    explicit DataEntry(Log& log);
    // Becomes the entry of a known access whose bytes come next, behind their header, and gives its value to the
    // element. False, and nothing has changed but the cursor, for one that is not whole there or needs a closer look.
    bool take(const KnownAccess& known, unsigned short header, ByteCursor& from, const Timestamp& timeBase);

    static void* operator new(size_t size) { return Pool_.allocate(size); }
    static void operator delete(void* block) { Pool_.release(block); }

private:
    void shareValueWith(DataElement& element);

    DataAccess* dataAccess_;  // owned by the log
    DataValue* dataValue_;    // owned when ownsValue_, else the element's current value
    bool best_;
    bool changed_;
    bool ownsValue_;

    static RecyclingPool Pool_;
    static const PoolDrain PoolDrain_;
};
