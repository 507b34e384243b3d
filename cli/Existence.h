#pragma once
// Whether an id names a record. The public classes answer a fallback for an
// id that names nothing (0 clients, level 1, an empty filter); the command
// also tells the person that the id does not exist, so that a typing slip is
// not taken for an answer.
#include <cstdint>
#include <iosfwd>
#include <string>

namespace avlor::cli {

struct RecordKind {
    const char* table; // "Pratica"
    const char* key; // "ID_Pra"
    const char* named; // "la pratica"
};

inline constexpr RecordKind Utente{"Utenti", "ID_Utente", "l'utente"};
inline constexpr RecordKind Pratica{"Pratica", "ID_Pra", "la pratica"};
inline constexpr RecordKind Anagrafica{"Anagrafica", "ID_Ana", "l'anagrafica"};
inline constexpr RecordKind Fattura{"Fatture", "ID_Fattura", "la fattura"};

// Reads the current database; raises what the data layer raises.
[[nodiscard]] bool recordExists(const RecordKind& kind, std::int32_t id);
// "la pratica 99 non esiste nel database".
[[nodiscard]] std::string missingRecord(const RecordKind& kind, std::int32_t id);
// Writes "avlor: avviso: la pratica 99 non esiste nel database" on `err` when
// the id names nothing.
void warnIfMissing(std::ostream& err, const RecordKind& kind, std::int32_t id);

} // namespace avlor::cli
