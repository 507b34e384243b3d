// Reading through the record-access classes: opening modes, field kinds,
// nulls and empty texts, navigation, single values, the SQL helpers, and
// the errors each failure raises.
#include <gtest/gtest.h>

#include "PracticeFixture.h"
#include "avlor/core/Collection.h"
#include "avlor/core/Error.h"
#include "avlor/data/DataError.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/data/clsUtilitaDati.h"
#include "avlor/data/clsValoreSql.h"

namespace avlor {
namespace {

using test::PracticeTest;

class FieldKinds : public PracticeTest {
protected:
    void SetUp() override
    {
        PracticeTest::SetUp();
        db.exec("INSERT INTO Azioni (IdAzione, IdPra, Quantita, Descr, Codice, Data, Onorari, bFattura, Ore) "
                "VALUES (20, 8, '', NULL, ' 12 ', NULL, NULL, NULL, 1.5)");
        data.Apri("SELECT * FROM Azioni WHERE IdAzione = 20", 0, 1, -1);
        one.Apri("SELECT * FROM Azioni WHERE IdAzione = 2", 0, 1, -1);
    }

    clsAccessoDati data; // the row with nulls and empty text
    clsAccessoDati one; // a complete row
};

TEST_F(FieldKinds, NullStaysNullForEveryKind)
{
    for (const char* field : {"Descr", "Data", "Onorari", "bFattura", "TabellaTariffa"}) {
        for (const std::int32_t kind : {TipoTesto, TipoNumero, TipoData}) {
            EXPECT_TRUE(data.Campo(field, kind).isNull()) << field << " kind " << kind;
        }
    }
}

TEST_F(FieldKinds, EmptyText)
{
    const Value asText = data.Campo("Quantita", TipoTesto);
    ASSERT_EQ(asText.kind(), ValueKind::Text);
    EXPECT_EQ(asText.asText(), "");
    EXPECT_THROW((void)data.Campo("Quantita", TipoNumero), ValueError);
    EXPECT_THROW((void)data.Campo("Quantita", TipoData), ValueError);
}

TEST_F(FieldKinds, TextReadAsNumber)
{
    const Value code = data.Campo("Codice", TipoNumero);
    ASSERT_EQ(code.kind(), ValueKind::Long);
    EXPECT_EQ(code.asLong(), 12);
    try {
        (void)one.Campo("Descr", TipoNumero);
        FAIL();
    } catch (const ValueError& error) {
        EXPECT_EQ(error.kind(), ValueError::Kind::TypeMismatch);
    }
}

TEST_F(FieldKinds, Amounts)
{
    const Value fee = one.Campo("Onorari", TipoNumero);
    ASSERT_EQ(fee.kind(), ValueKind::Currency);
    EXPECT_EQ(fee.asCurrency(), Currency::fromWhole(250));
    EXPECT_EQ(one.Campo("Esenti", TipoTesto).asText(), "15");
    EXPECT_EQ(one.Campo("Onorari", TipoTesto).asText(), "250");
}

TEST_F(FieldKinds, Dates)
{
    const Value date = one.Campo("Data", TipoData);
    ASSERT_EQ(date.kind(), ValueKind::Date);
    EXPECT_EQ(date.asDate(), Date::fromYmd(2004, 6, 2));
    EXPECT_EQ(one.Campo("Data", TipoTesto).asText(), "02/06/2004");
    EXPECT_EQ(one.Campo("Data", TipoNumero).asLong(), Date::fromYmd(2004, 6, 2).dayCount());
    EXPECT_EQ(one.Campo("Descr", TipoTesto).asText(), "Studio");
    EXPECT_THROW((void)one.Campo("Descr", TipoData), ValueError);
}

TEST_F(FieldKinds, TextReadAsDate)
{
    db.exec("INSERT INTO Azioni (IdAzione, IdPra, Descr, Codice) VALUES (21, 8, '02/06/2004', '2004-06-03')");
    clsAccessoDati row;
    row.Apri("SELECT * FROM Azioni WHERE IdAzione = 21", 0, 1, -1);
    EXPECT_EQ(row.Campo("Descr", TipoData).asDate(), Date::fromYmd(2004, 6, 2));
    EXPECT_EQ(row.Campo("Codice", TipoData).asDate(), Date::fromYmd(2004, 6, 3));
}

TEST_F(FieldKinds, Flags)
{
    const Value asNumber = one.Campo("IsTariffa", TipoNumero);
    ASSERT_EQ(asNumber.kind(), ValueKind::Integer);
    EXPECT_EQ(asNumber.asInteger(), -1);
    EXPECT_EQ(one.Campo("bFattura", TipoNumero).asInteger(), -1);
    EXPECT_EQ(one.Campo("IsTariffa", TipoTesto).asText(), "True");
    EXPECT_EQ(one.Recordset().Field("IsTariffa").kind(), ValueKind::Boolean);
    clsAccessoDati hourly;
    hourly.Apri("SELECT * FROM Azioni WHERE IdAzione = 5", 0, 1, -1);
    EXPECT_EQ(hourly.Campo("IsTariffa", TipoNumero).asInteger(), 0);
    EXPECT_EQ(hourly.Campo("IsTariffa", TipoTesto).asText(), "False");
}

TEST_F(FieldKinds, WholeNumbersAndFractions)
{
    EXPECT_EQ(one.Campo("NOrdine", TipoNumero).kind(), ValueKind::Long);
    EXPECT_EQ(one.Campo("NOrdine", TipoTesto).asText(), "2");
    const Value hours = data.Campo("Ore", TipoNumero);
    ASSERT_EQ(hours.kind(), ValueKind::Double);
    EXPECT_EQ(hours.asDouble(), 1.5);
    EXPECT_EQ(data.Campo("Ore", TipoTesto).asText(), "1.5");
}

TEST_F(FieldKinds, UnknownKindOrFieldIsAnError)
{
    EXPECT_THROW((void)one.Campo("Descr", 4), DataError);
    EXPECT_THROW((void)one.Campo("Descr", 0), DataError);
    EXPECT_THROW((void)one.Campo("NoSuchField", TipoTesto), DataError);
}

// The record-access errors tell a person what went wrong, in Italian, with
// the statement they concern.
TEST_F(FieldKinds, ErrorsSayWhatWentWrong)
{
    const auto messageOf = [](auto&& operation) -> std::string {
        try {
            operation();
        } catch (const DataError& e) {
            return e.what();
        }
        ADD_FAILURE() << "no error raised";
        return {};
    };
    EXPECT_EQ(messageOf([&] { (void)one.Campo("Descr", 4); }),
              "Tipo di campo sconosciuto 4 (1 testo, 2 numero, 3 data)");
    EXPECT_EQ(messageOf([&] { (void)one.Campo("NoSuchField", TipoTesto); }),
              "Campo sconosciuto 'NoSuchField' [SELECT * FROM Azioni WHERE IdAzione = 2]");
    one.Recordset().MoveNext(); // past the only row
    EXPECT_EQ(messageOf([&] { one.Recordset().MoveNext(); }),
              "Nessuna riga corrente: il recordset è alla fine [SELECT * FROM Azioni WHERE IdAzione = 2]");
    EXPECT_EQ(messageOf([&] { (void)one.Campo("Descr", TipoTesto); }),
              "Nessuna riga corrente [SELECT * FROM Azioni WHERE IdAzione = 2]");
    clsAccessoDati none;
    EXPECT_EQ(messageOf([&] { (void)none.Recordset(); }), "Nessun recordset è aperto");
    EXPECT_EQ(messageOf([&] { none.Apri("Versioni", 0, 3, -1); }),
              "Modo di apertura non previsto 0, 3, -1 (sola lettura 0, 1, -1; modificabile 1, 3, -1) [Versioni]");
}

TEST_F(FieldKinds, FieldNamesIgnoreLetterCase)
{
    EXPECT_EQ(one.Campo("descr", TipoTesto).asText(), "Studio");
    EXPECT_EQ(one.Campo("IDAZIONE", TipoNumero).asLong(), 2);
}

TEST_F(PracticeTest, ExpressionColumnsReadByWhatTheyHold)
{
    clsAccessoDati data;
    data.Apri("SELECT Count(*) AS N, 3000000000 AS Big, 1.5 AS Half, 'x' AS T, NULL AS Nil, "
              "Sum(NOrdine) AS Total FROM Azioni",
              0, 1, -1);
    EXPECT_EQ(data.Campo("N", TipoNumero).kind(), ValueKind::Long);
    EXPECT_EQ(data.Campo("N", TipoNumero).asLong(), 7);
    EXPECT_EQ(data.Campo("Big", TipoNumero).kind(), ValueKind::Double);
    EXPECT_EQ(data.Campo("Big", TipoNumero).asDouble(), 3000000000.0);
    EXPECT_EQ(data.Campo("Half", TipoNumero).asDouble(), 1.5);
    EXPECT_EQ(data.Campo("T", TipoTesto).asText(), "x");
    EXPECT_TRUE(data.Campo("Nil", TipoNumero).isNull());
    EXPECT_EQ(data.Campo("Total", TipoNumero).asLong(), 15);
}

TEST_F(PracticeTest, NoRowMeansFieldReadsFail)
{
    clsAccessoDati data;
    const auto rows = data.Apri("Select LivelloRiservatezza FROM Utenti WHERE Id_Utente = 77", 0, 1, -1);
    EXPECT_TRUE(rows->Eof());
    EXPECT_TRUE(rows->Bof());
    EXPECT_EQ(rows->RecordCount(), 0);
    EXPECT_THROW((void)data.Campo("LivelloRiservatezza", TipoNumero), DataError);
    EXPECT_THROW(rows->MoveNext(), DataError);
}

TEST_F(PracticeTest, Navigation)
{
    clsAccessoDati data;
    const auto rows = data.Apri("SELECT IdAzione FROM Azioni WHERE IdPra = 5 ORDER BY IdAzione", 0, 1, -1);
    EXPECT_EQ(rows.get(), &data.Recordset());
    EXPECT_EQ(rows->RecordCount(), 6);
    EXPECT_FALSE(rows->Bof());
    std::vector<std::int32_t> seen;
    for (; !rows->Eof(); rows->MoveNext()) {
        seen.push_back(data.Campo("IdAzione", TipoNumero).asLong());
    }
    EXPECT_EQ(seen, (std::vector<std::int32_t>{1, 2, 3, 4, 5, 6}));
    EXPECT_THROW(rows->MoveNext(), DataError);
    EXPECT_THROW((void)data.Campo("IdAzione", TipoNumero), DataError);
    rows->MoveFirst();
    EXPECT_EQ(data.Campo("IdAzione", TipoNumero).asLong(), 1);
    EXPECT_EQ(rows->FieldNames(), (std::vector<std::string>{"IdAzione"}));
}

TEST_F(PracticeTest, BareTableNameOpensTheWholeTable)
{
    clsAccessoDati data;
    data.Apri("Versioni", 0, 1, -1);
    EXPECT_EQ(data.Campo("Versione", TipoNumero).asLong(), 1);
    data.Apri("Azioni", 1, 3, -1);
    EXPECT_EQ(data.Recordset().RecordCount(), 7);
    EXPECT_EQ(data.Campo("IdAzione", TipoNumero).asLong(), 1);
    data.Apri("Utenti", 0, 1, -1);
    EXPECT_EQ(data.Recordset().RecordCount(), 5);
}

TEST_F(PracticeTest, OnlyTheTwoOpeningModes)
{
    clsAccessoDati data;
    for (const auto& [cursor, lock, options] : {std::tuple{0, 3, -1}, std::tuple{1, 1, -1}, std::tuple{2, 3, -1},
                                                std::tuple{0, 1, 1}, std::tuple{3, 1, -1}, std::tuple{1, 3, 2}}) {
        EXPECT_THROW(data.Apri("Versioni", cursor, lock, options), DataError) << cursor << lock << options;
    }
    EXPECT_NO_THROW(data.Apri("Versioni", 0, 1, -1));
    EXPECT_NO_THROW(data.Apri("Versioni", 1, 3, -1));
}

TEST_F(PracticeTest, NothingOpenYet)
{
    clsAccessoDati data;
    EXPECT_THROW((void)data.Recordset(), DataError);
    EXPECT_THROW((void)data.Campo("Versione", TipoNumero), DataError);
    EXPECT_THROW(data.ImpostaCampo("Versione", Value(2)), DataError);
}

// The error of a rejected statement carries the database's message and the
// statement, and a failed opening leaves no record set behind.
void expectRejected(const std::string& statement, const std::string& message)
{
    clsAccessoDati data;
    data.Apri("Versioni", 0, 1, -1);
    try {
        data.Apri(statement, 0, 1, -1);
        FAIL() << statement;
    } catch (const DataError& error) {
        EXPECT_EQ(error.statement(), statement);
        EXPECT_NE(std::string(error.what()).find(message), std::string::npos) << error.what();
    }
    EXPECT_THROW((void)data.Recordset(), DataError);
}

TEST_F(PracticeTest, RejectedStatements)
{
    using test::TestDatabase;
    expectRejected("SELEC * FROM Azioni", "syntax error");
    expectRejected("SELECT * FROM Azionii",
                   TestDatabase::byBackend("no such table: Azionii", "relation \"azionii\" does not exist"));
    expectRejected("SELECT Nordine2 FROM Azioni",
                   TestDatabase::byBackend("no such column: Nordine2", "column \"nordine2\" does not exist"));
    expectRejected("Pippo", TestDatabase::byBackend("no such table: Pippo", "relation \"pippo\" does not exist"));
    expectRejected("SELECT 1; SELECT 2", "Si può eseguire una sola istruzione alla volta");
    expectRejected("", "Nessuna istruzione da eseguire");
    expectRejected("DELETE FROM Azioni", "Non è un'interrogazione");
}

TEST_F(PracticeTest, ErrorsCarryTheDriverCode)
{
    try {
        clsAccessoDati().Apri("SELEC * FROM Azioni", 0, 1, -1);
        FAIL();
    } catch (const DataError& error) {
        // SQLITE_ERROR; SQLSTATE syntax_error.
        EXPECT_EQ(error.driverCode(), test::TestDatabase::byBackend("1", "42601"));
        EXPECT_EQ(std::string(error.what()),
                  test::TestDatabase::byBackend("near \"SELEC\": syntax error [SELEC * FROM Azioni]",
                                                "syntax error at or near \"SELEC\" [SELEC * FROM Azioni]"));
    }
}

TEST_F(PracticeTest, SecondStatementNeverRuns)
{
    clsAccessoDati data;
    EXPECT_THROW(data.Apri("SELECT * FROM Azioni WHERE IdAzione = 1; DELETE FROM Azioni", 0, 1, -1), DataError);
    EXPECT_THROW(data.Apri("SELECT * FROM Azioni WHERE IdAzione = 1; DELETE FROM Azioni", 1, 3, -1), DataError);
    EXPECT_THROW((void)clsValoreSql::instance().ValoreSql("SELECT 1; DELETE FROM Azioni"), DataError);
    EXPECT_THROW((void)clsValoreSql::instance().ValoreSql("DELETE FROM Azioni"), DataError);
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 7);
    EXPECT_NO_THROW(data.Apri("SELECT * FROM Azioni WHERE IdAzione = 1;  ", 0, 1, -1));
}

TEST_F(PracticeTest, DroppedTableMakesReadsFail)
{
    db.dropTable("Utenti");
    EXPECT_THROW(clsAccessoDati().Apri("Select LivelloRiservatezza FROM Utenti WHERE Id_Utente = 5", 0, 1, -1),
                 DataError);
    EXPECT_THROW((void)clsValoreSql::instance().ValoreSql("SELECT Count(*) FROM Utenti"), DataError);
}

TEST_F(PracticeTest, ValoreSql)
{
    const clsValoreSql& values = clsValoreSql::instance();
    EXPECT_EQ(&values, &clsValoreSql::instance());
    EXPECT_TRUE(values.ValoreSql("SELECT NomeUtente FROM Utenti WHERE ID_Utente = 77").isEmpty());
    EXPECT_EQ(values.ValoreSql("SELECT NomeUtente, ID_Utente FROM Utenti ORDER BY ID_Utente DESC").asText(), "True");
    EXPECT_EQ(values.ValoreSql("SELECT Data FROM Azioni WHERE IdAzione = 4").asDate(), Date::fromYmd(2004, 6, 3));
    EXPECT_EQ(values.ValoreSql("SELECT Diritti FROM Azioni WHERE IdAzione = 4").asCurrency(),
              Currency::fromText("12345.6"));
    EXPECT_THROW((void)values.ValoreSql("SELECT * FROM Nowhere"), DataError);
}

TEST(clsUtilitaDati, FormattaTestoSql)
{
    const clsUtilitaDati& util = clsUtilitaDati::instance();
    EXPECT_EQ(&util, &clsUtilitaDati::instance());
    EXPECT_EQ(util.FormattaTestoSql("Civile"), "'Civile'");
    EXPECT_EQ(util.FormattaTestoSql("D'Amico"), "'D''Amico'");
    EXPECT_EQ(util.FormattaTestoSql(""), "''");
    EXPECT_EQ(util.FormattaTestoSql("''"), "''''''");
    EXPECT_EQ(util.FormattaTestoSql("a'b'c "), "'a''b''c '");
}

TEST(clsUtilitaDati, EsisteInCollezione)
{
    Collection seen;
    seen.Add(Value(5), std::string("K5"));
    seen.Add(Value(9));
    const clsUtilitaDati& util = clsUtilitaDati::instance();
    EXPECT_TRUE(util.EsisteInCollezione(seen, "K5"));
    EXPECT_TRUE(util.EsisteInCollezione(seen, "k5"));
    EXPECT_FALSE(util.EsisteInCollezione(seen, "K9"));
    EXPECT_FALSE(util.EsisteInCollezione(Collection(), "K5"));
}

} // namespace
} // namespace avlor
