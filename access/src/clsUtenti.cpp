#include "avlor/access/clsUtenti.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>
#include <string_view>

#include "avlor/core/Error.h"
#include "avlor/core/ErrorTrap.h"
#include "avlor/core/Settings.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/data/clsUtilitaDati.h"

namespace avlor {

namespace {

// The two group names with a meaning of their own. "TUTTI" holds everyone,
// so listing its members would open every record to every user; it never
// widens a filter. "AMMINISTRAZIONE" is left out only at level fbGruppiNoAMM.
constexpr std::string_view GruppoTutti = "TUTTI";
constexpr std::string_view GruppoAmministrazione = "AMMINISTRAZIONE";

// The user who sees every case file and every person.
constexpr double AllSeeingUserId = 2.0;

// ---- Reading: these let every failure through; the public operations
// ---- decide whether to trap it.

void openReadOnly(clsAccessoDati& dati, const std::string& source)
{
    dati.Apri(source, adOpenForwardOnly, adLockReadOnly, adCmdUnspecified);
}

// Every value of `field` of the rows of `statement`, in row order.
Collection readColumn(const std::string& statement, const std::string& field, std::int32_t tipoCampo)
{
    clsAccessoDati dati;
    openReadOnly(dati, statement);
    Collection values;
    while (!dati.Recordset().Eof()) {
        values.Add(dati.Campo(field, tipoCampo));
        dati.Recordset().MoveNext();
    }
    return values;
}

bool rowExists(const std::string& statement)
{
    clsAccessoDati dati;
    openReadOnly(dati, statement);
    return !dati.Recordset().Eof();
}

std::int32_t readLevel(const Value& idUtente)
{
    clsAccessoDati dati;
    openReadOnly(dati, "Select LivelloRiservatezza FROM Utenti WHERE Id_Utente = " + idUtente.toText());
    return dati.Campo("LivelloRiservatezza", TipoNumero).toLong();
}

Collection readGroups(const Value& idUtente)
{
    return readColumn("SELECT DISTINCT Fk_Gruppo FROM RelGruppiUtenti WHERE Fk_Id_Utente = " + idUtente.toText(),
                      "Fk_Gruppo", TipoTesto);
}

Collection readGroupMembers(const std::string& gruppo)
{
    return readColumn("Select fk_id_Utente FROM RelGruppiUtenti WHERE Fk_Gruppo = " +
                          clsUtilitaDati::instance().FormattaTestoSql(gruppo),
                      "fk_id_Utente", TipoNumero);
}

// ---- Text building.

std::string upperCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

bool isGroup(const Value& gruppo, std::string_view name) { return upperCase(gruppo.toText()) == name; }

// Lists are built by appending "item," for each item; the last comma goes.
// Exactly one comma is dropped, whatever the text ends with before it.
void dropOneTrailingComma(std::string& list)
{
    if (!list.empty() && list.back() == ',') {
        list.pop_back();
    }
}

std::string closeList(std::string list)
{
    dropOneTrailingComma(list);
    return list + ")";
}

// The key under which a member is filed in the list of users seen.
// (Built by appending: GCC 12 at -O3 warns falsely on a short literal
// joined in front of a temporary text.)
std::string seenKey(const Value& member)
{
    std::string key = "K";
    key += member.toText();
    return key;
}

// "(0," then every member of the user's groups once, in the order first met.
// `seen` belongs to this one call, so a user who shares several groups with
// the user is listed once.
std::string membersOfGroups(const Value& idUtente, bool skipAdministration)
{
    std::string list = "(0,";
    Collection seen;
    for (const Value& gruppo : readGroups(idUtente)) {
        if (isGroup(gruppo, GruppoTutti) || (skipAdministration && isGroup(gruppo, GruppoAmministrazione))) {
            continue;
        }
        for (const Value& member : readGroupMembers(gruppo.toText())) {
            const std::string key = seenKey(member);
            if (!clsUtilitaDati::instance().EsisteInCollezione(seen, key)) {
                list += member.toText() + ",";
                seen.Add(member, key);
            }
        }
    }
    return closeList(list);
}

// "(0," then every user of the table, in table order.
std::string allUsers()
{
    std::string list = "(0,";
    clsAccessoDati dati;
    openReadOnly(dati, "Utenti");
    while (!dati.Recordset().Eof()) {
        list += dati.Campo("Id_Utente", TipoNumero).toText() + ",";
        dati.Recordset().MoveNext();
    }
    return closeList(list);
}

std::string visibleUsers(const Value& idUtente, std::int32_t level)
{
    switch (level) {
    case fbUtente:
        return "(0," + idUtente.toText() + ")";
    case fbGruppo:
        return membersOfGroups(idUtente, false);
    case fbTutti:
        return allUsers();
    case fbGruppiNoAMM:
        return membersOfGroups(idUtente, true);
    default:
        return {};
    }
}

// The user's groups other than "TUTTI", each as an SQL literal, joined by
// commas; empty when the user has no such group.
std::string groupLiterals(const Value& idUtente)
{
    std::string list;
    for (const Value& gruppo : readGroups(idUtente)) {
        if (!isGroup(gruppo, GruppoTutti)) {
            list += clsUtilitaDati::instance().FormattaTestoSql(gruppo.toText()) + ",";
        }
    }
    dropOneTrailingComma(list);
    return list;
}

// The id compared as a number: "2", 2 and 2.0 are the all-seeing user; a
// value that is no number is not.
bool isAllSeeingUser(const Value& idUtente)
{
    try {
        return idUtente.toDouble() == AllSeeingUserId;
    } catch (const ValueError&) {
        return false;
    }
}

// The lenient number as a Long when it is a whole number that fits, so that
// ids travel as ids; any other number as it was read.
Value wholeWhenPossible(double number)
{
    const bool whole = std::isfinite(number) && std::trunc(number) == number &&
        number >= static_cast<double>(std::numeric_limits<std::int32_t>::min()) &&
        number <= static_cast<double>(std::numeric_limits<std::int32_t>::max());
    return whole ? Value(static_cast<std::int32_t>(number)) : Value(number);
}

} // namespace

std::string clsUtenti::GetSqlRiservatezza(const Value& alIdUtente) const
{
    // The fallback is narrower than level 1 on purpose: without the public 0,
    // a user whose rights cannot be worked out sees only his own records.
    std::string ownIdAlone = "(";
    ownIdAlone += alIdUtente.toText();
    ownIdAlone += ")";
    // The level comes through the public operation, which answers fbUtente
    // for a user whose level cannot be read (an unknown user, a null level):
    // such a user gets the public records and his own like any level-1 user.
    const std::int32_t level = GetLivelloRiservatezza(alIdUtente);
    return withFallback(ownIdAlone, [&] { return visibleUsers(alIdUtente, level); });
}

std::int32_t clsUtenti::GetLivelloRiservatezza(const Value& alIdUtente) const
{
    return withFallback(std::int32_t{fbUtente}, [&] { return readLevel(alIdUtente); });
}

Collection clsUtenti::GetGruppiUtente(const Value& alIdUtente) const
{
    return withFallback(Collection{}, [&] { return readGroups(alIdUtente); });
}

Collection clsUtenti::GetUtentiDelGruppo(const std::string& aszGruppo) const
{
    return withFallback(Collection{}, [&] { return readGroupMembers(aszGruppo); });
}

std::string clsUtenti::GetSqlFiltroPratiche(const Value& avIdUtente) const
{
    const std::string id = avIdUtente.toText();
    std::string text = "((Id_Riservata IN (0," + id + "))  AND (fk_Gruppo IS NULL)) ";
    const std::string groups = groupLiterals(avIdUtente);
    if (!groups.empty()) {
        text += " OR ((Id_Riservata=0) AND (fk_Gruppo IN (" + groups + ")))";
    }
    if (isAllSeeingUser(avIdUtente)) {
        text = "1=1";
    }
    return text;
}

bool clsUtenti::IsUtenteContabilita(const Value& avIdUtente) const
{
    return withFallback(false, [&] {
        return rowExists("SELECT Utenti.ID_Utente From Utenti "
                         "WHERE (((Utenti.ID_Utente) = " +
                         avIdUtente.toText() + ") AND ((Utenti.TitContabilita) = 'True'))");
    });
}

bool clsUtenti::UtenteInGruppo(const Value& avIdUtente, const Value& avGruppo) const
{
    return withFallback(false, [&] {
        return rowExists("Select fk_id_Utente FROM RelGruppiUtenti WHERE Fk_Gruppo = " +
                         clsUtilitaDati::instance().FormattaTestoSql(avGruppo.toText()) +
                         " AND fk_Id_Utente = " + avIdUtente.toText());
    });
}

Value clsUtenti::GetIdOfCurrentUser() const
{
    return withFallback(Value(std::int32_t{1}), [] {
        const double number = numberLenient(SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "1"));
        // A number that overflowed every numeric type (Id_Utente=1e400) names
        // no user: it takes the fallback like any other failure.
        if (!std::isfinite(number))
            throw ValueError(ValueError::Kind::Overflow,
                             "Overflow: Id_Utente non contiene un numero che si possa usare");
        return wholeWhenPossible(number);
    });
}

std::string clsUtenti::GetSqlFiltroAnagrafiche(const Value& avIdUtente) const
{
    const std::string id = avIdUtente.toText();
    const std::string groups = groupLiterals(avIdUtente);
    std::string text = groups.empty() ? "(IdRiservata IN (0," + id + ") AND (fkGruppo IS NULL)) "
                                      : "(IdRiservata IN (0," + id + ") OR (fkGruppo  IN (" + groups + ")))";
    if (isAllSeeingUser(avIdUtente)) {
        text = "1=1";
    }
    return text;
}

} // namespace avlor
