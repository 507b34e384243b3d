// Late-bound creation and calls of the six public classes, as scripting hosts
// use them: by programmatic name, by operation name, with loosely typed
// arguments, by-reference outputs written back.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../core/EnvironmentGuard.h"
#include "TestDatabase.h"
#include "avlor/component/LateBound.h"
#include "avlor/core/Error.h"
#include "avlor/core/Messages.h"
#include "avlor/data/DataError.h"
#include "avlor/parametri/ParametriDatabase.h"
#include "avlor/parametri/ParametriFile.h"

namespace avlor {
namespace {

using test::TestDatabase;

Value money(const char* text) { return Value::currency(Currency::fromText(text)); }

const Value& valueOf(const DispatchResult& r) { return std::get<Value>(r); }

// The message of the UsageError that a call raises.
std::string errorOf(const std::function<void()>& f)
{
    try {
        f();
    } catch (const UsageError& e) {
        return e.what();
    } catch (const Error& e) {
        return std::string("(not a UsageError) ") + e.what();
    }
    return "(no error)";
}

class LateBoundTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        db.insertRow("Utenti",
                     {{"ID_Utente", Value(5)},
                      {"NomeUtente", Value("Avv. Rossi")},
                      {"LivelloRiservatezza", Value(2)},
                      {"TitContabilita", Value(true)}});
        db.insertRow("Utenti",
                     {{"ID_Utente", Value(9)},
                      {"NomeUtente", Value("Dott. Bruni")},
                      {"LivelloRiservatezza", Value(1)},
                      {"TitContabilita", Value(false)}});
        db.exec("INSERT INTO RelGruppiUtenti (Fk_Id_Utente, Fk_Gruppo) VALUES (5, 'Civile');"
                "INSERT INTO RelGruppiUtenti (Fk_Id_Utente, Fk_Gruppo) VALUES (9, 'Civile');"
                "INSERT INTO RelGruppiUtenti (Fk_Id_Utente, Fk_Gruppo) VALUES (5, 'Tutti');");
        db.exec("INSERT INTO MultiIntesta (ID_Multi, ID_Pra, IsCliente) VALUES (1, 7, 'True');"
                "INSERT INTO MultiIntesta (ID_Multi, ID_Pra, IsCliente) VALUES (2, 7, 'True');"
                "INSERT INTO MultiIntesta (ID_Multi, ID_Pra, IsCliente) VALUES (3, 7, 'False');");
        db.insertRow("Anagrafica", {{"ID_Ana", Value(1)}, {"IsFisicaGiuridica", Value(true)}});
        db.insertRow("Anagrafica", {{"ID_Ana", Value(2)}, {"IsFisicaGiuridica", Value(false)}});
        db.insertRow("Fatture", {{"ID_Fattura", Value(4)}, {"ResiduoASaldo", money("1250.5")}});
    }

    DispatchResult call(const std::string& progId, const std::string& method, std::vector<Value> args = {})
    {
        return CreateObject(progId)->invoke(method, args);
    }

    TestDatabase db;
};

TEST(LateBoundRegistry, ListsTheClassesUnderTheirProgrammaticNames)
{
    EXPECT_EQ(registeredProgIds(),
              (std::vector<std::string>{"AvlorLogic.ClsParcella", "AvlorLogic.clsUtenti", "AvlorLogic.clsPratica",
                                        "AvlorLogic.clsDataBase", "AvlorLogic.clsAnagrafica", "AvlorLogic.clsFatture",
                                        "AvlorLogic.clsParametri"}));
}

