#include "RunFixture.h"

// Logs that are torn or overwritten in places: the run ends as always, and what is whole is read.

class DamageTest : public RunFixture {
protected:
    // The lines of text that a log gives.
    size_t linesOf(const std::string& log) {
        write("dive", log);
        run({"-ab", "dive"});
        return CountOf(read("dive.asc"), "\n");
    }
};

TEST_F(DamageTest, ALogCutAnywhereGivesTheEntriesBeforeTheCut) {
    const std::string whole = DiveLog::Of(1);
    size_t lines = 0;
    for (size_t length = 0; length < whole.size(); ++length) {
        const size_t now = linesOf(whole.substr(0, length));
        EXPECT_GE(now, lines) << length;
        EXPECT_LE(now, lines + 1) << length;
        lines = now;
    }
    EXPECT_EQ(lines + 1, linesOf(whole));
}

TEST_F(DamageTest, NothingButDamage) {
    std::string noise;
    unsigned int state = 1;
    for (int i = 0; i < 200000; ++i) {
        state = state * 1664525u + 1013904223u;
        noise += static_cast<char>(state >> 24);
    }
    linesOf(noise);
    linesOf(std::string(100000, '\0'));
    linesOf(std::string(100000, '\xFF'));
    linesOf(noise + DiveLog::Of(2));
}
