// The price of a proposal: one CalcolaTariffaModulo on a rights row (one
// record-access object, one Apri, two Campo reads, the bracket choice and the
// final step) against the bare record access that the proposal cannot do
// without (one clsAccessoDati, the same Apri, the same reads). An
// out-of-court proposal, which reads no row, is measured too. The ratio of
// the first two is printed at the end.
#include <iostream>
#include <map>
#include <string>

#include <benchmark/benchmark.h>

#include "RatioReporter.h"

#include "TestDatabase.h"
#include "avlor/core/Messages.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/engine/CalcolaTariffaModulo.h"

namespace {

const std::string Statement = "SELECT * FROM Diritti2004Euro WHERE Id = 7";

avlor::test::TestDatabase& database()
{
    static avlor::test::TestDatabase db;
    static const bool filled = [] {
        db.exec("INSERT INTO Diritti2004Euro (Id, CodiceTariffa, VALORESCA5) VALUES (7, '7', " +
                avlor::test::TestDatabase::amount("123.45") + ")");
        return true;
    }();
    static_cast<void>(filled);
    return db;
}

void RecordAccess(benchmark::State& state)
{
    static_cast<void>(database());
    for (auto _ : state) {
        avlor::clsAccessoDati data;
        static_cast<void>(
            data.Apri(Statement, avlor::adOpenForwardOnly, avlor::adLockReadOnly, avlor::adCmdUnspecified));
        benchmark::DoNotOptimize(data.Campo("CodiceTariffa", avlor::TipoTesto));
        benchmark::DoNotOptimize(data.Campo("VALORESCA5", avlor::TipoNumero));
    }
}
BENCHMARK(RecordAccess);

void RightsProposal(benchmark::State& state)
{
    static_cast<void>(database());
    for (auto _ : state) {
        avlor::Currency cValore = avlor::Currency::fromWhole(10'000);
        std::int16_t vRil = 50;
        std::string sTabella = "Diritti2004Euro";
        std::int16_t bInd = 0;
        std::int32_t idTariffa = 7;
        avlor::Currency MinTar, MaxTar, MinS, MaxS;
        std::string Autorita;
        benchmark::DoNotOptimize(avlor::CalcolaTariffaModulo(cValore, vRil, sTabella, bInd, idTariffa, MinTar, MaxTar,
                                                             MinS, MaxS, Autorita));
    }
}
BENCHMARK(RightsProposal);

void OutOfCourtProposal(benchmark::State& state)
{
    for (auto _ : state) {
        avlor::Currency cValore = avlor::Currency::fromWhole(3'000'000);
        std::int16_t vRil = 37;
        std::string sTabella = "OnorariStrag2004Euro";
        std::int16_t bInd = 0;
        std::int32_t idTariffa = 12;
        avlor::Currency MinTar, MaxTar, MinS, MaxS;
        std::string Autorita;
        benchmark::DoNotOptimize(avlor::CalcolaTariffaModulo(cValore, vRil, sTabella, bInd, idTariffa, MinTar, MaxTar,
                                                             MinS, MaxS, Autorita));
    }
}
BENCHMARK(OutOfCourtProposal);

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    avlor::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatio("CalcolaTariffaModulo rights proposal / bare record access", "RightsProposal", "RecordAccess");
    benchmark::Shutdown();
    return 0;
}
