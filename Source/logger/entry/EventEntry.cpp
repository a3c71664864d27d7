#include "logger/entry/EventEntry.h"

#include <cstring>
#include <memory>

#include "data/Component.h"
#include "data/DataElement.h"
#include "data/Log.h"
#include "logger/entry/EntryStream.h"
#include "logger/entry/EntryText.h"
#include "logger/entry/TimeBounds.h"

RecyclingPool EventEntry::Pool_("EventEntry", sizeof(EventEntry));
const PoolDrain EventEntry::PoolDrain_(Pool_);

static const size_t CYCLE_TIME_SIZE = 7;  // bytes of compact micros
static const size_t INT24_SIZE = 3;
static const unsigned short NO_ACTOR = 0;  // in a cycle start

static const char* const UNDEFINED = "(undefined)";

struct StateName {
    int bit_;
    const char* name_;
};
static const StateName STATE_NAMES[] = {
    // of the byte in the log, lowest bit first
    {1, UNDEFINED},
    {EventEntry::DATA_STATE_CHANGE_UNAVAILABLE, "UNAVAILABLE"},
    {EventEntry::DATA_STATE_CHANGE_AVAILABLE, "AVAILABLE"},
    {EventEntry::DATA_STATE_CHANGE_ORPHANED, "ORPHANED"},
    {EventEntry::DATA_STATE_CHANGE_UNORPHANED, "UNORPHANED"},
    {EventEntry::DATA_STATE_CHANGE_SET_BEST, "SET_BEST"},
    {EventEntry::DATA_STATE_CHANGE_INVALID, "INVALID"},
    {EventEntry::DATA_STATE_CHANGE_VALID, "VALID"},
};

template <typename T>
static bool ReadByte(InStream& in, T& value) {
    unsigned char byte = 0;
    if (!in.readExactly(&byte, 1)) return false;
    value = static_cast<T>(byte);
    return true;
}

static bool ReadAccuracy(InStream& in, double& accuracy) {
    float stored = 0;
    if (in.readFloat(stored).bytesRead() != sizeof stored) return false;
    accuracy = stored;
    return true;
}

static bool ReadInt24(InStream& in, int& value) {
    return in.readInt24(value).bytesRead() == INT24_SIZE;
}

static unsigned short CodeOf(const Component* actor) {
    return actor->getName().getCode();
}

EventEntry::EventEntry(const Timestamp& t, EventType type, unsigned short actor, Log& log)
    : LogEntry(EVENT_LOG_ENTRY, t, log),
      actorCode_(actor),
      running_(0),
      eventType_(type),
      action_(COMPONENT_LOAD),
      accuracy_(0) {}

EventEntry::EventEntry(const Timestamp& t) : EventEntry(t, START_CYCLE, NO_ACTOR) {}

EventEntry::EventEntry(const Timestamp& t, unsigned short actor, FailureMode::FailType failType, int count)
    : EventEntry(t, COMPONENT_ACTION, actor) {
    action_ = COMPONENT_FAIL;
    failType_ = failType;
    failCount_ = count;
}

EventEntry::EventEntry(const Timestamp& t, unsigned short actor, int running) : EventEntry(t, COMPONENT_ACTION, actor) {
    action_ = COMPONENT_MISSION_RUN;
    running_ = running;
}

EventEntry::EventEntry(const Timestamp& t, unsigned short actor, bool loaded) : EventEntry(t, COMPONENT_ACTION, actor) {
    action_ = COMPONENT_LOAD;
    loaded_ = loaded;
}

EventEntry::EventEntry(const Timestamp& t, unsigned short actor, unsigned short element, DataStateChange state)
    : EventEntry(t, SET_DATA_STATE, actor) {
    elementCode_ = element;
    state_ = state;
}

EventEntry::EventEntry(const Timestamp& t, unsigned short actor, unsigned short element, EventType type,
                       double accuracy)
    : EventEntry(t, type, actor) {
    elementCode_ = element;
    accuracy_ = accuracy;
}

EventEntry::EventEntry(const Component* actor, FailureMode::FailType failType, int count)
    : EventEntry(Timestamp::NOT_SET_TIME, CodeOf(actor), failType, count) {}

EventEntry::EventEntry(const Component* actor, int running)
    : EventEntry(Timestamp::NOT_SET_TIME, CodeOf(actor), running) {}

EventEntry::EventEntry(const Component* actor, bool loaded)
    : EventEntry(Timestamp::NOT_SET_TIME, CodeOf(actor), loaded) {}

