#include "logger/writer/LogWriter.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/JournalWriter.h"

TEST(LogWriterTest, ServiceWordsGoBothWays) {
    for (int i = LogWriter::SERVICE_DIRECT; i <= LogWriter::SERVICE_BULK; ++i) {
        const auto type = static_cast<LogWriter::ServiceType>(i);
        const char* word = LogWriter::ServiceType2Str(type);
        EXPECT_EQ(strlen(word), LogWriter::ServiceType2Strlen(type));
        EXPECT_EQ(type, LogWriter::Str2ServiceType(word, static_cast<int>(strlen(word))));
    }
    for (LogWriter::ServiceType type : {LogWriter::NO_SERVICE, LogWriter::SERVICE_COUNT, LogWriter::SERVICE_MULTI}) {
        EXPECT_STREQ("none.", LogWriter::ServiceType2Str(type));
    }
    struct Case {
        const char* text_;
        int length_;
    } const cases[] = {{"Bulky", 5}, {"Bul", 3}, {"bulk", 4}, {"", 0}, {"Bulk", -1}};
    for (const Case& c : cases) EXPECT_EQ(LogWriter::NO_SERVICE, LogWriter::Str2ServiceType(c.text_, c.length_));
}

TEST(LogWriterTest, TheLastHolderDeletesIt) {
    std::string journal;
    JournalWriter* writer = new JournalWriter(journal);
    writer->addParent();
    writer->addParent();
    LogWriter::Release(writer);
    EXPECT_EQ("", journal);
    LogWriter::Release(writer);
    EXPECT_EQ("deleted ", journal);
    LogWriter::Release(nullptr);
}
