// ClsParcella, the public face of the tariff engine: the same proposal, with
// every error trapped.
#include <gtest/gtest.h>

#include <string>

#include "../core/EnvironmentGuard.h"
#include "EngineCall.h"
#include "EngineExpect.h"
#include "FeeRowFixture.h"
#include "avlor/component/ClsParcella.h"
#include "avlor/core/Error.h"
#include "avlor/core/Messages.h"
#include "avlor/data/DataError.h"

namespace avlor {
namespace {

using test::amount;
using test::EngineCall;
using test::expectOneMessage;
using test::expectUntouched;
using test::FeeRowFixture;
using test::noProposal;
using test::valueCall;

Currency calcolaTariffa(EngineCall& c)
{
    ClsParcella parcella;
    return parcella.CalcolaTariffa(c.cValore, c.vRil, c.sTabella, c.bInd, c.idTariffa, c.MinTar, c.MaxTar, c.MinS,
                                   c.MaxS, c.Autorita);
}

class ClsParcellaTest : public test::FeeDatabaseTest {
protected:
    void SetUp() override
    {
        FeeRowFixture::deleteRows("Onorari2004Euro");
        FeeRowFixture::deleteRows("Diritti94Euro");
    }
};

TEST_F(ClsParcellaTest, ProposesWhatTheEngineProposes)
{
    FeeRowFixture::insertRow(
        "Onorari2004Euro", 3, "3",
        {{"SCA1MIN", "100"}, {"SCA1MAX", "300"}, {"MINSTRAORDIMP", "400"}, {"MAXSTRAORDIMP", "500"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Onorari2004Euro", 3, "3000", 0, 37);
    EXPECT_EQ(calcolaTariffa(c).toFixed4(), "174.0000");
    EXPECT_EQ(c.MinTar.toFixed4(), "100.0000");
    EXPECT_EQ(c.MaxTar.toFixed4(), "300.0000");
    EXPECT_EQ(c.MinS.toFixed4(), "400.0000");
    EXPECT_EQ(c.MaxS.toFixed4(), "500.0000");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(ClsParcellaTest, TheEnginesOwnMessageIsStillShown)
{
    ScopedMessageRecorder messages;
    EngineCall c;
    c.sTabella = "Tariffe";
    EXPECT_EQ(calcolaTariffa(c), Currency{});
    ASSERT_NO_FATAL_FAILURE(expectOneMessage(messages, noProposal("", "")));
    EXPECT_EQ(messages.recorder().shown()[0].title, "Attenzione");
}

TEST_F(ClsParcellaTest, AMissingRowGivesZeroWithoutAMessage)
{
    ScopedMessageRecorder messages;
    EngineCall direct;
    direct.sTabella = "Diritti94Euro";
    direct.idTariffa = 404;
    EXPECT_THROW(static_cast<void>(direct.run()), DataError);

    EngineCall c = valueCall("Diritti94Euro", 404, "100", 0, 50);
    EXPECT_EQ(calcolaTariffa(c), Currency{});
    expectUntouched(c);
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(ClsParcellaTest, TheOutputsKeepWhatTheEngineWroteBeforeTheError)
{
    FeeRowFixture::insertRow("Onorari2004Euro", 4, "4",
                             {{"SCA1MIN", "100"}, {"SCA1MAX", "300"}, {"MINSTRAORDIMP", "NULL"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Onorari2004Euro", 4, "3000", 0, 50);
    EXPECT_EQ(calcolaTariffa(c), Currency{});
    EXPECT_EQ(c.MinTar.toFixed4(), "100.0000");
    EXPECT_EQ(c.MaxTar.toFixed4(), "300.0000");
    EXPECT_EQ(c.MinS, test::MinSBefore);
    EXPECT_EQ(c.MaxS, test::MaxSBefore);
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(ClsParcellaTest, AValueBetweenTwoBracketsGivesZeroWithoutAMessage)
{
    FeeRowFixture::insertRow("Diritti94Euro", 5, "5", {{"VALORESCA1", "10"}, {"VALORESCA2", "20"}});
    ScopedMessageRecorder messages;
    EngineCall c;
    c.sTabella = "Diritti94Euro";
    c.idTariffa = 5;
    c.cValore = amount("129.115");
    EXPECT_EQ(calcolaTariffa(c), Currency{});
    EXPECT_EQ(c.MinTar, test::MinTarBefore);
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(ClsParcellaTest, AnArithmeticFailureIsTrappedToo)
{
    // A band so wide that its difference times the relevance leaves the range
    // of an amount.
    FeeRowFixture::insertRow("Onorari2004Euro", 6, "6", {{"SCA01MIN", "1"}, {"SCA01MAX", "922337203685477"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Onorari2004Euro", 6, "100", 0, 50);
    EXPECT_THROW(static_cast<void>(EngineCall(c).run()), ValueError);
    EXPECT_EQ(calcolaTariffa(c), Currency{});
    EXPECT_EQ(c.MinTar.toFixed4(), "1.0000");
    EXPECT_EQ(c.MaxTar.toFixed4(), "922337203685477.0000");
    EXPECT_EQ(c.MinS, Currency{});
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST(ClsParcella, AFailingStatementIsTrapped)
{
    test::TestDatabase db;
    db.dropTable("Diritti94Euro");
    ScopedMessageRecorder messages;
    EngineCall c;
    c.sTabella = "Diritti94Euro";
    c.idTariffa = 1;
    EXPECT_THROW(static_cast<void>(EngineCall(c).run()), DataError);
    EXPECT_EQ(calcolaTariffa(c), Currency{});
    EXPECT_EQ(c.MinTar, test::MinTarBefore);
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST(ClsParcella, WithoutADisplayTheFeeEntryDialogRaisesOneClearError)
{
    test::EnvironmentGuard environment{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        test::EnvironmentGuard::unset(name);
    ClsParcella parcella;
    try {
        parcella.ShowDialogParcellazione(12, "Rossi / Bianchi", "Udienza", Date::fromYmd(2004, 6, 2));
        FAIL() << "the dialog was reported as shown";
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(),
                     "Il dialogo \"Parcellazione Adempimento\" non si può mostrare: non c'è uno schermo (DISPLAY, "
                     "WAYLAND_DISPLAY e QT_QPA_PLATFORM non sono impostate).");
    }
}

TEST(ClsParcella, AnXDisplayThatCannotBeReachedIsReportedInsteadOfCrashing)
{
    test::EnvironmentGuard environment{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    test::EnvironmentGuard::unset("WAYLAND_DISPLAY");
    test::EnvironmentGuard::unset("QT_QPA_PLATFORM");
    test::EnvironmentGuard::set("DISPLAY", ":9876");
    ClsParcella parcella;
    try {
        parcella.ShowDialogParcellazione(12, "Rossi / Bianchi", "Udienza", Date::fromYmd(2004, 6, 2));
        FAIL() << "the dialog was reported as shown";
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(),
                     "Il dialogo \"Parcellazione Adempimento\" non si può mostrare: lo schermo X \":9876\" non "
                     "risponde.");
    }
}

} // namespace
} // namespace avlor
