// Adding and changing tariff actions: the entry checks, the over-maximum
// question, every field stored, the order numbers of the sequence, and the
// entry made ready for the next action.
#include "WritingFixture.h"

namespace avlor::test {
namespace {

using ActionSaving = WritingTest;

TEST_F(ActionSaving, AddingATariffActionByHandStoresEveryField)
{
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "1", "Sopralluogo", "120,50");
    form->setText("FImponibili", "10,00");
    form->setText("FEsenti", "5,25");
    form->setText("FQuantita", "2");
    form->click("chkIncludi");
    form->click("cmdAggiungi");

    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(stored(lastId()),
              "Data=15/03/2005|NOrdine=1|IdPra=7|Codice=|Descr=Sopralluogo|Valuta=EURO|"
              "Cambio=1936.27|Diritti=120.5|Onorari=0|TipoAzione=0|Imponibili=10|Esenti=5.25|"
              "IsTariffa=True|Quantita=2|IdFattura=0|IdEseguitoDa=1|IdVoceParcella=0|"
              "TabellaTariffa=|InNotaSpese=-1|bFattura=False|Ore=0|Minuti=0");
    // The entry is ready for the next action, numbered after this one.
    EXPECT_EQ(form->control("FNumOrdine").text, "2");
    EXPECT_EQ(form->control("FData").text, "15/03/2005");
    for (const char* field : {"FImporto", "FEsenti", "FImponibili", "FDenMaxS", "FDenMaxT", "FDenMinS", "FDenMinT",
                              "cmbVoce", "cmbCodice"}) {
        EXPECT_EQ(form->control(field).text, "") << field;
    }
    EXPECT_EQ(form->control("FQuantita").text, "1");
    // The check box keeps its tick for the next action.
    EXPECT_TRUE(form->control("chkIncludi").value);
    EXPECT_EQ(form->control("GrigliaParcella").rows.size(), 1u);
    EXPECT_EQ(form->control("GrigliaParcella").rows[0][4], "Sopralluogo");
    EXPECT_EQ(form->state().idAzioneCorrente, 0);
    EXPECT_FALSE(form->state().bModifica);
}

TEST_F(ActionSaving, AChosenItemStoresItsTableKindAndAmountAsFees)
{
    auto form = open(7, "15/03/2005");
    form->click("optOnorari");
    form->open("cmbVoce");
    form->chooseKey("cmbVoce", 20);
    form->setText("FNumOrdine", "1");
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(stored(lastId()),
              "Data=15/03/2005|NOrdine=1|IdPra=7|Codice=O20|Descr=Studio della controversia|"
              "Valuta=EURO|Cambio=1936.27|Diritti=0|Onorari=100|TipoAzione=1|Imponibili=0|"
              "Esenti=0|IsTariffa=True|Quantita=1|IdFattura=0|IdEseguitoDa=1|IdVoceParcella=20|"
              "TabellaTariffa=Onorari2004Euro|InNotaSpese=0|bFattura=False|Ore=0|Minuti=0");
    // The item's figures are gone with the entry.
    EXPECT_EQ(form->state().idTariffa, 0);
    EXPECT_EQ(form->state().ImportoVoce, Currency{});
}

TEST_F(ActionSaving, EachFamilyStoresItsKind)
{
    const std::pair<const char*, const char*> kinds[] = {
        {"optDiritti", "Diritti=7|Onorari=0|TipoAzione=0"},
        {"optOnorari", "Diritti=0|Onorari=7|TipoAzione=1"},
        {"optStragiudiziale", "Diritti=0|Onorari=7|TipoAzione=2"},
        {"optPenale", "Diritti=0|Onorari=7|TipoAzione=3"},
    };
    for (const auto& [option, expected] : kinds) {
        auto form = open(7, "15/03/2005");
        form->click(option);
        typeTariff(*form, "1", option, "7");
        form->click("cmdAggiungi");
        const std::string row = stored(lastId());
        EXPECT_NE(row.find(expected), std::string::npos) << option << ": " << row;
    }
    // Each was added at 1, pushing the earlier ones up.
    EXPECT_EQ(numbers(true), "optDiritti:4 optOnorari:3 optStragiudiziale:2 optPenale:1");
}

TEST_F(ActionSaving, EmptyFieldsStoreZeroes)
{
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "1", "Senza importi");
    form->setText("FQuantita", " ");
    form->click("cmdAggiungi");
    EXPECT_NE(stored(lastId()).find("Diritti=0|Onorari=0|TipoAzione=0|Imponibili=0|Esenti=0|IsTariffa=True|"
                                    "Quantita=0|"),
              std::string::npos)
        << stored(lastId());
}

