#pragma once

#include "logger/entry/LogEntry.h"
#include "utils/RingBuffer.h"

// Entries that wait for an engine, oldest first. The queue owns them and deletes what is left.
// Threads: a producer and a consumer may share it.
class LogQueue : public RingBuffer<LogEntry*> {
public:
    ~LogQueue() override { deleteAll(); }
};
