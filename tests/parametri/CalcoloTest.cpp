// Pricing with the shipped parameters, checked against amounts worked out
// by hand from the tables: a tribunale case of 30.000 euro at the average,
// at the limits and past them in each version, a giudice di pace case, an
// indeterminate value, a value above 520.000 euro, several clients, and the
// first day of each version with the day before; then every refusal with
// its exact words.
#include <gtest/gtest.h>

#include "avlor/parametri/Calcolo.h"
#include "avlor/parametri/ParametriFile.h"

namespace avlor::parametri {
namespace {

const std::vector<std::string> QuattroFasi = {"studio", "introduttiva", "istruttoria", "decisionale"};

Currency euro(std::string_view text) { return Currency::fromText(text); }

Richiesta richiesta(const std::string& data, const std::string& tabella, std::string_view valore,
                    std::vector<std::string> fasi = QuattroFasi)
{
    Richiesta r;
    r.data = Date::fromDayFirst(data);
    r.tabella = tabella;
    if (!valore.empty())
        r.valore = euro(valore);
    r.fasi = std::move(fasi);
    return r;
}

Risultato prezzo(const Richiesta& r) { return calcola(catalogoSpedito(), r); }

std::string rifiuto(const Richiesta& r)
{
    try {
        (void)prezzo(r);
    } catch (const ParametriError& e) {
        return e.what();
    }
    return "(nessun rifiuto)";
}

std::map<std::string, int> tutte(int studio, int introduttiva, int istruttoria, int decisionale)
{
    return {
        {"studio", studio}, {"introduttiva", introduttiva}, {"istruttoria", istruttoria}, {"decisionale", decisionale}};
}

void expectTotals(const Risultato& r, std::string_view somma, std::string_view spese, std::string_view totale)
{
    EXPECT_EQ(testoImporto(r.compenso), testoImporto(euro(somma)));
    EXPECT_EQ(testoImporto(r.speseGenerali), testoImporto(euro(spese)));
    EXPECT_EQ(testoImporto(r.totale), testoImporto(euro(totale)));
}

TEST(ParametriCalcolo, Tribunale2014AtTheAverage)
{
    const Risultato r = prezzo(richiesta("15/03/2016", "2", "30000"));
    EXPECT_EQ(r.versione, "2014");
    EXPECT_EQ(r.scaglione, "26.000,01 - 52.000,00 €");
    ASSERT_EQ(r.fasi.size(), 4U);
    EXPECT_EQ(r.fasi[0].fase, "Fase di studio della controversia");
    EXPECT_EQ(r.fasi[0].medio, euro("1620"));
    EXPECT_EQ(r.fasi[0].minimo, euro("810"));
    EXPECT_EQ(r.fasi[0].massimo, euro("2916"));
    EXPECT_EQ(r.fasi[1].minimo, euro("573.5"));
    EXPECT_EQ(r.fasi[1].massimo, euro("2064.6"));
    // The istruttoria phase has its own range before 2022: +100 % / -70 %.
    EXPECT_EQ(r.fasi[2].medio, euro("1720"));
    EXPECT_EQ(r.fasi[2].minimo, euro("516"));
    EXPECT_EQ(r.fasi[2].massimo, euro("3440"));
    EXPECT_EQ(r.fasi[3].scelto, euro("2767"));
    expectTotals(r, "7254", "1088.10", "8342.10");
    EXPECT_EQ(r.fasi[0].fonteCifra,
              "tabella 2, versione 2014, scaglione 26.000,01 - 52.000,00 €, fase «Fase di studio della controversia»: "
              "1.620,00 € (affidabilità alta)");
    EXPECT_EQ(r.fasi[0].provenienza, catalogoSpedito().trova("2014", "2")->fonte);
    EXPECT_EQ(r.provenienza, catalogoSpedito().trova("2014", "2")->fonte);
    EXPECT_NE(r.provenienza.find("Gazzetta Ufficiale"), std::string::npos) << r.provenienza;
    EXPECT_EQ(r.fonti,
              (std::vector<std::string>{"D.M. 55/2014, testo originale, tabella 2, versione 2014, affidabilità alta"}));
    EXPECT_NE(r.fasi[2].regolaLimiti.find("art. 4 c.1, ultimo periodo"), std::string::npos);
    EXPECT_NE(r.regolaSpeseGenerali.find("art. 2 c.2"), std::string::npos);
    EXPECT_EQ(r.affidabilita, "alta");
}

// The phases summed at their minimum, average and maximum beside the sum
// of the amounts chosen, each exact.
TEST(ParametriCalcolo, SumsTheMinimaAveragesAndMaxima)
{
    Richiesta old = richiesta("15/03/2016", "2", "30000");
    old.percentuali = {{"istruttoria", 2000}};
    const Risultato r2014 = prezzo(old);
    EXPECT_EQ(r2014.sommaMinimi, euro("3283"));
    EXPECT_EQ(r2014.sommaMedi, euro("7254"));
    EXPECT_EQ(r2014.sommaMassimi, euro("13401.2"));
    EXPECT_EQ(r2014.sommaFasi, euro("7598"));
    const Risultato r2022 = prezzo(richiesta("15/03/2024", "2", "30000"));
    EXPECT_EQ(r2022.sommaMinimi, euro("3808"));
    EXPECT_EQ(r2022.sommaMedi, euro("7616"));
    EXPECT_EQ(r2022.sommaMassimi, euro("11424"));
    const Risultato doubled = prezzo(richiesta("15/03/2024", "2", "1200000", {"studio", "introduttiva"}));
    EXPECT_EQ(doubled.sommaMedi, euro("9940.58"));
    EXPECT_EQ(doubled.sommaMinimi, euro("4970.29"));
    EXPECT_EQ(doubled.sommaMassimi, euro("14910.87"));
}

// Invoices and published computations round to the cent with halves up:
// 15 % of 437,50 is 65,625 and reads 65,63. The amounts stay exact.
TEST(ParametriCalcolo, ShownAmountsRoundHalvesUp)
{
    EXPECT_EQ(testoImporto(euro("18976.165")), "18.976,17");
    EXPECT_EQ(testoImportoPunto(euro("18976.165")), "18976.17");
    EXPECT_EQ(testoImporto(euro("18976.1649")), "18.976,16");
    EXPECT_EQ(testoImporto(euro("0.005")), "0,01");
    EXPECT_EQ(testoImporto(euro("-65.625")), "-65,63");
    EXPECT_EQ(testoImporto(euro("0.0049")), "0,00");
    EXPECT_EQ(testoImporto(euro("1234567.89")), "1.234.567,89");

    Richiesta r = richiesta("15/03/2016", "2", "10000", {"studio"});
    r.percentuali = {{"studio", -5000}};
    const Risultato half = prezzo(r);
    EXPECT_EQ(half.compenso, euro("437.50"));
    EXPECT_EQ(half.speseGenerali, euro("65.625"));
    EXPECT_EQ(half.totale, euro("503.125"));
    EXPECT_EQ(testoImporto(half.speseGenerali), "65,63");
    EXPECT_EQ(testoImporto(half.totale), "503,13");
}

TEST(ParametriCalcolo, Tribunale2014AtTheLimits)
{
    Richiesta up = richiesta("15/03/2016", "2", "30000");
    up.percentuali = tutte(8000, 8000, 10000, 8000);
    expectTotals(prezzo(up), "13401.20", "2010.18", "15411.38");
    Richiesta down = richiesta("15/03/2016", "2", "30000");
    down.percentuali = tutte(-5000, -5000, -7000, -5000);
    expectTotals(prezzo(down), "3283", "492.45", "3775.45");
}

TEST(ParametriCalcolo, Tribunale2014PastTheLimits)
{
    Richiesta r = richiesta("15/03/2016", "2", "30000");
    r.percentuali = {{"istruttoria", 10100}};
    EXPECT_EQ(rifiuto(r),
              "L'aumento del 101% della fase «Fase istruttoria e/o di trattazione» supera il limite del "
              "100% (art. 4 c.1, ultimo periodo, versione 2014)");
    r.percentuali = {{"studio", 8100}};
    EXPECT_EQ(rifiuto(r),
              "L'aumento dell'81% della fase «Fase di studio della controversia» supera il limite "
              "dell'80% (art. 4 c.1, versione 2014)");
    r.percentuali = {{"decisionale", -5100}};
    EXPECT_EQ(rifiuto(r),
              "La diminuzione del 51% della fase «Fase decisionale» supera il limite del 50% (art. 4 "
              "c.1, versione 2014)");
    r.percentuali = {{"istruttoria", -7100}};
    EXPECT_EQ(rifiuto(r),
              "La diminuzione del 71% della fase «Fase istruttoria e/o di trattazione» supera il "
              "limite del 70% (art. 4 c.1, ultimo periodo, versione 2014)");
}

TEST(ParametriCalcolo, Tribunale2018)
{
    const Risultato r = prezzo(richiesta("27/04/2018", "2", "30000"));
    EXPECT_EQ(r.versione, "2018");
    expectTotals(r, "7254", "1088.10", "8342.10");
    Richiesta up = richiesta("01/06/2020", "2", "30000");
    up.percentuali = tutte(8000, 8000, 10000, 8000);
    expectTotals(prezzo(up), "13401.20", "2010.18", "15411.38");
    up.percentuali = {{"istruttoria", 10100}};
    EXPECT_EQ(rifiuto(up),
              "L'aumento del 101% della fase «Fase istruttoria e/o di trattazione» supera il limite "
              "del 100% (art. 4 c.1, ultimo periodo, versione 2018)");
}

TEST(ParametriCalcolo, Tribunale2022)
{
    const Risultato r = prezzo(richiesta("15/03/2024", "2", "30000"));
    EXPECT_EQ(r.versione, "2022");
    EXPECT_EQ(r.fasi[2].minimo, euro("903"));
    EXPECT_EQ(r.fasi[2].massimo, euro("2709"));
    expectTotals(r, "7616", "1142.40", "8758.40");

    Richiesta up = richiesta("15/03/2024", "2", "30000");
    up.percentuali = tutte(5000, 5000, 5000, 5000);
    expectTotals(prezzo(up), "11424", "1713.60", "13137.60");
    Richiesta down = richiesta("15/03/2024", "2", "30000");
    down.percentuali = tutte(-5000, -5000, -5000, -5000);
    expectTotals(prezzo(down), "3808", "571.20", "4379.20");
    Richiesta some = richiesta("15/03/2024", "2", "30000");
    some.percentuali = {{"istruttoria", 2000}};
    const Risultato chosen = prezzo(some);
    EXPECT_EQ(chosen.fasi[2].scelto, euro("2167.2"));
    expectTotals(chosen, "7977.20", "1196.58", "9173.78");

    // Since 2022 the istruttoria phase keeps within ±50 % like the others.
    Richiesta past = richiesta("15/03/2024", "2", "30000");
    past.percentuali = {{"istruttoria", 5100}};
    EXPECT_EQ(rifiuto(past),
              "L'aumento del 51% della fase «Fase istruttoria e/o di trattazione» supera il limite "
              "del 50% (art. 4 c.1 come modificato dal D.M. 147/2022, versione 2022)");
    past.percentuali = {{"studio", -5001}};
    EXPECT_EQ(rifiuto(past),
              "La diminuzione del 50,01% della fase «Fase di studio della controversia» supera il "
              "limite del 50% (art. 4 c.1 come modificato dal D.M. 147/2022, versione 2022)");
}

TEST(ParametriCalcolo, GiudiceDiPace)
{
    expectTotals(prezzo(richiesta("15/03/2016", "1", "3000")), "1205", "180.75", "1385.75");
    expectTotals(prezzo(richiesta("15/03/2024", "1", "3000")), "1265", "189.75", "1454.75");
    EXPECT_EQ(rifiuto(richiesta("15/03/2016", "1", "30000")),
              "La tabella 1 (versione 2014) ha scaglioni fino a 26.000,00 €: nessuno contiene il valore 30.000,00 €");
}

TEST(ParametriCalcolo, IndeterminateValue)
{
    Richiesta r = richiesta("15/03/2024", "2", "");
    r.indeterminabile = Indeterminabile::Bassa;
    EXPECT_EQ(prezzo(r).compenso, euro("7616"));
    r.indeterminabile = Indeterminabile::Alta;
    const Risultato alta = prezzo(r);
    EXPECT_EQ(alta.scaglione, "52.000,01 - 260.000,00 €");
    EXPECT_EQ(alta.compenso, euro("14103"));
    EXPECT_NE(alta.regolaScaglione.find("art. 5 c.6"), std::string::npos);
    r.indeterminabile = Indeterminabile::ParticolareImportanza;
    EXPECT_EQ(prezzo(r).compenso, euro("22457"));
}

TEST(ParametriCalcolo, ValueAboveTheLastBracketByDoubling)
{
    const Risultato r = prezzo(richiesta("15/03/2024", "2", "1200000"));
    EXPECT_EQ(r.raddoppi, 2);
    EXPECT_EQ(r.scaglione, "260.000,01 - 520.000,00 €");
    EXPECT_EQ(r.fasi[0].cifra, euro("3544"));
    EXPECT_EQ(r.fasi[0].medio, euro("5989.36"));
    EXPECT_EQ(r.fasi[1].medio, euro("3951.22"));
    EXPECT_EQ(r.fasi[2].medio, euro("17594.59"));
    EXPECT_EQ(r.fasi[3].medio, euro("10417.16"));
    EXPECT_EQ(r.compenso, euro("37952.33"));
    // Exact inside, to the cent where read.
    EXPECT_EQ(r.speseGenerali, euro("5692.8495"));
    EXPECT_EQ(testoImporto(r.speseGenerali), "5.692,85");
    EXPECT_EQ(testoImporto(r.totale), "43.645,18");
    EXPECT_NE(r.regolaScaglione.find("art. 6"), std::string::npos);

    const Risultato old = prezzo(richiesta("15/03/2016", "2", "1200000"));
    EXPECT_EQ(old.compenso, euro("36144.03"));
    EXPECT_EQ(testoImporto(old.speseGenerali), "5.421,60");

    EXPECT_EQ(prezzo(richiesta("15/03/2024", "2", "520000")).raddoppi, 0);
    EXPECT_EQ(prezzo(richiesta("15/03/2024", "2", "520000.01")).raddoppi, 1);
    EXPECT_EQ(prezzo(richiesta("15/03/2024", "2", "1000000")).raddoppi, 1);
    EXPECT_EQ(prezzo(richiesta("15/03/2024", "2", "1000000.01")).raddoppi, 2);
    EXPECT_EQ(prezzo(richiesta("15/03/2024", "2", "8000000.01")).raddoppi, 5);
    EXPECT_EQ(prezzo(richiesta("15/03/2024", "2", "520000.01")).fasi[0].medio, euro("4607.2"));
}

TEST(ParametriCalcolo, SeveralClients)
{
    Richiesta r = richiesta("15/03/2024", "2", "30000");
    r.clienti = 3;
    const Risultato three = prezzo(r);
    EXPECT_EQ(three.percentualeClienti, 6000);
    EXPECT_EQ(three.aumentoClienti, euro("4569.6"));
    expectTotals(three, "12185.60", "1827.84", "14013.44");
    r.clienti = 12; // 9 × 30 % + 2 × 10 %
    EXPECT_EQ(prezzo(r).percentualeClienti, 29000);

    Richiesta old = richiesta("15/03/2016", "2", "30000");
    old.clienti = 3;
    expectTotals(prezzo(old), "10155.60", "1523.34", "11678.94");
    old.clienti = 12; // 9 × 20 % + 2 × 5 %
    EXPECT_EQ(prezzo(old).percentualeClienti, 19000);
    old.clienti = 25; // no more than twenty count
    const Risultato many = prezzo(old);
    EXPECT_EQ(many.percentualeClienti, 23000);
    ASSERT_EQ(many.avvertenze.size(), 1U);
    EXPECT_EQ(many.avvertenze[0], "Oltre il cliente n. 20 la regola non aumenta ulteriormente il compenso");
}

TEST(ParametriCalcolo, FirstDayOfEachVersionAndTheDayBefore)
{
    EXPECT_EQ(prezzo(richiesta("03/04/2014", "2", "30000")).versione, "2014");
    EXPECT_EQ(rifiuto(richiesta("02/04/2014", "2", "30000")),
              "La data 02/04/2014 è anteriore al 3 aprile 2014, giorno in cui i parametri del D.M. 55/2014 sono "
              "entrati in vigore: quel lavoro si valuta con le tariffe storiche del 1994 e del 2004 (avlor tariffe)");
    EXPECT_EQ(prezzo(richiesta("26/04/2018", "2", "30000")).versione, "2014");
    EXPECT_EQ(prezzo(richiesta("27/04/2018", "2", "30000")).versione, "2018");
    EXPECT_EQ(prezzo(richiesta("22/10/2022", "2", "30000")).versione, "2018");
    const Risultato first = prezzo(richiesta("23/10/2022", "2", "30000"));
    EXPECT_EQ(first.versione, "2022");
    EXPECT_EQ(first.compenso, euro("7616"));
}

TEST(ParametriCalcolo, CriminalTableWithoutBrackets)
{
    const Risultato r = prezzo(richiesta("15/03/2016", "15", "",
                                         {"giudice di pace studio", "giudice di pace introduttiva",
                                          "giudice di pace istruttoria", "giudice di pace decisionale"}));
    EXPECT_EQ(r.scaglione, "senza scaglioni");
    EXPECT_EQ(r.compenso, euro("2160"));
    EXPECT_EQ(r.fasi[2].massimo, euro("1296")); // art. 12: +80 %, no special istruttoria range
}

// A criminal phase named by the words of one authority is that authority's,
// even when a longer authority's name holds the same words; words that fit
// several authorities alike are refused.
TEST(ParametriCalcolo, PhaseNamedByTheWordsOfOneAuthority)
{
    const auto fase = [](const std::string& data, const std::string& tabella, const std::string& parole) {
        return prezzo(richiesta(data, tabella, "", {parole})).fasi.at(0).fase;
    };
    EXPECT_EQ(fase("15/03/2016", "15", "corte di assise studio"),
              "Corte di assise - Fase di studio della controversia");
    EXPECT_EQ(fase("15/03/2016", "15", "Corte di assise decisionale"), "Corte di assise - Fase decisionale");
    EXPECT_EQ(fase("15/03/2016", "15", "corte di assise d'appello studio"),
              "Corte di assise d'appello - Fase di studio della controversia");
    EXPECT_EQ(fase("15/03/2016", "15", "corte di assise d appello decisionale"),
              "Corte di assise d'appello - Fase decisionale");
    EXPECT_EQ(fase("10/05/2019", "15", "corte d'appello studio"),
              "Corte d'appello - Fase di studio della controversia");
    EXPECT_EQ(fase("15/03/2016", "15", "assise appello introduttiva"),
              "Corte di assise d'appello - Fase introduttiva del giudizio");
    // A name the others only add words to.
    Richiesta tar = richiesta("15/03/2024", "21", "30000", {"cautelare"});
    EXPECT_EQ(prezzo(tar).fasi.at(0).fase, "Fase cautelare");
    tar.fasi = {"cautelare monocratica"};
    EXPECT_EQ(prezzo(tar).fasi.at(0).fase, "Fase cautelare monocratica");

    EXPECT_EQ(rifiuto(richiesta("15/03/2016", "15", "", {"tribunale studio"})),
              "«tribunale studio» indica più fasi della tabella 15 (versione 2014): «Tribunale monocratico - Fase "
              "di studio della controversia», «Tribunale collegiale - Fase di studio della controversia», «Tribunale "
              "di sorveglianza - Fase di studio della controversia»; indicarne una sola");
    EXPECT_EQ(rifiuto(richiesta("15/03/2016", "15", "", {"corte decisionale"})),
              "«corte decisionale» indica più fasi della tabella 15 (versione 2014): «Corte di assise - Fase "
              "decisionale», «Corte d'appello - Fase decisionale», «Corte di assise d'appello - Fase decisionale», "
              "«Corte di cassazione e giurisdizioni superiori - Fase decisionale»; indicarne una sola");
}

TEST(ParametriCalcolo, Refusals)
{
    EXPECT_EQ(rifiuto(richiesta("15/03/2024", "25", "30000", {"compenso"})),
              "La versione 2022 dei parametri, in vigore il 15/03/2024, non ha la tabella 25 tra le cifre caricate: "
              "il compenso non si calcola per stima");
    EXPECT_EQ(rifiuto(richiesta("15/03/2024", "15", "", {"giudice di pace studio"})),
              "La tabella 15 della versione 2022 non è verificata (affidabilità bassa): le sue cifre non si "
              "presentano come ufficiali e il compenso non si calcola con esse");
    EXPECT_EQ(rifiuto(richiesta("15/03/2024", "6", "3000", {"compenso"})),
              "Manca la cifra della tabella 6 (versione 2022) per il valore 3.000,00 €: lo scaglione che lo "
              "contiene non è tra le cifre caricate e il compenso non si calcola per stima");
    EXPECT_EQ(rifiuto(richiesta("15/03/2024", "27", "3000")),
              "«27» non è una tabella dei parametri: le tabelle sono numerate da 1 a 26, con 20-bis e 25-bis");
    EXPECT_EQ(rifiuto(richiesta("15/03/2024", "2", "30000", {"studio", "xyz"})),
              "La tabella 2 (versione 2022) non ha una fase «xyz»; le sue fasi sono: «Fase di studio della "
              "controversia», «Fase introduttiva del giudizio», «Fase istruttoria e/o di trattazione», «Fase "
              "decisionale»");
    EXPECT_EQ(rifiuto(richiesta("15/03/2024", "2", "30000", {"del"})),
              "«del» indica più fasi della tabella 2 (versione 2022): «Fase di studio della controversia», «Fase "
              "introduttiva del giudizio»; indicarne una sola");
    EXPECT_EQ(rifiuto(richiesta("15/03/2024", "2", "30000", {"studio", "Fase di studio della controversia"})),
              "La fase «Fase di studio della controversia» è indicata più di una volta");
    EXPECT_EQ(rifiuto(richiesta("15/03/2024", "2", "30000", {})), "Indicare almeno una fase svolta");
    EXPECT_EQ(rifiuto(richiesta("15/03/2024", "2", "0")), "Il valore della causa deve essere maggiore di zero");
    EXPECT_EQ(rifiuto(richiesta("15/03/2024", "2", "")),
              "La tabella 2 ha scaglioni di valore: indicare il valore della causa o che è indeterminabile");
    Richiesta both = richiesta("15/03/2024", "2", "30000");
    both.indeterminabile = Indeterminabile::Alta;
    EXPECT_EQ(rifiuto(both), "Indicare il valore della causa oppure che è indeterminabile, non entrambi");
    Richiesta clients = richiesta("15/03/2024", "2", "30000");
    clients.clienti = 0;
    EXPECT_EQ(rifiuto(clients), "Il numero dei clienti deve essere almeno 1");
    Richiesta notDone = richiesta("15/03/2024", "2", "30000", {"studio"});
    notDone.percentuali = {{"decisionale", 1000}};
    EXPECT_EQ(rifiuto(notDone),
              "La percentuale è indicata per la fase «Fase decisionale», che non è tra le fasi svolte");
    Richiesta outOfCourt = richiesta("15/03/2016", "25", "30000", {"compenso"});
    outOfCourt.clienti = 2;
    EXPECT_EQ(rifiuto(outOfCourt),
              "L'aumento per più clienti non è tra le regole caricate per la tabella 25: indicare un solo cliente");
}

TEST(ParametriCalcolo, MissingFigureOfABracketIsNamed)
{
    Catalogo catalogo;
    Tabella t;
    t.versione = "2022";
    t.numero = "3";
    t.affidabilita = "alta";
    t.cifre.push_back({euro("0.01"), euro("1100"), "Fase di studio della controversia", euro("100"), "prova", "alta"});
    t.cifre.push_back({euro("0.01"), euro("1100"), "Fase decisionale", euro("100"), "prova", "alta"});
    t.cifre.push_back(
        {euro("1100.01"), euro("5200"), "Fase di studio della controversia", euro("200"), "prova", "alta"});
    catalogo.tabelle.push_back(t);
    Richiesta r = richiesta("15/03/2024", "3", "2000", {"studio", "decisionale"});
    try {
        (void)calcola(catalogo, r);
        FAIL();
    } catch (const ParametriError& e) {
        EXPECT_EQ(std::string(e.what()),
                  "Manca la cifra della tabella 3 (versione 2022), scaglione 1.100,01 - "
                  "5.200,00 €, fase «Fase decisionale»: il compenso non si calcola per stima");
    }
    r.fasi = {"studio"};
    EXPECT_EQ(calcola(catalogo, r).compenso, euro("200"));
}

TEST(ParametriCalcolo, ParsesPercentagesAndComplexity)
{
    EXPECT_EQ(percentuale("+20"), 2000);
    EXPECT_EQ(percentuale("-12,5"), -1250);
    EXPECT_EQ(percentuale("30%"), 3000);
    EXPECT_EQ(percentuale("7.25"), 725);
    EXPECT_EQ(testoPercentuale(-1250), "-12,5%");
    EXPECT_EQ(testoPercentuale(2000), "+20%");
    EXPECT_THROW((void)percentuale("venti"), ParametriError);
    EXPECT_THROW((void)percentuale("+1,234"), ParametriError);
    try {
        (void)indeterminabile("media");
        FAIL();
    } catch (const ParametriError& e) {
        EXPECT_EQ(std::string(e.what()),
                  "«media» non è una complessità di valore indeterminabile: indicare bassa (26.000,01 - 52.000 €), "
                  "alta (52.000,01 - 260.000 €) o particolare (260.000,01 - 520.000 €, cause di particolare "
                  "importanza)");
    }
}

} // namespace
} // namespace avlor::parametri
