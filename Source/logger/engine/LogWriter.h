#pragma once

#include "data/Log.h"
#include "io/OutStream.h"
#include "logger/entry/LogEntry.h"
#include "units/Unit.h"
#include "utils/Mutex.h"

// Turns log entries, handed over one by one, into bytes on a stream. It knows nothing of files: a FileLogWriter gives
// it one. Calls come in this order: setOutStream, writeHeader, any number of write, writeFooter; a writer that is given
// a new file gets a footer for the old one and a header for the new one.
// Ownership: wrappers and associations count themselves with addParent; the last holder deletes the writer.
// A writer belongs to the log that is current where it is made: the codes of its entries are that log's.
// Threads: write holds the writer's own mutex for the length of one entry.
class LogWriter {
public:
    enum ServiceType : int {
        NO_SERVICE = -1,
        SERVICE_DIRECT = 0,
        SERVICE_COURIER = 1,
        SERVICE_EXPRESS = 2,
        SERVICE_PRIORITY = 3,
        SERVICE_NORMAL = 4,
        SERVICE_BULK = 5,
        SERVICE_COUNT = 6,
        SERVICE_MULTI = 7,
    };
    static const char* const SERVICE_TYPE_STRS[SERVICE_COUNT];
    static const size_t SERVICE_TYPE_STRLEN[SERVICE_COUNT];

    LogWriter() = default;
    // The stream is borrowed.
    explicit LogWriter(OutStream& out) : logStream_(&out) {}
    virtual ~LogWriter() {}
    LogWriter(const LogWriter&) = delete;
    LogWriter& operator=(const LogWriter&) = delete;

    virtual unsigned int writeHeader() { return 0; }                  // bytes written
    virtual void setOutStream(OutStream& out) { logStream_ = &out; }  // borrowed, outlives the writer's use
    // It has a stream with a target; a writer with a file of its own: nothing has failed there.
    virtual bool isValid() { return logStream_ != nullptr && logStream_->isWritable(); }
    // One entry; unit: what its value is to be shown in, or null. The result is the number of bytes written.
    virtual unsigned int write(const LogEntry* entry, const Unit* unit) = 0;
    // After the entries of a control cycle, if any of them came to the writer.
    virtual void endCycle() {}
    // What ends the output, with what was held back until then; bytes written. Only a new header follows.
    virtual unsigned int writeFooter() { return 0; }
    // The vehicle's logger has been configured; it is borrowed for the call, and writers in front of another hand it
    // on. The converter never calls it.
    virtual void config(Logger&) {}
    virtual void resetInputs() {}  // forget what one input was about
    // When memory is refused, a writer that holds much has to give it back: to a temporary file, or else it writes what
    // there is, with a message, and takes no entry from then on.
    virtual size_t heldBytes() { return 0; }  // that freeMemory gives back, about
    virtual void freeMemory() {}
    virtual bool isWhole() { return true; }  // false: it had to leave something out, and told so
    // No association offers an entry to a writer that is not active. New ones are.
    virtual void activate() { active_ = true; }
    virtual void deactivate() { active_ = false; }
    virtual bool isActive() { return active_; }
    // Between the two, which the same thread calls, no entry is half written.
    virtual void lockWrites() { writeMutex_.lock(); }
    virtual void unlockWrites() { writeMutex_.unlock(); }

    // Counts a holder. removeParent alone deletes nothing: holders that are done call Release.
    void addParent() { ++parentCount_; }
    void removeParent() { --parentCount_; }
    int getParentCount() const { return parentCount_; }
    // Takes the parent's count back and deletes the writer when nobody holds it any more; null is ignored.
    static void Release(LogWriter* writer);

    static const char* ServiceType2Str(ServiceType type);              // "none." when out of range
    static size_t ServiceType2Strlen(ServiceType type);                // 0 when out of range
    static ServiceType Str2ServiceType(const char* text, int length);  // NO_SERVICE when no word is equal

protected:
    Log& log_ = Log::Current();       // borrowed
    OutStream* logStream_ = nullptr;  // borrowed
    bool wroteHeader_ = false;
    bool wroteFooter_ = false;
    Mutex writeMutex_;
    int parentCount_ = 0;
    bool active_ = true;
};
