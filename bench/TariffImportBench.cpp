// The price of a shared server for a fee-table import: the same file of
// 20,000 items imported into an empty table of a SQLite practice database and
// of a PostgreSQL one, in the same run; the PostgreSQL / SQLite ratio is
// printed at the end. A server import pays a round trip for every statement,
// so the ratio shows at once whether the import writes its rows in batches.
//
// The PostgreSQL case runs on the server of AVLOR_TEST_PG_URI (the one the
// test suites use, see tests/support/TestDatabase.h) and is left out, with a
// line saying so, when the variable is not set.
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>

#include <benchmark/benchmark.h>

#include "RatioReporter.h"

#include "TestDatabase.h"
#include "avlor/tariffe/TariffImport.h"

namespace {

constexpr int Items = 20000;
constexpr const char* Table = "OnorariPenali2004Euro";

// Every column of the table, the texts quoted, some amounts with cents, some
// cells empty: what an official table looks like, only longer.
std::string importFile()
{
    std::string text = "Id,CodiceTariffa,Azione,Autorita,PreturaMIN,PreturaMAX,TribunaleMIN,TribunaleMAX,GiuPaceMIN,"
                       "GiuPaceMAX,GipMIN,GipMAX,AssiseAppMIN,AssiseAppMAX,AppelloMIN,AppelloMAX,CostCassMIN,"
                       "CostCassMAX\n";
    for (int id = 1; id <= Items; ++id) {
        const std::string n = std::to_string(id);
        text += n + ",\"" + std::to_string(id / 100) + "." + std::to_string(id % 100) + "\",\"Voce " + n +
            ", per ogni udienza\"," + (id % 3 == 0 ? "" : "\"Tribunale\"");
        for (int column = 0; column < 14; ++column)
            text += "," + (column % 5 == 4 ? std::string() : std::to_string(column * 10 + id % 97) + ".50");
        text += "\n";
    }
    return text;
}

const std::string& file()
{
    static const std::string text = importFile();
    return text;
}

// Imports the file into an empty table of a new database of `backend`; the
// table is emptied again outside the timing between iterations.
void importInto(benchmark::State& state, const char* backend)
{
    setenv("AVLOR_TEST_BACKEND", backend, 1);
    avlor::test::TestDatabase db;
    for (auto _ : state) {
        const avlor::TariffImportResult result = avlor::importTariffText(Table, file(), "banco di prova");
        if (result.added != static_cast<std::size_t>(Items)) {
            state.SkipWithError("the import did not add every item");
            break;
        }
        state.PauseTiming();
        db.exec(std::string("DELETE FROM ") + Table + "; DELETE FROM FonteTariffe");
        state.ResumeTiming();
    }
    state.counters["items/s"] = benchmark::Counter(static_cast<double>(Items) * static_cast<double>(state.iterations()),
                                                   benchmark::Counter::kIsRate);
}

void ImportSqlite(benchmark::State& state) { importInto(state, "sqlite"); }
void ImportPostgresql(benchmark::State& state) { importInto(state, "postgresql"); }

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    // A few iterations of a whole import say enough, and an import without
    // batched writes takes half a minute on the server.
    benchmark::RegisterBenchmark("ImportSqlite", ImportSqlite)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(3)
        ->UseRealTime();
    const char* server = std::getenv("AVLOR_TEST_PG_URI");
    const bool onServer = server != nullptr && *server != '\0';
    if (onServer) {
        benchmark::RegisterBenchmark("ImportPostgresql", ImportPostgresql)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(3)
            ->UseRealTime();
    }
    avlor::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    if (!onServer) {
        std::cout << "PostgreSQL import skipped: AVLOR_TEST_PG_URI names no server\n";
    }
    reporter.printRatio("PostgreSQL / SQLite import of " + std::to_string(Items) + " items", "ImportPostgresql",
                        "ImportSqlite");
    benchmark::Shutdown();
    return 0;
}