TEST_F(ActionSaving, AddingInsideAnUnbrokenRunMovesItUpToTheFirstGap)
{
    tariff(1, "a");
    tariff(2, "b");
    tariff(3, "c");
    tariff(5, "e");
    hourly(2, "h2");
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "2", "nuova");
    form->click("cmdAggiungi");
    EXPECT_EQ(numbers(true), "a:1 b:3 c:4 e:5 nuova:2");
    EXPECT_EQ(numbers(false), "h2:2");
}

TEST_F(ActionSaving, AddingAtAGapMovesNothing)
{
    tariff(1, "a");
    tariff(3, "c");
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "2", "nuova");
    form->click("cmdAggiungi");
    EXPECT_EQ(numbers(true), "a:1 c:3 nuova:2");
}

TEST_F(ActionSaving, AddingTouchesNoOtherCaseFile)
{
    tariff(1, "a");
    tariff(1, "altra", 9);
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "1", "nuova");
    form->click("cmdAggiungi");
    EXPECT_EQ(numbers(true), "a:2 nuova:1");
    EXPECT_EQ(numbers(true, 9), "altra:1");
}

TEST_F(ActionSaving, AnAmountEqualToTheMaximumAsksNothing)
{
    auto form = open(7, "15/03/2005");
    form->click("optOnorari");
    form->open("cmbVoce");
    form->chooseKey("cmbVoce", 20);
    form->setText("FImporto", "300,00");
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_NE(stored(lastId()).find("Onorari=300|"), std::string::npos);
}

const char* const SopraMassimo = "ATTENZIONE : L'importo e' superiore al massimo tariffario.\r\r"
                                 "[OK]              Effettua il salvataggio\r"
                                 "[ANNULLA]   Annulla l'operazione.";

TEST_F(ActionSaving, AnAmountPastTheMaximumIsStoredWhenTheUserSaysOK)
{
    auto form = open(7, "15/03/2005");
    form->click("optOnorari");
    form->open("cmbVoce");
    form->chooseKey("cmbVoce", 20);
    form->setText("FImporto", "300,01");
    reply({MsgResult::Ok});
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{question(SopraMassimo, MsgButtons::OkCancel)});
    EXPECT_EQ(actionCount(), 1);
    EXPECT_NE(stored(lastId()).find("Onorari=300.01|"), std::string::npos);
}

TEST_F(ActionSaving, AnAmountPastTheMaximumCancelledWritesNothing)
{
    tariff(1, "a");
    auto form = open(7, "15/03/2005");
    form->click("optOnorari");
    form->open("cmbVoce");
    form->chooseKey("cmbVoce", 20);
    form->setText("FNumOrdine", "1");
    form->setText("FImporto", "1.000,00");
    const std::string before = describe(*form);
    const std::string database = wholeDatabase();
    reply({MsgResult::Cancel});
    view.events.clear();
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{question(SopraMassimo, MsgButtons::OkCancel)});
    EXPECT_EQ(wholeDatabase(), database);
    EXPECT_EQ(describe(*form), before);
    EXPECT_EQ(form->focused(), "FImporto");
    EXPECT_EQ(view.events, std::vector<std::string>{"focus FImporto"});
}

TEST_F(ActionSaving, NoMaximumMeansNoQuestion)
{
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "1", "a mano", "99.999,00");
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(actionCount(), 1);
}

TEST_F(ActionSaving, TheEntryChecksRefuseInOrder)
{
    const Refusal refusals[] = {
        {"FData", " ", "ATTENZIONE : E' necessario inserire la data !", "FData"},
        {"FNumOrdine", "0", "ATTENZIONE:\rE' necessario inserire il Numero d'Ordine.", "FNumOrdine"},
        {"FNumOrdine", "abc", "ATTENZIONE:\rE' necessario inserire il Numero d'Ordine.", "FNumOrdine"},
        {"FNumOrdine", "-3", "ATTENZIONE:\rE' necessario inserire il Numero d'Ordine.", "FNumOrdine"},
        {"FNumOrdine", "", "ATTENZIONE:\rE' necessario inserire il Numero d'Ordine.", "FNumOrdine"},
        {"cmbVoce", "   ", "ATTENZIONE:\rE' necessario inserire la Descrizione della Voce di Parcella.", "cmbVoce"},
    };
    for (const Refusal& refusal : refusals) {
        auto form = open(7, "15/03/2005");
        typeTariff(*form, "1", "voce");
        form->setText(refusal.field, refusal.text);
        forgetMessages();
        const std::string before = describe(*form);
        for (const char* button : {"cmdAggiungi"}) {
            form->click(button);
        }
        EXPECT_EQ(messages(), std::vector<Shown>{exclamation(refusal.message)}) << refusal.field << refusal.text;
        EXPECT_EQ(form->focused(), refusal.focus);
        EXPECT_EQ(describe(*form), before);
        EXPECT_EQ(actionCount(), 0);
    }
}

