// Each press of the three buttons is one unit of work: with any one of its
// database calls failing (opening, reading, writing, deleting, beginning,
// locking, committing), the database is afterwards exactly as it was, the
// press says why, and the dialog goes on as after any failed press.
#include <functional>
#include <optional>
#include <set>

#include "WritingFixture.h"
#include "avlor/data/InjectedFault.h"

namespace avlor::test {
namespace {

class PressAtomicity : public WritingTest {
protected:
    using Prepare = std::function<std::unique_ptr<dialog::frmOKParcella>()>;

    // Presses `button` on a dialog made ready by `prepare`, with database
    // call k of the press failing, for k = 1, 2, ... until a press goes
    // through. Every failed press must leave the whole database as it was
    // and the dialog in one and the same state (the state before the press
    // when `unchangedOnFailure`). Returns how many presses failed and the
    // kinds of call that failed.
    std::pair<int, std::set<std::string>> pressUnderEveryFault(const Prepare& prepare, const std::string& button,
                                                               const std::vector<MsgResult>& replies,
                                                               bool unchangedOnFailure)
    {
        const std::string before = wholeDatabase();
        std::optional<std::string> failedState;
        std::set<std::string> kinds;
        for (int k = 1; k <= 500; ++k) {
            auto form = prepare();
            const std::string ready = describe(*form);
            forgetMessages();
            reply(replies);
            bool fired = false;
            std::string firedAt;
            {
                InjectedFault fault(k);
                form->click(button);
                fired = fault.fired();
                firedAt = fault.firedAt();
            }
            if (!fired || wholeDatabase() != before) {
                // The press went through: every later call comes after the
                // unit of work was committed.
                return {k - 1, kinds};
            }
            kinds.insert(firedAt);
            const std::vector<Shown> shown = messages();
            EXPECT_FALSE(shown.empty()) << "k=" << k;
            if (!shown.empty()) {
                EXPECT_EQ(shown.back().icon, MsgIcon::Critical) << "k=" << k;
                EXPECT_NE(shown.back().text.find("Nessuna modifica e' stata registrata.\r\rGuasto simulato alla "
                                                 "chiamata al database numero " +
                                                 std::to_string(k) + " (" + firedAt + ")"),
                          std::string::npos)
                    << "k=" << k << ": " << shown.back().text;
            }
            const std::string state = describe(*form);
            if (unchangedOnFailure) {
                EXPECT_EQ(state, ready) << "k=" << k;
            }
            if (!failedState) {
                failedState = state;
            } else {
                EXPECT_EQ(state, *failedState) << "k=" << k << " (" << firedAt << ")";
            }
        }
        ADD_FAILURE() << "The press never went through";
        return {-1, kinds};
    }

