#pragma once

#include "logger/entry/FailureMode.h"
#include "logger/entry/LogEntry.h"
#include "logger/entry/PoolDrain.h"
#include "utils/RecyclingPool.h"

class Component;
class DataElement;

// What a component did: a control cycle began, a datum's accuracy or state changed, a component acted.
class EventEntry final : public LogEntry {
public:
    enum EventType : int { START_CYCLE = 0, SET_DATA_ACCURACY = 4, SET_DATA_STATE = 8, COMPONENT_ACTION = 12 };
    static constexpr unsigned short EVENT_MASK = 12;  // bits 2-3 of the header word
    static constexpr unsigned short ACTOR_SHIFT = 4;  // bits 4-15: the actor code
    static constexpr unsigned short MAX_ACTOR = 4095;

    enum ComponentAction : int { COMPONENT_LOAD = 0, COMPONENT_MISSION_RUN = 4, COMPONENT_FAIL = 8 };
    enum DataStateChange : int {
        NO_DATA_STATE_CHANGE = 0,
        DATA_STATE_CHANGE_UNAVAILABLE = 2,
        DATA_STATE_CHANGE_AVAILABLE = 4,
        DATA_STATE_CHANGE_ORPHANED = 8,
        DATA_STATE_CHANGE_UNORPHANED = 16,
        DATA_STATE_CHANGE_SET_BEST = 32,
        DATA_STATE_CHANGE_INVALID = 64,
        DATA_STATE_CHANGE_VALID = 128,
    };
    static constexpr int PREEMPTED = -1;  // as a running value; 0 is stopped, else the loop number

    explicit EventEntry(const Timestamp& t);  // START_CYCLE
    // Components act: COMPONENT_FAIL, the count being of failures so far; COMPONENT_MISSION_RUN, with a loop number, 0
    // or PREEMPTED; COMPONENT_LOAD. Actors and elements are the log's codes of their names.
    EventEntry(const Timestamp& t, unsigned short actor, FailureMode::FailType failType, int count);
    EventEntry(const Timestamp& t, unsigned short actor, int running);
    EventEntry(const Timestamp& t, unsigned short actor, bool loaded);
    // SET_DATA_STATE, with bits of DataStateChange, and SET_DATA_ACCURACY, in the element's base unit.
    EventEntry(const Timestamp& t, unsigned short actor, unsigned short element, DataStateChange state);
    EventEntry(const Timestamp& t, unsigned short actor, unsigned short element, EventType type, double accuracy);
    // The same for live components; stamped now.
    EventEntry(const Component* actor, FailureMode::FailType failType, int count);
    EventEntry(const Component* actor, int running);
    EventEntry(const Component* actor, bool loaded);
    EventEntry(const Component* actor, const DataElement* element, DataStateChange state);
    EventEntry(const Component* actor, const DataElement* element, EventType type, double accuracy);

    unsigned int write(Timestamp& timeBase, OutStream& out) const override;
    void appendTo(TextBuffer& text, const Unit* unit) const override;
    // What stands behind the event type in the line of text: "Running Loop=3"; "Depth.depth=VALID", "Unknown" for an
    // element that the log does not name.
    virtual Str makeComponentActionString() const;
    Str makeDataValueString() const;

    // Codes are those of names; a cycle start has actor 0.
    EventType getEventType() const { return eventType_; }
    unsigned short getActorCode() const { return actorCode_; }
    // Each of these belongs to its own kind of event and says nothing for another.
    unsigned short getElementCode() const { return elementCode_; }
    ComponentAction getComponentAction() const { return action_; }
    DataStateChange getDataStateChange() const { return state_; }
    int getRunning() const { return running_; }
    bool isLoaded() const { return loaded_; }
    FailureMode::FailType getFailType() const { return failType_; }
    int getFailCount() const { return failCount_; }
    double getAccuracy() const { return accuracy_; }  // in the base unit, to the digits of a float

    // The enumerator's name, "(undefined)" for any other number.
    static const char* EventTypeToString(EventType type);
    // The names of all bits that are set, such as "AVAILABLE|VALID"; "NONE" without any.
    static Str StateChangeToString(DataStateChange state);
    // As LogEntry::Read, past the header word. A cycle start that cannot be when it says sets error.
    static EventEntry* Read(Timestamp& timeBase, Timespan& timeAdjust, InStream& in, unsigned short header,
                            const Logger& logger, bool& error, Log& log = Log::Current());

    static void* operator new(size_t size) { return Pool_.allocate(size); }
    static void operator delete(void* block) { Pool_.release(block); }

private:
    EventEntry(const Timestamp& t, EventType type, unsigned short actor,
               Log& log = Log::Current());  // the rest is zero
    static EventEntry* ReadCycleStart(Timestamp& timeBase, const Timespan& timeAdjust, InStream& in,
                                      unsigned short actor, const Logger& logger, bool& error, Log& log);
    unsigned int writeCycleStart(Timestamp& timeBase, OutStream& out) const;
    size_t writeBody(OutStream& out) const;
    bool readBody(InStream& in, const Logger& logger);
    void appendDataValue(TextBuffer& text) const;
    void appendComponentAction(TextBuffer& text) const;
    size_t writeAction(OutStream& out) const;
    bool readAction(InStream& in, const Logger& logger);

    unsigned short actorCode_;
    union {  // by event type and action
        unsigned short elementCode_;
        bool loaded_;
        int running_;
        FailureMode::FailType failType_;
    };
    EventType eventType_;
    union {
        DataStateChange state_;
        ComponentAction action_;
    };
    union {
        double accuracy_;
        int failCount_;
    };

    static RecyclingPool Pool_;
    static const PoolDrain PoolDrain_;
};