TEST_F(ActionSaving, TheDateIsCheckedBeforeTheNumber)
{
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "0", "");
    form->setText("FData", "");
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{exclamation("ATTENZIONE : E' necessario inserire la data !")});
}

TEST_F(ActionSaving, AFractionalNumberIsRoundedHalfToEven)
{
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "2.5", "mezzo");
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(numbers(true), "mezzo:2");
}

TEST_F(ActionSaving, ANumberPastTheLastOneIsFine)
{
    tariff(1, "a");
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "32767", "ultima");
    form->click("cmdAggiungi");
    EXPECT_EQ(numbers(true), "a:1 ultima:32767");
}

TEST_F(ActionSaving, ANumberPast32767FailsAndWritesNothing)
{
    tariff(1, "a");
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "32768", "troppo");
    const std::string before = describe(*form);
    const std::string database = wholeDatabase();
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{failure("Il Numero d'Ordine supera 32767.")});
    EXPECT_EQ(wholeDatabase(), database);
    EXPECT_EQ(describe(*form), before);
}

TEST_F(ActionSaving, ARunEndingAt32767CannotMoveUpAndNothingMoves)
{
    tariff(32766, "penultima");
    tariff(32767, "ultima");
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "32766", "nuova");
    const std::string database = wholeDatabase();
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{failure("Il Numero d'Ordine supera 32767.")});
    EXPECT_EQ(wholeDatabase(), database);
    EXPECT_EQ(numbers(true), "penultima:32766 ultima:32767");
}

TEST_F(ActionSaving, ANumberThatIsNotWholeTextFailsTheSave)
{
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "2abc", "voce");
    form->click("cmdAggiungi");
    ASSERT_EQ(messages().size(), 1u);
    EXPECT_EQ(messages()[0].icon, MsgIcon::Critical);
    EXPECT_EQ(actionCount(), 0);
}

TEST_F(ActionSaving, ADateThatIsNoDateFailsTheSave)
{
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "1", "voce");
    form->setText("FData", "31/02/2005");
    form->click("cmdAggiungi");
    ASSERT_EQ(messages().size(), 1u);
    EXPECT_EQ(messages()[0].icon, MsgIcon::Critical);
    EXPECT_EQ(actionCount(), 0);
}

// ---- Changing ---------------------------------------------------------------

TEST_F(ActionSaving, ChangeWithNothingLoadedDoesNothing)
{
    tariff(1, "a");
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "1", "b");
    const std::string before = describe(*form);
    const std::string database = wholeDatabase();
    view.events.clear();
    form->click("cmdModifica");
    EXPECT_EQ(describe(*form), before);
    EXPECT_EQ(wholeDatabase(), database);
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(view.events, std::vector<std::string>{});
}

TEST_F(ActionSaving, ChangingStoresTheEntryAndForgetsTheInvoice)
{
    Action a;
    a.descr = "fatturata";
    a.codice = "X1";
    a.diritti = "40";
    a.fattura = true;
    a.eseguitoDa = 2;
    const std::int32_t id = addAction(a);
    db.exec("UPDATE Azioni SET IdFattura = 55 WHERE IdAzione = " + std::to_string(id));
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", id);
    ASSERT_EQ(form->state().idAzioneCorrente, id);
    form->setText("cmbVoce", "cambiata");
    form->setText("FImporto", "45,00");
    form->click("cmdModifica");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    // The invoiced mark of a tariff action stays; its invoice link does not.
    EXPECT_EQ(stored(id),
              "Data=10/03/2005|NOrdine=1|IdPra=7|Codice=X1|Descr=cambiata|Valuta=EURO|Cambio=1936.27|"
              "Diritti=45|Onorari=0|TipoAzione=0|Imponibili=0|Esenti=0|IsTariffa=True|Quantita=1|"
              "IdFattura=0|IdEseguitoDa=1|IdVoceParcella=0|TabellaTariffa=|InNotaSpese=0|"
              "bFattura=True|Ore=0|Minuti=0");
    EXPECT_EQ(form->state().idAzioneCorrente, 0);
    EXPECT_FALSE(form->state().bModifica);
    EXPECT_EQ(form->control("FNumOrdine").text, "2");
    EXPECT_EQ(form->control("GrigliaParcella").rows[0][4], "cambiata");
}

