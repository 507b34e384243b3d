// The parameters in the practice database: the shipped figures loaded and
// read back whole, priced from the database, exported and imported; an
// import with one bad cell leaves every row as it was.
#include <gtest/gtest.h>

#include "TestDatabase.h"
#include "avlor/parametri/Calcolo.h"
#include "avlor/parametri/ParametriDatabase.h"
#include "avlor/parametri/ParametriFile.h"

namespace avlor::parametri {
namespace {

const std::string Header = "versione;tabella;scaglione_da;scaglione_a;fase;valore_medio;affidabilita;fonte\n";

class ParametriDatabase : public testing::Test {
protected:
    void SetUp() override { loaded = caricaParametriSpediti(); }

    [[nodiscard]] std::vector<std::vector<Value>> allFigures() const
    {
        return db.rows("SELECT Versione, Tabella, ScaglioneDa, ScaglioneA, Fase, ValoreMedio, Fonte, Affidabilita "
                       "FROM ParametriCifre ORDER BY Versione, Tabella, ScaglioneDa, Fase");
    }

    test::TestDatabase db;
    Caricamento loaded;
};

TEST_F(ParametriDatabase, ShippedFiguresLoadAndReadBackWhole)
{
    EXPECT_EQ(loaded.tabelle, 78U);
    EXPECT_EQ(loaded.cifre, 477U + 495U + 483U);
    EXPECT_EQ(db.value("SELECT count(*) FROM ParametriCifre").toLong(), 1455);
    const Catalogo read = leggiParametri();
    const Catalogo& shipped = catalogoSpedito();
    ASSERT_EQ(read.tabelle.size(), shipped.tabelle.size());
    for (std::size_t i = 0; i < read.tabelle.size(); ++i) {
        const Tabella& a = read.tabelle[i];
        const Tabella& b = shipped.tabelle[i];
        SCOPED_TRACE(b.versione + "/" + b.numero);
        EXPECT_EQ(a.numero, b.numero);
        EXPECT_EQ(a.titolo, b.titolo);
        EXPECT_EQ(a.fonte, b.fonte);
        EXPECT_EQ(a.affidabilita, b.affidabilita);
        EXPECT_EQ(a.verificata, b.verificata);
        EXPECT_EQ(a.nota, b.nota);
        ASSERT_EQ(a.cifre.size(), b.cifre.size());
        for (std::size_t j = 0; j < a.cifre.size(); ++j) {
            EXPECT_EQ(a.cifre[j].da, b.cifre[j].da);
            EXPECT_EQ(a.cifre[j].a, b.cifre[j].a);
            EXPECT_EQ(a.cifre[j].fase, b.cifre[j].fase);
            EXPECT_EQ(a.cifre[j].valoreMedio, b.cifre[j].valoreMedio);
        }
    }
    EXPECT_FALSE(read.trova("2022", "15")->verificata);
}

TEST_F(ParametriDatabase, PricesFromTheDatabase)
{
    Richiesta r;
    r.data = Date::fromYmd(2024, 3, 15);
    r.tabella = "2";
    r.valore = Currency::fromWhole(30000);
    r.fasi = {"studio", "introduttiva", "istruttoria", "decisionale"};
    EXPECT_EQ(testoImporto(calcola(leggiParametri(), r).totale), "8.758,40");
}

TEST_F(ParametriDatabase, ImportAddsAMissingTableAndReplacesFigures)
{
    const Caricamento result = importaParametri(Header +
                                                    "2022;25;0,01;1100;Compenso;283,50;media;Studio Rossi\n"
                                                    "2022;2;0,01;1100;Fase decisionale;201;alta;\n",
                                                "correzioni.csv");
    EXPECT_EQ(result.tabelle, 1U);
    EXPECT_EQ(result.cifre, 2U);
    EXPECT_EQ(result.sostituite, 1U);
    const Catalogo read = leggiParametri();
    const Tabella* added = read.trova("2022", "25");
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->titolo, "PRESTAZIONI DI ASSISTENZA STRAGIUDIZIALE");
    EXPECT_EQ(added->affidabilita, "media");
    ASSERT_EQ(added->cifre.size(), 1U);
    EXPECT_EQ(added->cifre[0].fonte, "Studio Rossi");
    const Tabella* tribunale = read.trova("2022", "2");
    EXPECT_EQ(tribunale->cifre.size(), 24U);
    const auto decision = std::find_if(tribunale->cifre.begin(), tribunale->cifre.end(), [](const Cifra& c) {
        return c.fase == "Fase decisionale" && c.a == Currency::fromWhole(1100);
    });
    ASSERT_NE(decision, tribunale->cifre.end());
    EXPECT_EQ(decision->valoreMedio, Currency::fromWhole(201));
    EXPECT_EQ(decision->fonte, "File importato: correzioni.csv");
}

TEST_F(ParametriDatabase, MalformedImportLeavesTheDatabaseUntouched)
{
    const auto before = allFigures();
    const auto tablesBefore = db.value("SELECT count(*) FROM ParametriTabelle").toLong();
    try {
        (void)importaParametri(Header +
                                   "2022;25;0,01;1100;Compenso;283,50;media;x\n"
                                   "2022;2;0,01;1100;Fase decisionale;duecento;alta;\n",
                               "rotto.csv");
        FAIL();
    } catch (const ParametriFileError& e) {
        EXPECT_EQ(std::string(e.what()),
                  "rotto.csv, riga 3, colonna valore_medio: «duecento» non è un importo maggiore di zero");
    }
    EXPECT_EQ(db.value("SELECT count(*) FROM ParametriTabelle").toLong(), tablesBefore);
    const auto after = allFigures();
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < after.size(); ++i) {
        for (std::size_t j = 0; j < after[i].size(); ++j)
            EXPECT_TRUE(after[i][j].identicalTo(before[i][j])) << i << "," << j;
    }
}

TEST_F(ParametriDatabase, ExportImportsBackWithoutChange)
{
    const std::string exported = esportaParametri();
    const auto before = allFigures();
    const Caricamento again = importaParametri(exported, "esportazione.csv");
    EXPECT_EQ(again.cifre, 1455U);
    EXPECT_EQ(again.sostituite, 1455U);
    EXPECT_EQ(again.tabelle, 0U);
    EXPECT_EQ(esportaParametri(), exported);
    const auto after = allFigures();
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < after.size(); ++i) {
        for (std::size_t j = 0; j < after[i].size(); ++j)
            EXPECT_TRUE(after[i][j].identicalTo(before[i][j])) << i << "," << j;
    }
}

TEST(ParametriDatabaseOld, ADatabaseWithoutTheTablesIsReported)
{
    test::TestDatabase db;
    db.dropTable("ParametriCifre");
    try {
        (void)leggiParametri();
        FAIL();
    } catch (const ParametriError& e) {
        EXPECT_EQ(std::string(e.what()),
                  "Il database dello studio non ha le tabelle dei parametri (è stato creato "
                  "prima che vi fossero aggiunte): crearne uno nuovo con avlor db init");
    }
}

} // namespace
} // namespace avlor::parametri
