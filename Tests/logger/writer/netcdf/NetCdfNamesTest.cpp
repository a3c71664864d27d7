#include "logger/writer/netcdf/NetCdfNames.h"

#include <gtest/gtest.h>
#include <netcdf.h>

#include <string>
#include <utility>

// Every name is one that the library takes, also with the longest ending that is put behind it.
TEST(NetCdfNamesTest, NamesAreMadeValid) {
    const std::string longName(300, 'x');
    std::string longGreek = "x";
    for (int i = 0; i < 150; ++i) longGreek += "\xCE\xB1";
    const std::pair<Str, std::string> cases[] = {{"Depth.depth", "Depth.depth"},
                                                 {"Config/Depth:depth", "Config.Depth.depth"},
                                                 {"", "_"},
                                                 {" a b ", "_a b_"},
                                                 {" ", "_"},
                                                 {"-a", "_a"},
                                                 {"2a", "2a"},
                                                 {Str("a\0b\n\x7F", 5), "a_b__"},
                                                 {"\xC3\xBC", "\xC3\xBC"},
                                                 {"a\xFF\xC3\xBC", "a___"},
                                                 {longName.c_str(), std::string(240, 'x')},
                                                 {longGreek.c_str(), longGreek.substr(0, 239)}};
    for (const auto& [name, expected] : cases) {
        const Str valid = NetCdfNames::OfElement(name);
        EXPECT_EQ(expected, valid.cStr());
        int file = 0, dim = 0;
        ASSERT_EQ(NC_NOERR, nc_create("names", NC_DISKLESS, &file));
        EXPECT_EQ(NC_NOERR, nc_def_dim(file, valid.cStr(), 1, &dim)) << valid.cStr();
        EXPECT_EQ(NC_NOERR, nc_def_dim(file, (valid + "_units").cStr(), 1, &dim)) << valid.cStr();
        nc_close(file);
    }
}
