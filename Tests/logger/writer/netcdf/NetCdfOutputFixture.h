#pragma once

#include <memory>

#include "logger/writer/OutputFixture.h"
#include "support/NetCdfFile.h"

typedef std::vector<double> Numbers;

// One file of arrays, and what is printed while it is written.
class NetCdfOutputFixture : public OutputFixture {
protected:
    virtual LogWriter* newWriter(NameList& names, NameList& units, NameList& settings) = 0;
    // Makes a writer, hands it the entries, and ends it twice.
    void write(NameList&& names, std::initializer_list<const LogEntry*> entries, NameList&& units = {},
               NameList&& settings = {}) {
        testing::internal::CaptureStdout();
        {
            const std::unique_ptr<LogWriter> writer(newWriter(names, units, settings));
            for (const LogEntry* entry : entries) writer->write(entry, nullptr);
            writer->writeFooter();
            writer->writeFooter();
        }
        fflush(stdout);
        printed_ = testing::internal::GetCapturedStdout();
    }
    static double At(double seconds) { return SmallLog::START + seconds; }

    const std::string path_ = dir_.path("file");
    std::string printed_;
};