TEST(LateBoundRegistry, EachClassOffersItsOperationsInDeclarationOrder)
{
    const std::vector<std::pair<std::string, std::vector<std::string>>> expected = {
        {"AvlorLogic.ClsParcella", {"ShowDialogParcellazione", "CalcolaTariffa"}},
        {"AvlorLogic.clsUtenti",
         {"GetSqlRiservatezza", "GetLivelloRiservatezza", "GetGruppiUtente", "GetUtentiDelGruppo",
          "GetSqlFiltroPratiche", "IsUtenteContabilita", "UtenteInGruppo", "GetIdOfCurrentUser",
          "GetSqlFiltroAnagrafiche"}},
        {"AvlorLogic.clsPratica", {"QuantiClientiPerPratica", "QuanteControPartiPerPratica"}},
        {"AvlorLogic.clsDataBase", {"VersioneMdb"}},
        {"AvlorLogic.clsAnagrafica", {"IsSoggettoGiuridico"}},
        {"AvlorLogic.clsFatture", {"GetResiduoFattura"}},
        {"AvlorLogic.clsParametri",
         {"Calcola", "VersioneInVigore", "Versione", "Scaglione", "NumeroFasi", "NomeFase", "MedioFase", "MinimoFase",
          "MassimoFase", "ImportoFase", "FonteFase", "ProvenienzaFase", "Compenso", "SpeseGenerali", "Totale",
          "Avvertenze"}},
    };
    for (const auto& [progId, methods] : expected) {
        auto object = CreateObject(progId);
        EXPECT_EQ(object->progId(), progId);
        EXPECT_EQ(object->methodNames(), methods) << progId;
    }
}

// Pricing through the late-bound face, from the figures loaded into the
// practice database: a tribunale case of 30.000 euro in 2024, the istruttoria
// phase raised by 20 %.
TEST(LateBoundParametri, PricesAndExplainsEachPhase)
{
    TestDatabase db;
    (void)parametri::caricaParametriSpediti();
    auto object = CreateObject("AvlorLogic.clsParametri");
    std::vector<Value> args = {Value::date(Date::fromYmd(2024, 3, 15)),
                               Value::text("2"),
                               Value::currency(Currency::fromWhole(30000)),
                               Value::text("studio,introduttiva,istruttoria,decisionale"),
                               Value::text("istruttoria=+20"),
                               Value::longValue(1)};
    const DispatchResult total = object->invoke("Calcola", args);
    EXPECT_EQ(std::get<Value>(total).asCurrency(), Currency::fromText("9173.78"));
    std::vector<Value> none;
    EXPECT_EQ(std::get<Value>(object->invoke("Versione", none)).asText(), "2022");
    EXPECT_EQ(std::get<Value>(object->invoke("NumeroFasi", none)).asLong(), 4);
    std::vector<Value> third = {Value::longValue(3)};
    EXPECT_EQ(std::get<Value>(object->invoke("NomeFase", third)).asText(), "Fase istruttoria e/o di trattazione");
    EXPECT_EQ(std::get<Value>(object->invoke("ImportoFase", third)).asCurrency(), Currency::fromText("2167.2"));
    EXPECT_EQ(std::get<Value>(object->invoke("MassimoFase", third)).asCurrency(), Currency::fromWhole(2709));
    // The figure and its rules in a few words; its full source on request.
    EXPECT_EQ(std::get<Value>(object->invoke("FonteFase", third)).asText(),
              "tabella 2, versione 2022, scaglione 26.000,01 - 52.000,00 €, fase «Fase istruttoria e/o di "
              "trattazione»: 1.806,00 € (affidabilità alta); valore medio della tabella; limiti: art. 4 c.1 come "
              "modificato dal D.M. 147/2022: aumento fino al 50%, diminuzione non oltre il 50%, in ogni fase; "
              "importo: valore medio +20% (art. 4 c.1 come modificato dal D.M. 147/2022)");
    const std::string provenance = std::get<Value>(object->invoke("ProvenienzaFase", third)).asText();
    EXPECT_EQ(provenance, parametri::catalogoSpedito().trova("2022", "2")->fonte);
    EXPECT_NE(provenance.find("foroeuropeo"), std::string::npos);
    std::vector<Value> early = {Value::date(Date::fromYmd(2014, 4, 2)),
                                Value::text("2"),
                                Value::currency(Currency::fromWhole(30000)),
                                Value::text("studio"),
                                Value::text(""),
                                Value::longValue(1)};
    std::string refusal;
    try {
        (void)object->invoke("Calcola", early);
    } catch (const parametri::ParametriError& e) {
        refusal = e.what();
    }
    EXPECT_EQ(refusal,
              "La data 02/04/2014 è anteriore al 3 aprile 2014, giorno in cui i parametri del D.M. 55/2014 sono "
              "entrati in vigore: quel lavoro si valuta con le tariffe storiche del 1994 e del 2004 (avlor tariffe)");
}

