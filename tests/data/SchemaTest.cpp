// The practice database made by createPracticeDatabase: its tables, its
// version row and its refusal to touch an existing database.
#include <filesystem>
#include <fstream>
#include <tuple>
#include <utility>

#include <gtest/gtest.h>

#include "TestDatabase.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"
#include "avlor/data/clsAccessoDati.h"

namespace avlor {
namespace {

TEST(Schema, NewDatabaseHoldsEveryTable)
{
    test::TestDatabase db;
    const std::vector<std::string> expected = {"Anagrafica",
                                               "Azioni",
                                               "ConfigGenerale",
                                               "Diritti2004Euro",
                                               "Diritti94",
                                               "Diritti94Euro",
                                               "Fatture",
                                               "FonteTariffe",
                                               "MultiIntesta",
                                               "Onorari2004Euro",
                                               "Onorari94",
                                               "Onorari94Euro",
                                               "OnorariPenali2004Euro",
                                               "OnorariPenali94",
                                               "OnorariPenali94Euro",
                                               "OnorariStrag2004Euro",
                                               "OnorariStrag94",
                                               "OnorariStrag94Euro",
                                               "ParametriCifre",
                                               "ParametriTabelle",
                                               "ParcellaBase",
                                               "Pratica",
                                               "RelGruppiUtenti",
                                               "Utenti",
                                               "Versioni",
                                               "VociParcellaBase"};
    EXPECT_EQ(db.connection()->tableNames(), expected);
}

TEST(Schema, VersionIsOne)
{
    test::TestDatabase db;
    const Value version = db.value("SELECT Versione FROM Versioni");
    ASSERT_EQ(version.kind(), ValueKind::Long);
    EXPECT_EQ(version.asLong(), 1);
    EXPECT_EQ(db.rows("Versioni").size(), 1U);
}

TEST(Schema, RefusesAnExistingEmptyFile)
{
    test::TestDatabase db;
    const auto file = db.folder() / "empty.db";
    std::ofstream(file).close();
    EXPECT_THROW(createPracticeDatabase(file.string()), DataError);
    EXPECT_EQ(std::filesystem::file_size(file), 0U);
}

// The type the database declares for a column: SQLite's declared type, or
// PostgreSQL's type of the same meaning written as SQLite's would be (so one
// list of expectations serves both).
std::string declaredType(const test::TestDatabase& db, const std::string& table, const std::string& column)
{
    if (!test::TestDatabase::onPostgresql()) {
        const Value declared =
            db.value("SELECT type FROM pragma_table_info('" + table + "') WHERE name = '" + column + "'");
        return declared.kind() == ValueKind::Text ? declared.asText() : "(none)";
    }
    const Value declared = db.value("SELECT format_type(atttypid, atttypmod) FROM pg_attribute WHERE attrelid = "
                                    "to_regclass('" +
                                    table + "') AND attname = lower('" + column + "')");
    if (declared.kind() != ValueKind::Text) {
        return "(none)";
    }
    const std::string type = declared.asText();
    for (const auto& [server, sqlite] : {std::pair<std::string, std::string>{"integer", "INTEGER"},
                                         {"numeric(19,4)", "CURRENCY"},
                                         {"text", "TEXT"},
                                         {"date", "DATE"},
                                         {"boolean", "BOOLEAN"},
                                         {"double precision", "DOUBLE"}}) {
        if (type == server) {
            return sqlite;
        }
    }
    return type;
}

// Every column the application reads or writes, with the type that decides
// how its values are stored.
TEST(Schema, ColumnsAndTheirTypes)
{
    test::TestDatabase db;
    const std::vector<std::tuple<std::string, std::string, std::string>> columns = {
        {"Pratica", "ID_Pra", "INTEGER"},
        {"Pratica", "Valore", "CURRENCY"},
        {"Pratica", "Valuta", "TEXT"},
        {"Pratica", "Cambio", "CURRENCY"},
        {"Pratica", "Rilevanza", "INTEGER"},
        {"Pratica", "Autorita", "TEXT"},
        {"Pratica", "Id_Riservata", "INTEGER"},
        {"Pratica", "fk_Gruppo", "TEXT"},
        {"Azioni", "IdAzione", "INTEGER"},
        {"Azioni", "IdPra", "INTEGER"},
        {"Azioni", "NOrdine", "INTEGER"},
        {"Azioni", "Data", "DATE"},
        {"Azioni", "TipoAzione", "INTEGER"},
        {"Azioni", "IsTariffa", "BOOLEAN"},
        {"Azioni", "Codice", "TEXT"},
        {"Azioni", "Descr", "TEXT"},
        {"Azioni", "Quantita", "TEXT"},
        {"Azioni", "Valuta", "TEXT"},
        {"Azioni", "Cambio", "CURRENCY"},
        {"Azioni", "Onorari", "CURRENCY"},
        {"Azioni", "Diritti", "CURRENCY"},
        {"Azioni", "Esenti", "CURRENCY"},
        {"Azioni", "Imponibili", "CURRENCY"},
        {"Azioni", "Ore", "DOUBLE"},
        {"Azioni", "Minuti", "INTEGER"},
        {"Azioni", "InNotaSpese", "INTEGER"},
        {"Azioni", "TabellaTariffa", "TEXT"},
        {"Azioni", "IdVoceParcella", "INTEGER"},
        {"Azioni", "IdEseguitoDa", "INTEGER"},
        {"Azioni", "bFattura", "BOOLEAN"},
        {"Azioni", "IdFattura", "INTEGER"},
        {"MultiIntesta", "ID_Multi", "INTEGER"},
        {"MultiIntesta", "ID_Pra", "INTEGER"},
        {"MultiIntesta", "IsCliente", "BOOLEAN"},
        {"Utenti", "ID_Utente", "INTEGER"},
        {"Utenti", "NomeUtente", "TEXT"},
        {"Utenti", "LivelloRiservatezza", "INTEGER"},
        {"Utenti", "TitContabilita", "BOOLEAN"},
        {"Utenti", "TariffaEuro", "CURRENCY"},
        {"Utenti", "TariffaLira", "CURRENCY"},
        {"RelGruppiUtenti", "Fk_Id_Utente", "INTEGER"},
        {"RelGruppiUtenti", "Fk_Gruppo", "TEXT"},
        {"ParcellaBase", "IdParcella", "INTEGER"},
        {"ParcellaBase", "CodiceParcella", "TEXT"},
        {"ParcellaBase", "NomeParcella", "TEXT"},
        {"ParcellaBase", "IsPenale", "BOOLEAN"},
        {"VociParcellaBase", "IdParcellaBase", "INTEGER"},
        {"VociParcellaBase", "NOrdine", "INTEGER"},
        {"VociParcellaBase", "IdTariffa", "INTEGER"},
        {"VociParcellaBase", "TabellaTariffa", "TEXT"},
        {"VociParcellaBase", "Tipo", "INTEGER"},
        {"VociParcellaBase", "Codice", "TEXT"},
        {"VociParcellaBase", "Nome", "TEXT"},
        {"VociParcellaBase", "Competenze", "CURRENCY"},
        {"VociParcellaBase", "Esenti", "CURRENCY"},
        {"VociParcellaBase", "Imponibili", "CURRENCY"},
        {"VociParcellaBase", "Qta", "INTEGER"},
        {"VociParcellaBase", "Valuta", "TEXT"},
        {"VociParcellaBase", "Cambio", "CURRENCY"},
        {"ConfigGenerale", "ValutaDefault", "TEXT"},
        {"ConfigGenerale", "CambioLiraEuro", "CURRENCY"},
        {"Anagrafica", "ID_Ana", "INTEGER"},
        {"Anagrafica", "IsFisicaGiuridica", "BOOLEAN"},
        {"Anagrafica", "IdRiservata", "INTEGER"},
        {"Anagrafica", "fkGruppo", "TEXT"},
        {"Fatture", "ID_Fattura", "INTEGER"},
        {"Fatture", "ResiduoASaldo", "CURRENCY"},
        {"Versioni", "Versione", "INTEGER"},
        {"FonteTariffe", "Tabella", "TEXT"},
        {"FonteTariffe", "Id", "INTEGER"},
        {"FonteTariffe", "Fonte", "TEXT"},
        {"FonteTariffe", "Note", "TEXT"}};
    for (const auto& [table, column, type] : columns) {
        EXPECT_EQ(declaredType(db, table, column), type) << table << "." << column;
    }
}

// The fee tables have exactly the agreed columns, in the agreed order.
std::vector<std::string> feeColumns(const std::vector<std::string>& amounts)
{
    std::vector<std::string> names = {"Id", "CodiceTariffa", "Azione", "Autorita"};
    names.insert(names.end(), amounts.begin(), amounts.end());
    return names;
}

// The columns of a table, in their order and spelling, as the record sets
// present them.
std::vector<std::string> tableColumns(const test::TestDatabase& db, const std::string& table)
{
    clsAccessoDati data(db.connection());
    return data.Apri("SELECT * FROM " + table + " WHERE 1 = 0", 0, 1, -1)->FieldNames();
}

TEST(Schema, FeeTablesHaveTheAgreedColumns)
{
    test::TestDatabase db;
    std::vector<std::string> rights;
    for (int i = 1; i <= 13; ++i) {
        rights.push_back("VALORESCA" + std::to_string(i));
    }
    rights.insert(rights.end(), {"VALOREINDETMIN", "VALOREINDETMAX"});
    std::vector<std::string> civil;
    std::vector<std::string> words = {"SCA01", "SCA02", "SCA03"};
    for (int i = 1; i <= 11; ++i) {
        words.push_back("SCA" + std::to_string(i));
    }
    for (const std::string& word : words) {
        civil.insert(civil.end(), {word + "MIN", word + "MAX"});
    }
    civil.insert(civil.end(), {"MINSTRAORDIMP", "MAXSTRAORDIMP", "MININDET", "MAXINDET"});
    std::vector<std::string> criminal;
    for (const char* prefix : {"Pretura", "Tribunale", "GiuPace", "Gip", "AssiseApp", "Appello", "CostCass"}) {
        criminal.insert(criminal.end(), {std::string(prefix) + "MIN", std::string(prefix) + "MAX"});
    }
    for (const char* edition : {"94", "94Euro", "2004Euro"}) {
        const std::string suffix = edition;
        EXPECT_EQ(tableColumns(db, "Diritti" + suffix), feeColumns(rights)) << suffix;
        EXPECT_EQ(tableColumns(db, "Onorari" + suffix), feeColumns(civil)) << suffix;
        EXPECT_EQ(tableColumns(db, "OnorariPenali" + suffix), feeColumns(criminal)) << suffix;
        EXPECT_EQ(tableColumns(db, "OnorariStrag" + suffix), feeColumns({})) << suffix;
    }
    EXPECT_EQ(tableColumns(db, "FonteTariffe"), (std::vector<std::string>{"Tabella", "Id", "Fonte", "Note"}));
    // Amounts default to 0; a missing figure may be left NULL; ids are given.
    db.exec("INSERT INTO Onorari2004Euro (Id, CodiceTariffa, SCA1MIN) VALUES (62, '62', NULL)");
    const auto row = db.rows("SELECT SCA1MIN, SCA1MAX, Autorita FROM Onorari2004Euro WHERE Id = 62").front();
    EXPECT_TRUE(row[0].isNull());
    EXPECT_EQ(row[1].asCurrency(), Currency());
    EXPECT_TRUE(row[2].isNull());
    EXPECT_THROW(db.exec("INSERT INTO Diritti94 (Id, CodiceTariffa) VALUES (1, NULL)"), DataError);
}

// The queries that run on every change of an action find their index.
TEST(Schema, ActionQueriesUseAnIndex)
{
    AVLOR_SQLITE_ONLY("the plans are SQLite's; the server's indexes are checked in tests/postgresql");
    test::TestDatabase db;
    const auto plan = [&](const std::string& statement) {
        std::string details;
        for (const auto& row : db.rows("EXPLAIN QUERY PLAN " + statement)) {
            details += row.back().asText() + "\n";
        }
        return details;
    };
    EXPECT_NE(plan("SELECT NOrdine FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'TRUE'  ORDER BY NOrdine ")
                  .find("INDEX Azioni_Ordine (IdPra=? AND IsTariffa=?)"),
              std::string::npos);
    EXPECT_NE(plan("SELECT NOrdine,Data FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'FALSE'  AND Data <= "
                   "CONVERT (SMALLDATETIME,'02/06/2004', 105)  ORDER BY Data DESC,NOrdine DESC")
                  .find("INDEX Azioni_Data (IdPra=? AND IsTariffa=? AND Data<?)"),
              std::string::npos);
    EXPECT_NE(plan("SELECT Count(MultiIntesta.ID_Multi) AS ConteggioDiID_Multi FROM MultiIntesta WHERE "
                   "(MultiIntesta.ID_Pra = 5) AND (MultiIntesta.IsCliente='True')")
                  .find("MultiIntesta_Pratica"),
              std::string::npos);
    EXPECT_NE(
        plan("Select fk_id_Utente FROM RelGruppiUtenti WHERE Fk_Gruppo = 'Civile'").find("RelGruppiUtenti_Gruppo"),
        std::string::npos);
}

} // namespace
} // namespace avlor