    void fourTariffs()
    {
        tariff(1, "a");
        b = tariff(2, "b");
        tariff(3, "c");
        tariff(5, "e");
        hourly(1, "h1");
        hourly(2, "h2");
    }
    std::int32_t b = 0;
};

const std::set<std::string> EveryWriteKind = {"begin", "commit", "lock", "open", "read", "update"};

TEST_F(PressAtomicity, AddingATariffAction)
{
    fourTariffs();
    const auto [failures, kinds] = pressUnderEveryFault(
        [this] {
            auto form = open(7, "15/03/2005");
            typeTariff(*form, "1", "nuova", "10,00");
            return form;
        },
        "cmdAggiungi", {}, true);
    EXPECT_GE(failures, 10);
    EXPECT_EQ(kinds, EveryWriteKind);
    EXPECT_EQ(numbers(true), "a:2 b:3 c:4 e:5 nuova:1");
    EXPECT_EQ(numbers(false), "h1:1 h2:2");
}

TEST_F(PressAtomicity, ChangingATariffAction)
{
    fourTariffs();
    db.exec("UPDATE Azioni SET NOrdine = NOrdine + 1 WHERE IsTariffa = 'True'");
    const auto [failures, kinds] = pressUnderEveryFault(
        [this] {
            auto form = open(7, "15/03/2005");
            form->chooseKey("GrigliaParcella", b);
            form->setText("FNumOrdine", "4");
            return form;
        },
        "cmdModifica", {}, false);
    EXPECT_GE(failures, 10);
    EXPECT_EQ(kinds, EveryWriteKind);
    // 2, 3, 4, 6 with b (3) moved to 4: c moves up to 5, then the start
    // closes up, and since every row stands above its place all of them move.
    EXPECT_EQ(numbers(true), "a:1 b:2 c:3 e:4");
}

TEST_F(PressAtomicity, AddingATemplate)
{
    fourTariffs();
    addTemplate(30, "PB1", "Causa ordinaria", false);
    for (int i = 1; i <= 3; ++i) {
        db.exec("INSERT INTO VociParcellaBase (IdParcellaBase, NOrdine, IdTariffa, TabellaTariffa, Tipo, Codice, "
                "Nome, Competenze, Qta, Valuta) VALUES (30, " +
                std::to_string(i) + ", " + (i == 2 ? "20, 'Onorari2004Euro', 1" : "0, '', 0") + ", 'C" +
                std::to_string(i) + "', 'voce " + std::to_string(i) + "', " + TestDatabase::amount("5") +
                ", 1, 'EURO')");
    }
    const auto [failures, kinds] = pressUnderEveryFault(
        [this] {
            auto form = open(7, "15/03/2005");
            form->click("optParcellaBase");
            form->open("cmbVoce");
            form->chooseKey("cmbVoce", 30);
            form->setText("FNumOrdine", "2");
            return form;
        },
        "cmdAggiungi", {}, true);
    EXPECT_GE(failures, 15);
    EXPECT_EQ(kinds, EveryWriteKind);
    EXPECT_EQ(numbers(true), "a:1 b:5 c:6 e:7 voce 1:2 voce 2:3 voce 3:4");
}

TEST_F(PressAtomicity, DeletingATariffAction)
{
    fourTariffs();
    const auto [failures, kinds] = pressUnderEveryFault(
        [this] {
            auto form = open(7, "15/03/2005");
            form->chooseKey("GrigliaParcella", b);
            return form;
        },
        "cmdCancella", {MsgResult::Yes}, false);
    EXPECT_GE(failures, 8);
    std::set<std::string> expected = EveryWriteKind;
    expected.insert("delete");
    EXPECT_EQ(kinds, expected);
    EXPECT_EQ(numbers(true), "a:1 c:2 e:3");
    EXPECT_EQ(numbers(false), "h1:1 h2:2");
}

TEST_F(PressAtomicity, KeepingAnInvoicedActionStillRenumbersAsAWhole)
{
    tariff(2, "a");
    Action invoiced;
    invoiced.nOrdine = 4;
    invoiced.descr = "fatturata";
    invoiced.fattura = true;
    const std::int32_t id = addAction(invoiced);
    tariff(9, "z");
    const auto [failures, kinds] = pressUnderEveryFault(
        [this, id] {
            auto form = open(7, "15/03/2005");
            form->chooseKey("GrigliaParcella", id);
            return form;
        },
        "cmdCancella", {MsgResult::Yes, MsgResult::No}, false);
    EXPECT_GE(failures, 6);
    EXPECT_EQ(numbers(true), "a:1 fatturata:2 z:3");
}

TEST_F(PressAtomicity, AddingAnHourlyAction)
{
    fourTariffs();
    const auto [failures, kinds] = pressUnderEveryFault(
        [this] {
            auto form = open(7, "15/03/2005");
            form->click("optOraria");
            form->setText("FNumOrdine", "1");
            form->setText("txtDescrizione", "oraria");
            return form;
        },
        "cmdAggiungi", {}, true);
    EXPECT_GE(failures, 8);
    EXPECT_EQ(kinds, EveryWriteKind);
    EXPECT_EQ(numbers(false), "h1:2 h2:3 oraria:1");
    EXPECT_EQ(numbers(true), "a:1 b:2 c:3 e:5");
}

TEST_F(PressAtomicity, ChangingAnHourlyAction)
{
    fourTariffs();
    const std::int32_t h1 = lastId() - 1;
    const auto [failures, kinds] = pressUnderEveryFault(
        [this, h1] {
            auto form = open(7, "15/03/2005");
            form->click("optOraria");
            form->chooseKey("GrigliaParcella", h1);
            form->setText("FNumOrdine", "2");
            form->setText("txtDescrizione", "h1 cambiata");
            return form;
        },
        "cmdModifica", {}, false);
    EXPECT_GE(failures, 6);
    EXPECT_EQ(numbers(false), "h1 cambiata:2 h2:3");
}

TEST_F(PressAtomicity, AfterAFailedCommitTheSamePressWorksAgain)
{
    fourTariffs();
    // Every call before the commit fails the press as a whole, so the
    // database stays as it is while the commit is looked for.
    std::unique_ptr<dialog::frmOKParcella> form;
    for (int k = 1; k < 100; ++k) {
        form = open(7, "15/03/2005");
        typeTariff(*form, "1", "nuova");
        forgetMessages();
        InjectedFault fault(k);
        form->click("cmdAggiungi");
        if (fault.firedAt() == "commit") {
            break;
        }
    }
    ASSERT_EQ(messages().size(), 1u);
    EXPECT_EQ(messages()[0].icon, MsgIcon::Critical);
    EXPECT_NE(messages()[0].text.find("(commit)"), std::string::npos);
    EXPECT_EQ(numbers(true), "a:1 b:2 c:3 e:5");
    // The entry is still there; pressed again, it goes in whole.
    EXPECT_EQ(form->control("cmbVoce").text, "nuova");
    form->click("cmdAggiungi");
    EXPECT_EQ(numbers(true), "a:2 b:3 c:4 e:5 nuova:1");
    // Proposed after the last action dated today: the new one.
    EXPECT_EQ(form->control("FNumOrdine").text, "2");
}

} // namespace
} // namespace avlor::test
