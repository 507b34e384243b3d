// What the core value types say when an operation fails: the kind of failure
// keeps its usual name (Overflow, Type mismatch, Invalid date), the rest is
// written for the person who reads it, in Italian.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "avlor/core/Collection.h"
#include "avlor/core/Currency.h"
#include "avlor/core/Date.h"
#include "avlor/core/Error.h"
#include "avlor/core/Format.h"
#include "avlor/core/Locale.h"
#include "avlor/core/Value.h"

namespace avlor {
namespace {

// The text of the error the operation raises, or a test failure.
std::string messageOf(auto&& operation)
{
    try {
        operation();
    } catch (const Error& e) {
        return e.what();
    }
    ADD_FAILURE() << "no error raised";
    return {};
}

TEST(ErrorText, ValueConversions)
{
    EXPECT_EQ(messageOf([] { (void)Value("abc").toLong(); }), "Type mismatch: \"abc\" non è un numero");
    EXPECT_EQ(messageOf([] { (void)Value::longValue(40000).toInteger(); }),
              "Overflow: 40000 non rientra in un numero intero a 16 bit");
    EXPECT_EQ(messageOf([] { (void)Value::integer(5).asLong(); }),
              "Type mismatch: il valore non è un numero intero a 32 bit");
    EXPECT_EQ(messageOf([] { (void)Value("x").asCurrency(); }), "Type mismatch: il valore non è un importo");
}

TEST(ErrorText, AmountsAndDates)
{
    EXPECT_EQ(messageOf([] { (void)Currency::fromText("12x"); }), "Type mismatch: \"12x\" non è un importo");
    EXPECT_EQ(messageOf([] { (void)Currency::fromText("99999999999999999999"); }),
              "Overflow: importo \"99999999999999999999\"");
    EXPECT_EQ(messageOf([] { (void)Date::fromYmd(2005, 2, 31); }), "Invalid date: anno 2005, mese 2, giorno 31");
    EXPECT_EQ(messageOf([] { (void)Date::fromDayCount(std::int32_t{100000000}); }),
              "Overflow: il giorno 100000000 è fuori dalle date dal 01/01/0001 al 31/12/9999");
    EXPECT_EQ(messageOf([] { (void)formatAmount(Currency(), "zzz", Locale::neutral()); }),
              "Formato di importo sconosciuto \"zzz\"");
}

TEST(ErrorText, Collections)
{
    Collection c;
    c.Add(Value("x"), std::string("a"));
    EXPECT_EQ(messageOf([&] { c.Add(Value("y"), std::string("A")); }), "Collection: la chiave \"A\" è già presente");
    EXPECT_EQ(messageOf([&] { (void)c.Item(4); }), "Collection: l'indice 4 è fuori da 1..1");
}

} // namespace
} // namespace avlor
