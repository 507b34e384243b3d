// A template (Parcella Base) added to a case file: its items become tariff
// actions in the template's order, priced for the case file or at their
// own amount, after room is made in the tariff sequence.
#include "WritingFixture.h"

namespace avlor::test {
namespace {

class TemplateExpansion : public WritingTest {
protected:
    void SetUp() override
    {
        WritingTest::SetUp();
        addTemplate(30, "PB1", "Causa ordinaria", false);
        addTemplate(31, "PB0", "Vuota", false);
    }

    // An item of template `parcella`: `amounts` as "Competenze, Esenti,
    // Imponibili" in decimal text.
    void addTemplateItem(std::int32_t parcella, int nOrdine, std::int32_t idTariffa, const std::string& tabella,
                         int tipo, const std::string& codice, const std::string& nome, const std::string& competenze,
                         int qta, const std::string& esenti = "0", const std::string& imponibili = "0") const
    {
        db.exec("INSERT INTO VociParcellaBase (IdParcellaBase, NOrdine, IdTariffa, TabellaTariffa, Tipo, Codice, "
                "Nome, Competenze, Esenti, Imponibili, Qta, Valuta, Cambio) VALUES (" +
                std::to_string(parcella) + ", " + std::to_string(nOrdine) + ", " + std::to_string(idTariffa) + ", '" +
                tabella + "', " + std::to_string(tipo) + ", '" + codice + "', '" + nome + "', " +
                TestDatabase::amount(competenze) + ", " + TestDatabase::amount(esenti) + ", " +
                TestDatabase::amount(imponibili) + ", " + std::to_string(qta) + ", 'EURO', " +
                TestDatabase::amount("1936.27") + ")");
    }

    void threeItems() const
    {
        // Stored out of order: the template's own order counts.
        addTemplateItem(30, 2, 20, "Onorari2004Euro", 1, "O20", "Studio", "0", 2);
        addTemplateItem(30, 1, 0, "", 0, "SP", "Spese di accesso", "10", 3, "4.5", "1.25");
        addTemplateItem(30, 3, 0, "", 1, "FX", "Forfait", "70", 1);
    }

