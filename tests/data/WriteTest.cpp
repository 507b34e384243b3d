// Writing through editable record sets: back to the right row with partial
// column lists, new rows with their generated key, deletes, conversions on
// the way in, and the record sets that refuse writes.
#include <gtest/gtest.h>

#include "PracticeFixture.h"
#include "avlor/core/Error.h"
#include "avlor/core/Locale.h"
#include "avlor/data/DataError.h"
#include "avlor/data/clsAccessoDati.h"

namespace avlor {
namespace {

using test::PracticeTest;
using Numbers = std::vector<std::int32_t>;

// The order numbers of case 5's tariff (or hourly) actions, by action id.
Numbers orderByAction(const test::TestDatabase& db, bool tariff)
{
    Numbers numbers;
    for (const auto& row : db.rows(std::string("SELECT NOrdine FROM Azioni WHERE IdPra = 5 AND IsTariffa = ") +
                                   (tariff ? "'True'" : "'False'") + " ORDER BY IdAzione")) {
        numbers.push_back(row[0].toLong());
    }
    return numbers;
}

// How the database itself stores a column of an action: "storage
// class:text" on SQLite, "type:text" on PostgreSQL.
std::string stored(const test::TestDatabase& db, const std::string& expression, int action)
{
    const std::string where = " FROM Azioni WHERE IdAzione = " + std::to_string(action);
    if (test::TestDatabase::onPostgresql()) {
        return db.value("SELECT pg_typeof(" + expression + ")::text || ':' || (" + expression + ")::text" + where)
            .asText();
    }
    return db.value("SELECT typeof(" + expression + ") || ':' || " + expression + where).asText();
}

using test::TestDatabase;

// Making room at 2 among tariff numbers 1, 2, 3, 5: the run 2, 3 moves up
// and the row at 5 stays, each row written back through a record set that
// selects NOrdine alone.
TEST_F(PracticeTest, PartialColumnsWriteBackTheRightRows)
{
    clsAccessoDati data;
    data.Apri("SELECT NOrdine From Azioni WHERE IdPra = 5 AND NOrdine >= 2 AND IsTariffa = 'TRUE'  ORDER BY NOrdine ",
              1, 3, -1);
    std::int32_t counter = 2;
    while (!data.Recordset().Eof()) {
        if (data.Campo("NOrdine", TipoNumero).toLong() != counter) {
            break;
        }
        data.ImpostaCampo("NOrdine", Value(counter + 1));
        data.Recordset().Update();
        ++counter;
        data.Recordset().MoveNext();
    }
    EXPECT_EQ(orderByAction(db, true), (Numbers{1, 3, 4, 5}));
    EXPECT_EQ(orderByAction(db, false), (Numbers{1, 2}));
    EXPECT_EQ(db.value("SELECT NOrdine FROM Azioni WHERE IdAzione = 7").asLong(), 1);
    // The rest of each row is untouched.
    EXPECT_EQ(db.value("SELECT Descr FROM Azioni WHERE IdAzione = 2").asText(), "Studio");
    EXPECT_EQ(db.value("SELECT Onorari FROM Azioni WHERE IdAzione = 2").asCurrency(), Currency::fromWhole(250));
}

// Renumbering a whole sequence from 1 after a delete.
TEST_F(PracticeTest, RenumberFromOne)
{
    db.exec("DELETE FROM Azioni WHERE IdAzione = 2");
    clsAccessoDati data;
    data.Apri("SELECT NOrdine FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'TRUE'  ORDER BY NOrdine ", 1, 3, -1);
    std::int32_t next = 1;
    for (; !data.Recordset().Eof(); data.Recordset().MoveNext()) {
        data.ImpostaCampo("NOrdine", Value::integer(static_cast<std::int16_t>(next++)));
        data.Recordset().Update();
    }
    EXPECT_EQ(orderByAction(db, true), (Numbers{1, 2, 3}));
}

TEST_F(PracticeTest, AliasWritesItsColumn)
{
    clsAccessoDati data;
    data.Apri("SELECT NOrdine AS N, Descr FROM Azioni WHERE IdAzione = 2", 1, 3, -1);
    data.ImpostaCampo("N", Value(9));
    data.ImpostaCampo("Descr", Value("Studio e ricerca"));
    EXPECT_EQ(data.Campo("N", TipoNumero).asLong(), 9); // pending, before Update
    data.Recordset().Update();
    EXPECT_EQ(data.Campo("N", TipoNumero).asLong(), 9);
    EXPECT_EQ(db.value("SELECT NOrdine FROM Azioni WHERE IdAzione = 2").asLong(), 9);
    EXPECT_EQ(db.value("SELECT Descr FROM Azioni WHERE IdAzione = 2").asText(), "Studio e ricerca");
}

// A new action: the table opened to add, fields set, Update; the generated
// key and the defaults are then readable.
TEST_F(PracticeTest, AddNewMakesTheGeneratedKeyReadable)
{
    clsAccessoDati data;
    data.Apri("Azioni", 1, 3, -1);
    data.Recordset().AddNew();
    data.ImpostaCampo("Data", Value("15/07/2004"));
    data.ImpostaCampo("NOrdine", Value(4));
    data.ImpostaCampo("IdPra", Value(5));
    data.ImpostaCampo("Descr", Value("Memoria"));
    data.ImpostaCampo("Onorari", Value(Currency::fromText("1234.5678")));
    data.ImpostaCampo("Cambio", Value(Currency::fromWhole(1)));
    data.ImpostaCampo("IsTariffa", Value(true));
    data.ImpostaCampo("InNotaSpese", Value(true));
    data.ImpostaCampo("Quantita", Value(2));
    data.ImpostaCampo("TabellaTariffa", Value(""));
    data.Recordset().Update();
    EXPECT_EQ(data.Campo("IdAzione", TipoNumero).asLong(), 8);
    EXPECT_FALSE(data.Recordset().Field("bFattura").asBoolean());
    EXPECT_EQ(data.Campo("Diritti", TipoNumero).asCurrency(), Currency());
    EXPECT_EQ(data.Campo("Data", TipoData).asDate(), Date::fromYmd(2004, 7, 15));
    EXPECT_TRUE(data.Campo("Codice", TipoTesto).isNull());
    // A second new row; ids are never reused.
    data.Recordset().AddNew();
    data.ImpostaCampo("IdPra", Value(5));
    data.Recordset().Update();
    EXPECT_EQ(data.Campo("IdAzione", TipoNumero).asLong(), 9);

    EXPECT_EQ(stored(db, "Data", 8), TestDatabase::byBackend("text:2004-07-15", "date:2004-07-15"));
    EXPECT_EQ(stored(db, "Onorari", 8), TestDatabase::byBackend("integer:12345678", "numeric:1234.5678"));
    EXPECT_EQ(stored(db, "IsTariffa", 8), TestDatabase::byBackend("text:True", "boolean:true"));
    EXPECT_EQ(stored(db, "InNotaSpese", 8), "integer:-1");
    EXPECT_EQ(stored(db, "Quantita", 8), "text:2");
    EXPECT_EQ(stored(db, "TabellaTariffa", 8), "text:");
    EXPECT_EQ(stored(db, "bFattura", 9), TestDatabase::byBackend("text:False", "boolean:false"));

    db.exec("DELETE FROM Azioni WHERE IdAzione = 9");
    EXPECT_EQ(db.insertRow("Azioni", {{"IdPra", Value(5)}}).asLong(), 10);
}

TEST_F(PracticeTest, AddedRowJoinsTheRecordSet)
{
    clsAccessoDati data;
    const auto rows = data.Apri("Azioni", 1, 3, -1);
    rows->AddNew();
    EXPECT_TRUE(rows->Field("IdAzione").isNull());
    rows->SetField("IdPra", Value(6));
    rows->Update();
    EXPECT_FALSE(rows->Eof());
    EXPECT_EQ(rows->Field("IdAzione").asLong(), 8);
    EXPECT_EQ(rows->RecordCount(), 8);
    EXPECT_EQ(rows->Field("IdAzione").asLong(), 8);
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
    rows->MoveFirst();
    EXPECT_EQ(rows->Field("IdAzione").asLong(), 1);
}

TEST_F(PracticeTest, AddNewThroughAPartialStatement)
{
    clsAccessoDati data;
    data.Apri("SELECT IdAzione, IdPra, NOrdine FROM Azioni WHERE IdAzione = 0", 1, 3, -1);
    EXPECT_TRUE(data.Recordset().Eof());
    data.Recordset().AddNew();
    data.ImpostaCampo("IdPra", Value(7));
    data.ImpostaCampo("NOrdine", Value("3"));
    data.Recordset().Update();
    EXPECT_EQ(data.Campo("IdAzione", TipoNumero).asLong(), 8);
    EXPECT_EQ(data.Recordset().RecordCount(), 1);
    EXPECT_EQ(db.rows("SELECT IdPra, NOrdine, Descr FROM Azioni WHERE IdAzione = 8").front()[1].asLong(), 3);
    // A field the statement does not select cannot be set.
    data.Recordset().AddNew();
    EXPECT_THROW(data.ImpostaCampo("Descr", Value("x")), DataError);
}

TEST_F(PracticeTest, TablesWithoutAnIdWriteByRowId)
{
    EXPECT_TRUE(db.insertRow("RelGruppiUtenti", {{"Fk_Id_Utente", Value(7)}, {"Fk_Gruppo", Value("Penale")}})
                    .identicalTo(Value(7)));
    clsAccessoDati data;
    data.Apri("Select fk_id_Utente FROM RelGruppiUtenti WHERE Fk_Gruppo = 'Civile' AND fk_Id_Utente = 9", 1, 3, -1);
    data.ImpostaCampo("fk_id_Utente", Value(8));
    data.Recordset().Update();
    EXPECT_EQ(db.value("SELECT Count(*) FROM RelGruppiUtenti WHERE Fk_Gruppo = 'Civile' AND Fk_Id_Utente = 8").asLong(),
              1);
    EXPECT_EQ(db.value("SELECT Count(*) FROM RelGruppiUtenti WHERE Fk_Id_Utente = 9").asLong(), 1); // D'Amico
}

TEST_F(PracticeTest, ChangeOfAWholeAction)
{
    clsAccessoDati data;
    data.Apri("SELECT * FROM Azioni WHERE IdAzione = 2", 1, 3, -1);
    data.ImpostaCampo("Data", Value(Date::fromYmd(2005, 1, 31)));
    data.ImpostaCampo("IdFattura", Value(0));
    data.ImpostaCampo("Diritti", Value(0));
    data.ImpostaCampo("Onorari", Value(Currency::fromText("99.99")));
    data.ImpostaCampo("bFattura", Value(0));
    data.ImpostaCampo("IsTariffa", Value(-1));
    data.ImpostaCampo("Esenti", Value("12.5"));
    data.ImpostaCampo("Ore", Value("1.25"));
    data.Recordset().Update();
    EXPECT_EQ(stored(db, "Data", 2), TestDatabase::byBackend("text:2005-01-31", "date:2005-01-31"));
    EXPECT_EQ(stored(db, "IdFattura", 2), "integer:0");
    EXPECT_EQ(stored(db, "Diritti", 2), TestDatabase::byBackend("integer:0", "numeric:0.0000"));
    EXPECT_EQ(stored(db, "Onorari", 2), TestDatabase::byBackend("integer:999900", "numeric:99.9900"));
    EXPECT_EQ(stored(db, "bFattura", 2), TestDatabase::byBackend("text:False", "boolean:false"));
    EXPECT_EQ(stored(db, "IsTariffa", 2), TestDatabase::byBackend("text:True", "boolean:true"));
    EXPECT_EQ(stored(db, "Esenti", 2), TestDatabase::byBackend("integer:125000", "numeric:12.5000"));
    EXPECT_EQ(stored(db, "Ore", 2), TestDatabase::byBackend("real:1.25", "double precision:1.25"));
    EXPECT_EQ(data.Campo("Esenti", TipoNumero).asCurrency(), Currency::fromText("12.5"));
}

TEST_F(PracticeTest, NullAndEmptyWriteNull)
{
    clsAccessoDati data;
    data.Apri("SELECT * FROM Azioni WHERE IdAzione = 2", 1, 3, -1);
    data.ImpostaCampo("Onorari", Value::null());
    data.ImpostaCampo("Data", Value());
    data.ImpostaCampo("Descr", Value::null());
    data.Recordset().Update();
    EXPECT_TRUE(db.value("SELECT Onorari FROM Azioni WHERE IdAzione = 2").isNull());
    EXPECT_TRUE(db.value("SELECT Data FROM Azioni WHERE IdAzione = 2").isNull());
    EXPECT_TRUE(db.value("SELECT Descr FROM Azioni WHERE IdAzione = 2").isNull());
}

TEST_F(PracticeTest, ValuesThatCannotTakeTheColumnAreRefused)
{
    clsAccessoDati data;
    data.Apri("SELECT * FROM Azioni WHERE IdAzione = 2", 1, 3, -1);
    EXPECT_THROW(data.ImpostaCampo("Onorari", Value("abc")), ValueError);
    EXPECT_THROW(data.ImpostaCampo("Onorari", Value("1.234,50")), ValueError);
    EXPECT_THROW(data.ImpostaCampo("Data", Value("31/02/2004")), ValueError);
    EXPECT_THROW(data.ImpostaCampo("NOrdine", Value("x")), ValueError);
    EXPECT_THROW(data.ImpostaCampo("IsTariffa", Value("forse")), ValueError);
    // An order number past the 16-bit range is refused by the table.
    data.ImpostaCampo("NOrdine", Value(32768));
    EXPECT_THROW(data.Recordset().Update(), DataError);
    EXPECT_EQ(db.value("SELECT NOrdine FROM Azioni WHERE IdAzione = 2").asLong(), 2);
}

TEST_F(PracticeTest, MovingWritesPendingChanges)
{
    clsAccessoDati data;
    data.Apri("SELECT NOrdine FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'FALSE'  ORDER BY NOrdine ", 1, 3, -1);
    data.ImpostaCampo("NOrdine", Value(7));
    data.Recordset().MoveNext();
    data.ImpostaCampo("NOrdine", Value(8));
    data.Recordset().MoveFirst();
    EXPECT_EQ(orderByAction(db, false), (Numbers{7, 8}));
}

TEST_F(PracticeTest, ChangesNotUpdatedAreDropped)
{
    {
        clsAccessoDati data;
        data.Apri("SELECT * FROM Azioni WHERE IdAzione = 2", 1, 3, -1);
        data.ImpostaCampo("Descr", Value("mai scritto"));
    }
    EXPECT_EQ(db.value("SELECT Descr FROM Azioni WHERE IdAzione = 2").asText(), "Studio");
}

TEST_F(PracticeTest, DeleteTheCurrentRow)
{
    clsAccessoDati data;
    const auto rows =
        data.Apri("SELECT * FROM Azioni WHERE IdPra = 5 AND IsTariffa = 'TRUE' ORDER BY NOrdine", 1, 3, -1);
    rows->MoveNext();
    rows->Delete();
    EXPECT_THROW((void)data.Campo("Descr", TipoTesto), DataError);
    EXPECT_EQ(rows->RecordCount(), 3);
    rows->MoveNext();
    EXPECT_EQ(data.Campo("IdAzione", TipoNumero).asLong(), 3);
    rows->MoveFirst();
    rows->MoveNext();
    EXPECT_EQ(data.Campo("IdAzione", TipoNumero).asLong(), 3);
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni WHERE IdAzione = 2").asLong(), 0);
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 6);
}

TEST_F(PracticeTest, RowGoneMeanwhile)
{
    clsAccessoDati data;
    data.Apri("SELECT * FROM Azioni WHERE IdAzione = 2", 1, 3, -1);
    db.exec("DELETE FROM Azioni WHERE IdAzione = 2");
    data.ImpostaCampo("Descr", Value("x"));
    EXPECT_THROW(data.Recordset().Update(), DataError);
    EXPECT_THROW(data.Recordset().Delete(), DataError);
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 6);
}

