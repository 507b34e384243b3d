#pragma once
// The sections of the engine, one per family of fee tables. Each prices one
// item into the caller's outputs, writing each output only where its rules
// set it, and reports what the final step needs.
#include <cstdint>
#include <string>
#include <string_view>

#include "avlor/core/Currency.h"
#include "avlor/core/FeeTables.h"

namespace avlor {

struct TariffRequest {
    Currency cValore;
    std::int16_t vRil = 0;
    std::string_view sTabella; // as the caller passed it
    std::int16_t bInd = 0; // the stored boolean: 0 false, -1 true
    std::int32_t idTariffa = 0;
    std::string_view Autorita;
};

// The caller's outputs, written in place so that an error part-way leaves
// what had been written before it.
struct TariffOutputs {
    Currency& MinTar;
    Currency& MaxTar;
    Currency& MinS;
    Currency& MaxS;
};

struct SectionOutcome {
    Currency result; // 0: nothing proposed
    std::string kindWord; // "Diritto", "Onorario" or "Onorario Penale" once a row is read
    std::string itemCode; // the row's CodiceTariffa
};

inline constexpr std::int16_t StoredFalse = 0;
inline constexpr std::int16_t StoredTrue = -1;

// The item of each family priced from constants, reading no row.
[[nodiscard]] std::int32_t rightsFixedItem(Edition edition);
[[nodiscard]] std::int32_t civilFixedItem(Edition edition);

[[nodiscard]] SectionOutcome rightsSection(const FeeTable& table, const TariffRequest& request, TariffOutputs& out);
[[nodiscard]] SectionOutcome civilSection(const FeeTable& table, const TariffRequest& request, TariffOutputs& out);
[[nodiscard]] SectionOutcome criminalSection(const FeeTable& table, const TariffRequest& request, TariffOutputs& out);
[[nodiscard]] SectionOutcome outOfCourtSection(const FeeTable& table, const TariffRequest& request, TariffOutputs& out);

} // namespace avlor
