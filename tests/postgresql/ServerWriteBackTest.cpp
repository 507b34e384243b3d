// Writing rows back on the server: by primary key, by place and content
// for the tables without a key, new rows with their generated ids, and
// what another workstation changed in the meantime.
#include <gtest/gtest.h>

#include "ServerSupport.h"
#include "TestDatabase.h"
#include "avlor/data/DataError.h"
#include "avlor/data/clsAccessoDati.h"

namespace avlor::test {
namespace {

class ServerWriteBack : public testing::Test {
protected:
    std::int32_t addAction(const char* descr)
    {
        return db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Descr", Value(descr)}}).asLong();
    }

    std::string descrOf(std::int32_t id)
    {
        return db.value("SELECT Descr FROM Azioni WHERE IdAzione = " + std::to_string(id)).asText();
    }

    TestDatabase db;
};

TEST_F(ServerWriteBack, NewRowsGetTheNextIdEvenAfterExplicitIds)
{
    EXPECT_EQ(addAction("prima"), 1);
    db.exec("INSERT INTO Azioni (IdAzione, IdPra) VALUES (100, 5)");
    EXPECT_EQ(addAction("dopo cento"), 101);
    // A lower explicit id leaves the sequence where it is.
    db.exec("INSERT INTO Azioni (IdAzione, IdPra) VALUES (50, 5)");
    EXPECT_EQ(addAction("dopo cinquanta"), 102);
    // Ids are never reused, even the last one's.
    db.exec("DELETE FROM Azioni WHERE IdAzione = 102");
    EXPECT_EQ(addAction("dopo la cancellazione"), 103);
    // The same for the other tables with a generated id.
    db.exec("INSERT INTO Utenti (ID_Utente, NomeUtente) VALUES (7, 'Sette')");
    EXPECT_EQ(db.insertRow("Utenti", {{"NomeUtente", Value("Otto")}}).asLong(), 8);
}

TEST_F(ServerWriteBack, OneConfigurationRowOnly)
{
    EXPECT_THROW(db.insertRow("ConfigGenerale", {{"ValutaDefault", Value("LIRA")}}), DataError);
    EXPECT_THROW(db.exec("INSERT INTO ConfigGenerale (IdConfig, ValutaDefault) VALUES (2, 'LIRA')"), DataError);
    EXPECT_EQ(db.rows("SELECT * FROM ConfigGenerale").size(), 1U);
}

TEST_F(ServerWriteBack, ChangingTheKeyKeepsTheRowInHand)
{
    const std::int32_t id = addAction("Studio");
    clsAccessoDati data;
    data.Apri("SELECT IdAzione, Descr FROM Azioni WHERE IdAzione = " + std::to_string(id), 1, 3, -1);
    data.ImpostaCampo("IdAzione", Value(500));
    data.Recordset().Update();
    // The next change reaches the row under its new key.
    data.ImpostaCampo("Descr", Value("Studio e ricerca"));
    data.Recordset().Update();
    EXPECT_EQ(descrOf(500), "Studio e ricerca");
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 1);
    data.Recordset().Delete();
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 0);
}

// Two identical memberships: each is written and deleted on its own.
TEST_F(ServerWriteBack, RowsWithoutAKeyAreToldApart)
{
    db.exec("INSERT INTO RelGruppiUtenti (Fk_Id_Utente, Fk_Gruppo) VALUES (5, 'Civile'), (5, 'Civile'), (9, 'Civile')");
    clsAccessoDati data;
    data.Apri("SELECT * FROM RelGruppiUtenti WHERE Fk_Id_Utente = 5", 1, 3, -1);
    data.ImpostaCampo("Fk_Gruppo", Value("Penale"));
    data.Recordset().Update();
    // The same row again, after it moved on the server.
    data.ImpostaCampo("Fk_Id_Utente", Value(6));
    data.Recordset().Update();
    data.Recordset().MoveNext();
    data.Recordset().Delete();
    EXPECT_EQ(db.rows("SELECT Fk_Id_Utente, Fk_Gruppo FROM RelGruppiUtenti ORDER BY Fk_Id_Utente").size(), 2U);
    EXPECT_EQ(db.value("SELECT Count(*) FROM RelGruppiUtenti WHERE Fk_Id_Utente = 6 AND Fk_Gruppo = 'Penale'").asLong(),
              1);
    EXPECT_EQ(db.value("SELECT Count(*) FROM RelGruppiUtenti WHERE Fk_Id_Utente = 9").asLong(), 1);
    EXPECT_EQ(db.value("SELECT Count(*) FROM RelGruppiUtenti WHERE Fk_Id_Utente = 5").asLong(), 0);
}

