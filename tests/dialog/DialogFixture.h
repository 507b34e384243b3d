#pragma once
// A practice database, a settings file, a message recorder, a pinned clock
// and a recording view for one test of the fee-entry dialog, with helpers
// that write the firm's rows and open the dialog on a case file.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "../core/EnvironmentGuard.h"
#include "TestDatabase.h"
#include "avlor/core/Messages.h"
#include "avlor/core/Settings.h"
#include "avlor/dialog/frmOKParcella.h"

namespace avlor::test {

// Every notification of the dialog, in order, as one line each.
class RecordingView : public dialog::DialogView {
public:
    void controlChanged(const std::string& name) override { events.push_back("changed " + name); }
    void gridChanged() override { events.push_back("grid"); }
    void focus(const std::string& name) override { events.push_back("focus " + name); }
    void busy(bool on) override { events.push_back(on ? "busy on" : "busy off"); }
    void closeRequested() override { events.push_back("close"); }

    [[nodiscard]] int count(const std::string& event) const
    {
        int n = 0;
        for (const std::string& e : events) {
            n += e == event ? 1 : 0;
        }
        return n;
    }
    std::vector<std::string> events;
};

// A message as the tests compare it: icon, buttons, title and text (its
// carriage returns kept).
struct Shown {
    MsgIcon icon;
    MsgButtons buttons;
    std::string title;
    std::string text;
    bool operator==(const Shown&) const = default;
};

inline void PrintTo(const Shown& shown, std::ostream* out)
{
    std::string text;
    for (char c : shown.text) {
        text += c == '\r' ? std::string("\\r") : std::string(1, c);
    }
    *out << "{icon " << static_cast<int>(shown.icon) << ", buttons " << static_cast<int>(shown.buttons) << ", \""
         << shown.title << "\", \"" << text << "\"}";
}

inline Shown information(const std::string& text, const std::string& title = "AvlorLogic")
{
    return Shown{MsgIcon::Information, MsgButtons::Ok, title, text};
}

// The tariff engine's own message when an item has no figure for the case.
inline Shown nothingProposed()
{
    return information(" codice <> non previsto per una pratica di questo valore.\rNessun valore proposto.",
                       "Attenzione");
}

class DialogTest : public testing::Test {
protected:
    void SetUp() override
    {
        EnvironmentGuard::set("AVLOR_SETTINGS", (db.folder() / "Avlor32.ini").string());
        setCurrentUser("1");
    }

    static void setCurrentUser(const std::string& text)
    {
        SettingsStore::write(AppAvlor, SezioneShared, ChiaveIdUtente, text);
    }

    void setDefaultCurrency(const std::string& valuta) const
    {
        db.exec("UPDATE ConfigGenerale SET ValutaDefault = '" + valuta + "'");
    }

    void addUser(std::int32_t id, const std::string& name, const std::string& euroRate,
                 const std::string& lireRate) const
    {
        db.exec("INSERT INTO Utenti (ID_Utente, NomeUtente, TariffaEuro, "
                "TariffaLira) VALUES (" +
                std::to_string(id) + ", '" + name + "', " + TestDatabase::amount(euroRate) + ", " +
                TestDatabase::amount(lireRate) + ")");
    }

    // `valore` as decimal text, or "NULL".
    void addCase(std::int32_t id, const std::string& valore, const std::string& valuta, int rilevanza,
                 const std::string& autorita) const
    {
        db.exec("INSERT INTO Pratica (ID_Pra, Valore, Valuta, Cambio, Rilevanza, "
                "Autorita) VALUES (" +
                std::to_string(id) + ", " + (valore == "NULL" ? valore : TestDatabase::amount(valore)) + ", '" +
                valuta + "', " + TestDatabase::amount("1936.27") + ", " + std::to_string(rilevanza) + ", " +
                (autorita == "NULL" ? autorita : "'" + autorita + "'") + ")");
    }

