#pragma once
// One call of the tariff engine with all ten by-reference arguments held as
// named members, so that a test sets what it needs and reads every output
// afterwards.
#include <cstdint>
#include <string>

#include "avlor/core/Currency.h"
#include "avlor/engine/CalcolaTariffaModulo.h"

namespace avlor::test {

// An amount from its decimal text ("129.11"), for readable fixtures.
inline Currency amount(const char* text) { return Currency::fromText(text); }

// Output values that no engine path produces, to show an output untouched.
inline const Currency MinTarBefore = Currency::fromRaw(11);
inline const Currency MaxTarBefore = Currency::fromRaw(22);
inline const Currency MinSBefore = Currency::fromRaw(33);
inline const Currency MaxSBefore = Currency::fromRaw(44);

struct EngineCall {
    Currency cValore;
    std::int16_t vRil = 0;
    std::string sTabella;
    std::int16_t bInd = 0;
    std::int32_t idTariffa = 0;
    Currency MinTar = MinTarBefore;
    Currency MaxTar = MaxTarBefore;
    Currency MinS = MinSBefore;
    Currency MaxS = MaxSBefore;
    std::string Autorita;

    Currency run()
    {
        return CalcolaTariffaModulo(cValore, vRil, sTabella, bInd, idTariffa, MinTar, MaxTar, MinS, MaxS, Autorita);
    }
};

// The message the engine shows when nothing is proposed.
inline std::string noProposal(const std::string& kindWord, const std::string& code)
{
    return kindWord + " codice <" + code + "> non previsto per una pratica di questo valore.\rNessun valore proposto.";
}

} // namespace avlor::test