TEST(LateBoundRegistry, NamesAreMatchedWithoutRegardToLetterCase)
{
    EXPECT_EQ(CreateObject("avlorlogic.CLSUTENTI")->progId(), "AvlorLogic.clsUtenti");
}

TEST(LateBoundRegistry, AnUnknownClassIsAClearError)
{
    const std::string classes =
        " (le classi: AvlorLogic.ClsParcella, AvlorLogic.clsUtenti, AvlorLogic.clsPratica, AvlorLogic.clsDataBase, "
        "AvlorLogic.clsAnagrafica, AvlorLogic.clsFatture, AvlorLogic.clsParametri)";
    EXPECT_EQ(errorOf([] { (void)CreateObject("AvlorLogic.clsNessuna"); }),
              "Nessuna classe è registrata col nome 'AvlorLogic.clsNessuna'" + classes);
    EXPECT_EQ(errorOf([] { (void)CreateObject(""); }), "Nessuna classe è registrata col nome ''" + classes);
}

TEST(LateBoundRegistry, AnUnknownOperationOrAWrongArgumentCountIsAClearError)
{
    auto utenti = CreateObject("AvlorLogic.clsUtenti");
    std::vector<Value> none;
    std::vector<Value> two{Value(1), Value(2)};
    EXPECT_EQ(errorOf([&] { utenti->invoke("Elimina", none); }),
              "La classe AvlorLogic.clsUtenti non ha un'operazione di nome 'Elimina' (le sue operazioni: "
              "GetSqlRiservatezza, GetLivelloRiservatezza, GetGruppiUtente, GetUtentiDelGruppo, GetSqlFiltroPratiche, "
              "IsUtenteContabilita, UtenteInGruppo, GetIdOfCurrentUser, GetSqlFiltroAnagrafiche)");
    EXPECT_EQ(errorOf([&] { utenti->invoke("GetLivelloRiservatezza", two); }),
              "AvlorLogic.clsUtenti.GetLivelloRiservatezza vuole 1 argomento (alIdUtente), ne sono dati 2");
    EXPECT_EQ(errorOf([&] { utenti->invoke("UtenteInGruppo", none); }),
              "AvlorLogic.clsUtenti.UtenteInGruppo vuole 2 argomenti (avIdUtente, avGruppo), ne sono dati 0");
    EXPECT_EQ(errorOf([&] { utenti->invoke("GetIdOfCurrentUser", two); }),
              "AvlorLogic.clsUtenti.GetIdOfCurrentUser vuole 0 argomenti, ne sono dati 2");
}

TEST(LateBoundRegistry, EveryOperationNamesItsArguments)
{
    auto parcella = CreateObject("AvlorLogic.ClsParcella");
    EXPECT_EQ(parcella->argumentNames("calcolatariffa"),
              (std::vector<std::string>{"cValore", "vRil", "sTabella", "bInd", "idTariffa", "MinTar", "MaxTar", "MinS",
                                        "MaxS", "Autorita"}));
    EXPECT_EQ(parcella->argumentNames("ShowDialogParcellazione"),
              (std::vector<std::string>{"IdPratica", "aszParti", "aszAdempimento", "aData"}));
    EXPECT_EQ(CreateObject("AvlorLogic.clsFatture")->argumentNames("GetResiduoFattura"),
              std::vector<std::string>{"avIdFattura"});
    EXPECT_EQ(CreateObject("AvlorLogic.clsDataBase")->argumentNames("VersioneMdb"), std::vector<std::string>{});
    EXPECT_EQ(errorOf([] {
                  (void)CreateObject("AvlorLogic.clsPratica")->argumentNames("Nessuna");
              }).rfind("La classe AvlorLogic.clsPratica non ha un'operazione di nome 'Nessuna'", 0),
              0u);
}

