#pragma once
// What the tests of adding, changing and deleting actions share: a firm
// with one user and an indeterminate euro case file 7 before a Tribunale,
// one civil fee item with a band, and ways to read back the case file's
// actions exactly as stored.
#include <algorithm>
#include <string>
#include <vector>

#include "DialogFixture.h"
#include "Snapshot.h"

namespace avlor::test {

// An entry check's refusal: the field set to a text, and what is said.
struct Refusal {
    const char* field;
    const char* text;
    const char* message;
    const char* focus;
};

class WritingTest : public DialogTest {
protected:
    void SetUp() override
    {
        DialogTest::SetUp();
        addUser(1, "Avv. Rossi", "150", "250000");
        addUser(2, "Dott. Verdi", "60", "100000");
        addCase(7, "NULL", "EURO", 0, "Tribunale");
        addCase(9, "NULL", "EURO", 0, "Tribunale");
        // Band 100 to 300 for an indeterminate value, 50 to 900.50 beyond.
        addItem("Onorari2004Euro", 20, "O20", "Studio della controversia", "Tribunale",
                "MININDET, MAXINDET, MINSTRAORDIMP, MAXSTRAORDIMP|" + TestDatabase::amount("100") + ", " +
                    TestDatabase::amount("300") + ", " + TestDatabase::amount("50") + ", " +
                    TestDatabase::amount("900.5"));
    }

    // A tariff action of case 7 numbered `n`, described `descr`.
    std::int32_t tariff(std::int16_t n, const std::string& descr, std::int32_t pratica = 7)
    {
        Action a;
        a.pratica = pratica;
        a.nOrdine = n;
        a.descr = descr;
        return addAction(a);
    }

    std::int32_t hourly(std::int16_t n, const std::string& descr, std::int32_t pratica = 7)
    {
        Action a;
        a.pratica = pratica;
        a.nOrdine = n;
        a.descr = descr;
        a.tariffa = false;
        return addAction(a);
    }

    // The actions of one sequence of the case file as "Descr:NOrdine" in
    // the order they were recorded (by key), so that each row's number shows.
    [[nodiscard]] std::string numbers(bool tariffa, std::int32_t pratica = 7) const
    {
        std::string result;
        for (const auto& row : db.rows("SELECT Descr, NOrdine FROM Azioni WHERE IdPra = " + std::to_string(pratica) +
                                       " AND IsTariffa = '" + (tariffa ? "True" : "False") + "' ORDER BY IdAzione")) {
            result +=
                (result.empty() ? "" : " ") + row[0].toText(Locale::neutral()) + ":" + row[1].toText(Locale::neutral());
        }
        return result;
    }

    // Every field the dialog writes, of one action, as "Field=value|...".
    [[nodiscard]] std::string stored(std::int32_t idAzione) const
    {
        static const char* const fields[] = {
            "Data",        "NOrdine",  "IdPra",     "Codice",       "Descr",          "Valuta",
            "Cambio",      "Diritti",  "Onorari",   "TipoAzione",   "Imponibili",     "Esenti",
            "IsTariffa",   "Quantita", "IdFattura", "IdEseguitoDa", "IdVoceParcella", "TabellaTariffa",
            "InNotaSpese", "bFattura", "Ore",       "Minuti"};
        std::string sql = "SELECT ";
        for (const char* field : fields) {
            sql += std::string(field) + (field == fields[std::size(fields) - 1] ? "" : ", ");
        }
        const auto rows = db.rows(sql + " FROM Azioni WHERE IdAzione = " + std::to_string(idAzione));
        if (rows.empty()) {
            return "(none)";
        }
        std::string result;
        for (std::size_t i = 0; i < std::size(fields); ++i) {
            const Value& v = rows[0][i];
            result += (i ? "|" : "") + std::string(fields[i]) + "=" +
                (v.isNull()                        ? std::string("NULL")
                     : v.kind() == ValueKind::Date ? v.toDate().toDayFirst()
                                                   : v.toText(Locale::neutral()));
        }
        return result;
    }

    // The highest action key: the row added last.
    [[nodiscard]] std::int32_t lastId() const { return db.value("SELECT MAX(IdAzione) FROM Azioni").toLong(); }
    [[nodiscard]] std::int32_t actionCount() const { return db.value("SELECT COUNT(*) FROM Azioni").toLong(); }

    // Every row of every table, sorted, as text: what "the database as it
    // was" means when a press must leave it so.
    [[nodiscard]] std::string wholeDatabase() const
    {
        std::string result;
        for (const std::string& table : db.connection()->tableNames()) {
            std::vector<std::string> lines;
            for (const auto& row : db.rows("SELECT * FROM " + table)) {
                std::string line;
                for (const Value& v : row) {
                    line += (v.isNull() ? std::string("NULL") : v.toText(Locale::neutral())) + "|";
                }
                lines.push_back(line);
            }
            std::sort(lines.begin(), lines.end());
            result += "[" + table + "]\n";
            for (const std::string& line : lines) {
                result += line + "\n";
            }
        }
        return result;
    }

    // A new tariff entry typed by hand (no item chosen) on the open dialog.
    static void typeTariff(dialog::frmOKParcella& form, const std::string& n, const std::string& descr,
                           const std::string& importo = "")
    {
        form.setText("FNumOrdine", n);
        form.setText("cmbVoce", descr);
        form.setText("FImporto", importo);
    }

    static Shown exclamation(const std::string& text)
    {
        return Shown{MsgIcon::Exclamation, MsgButtons::Ok, "AvlorLogic", text};
    }
    static Shown question(const std::string& text, MsgButtons buttons)
    {
        return Shown{MsgIcon::Question, buttons, "AvlorLogic", text};
    }
    // The message of a press that failed, with its cause.
    static Shown failure(const std::string& cause)
    {
        return Shown{MsgIcon::Critical, MsgButtons::Ok, "AvlorLogic",
                     "ATTENZIONE : Operazione non eseguita.\rNessuna modifica e' stata registrata.\r\r" + cause};
    }

    void reply(std::vector<MsgResult> replies) { recorder.recorder().scriptReplies(std::move(replies)); }
};

} // namespace avlor::test
