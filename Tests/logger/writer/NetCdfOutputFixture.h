#pragma once

#include <initializer_list>
#include <memory>
#include <string>

#include "logger/writer/LogWriter.h"
#include "support/NameList.h"
#include "support/NetCdfFile.h"
#include "support/SlateFixture.h"
#include "support/SmallLog.h"
#include "support/TempDir.h"

// A small log, a file to write it to, and what is printed meanwhile.
class NetCdfOutputFixture : public SlateFixture {
protected:
    void SetUp() override {
        SlateFixture::SetUp();
        dive_.reset(new SmallLog);
    }
    void TearDown() override {
        dive_.reset();
        SlateFixture::TearDown();
    }

    // Makes a writer, hands it the entries, and ends it twice.
    template <typename MakeWriter>
    void run(MakeWriter makeWriter, std::initializer_list<const LogEntry*> entries) {
        testing::internal::CaptureStdout();
        {
            const std::unique_ptr<LogWriter> writer(makeWriter());
            for (const LogEntry* entry : entries) writer->write(entry, nullptr);
            writer->writeFooter();
            writer->writeFooter();
        }
        fflush(stdout);
        printed_ = testing::internal::GetCapturedStdout();
    }
    static char** ListOf(NameList* names) { return names == nullptr ? nullptr : names->list(); }
    static int CountOf(NameList* names) { return names == nullptr ? 0 : names->count(); }
    static double At(double seconds) { return SmallLog::START + seconds; }

    std::unique_ptr<SmallLog> dive_;
    const TempDir files_;
    const std::string path_ = files_.path("file");
    std::string printed_;
};
