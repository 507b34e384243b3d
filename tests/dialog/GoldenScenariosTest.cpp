// Whole scenarios driven through the dialog's events, compared with the
// whole state of its controls and form and with every message shown.
#include "DialogFixture.h"
#include "Snapshot.h"

namespace avlor::test {
namespace {

class GoldenScenarios : public DialogTest {
protected:
    void SetUp() override
    {
        DialogTest::SetUp();
        addUser(1, "Avv. Rossi", "150", "250000");
        addUser(2, "Dott. Verdi", "80", "120000");
    }
};

TEST_F(GoldenScenarios, EuroCaseAfterJune2004)
{
    addCase(7, "NULL", "EURO", 50, "Tribunale");
    addItem("Diritti2004Euro", 391, "D01", "Posizione e archivio");
    Action first;
    first.nOrdine = 1;
    first.data = "10/01/2005";
    first.codice = "D01";
    first.descr = "Posizione e archivio";
    first.diritti = "1234.5";
    addAction(first);

    const auto form = open(7, "15/03/2005");
    EXPECT_EQ(describe(*form),
              R"(lblClienteContro: caption="Rossi Mario / Bianchi SpA"
lblAdempimento: caption="Atto di citazione"
optDiritti: on
fraDescrizione: hidden
FData: text="15/03/2005"
FNumOrdine: text="2"
FQuantita: text="1"
FImporto: currency="EURO"@1936.27
FImponibili: currency="EURO"@1936.27
FEsenti: currency="EURO"@1936.27
FDenMinT: currency="EURO"@1936.27
FDenMaxT: currency="EURO"@1936.27
FDenMinS: currency="EURO"@1936.27
FDenMaxS: currency="EURO"@1936.27
fraEseguito: hidden
cmbEseguito: text="Avv. Rossi" current=0
  1 ["Avv. Rossi", "150,00", "250.000"]
  2 ["Dott. Verdi", "80,00", "120.000"]
fraTempo: hidden
GrigliaParcella: columns=["IDAZIONE", "", "", "Data", "Azione", "", "Diritti", "Onorari  ", "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM", "IdEseguito", "IsNotaSpese"] current=0
  ["1", "False", "1", "10/01/2005", "Posizione e archivio", "1", "€  1.234,50", "0", "0", "0", "Avv. Rossi", "", "1", "0"]
--
idPratica=7 sParti="Rossi Mario / Bianchi SpA" sAdempEff="Atto di citazione" sData="15/03/2005" idUtenteCorrente=1
Valore=0.0000 bIndeterminato=1 Rilevanza=50 Autorita="Tribunale" ValutaPratica="EURO" CambioPratica=1936.2700
ValutaDefault="EURO" CambioLiraEuro=1936.2700 sTabella="Diritti2004Euro" NomiCampi=14
bModifica=0 idAzioneCorrente=0 idTariffa=0 ImportoVoce=0.0000 ArrayAzioni=1
idEseguitoDa=1 TariffaEuro=150.0000 TariffaLira=250000.0000
)");
    form->open("cmbCodice");
    form->choose("cmbCodice", 0);
    EXPECT_EQ(describe(*form),
              R"(lblClienteContro: caption="Rossi Mario / Bianchi SpA"
lblAdempimento: caption="Atto di citazione"
optDiritti: on
cmbCodice: text="D01" current=0
  391 ["D01", "Posizione e archivio"]
cmbVoce: text="Posizione e archivio"
fraDescrizione: hidden
FData: text="15/03/2005"
FNumOrdine: text="2"
FQuantita: text="1"
FImporto: text="20,00" currency="EURO"@1936.27
FImponibili: currency="EURO"@1936.27
FEsenti: currency="EURO"@1936.27
FDenMinT: text="30,00" currency="EURO"@1936.27
FDenMaxT: text="10,00" currency="EURO"@1936.27
FDenMinS: text=",00" currency="EURO"@1936.27
FDenMaxS: text=",00" currency="EURO"@1936.27
fraEseguito: hidden
cmbEseguito: text="Avv. Rossi" current=0
  1 ["Avv. Rossi", "150,00", "250.000"]
  2 ["Dott. Verdi", "80,00", "120.000"]
fraTempo: hidden
GrigliaParcella: columns=["IDAZIONE", "", "", "Data", "Azione", "", "Diritti", "Onorari  ", "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM", "IdEseguito", "IsNotaSpese"] current=0
  ["1", "False", "1", "10/01/2005", "Posizione e archivio", "1", "€  1.234,50", "0", "0", "0", "Avv. Rossi", "", "1", "0"]
--
idPratica=7 sParti="Rossi Mario / Bianchi SpA" sAdempEff="Atto di citazione" sData="15/03/2005" idUtenteCorrente=1
Valore=0.0000 bIndeterminato=1 Rilevanza=50 Autorita="Tribunale" ValutaPratica="EURO" CambioPratica=1936.2700
ValutaDefault="EURO" CambioLiraEuro=1936.2700 sTabella="Diritti2004Euro" NomiCampi=14
bModifica=0 idAzioneCorrente=0 idTariffa=391 ImportoVoce=20.0000 ArrayAzioni=1
idEseguitoDa=1 TariffaEuro=150.0000 TariffaLira=250000.0000
)");
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

TEST_F(GoldenScenarios, EuroCaseBeforeJune2004)
{
    addCase(7, "NULL", "EURO", 0, "Tribunale");
    addItem("Diritti94Euro", 132, "D132", "Sessione");
    const auto form = open(7, "01/06/2004");
    form->open("cmbVoce");
    form->choose("cmbVoce", 0);
    EXPECT_EQ(describe(*form),
              R"(lblClienteContro: caption="Rossi Mario / Bianchi SpA"
lblAdempimento: caption="Atto di citazione"
optDiritti: on
cmbCodice: text="D132"
cmbVoce: text="Sessione" current=0
  132 ["Sessione", "D132", ""]
fraDescrizione: hidden
FData: text="01/06/2004"
FNumOrdine: text="1"
FQuantita: text="1"
FImporto: text="7,75" currency="EURO"@1936.27
FImponibili: currency="EURO"@1936.27
FEsenti: currency="EURO"@1936.27
FDenMinT: text="7,75" currency="EURO"@1936.27
FDenMaxT: text="25,82" currency="EURO"@1936.27
FDenMinS: text=",00" currency="EURO"@1936.27
FDenMaxS: text=",00" currency="EURO"@1936.27
fraEseguito: hidden
cmbEseguito: text="Avv. Rossi" current=0
  1 ["Avv. Rossi", "150,00", "250.000"]
  2 ["Dott. Verdi", "80,00", "120.000"]
fraTempo: hidden
GrigliaParcella: columns=["IDAZIONE", "", "", "Data", "Azione", "", "Diritti", "Onorari  ", "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM", "IdEseguito", "IsNotaSpese"]
--
idPratica=7 sParti="Rossi Mario / Bianchi SpA" sAdempEff="Atto di citazione" sData="01/06/2004" idUtenteCorrente=1
Valore=0.0000 bIndeterminato=1 Rilevanza=0 Autorita="Tribunale" ValutaPratica="EURO" CambioPratica=1936.2700
ValutaDefault="EURO" CambioLiraEuro=1936.2700 sTabella="Diritti94Euro" NomiCampi=14
bModifica=0 idAzioneCorrente=0 idTariffa=132 ImportoVoce=7.7500 ArrayAzioni=0
idEseguitoDa=1 TariffaEuro=150.0000 TariffaLira=250000.0000
)");
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

TEST_F(GoldenScenarios, LireFirm)
{
    setDefaultCurrency("LIRA");
    addCase(7, "NULL", "LIRA", 37, "Pretura");
    addItem("Diritti94", 132, "D132", "Sessione");
    Action old;
    old.data = "12/12/1996";
    old.valuta = "LIRA";
    old.descr = "Esame";
    old.diritti = "12345.60";
    old.imponibili = "5000";
    addAction(old);
    const auto form = open(7, "20/01/1997");
    form->open("cmbCodice");
    form->choose("cmbCodice", 0);
    EXPECT_EQ(describe(*form),
              R"(lblClienteContro: caption="Rossi Mario / Bianchi SpA"
lblAdempimento: caption="Atto di citazione"
optDiritti: on
cmbCodice: text="D132" current=0
  132 ["D132", "Sessione"]
cmbVoce: text="Sessione"
fraDescrizione: hidden
FData: text="20/01/1997"
FNumOrdine: text="2"
FQuantita: text="1"
FImporto: text="30.000" currency="LIRA"@1936.27
FImponibili: currency="LIRA"@1936.27
FEsenti: currency="LIRA"@1936.27
FDenMinT: text="15.000" currency="LIRA"@1936.27
FDenMaxT: text="50.000" currency="LIRA"@1936.27
FDenMinS: currency="LIRA"@1936.27
FDenMaxS: currency="LIRA"@1936.27
fraEseguito: hidden
cmbEseguito: text="Avv. Rossi" current=0
  1 ["Avv. Rossi", "150,00", "250.000"]
  2 ["Dott. Verdi", "80,00", "120.000"]
fraTempo: hidden
GrigliaParcella: columns=["IDAZIONE", "", "", "Data", "Azione", "", "Diritti", "Onorari  ", "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM", "IdEseguito", "IsNotaSpese"] current=0
  ["1", "False", "1", "12/12/1996", "Esame", "1", "L. 12.346", "0", "L. 5.000", "0", "Avv. Rossi", "", "1", "0"]
--
idPratica=7 sParti="Rossi Mario / Bianchi SpA" sAdempEff="Atto di citazione" sData="20/01/1997" idUtenteCorrente=1
Valore=0.0000 bIndeterminato=1 Rilevanza=37 Autorita="Pretura" ValutaPratica="LIRA" CambioPratica=1936.2700
ValutaDefault="LIRA" CambioLiraEuro=1936.2700 sTabella="Diritti94" NomiCampi=14
bModifica=0 idAzioneCorrente=0 idTariffa=132 ImportoVoce=30000.0000 ArrayAzioni=1
idEseguitoDa=1 TariffaEuro=150.0000 TariffaLira=250000.0000
)");
    // In lire a new date keeps the item and its amounts.
    form->typeText("FData", "21/01/1997");
    EXPECT_EQ(describe(*form),
              R"(lblClienteContro: caption="Rossi Mario / Bianchi SpA"
lblAdempimento: caption="Atto di citazione"
optDiritti: on
cmbCodice: text="D132" current=0
  132 ["D132", "Sessione"]
cmbVoce: text="Sessione"
fraDescrizione: hidden
FData: text="21/01/1997"
FNumOrdine: text="2"
FQuantita: text="1"
FImporto: text="30.000" currency="LIRA"@1936.27
FImponibili: currency="LIRA"@1936.27
FEsenti: currency="LIRA"@1936.27
FDenMinT: text="15.000" currency="LIRA"@1936.27
FDenMaxT: text="50.000" currency="LIRA"@1936.27
FDenMinS: currency="LIRA"@1936.27
FDenMaxS: currency="LIRA"@1936.27
fraEseguito: hidden
cmbEseguito: text="Avv. Rossi" current=0
  1 ["Avv. Rossi", "150,00", "250.000"]
  2 ["Dott. Verdi", "80,00", "120.000"]
fraTempo: hidden
GrigliaParcella: columns=["IDAZIONE", "", "", "Data", "Azione", "", "Diritti", "Onorari  ", "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM", "IdEseguito", "IsNotaSpese"] current=0
  ["1", "False", "1", "12/12/1996", "Esame", "1", "L. 12.346", "0", "L. 5.000", "0", "Avv. Rossi", "", "1", "0"]
--
idPratica=7 sParti="Rossi Mario / Bianchi SpA" sAdempEff="Atto di citazione" sData="20/01/1997" idUtenteCorrente=1
Valore=0.0000 bIndeterminato=1 Rilevanza=37 Autorita="Pretura" ValutaPratica="LIRA" CambioPratica=1936.2700
ValutaDefault="LIRA" CambioLiraEuro=1936.2700 sTabella="Diritti94" NomiCampi=14
bModifica=0 idAzioneCorrente=0 idTariffa=132 ImportoVoce=30000.0000 ArrayAzioni=1
idEseguitoDa=1 TariffaEuro=150.0000 TariffaLira=250000.0000
)");
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

TEST_F(GoldenScenarios, CriminalCaseWithoutAuthority)
{
    addCase(7, "NULL", "EURO", 0, "NULL");
    addItem("OnorariPenali2004Euro", 5, "P05", "Udienza", "Tribunale");
    const auto form = open(7, "15/03/2005");
    form->click("optPenale");
    form->open("cmbCodice");
    form->choose("cmbCodice", 0);
    EXPECT_EQ(describe(*form),
              R"(lblClienteContro: caption="Rossi Mario / Bianchi SpA"
lblAdempimento: caption="Atto di citazione"
optPenale: on
cmbCodice: text="P05" current=0
  5 ["P05", "Udienza"]
cmbVoce: text="Udienza"
fraDescrizione: hidden
FData: text="15/03/2005"
FNumOrdine: text="1"
FQuantita: text="1"
FImporto: text=",00" currency="EURO"@1936.27
FImponibili: currency="EURO"@1936.27
FEsenti: currency="EURO"@1936.27
FDenMinT: text=",00" currency="EURO"@1936.27
FDenMaxT: text=",00" currency="EURO"@1936.27
FDenMinS: text=",00" currency="EURO"@1936.27
FDenMaxS: text=",00" currency="EURO"@1936.27
fraEseguito: hidden
cmbEseguito: text="Avv. Rossi" current=0
  1 ["Avv. Rossi", "150,00", "250.000"]
  2 ["Dott. Verdi", "80,00", "120.000"]
fraTempo: hidden
GrigliaParcella: columns=["IDAZIONE", "", "", "Data", "Azione", "", "Diritti", "Onorari  ", "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM", "IdEseguito", "IsNotaSpese"]
--
idPratica=7 sParti="Rossi Mario / Bianchi SpA" sAdempEff="Atto di citazione" sData="15/03/2005" idUtenteCorrente=1
Valore=0.0000 bIndeterminato=1 Rilevanza=0 Autorita="" ValutaPratica="EURO" CambioPratica=1936.2700
ValutaDefault="EURO" CambioLiraEuro=1936.2700 sTabella="OnorariPenali2004Euro" NomiCampi=14
bModifica=0 idAzioneCorrente=0 idTariffa=5 ImportoVoce=0.0000 ArrayAzioni=0
idEseguitoDa=1 TariffaEuro=150.0000 TariffaLira=250000.0000
)");
    // The warning comes when the list opens; without an authority the engine
    // then proposes nothing and says so.
    EXPECT_EQ(messages(),
              (std::vector<Shown>{information("ATTENZIONE : Non e' selezionata nessuna Autorita' per "
                                              "la Pratica. \rSara' impossibile calcolare in "
                                              "automatico l'importo degli Onorari di Tipo Penale."),
                                  nothingProposed()}));
}

TEST_F(GoldenScenarios, OutOfCourtItems16And18WarnAnd17DoesNot)
{
    addCase(7, "10000", "EURO", 0, "Tribunale");
    addItem("OnorariStrag2004Euro", 16, "S16", "Assistenza come in giudizio");
    addItem("OnorariStrag2004Euro", 17, "S17", "Consulenza");
    addItem("OnorariStrag2004Euro", 18, "S18", "Transazione come in giudizio");
    const auto form = open(7, "15/03/2005");
    form->click("optStragiudiziale");
    form->open("cmbCodice");
    form->chooseKey("cmbCodice", 17);
    // Item 17 is priced without a warning (these items have no formula: the
    // engine proposes nothing).
    EXPECT_EQ(messages(), std::vector<Shown>{nothingProposed()});
    forgetMessages();
    form->chooseKey("cmbCodice", 16);
    EXPECT_EQ(describe(*form),
              R"(lblClienteContro: caption="Rossi Mario / Bianchi SpA"
lblAdempimento: caption="Atto di citazione"
optStragiudiziale: on
cmbCodice: text="S16" current=0
  16 ["S16", "Assistenza come in giudizio"]
  17 ["S17", "Consulenza"]
  18 ["S18", "Transazione come in giudizio"]
cmbVoce: text="Assistenza come in giudizio"
fraDescrizione: hidden
FData: text="15/03/2005"
FNumOrdine: text="1"
FQuantita: text="1"
FImporto: text=",00" currency="EURO"@1936.27
FImponibili: currency="EURO"@1936.27
FEsenti: currency="EURO"@1936.27
FDenMinT: text=",00" currency="EURO"@1936.27
FDenMaxT: text=",00" currency="EURO"@1936.27
FDenMinS: text=",00" currency="EURO"@1936.27
FDenMaxS: text=",00" currency="EURO"@1936.27
fraEseguito: hidden
cmbEseguito: text="Avv. Rossi" current=0
  1 ["Avv. Rossi", "150,00", "250.000"]
  2 ["Dott. Verdi", "80,00", "120.000"]
fraTempo: hidden
GrigliaParcella: columns=["IDAZIONE", "", "", "Data", "Azione", "", "Diritti", "Onorari  ", "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM", "IdEseguito", "IsNotaSpese"]
--
idPratica=7 sParti="Rossi Mario / Bianchi SpA" sAdempEff="Atto di citazione" sData="15/03/2005" idUtenteCorrente=1
Valore=10000.0000 bIndeterminato=0 Rilevanza=0 Autorita="Tribunale" ValutaPratica="EURO" CambioPratica=1936.2700
ValutaDefault="EURO" CambioLiraEuro=1936.2700 sTabella="OnorariStrag2004Euro" NomiCampi=14
bModifica=0 idAzioneCorrente=0 idTariffa=16 ImportoVoce=0.0000 ArrayAzioni=0
idEseguitoDa=1 TariffaEuro=150.0000 TariffaLira=250000.0000
)");
    // The warning comes before the pricing.
    EXPECT_EQ(messages(),
              (std::vector<Shown>{information("ATTENZIONE : Vanno applicati gli "
                                              "stessi\rDiritti/Onorari dovuti in sede giudiziale"),
                                  nothingProposed()}));
    forgetMessages();
    form->chooseKey("cmbCodice", 18);
    EXPECT_EQ(messages(),
              (std::vector<Shown>{information("ATTENZIONE : Vanno applicati gli "
                                              "stessi\rDiritti/Onorari dovuti in sede giudiziale"),
                                  nothingProposed()}));
}

TEST_F(GoldenScenarios, LireActionInEuroDialog)
{
    addCase(7, "NULL", "EURO", 0, "Tribunale");
    addItem("Diritti94", 132, "D132", "Sessione");
    Action old;
    old.nOrdine = 1;
    old.data = "12/12/1996";
    old.valuta = "LIRA";
    old.codice = "D132";
    old.descr = "Sessione";
    old.quantita = "2";
    old.diritti = "12345.60";
    old.esenti = "1500.50";
    old.tabella = "Diritti94";
    old.voce = 132;
    old.inNotaSpese = true;
    addAction(old);
    const auto form = open(7, "15/03/2005");
    form->choose("GrigliaParcella", 0);
    EXPECT_EQ(describe(*form),
              R"(lblClienteContro: caption="Rossi Mario / Bianchi SpA"
lblAdempimento: caption="Atto di citazione"
optDiritti: on
cmbCodice: text="D132"
cmbVoce: text="Sessione"
fraDescrizione: hidden
FData: text="12/12/1996"
FNumOrdine: text="1"
FQuantita: text="2"
FImporto: text="12.346" currency="EURO"@1936.27
FImponibili: currency="EURO"@1936.27
FEsenti: text="1.500" currency="EURO"@1936.27
FDenMinT: text="15.000" currency="EURO"@1936.27
FDenMaxT: text="50.000" currency="EURO"@1936.27
FDenMinS: currency="EURO"@1936.27
FDenMaxS: currency="EURO"@1936.27
fraEseguito: hidden
cmbEseguito: text="Avv. Rossi" current=0
  1 ["Avv. Rossi", "150,00", "250.000"]
  2 ["Dott. Verdi", "80,00", "120.000"]
fraTempo: hidden
chkIncludi: on
GrigliaParcella: columns=["IDAZIONE", "", "", "Data", "Azione", "", "Diritti", "Onorari  ", "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM", "IdEseguito", "IsNotaSpese"] current=0
  ["1", "False", "1", "12/12/1996", "Sessione", "2", "L. 12.346", "0", "0", "L. 1.500", "Avv. Rossi", "", "1", "-1"]
--
idPratica=7 sParti="Rossi Mario / Bianchi SpA" sAdempEff="Atto di citazione" sData="15/03/2005" idUtenteCorrente=1
Valore=0.0000 bIndeterminato=1 Rilevanza=0 Autorita="Tribunale" ValutaPratica="EURO" CambioPratica=1936.2700
ValutaDefault="EURO" CambioLiraEuro=1936.2700 sTabella="Diritti2004Euro" NomiCampi=14
bModifica=1 idAzioneCorrente=1 idTariffa=132 ImportoVoce=0.0000 ArrayAzioni=1
idEseguitoDa=1 TariffaEuro=150.0000 TariffaLira=250000.0000
)");
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

TEST_F(GoldenScenarios, HourlyLireAmounts)
{
    addUser(3, "Praticante", "30", "60000");
    addUser(4, "Segreteria", "25", "50000");
    addCase(7, "NULL", "LIRA", 0, "Tribunale");
    setCurrentUser("3");
    Action hourly;
    hourly.tariffa = false;
    hourly.data = "10/03/2005";
    hourly.descr = "Ricerca";
    hourly.onorari = "45000";
    hourly.ore = 0;
    hourly.minuti = 45;
    hourly.eseguitoDa = 3;
    hourly.valuta = "LIRA";
    addAction(hourly);
    const auto form = open(7, "15/03/2005");
    form->click("optOraria");
    form->typeText("FMinuti", "6");
    EXPECT_EQ(form->control("FImporto").text, "7.000");
    form->chooseKey("cmbEseguito", 4);
    EXPECT_EQ(form->control("FImporto").text, "5.000");
    form->chooseKey("cmbEseguito", 3);
    form->typeText("FMinuti", "10");
    EXPECT_EQ(describe(*form),
              R"(lblClienteContro: caption="Rossi Mario / Bianchi SpA"
lblAdempimento: caption="Atto di citazione"
optOraria: on
fraCodice: hidden
fraVoce: hidden
FData: text="15/03/2005"
FNumOrdine: text="2"
fraN: hidden
FQuantita: text="1"
FImporto: text="10.000" currency="EURO"@1936.27
FImponibili: currency="EURO"@1936.27
FEsenti: currency="EURO"@1936.27
lblMINMAXT: hidden
fraMinMax: hidden
FDenMinT: currency="EURO"@1936.27
FDenMaxT: currency="EURO"@1936.27
lblMINMAXS: hidden
fraStaord: hidden
FDenMinS: currency="EURO"@1936.27
FDenMaxS: currency="EURO"@1936.27
cmbEseguito: text="Praticante" current=2
  1 ["Avv. Rossi", "150,00", "250.000"]
  2 ["Dott. Verdi", "80,00", "120.000"]
  3 ["Praticante", "30,00", "60.000"]
  4 ["Segreteria", "25,00", "50.000"]
FMinuti: text="10"
GrigliaParcella: columns=["IDAZIONE", "", "", "Data", "Azione", "", "Diritti", "Importo  ", "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM", "IdEseguito", "IsNotaSpese"] current=0
  ["1", "False", "1", "10/03/2005", "Ricerca", "1", "0", "L. 45.000", "0", "0", "Praticante", "0:45''", "3", "0"]
--
idPratica=7 sParti="Rossi Mario / Bianchi SpA" sAdempEff="Atto di citazione" sData="15/03/2005" idUtenteCorrente=3
Valore=0.0000 bIndeterminato=1 Rilevanza=0 Autorita="Tribunale" ValutaPratica="LIRA" CambioPratica=1936.2700
ValutaDefault="EURO" CambioLiraEuro=1936.2700 sTabella="Diritti2004Euro" NomiCampi=14
bModifica=0 idAzioneCorrente=0 idTariffa=0 ImportoVoce=0.0000 ArrayAzioni=1
idEseguitoDa=3 TariffaEuro=30.0000 TariffaLira=60000.0000
)");
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

TEST_F(GoldenScenarios, HourlyEuroBelowAThousand)
{
    addCase(7, "NULL", "EURO", 0, "Tribunale");
    const auto form = open(7, "15/03/2005");
    form->click("optOraria");
    form->typeText("FOre", "2");
    EXPECT_EQ(describe(*form),
              R"(lblClienteContro: caption="Rossi Mario / Bianchi SpA"
lblAdempimento: caption="Atto di citazione"
optOraria: on
fraCodice: hidden
fraVoce: hidden
FData: text="15/03/2005"
FNumOrdine: text="1"
fraN: hidden
FQuantita: text="1"
FImporto: text="1.000,00" currency="EURO"@1936.27
FImponibili: currency="EURO"@1936.27
FEsenti: currency="EURO"@1936.27
lblMINMAXT: hidden
fraMinMax: hidden
FDenMinT: currency="EURO"@1936.27
FDenMaxT: currency="EURO"@1936.27
lblMINMAXS: hidden
fraStaord: hidden
FDenMinS: currency="EURO"@1936.27
FDenMaxS: currency="EURO"@1936.27
cmbEseguito: text="Avv. Rossi" current=0
  1 ["Avv. Rossi", "150,00", "250.000"]
  2 ["Dott. Verdi", "80,00", "120.000"]
FOre: text="2"
GrigliaParcella: columns=["IDAZIONE", "", "", "Data", "Azione", "", "Diritti", "Importo  ", "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM", "IdEseguito", "IsNotaSpese"]
--
idPratica=7 sParti="Rossi Mario / Bianchi SpA" sAdempEff="Atto di citazione" sData="15/03/2005" idUtenteCorrente=1
Valore=0.0000 bIndeterminato=1 Rilevanza=0 Autorita="Tribunale" ValutaPratica="EURO" CambioPratica=1936.2700
ValutaDefault="EURO" CambioLiraEuro=1936.2700 sTabella="Diritti2004Euro" NomiCampi=14
bModifica=0 idAzioneCorrente=0 idTariffa=0 ImportoVoce=0.0000 ArrayAzioni=0
idEseguitoDa=1 TariffaEuro=150.0000 TariffaLira=250000.0000
)");
}

TEST_F(GoldenScenarios, UnknownCaseFileClosesTheDialogWithoutAMessage)
{
    const auto form = open(99, "15/03/2005");
    EXPECT_TRUE(form->closed());
    EXPECT_EQ(view.count("close"), 1);
    EXPECT_EQ(view.count("busy on"), view.count("busy off"));
    EXPECT_EQ(describe(*form),
              R"(lblClienteContro: caption="Rossi Mario / Bianchi SpA"
lblAdempimento: caption="Atto di citazione"
optDiritti: on
fraDescrizione: hidden
FData: text="15/03/2005"
FNumOrdine: text="1"
fraEseguito: hidden
fraTempo: hidden
GrigliaParcella: columns=["IDAZIONE", "", "", "Data", "Azione", "", "Diritti", "Onorari  ", "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM", "IdEseguito", "IsNotaSpese"]
--
idPratica=99 sParti="Rossi Mario / Bianchi SpA" sAdempEff="Atto di citazione" sData="15/03/2005" idUtenteCorrente=1
Valore=0.0000 bIndeterminato=0 Rilevanza=0 Autorita="" ValutaPratica="" CambioPratica=0.0000
ValutaDefault="" CambioLiraEuro=0.0000 sTabella="Diritti2004Euro" NomiCampi=14
bModifica=0 idAzioneCorrente=0 idTariffa=0 ImportoVoce=0.0000 ArrayAzioni=0
idEseguitoDa=0 TariffaEuro=0.0000 TariffaLira=0.0000
)");
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

} // namespace
} // namespace avlor::test
