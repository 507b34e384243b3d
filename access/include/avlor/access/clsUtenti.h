#pragma once
// clsUtenti: what the component knows about users: their confidentiality
// level, their groups, the members of a group, the accounting right, the
// current user of this workstation, and the SQL filter fragments the host
// puts into its own WHERE clauses so that a user sees only what he may see.
//
// User ids are taken as values of any type and joined into the SQL as their
// text, without any check of their form; group names always go into the SQL
// as quoted literals. The group names "TUTTI" (everyone) and
// "AMMINISTRAZIONE" (administration) are special and compared in upper case;
// user 2 sees everything through both record filters.
//
// The class keeps no state between calls. Every operation reads the current
// practice database in read-only mode. All of them except the two record
// filters trap every failure and answer their stated fallback.
#include <cstdint>
#include <string>

#include "avlor/access/fbLivRiservatezza.h"
#include "avlor/core/Collection.h"
#include "avlor/core/Value.h"

namespace avlor {

class clsUtenti {
public:
    // La funzione costruisce in base all' id_Utente la stringa per il filtro
    // id_riservatezza: the parenthesised list of the user ids whose records
    // the user may see, to stand after IN, e.g. "(0,5,9)" (0 marks public
    // records). Each id is listed once. A level outside 1 to 4 gives "". Any
    // failure (reading the level, the groups, the members or the users) gives
    // the user's own id alone, "(5)", without the public 0.
    [[nodiscard]] std::string GetSqlRiservatezza(const Value& alIdUtente) const;

    // Utenti.LivelloRiservatezza of the user, as stored (0 or above 4 too).
    // A user whose level cannot be read (no row, null, database down) has
    // level 1, fbUtente: he sees only public records and his own.
    [[nodiscard]] std::int32_t GetLivelloRiservatezza(const Value& alIdUtente) const;

    // The names of the user's groups, as text, in the order the database
    // gives them; empty on any failure.
    [[nodiscard]] Collection GetGruppiUtente(const Value& alIdUtente) const;

    // The ids of the members of the group, in the order the database gives
    // them; empty on any failure.
    [[nodiscard]] Collection GetUtentiDelGruppo(const std::string& aszGruppo) const;

    // The WHERE condition for case files (columns Id_Riservata, fk_Gruppo):
    // the public and own records without a group, or public records of one of
    // the user's groups; "1=1" for user 2. A failure while reading the groups
    // is raised to the caller.
    [[nodiscard]] std::string GetSqlFiltroPratiche(const Value& avIdUtente) const;

    // True when the user exists and is an accounting user; false otherwise
    // and on any failure.
    [[nodiscard]] bool IsUtenteContabilita(const Value& avIdUtente) const;

    // True when the user is a member of the group; false otherwise and on any
    // failure.
    [[nodiscard]] bool UtenteInGruppo(const Value& avIdUtente, const Value& avGruppo) const;

    // The current user of this workstation: the setting "Id_Utente" of
    // section "Shared" of application "Avlor32", read leniently as the
    // leading number of its text ("7" -> 7, "12abc" -> 12, "abc" -> 0).
    // A whole number that fits is answered as a Long, any other number as a
    // Double. With no setting, or on any failure, the current user is 1.
    [[nodiscard]] Value GetIdOfCurrentUser() const;

    // The WHERE condition for persons (columns IdRiservata, fkGruppo): the
    // public and own records, or any record of one of the user's groups; when
    // the user has no group, the public and own records without a group;
    // "1=1" for user 2. A failure while reading the groups is raised to the
    // caller.
    [[nodiscard]] std::string GetSqlFiltroAnagrafiche(const Value& avIdUtente) const;
};

} // namespace avlor
