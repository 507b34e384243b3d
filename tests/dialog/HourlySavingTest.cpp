// Adding and changing hourly actions: their own checks and fields, their
// own sequence, the performer list refilled and the entry made ready again.
#include "WritingFixture.h"

namespace avlor::test {
namespace {

class HourlySaving : public WritingTest {
protected:
    std::unique_ptr<dialog::frmOKParcella> openHourly(const std::string& data = "15/03/2005")
    {
        auto form = open(7, data);
        form->click("optOraria");
        return form;
    }
};

TEST_F(HourlySaving, AddingStoresTheHourlyFieldsOnly)
{
    tariff(1, "t1");
    auto form = openHourly();
    EXPECT_EQ(form->control("FNumOrdine").text, "1");
    form->setText("txtDescrizione", "Ricerca giurisprudenza");
    form->chooseKey("cmbEseguito", 2);
    form->typeText("FOre", "2");
    form->typeText("FMinuti", "30");
    EXPECT_EQ(form->control("FImporto").text, "1.000,00");
    form->setText("FImporto", "150,00");
    form->setText("FEsenti", "3,00");
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(stored(lastId()),
              "Data=15/03/2005|NOrdine=1|IdPra=7|Codice=NULL|Descr=Ricerca giurisprudenza|"
              "Valuta=EURO|Cambio=1936.27|Diritti=0|Onorari=150|TipoAzione=0|Imponibili=0|"
              "Esenti=3|IsTariffa=False|Quantita=NULL|IdFattura=0|IdEseguitoDa=2|"
              "IdVoceParcella=0|TabellaTariffa=NULL|InNotaSpese=0|bFattura=False|Ore=2|"
              "Minuti=30");
    EXPECT_EQ(numbers(true), "t1:1");
    // Ready for the next hourly action, by the user at the keyboard.
    for (const char* field : {"txtDescrizione", "FImporto", "FEsenti", "FImponibili", "FOre", "FMinuti"}) {
        EXPECT_EQ(form->control(field).text, "") << field;
    }
    EXPECT_EQ(form->control("FData").text, "15/03/2005");
    EXPECT_EQ(form->control("FNumOrdine").text, "2");
    EXPECT_EQ(form->control("cmbEseguito").text, "Avv. Rossi");
    EXPECT_EQ(form->state().idEseguitoDa, 1);
    EXPECT_EQ(form->state().idAzioneCorrente, 0);
    EXPECT_TRUE(form->control("optOraria").value);
    ASSERT_EQ(form->control("GrigliaParcella").rows.size(), 1u);
    EXPECT_EQ(form->control("GrigliaParcella").rows[0][4], "Ricerca giurisprudenza");
}

TEST_F(HourlySaving, TheNextHourlyNumberComesFromTheDateHandedToTheDialog)
{
    Action later;
    later.tariffa = false;
    later.nOrdine = 1;
    later.data = "01/04/2005";
    later.descr = "dopo";
    addAction(later);
    auto form = openHourly("10/03/2005");
    EXPECT_EQ(form->control("FNumOrdine").text, "1");
    form->setText("txtDescrizione", "prima");
    form->click("cmdAggiungi");
    EXPECT_EQ(numbers(false), "dopo:2 prima:1");
    // Proposed from 10/03/2005, not from today (15/03/2005).
    EXPECT_EQ(form->control("FNumOrdine").text, "2");
}

TEST_F(HourlySaving, TheChecksHaveTheirOwnWording)
{
    const Refusal refusals[] = {
        {"FData", "", "ATTENZIONE:\rE' necessario inserire la data.", "FData"},
        {"FNumOrdine", "abc", "ATTENZIONE:\rE' necessario inserire il Numero d'Ordine.", "FNumOrdine"},
        {"FNumOrdine", "0", "ATTENZIONE:\rE' necessario inserire il Numero d'Ordine.", "FNumOrdine"},
        {"txtDescrizione", "  ", "ATTENZIONE:\rE' necessario inserire la Descrizione.", "txtDescrizione"},
    };
    for (const Refusal& refusal : refusals) {
        auto form = openHourly();
        form->setText("txtDescrizione", "lavoro");
        form->setText(refusal.field, refusal.text);
        forgetMessages();
        const std::string before = describe(*form);
        form->click("cmdAggiungi");
        EXPECT_EQ(messages(), std::vector<Shown>{exclamation(refusal.message)}) << refusal.field;
        EXPECT_EQ(form->focused(), refusal.focus);
        EXPECT_EQ(describe(*form), before);
    }
    EXPECT_EQ(actionCount(), 0);
}

TEST_F(HourlySaving, HoursAndAmountAreNotChecked)
{
    auto form = openHourly();
    form->setText("txtDescrizione", "telefonata");
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_NE(stored(lastId()).find("Onorari=0|"), std::string::npos);
    EXPECT_NE(stored(lastId()).find("Ore=0|Minuti=0"), std::string::npos);
}

TEST_F(HourlySaving, HoursThatAreNoNumberFailTheSave)
{
    auto form = openHourly();
    form->setText("txtDescrizione", "telefonata");
    form->setText("FOre", "due");
    form->click("cmdAggiungi");
    ASSERT_EQ(messages().size(), 1u);
    EXPECT_EQ(messages()[0].icon, MsgIcon::Critical);
    EXPECT_EQ(actionCount(), 0);
}

TEST_F(HourlySaving, AddingShiftsTheHourlyRunOnly)
{
    hourly(1, "h1");
    hourly(2, "h2");
    hourly(4, "h4");
    tariff(1, "t1");
    tariff(2, "t2");
    auto form = openHourly();
    form->setText("FNumOrdine", "1");
    form->setText("txtDescrizione", "nuova");
    form->click("cmdAggiungi");
    EXPECT_EQ(numbers(false), "h1:2 h2:3 h4:4 nuova:1");
    EXPECT_EQ(numbers(true), "t1:1 t2:2");
}

TEST_F(HourlySaving, ChangingClearsTheInvoicedMarkAndClosesNoGap)
{
    Action a;
    a.tariffa = false;
    a.nOrdine = 2;
    a.descr = "h2";
    a.fattura = true;
    a.onorari = "80";
    a.ore = 1.5;
    a.eseguitoDa = 2;
    const std::int32_t id = addAction(a);
    hourly(3, "h3");
    auto form = openHourly();
    form->chooseKey("GrigliaParcella", id);
    ASSERT_EQ(form->state().idAzioneCorrente, id);
    EXPECT_EQ(form->control("FOre").text, "1.5");
    EXPECT_EQ(form->control("cmbEseguito").text, "Dott. Verdi");
    form->setText("txtDescrizione", "h2 cambiata");
    form->click("cmdModifica");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(stored(id),
              "Data=10/03/2005|NOrdine=2|IdPra=7|Codice=|Descr=h2 cambiata|Valuta=EURO|Cambio=1936.27|"
              "Diritti=0|Onorari=80|TipoAzione=0|Imponibili=0|Esenti=0|IsTariffa=False|Quantita=1|"
              "IdFattura=0|IdEseguitoDa=2|IdVoceParcella=0|TabellaTariffa=|InNotaSpese=0|"
              "bFattura=False|Ore=1.5|Minuti=0");
    // No hourly action at 1: an hourly change leaves the start open.
    EXPECT_EQ(numbers(false), "h2 cambiata:2 h3:3");
    // After an hourly change the number is the tariff proposal for today.
    EXPECT_EQ(form->control("FNumOrdine").text, "1");
    EXPECT_EQ(form->control("cmbEseguito").text, "Avv. Rossi");
    EXPECT_EQ(form->control("txtDescrizione").text, "");
    EXPECT_EQ(form->state().idAzioneCorrente, 0);
}

TEST_F(HourlySaving, ChangingToATakenNumberPushesTheRun)
{
    const std::int32_t h1 = hourly(1, "h1");
    hourly(2, "h2");
    hourly(3, "h3");
    tariff(3, "t3");
    auto form = openHourly();
    form->chooseKey("GrigliaParcella", h1);
    form->setText("FNumOrdine", "2");
    form->click("cmdModifica");
    EXPECT_EQ(numbers(false), "h1:2 h2:3 h3:4");
    EXPECT_EQ(numbers(true), "t3:3");
}

} // namespace
} // namespace avlor::test