    std::unique_ptr<dialog::frmOKParcella> chooseTemplate(std::int32_t id, const std::string& n)
    {
        auto form = open(7, "15/03/2005");
        form->click("optParcellaBase");
        form->open("cmbVoce");
        form->chooseKey("cmbVoce", id);
        form->setText("FNumOrdine", n);
        return form;
    }
};

TEST_F(TemplateExpansion, ThreeItemsAtTwoOverOneTwoFive)
{
    threeItems();
    tariff(1, "a");
    tariff(2, "b");
    tariff(5, "e");
    hourly(2, "h2");
    auto form = chooseTemplate(30, "2");
    EXPECT_EQ(form->control("cmbVoce").text, "Causa ordinaria");
    form->click("chkIncludi");
    setCurrentUser("2");
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(numbers(true), "a:1 b:5 e:6 Spese di accesso:2 Studio:3 Forfait:4");
    EXPECT_EQ(numbers(false), "h2:2");
    const std::int32_t last = lastId();
    // Fixed amount times the quantity; expenses copied; performer 1.
    EXPECT_EQ(stored(last - 2),
              "Data=15/03/2005|NOrdine=2|IdPra=7|Codice=SP|Descr=Spese di accesso|Valuta=EURO|"
              "Cambio=1936.27|Diritti=30|Onorari=0|TipoAzione=0|Imponibili=1.25|Esenti=4.5|"
              "IsTariffa=True|Quantita=3|IdFattura=0|IdEseguitoDa=1|IdVoceParcella=0|"
              "TabellaTariffa=|InNotaSpese=-1|bFattura=False|Ore=0|Minuti=0");
    // Priced for the case file (indeterminate, Tribunale) times two, as fees.
    EXPECT_EQ(stored(last - 1),
              "Data=15/03/2005|NOrdine=3|IdPra=7|Codice=O20|Descr=Studio|Valuta=EURO|"
              "Cambio=1936.27|Diritti=0|Onorari=200|TipoAzione=1|Imponibili=0|Esenti=0|"
              "IsTariffa=True|Quantita=2|IdFattura=0|IdEseguitoDa=1|IdVoceParcella=20|"
              "TabellaTariffa=Onorari2004Euro|InNotaSpese=-1|bFattura=False|Ore=0|Minuti=0");
    EXPECT_EQ(stored(last),
              "Data=15/03/2005|NOrdine=4|IdPra=7|Codice=FX|Descr=Forfait|Valuta=EURO|"
              "Cambio=1936.27|Diritti=0|Onorari=70|TipoAzione=1|Imponibili=0|Esenti=0|"
              "IsTariffa=True|Quantita=1|IdFattura=0|IdEseguitoDa=1|IdVoceParcella=0|"
              "TabellaTariffa=|InNotaSpese=-1|bFattura=False|Ore=0|Minuti=0");
    // The entry starts afresh, numbered after the last tariff action dated
    // today (the template's last item, 4), not after the highest number.
    EXPECT_EQ(form->control("FNumOrdine").text, "5");
    EXPECT_EQ(form->control("cmbVoce").text, "");
    EXPECT_EQ(form->state().idTariffa, 0);
    EXPECT_EQ(form->control("GrigliaParcella").rows.size(), 6u);
}

TEST_F(TemplateExpansion, AnEmptyTemplateAddsNothingButClosesUpFromN)
{
    tariff(1, "a");
    tariff(3, "c");
    tariff(7, "g");
    auto form = chooseTemplate(31, "2");
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(numbers(true), "a:1 c:2 g:3");
}

TEST_F(TemplateExpansion, QuantityOneOrZeroKeepsTheAmount)
{
    addTemplateItem(30, 1, 0, "", 0, "Q1", "uno", "10", 1);
    addTemplateItem(30, 2, 0, "", 0, "Q0", "zero", "10", 0);
    auto form = chooseTemplate(30, "1");
    form->click("cmdAggiungi");
    EXPECT_NE(stored(lastId() - 1).find("Diritti=10|"), std::string::npos);
    EXPECT_NE(stored(lastId() - 1).find("Quantita=1|"), std::string::npos);
    EXPECT_NE(stored(lastId()).find("Diritti=10|"), std::string::npos);
    EXPECT_NE(stored(lastId()).find("Quantita=0|"), std::string::npos);
}

TEST_F(TemplateExpansion, NoTemplateChosenIsRefused)
{
    auto form = open(7, "15/03/2005");
    form->click("optParcellaBase");
    form->setText("cmbVoce", "scritta a mano");
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(),
              std::vector<Shown>{
                  exclamation("ATTENZIONE:\rE' necessario selezionare una Parcella Base presente in archivio.")});
    EXPECT_EQ(form->focused(), "cmbVoce");
    EXPECT_EQ(actionCount(), 0);
}

TEST_F(TemplateExpansion, ATemplateNeedsADescriptionToo)
{
    threeItems();
    auto form = chooseTemplate(30, "1");
    form->setText("cmbVoce", "");
    form->click("cmdAggiungi");
    EXPECT_EQ(
        messages(),
        std::vector<Shown>{exclamation("ATTENZIONE:\rE' necessario inserire la Descrizione della Voce di Parcella.")});
    EXPECT_EQ(actionCount(), 0);
}

TEST_F(TemplateExpansion, ATemplatePast32767WritesNothing)
{
    threeItems();
    tariff(1, "a");
    tariff(32765, "z");
    auto form = chooseTemplate(30, "32765");
    const std::string database = wholeDatabase();
    const std::string before = describe(*form);
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{failure("Il Numero d'Ordine supera 32767.")});
    EXPECT_EQ(wholeDatabase(), database);
    EXPECT_EQ(describe(*form), before);
}

TEST_F(TemplateExpansion, ATemplateEndingAt32767Fits)
{
    threeItems();
    auto form = chooseTemplate(30, "32765");
    form->click("cmdAggiungi");
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(numbers(true), "Spese di accesso:32765 Studio:32766 Forfait:32767");
}

} // namespace
} // namespace avlor::test
