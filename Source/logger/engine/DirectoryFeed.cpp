#include "logger/engine/DirectoryFeed.h"

#include "logger/engine/LogEngine.h"
#include "logger/entry/DirectoryEntry.h"

DirectoryFeed::DirectoryFeed(Log& log, LogEngine& engine) : log_(log), engine_(engine) {
    log_.directoryWrites().setSink(this);
}

DirectoryFeed::~DirectoryFeed() {
    log_.directoryWrites().setSink(nullptr);
}

void DirectoryFeed::takeNew(ElementURI& uri) {
    DirectoryEntry entry(&uri, log_);
    engine_.processEntry(&entry);
}

void DirectoryFeed::takeNew(CodedStr& name) {
    DirectoryEntry entry(static_cast<const CodedStr*>(&name), log_);
    engine_.processEntry(&entry);
}

void DirectoryFeed::takeNew(DataAccess& access) {
    DirectoryEntry entry(&access, log_);
    engine_.processEntry(&entry);
}
