// What the fee-entry dialog costs on large case files, each against the least
// a program can do with SQLite for the same work, in the same run:
//   - adding a tariff action at number 1 of a case file holding 5,000 tariff
//     actions (the whole press: the shift of every number, the new row, the
//     commit, the proposal and the grid refilled), against the same row
//     updates and insert with raw prepared statements in one transaction;
//   - opening the dialog on a case file with 2,000 actions, against a raw
//     SELECT of the same joined rows;
//   - expanding a 20-item template (10 items priced by the tariff engine),
//     against 20 raw inserts in one transaction.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "RatioReporter.h"
#include "TestDatabase.h"
#include "avlor/core/Messages.h"
#include "avlor/dialog/frmOKParcella.h"

namespace {

using avlor::test::TestDatabase;

constexpr int CaseFileActions = 5000;
constexpr int StartUpActions = 2000;
constexpr int TemplateItems = 20;

// Case files: 7 for the dialog's adds, 8 for the raw adds, 9 for start-up,
// 10 for templates.
void fill(const TestDatabase& db, int pratica, int actions)
{
    db.exec("INSERT INTO Pratica (ID_Pra, Valore, Valuta, Cambio, Rilevanza, Autorita) VALUES (" +
            std::to_string(pratica) + ", NULL, 'EURO', " + TestDatabase::amount("1936.27") + ", 0, 'Tribunale')");
    std::string rows;
    for (int i = 1; i <= actions; ++i) {
        rows += "INSERT INTO Azioni (IdPra, NOrdine, IsTariffa, Descr, Codice, Quantita, Valuta, Diritti, Data, "
                "IdEseguitoDa) VALUES (" +
            std::to_string(pratica) + ", " + std::to_string(i) + ", 'True', 'Voce " + std::to_string(i) + "', 'D" +
            std::to_string(i % 90) + "', '1', 'EURO', " + TestDatabase::amount("125.5") + ", '2005-03-10', 1);";
    }
    db.exec(rows);
}

TestDatabase& database()
{
    static TestDatabase db;
    static const bool filled = [] {
        db.exec("INSERT INTO Utenti (ID_Utente, NomeUtente, TariffaEuro, TariffaLira) VALUES (1, 'Avv. Rossi', " +
                TestDatabase::amount("150") + ", " + TestDatabase::amount("250000") + ")");
        db.exec("INSERT INTO Onorari2004Euro (Id, CodiceTariffa, Azione, Autorita, MININDET, MAXINDET) VALUES "
                "(20, 'O20', 'Studio', 'Tribunale', " +
                TestDatabase::amount("100") + ", " + TestDatabase::amount("300") + ")");
        fill(db, 7, CaseFileActions);
        fill(db, 8, CaseFileActions);
        fill(db, 9, StartUpActions);
        fill(db, 10, 0);
        db.exec("INSERT INTO ParcellaBase (IdParcella, CodiceParcella, NomeParcella, IsPenale) VALUES (30, 'PB', "
                "'Causa ordinaria', 'False')");
        std::string items;
        for (int i = 1; i <= TemplateItems; ++i) {
            items += "INSERT INTO VociParcellaBase (IdParcellaBase, NOrdine, IdTariffa, TabellaTariffa, Tipo, Codice, "
                     "Nome, Competenze, Qta, Valuta) VALUES (30, " +
                std::to_string(i) + ", " + (i % 2 == 0 ? "20, 'Onorari2004Euro', 1" : "0, '', 0") + ", 'C" +
                std::to_string(i) + "', 'Voce " + std::to_string(i) + "', " + TestDatabase::amount("12.5") +
                ", 2, 'EURO');";
        }
        db.exec(items);
        avlor::setCurrentDatabase(db.location());
        return true;
    }();
    static_cast<void>(filled);
    return db;
}

std::unique_ptr<avlor::dialog::frmOKParcella> openDialog(std::int32_t pratica)
{
    auto form = std::make_unique<avlor::dialog::frmOKParcella>(
        std::make_shared<avlor::dialog::FixedClock>(avlor::Date::fromDayFirst("15/03/2005")), avlor::Locale::italian());
    form->Setta(pratica, "Rossi / Bianchi", "Udienza", "15/03/2005");
    form->Form_Load();
    return form;
}

// A raw handle on the practice file, as the least a program would use.
class RawHandle {
public:
    RawHandle()
    {
        if (sqlite3_open_v2(database().location().c_str(), &db_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
            throw std::runtime_error("cannot open the database");
        }
        sqlite3_busy_timeout(db_, 5000);
    }
    ~RawHandle() { sqlite3_close_v2(db_); }
    RawHandle(const RawHandle&) = delete;
    RawHandle& operator=(const RawHandle&) = delete;

    sqlite3_stmt* prepare(const std::string& sql) const
    {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
            throw std::runtime_error(sqlite3_errmsg(db_));
        }
        return statement;
    }
    void exec(const char* sql) const { sqlite3_exec(db_, sql, nullptr, nullptr, nullptr); }

private:
    sqlite3* db_ = nullptr;
};

const char* const RawInsert = "INSERT INTO Azioni (IdPra, NOrdine, IsTariffa, Descr, Data, Valuta, Cambio, Diritti, "
                              "Onorari, TipoAzione, Imponibili, Esenti, Quantita, IdFattura, IdEseguitoDa, "
                              "IdVoceParcella, TabellaTariffa, InNotaSpese) VALUES (?, ?, 'True', 'nuova', "
                              "'2005-03-15', 'EURO', 19362700, 0, 0, 0, 0, 0, '1', 0, 1, 0, '', 0)";

void DialogAddAtOne(benchmark::State& state)
{
    static_cast<void>(database());
    avlor::ScopedMessageRecorder quiet;
    auto form = openDialog(7);
    for (auto _ : state) {
        form->setText("FNumOrdine", "1");
        form->setText("cmbVoce", "nuova");
        form->click("cmdAggiungi");
    }
    if (!quiet.recorder().shown().empty()) {
        state.SkipWithError(quiet.recorder().shown().front().text.c_str());
    }
}
BENCHMARK(DialogAddAtOne)->Unit(benchmark::kMillisecond)->Iterations(10);

void RawAddAtOne(benchmark::State& state)
{
    static_cast<void>(database());
    RawHandle raw;
    sqlite3_stmt* select = raw.prepare("SELECT IdAzione, NOrdine FROM Azioni WHERE IdPra = 8 AND NOrdine >= 1 AND "
                                       "IsTariffa = 'True' ORDER BY NOrdine");
    sqlite3_stmt* update = raw.prepare("UPDATE Azioni SET NOrdine = ? WHERE IdAzione = ?");
    sqlite3_stmt* insert = raw.prepare(RawInsert);
    long moved = 0;
    for (auto _ : state) {
        raw.exec("BEGIN IMMEDIATE");
        // The numbers are read first, then moved: a scan of the index that
        // the updates change would see rows twice.
        std::vector<std::pair<sqlite3_int64, int>> rows;
        while (sqlite3_step(select) == SQLITE_ROW) {
            rows.emplace_back(sqlite3_column_int64(select, 0), sqlite3_column_int(select, 1));
        }
        int c = 1;
        for (const auto& [id, number] : rows) {
            if (number != c) {
                break;
            }
            sqlite3_bind_int(update, 1, c + 1);
            sqlite3_bind_int64(update, 2, id);
            sqlite3_step(update);
            sqlite3_reset(update);
            ++c;
        }
        moved += c - 1;
        sqlite3_reset(select);
        sqlite3_bind_int(insert, 1, 8);
        sqlite3_bind_int(insert, 2, 1);
        sqlite3_step(insert);
        sqlite3_reset(insert);
        raw.exec("COMMIT");
    }
    sqlite3_finalize(select);
    sqlite3_finalize(update);
    sqlite3_finalize(insert);
    state.counters["moved"] = benchmark::Counter(static_cast<double>(moved), benchmark::Counter::kAvgIterations);
}
BENCHMARK(RawAddAtOne)->Unit(benchmark::kMillisecond)->Iterations(10);

void DialogStartUp(benchmark::State& state)
{
    static_cast<void>(database());
    for (auto _ : state) {
        auto form = openDialog(9);
        benchmark::DoNotOptimize(form->control("GrigliaParcella").rows.size());
    }
}
BENCHMARK(DialogStartUp)->Unit(benchmark::kMillisecond);

void RawStartUpSelect(benchmark::State& state)
{
    static_cast<void>(database());
    RawHandle raw;
    sqlite3_stmt* select = raw.prepare("SELECT Azioni.*, Utenti.NomeUtente FROM Utenti INNER JOIN Azioni ON "
                                       "Utenti.ID_Utente = Azioni.IdEseguitoDa WHERE IdPra = 9 AND IsTariffa = "
                                       "'TRUE'  ORDER BY NOrdine ");
    for (auto _ : state) {
        std::size_t bytes = 0;
        while (sqlite3_step(select) == SQLITE_ROW) {
            for (int column = 0; column < sqlite3_column_count(select); ++column) {
                const unsigned char* text = sqlite3_column_text(select, column);
                bytes += text != nullptr ? static_cast<std::size_t>(sqlite3_column_bytes(select, column)) : 0;
            }
        }
        sqlite3_reset(select);
        benchmark::DoNotOptimize(bytes);
    }
    sqlite3_finalize(select);
}
BENCHMARK(RawStartUpSelect)->Unit(benchmark::kMillisecond);

void DialogTemplate20(benchmark::State& state)
{
    static_cast<void>(database());
    avlor::ScopedMessageRecorder quiet;
    auto form = openDialog(10);
    form->click("optParcellaBase");
    for (auto _ : state) {
        form->open("cmbVoce");
        form->chooseKey("cmbVoce", 30);
        form->setText("FNumOrdine", "1");
        form->click("cmdAggiungi");
    }
    if (!quiet.recorder().shown().empty()) {
        state.SkipWithError(quiet.recorder().shown().front().text.c_str());
    }
}
BENCHMARK(DialogTemplate20)->Unit(benchmark::kMillisecond)->Iterations(20);

void RawInsert20(benchmark::State& state)
{
    static_cast<void>(database());
    RawHandle raw;
    sqlite3_stmt* insert = raw.prepare(RawInsert);
    for (auto _ : state) {
        raw.exec("BEGIN IMMEDIATE");
        for (int i = 1; i <= TemplateItems; ++i) {
            sqlite3_bind_int(insert, 1, 11);
            sqlite3_bind_int(insert, 2, i);
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
        raw.exec("COMMIT");
    }
    sqlite3_finalize(insert);
}
BENCHMARK(RawInsert20)->Unit(benchmark::kMillisecond)->Iterations(20);

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    avlor::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatio("add at 1 of 5,000 tariff actions, whole press / raw updates and insert", "DialogAddAtOne",
                        "RawAddAtOne", 2);
    reporter.printRatio("start-up on 2,000 actions / raw SELECT of the joined rows", "DialogStartUp",
                        "RawStartUpSelect", 3);
    reporter.printRatio("20-item template expansion, whole press / 20 raw inserts", "DialogTemplate20", "RawInsert20");
    benchmark::Shutdown();
    return 0;
}
