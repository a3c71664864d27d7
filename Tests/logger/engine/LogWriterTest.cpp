#include "logger/engine/LogWriter.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>

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
    const std::pair<const char*, int> unknown[] = {{"Bulky", 5}, {"Bul", 3}, {"bulk", 4}, {"", 0}, {"Bulk", -1}};
    for (const auto& [text, length] : unknown) {
        EXPECT_EQ(LogWriter::NO_SERVICE, LogWriter::Str2ServiceType(text, length)) << text;
    }
}