void expectNotUpdatable(const std::string& statement)
{
    clsAccessoDati data;
    const auto rows = data.Apri(statement, 1, 3, -1);
    ASSERT_FALSE(rows->Eof()) << statement;
    const std::string field = rows->FieldNames().front();
    try {
        data.ImpostaCampo(field, Value(1));
        FAIL() << statement;
    } catch (const DataError& error) {
        EXPECT_NE(std::string(error.what()).find("non si può modificare"), std::string::npos) << error.what();
        EXPECT_EQ(error.statement(), statement);
    }
    EXPECT_THROW(rows->AddNew(), DataError);
    EXPECT_THROW(rows->Delete(), DataError);
}

TEST_F(PracticeTest, RecordSetsThatCannotBeWritten)
{
    expectNotUpdatable("SELECT Azioni.*, Utenti.NomeUtente FROM Utenti INNER JOIN Azioni ON Utenti.ID_Utente = "
                       "Azioni.IdEseguitoDa WHERE IdPra = 5 AND IsTariffa = 'TRUE'  ORDER BY NOrdine ");
    expectNotUpdatable("SELECT Azioni.NOrdine FROM Azioni, Utenti WHERE Utenti.ID_Utente = Azioni.IdEseguitoDa");
    expectNotUpdatable("SELECT Count(MultiIntesta.ID_Multi) AS ConteggioDiID_Multi FROM MultiIntesta");
    expectNotUpdatable("SELECT NOrdine + 1 AS N FROM Azioni");
    expectNotUpdatable("SELECT DISTINCT Fk_Gruppo FROM RelGruppiUtenti WHERE Fk_Id_Utente = 5");
    expectNotUpdatable("SELECT NOrdine FROM Azioni GROUP BY NOrdine");
    expectNotUpdatable("SELECT NOrdine FROM Azioni UNION SELECT Qta FROM VociParcellaBase");
    expectNotUpdatable("SELECT x FROM (SELECT NOrdine AS x FROM Azioni) AS t");
    EXPECT_EQ(orderByAction(db, true), (Numbers{1, 2, 3, 5}));
}

