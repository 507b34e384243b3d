// Values on the server: amounts exact to the ten-thousandth both ways and
// never through a floating number, dates, yes/no, whole numbers and text,
// and field names in the schema's spelling.
#include <gtest/gtest.h>

#include <limits>

#include "ServerSupport.h"
#include "TestDatabase.h"
#include "avlor/core/Error.h"
#include "avlor/data/DataError.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/data/clsValoreSql.h"

namespace avlor::test {
namespace {

class ServerValues : public testing::Test {
protected:
    // Writes the amount through an editable record set and reads it back.
    Currency roundTrip(Currency amount)
    {
        const Value id = db.insertRow("Fatture", {{"ResiduoASaldo", Value(amount)}});
        clsAccessoDati data;
        data.Apri("SELECT ResiduoASaldo FROM Fatture WHERE ID_Fattura = " + std::to_string(id.asLong()), 0, 1, -1);
        const Value read = data.Campo("ResiduoASaldo", TipoNumero);
        EXPECT_EQ(read.kind(), ValueKind::Currency);
        return read.asCurrency();
    }

    TestDatabase db;
};

TEST_F(ServerValues, AmountsAreExactAtEveryScale)
{
    for (const char* text : {"0", "0.0001", "-0.0001", "12.5", "1936.27", "123.4567", "-50.25", "99999999999.9999",
                             "922337203685477.5807", "-922337203685477.5808"}) {
        EXPECT_EQ(roundTrip(Currency::fromText(text)), Currency::fromText(text)) << text;
    }
    // Stored as the decimal itself, to the ten-thousandth.
    const Value id = db.insertRow("Fatture", {{"ResiduoASaldo", Value(Currency::max())}});
    RawSession other(db.location());
    EXPECT_EQ(other.text("SELECT ResiduoASaldo::text FROM Fatture WHERE ID_Fattura = " + std::to_string(id.asLong())),
              "922337203685477.5807");
}

TEST_F(ServerValues, AmountsWrittenAsTextOrNumbersAreConvertedExactly)
{
    const Value id = db.insertRow("Azioni",
                                  {{"IdPra", Value(5)},
                                   {"Onorari", Value("1234.5678")},
                                   {"Diritti", Value(7)},
                                   {"Esenti", Value(0.1)},
                                   {"Imponibili", Value(Currency::fromText("0.00005"))}});
    RawSession other(db.location());
    EXPECT_EQ(other.text("SELECT Onorari || ' ' || Diritti || ' ' || Esenti || ' ' || Imponibili FROM Azioni "
                         "WHERE IdAzione = " +
                         std::to_string(id.asLong())),
              "1234.5678 7.0000 0.1000 0.0000");
}

TEST_F(ServerValues, AnAmountBeyondCurrencyIsAnErrorNamingTheColumn)
{
    RawSession other(db.location());
    other.exec("INSERT INTO Fatture (ID_Fattura, ResiduoASaldo) VALUES (9, 999999999999999.9999)");
    try {
        clsAccessoDati().Apri("SELECT ResiduoASaldo FROM Fatture WHERE ID_Fattura = 9", 0, 1, -1);
        FAIL();
    } catch (const DataError& error) {
        EXPECT_NE(std::string(error.what()).find("ResiduoASaldo"), std::string::npos) << error.what();
        EXPECT_NE(std::string(error.what()).find("999999999999999.9999"), std::string::npos) << error.what();
    }
}

TEST_F(ServerValues, SumsOfAmountsStayAmounts)
{
    db.exec("INSERT INTO Azioni (IdPra, Onorari) VALUES (5, 0.1), (5, 0.2), (5, 1234567890.0001)");
    const Value sum = clsValoreSql::instance().ValoreSql("SELECT Sum(Onorari) FROM Azioni WHERE IdPra = 5");
    ASSERT_EQ(sum.kind(), ValueKind::Currency);
    EXPECT_EQ(sum.asCurrency(), Currency::fromText("1234567890.3001"));
    // An average has more decimals than an amount: a plain number.
    const Value average = clsValoreSql::instance().ValoreSql("SELECT Avg(Onorari) FROM Azioni WHERE IdPra = 5");
    ASSERT_EQ(average.kind(), ValueKind::Double);
    EXPECT_NEAR(average.asDouble(), 411522630.1000333, 1e-6);
}

TEST_F(ServerValues, WholeNumbers)
{
    clsAccessoDati data;
    data.Apri("SELECT 7::smallint AS S, 2147483647 AS I, 2147483648 AS Big, -3000000000 AS Negative, Count(*) AS N "
              "FROM Versioni",
              0, 1, -1);
    EXPECT_TRUE(data.Campo("S", TipoNumero).identicalTo(Value(7)));
    EXPECT_TRUE(data.Campo("I", TipoNumero).identicalTo(Value(std::numeric_limits<std::int32_t>::max())));
    EXPECT_TRUE(data.Campo("Big", TipoNumero).identicalTo(Value(2147483648.0)));
    EXPECT_TRUE(data.Campo("Negative", TipoNumero).identicalTo(Value(-3000000000.0)));
    EXPECT_TRUE(data.Campo("N", TipoNumero).identicalTo(Value(1)));
}

TEST_F(ServerValues, DatesBothWays)
{
    for (const Date date : {Date::fromYmd(2004, 2, 29), Date::fromYmd(1900, 1, 1), Date::fromYmd(1899, 12, 30),
                            Date::fromYmd(9999, 12, 31), Date::fromYmd(1, 1, 1)}) {
        const Value id = db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Data", Value(date)}});
        EXPECT_EQ(db.value("SELECT Data FROM Azioni WHERE IdAzione = " + std::to_string(id.asLong())).asDate(), date)
            << date.toIso();
    }
    // Day-first text, as the dialog writes it, and ISO text.
    const Value first = db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Data", Value("02/06/2004")}});
    const Value second = db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Data", Value("2004-06-03")}});
    RawSession other(db.location());
    EXPECT_EQ(other.text("SELECT Data::text FROM Azioni WHERE IdAzione = " + std::to_string(first.asLong())),
              "2004-06-02");
    EXPECT_EQ(other.text("SELECT Data::text FROM Azioni WHERE IdAzione = " + std::to_string(second.asLong())),
              "2004-06-03");
}

TEST_F(ServerValues, YesNoBothWays)
{
    const Value yes =
        db.insertRow("Azioni", {{"IdPra", Value(5)}, {"IsTariffa", Value(true)}, {"bFattura", Value(-1)}});
    const Value no =
        db.insertRow("Azioni", {{"IdPra", Value(5)}, {"IsTariffa", Value("False")}, {"bFattura", Value(0)}});
    RawSession other(db.location());
    EXPECT_EQ(other.text("SELECT IsTariffa::text || bFattura::text FROM Azioni WHERE IdAzione = " +
                         std::to_string(yes.asLong())),
              "truetrue");
    EXPECT_EQ(other.text("SELECT IsTariffa::text || bFattura::text FROM Azioni WHERE IdAzione = " +
                         std::to_string(no.asLong())),
              "falsefalse");
    clsAccessoDati data;
    data.Apri("SELECT IsTariffa FROM Azioni WHERE IdAzione = " + std::to_string(yes.asLong()), 0, 1, -1);
    EXPECT_TRUE(data.Recordset().Field("IsTariffa").identicalTo(Value(true)));
    EXPECT_EQ(data.Campo("IsTariffa", TipoNumero).asInteger(), -1);
    EXPECT_THROW(data.Apri("SELECT * FROM Azioni", 1, 3, -1)->SetField("IsTariffa", Value("forse")), ValueError);
}

// Text goes to the server as a parameter, never inside the statement: quotes,
// backslashes, ';' and comment marks are stored exactly.
TEST_F(ServerValues, TextIsStoredExactly)
{
    const std::string awkward = "D'Amico \\ ; -- /* 'True' */ \"x\" \xC3\xA0 ";
    const Value id = db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Descr", Value(awkward)}, {"Codice", Value("")}});
    const auto row =
        db.rows("SELECT Descr, Codice FROM Azioni WHERE IdAzione = " + std::to_string(id.asLong())).front();
    EXPECT_EQ(row[0].asText(), awkward);
    EXPECT_EQ(row[1].asText(), "");
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 1);
}

TEST_F(ServerValues, FieldNamesInTheSchemasSpelling)
{
    clsAccessoDati data;
    const auto names = data.Apri("SELECT * FROM Utenti", 0, 1, -1)->FieldNames();
    EXPECT_EQ(names,
              (std::vector<std::string>{"ID_Utente", "NomeUtente", "LivelloRiservatezza", "TitContabilita",
                                        "TariffaEuro", "TariffaLira"}));
    // Written otherwise in the statement: still the schema's spelling.
    EXPECT_EQ(data.Apri("Select fk_id_Utente, FK_GRUPPO FROM RelGruppiUtenti", 0, 1, -1)->FieldNames(),
              (std::vector<std::string>{"Fk_Id_Utente", "Fk_Gruppo"}));
    // The same lower-case name in two tables keeps each table's spelling.
    EXPECT_EQ(data.Apri("SELECT fk_gruppo FROM Pratica", 0, 1, -1)->FieldNames(),
              (std::vector<std::string>{"fk_Gruppo"}));
    // Aliases as the statement writes them; joined columns by their table.
    EXPECT_EQ(data.Apri("SELECT Count(MultiIntesta.ID_Multi) AS ConteggioDiID_Multi FROM MultiIntesta", 0, 1, -1)
                  ->FieldNames(),
              (std::vector<std::string>{"ConteggioDiID_Multi"}));
    const auto joined = data.Apri("SELECT Azioni.*, Utenti.NomeUtente FROM Utenti INNER JOIN Azioni ON "
                                  "Utenti.ID_Utente = Azioni.IdEseguitoDa",
                                  0, 1, -1)
                            ->FieldNames();
    ASSERT_EQ(joined.size(), 24U);
    EXPECT_EQ(joined.front(), "IdAzione");
    EXPECT_EQ(joined[21], "bFattura");
    EXPECT_EQ(joined.back(), "NomeUtente");
    // Looked up without regard to case, whatever the spelling.
    data.Apri("Versioni", 0, 1, -1);
    EXPECT_EQ(data.Campo("VERSIONE", TipoNumero).asLong(), 1);
}

} // namespace
} // namespace avlor::test