    struct Action {
        std::int32_t pratica = 7;
        std::int16_t nOrdine = 1;
        std::string data = "10/03/2005";
        bool tariffa = true;
        std::int16_t tipo = 0;
        std::string codice;
        std::string descr;
        std::string quantita = "1";
        std::string valuta = "EURO";
        std::string diritti = "0";
        std::string onorari = "0";
        std::string esenti = "0";
        std::string imponibili = "0";
        double ore = 0;
        std::int32_t minuti = 0;
        bool inNotaSpese = false;
        std::string tabella;
        std::int32_t voce = 0;
        std::int32_t eseguitoDa = 1;
        bool fattura = false;
    };

    std::int32_t addAction(const Action& a) const
    {
        return db
            .insertRow("Azioni",
                       {{"IdPra", Value(a.pratica)},
                        {"NOrdine", Value(a.nOrdine)},
                        {"Data", Value(Date::fromDayFirst(a.data))},
                        {"TipoAzione", Value(a.tipo)},
                        {"IsTariffa", Value(a.tariffa)},
                        {"Codice", Value(a.codice)},
                        {"Descr", Value(a.descr)},
                        {"Quantita", Value(a.quantita)},
                        {"Valuta", Value(a.valuta)},
                        {"Cambio", Value(Currency::fromText("1936.27"))},
                        {"Diritti", Value(Currency::fromText(a.diritti))},
                        {"Onorari", Value(Currency::fromText(a.onorari))},
                        {"Esenti", Value(Currency::fromText(a.esenti))},
                        {"Imponibili", Value(Currency::fromText(a.imponibili))},
                        {"Ore", Value(a.ore)},
                        {"Minuti", Value(a.minuti)},
                        {"InNotaSpese", Value(a.inNotaSpese)},
                        {"TabellaTariffa", Value(a.tabella)},
                        {"IdVoceParcella", Value(a.voce)},
                        {"IdEseguitoDa", Value(a.eseguitoDa)},
                        {"bFattura", Value(a.fattura)}})
            .toLong();
    }

    // A fee-table row with its code, description and authority.
    void addItem(const std::string& table, std::int32_t id, const std::string& code, const std::string& azione,
                 const std::string& autorita = "", const std::string& amounts = "") const
    {
        db.exec("INSERT INTO " + table + " (Id, CodiceTariffa, Azione, Autorita" +
                (amounts.empty() ? "" : ", " + amounts.substr(0, amounts.find('|'))) + ") VALUES (" +
                std::to_string(id) + ", '" + code + "', '" + azione + "', '" + autorita + "'" +
                (amounts.empty() ? "" : ", " + amounts.substr(amounts.find('|') + 1)) + ")");
    }

    void addTemplate(std::int32_t id, const std::string& code, const std::string& name, bool penale) const
    {
        db.exec("INSERT INTO ParcellaBase (IdParcella, CodiceParcella, "
                "NomeParcella, IsPenale) VALUES (" +
                std::to_string(id) + ", '" + code + "', '" + name + "', '" + (penale ? "True" : "False") + "')");
    }

    // Opens the dialog on case `id` as the component does: Setta, then the
    // load.
    std::unique_ptr<dialog::frmOKParcella> open(std::int32_t id, const std::string& data,
                                                const std::string& parti = "Rossi Mario / Bianchi SpA",
                                                const std::string& adempimento = "Atto di citazione")
    {
        auto form = std::make_unique<dialog::frmOKParcella>(clock, Locale::italian());
        form->setView(&view);
        form->Setta(id, parti, adempimento, data);
        form->Form_Load();
        return form;
    }

    [[nodiscard]] std::vector<Shown> messages()
    {
        std::vector<Shown> result;
        for (const auto& shown : recorder.recorder().shown()) {
            result.push_back(Shown{shown.icon, shown.buttons, shown.title, shown.text});
        }
        return result;
    }
    void forgetMessages() { recorder.recorder().clear(); }

    TestDatabase db;
    EnvironmentGuard environment{"AVLOR_SETTINGS"};
    ScopedMessageRecorder recorder;
    std::shared_ptr<dialog::FixedClock> clock = std::make_shared<dialog::FixedClock>(Date::fromDayFirst("15/03/2005"));
    RecordingView view;
};

} // namespace avlor::test