TEST_F(PracticeTest, ReadOnlyRecordSetsRefuseWrites)
{
    clsAccessoDati data;
    const auto rows = data.Apri("SELECT * FROM Azioni WHERE IdAzione = 2", 0, 1, -1);
    EXPECT_THROW(data.ImpostaCampo("Descr", Value("x")), DataError);
    EXPECT_THROW(rows->AddNew(), DataError);
    EXPECT_THROW(rows->Delete(), DataError);
    EXPECT_THROW(rows->Update(), DataError);
    EXPECT_EQ(db.value("SELECT Descr FROM Azioni WHERE IdAzione = 2").asText(), "Studio");
}

TEST_F(PracticeTest, SettingFieldsNeedsACurrentRow)
{
    clsAccessoDati data;
    data.Apri("SELECT * FROM Azioni WHERE IdAzione = 99", 1, 3, -1);
    EXPECT_THROW(data.ImpostaCampo("Descr", Value("x")), DataError);
    EXPECT_THROW(data.Recordset().Delete(), DataError);
    EXPECT_NO_THROW(data.Recordset().Update()); // nothing pending
}

TEST_F(PracticeTest, FixtureHelpersConvertLikeTheApplication)
{
    const Value id = db.insertRow("Fatture", {{"ResiduoASaldo", Value(Currency::fromText("10.25"))}});
    EXPECT_EQ(
        db.value("SELECT ResiduoASaldo FROM Fatture WHERE ID_Fattura = " + id.toText(Locale::neutral())).asCurrency(),
        Currency::fromText("10.25"));
    EXPECT_EQ(TestDatabase::amount("10.25"), TestDatabase::byBackend("102500", "10.2500"));
    db.exec("INSERT INTO Fatture (ID_Fattura, ResiduoASaldo) VALUES (50, " + TestDatabase::amount("0.5") + ")");
    EXPECT_EQ(db.value("SELECT ResiduoASaldo FROM Fatture WHERE ID_Fattura = 50").asCurrency(),
              Currency::fromText("0.5"));
    if (TestDatabase::onPostgresql()) {
        // The server's own types take an amount as a decimal and a date text
        // day first (the sessions' DateStyle), as the application writes
        // them.
        db.exec("INSERT INTO Fatture (ID_Fattura, ResiduoASaldo) VALUES (51, 0.5)");
        EXPECT_EQ(db.value("SELECT ResiduoASaldo FROM Fatture WHERE ID_Fattura = 51").asCurrency(),
                  Currency::fromText("0.5"));
        db.exec("INSERT INTO Azioni (IdAzione, IdPra, Data) VALUES (32, 5, '02/06/2004')");
        EXPECT_EQ(db.value("SELECT Data FROM Azioni WHERE IdAzione = 32").asDate(), Date::fromYmd(2004, 6, 2));
    } else {
        // Raw SQL in any other form is refused by the table.
        EXPECT_THROW(db.exec("INSERT INTO Fatture (ID_Fattura, ResiduoASaldo) VALUES (51, 0.5)"), DataError);
        EXPECT_THROW(db.exec("INSERT INTO Azioni (IdPra, Data) VALUES (5, '02/06/2004')"), DataError);
    }
    EXPECT_THROW(db.exec("INSERT INTO Azioni (IdPra, IsTariffa) VALUES (5, 1)"), DataError);
    // The dialect's forms work in fixtures too; a failing script leaves nothing.
    db.exec("INSERT INTO Azioni (IdAzione, IdPra, Data, IsTariffa) VALUES "
            "(30, 5, CONVERT (SMALLDATETIME,'02/06/2004', 105), true)");
    EXPECT_EQ(stored(db, "Data", 30) + " " + stored(db, "IsTariffa", 30),
              TestDatabase::byBackend("text:2004-06-02 text:True", "date:2004-06-02 boolean:true"));
    EXPECT_THROW(db.exec("INSERT INTO Azioni (IdAzione, IdPra) VALUES (31, 5); INSERT INTO Nowhere VALUES (1)"),
                 DataError);
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni WHERE IdAzione = 31").asLong(), 0);
    // A second configuration row is refused: the application reads the first.
    EXPECT_THROW(db.exec("INSERT INTO ConfigGenerale (ValutaDefault) VALUES ('LIRA')"), DataError);
}

} // namespace
} // namespace avlor
