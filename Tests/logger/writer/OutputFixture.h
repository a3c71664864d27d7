#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "data/Slate.h"
#include "support/CapturedLog.h"
#include "support/JournalWriter.h"
#include "support/NameList.h"
#include "support/SmallLog.h"
#include "support/TempDir.h"

// A small log, a directory for what is made of it, what is logged meanwhile, and the calls that inner writers got.
class OutputFixture : public testing::Test {
protected:
    OutputFixture() { Slate::SetLogger(&static_cast<const Logger&>(messages_)); }

    JournalWriter* inner(unsigned int bytesPerEntry = 1) { return new JournalWriter(journal_, bytesPerEntry); }
    std::string takeJournal() { return std::exchange(journal_, ""); }

    TempDir dir_;
    SmallLog log_;
    CapturedLog messages_;
    std::string journal_;
};
