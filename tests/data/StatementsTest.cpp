// Every statement text the application runs, exactly as its routines build
// it, on a small practice: each one runs on SQLite unchanged and selects the
// rows it is meant to select.
#include <algorithm>

#include <gtest/gtest.h>

#include "PracticeFixture.h"
#include "avlor/core/Locale.h"
#include "avlor/data/DataError.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/data/clsUtilitaDati.h"
#include "avlor/data/clsValoreSql.h"

namespace avlor {
namespace {

using test::PracticeTest;
using Texts = std::vector<std::string>;

// One field of every row of a read-only opening, read as text.
Texts column(const std::string& statement, const std::string& field)
{
    clsAccessoDati data;
    data.Apri(statement, 0, 1, -1);
    Texts values;
    while (!data.Recordset().Eof()) {
        values.push_back(data.Campo(field, TipoTesto).toText(Locale::neutral()));
        data.Recordset().MoveNext();
    }
    return values;
}

Texts sorted(Texts values)
{
    std::sort(values.begin(), values.end());
    return values;
}

Value first(const std::string& statement, const std::string& field, std::int32_t kind)
{
    clsAccessoDati data;
    data.Apri(statement, 0, 1, -1);
    return data.Campo(field, kind);
}

std::string text(const Value& value) { return value.toText(Locale::neutral()); }

// Tariff engine: one row of a fee table by its Id.
TEST_F(PracticeTest, FeeTableRowById)
{
    EXPECT_EQ(text(first("SELECT * FROM Diritti2004Euro WHERE Id = 14", "CodiceTariffa", TipoTesto)), "14");
    const Value bracket = first("SELECT * FROM Diritti2004Euro WHERE Id = 14", "VALORESCA2", TipoNumero);
    ASSERT_EQ(bracket.kind(), ValueKind::Currency);
    EXPECT_EQ(bracket.asCurrency(), Currency::fromWhole(10));
    EXPECT_EQ(first("SELECT * FROM Diritti2004Euro WHERE Id = 14", "VALORESCA13", TipoNumero).asCurrency(), Currency());
    EXPECT_EQ(first("SELECT * FROM Onorari2004Euro WHERE Id = 3", "SCA01MAX", TipoNumero).asCurrency(),
              Currency::fromWhole(145));
    EXPECT_EQ(first("SELECT * FROM OnorariPenali2004Euro WHERE Id = 1", "TribunaleMIN", TipoNumero).asCurrency(),
              Currency::fromWhole(8));
    EXPECT_EQ(text(first("SELECT * FROM " + std::string("Diritti2004Euro") + " WHERE Id = " + "14", "VALORESCA1",
                         TipoNumero)),
              "5");
}

TEST_F(PracticeTest, EveryFeeTableStatementRuns)
{
    for (const char* table : {"Diritti94", "Diritti94Euro", "Diritti2004Euro", "Onorari94", "Onorari94Euro",
                              "Onorari2004Euro", "OnorariPenali94", "OnorariPenali94Euro", "OnorariPenali2004Euro"}) {
        clsAccessoDati data;
        EXPECT_NO_THROW(data.Apri("SELECT * FROM " + std::string(table) + " WHERE Id = 999", 0, 1, -1)) << table;
        // No such row: reading a field fails, which the engine's callers trap.
        EXPECT_TRUE(data.Recordset().Eof());
        EXPECT_THROW((void)data.Campo("CodiceTariffa", TipoTesto), DataError) << table;
    }
}

// Dialog start-up: the case file (two blanks before WHERE), the configuration
// and the users.
TEST_F(PracticeTest, CaseFileAndConfiguration)
{
    const std::string statement =
        std::string("SELECT Valuta,Valore,Cambio,Rilevanza,Autorita FROM Pratica ") + " WHERE ID_Pra = " + "5";
    clsAccessoDati data;
    data.Apri(statement, 1, 3, -1);
    EXPECT_EQ(data.Campo("Valuta", TipoTesto).asText(), " EURO ");
    EXPECT_EQ(data.Campo("Valore", TipoNumero).asCurrency(), Currency::fromText("25823"));
    EXPECT_EQ(data.Campo("Valore", TipoTesto).asText(), "25823");
    EXPECT_EQ(data.Campo("Rilevanza", TipoNumero).toLong(), 50);
    EXPECT_EQ(data.Campo("Autorita", TipoTesto).asText(), "Tribunale");
    EXPECT_EQ(data.Campo("Cambio", TipoNumero).asCurrency(), Currency::fromWhole(1));

    data.Apri("SELECT * FROM ConfigGenerale", 1, 3, -1);
    EXPECT_EQ(data.Campo("ValutaDefault", TipoTesto).asText(), "EURO");
    EXPECT_EQ(data.Campo("CambioLiraEuro", TipoNumero).asCurrency(), Currency::fromText("1936.27"));

    EXPECT_EQ(column("SELECT * FROM Utenti ORDER BY ID_Utente", "ID_Utente"), (Texts{"1", "2", "5", "9", "11"}));
    EXPECT_EQ(column("SELECT * FROM Utenti ORDER BY ID_Utente", "TariffaEuro"), (Texts{"100", "0", "150", "0", ""}));
    EXPECT_EQ(column("SELECT * FROM Utenti ORDER BY ID_Utente", "TariffaLira"),
              (Texts{"0", "0", "50000", "40000", ""}));
}

// Item lists: templates and fee-table rows in the two orders.
TEST_F(PracticeTest, TemplateAndItemLists)
{
    EXPECT_EQ(column(std::string("SELECT * FROM ParcellaBase") + " ORDER BY CodiceParcella", "CodiceParcella"),
              (Texts{"A", "B", "C"}));
    EXPECT_EQ(column(std::string("SELECT * FROM ParcellaBase") + " WHERE IsPenale= 'true' ORDER BY CodiceParcella",
                     "IdParcella"),
              (Texts{"1", "3"}));
    EXPECT_EQ(column(std::string("SELECT * FROM ParcellaBase") + " WHERE IsPenale= true ORDER BY CodiceParcella",
                     "IdParcella"),
              (Texts{"1", "3"}));
    EXPECT_EQ(column(std::string("SELECT * FROM ParcellaBase ") + " ORDER BY NomeParcella ", "NomeParcella"),
              (Texts{"Appello penale", "Civile base", "Penale base"}));
    EXPECT_EQ(column("SELECT * FROM Diritti2004Euro ORDER BY CodiceTariffa", "Id"), (Texts{"14", "3", "391"}));
    EXPECT_EQ(column("SELECT * FROM Diritti2004Euro ORDER BY Azione", "Azione"), (Texts{"Atto", "Fissa", "Udienza"}));
    EXPECT_EQ(column("SELECT * FROM OnorariStrag2004Euro ORDER BY CodiceTariffa", "Autorita"), (Texts{""}));
}

// The actions grid: the join with the performers, tariff and hourly.
TEST_F(PracticeTest, ActionsGrid)
{
    const std::string head = std::string("SELECT Azioni.*, Utenti.NomeUtente ") +
        "FROM Utenti INNER JOIN Azioni ON Utenti.ID_Utente = Azioni.IdEseguitoDa" + " WHERE IdPra = " + "5";
    const std::string tariff = head + " AND IsTariffa = 'TRUE' " + " ORDER BY NOrdine ";
    const std::string hourly = head + " AND IsTariffa = 'FALSE' " + " ORDER BY NOrdine ";
    // Action 4's performer (99) is not a user: the inner join leaves it out.
    EXPECT_EQ(column(tariff, "IdAzione"), (Texts{"1", "2", "3"}));
    EXPECT_EQ(column(tariff, "NomeUtente"), (Texts{"Rossi", "Rossi", "Bianchi"}));
    EXPECT_EQ(column(tariff, "Data"), (Texts{"01/06/2004", "02/06/2004", "02/06/2004"}));
    EXPECT_EQ(column(tariff, "Diritti"), (Texts{"12345", "0", "5"}));
    EXPECT_EQ(column(hourly, "IdAzione"), (Texts{"5", "6"}));
    EXPECT_EQ(column(hourly, "Ore"), (Texts{"2", "0"}));
    EXPECT_EQ(column(hourly, "Minuti"), (Texts{"30", "45"}));
    clsAccessoDati data;
    data.Apri(tariff, 0, 1, -1);
    EXPECT_EQ(data.Recordset().RecordCount(), 3);
    EXPECT_EQ(data.Recordset().FieldNames().size(), 24U);
}

TEST_F(PracticeTest, OneActionById)
{
    clsAccessoDati data;
    data.Apri("SELECT * FROM Azioni WHERE IdAzione = " + std::to_string(3), 1, 3, -1);
    EXPECT_EQ(data.Campo("Descr", TipoTesto).asText(), "Udienza");
    EXPECT_EQ(data.Campo("Data", TipoData).asDate(), Date::fromYmd(2004, 6, 2));
    EXPECT_EQ(data.Campo("IsTariffa", TipoNumero).toLong(), -1);
    EXPECT_EQ(data.Campo("TipoAzione", TipoNumero).toLong(), 0);
    EXPECT_EQ(data.Campo("TabellaTariffa", TipoTesto).asText(), "Diritti2004Euro");
    EXPECT_EQ(data.Campo("IdVoceParcella", TipoNumero).toLong(), 14);
}

// Order-number proposal: the last action of the same kind dated on or before
// the date, through the date form the application's statements use.
std::string proposal(bool tariff, bool isNew, int action, const std::string& date)
{
    std::string statement = std::string("SELECT NOrdine,Data FROM Azioni WHERE IdPra = ") + "5";
    statement += tariff ? " AND IsTariffa = 'TRUE' " : " AND IsTariffa = 'FALSE' ";
    if (!isNew) {
        statement += " AND IdAzione <> " + std::to_string(action);
    }
    statement += std::string(" AND Data <= ") + "CONVERT (SMALLDATETIME,'" + date + "', 105) ";
    statement += " ORDER BY Data DESC,NOrdine DESC";
    const Texts numbers = column(statement, "NOrdine");
    return numbers.empty() ? "none" : numbers.front();
}

TEST_F(PracticeTest, OrderNumberProposal)
{
    EXPECT_EQ(proposal(true, true, 0, "31/05/2004"), "none");
    EXPECT_EQ(proposal(true, true, 0, "01/06/2004"), "1");
    EXPECT_EQ(proposal(true, true, 0, "02/06/2004"), "3");
    EXPECT_EQ(proposal(true, true, 0, "03/06/2004"), "5");
    EXPECT_EQ(proposal(true, false, 3, "02/06/2004"), "2");
    EXPECT_EQ(proposal(false, true, 0, "04/06/2004"), "1");
    EXPECT_EQ(proposal(false, true, 0, "05/06/2004"), "2");
    EXPECT_EQ(proposal(false, false, 6, "05/06/2004"), "1");
}

// Renumbering queries: insert, change, leading gap, delete, template.
TEST_F(PracticeTest, RenumberingQueries)
{
    const std::string id = "5";
    EXPECT_EQ(column("SELECT NOrdine From Azioni WHERE IdPra = " + id + " AND NOrdine >= " + "2" +
                         " AND IsTariffa = 'TRUE' " + " ORDER BY NOrdine ",
                     "NOrdine"),
              (Texts{"2", "3", "5"}));
    EXPECT_EQ(column("SELECT NOrdine From Azioni WHERE IdPra = " + id + " AND NOrdine >= " + "2" +
                         " AND IsTariffa = 'TRUE' AND IdAzione <> " + "3" + " ORDER BY NOrdine ",
                     "NOrdine"),
              (Texts{"2", "5"}));
    EXPECT_EQ(column("SELECT NOrdine From Azioni WHERE IdPra = " + id + " AND NOrdine >= " + "1" +
                         " AND IsTariffa = 'FALSE' AND IdAzione <> " + "5" + " ORDER BY NOrdine ",
                     "NOrdine"),
              (Texts{"2"}));
    EXPECT_EQ(
        column("SELECT NOrdine FROM Azioni WHERE IdPra = " + id + " AND IsTariffa = 'TRUE' " + " ORDER BY NOrdine ",
               "NOrdine"),
        (Texts{"1", "2", "3", "5"}));
    EXPECT_EQ(
        column("SELECT NOrdine FROM Azioni WHERE IdPra = " + id + " AND IsTariffa = 'FALSE' " + " ORDER BY NOrdine ",
               "NOrdine"),
        (Texts{"1", "2"}));
    EXPECT_EQ(column("SELECT NOrdine FROM Azioni WHERE IdPra = " + id + " AND IsTariffa = 'TRUE' " +
                         " AND NOrdine >= " + "2" + " ORDER BY NOrdine ",
                     "NOrdine"),
              (Texts{"2", "3", "5"}));
}

TEST_F(PracticeTest, TemplateItems)
{
    clsAccessoDati data;
    data.Apri("SELECT * FROM VociParcellaBase WHERE IdParcellaBase = " + std::to_string(2) + " ORDER BY NOrdine", 1, 3,
              -1);
    EXPECT_EQ(data.Recordset().RecordCount(), 2);
    EXPECT_EQ(data.Campo("Nome", TipoTesto).asText(), "Accesso");
    EXPECT_EQ(data.Campo("Competenze", TipoNumero).asCurrency(), Currency::fromText("15.5"));
    EXPECT_EQ(data.Campo("Qta", TipoNumero).toLong(), 3);
    EXPECT_EQ(data.Campo("IdTariffa", TipoNumero).toLong(), 0);
    data.Recordset().MoveNext();
    EXPECT_EQ(data.Campo("Nome", TipoTesto).asText(), "Studio");
    EXPECT_EQ(data.Campo("TabellaTariffa", TipoTesto).asText(), "Onorari2004Euro");
    EXPECT_EQ(data.Campo("Tipo", TipoNumero).toLong(), 1);
}

// Users and groups.
TEST_F(PracticeTest, UserStatements)
{
    const clsUtilitaDati& util = clsUtilitaDati::instance();
    EXPECT_EQ(first("Select LivelloRiservatezza FROM Utenti WHERE Id_Utente = " + std::to_string(5),
                    "LivelloRiservatezza", TipoNumero)
                  .toLong(),
              2);
    EXPECT_EQ(column("SELECT DISTINCT Fk_Gruppo FROM RelGruppiUtenti WHERE Fk_Id_Utente = 5", "Fk_Gruppo"),
              (Texts{"Civile", "Tutti"}));
    EXPECT_EQ(column("SELECT DISTINCT Fk_Gruppo FROM RelGruppiUtenti WHERE Fk_Id_Utente = 7", "Fk_Gruppo"), Texts{});
    EXPECT_EQ(
        sorted(column("Select fk_id_Utente FROM RelGruppiUtenti WHERE Fk_Gruppo = " + util.FormattaTestoSql("Civile"),
                      "fk_id_Utente")),
        (Texts{"5", "5", "9"}));
    EXPECT_EQ(column("Select fk_id_Utente FROM RelGruppiUtenti WHERE Fk_Gruppo = " + util.FormattaTestoSql("D'Amico"),
                     "fk_id_Utente"),
              (Texts{"9"}));
    const auto accounting = [](int id) {
        return column(std::string("SELECT Utenti.ID_Utente From Utenti ") + "WHERE (((Utenti.ID_Utente) = " +
                          std::to_string(id) + ") AND ((Utenti.TitContabilita) = 'True'))",
                      "ID_Utente");
    };
    EXPECT_EQ(accounting(5), (Texts{"5"})); // stored 'true'
    EXPECT_EQ(accounting(1), (Texts{"1"}));
    EXPECT_EQ(accounting(9), Texts{});
    EXPECT_EQ(accounting(11), Texts{}); // null
    EXPECT_EQ(accounting(77), Texts{});
    const auto inGroup = [&](int id, const std::string& group) {
        return column("Select fk_id_Utente FROM RelGruppiUtenti WHERE Fk_Gruppo = " + util.FormattaTestoSql(group) +
                          " AND fk_Id_Utente = " + std::to_string(id),
                      "fk_id_Utente");
    };
    EXPECT_EQ(inGroup(9, "Civile"), (Texts{"9"}));
    EXPECT_EQ(inGroup(9, "D'Amico"), (Texts{"9"}));
    EXPECT_EQ(inGroup(1, "Civile"), Texts{});
    EXPECT_EQ(column("Utenti", "Id_Utente"), (Texts{"1", "2", "5", "9", "11"}));
}

// The small queries.
TEST_F(PracticeTest, CountsPersonsInvoicesAndVersion)
{
    const clsValoreSql& values = clsValoreSql::instance();
    const auto clients = [&](const std::string& id) {
        return values.ValoreSql(std::string("SELECT Count(MultiIntesta.ID_Multi) AS ConteggioDiID_Multi ") +
                                "FROM MultiIntesta " + "WHERE (MultiIntesta.ID_Pra = " + id +
                                ") AND (MultiIntesta.IsCliente='True')");
    };
    const auto opponents = [&](const std::string& id) {
        return values.ValoreSql(std::string("SELECT Count(MultiIntesta.ID_Multi) AS ConteggioDiID_Multi ") +
                                "FROM MultiIntesta " +
                                "WHERE (MultiIntesta.IsCliente='False') And (MultiIntesta.ID_Pra = " + id + ")");
    };
    ASSERT_EQ(clients("5").kind(), ValueKind::Long);
    EXPECT_EQ(clients("5").asLong(), 2);
    EXPECT_EQ(opponents("5").asLong(), 1);
    EXPECT_EQ(clients("6").asLong(), 0);
    EXPECT_EQ(opponents("6").asLong(), 1);

    clsAccessoDati data;
    data.Apri("Versioni", 0, 1, -1);
    EXPECT_EQ(data.Campo("Versione", TipoNumero).asLong(), 1);

    const auto person = [&](const std::string& id) {
        return values.ValoreSql(
            "SELECT Anagrafica.IsFisicaGiuridica From Anagrafica WHERE (((Anagrafica.ID_Ana)=" + id + "))");
    };
    ASSERT_EQ(person("3").kind(), ValueKind::Boolean);
    EXPECT_TRUE(person("3").asBoolean());
    EXPECT_FALSE(person("4").asBoolean());
    EXPECT_TRUE(person("8").isNull());
    EXPECT_TRUE(person("99").isEmpty());

    const auto residue = [&](const std::string& id) {
        return values.ValoreSql("SELECT Fatture.ResiduoASaldo From Fatture WHERE (((Fatture.ID_Fattura)=" + id + "));");
    };
    ASSERT_EQ(residue("3").kind(), ValueKind::Currency);
    EXPECT_EQ(residue("3").asCurrency(), Currency::fromText("123.4567"));
    EXPECT_TRUE(residue("4").isNull());
    EXPECT_TRUE(residue("99").isEmpty());
}

// The confidentiality filters the host appends to its own queries run on
// the columns the schema gives case files and persons.
TEST_F(PracticeTest, ConfidentialityFiltersRun)
{
    db.exec("UPDATE Pratica SET Id_Riservata = 7 WHERE ID_Pra = 6");
    EXPECT_EQ(column("SELECT ID_Pra FROM Pratica WHERE ((Id_Riservata IN (0,5))  AND (fk_Gruppo IS NULL))  OR "
                     "((Id_Riservata=0) AND (fk_Gruppo IN ('Civile')))",
                     "ID_Pra"),
              (Texts{"5"}));
    EXPECT_EQ(column("SELECT ID_Pra FROM Pratica WHERE ((Id_Riservata IN (0,7))  AND (fk_Gruppo IS NULL)) ", "ID_Pra"),
              (Texts{"5", "6"}));
    EXPECT_EQ(
        column("SELECT ID_Ana FROM Anagrafica WHERE (IdRiservata IN (0,5) OR (fkGruppo  IN ('Civile')))", "ID_Ana"),
        (Texts{"3", "4"}));
    EXPECT_EQ(column("SELECT ID_Ana FROM Anagrafica WHERE (IdRiservata IN (0,7) AND (fkGruppo IS NULL)) ", "ID_Ana"),
              (Texts{"3", "8"}));
    EXPECT_EQ(column("SELECT ID_Ana FROM Anagrafica WHERE 1=1", "ID_Ana"), (Texts{"3", "4", "8"}));
}

// Yes/no columns: every spelling the statements use selects the same rows.
class FlagSpelling : public PracticeTest, public testing::WithParamInterface<std::pair<std::string, bool>> { };

TEST_P(FlagSpelling, SelectsTheSameRows)
{
    const auto& [literal, flag] = GetParam();
    const Texts expected = flag ? Texts{"1", "2", "3", "4", "7"} : Texts{"5", "6"};
    EXPECT_EQ(column("SELECT IdAzione FROM Azioni WHERE IsTariffa = " + literal + " ORDER BY IdAzione", "IdAzione"),
              expected);
    EXPECT_EQ(column("SELECT IdAzione FROM Azioni WHERE IsTariffa= " + literal + " ORDER BY IdAzione", "IdAzione"),
              expected);
    const Texts clients = flag ? Texts{"1", "2"} : Texts{"3", "4"};
    EXPECT_EQ(column("SELECT ID_Multi FROM MultiIntesta WHERE (MultiIntesta.IsCliente=" + literal + ")", "ID_Multi"),
              clients);
}

INSTANTIATE_TEST_SUITE_P(Spellings, FlagSpelling,
                         testing::Values(std::pair<std::string, bool>{"'TRUE'", true}, std::pair{"'True'", true},
                                         std::pair{"'true'", true}, std::pair{"true", true}, std::pair{"TRUE", true},
                                         std::pair{"'FALSE'", false}, std::pair{"'False'", false},
                                         std::pair{"'false'", false}, std::pair{"false", false},
                                         std::pair{"False", false}));

// Text columns keep their exact comparison: a group or a user named True is
// only that text.
TEST_F(PracticeTest, TextNamedTrueIsPlainText)
{
    EXPECT_EQ(column("SELECT ID_Utente FROM Utenti WHERE NomeUtente = 'True'", "ID_Utente"), (Texts{"11"}));
    EXPECT_EQ(column("SELECT ID_Utente FROM Utenti WHERE NomeUtente = 'TRUE'", "ID_Utente"), Texts{});
    EXPECT_EQ(column("Select fk_id_Utente FROM RelGruppiUtenti WHERE Fk_Gruppo = 'True'", "fk_id_Utente"),
              (Texts{"11"}));
    EXPECT_EQ(column("Select fk_id_Utente FROM RelGruppiUtenti WHERE Fk_Gruppo = 'TRUE'", "fk_id_Utente"),
              (Texts{"1"}));
}

// Dates against the date form: before, on and after the boundary.
TEST_F(PracticeTest, DatesAroundABoundary)
{
    const std::string form = "CONVERT (SMALLDATETIME,'02/06/2004', 105) ";
    const auto ids = [](const std::string& condition) {
        return column("SELECT IdAzione FROM Azioni WHERE Data " + condition + " ORDER BY IdAzione", "IdAzione");
    };
    EXPECT_EQ(ids("< " + form), (Texts{"1", "5", "7"}));
    EXPECT_EQ(ids("= " + form), (Texts{"2", "3"}));
    EXPECT_EQ(ids("> " + form), (Texts{"4", "6"}));
    EXPECT_EQ(ids("<= " + form), (Texts{"1", "2", "3", "5", "7"}));
    EXPECT_EQ(ids(">= CONVERT (SMALLDATETIME,'3/6/2004', 105) "), (Texts{"4", "6"}));
    EXPECT_EQ(ids("<= CONVERT (SMALLDATETIME,'31/12/1993', 105) "), Texts{});
}

} // namespace
} // namespace avlor
