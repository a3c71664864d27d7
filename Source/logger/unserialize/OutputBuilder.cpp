#include "logger/unserialize/OutputBuilder.h"

#include "logger/engine/LogEngine.h"
#include "logger/writer/FileLogWriter.h"
#include "logger/writer/FilterLogWriter.h"
#include "logger/writer/approximation/LinearApproximationLogWriter.h"

LogWriter* OutputBuilder::toFile(const Str& filename, LogWriter* writer, std::unique_ptr<FileEncoder> encoder) const {
    if (settings_.toStandardOutput_) return new FileLogWriter(stdout, writer);
    FileLogWriter* const file = new FileLogWriter(filename, writer, false, encoder.release());
    if (file->valid()) files_.remember(*file);
    return file;
}

LogWriter* OutputBuilder::limitToNames(LogWriter* writer, bool passCycleStarts) const {
    return new FilterLogWriter(writer, variables().requested_, passCycleStarts, RequestedVariables());
}

LogWriter* OutputBuilder::thin(LogWriter* writer, bool sendAtStartCycle, bool makeDirEntries) const {
    return new LinearApproximationLogWriter(writer, variables().requested_, sendAtStartCycle, makeDirEntries);
}

void OutputBuilder::feed(LogWriter* writer, Rule* rule) const {
    engine_.addAssociation(writer, rule);
}