TEST_F(ActionSaving, ChangingIsNeverAskedAboutTheMaximum)
{
    const std::int32_t id = tariff(1, "a");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", id);
    form->setText("FDenMaxT", "10,00");
    form->setText("FImporto", "11,00");
    form->click("cmdModifica");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_NE(stored(id).find("Diritti=11|"), std::string::npos);
}

TEST_F(ActionSaving, ChangingToALaterNumberPushesTheOthersAndKeepsTheGap)
{
    tariff(1, "a");
    const std::int32_t b = tariff(2, "b");
    tariff(3, "c");
    tariff(4, "d");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", b);
    form->setText("FNumOrdine", "4");
    form->click("cmdModifica");
    EXPECT_EQ(numbers(true), "a:1 b:4 c:3 d:5");
}

TEST_F(ActionSaving, ChangingClosesTheGapAtTheStartOnly)
{
    const std::int32_t b = tariff(2, "b");
    tariff(3, "c");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", b);
    form->click("cmdModifica");
    EXPECT_EQ(numbers(true), "b:1 c:2");
}

TEST_F(ActionSaving, ChangingLeavesAGapInTheMiddle)
{
    const std::int32_t a = tariff(1, "a");
    tariff(2, "b");
    tariff(4, "d");
    tariff(5, "e");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", a);
    form->click("cmdModifica");
    EXPECT_EQ(numbers(true), "a:1 b:2 d:4 e:5");
}

TEST_F(ActionSaving, ChangingATariffActionLeavesTheHourlyOnes)
{
    const std::int32_t b = tariff(2, "b");
    hourly(2, "h2");
    hourly(3, "h3");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", b);
    form->click("cmdModifica");
    EXPECT_EQ(numbers(true), "b:1");
    EXPECT_EQ(numbers(false), "h2:2 h3:3");
}

TEST_F(ActionSaving, ARefusedChangeStopsAtOnceAndKeepsTheActionLoaded)
{
    const std::int32_t id = tariff(1, "a");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", id);
    form->setText("cmbVoce", "");
    const std::string before = describe(*form);
    form->click("cmdModifica");
    EXPECT_EQ(
        messages(),
        std::vector<Shown>{exclamation("ATTENZIONE:\rE' necessario inserire la Descrizione della Voce di Parcella.")});
    EXPECT_EQ(describe(*form), before);
    EXPECT_EQ(form->state().idAzioneCorrente, id);
}

TEST_F(ActionSaving, AFailedChangeStillStartsANewEntry)
{
    const std::int32_t id = tariff(1, "a");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", id);
    form->setText("FNumOrdine", "40000");
    const std::string database = wholeDatabase();
    view.events.clear();
    form->click("cmdModifica");
    EXPECT_EQ(messages(), std::vector<Shown>{failure("Il Numero d'Ordine supera 32767.")});
    EXPECT_EQ(wholeDatabase(), database);
    EXPECT_EQ(form->state().idAzioneCorrente, 0);
    EXPECT_EQ(form->control("FNumOrdine").text, "2");
    EXPECT_EQ(form->control("cmbVoce").text, "");
    // The grid is not reloaded after a failed change.
    EXPECT_EQ(view.count("grid"), 0);
}

TEST_F(ActionSaving, AChangedActionThatIsGoneFailsWithoutWriting)
{
    const std::int32_t id = tariff(1, "a");
    tariff(2, "b");
    auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", id);
    db.exec("DELETE FROM Azioni WHERE IdAzione = " + std::to_string(id));
    const std::string database = wholeDatabase();
    form->click("cmdModifica");
    ASSERT_EQ(messages().size(), 1u);
    EXPECT_EQ(messages()[0].icon, MsgIcon::Critical);
    EXPECT_EQ(wholeDatabase(), database);
}

} // namespace
} // namespace avlor::test