// The version row (no key) read as a whole table, changed and read back.
TEST_F(ServerWriteBack, WholeTableWithoutAKey)
{
    clsAccessoDati data;
    data.Apri("Versioni", 1, 3, -1);
    data.ImpostaCampo("Versione", Value(2));
    data.Recordset().Update();
    EXPECT_EQ(db.value("SELECT Versione FROM Versioni").asLong(), 2);
    data.Recordset().AddNew();
    data.ImpostaCampo("Versione", Value(3));
    data.Recordset().Update();
    EXPECT_EQ(data.Recordset().RecordCount(), 2);
    EXPECT_EQ(data.Campo("Versione", TipoNumero).asLong(), 3);
}

// A keyless row that another workstation changed since it was read is not
// overwritten: the write is refused and the other change stays.
TEST_F(ServerWriteBack, KeylessRowChangedMeanwhileIsReported)
{
    db.exec("INSERT INTO FonteTariffe (Tabella, Id, Fonte) VALUES ('Diritti94', 1, 'Gazzetta')");
    clsAccessoDati data;
    data.Apri("SELECT * FROM FonteTariffe WHERE Tabella = 'Diritti94'", 1, 3, -1);
    RawSession other(db.location());
    other.exec("UPDATE FonteTariffe SET Note = 'rivista' WHERE Tabella = 'Diritti94'");
    data.ImpostaCampo("Fonte", Value("Bollettino"));
    EXPECT_THROW(data.Recordset().Update(), DataError);
    EXPECT_EQ(other.text("SELECT Fonte || ' ' || Note FROM FonteTariffe"), "Gazzetta rivista");
    EXPECT_THROW(data.Recordset().Delete(), DataError);
    EXPECT_EQ(other.text("SELECT Count(*) FROM FonteTariffe"), "1");
}

// A row with a key is written by its key: another workstation's change of
// other columns meanwhile does not make the write fail.
TEST_F(ServerWriteBack, KeyedRowChangedMeanwhileIsStillWritten)
{
    const std::int32_t id = addAction("Studio");
    clsAccessoDati data;
    data.Apri("SELECT * FROM Azioni WHERE IdAzione = " + std::to_string(id), 1, 3, -1);
    RawSession other(db.location());
    other.exec("UPDATE Azioni SET Codice = '12' WHERE IdAzione = " + std::to_string(id));
    data.ImpostaCampo("NOrdine", Value(4));
    data.Recordset().Update();
    EXPECT_EQ(other.text("SELECT NOrdine || ' ' || Codice || ' ' || Descr FROM Azioni"), "4 12 Studio");
}

TEST_F(ServerWriteBack, ViewsAndJoinsAreNotWritable)
{
    db.exec("CREATE VIEW AzioniTariffa AS SELECT * FROM Azioni WHERE IsTariffa");
    addAction("Studio");
    db.exec("UPDATE Azioni SET IsTariffa = true");
    clsAccessoDati data;
    data.Apri("SELECT * FROM AzioniTariffa", 1, 3, -1);
    EXPECT_THROW(data.ImpostaCampo("Descr", Value("x")), DataError);
    data.Apri("SELECT a.Descr FROM Azioni a JOIN Utenti u ON u.ID_Utente = a.IdEseguitoDa", 1, 3, -1);
    EXPECT_THROW(data.Recordset().AddNew(), DataError);
    // An alias of the one table is writable.
    data.Apri("SELECT a.Descr FROM Azioni AS a", 1, 3, -1);
    data.ImpostaCampo("Descr", Value("Studio e ricerca"));
    data.Recordset().Update();
    EXPECT_EQ(db.value("SELECT Descr FROM Azioni").asText(), "Studio e ricerca");
}

} // namespace
} // namespace avlor::test
