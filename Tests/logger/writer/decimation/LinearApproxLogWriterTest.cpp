#include "logger/writer/decimation/LinearApproxLogWriter.h"

#include <gtest/gtest.h>

#include "data/Int.h"
#include "support/CapturedLog.h"
#include "support/EntryCollector.h"

class LinearApproxLogWriterTest : public ::testing::Test {
protected:
    Lines complaints() { return captured_.take(); }

    CapturedLog captured_;
    Logger logger_{"test", &captured_};
    EntryCollector out_;
    SmallLog log_;
    DataAccess* depth_ = log_.declare("Depth.depth", Units::METER);
};

TEST_F(LinearApproxLogWriterTest, ThinsWithinTheBoundAndFlushesWhatIsPending) {
    LinearApproxLogWriter writer(out_, "Depth.depth", Units::CENTIMETER.dataValue(50.0, DOUBLE8), false, logger_);
    const double values[] = {0, 0.4, 0, 0, 5};
    for (int i = 0; i < 5; ++i) writer.write(log_.data(depth_, i, values[i]), nullptr);
    EXPECT_EQ("0=0 3=0", out_.take());
    EXPECT_EQ(1u, writer.flush());
    EXPECT_EQ("4=5", out_.take());
    EXPECT_EQ(0u, writer.flush());
    writer.write(log_.data(depth_, 5, NAN), nullptr);
    EXPECT_EQ("4=5 5=nan", out_.take());
    for (int i = 6; i < 9; ++i) writer.write(log_.data(depth_, i, i), nullptr);
    out_.take();
    writer.resetInputs();
    EXPECT_EQ("8=8", out_.take()) << "a series ends with its input";
    EXPECT_EQ(0u, writer.flush());
    writer.write(log_.data(depth_, 9, 0), nullptr);
    EXPECT_EQ("9=0", out_.take()) << "and the next begins";
    EXPECT_EQ(Lines(), complaints());
}

TEST_F(LinearApproxLogWriterTest, WithoutABoundNothingPasses) {
    LinearApproxLogWriter writer(out_, "Depth.depth", nullptr, false, logger_);
    EXPECT_EQ(Lines{"FAULT Initializing LinearApproxWriter with NULL parameter value"}, complaints());
    EXPECT_EQ(0u, writer.write(log_.data(depth_, 0, 1), nullptr));
    writer.setParameter(nullptr, logger_);
    EXPECT_EQ(Lines{"FAULT Configuring LinearApproxWriter with NULL parameter value"}, complaints());
    writer.setParameter(Units::METER.dataValue(1.0, DOUBLE8), logger_);
    writer.write(log_.data(depth_, 1, 2), nullptr);
    EXPECT_EQ("1=2", out_.take());
}

// Also of a class that does not hold NaN, and of a value without a unit; the next parameter counts again.
TEST_F(LinearApproxLogWriterTest, ANullParameterTakesTheBoundAway) {
    for (DataValue* bound : {Units::METER.dataValue(0, INT4), Units::METER.dataValue(0.0, FLOAT4),
                             static_cast<DataValue*>(new Short()), static_cast<DataValue*>(new StrValue("0"))}) {
        LinearApproxLogWriter writer(out_, "Depth.depth", bound, false, logger_);
        writer.setParameter(nullptr, logger_);
        EXPECT_EQ(Lines{"FAULT Configuring LinearApproxWriter with NULL parameter value"}, complaints());
        for (int i = 0; i < 4; ++i) writer.write(log_.data(depth_, i, i * i), nullptr);
        EXPECT_EQ("0=0", out_.take());
        writer.setParameter(Units::METER.dataValue(0.0, DOUBLE8), logger_);
        for (int i = 4; i < 6; ++i) writer.write(log_.data(depth_, i, i * i), nullptr);
        EXPECT_EQ("4=16", out_.take());
    }
}

TEST_F(LinearApproxLogWriterTest, TheCyclesStartPrecedesItsFirstEntry) {
    LinearApproxLogWriter writer(out_, "Depth.depth", Units::METER.dataValue(0.0, DOUBLE8), true, logger_);
    for (int i = 0; i < 3; ++i) {
        writer.write(log_.cycle(i), nullptr);
        writer.write(log_.data(depth_, i + 0.5, i), nullptr);
    }
    EXPECT_EQ("cycle 0 0.5=0 cycle 2 1.5=1", out_.take());
}
