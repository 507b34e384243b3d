// The one trimming of blanks.
#include <gtest/gtest.h>

#include "avlor/core/Text.h"

namespace avlor {
namespace {

TEST(Text, TrimsTheUsualBlanksOnBothSides)
{
    EXPECT_EQ(trimBlanks(" \t 12,5 \r\n"), "12,5");
    EXPECT_EQ(trimBlanks("\v\fa b\f"), "a b");
    EXPECT_EQ(trimBlanks("a  b"), "a  b");
    EXPECT_EQ(trimBlanks(" \t\r\n"), "");
    EXPECT_EQ(trimBlanks(""), "");
}

TEST(Text, TrimsOnlyTheBlanksNamed)
{
    EXPECT_EQ(trimBlanks("  Diritti94\t ", " "), "Diritti94\t");
    EXPECT_EQ(trimBlanks("\t cella \t", " \t"), "cella");
    EXPECT_EQ(trimBlanks("\ncella\n", " \t"), "\ncella\n");
}

} // namespace
} // namespace avlor
