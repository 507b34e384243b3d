// withFallback: the one error trap of the operations that never raise.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "avlor/core/Error.h"
#include "avlor/core/ErrorTrap.h"
#include "avlor/data/DataError.h"

namespace avlor::test {
namespace {

TEST(ErrorTrapTest, AnswerOfTheWorkWhenItSucceeds)
{
    EXPECT_EQ(withFallback(std::string("fallback"), [] { return std::string("answer"); }), "answer");
}

TEST(ErrorTrapTest, FallbackOnDataError)
{
    EXPECT_EQ(withFallback(-1, []() -> int { throw DataError("no such table: Versioni", "Versioni"); }), -1);
}

TEST(ErrorTrapTest, FallbackOnValueError)
{
    EXPECT_EQ(
        withFallback(1, []() -> int { throw ValueError(ValueError::Kind::InvalidUseOfNull, "Invalid use of Null"); }),
        1);
}

TEST(ErrorTrapTest, FallbackOnAnyOtherException)
{
    EXPECT_EQ(withFallback(7, []() -> int { throw std::out_of_range("item 3 of 2"); }), 7);
    EXPECT_EQ(withFallback(7, []() -> int { throw 42; }), 7);
}

} // namespace
} // namespace avlor::test
