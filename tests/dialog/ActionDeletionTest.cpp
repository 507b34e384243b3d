// Deleting the loaded action: the two questions, the renumbering of the
// sequence in view (which runs even when the invoiced action is kept), and
// the two ways the entry starts afresh.
#include "WritingFixture.h"

namespace avlor::test {
namespace {

class ActionDeletion : public WritingTest {
protected:
    static Shown confirm(const std::string& descr)
    {
        return question("ATTENZIONE : Confermi la cancellazione dell'Azione \r" + descr + " ? ", MsgButtons::YesNo);
    }
    static Shown invoiced(const std::string& descr)
    {
        return question("ATTENZIONE : L'azione " + descr + "\rrisulta gia' fatturata. Vuoi eliminarla ugualmente ?",
                        MsgButtons::YesNo);
    }
    std::int32_t invoicedTariff(std::int16_t n, const std::string& descr)
    {
        Action a;
        a.nOrdine = n;
        a.descr = descr;
        a.fattura = true;
        return addAction(a);
    }
};

TEST_F(ActionDeletion, NothingLoadedAsksNothing)
{
    tariff(1, "a");
    auto form = open(7, "15/03/2005");
    const std::string before = describe(*form);
    view.events.clear();
    form->click("cmdCancella");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(describe(*form), before);
    EXPECT_EQ(view.events, std::vector<std::string>{});
}

TEST_F(ActionDeletion, DeletingRenumbersTheTariffSequenceFromOne)
{
    tariff(1, "a");
    const std::int32_t b = tariff(2, "b");
    tariff(3, "c");
    tariff(5, "e");
    hourly(2, "h2");
    hourly(5, "h5");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", b);
    reply({MsgResult::Yes});
    form->click("cmdCancella");
    EXPECT_EQ(messages(), std::vector<Shown>{confirm("b")});
    EXPECT_EQ(numbers(true), "a:1 c:2 e:3");
    EXPECT_EQ(numbers(false), "h2:2 h5:5");
    EXPECT_EQ(stored(b), "(none)");
    // The tariff entry starts afresh from today.
    EXPECT_EQ(form->state().idAzioneCorrente, 0);
    EXPECT_FALSE(form->state().bModifica);
    EXPECT_EQ(form->control("FNumOrdine").text, "4");
    EXPECT_EQ(form->control("cmbVoce").text, "");
    EXPECT_EQ(form->control("FQuantita").text, "1");
    EXPECT_EQ(form->control("GrigliaParcella").rows.size(), 3u);
}

TEST_F(ActionDeletion, DecliningTheDeleteChangesNothing)
{
    tariff(1, "a");
    const std::int32_t c = tariff(3, "c");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", c);
    const std::string before = describe(*form);
    const std::string database = wholeDatabase();
    reply({MsgResult::No});
    form->click("cmdCancella");
    EXPECT_EQ(messages(), std::vector<Shown>{confirm("c")});
    EXPECT_EQ(wholeDatabase(), database);
    EXPECT_EQ(describe(*form), before);
}

TEST_F(ActionDeletion, DecliningTheInvoiceQuestionKeepsTheRowButStillRenumbers)
{
    tariff(2, "a");
    const std::int32_t f = invoicedTariff(4, "fatturata");
    tariff(7, "g");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", f);
    reply({MsgResult::Yes, MsgResult::No});
    form->click("cmdCancella");
    EXPECT_EQ(messages(), (std::vector<Shown>{confirm("fatturata"), invoiced("fatturata")}));
    EXPECT_EQ(numbers(true), "a:1 fatturata:2 g:3");
    EXPECT_EQ(form->state().idAzioneCorrente, 0);
}

TEST_F(ActionDeletion, AnInvoicedActionGoesWhenTheUserInsists)
{
    tariff(1, "a");
    const std::int32_t f = invoicedTariff(2, "fatturata");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", f);
    reply({MsgResult::Yes, MsgResult::Yes});
    form->click("cmdCancella");
    EXPECT_EQ(messages(), (std::vector<Shown>{confirm("fatturata"), invoiced("fatturata")}));
    EXPECT_EQ(numbers(true), "a:1");
}

TEST_F(ActionDeletion, AnEmptyDescriptionLeavesAnEmptyLine)
{
    const std::int32_t id = tariff(1, "");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", id);
    reply({MsgResult::No});
    form->click("cmdCancella");
    EXPECT_EQ(
        messages(),
        std::vector<Shown>{question("ATTENZIONE : Confermi la cancellazione dell'Azione \r ? ", MsgButtons::YesNo)});
}

TEST_F(ActionDeletion, TheQuestionShowsTheDescriptionAsTypedAndTrimmed)
{
    const std::int32_t id = tariff(1, "a");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", id);
    form->setText("cmbVoce", "  scritta ora  ");
    reply({MsgResult::No});
    form->click("cmdCancella");
    EXPECT_EQ(messages(), std::vector<Shown>{confirm("scritta ora")});
}

TEST_F(ActionDeletion, DeletingAnHourlyActionRenumbersTheHourlyOnesOnly)
{
    tariff(2, "t2");
    tariff(4, "t4");
    hourly(1, "h1");
    const std::int32_t h3 = hourly(3, "h3");
    hourly(6, "h6");
    auto form = open(7, "10/03/2005");
    form->click("optOraria");
    form->chooseKey("GrigliaParcella", h3);
    form->chooseKey("cmbEseguito", 2);
    reply({MsgResult::Yes});
    form->click("cmdCancella");
    EXPECT_EQ(messages(), std::vector<Shown>{confirm("h3")});
    EXPECT_EQ(numbers(false), "h1:1 h6:2");
    EXPECT_EQ(numbers(true), "t2:2 t4:4");
    // The hourly entry starts afresh: today's date, il numero from the
    // date handed to the dialog, the user at the keyboard.
    for (const char* field : {"txtDescrizione", "FImporto", "FEsenti", "FImponibili", "FOre", "FMinuti"}) {
        EXPECT_EQ(form->control(field).text, "") << field;
    }
    EXPECT_EQ(form->control("FData").text, "15/03/2005");
    EXPECT_EQ(form->control("FNumOrdine").text, "3");
    EXPECT_EQ(form->control("cmbEseguito").text, "Avv. Rossi");
    EXPECT_EQ(form->state().idAzioneCorrente, 0);
    EXPECT_EQ(form->control("GrigliaParcella").rows.size(), 2u);
}

TEST_F(ActionDeletion, AFailedDeleteStillRefreshesTheEntry)
{
    tariff(1, "a");
    const std::int32_t b = tariff(2, "b");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", b);
    db.exec("DELETE FROM Azioni WHERE IdAzione = " + std::to_string(b));
    reply({MsgResult::Yes});
    const std::string database = wholeDatabase();
    form->click("cmdCancella");
    ASSERT_EQ(messages().size(), 2u);
    EXPECT_EQ(messages()[1].icon, MsgIcon::Critical);
    EXPECT_EQ(wholeDatabase(), database);
    EXPECT_EQ(form->state().idAzioneCorrente, 0);
    EXPECT_EQ(form->control("GrigliaParcella").rows.size(), 1u);
}

} // namespace
} // namespace avlor::test