EventEntry::EventEntry(const Component* actor, const DataElement* element, DataStateChange state)
    : EventEntry(Timestamp::NOT_SET_TIME, CodeOf(actor), element->getUri().getCode(), state) {}

EventEntry::EventEntry(const Component* actor, const DataElement* element, EventType type, double accuracy)
    : EventEntry(Timestamp::NOT_SET_TIME, CodeOf(actor), element->getUri().getCode(), type, accuracy) {}

// Cycle start: the header, then the absolute time, against which the entries that follow are timed.
unsigned int EventEntry::writeCycleStart(Timestamp& timeBase, OutStream& out) const {
    timeBase = timestamp_;
    const long long packed = timestamp_.asCompactMicros();
    char bytes[sizeof packed];
    memcpy(bytes, &packed, sizeof packed);
    const size_t n = out.writeUShortCompact(START_CYCLE).bytesWritten();
    return static_cast<unsigned int>(n + out.put(bytes, CYCLE_TIME_SIZE).bytesWritten());
}

EventEntry* EventEntry::ReadCycleStart(Timestamp& timeBase, const Timespan& timeAdjust, InStream& in,
                                       unsigned short actor, const Logger& logger, bool& error, Log& log) {
    long long packed = 0;
    if (!in.readExactly(&packed, CYCLE_TIME_SIZE)) {
        EntryStream::Fail(logger, in, "Encountered eof while reading start of cycle timestamp");
        return nullptr;
    }
    Timestamp t = Timestamp::FromMicros(packed);
    if (timeAdjust != Timespan::INVALID_TIMESPAN) t += timeAdjust;
    if (!TimeBounds::Holds(t)) {
        TimeBounds::LogViolation(logger, "EventEntry", t, in);
        error = true;
        return nullptr;
    }
    timeBase = t;
    return new EventEntry(t, START_CYCLE, actor, log);
}

// The other events: the header, the element of a data event, the time, and a body by event type.
unsigned int EventEntry::write(Timestamp& timeBase, OutStream& out) const {
    if (eventType_ == START_CYCLE) return writeCycleStart(timeBase, out);
    if (actorCode_ > MAX_ACTOR) return 0;
    size_t n = EntryStream::WriteCompact(out, static_cast<unsigned short>(eventType_ | actorCode_ << ACTOR_SHIFT));
    if (eventType_ != COMPONENT_ACTION) n += EntryStream::WriteCompact(out, elementCode_);
    n += writeTimestamp(timeBase, true, out, Logger::TIME_PRECISION_MILLIS);
    return static_cast<unsigned int>(n + writeBody(out));
}

EventEntry* EventEntry::Read(Timestamp& timeBase, Timespan& timeAdjust, InStream& in, unsigned short header,
                             const Logger& logger, bool& error, Log& log) {
    const EventType type = static_cast<EventType>(header & EVENT_MASK);
    const unsigned short actor = static_cast<unsigned short>(header >> ACTOR_SHIFT);
    if (type == START_CYCLE) return ReadCycleStart(timeBase, timeAdjust, in, actor, logger, error, log);
    std::unique_ptr<EventEntry> entry(new EventEntry(Timestamp::EPOCH_START_TIME, type, actor, log));
    if (type != COMPONENT_ACTION && !in.takeUShortCompact(entry->elementCode_)) {
        EntryStream::Fail(logger, in, "Encountered eof while reading Data Element code");
        return nullptr;
    }
    Timestamp t = timeBase;
    bool flag = false;
    if (!ReadTimestamp(t, flag, in, logger, Logger::TIME_PRECISION_MILLIS, log)) return nullptr;
    entry->setTimestamp(t);
    return entry->readBody(in, logger) ? entry.release() : nullptr;
}

size_t EventEntry::writeBody(OutStream& out) const {
    switch (eventType_) {
        case SET_DATA_ACCURACY:
            return out.writeFloat(static_cast<float>(accuracy_)).bytesWritten();
        case SET_DATA_STATE:
            return out.writeChar(static_cast<signed char>(state_)).bytesWritten();
        case COMPONENT_ACTION:
            return writeAction(out);
        default:
            return 0;
    }
}

bool EventEntry::readBody(InStream& in, const Logger& logger) {
    switch (eventType_) {
        case SET_DATA_ACCURACY:
            return ReadAccuracy(in, accuracy_) ||
                   EntryStream::Fail(logger, in, "Encountered eof while reading Data Element accuracy");
        case SET_DATA_STATE:
            return ReadByte(in, state_) ||
                   EntryStream::Fail(logger, in, "Encountered eof while reading Data Element state change");
        default:
            return readAction(in, logger);
    }
}

