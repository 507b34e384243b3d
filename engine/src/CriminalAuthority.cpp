#include "avlor/engine/CriminalAuthority.h"

#include <array>

namespace avlor {

namespace {

constexpr std::string_view GiudiceDiPace = "Giudice di pace";
constexpr std::string_view GipEGup = "Gip e Gup";

// The authorities whose columns are the same in every edition.
struct AuthorityColumns {
    std::string_view autorita;
    std::string_view prefix;
};
constexpr std::array<AuthorityColumns, 7> SameInEveryEdition{{
    {"Pretura", "Pretura"},
    {"Tribunale in comp. monocratica", "Tribunale"},
    {"Tribunale in comp. collegiale", "Tribunale"},
    {"Tribunale", "Tribunale"},
    {"Corte d'Assise e d'Assise d'Appello", "AssiseApp"},
    {"Corte d'Appello", "Appello"},
    {"Corte Costituzionale e Cassazione", "CostCass"},
}};

bool containsIgnoringCase(std::string_view text, std::string_view part)
{
    auto lower = [](char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; };
    if (part.size() > text.size())
        return false;
    for (std::size_t start = 0; start + part.size() <= text.size(); ++start) {
        bool same = true;
        for (std::size_t i = 0; i < part.size() && same; ++i)
            same = lower(text[start + i]) == lower(part[i]);
        if (same)
            return true;
    }
    return false;
}

} // namespace

std::optional<std::string> criminalColumnPrefix(std::string_view Autorita, std::string_view sTabella, Edition edition)
{
    // The 1994 tables predate the justice of the peace and the preliminary
    // hearing judge: work before them is priced as before the Tribunale.
    if (Autorita == GiudiceDiPace)
        return containsIgnoringCase(sTabella, "2004Euro") ? "GiuPace" : "Tribunale";
    if (Autorita == GipEGup)
        return edition == Edition::Euro2004 ? "Gip" : "Tribunale";
    for (const AuthorityColumns& known : SameInEveryEdition) {
        if (Autorita == known.autorita)
            return std::string(known.prefix);
    }
    return std::nullopt;
}

} // namespace avlor
