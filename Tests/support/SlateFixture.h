#pragma once

#include <gtest/gtest.h>

#include "data/Slate.h"
#include "support/CapturedLog.h"

// A test with a Slate of its own: empty but for the universals, its messages in log_. Derive from it.
class SlateFixture : public ::testing::Test {
protected:
    void SetUp() override {
        Slate::Uninitialize();
        Slate::SetLogger(&static_cast<const Logger&>(log_));
    }
    void TearDown() override {
        Slate::SetLogger(nullptr);
        Slate::Uninitialize();
    }

    CapturedLog log_;
};
