// The price of the rule "every routine makes its own record-access object":
// one clsAccessoDati, one Apri of a small statement and one Campo, against
// the least a program can do with SQLite for the same answer (prepare, step,
// read, finalize on an open handle). Both run in the same process on the same
// database file; the ratio is printed at the end.
#include <iostream>
#include <map>
#include <string>

#include <benchmark/benchmark.h>

#include "RatioReporter.h"
#include <sqlite3.h>

#include "TestDatabase.h"
#include "avlor/data/clsAccessoDati.h"

namespace {

const std::string Statement = "Select LivelloRiservatezza FROM Utenti WHERE Id_Utente = 5";

avlor::test::TestDatabase& database()
{
    static avlor::test::TestDatabase db;
    static const bool filled = [] {
        db.exec("INSERT INTO Utenti (ID_Utente, NomeUtente, LivelloRiservatezza) VALUES "
                "(1, 'Admin', 3), (5, 'Rossi', 2), (9, 'Bianchi', 1)");
        return true;
    }();
    (void)filled;
    return db;
}

void RawSqlite(benchmark::State& state)
{
    sqlite3* db = nullptr;
    sqlite3_open_v2(database().location().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
    for (auto _ : state) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(db, Statement.c_str(), static_cast<int>(Statement.size()), &statement, nullptr);
        sqlite3_step(statement);
        benchmark::DoNotOptimize(sqlite3_column_int(statement, 0));
        sqlite3_finalize(statement);
    }
    sqlite3_close_v2(db);
}
BENCHMARK(RawSqlite);

void ClsAccessoDati(benchmark::State& state)
{
    (void)database();
    for (auto _ : state) {
        avlor::clsAccessoDati data;
        data.Apri(Statement, avlor::adOpenForwardOnly, avlor::adLockReadOnly, avlor::adCmdUnspecified);
        benchmark::DoNotOptimize(data.Campo("LivelloRiservatezza", avlor::TipoNumero));
    }
}
BENCHMARK(ClsAccessoDati);

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    avlor::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatio("clsAccessoDati open+read / raw sqlite3 prepare+step", "ClsAccessoDati", "RawSqlite");
    benchmark::Shutdown();
    return 0;
}
