#pragma once

#include "data/DirectorySink.h"

class Log;
class LogEngine;

// Offers the entries of what is new in a log that is being written to an engine. The log sends them as long as it
// lives.
class DirectoryFeed final : public DirectorySink {
public:
    DirectoryFeed(Log& log, LogEngine& engine);  // borrowed
    ~DirectoryFeed() override;
    DirectoryFeed(const DirectoryFeed&) = delete;
    DirectoryFeed& operator=(const DirectoryFeed&) = delete;

    void takeNew(ElementURI& uri) override;
    void takeNew(CodedStr& name) override;
    void takeNew(DataAccess& access) override;

private:
    Log& log_;
    LogEngine& engine_;
};
