#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/MemoryStreams.h"

// The text records of a log's directory: what an item writes, and what is made of a text.

template <typename Item>
std::string RecordOf(const Item& item) {
    MemoryOutStream out;
    const size_t written = item.write(out);
    EXPECT_EQ(written, out.bytes_.size());
    return out.bytes_;
}

template <typename Item>
std::unique_ptr<Item> ReadBack(const Str& record) {
    MemoryInStream in(record);
    return std::unique_ptr<Item>(Item::Read(in));
}

// A whole record gives its item, and one that is cut anywhere nothing.
template <typename Item>
void ExpectNothingOfCut(const Str& record) {
    ASSERT_NE(nullptr, ReadBack<Item>(record));
    for (size_t length = 0; length < record.length(); ++length) {
        EXPECT_EQ(nullptr, ReadBack<Item>(record.substr(0, length))) << length;
    }
}