size_t EventEntry::writeAction(OutStream& out) const {
    size_t n = out.writeChar(static_cast<signed char>(action_)).bytesWritten();
    switch (action_) {
        case COMPONENT_MISSION_RUN:
            return n + out.writeInt24(running_).bytesWritten();
        case COMPONENT_FAIL:
            n += out.writeChar(static_cast<signed char>(failType_)).bytesWritten();
            return n + out.writeInt24(failCount_).bytesWritten();
        case COMPONENT_LOAD:
            return n + out.writeChar(loaded_ ? 1 : 0).bytesWritten();
    }
    return n;
}

bool EventEntry::readAction(InStream& in, const Logger& logger) {
    if (!ReadByte(in, action_)) return EntryStream::Fail(logger, in, "Encountered eof while reading Component Action");
    switch (action_) {
        case COMPONENT_MISSION_RUN:
            return ReadInt24(in, running_) || EntryStream::Fail(logger, in, "Encountered eof while reading Run Loop");
        case COMPONENT_FAIL:
            if (!ReadByte(in, failType_))
                return EntryStream::Fail(logger, in, "Encountered eof while reading Failure Mode");
            return ReadInt24(in, failCount_) ||
                   EntryStream::Fail(logger, in, "Encountered eof while reading Fail Count");
        case COMPONENT_LOAD:
            return ReadByte(in, loaded_) || EntryStream::Fail(logger, in, "Encountered eof while reading Loaded state");
    }
    return true;
}

const char* EventEntry::EventTypeToString(EventType type) {
    switch (type) {
        case START_CYCLE:
            return "START_CYCLE";
        case SET_DATA_ACCURACY:
            return "SET_DATA_ACCURACY";
        case SET_DATA_STATE:
            return "SET_DATA_STATE";
        case COMPONENT_ACTION:
            return "COMPONENT_ACTION";
    }
    return UNDEFINED;
}

static void AppendState(TextBuffer& text, EventEntry::DataStateChange state) {
    const char* separator = "";
    for (const StateName& known : STATE_NAMES) {
        if ((state & known.bit_) == 0) continue;
        text.append(separator).append(known.name_);
        separator = "|";
    }
    if (state == EventEntry::NO_DATA_STATE_CHANGE) text.append("NONE");
}

Str EventEntry::StateChangeToString(DataStateChange state) {
    TextBuffer text;
    AppendState(text, state);
    return text.toStr();
}

Str EventEntry::makeDataValueString() const {
    TextBuffer text;
    appendDataValue(text);
    return text.toStr();
}

void EventEntry::appendDataValue(TextBuffer& text) const {
    EntryText::AppendName(text, log_->getElementURI(elementCode_));
    text.append('=');
    if (eventType_ == SET_DATA_ACCURACY) {
        text.appendFixed(accuracy_, 6);
    } else {
        AppendState(text, state_);
    }
}

Str EventEntry::makeComponentActionString() const {
    TextBuffer text;
    appendComponentAction(text);
    return text.toStr();
}

static void AppendRunning(TextBuffer& text, int running) {
    if (running == EventEntry::PREEMPTED) {
        text.append("Preempted");
    } else if (running == 0) {
        text.append("Stopped");
    } else {
        text.append("Running Loop=").appendInt(running);
    }
}

void EventEntry::appendComponentAction(TextBuffer& text) const {
    switch (action_) {
        case COMPONENT_MISSION_RUN:
            return AppendRunning(text, running_);
        case COMPONENT_FAIL:
            text.append(FailureMode::ToString(failType_)).append(", FailCount= ").appendInt(failCount_);
            return;
        case COMPONENT_LOAD:
            text.append(loaded_ ? "Loaded" : "Unloaded");
            return;
    }
    text.append("Unknown Component Action");
}

void EventEntry::appendTo(TextBuffer& text, const Unit*) const {
    const bool isCycleStart = eventType_ == START_CYCLE;
    EntryText::AppendStamp(text, timestamp_, isCycleStart ? 6 : 3);
    if (!isCycleStart) {
        EntryText::AppendName(text, log_->getName(actorCode_));
        text.append(' ');
    }
    text.append(EventTypeToString(eventType_));
    if (!isCycleStart) text.append(' ');
    if (eventType_ == COMPONENT_ACTION) appendComponentAction(text);
    if (eventType_ == SET_DATA_ACCURACY || eventType_ == SET_DATA_STATE) appendDataValue(text);
}
