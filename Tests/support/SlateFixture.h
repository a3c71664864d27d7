#pragma once

#include <gtest/gtest.h>

#include "data/Slate.h"
#include "support/CapturedLog.h"

// A test with a log of its own, whose messages are in log_. Derive from it.
class SlateFixture : public ::testing::Test {
protected:
    CapturedLog log_;
    Log slate_{&static_cast<const Logger&>(log_)};
    const Log::Use use_{slate_};
};
