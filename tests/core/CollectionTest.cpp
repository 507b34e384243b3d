#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "avlor/core/Collection.h"
#include "avlor/core/Error.h"

namespace avlor {
namespace {

TEST(Collection, StartsEmpty)
{
    const Collection c;
    EXPECT_EQ(c.Count(), 0U);
    EXPECT_THROW((void)c.Item(1), UsageError);
    EXPECT_FALSE(c.ContainsKey("a"));
    EXPECT_EQ(c.begin(), c.end());
}

TEST(Collection, ItemsAreOneBasedInOrderOfAddition)
{
    Collection c;
    c.Add(Value("Civile"));
    c.Add(Value(std::int32_t{7}));
    c.Add(Value::null());
    ASSERT_EQ(c.Count(), 3U);
    EXPECT_TRUE(c.Item(1).identicalTo(Value("Civile")));
    EXPECT_TRUE(c.Item(2).identicalTo(Value(std::int32_t{7})));
    EXPECT_TRUE(c.Item(3).isNull());
    EXPECT_THROW((void)c.Item(0), UsageError);
    EXPECT_THROW((void)c.Item(4), UsageError);

    std::vector<std::string> texts;
    for (const Value& v : c)
        texts.push_back(v.toText(Locale::neutral()));
    EXPECT_EQ(texts, (std::vector<std::string>{"Civile", "7", ""}));
}

TEST(Collection, KeysAreUniqueWithoutRegardToCase)
{
    Collection c;
    c.Add(Value("first"), "Civile");
    c.Add(Value("unkeyed"));
    c.Add(Value("unkeyed again"));
    EXPECT_TRUE(c.ContainsKey("Civile"));
    EXPECT_TRUE(c.ContainsKey("CIVILE"));
    EXPECT_TRUE(c.ContainsKey("civile"));
    EXPECT_FALSE(c.ContainsKey("Civil"));
    EXPECT_FALSE(c.ContainsKey(""));
    EXPECT_THROW(c.Add(Value("second"), "cIvIlE"), UsageError);
    EXPECT_EQ(c.Count(), 3U);
    c.Add(Value("other"), "Penale");
    EXPECT_EQ(c.Count(), 4U);
    EXPECT_TRUE(c.Item(4).identicalTo(Value("other")));
}

} // namespace
} // namespace avlor