TEST_F(LateBoundTest, CalcolaTariffaWritesTheBandBackIntoTheArguments)
{
    // Out-of-court item 10 at 5,200 euro: band 156-312, halfway 234.
    std::vector<Value> args{
        money("5200"), Value(50), Value("OnorariStrag2004Euro"), Value(false), Value(10), Value(0), Value(0), Value(0),
        Value(0),      Value("")};
    auto parcella = CreateObject("AvlorLogic.ClsParcella");
    const DispatchResult r = parcella->invoke("calcolatariffa", args);
    EXPECT_EQ(valueOf(r).asCurrency().toFixed4(), "234.0000");
    EXPECT_EQ(args[5].asCurrency().toFixed4(), "156.0000");
    EXPECT_EQ(args[6].asCurrency().toFixed4(), "312.0000");
    EXPECT_EQ(args[7].asCurrency().toFixed4(), "0.0000");
    EXPECT_EQ(args[8].asCurrency().toFixed4(), "0.0000");
    EXPECT_EQ(args[0].asCurrency().toFixed4(), "5200.0000");
    EXPECT_EQ(args[2].asText(), "OnorariStrag2004Euro");
}

TEST_F(LateBoundTest, CalcolaTariffaTakesTextsThatReadAsNumbers)
{
    std::vector<Value> args{Value("5200"), Value("50"), Value(" onorariStrag2004euro "),
                            Value("0"),    Value("10"), Value("0"),
                            Value("0"),    Value("0"),  Value("0"),
                            Value("")};
    const DispatchResult r = CreateObject("AvlorLogic.ClsParcella")->invoke("CalcolaTariffa", args);
    EXPECT_EQ(valueOf(r).asCurrency().toFixed4(), "234.0000");
    EXPECT_EQ(args[6].asCurrency().toFixed4(), "312.0000");
}

TEST_F(LateBoundTest, CalcolaTariffaWithNothingToProposeShowsTheMessageAndAnswersZero)
{
    ScopedMessageRecorder messages;
    std::vector<Value> args{money("1000"), Value(50),  Value("TabellaInesistente"),
                            Value(false),  Value(1),   money("7"),
                            money("8"),    money("9"), money("10"),
                            Value("")};
    const DispatchResult r = CreateObject("AvlorLogic.ClsParcella")->invoke("CalcolaTariffa", args);
    EXPECT_EQ(valueOf(r).asCurrency().toFixed4(), "0.0000");
    // An unknown table sets no output: the caller's values stay.
    EXPECT_EQ(args[5].asCurrency().toFixed4(), "7.0000");
    EXPECT_EQ(args[8].asCurrency().toFixed4(), "10.0000");
    ASSERT_EQ(messages.recorder().shown().size(), 1u);
    EXPECT_EQ(messages.recorder().shown()[0].text,
              " codice <> non previsto per una pratica di questo valore.\rNessun valore proposto.");
    EXPECT_EQ(messages.recorder().shown()[0].title, "Attenzione");
}

TEST_F(LateBoundTest, CalcolaTariffaRefusesANullAmountBeforePricing)
{
    std::vector<Value> args{
        Value::null(), Value(50), Value("OnorariStrag2004Euro"), Value(false), Value(10), Value(0), Value(0), Value(0),
        Value(0),      Value("")};
    auto parcella = CreateObject("AvlorLogic.ClsParcella");
    EXPECT_THROW(parcella->invoke("CalcolaTariffa", args), ValueError);
}

