#pragma once
// fbLivRiservatezza: a user's confidentiality level, as stored in
// Utenti.LivelloRiservatezza. It decides whose records the user may see.
#include <cstdint>

namespace avlor {

enum fbLivRiservatezza : std::int32_t {
    fbUtente = 1, // public records and the user's own
    fbGruppo = 2, // also the records of every member of the user's groups
    fbTutti = 3, // the records of all users
    fbGruppiNoAMM = 4, // as fbGruppo, but membership of "AMMINISTRAZIONE" does not count
};

} // namespace avlor
