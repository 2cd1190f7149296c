#include "rom/ArchiveLibrary.h"

#include <gtest/gtest.h>

TEST(ArchiveLibraryTest, OnlyALibraryWithEveryFunctionWillDo) {
    EXPECT_EQ(ArchiveLibraryProblem(), "");
    EXPECT_EQ(ArchiveLibraryProblemWith("libarchive.so.13"), "");
    // zlib is there wherever Qt is, and has none of libarchive's functions.
    EXPECT_EQ(ArchiveLibraryProblemWith("libz.so.1"), "libz.so.1 has no archive_version_string");
    const QString missing = ArchiveLibraryProblemWith("libarchive-not-here.so.0");
    EXPECT_TRUE(missing.contains("libarchive-not-here.so.0: cannot open shared object file"))
        << missing.toStdString();
}
