#include "logger/writer/json/JsonArray.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <string>

#include "support/FileSizeLimit.h"
#include "support/MemoryStreams.h"

static std::string TextOf(JsonArray& array) {
    MemoryOutStream out;
    array.write(out);
    return out.bytes_;
}

// Numbers in steps of all sizes, a text, an array in an array and its repetition; the result is their text.
static std::string Add(JsonArray& array, int round) {
    std::string text;
    for (const double number : {1.0, 1.0, 1.5, 40000.0, -0.0, 0.0, 0.1, 1e300, static_cast<double>(round)}) {
        array.addNumber(number);
    }
    array.addNumber(NAN);
    array.addString(("text \"" + std::string(static_cast<size_t>(round), 'x')).c_str());
    const PackedItems::State begin = array.beginPiece();
    array.beginArray();
    array.beginArray();
    array.addNumber(round);
    array.endArray();
    array.endArray();
    const PackedItems::Piece piece = array.endPiece(begin);
    array.addAgain(piece, 1);
    array.addAgain(piece, 1);
    array.addNumber(0);
    const std::string number = std::to_string(round), nested = "[[" + number + "]],";
    return "1,1,1.5,40000,-0,0,0.1,1e+300," + number + ",null,\"text \\\"" +
           std::string(static_cast<size_t>(round), 'x') + "\"," + nested + nested + nested + "0,";
}

TEST(JsonArrayTest, SaysTheSameFromAFileAsFromMemory) {
    for (const size_t memory : {100000000, 10000, 1000}) {
        SampleStore store(memory);
        JsonArray even(store, false), odd(store, false);
        std::string expected[2];
        for (int i = 0; i < 300; ++i) expected[i % 2] += Add(i % 2 == 0 ? even : odd, i);
        for (std::string& text : expected) text.back() = ']';
        EXPECT_EQ("[" + expected[0], TextOf(even)) << memory;
        EXPECT_EQ("[" + expected[1], TextOf(odd)) << memory;
        EXPECT_GE(memory, store.heldBytes());
        EXPECT_STREQ("", store.failure().cStr());
    }
}

// A row of arrays whose text no memory holds is made piece by piece.
TEST(JsonArrayTest, WhatIsRepeatedMayHoldRepetitions) {
    SampleStore store;
    JsonArray array(store, true);
    array.beginArray();
    const PackedItems::State begin = array.beginPiece();
    array.addNumber(NAN);
    array.addAgain(array.endPiece(begin), 999999);
    array.endArray();
    array.addAgain({0, array.state().length_, array.state().longestText_}, 1);
    const std::string text = TextOf(array);
    EXPECT_EQ(12000002U, text.size() - 2);
    EXPECT_EQ("[[null, null, ", text.substr(0, 14));
    EXPECT_EQ("null], [null", text.substr(text.size() / 2 - 6, 12));
}

TEST(JsonArrayTest, GoesOnFromWhereItWasTakenBackTo) {
    SampleStore store;
    JsonArray array(store, false);
    array.addNumber(7);
    const PackedItems::State end = array.state();
    array.addNumber(8);
    array.takeBack(end);
    array.addNumber(8);
    EXPECT_EQ("[7,8]", TextOf(array));
}

TEST(JsonArrayTest, KeepsWhatItHadWhenNothingTakesMore) {
    signal(SIGXFSZ, SIG_IGN);
    const FileSizeLimit limit(5000);
    SampleStore store(2000);
    JsonArray array(store, false);
    std::string expected = "[";
    PackedItems::State before = array.state();
    for (int i = 0; !store.isRefused(); ++i) {
        ASSERT_GT(1000, i);
        before = array.state();
        const std::string text = Add(array, i);
        if (!store.isRefused()) expected += text;
    }
    array.takeBack(before);
    expected.back() = ']';
    EXPECT_EQ(expected, TextOf(array));
    EXPECT_NE(Str::NO_POS, store.failure().find(": File too large"));
    EXPECT_FALSE(store.moveToFile());
}
