// The PostgreSQL dialect: the statements of the application as the server
// runs them. Only the date form changes (into a DATE literal); yes/no words
// quoted or bare, double blanks and quoted text stay as written, because
// BOOLEAN columns take every spelling the statements use.
#include <gtest/gtest.h>

#include "avlor/data/DataError.h"
#include "postgresql/PostgresqlDialect.h"

namespace avlor {
namespace {

std::string server(const std::string& statement) { return PostgresqlDialect::instance().translate(statement); }

TEST(PostgresqlDialect, Name) { EXPECT_EQ(PostgresqlDialect::instance().name(), "postgresql"); }

class UnchangedOnTheServer : public testing::TestWithParam<std::string> { };

TEST_P(UnchangedOnTheServer, RunsAsWritten) { EXPECT_EQ(server(GetParam()), GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    ApplicationStatements, UnchangedOnTheServer,
    testing::Values("SELECT Valuta,Valore,Cambio,Rilevanza,Autorita FROM Pratica  WHERE ID_Pra = 5",
                    "SELECT * FROM ParcellaBase WHERE IsPenale= 'true' ORDER BY CodiceParcella",
                    "SELECT * FROM ParcellaBase  ORDER BY NomeParcella ",
                    "SELECT Azioni.*, Utenti.NomeUtente FROM Utenti INNER JOIN Azioni ON Utenti.ID_Utente = "
                    "Azioni.IdEseguitoDa WHERE IdPra = 5 AND IsTariffa = 'TRUE'  ORDER BY NOrdine ",
                    "SELECT NOrdine FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'FALSE'  ORDER BY NOrdine ",
                    "Select LivelloRiservatezza FROM Utenti WHERE Id_Utente = 5",
                    "Select fk_id_Utente FROM RelGruppiUtenti WHERE Fk_Gruppo = 'D''Amico' AND fk_Id_Utente = 5",
                    "SELECT Utenti.ID_Utente From Utenti WHERE (((Utenti.ID_Utente) = 5) AND "
                    "((Utenti.TitContabilita) = 'True'))",
                    "SELECT Count(MultiIntesta.ID_Multi) AS ConteggioDiID_Multi FROM MultiIntesta WHERE "
                    "(MultiIntesta.IsCliente='False') And (MultiIntesta.ID_Pra = 5)",
                    "SELECT * FROM Azioni WHERE Codice = 'CONVERT (SMALLDATETIME,''02/06/2004'', 105)'",
                    "SELECT * FROM Azioni WHERE IsTariffa = true", "SELECT * FROM Azioni WHERE IsTariffa = false"));

TEST(PostgresqlDialect, DateFormBecomesADateLiteral)
{
    EXPECT_EQ(server("SELECT NOrdine,Data FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'TRUE'  AND Data <= "
                     "CONVERT (SMALLDATETIME,'02/06/2004', 105)  ORDER BY Data DESC,NOrdine DESC"),
              "SELECT NOrdine,Data FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'TRUE'  AND Data <= "
              "DATE '2004-06-02'  ORDER BY Data DESC,NOrdine DESC");
    EXPECT_EQ(server("SELECT 1 WHERE d = CONVERT (SMALLDATETIME,'1/10/1994', 105) "),
              "SELECT 1 WHERE d = DATE '1994-10-01' ");
    EXPECT_EQ(server("SELECT 1 WHERE d = convert(smalldatetime , '29-02-2004',105)"),
              "SELECT 1 WHERE d = DATE '2004-02-29'");
    EXPECT_EQ(server("SELECT 1 WHERE d = CONVERT (SMALLDATETIME,'31.12.9999', 105)"),
              "SELECT 1 WHERE d = DATE '9999-12-31'");
}

TEST(PostgresqlDialect, DateFormWithANonDateIsRefused)
{
    for (const char* text : {"31/02/2004", "29/02/2003", "", "abc", "00/01/2004"}) {
        const std::string statement = std::string("SELECT 1 WHERE d <= CONVERT (SMALLDATETIME,'") + text + "', 105) ";
        try {
            (void)server(statement);
            FAIL() << text;
        } catch (const DataError& error) {
            EXPECT_EQ(error.statement(), statement);
        }
    }
}

TEST(PostgresqlDialect, BareFlagsStayKeywords)
{
    EXPECT_EQ(server("SELECT * FROM ParcellaBase WHERE IsPenale= true ORDER BY CodiceParcella"),
              "SELECT * FROM ParcellaBase WHERE IsPenale= true ORDER BY CodiceParcella");
    EXPECT_EQ(server("SELECT * FROM Azioni WHERE bFattura=FALSE OR IsTariffa = True"),
              "SELECT * FROM Azioni WHERE bFattura=false OR IsTariffa = true");
    EXPECT_EQ(server("SELECT t.true, true(x) FROM t"), "SELECT t.true, true(x) FROM t");
}

TEST(PostgresqlDialect, ClosingSemicolonIsDroppedAndOnlyOneStatementRuns)
{
    EXPECT_EQ(server("SELECT Fatture.ResiduoASaldo From Fatture WHERE (((Fatture.ID_Fattura)=3));"),
              "SELECT Fatture.ResiduoASaldo From Fatture WHERE (((Fatture.ID_Fattura)=3))");
    EXPECT_THROW((void)server("SELECT 1; DELETE FROM Azioni"), DataError);
    EXPECT_THROW((void)server("Select LivelloRiservatezza FROM Utenti WHERE Id_Utente = 1; DROP TABLE Utenti"),
                 DataError);
}

TEST(PostgresqlDialect, BareTableName)
{
    EXPECT_EQ(server("Versioni"), "SELECT * FROM Versioni");
    EXPECT_EQ(server(" Azioni "), "SELECT * FROM Azioni");
}

} // namespace
} // namespace avlor
