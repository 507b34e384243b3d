// The SQLite dialect: every statement text of the application, as SQLite
// runs it. Only the date form, bare true/false, a closing ';' and bare table
// names change; everything else (double blanks, quoted spellings) stays.
#include <gtest/gtest.h>

#include "avlor/data/DataError.h"
#include "avlor/data/SqliteDialect.h"

namespace avlor {
namespace {

std::string sqlite(const std::string& statement) { return SqliteDialect::instance().translate(statement); }

// Statements the dialect must leave exactly as written.
class UnchangedStatement : public testing::TestWithParam<std::string> { };

TEST_P(UnchangedStatement, RunsAsWritten) { EXPECT_EQ(sqlite(GetParam()), GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    ApplicationStatements, UnchangedStatement,
    testing::Values(
        // Tariff engine.
        "SELECT * FROM Diritti94 WHERE Id = 132", "SELECT * FROM Diritti94Euro WHERE Id = 7",
        "SELECT * FROM Diritti2004Euro WHERE Id = 391", "SELECT * FROM Onorari94 WHERE Id = 13",
        "SELECT * FROM Onorari94Euro WHERE Id = 14", "SELECT * FROM Onorari2004Euro WHERE Id = 62",
        "SELECT * FROM OnorariPenali94 WHERE Id = 1", "SELECT * FROM OnorariPenali94Euro WHERE Id = 2",
        "SELECT * FROM OnorariPenali2004Euro WHERE Id = 3",
        // Dialog start-up, lists, grid, loading, saving.
        "SELECT Valuta,Valore,Cambio,Rilevanza,Autorita FROM Pratica  WHERE ID_Pra = 5", "SELECT * FROM ConfigGenerale",
        "SELECT * FROM Utenti ORDER BY ID_Utente", "SELECT * FROM ParcellaBase ORDER BY CodiceParcella",
        "SELECT * FROM ParcellaBase WHERE IsPenale= 'true' ORDER BY CodiceParcella",
        "SELECT * FROM ParcellaBase  ORDER BY NomeParcella ", "SELECT * FROM Diritti2004Euro ORDER BY CodiceTariffa",
        "SELECT * FROM Diritti2004Euro ORDER BY Azione",
        "SELECT Azioni.*, Utenti.NomeUtente FROM Utenti INNER JOIN Azioni ON Utenti.ID_Utente = Azioni.IdEseguitoDa "
        "WHERE IdPra = 5 AND IsTariffa = 'TRUE'  ORDER BY NOrdine ",
        "SELECT Azioni.*, Utenti.NomeUtente FROM Utenti INNER JOIN Azioni ON Utenti.ID_Utente = Azioni.IdEseguitoDa "
        "WHERE IdPra = 5 AND IsTariffa = 'FALSE'  ORDER BY NOrdine ",
        "SELECT * FROM Azioni WHERE IdAzione = 3",
        "SELECT NOrdine From Azioni WHERE IdPra = 5 AND NOrdine >= 2 AND IsTariffa = 'TRUE'  ORDER BY NOrdine ",
        "SELECT NOrdine From Azioni WHERE IdPra = 5 AND NOrdine >= 2 AND IsTariffa = 'TRUE' AND IdAzione <> 4 "
        "ORDER BY NOrdine ",
        "SELECT NOrdine FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'TRUE'  ORDER BY NOrdine ",
        "SELECT NOrdine FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'FALSE'  ORDER BY NOrdine ",
        "SELECT * FROM VociParcellaBase WHERE IdParcellaBase = 2 ORDER BY NOrdine",
        "SELECT NOrdine FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'TRUE'  AND NOrdine >= 2 ORDER BY NOrdine ",
        // Users and groups.
        "Select LivelloRiservatezza FROM Utenti WHERE Id_Utente = 5",
        "SELECT DISTINCT Fk_Gruppo FROM RelGruppiUtenti WHERE Fk_Id_Utente = 5",
        "Select fk_id_Utente FROM RelGruppiUtenti WHERE Fk_Gruppo = 'Civile'",
        "SELECT Utenti.ID_Utente From Utenti WHERE (((Utenti.ID_Utente) = 5) AND ((Utenti.TitContabilita) = 'True'))",
        "Select fk_id_Utente FROM RelGruppiUtenti WHERE Fk_Gruppo = 'D''Amico' AND fk_Id_Utente = 5",
        // Small queries.
        "SELECT Count(MultiIntesta.ID_Multi) AS ConteggioDiID_Multi FROM MultiIntesta WHERE (MultiIntesta.ID_Pra = 5) "
        "AND (MultiIntesta.IsCliente='True')",
        "SELECT Count(MultiIntesta.ID_Multi) AS ConteggioDiID_Multi FROM MultiIntesta WHERE "
        "(MultiIntesta.IsCliente='False') And (MultiIntesta.ID_Pra = 5)",
        "SELECT Anagrafica.IsFisicaGiuridica From Anagrafica WHERE (((Anagrafica.ID_Ana)=3))",
        // Quoted words are never rewritten, even when they read like a flag
        // or hold a ';'.
        "SELECT * FROM RelGruppiUtenti WHERE Fk_Gruppo = 'True'",
        "SELECT * FROM Azioni WHERE Descr = 'a; b' AND Codice = 'CONVERT (SMALLDATETIME,''02/06/2004'', 105)'",
        "SELECT * FROM Azioni WHERE \"true\" = 1", "SELECT * FROM Azioni -- true; false\n"));

TEST(SqliteDialect, DateFormBecomesIsoLiteral)
{
    EXPECT_EQ(sqlite("SELECT NOrdine,Data FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'TRUE'  AND Data <= "
                     "CONVERT (SMALLDATETIME,'02/06/2004', 105)  ORDER BY Data DESC,NOrdine DESC"),
              "SELECT NOrdine,Data FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'TRUE'  AND Data <= "
              "'2004-06-02'  ORDER BY Data DESC,NOrdine DESC");
    EXPECT_EQ(sqlite("SELECT NOrdine,Data FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'FALSE'  AND IdAzione <> 4"
                     " AND Data <= CONVERT (SMALLDATETIME,'1/10/1994', 105)  ORDER BY Data DESC,NOrdine DESC"),
              "SELECT NOrdine,Data FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'FALSE'  AND IdAzione <> 4"
              " AND Data <= '1994-10-01'  ORDER BY Data DESC,NOrdine DESC");
    // Spacing and letter case of the form do not matter, nor the separators
    // that style 105 allows.
    EXPECT_EQ(sqlite("SELECT 1 WHERE d = CONVERT (SMALLDATETIME,'02-06-2004', 105) "),
              "SELECT 1 WHERE d = '2004-06-02' ");
    EXPECT_EQ(sqlite("SELECT 1 WHERE d = CONVERT (SMALLDATETIME,'2.6.2004', 105) "),
              "SELECT 1 WHERE d = '2004-06-02' ");
    EXPECT_EQ(sqlite("SELECT 1 WHERE d = convert(smalldatetime , '29/02/2004',105)"),
              "SELECT 1 WHERE d = '2004-02-29'");
}

TEST(SqliteDialect, DateFormWithANonDateIsRefused)
{
    EXPECT_THROW((void)sqlite("SELECT 1 WHERE d = CONVERT (SMALLDATETIME,'31/02/2004', 105) "), DataError);
    EXPECT_THROW((void)sqlite("SELECT 1 WHERE d = CONVERT (SMALLDATETIME,'', 105) "), DataError);
    try {
        (void)sqlite("SELECT 1 WHERE d <= CONVERT (SMALLDATETIME,'abc', 105) ");
        FAIL();
    } catch (const DataError& error) {
        EXPECT_EQ(error.statement(), "SELECT 1 WHERE d <= CONVERT (SMALLDATETIME,'abc', 105) ");
        EXPECT_NE(std::string(error.what()).find("'abc'"), std::string::npos);
    }
}

TEST(SqliteDialect, OtherConvertFormsAreLeftToTheDatabase)
{
    EXPECT_EQ(sqlite("SELECT CONVERT (SMALLDATETIME,'02/06/2004', 103)"),
              "SELECT CONVERT (SMALLDATETIME,'02/06/2004', 103)");
    EXPECT_EQ(sqlite("SELECT CONVERT (INT,'7')"), "SELECT CONVERT (INT,'7')");
}

TEST(SqliteDialect, BareFlagsBecomeQuotedWords)
{
    EXPECT_EQ(sqlite("SELECT * FROM ParcellaBase WHERE IsPenale= true ORDER BY CodiceParcella"),
              "SELECT * FROM ParcellaBase WHERE IsPenale= 'True' ORDER BY CodiceParcella");
    EXPECT_EQ(sqlite("SELECT * FROM Azioni WHERE bFattura=FALSE OR IsTariffa = True"),
              "SELECT * FROM Azioni WHERE bFattura='False' OR IsTariffa = 'True'");
    // A qualified name or a function named so is not a flag.
    EXPECT_EQ(sqlite("SELECT t.true, true(x), trueness FROM t"), "SELECT t.true, true(x), trueness FROM t");
}

TEST(SqliteDialect, ClosingSemicolonIsDropped)
{
    EXPECT_EQ(sqlite("SELECT Fatture.ResiduoASaldo From Fatture WHERE (((Fatture.ID_Fattura)=3));"),
              "SELECT Fatture.ResiduoASaldo From Fatture WHERE (((Fatture.ID_Fattura)=3))");
    EXPECT_EQ(sqlite("SELECT 1;  \n "), "SELECT 1");
}

TEST(SqliteDialect, TextAfterASemicolonIsRefused)
{
    EXPECT_THROW((void)sqlite("SELECT 1; DELETE FROM Azioni"), DataError);
    EXPECT_THROW((void)sqlite("SELECT 1;;"), DataError);
    EXPECT_THROW((void)sqlite("SELECT 1; -- nothing"), DataError);
    EXPECT_THROW((void)sqlite("Select LivelloRiservatezza FROM Utenti WHERE Id_Utente = 1; DROP TABLE Utenti"),
                 DataError);
}

TEST(SqliteDialect, BareTableNameOpensTheWholeTable)
{
    EXPECT_EQ(sqlite("Versioni"), "SELECT * FROM Versioni");
    EXPECT_EQ(sqlite("Utenti"), "SELECT * FROM Utenti");
    EXPECT_EQ(sqlite(" Azioni "), "SELECT * FROM Azioni");
    EXPECT_TRUE(Dialect::isBareTableName("Azioni"));
    EXPECT_FALSE(Dialect::isBareTableName("SELECT * FROM Azioni"));
    EXPECT_FALSE(Dialect::isBareTableName("Azioni;"));
    EXPECT_FALSE(Dialect::isBareTableName(""));
    EXPECT_FALSE(Dialect::isBareTableName("12"));
}

TEST(SqliteDialect, ScriptsSplitOutsideQuotes)
{
    const std::vector<std::string> expected = {"INSERT INTO t VALUES ('a;b')", " UPDATE t SET x = 1",
                                               "\n-- ; comment\nDELETE FROM t"};
    EXPECT_EQ(Dialect::splitScript("INSERT INTO t VALUES ('a;b'); UPDATE t SET x = 1;\n-- ; comment\nDELETE FROM t;"
                                   "  ;\n"),
              expected);
}

TEST(SqliteDialect, IdentifiersAreQuoted)
{
    EXPECT_EQ(Dialect::quoteIdentifier("NOrdine"), "\"NOrdine\"");
    EXPECT_EQ(Dialect::quoteIdentifier("a\"b"), "\"a\"\"b\"");
}

} // namespace
} // namespace avlor
