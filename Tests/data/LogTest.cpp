#include "data/Log.h"

#include <gtest/gtest.h>

#include "data/Slate.h"

TEST(LogTest, AUniversalHasItsOwnCodeInEachLog) {
    Log& process = Log::OfProcess();
    EXPECT_EQ(&UniversalURI::DEPTH,
              process.registerElementURI(new ElementURI(3, "depth", ElementURI::UNIVERSAL_ELEMENT)));
    Log log;
    EXPECT_EQ(ElementURI::NO_CODE, log.getElementURICode("depth")) << "whatever codes there are elsewhere";
    log.registerElementURI(new ElementURI(5, "depth", ElementURI::UNIVERSAL_ELEMENT));
    EXPECT_EQ(5, log.getUniversal(UniversalURI::DEPTH).getCode());
    EXPECT_EQ(3, UniversalURI::DEPTH.getCode());
    process.uninitialize();
    EXPECT_EQ(ElementURI::NO_CODE, UniversalURI::DEPTH.getCode());
}

TEST(LogTest, UsesEndWhereTheyBegan) {
    Log outer;
    Log inner;
    const Log::Use use(outer);
    {
        const Log::Use innerUse(inner);
        EXPECT_EQ(&inner, &Log::Current());
    }
    EXPECT_EQ(&outer, &Log::Current());
}
