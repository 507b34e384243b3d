#include "DemoFirm.h"

#include <initializer_list>
#include <string>
#include <utility>

#include "avlor/data/clsAccessoDati.h"

namespace avlor::cli {

namespace {

using Fields = std::initializer_list<std::pair<const char*, Value>>;

Value euro(const char* amount) { return Value::currency(Currency::fromText(amount)); }
Value id(std::int32_t n) { return Value::longValue(n); }
Value yes(bool b) { return Value::boolean(b); }
Value txt(const char* s) { return Value::text(s); }
Value day(const char* dayFirst) { return Value::date(Date::fromDayFirst(dayFirst)); }

void addRows(const char* table, std::initializer_list<Fields> rows)
{
    clsAccessoDati dati;
    dati.Apri(table, adOpenKeyset, adLockOptimistic, adCmdUnspecified);
    for (const auto& row : rows) {
        dati.Recordset().AddNew();
        for (const auto& [name, value] : row)
            dati.ImpostaCampo(name, value);
        dati.Recordset().Update();
    }
}

} // namespace

void createDemoFirm()
{
    {
        // The configuration row comes with the database: set its values.
        clsAccessoDati dati;
        dati.Apri("SELECT * FROM ConfigGenerale", adOpenKeyset, adLockOptimistic, adCmdUnspecified);
        dati.ImpostaCampo("ValutaDefault", txt("EURO"));
        dati.ImpostaCampo("CambioLiraEuro", euro("1936.27"));
        dati.Recordset().Update();
    }

    // User 2 sees every record; 1 and 5 are accounting users.
    addRows("Utenti",
            {{{"ID_Utente", id(1)},
              {"NomeUtente", txt("Amministratore")},
              {"LivelloRiservatezza", id(3)},
              {"TitContabilita", yes(true)},
              {"TariffaEuro", euro("100")},
              {"TariffaLira", euro("195000")}},
             {{"ID_Utente", id(2)},
              {"NomeUtente", txt("Avv. Bianchi")},
              {"LivelloRiservatezza", id(3)},
              {"TitContabilita", yes(false)},
              {"TariffaEuro", euro("150")},
              {"TariffaLira", euro("290000")}},
             {{"ID_Utente", id(3)},
              {"NomeUtente", txt("Avv. Rossi")},
              {"LivelloRiservatezza", id(2)},
              {"TitContabilita", yes(false)},
              {"TariffaEuro", euro("120")},
              {"TariffaLira", euro("230000")}},
             {{"ID_Utente", id(4)},
              {"NomeUtente", txt("Dott.ssa Verdi")},
              {"LivelloRiservatezza", id(1)},
              {"TitContabilita", yes(false)},
              {"TariffaEuro", euro("80")},
              {"TariffaLira", euro("155000")}},
             {{"ID_Utente", id(5)},
              {"NomeUtente", txt("Rag. Neri")},
              {"LivelloRiservatezza", id(4)},
              {"TitContabilita", yes(true)},
              {"TariffaEuro", euro("60")},
              {"TariffaLira", euro("115000")}}});

    addRows("RelGruppiUtenti",
            {{{"Fk_Id_Utente", id(3)}, {"Fk_Gruppo", txt("Civile")}},
             {{"Fk_Id_Utente", id(4)}, {"Fk_Gruppo", txt("Civile")}},
             {{"Fk_Id_Utente", id(3)}, {"Fk_Gruppo", txt("Tutti")}},
             {{"Fk_Id_Utente", id(5)}, {"Fk_Gruppo", txt("AMMINISTRAZIONE")}},
             {{"Fk_Id_Utente", id(5)}, {"Fk_Gruppo", txt("Penale")}},
             {{"Fk_Id_Utente", id(2)}, {"Fk_Gruppo", txt("Penale")}},
             {{"Fk_Id_Utente", id(1)}, {"Fk_Gruppo", txt("AMMINISTRAZIONE")}}});

    // Case 1: a civil claim in euro; case 2: a criminal case of indeterminate
    // value in euro; case 3: an old civil case in lire.
    addRows("Pratica",
            {{{"ID_Pra", id(1)},
              {"Valore", euro("25000")},
              {"Valuta", txt("EURO")},
              {"Cambio", euro("1")},
              {"Rilevanza", id(50)},
              {"Autorita", txt("Tribunale")}},
             {{"ID_Pra", id(2)},
              {"Valore", euro("0")},
              {"Valuta", txt("EURO")},
              {"Cambio", euro("1")},
              {"Rilevanza", id(30)},
              {"Autorita", txt("Tribunale in comp. monocratica")}},
             {{"ID_Pra", id(3)},
              {"Valore", euro("15000000")},
              {"Valuta", txt("LIRA")},
              {"Cambio", euro("1936.27")},
              {"Rilevanza", id(40)},
              {"Autorita", txt("")}}});

    addRows("MultiIntesta",
            {{{"ID_Multi", id(1)}, {"ID_Pra", id(1)}, {"IsCliente", yes(true)}},
             {{"ID_Multi", id(2)}, {"ID_Pra", id(1)}, {"IsCliente", yes(true)}},
             {{"ID_Multi", id(3)}, {"ID_Pra", id(1)}, {"IsCliente", yes(false)}},
             {{"ID_Multi", id(4)}, {"ID_Pra", id(3)}, {"IsCliente", yes(true)}}});

    // Person 1 is a natural person, person 2 a company.
    addRows("Anagrafica",
            {{{"ID_Ana", id(1)}, {"IsFisicaGiuridica", yes(true)}},
             {{"ID_Ana", id(2)}, {"IsFisicaGiuridica", yes(false)}}});

    addRows("Fatture",
            {{{"ID_Fattura", id(1)}, {"ResiduoASaldo", euro("1250.5")}},
             {{"ID_Fattura", id(2)}, {"ResiduoASaldo", euro("0")}}});

    addRows("Azioni",
            {{{"IdPra", id(1)},
              {"NOrdine", id(1)},
              {"Data", day("10/03/2025")},
              {"TipoAzione", id(2)},
              {"IsTariffa", yes(true)},
              {"Codice", txt("2.c")},
              {"Descr", txt("Esame e studio della pratica")},
              {"Quantita", txt("1")},
              {"Valuta", txt("EURO")},
              {"Cambio", euro("1")},
              {"Onorari", euro("450")},
              {"Diritti", euro("0")},
              {"Esenti", euro("0")},
              {"Imponibili", euro("0")},
              {"Minuti", id(0)},
              {"Ore", id(0)},
              {"InNotaSpese", yes(false)},
              {"TabellaTariffa", txt("OnorariStrag2004Euro")},
              {"IdVoceParcella", id(6)},
              {"IdEseguitoDa", id(3)},
              {"bFattura", yes(false)},
              {"IdFattura", id(0)}},
             {{"IdPra", id(1)},
              {"NOrdine", id(2)},
              {"Data", day("17/03/2025")},
              {"TipoAzione", id(2)},
              {"IsTariffa", yes(true)},
              {"Codice", txt("1.A")},
              {"Descr", txt("Consultazione orale")},
              {"Quantita", txt("1")},
              {"Valuta", txt("EURO")},
              {"Cambio", euro("1")},
              {"Onorari", euro("82.5")},
              {"Diritti", euro("0")},
              {"Esenti", euro("0")},
              {"Imponibili", euro("0")},
              {"Minuti", id(0)},
              {"Ore", id(0)},
              {"InNotaSpese", yes(false)},
              {"TabellaTariffa", txt("OnorariStrag2004Euro")},
              {"IdVoceParcella", id(1)},
              {"IdEseguitoDa", id(3)},
              {"bFattura", yes(false)},
              {"IdFattura", id(0)}},
             {{"IdPra", id(1)},
              {"NOrdine", id(1)},
              {"Data", day("12/03/2025")},
              {"TipoAzione", id(0)},
              {"IsTariffa", yes(false)},
              {"Descr", txt("Ricerca giurisprudenza")},
              {"Valuta", txt("EURO")},
              {"Cambio", euro("1")},
              {"Onorari", euro("180")},
              {"Esenti", euro("0")},
              {"Imponibili", euro("0")},
              {"Ore", id(1)},
              {"Minuti", id(30)},
              {"InNotaSpese", yes(false)},
              {"IdEseguitoDa", id(3)},
              {"bFattura", yes(false)},
              {"IdFattura", id(0)}}});

    addRows("ParcellaBase",
            {{{"IdParcella", id(1)},
              {"CodiceParcella", txt("STR01")},
              {"NomeParcella", txt("Consulenza stragiudiziale di base")},
              {"IsPenale", yes(false)}}});
    addRows("VociParcellaBase",
            {{{"IdParcellaBase", id(1)},
              {"NOrdine", id(1)},
              {"IdTariffa", id(1)},
              {"TabellaTariffa", txt("OnorariStrag2004Euro")},
              {"Tipo", id(2)},
              {"Codice", txt("1.A")},
              {"Nome", txt("Consultazione orale")},
              {"Competenze", euro("0")},
              {"Esenti", euro("0")},
              {"Imponibili", euro("0")},
              {"Valuta", txt("EURO")},
              {"Cambio", euro("1")},
              {"Qta", id(1)}},
             {{"IdParcellaBase", id(1)},
              {"NOrdine", id(2)},
              {"IdTariffa", id(0)},
              {"TabellaTariffa", txt("")},
              {"Tipo", id(2)},
              {"Codice", txt("")},
              {"Nome", txt("Apertura fascicolo")},
              {"Competenze", euro("50")},
              {"Esenti", euro("12.5")},
              {"Imponibili", euro("0")},
              {"Valuta", txt("EURO")},
              {"Cambio", euro("1")},
              {"Qta", id(1)}}});
}

} // namespace avlor::cli