TEST_F(LateBoundTest, ShowDialogParcellazioneWithoutADisplaySaysSo)
{
    test::EnvironmentGuard environment{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        test::EnvironmentGuard::unset(name);
    std::vector<Value> args{Value(1), Value("Rossi / Bianchi"), Value("Atto di citazione"),
                            Value(Date::fromYmd(2025, 3, 10))};
    auto parcella = CreateObject("AvlorLogic.ClsParcella");
    try {
        parcella->invoke("ShowDialogParcellazione", args);
        FAIL() << "the dialog was reported as shown";
    } catch (const Error& e) {
        EXPECT_NE(std::string(e.what()).find("non si può mostrare: non c'è uno schermo"), std::string::npos)
            << e.what();
    }
}

TEST_F(LateBoundTest, ShowDialogParcellazioneOpensTheWindowAndReturnsOnceItIsClosed)
{
    // A host with no Qt application of its own, on Qt's offscreen platform;
    // the window is closed as a user would close it, after a moment.
    test::EnvironmentGuard environment{"QT_QPA_PLATFORM", "AVLOR_UI_CLOSE_AFTER_MS", "AVLOR_SETTINGS"};
    test::EnvironmentGuard::set("QT_QPA_PLATFORM", "offscreen");
    test::EnvironmentGuard::set("AVLOR_UI_CLOSE_AFTER_MS", "200");
    test::EnvironmentGuard::set("AVLOR_SETTINGS", (db.folder() / "Avlor32.ini").string());
    db.exec("INSERT INTO Pratica (ID_Pra, Valore, Valuta, Cambio, Rilevanza, Autorita) VALUES (7, " +
            TestDatabase::amount("25000") + ", 'EURO', " + TestDatabase::amount("1") + ", 50, 'Tribunale')");
    const auto before = setMessageBoxes(nullptr);
    setMessageBoxes(before);
    std::vector<Value> args{Value(7), Value("Rossi / Bianchi"), Value("Atto di citazione"),
                            Value(Date::fromYmd(2025, 3, 10))};
    auto parcella = CreateObject("AvlorLogic.ClsParcella");
    // Twice: each call has a fresh dialog and its own application.
    EXPECT_NO_THROW(parcella->invoke("ShowDialogParcellazione", args));
    EXPECT_NO_THROW(parcella->invoke("ShowDialogParcellazione", args));
    // The message boxes in force before are back.
    EXPECT_EQ(setMessageBoxes(before), before);
}

TEST_F(LateBoundTest, UsersOperationsWithNumbersTextsAndNull)
{
    EXPECT_EQ(valueOf(call("AvlorLogic.clsUtenti", "GetSqlRiservatezza", {Value(5)})).asText(), "(0,5,9)");
    EXPECT_EQ(valueOf(call("AvlorLogic.clsUtenti", "GetSqlRiservatezza", {Value("5")})).asText(), "(0,5,9)");
    EXPECT_EQ(valueOf(call("AvlorLogic.clsUtenti", "GetLivelloRiservatezza", {Value(5)})).asLong(), 2);
    // A null id makes the statement fail; the level falls back to 1.
    EXPECT_EQ(valueOf(call("AvlorLogic.clsUtenti", "GetLivelloRiservatezza", {Value::null()})).asLong(), 1);

    const Collection groups = std::get<Collection>(call("AvlorLogic.clsUtenti", "GetGruppiUtente", {Value(5)}));
    ASSERT_EQ(groups.Count(), 2u);
    EXPECT_EQ(groups.Item(1).asText(), "Civile");
    EXPECT_EQ(groups.Item(2).asText(), "Tutti");

    const Collection members =
        std::get<Collection>(call("AvlorLogic.clsUtenti", "GetUtentiDelGruppo", {Value("Civile")}));
    ASSERT_EQ(members.Count(), 2u);
    EXPECT_EQ(members.Item(1).toLong(), 5);
    EXPECT_EQ(members.Item(2).toLong(), 9);

    EXPECT_EQ(valueOf(call("AvlorLogic.clsUtenti", "GetSqlFiltroPratiche", {Value(5)})).asText(),
              "((Id_Riservata IN (0,5))  AND (fk_Gruppo IS NULL))  OR ((Id_Riservata=0) AND (fk_Gruppo IN "
              "('Civile')))");
    EXPECT_EQ(valueOf(call("AvlorLogic.clsUtenti", "GetSqlFiltroAnagrafiche", {Value("9")})).asText(),
              "(IdRiservata IN (0,9) OR (fkGruppo  IN ('Civile')))");
    EXPECT_TRUE(valueOf(call("AvlorLogic.clsUtenti", "IsUtenteContabilita", {Value(5)})).asBoolean());
    EXPECT_FALSE(valueOf(call("AvlorLogic.clsUtenti", "IsUtenteContabilita", {Value::null()})).asBoolean());
    EXPECT_TRUE(valueOf(call("AvlorLogic.clsUtenti", "UtenteInGruppo", {Value(9), Value("Civile")})).asBoolean());
    EXPECT_FALSE(valueOf(call("AvlorLogic.clsUtenti", "UtenteInGruppo", {Value(9), Value("Tutti")})).asBoolean());
    // The filters raise a failure while reading the groups to the caller.
    EXPECT_THROW(call("AvlorLogic.clsUtenti", "GetSqlFiltroPratiche", {Value::null()}), DataError);
}

TEST_F(LateBoundTest, CountsAddOneAndLetErrorsThrough)
{
    EXPECT_EQ(valueOf(call("AvlorLogic.clsPratica", "QuantiClientiPerPratica", {Value(7)})).asLong(), 3);
    EXPECT_EQ(valueOf(call("AvlorLogic.clsPratica", "QuantiClientiPerPratica", {Value("7")})).asLong(), 3);
    EXPECT_EQ(valueOf(call("AvlorLogic.clsPratica", "QuanteControPartiPerPratica", {Value(7)})).asLong(), 2);
    EXPECT_EQ(valueOf(call("AvlorLogic.clsPratica", "QuantiClientiPerPratica", {Value(8)})).asLong(), 1);
    EXPECT_THROW(call("AvlorLogic.clsPratica", "QuantiClientiPerPratica", {Value::null()}), DataError);
}

TEST_F(LateBoundTest, VersionPersonAndInvoice)
{
    EXPECT_EQ(valueOf(call("AvlorLogic.clsDataBase", "VersioneMdb")).toLong(), 1);
    EXPECT_FALSE(valueOf(call("AvlorLogic.clsAnagrafica", "IsSoggettoGiuridico", {Value(1)})).toBool());
    EXPECT_TRUE(valueOf(call("AvlorLogic.clsAnagrafica", "IsSoggettoGiuridico", {Value("2")})).toBool());
    EXPECT_FALSE(valueOf(call("AvlorLogic.clsAnagrafica", "IsSoggettoGiuridico", {Value::null()})).toBool());
    EXPECT_EQ(valueOf(call("AvlorLogic.clsFatture", "GetResiduoFattura", {Value(4)})).asCurrency().toFixed4(),
              "1250.5000");
    EXPECT_TRUE(valueOf(call("AvlorLogic.clsFatture", "GetResiduoFattura", {Value(99)})).isEmpty());
    EXPECT_THROW(call("AvlorLogic.clsFatture", "GetResiduoFattura", {Value::null()}), DataError);
}

TEST_F(LateBoundTest, AnObjectKeepsNoStateBetweenCalls)
{
    // The same object answers from whatever database is current at each call.
    auto pratica = CreateObject("AvlorLogic.clsPratica");
    std::vector<Value> args{Value(7)};
    EXPECT_EQ(valueOf(pratica->invoke("QuantiClientiPerPratica", args)).asLong(), 3);
    {
        TestDatabase other;
        EXPECT_EQ(valueOf(pratica->invoke("QuantiClientiPerPratica", args)).asLong(), 1);
    }
    EXPECT_EQ(valueOf(pratica->invoke("QuantiClientiPerPratica", args)).asLong(), 3);
}

} // namespace
} // namespace avlor
