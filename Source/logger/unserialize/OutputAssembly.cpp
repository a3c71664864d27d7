#include "logger/unserialize/OutputAssembly.h"

#include "data/Log.h"
#include "logger/unserialize/OutputBuilder.h"
#include "logger/unserialize/OutputFormat.h"

void OutputAssembly::assemble() {
    const bool isNamed = settings_.outputNameGiven_ && !settings_.toStandardOutput_;
    if (isNamed && settings_.outputName_.isEmpty()) {
        complain("No output name is given");
        return;
    }
    if (OutputFormat::ShareFile(settings_)) complain("Several outputs are written to " + settings_.outputName_);
    const OutputBuilder builder(settings_, files_, directory_, engine_);
    for (const OutputFormat& format : OutputFormat::ALL) {
        if (settings_.writes(format.kind_)) add(format, builder);
    }
}

void OutputAssembly::add(const OutputFormat& format, const OutputBuilder& builder) const {
    const Str filename = settings_.outputFilename(format.extension_);
    const bool needsPlainFile = format.needs(OutputFormat::PLAIN_FILE);
    if (format.isStream(settings_) || files_.mayWrite(filename, needsPlainFile)) format.add_(builder, filename);
}

void OutputAssembly::writeDirectory() {
    if (log_.isDirectoryRead()) directory_.setFound();
    const bool entriesBringIt = !settings_.isDirectoryOnly() && settings_.missionName_.isEmpty();
    if (!entriesBringIt) directory_.write();
}
