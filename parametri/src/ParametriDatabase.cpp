#include "avlor/parametri/ParametriDatabase.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <tuple>

#include "avlor/data/Connection.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"
#include "avlor/data/TipoCampo.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/data/clsUtilitaDati.h"
#include "avlor/parametri/ParametriFile.h"

namespace avlor::parametri {

namespace {

constexpr const char* TabelleTable = "ParametriTabelle";
constexpr const char* CifreTable = "ParametriCifre";

const std::vector<std::string> ColonneTabelle = {"Versione",     "Tabella",    "Titolo", "Fonte",
                                                 "Affidabilita", "Verificata", "Nota"};
const std::vector<std::string> ColonneCifre = {"Versione", "Tabella",     "Ordine", "ScaglioneDa", "ScaglioneA",
                                               "Fase",     "ValoreMedio", "Fonte",  "Affidabilita"};

std::string quoted(const std::string& text) { return clsUtilitaDati::instance().FormattaTestoSql(text); }

Value optionalAmount(const std::optional<Currency>& amount)
{
    return amount ? Value::currency(*amount) : Value::null();
}

std::optional<Currency> readAmount(const Value& value)
{
    if (value.isNull() || value.isEmpty())
        return std::nullopt;
    return value.toCurrency();
}

std::string text(const Value& value) { return value.isNull() || value.isEmpty() ? std::string() : value.toText(); }

std::vector<Value> tableRow(const Tabella& t)
{
    return {Value::text(t.versione),     Value::text(t.numero),        Value::text(t.titolo), Value::text(t.fonte),
            Value::text(t.affidabilita), Value::boolean(t.verificata), Value::text(t.nota)};
}

std::vector<Value> figureRow(const std::string& versione, const std::string& numero, std::size_t ordine, const Cifra& c)
{
    return {Value::text(versione),          Value::text(numero),  Value::longValue(static_cast<std::int32_t>(ordine)),
            optionalAmount(c.da),           optionalAmount(c.a),  Value::text(c.fase),
            Value::currency(c.valoreMedio), Value::text(c.fonte), Value::text(c.affidabilita)};
}

bool holdsParametri(const std::shared_ptr<Connection>& connection)
{
    const std::vector<std::string> names = connection->tableNames();
    return std::any_of(names.begin(), names.end(), [](const std::string& name) {
        std::string lower = name;
        std::transform(lower.begin(), lower.end(), lower.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        return lower == "parametricifre";
    });
}

std::shared_ptr<Connection> parametriConnection()
{
    auto connection = connectionFor(currentDatabase());
    if (!holdsParametri(connection))
        throw ParametriError("Il database dello studio non ha le tabelle dei parametri (è stato creato prima che "
                             "vi fossero aggiunte): crearne uno nuovo con avlor db init");
    return connection;
}

} // namespace

Caricamento caricaParametri(const Catalogo& catalogo)
{
    const auto connection = parametriConnection();
    Caricamento result;
    TransactionScope transaction(connection);
    std::vector<std::vector<Value>> tables;
    std::vector<std::vector<Value>> figures;
    for (const Tabella& t : catalogo.tabelle) {
        connection->executeScript("DELETE FROM " + std::string(CifreTable) + " WHERE Versione = " + quoted(t.versione) +
                                  " AND Tabella = " + quoted(t.numero));
        connection->executeScript("DELETE FROM " + std::string(TabelleTable) +
                                  " WHERE Versione = " + quoted(t.versione) + " AND Tabella = " + quoted(t.numero));
        tables.push_back(tableRow(t));
        for (std::size_t i = 0; i < t.cifre.size(); ++i)
            figures.push_back(figureRow(t.versione, t.numero, i + 1, t.cifre[i]));
    }
    if (!tables.empty())
        connection->insertRows(TabelleTable, ColonneTabelle, tables);
    if (!figures.empty())
        connection->insertRows(CifreTable, ColonneCifre, figures);
    transaction.commit();
    result.tabelle = tables.size();
    result.cifre = figures.size();
    return result;
}

Caricamento caricaParametriSpediti() { return caricaParametri(catalogoSpedito()); }

Catalogo leggiParametri()
{
    const auto connection = parametriConnection();
    Catalogo catalogo;
    clsAccessoDati access(connection);
    const auto tables =
        access.Apri("SELECT * FROM " + std::string(TabelleTable), adOpenForwardOnly, adLockReadOnly, adCmdUnspecified);
    for (; !tables->Eof(); tables->MoveNext()) {
        Tabella t;
        t.versione = text(tables->Field("Versione"));
        t.numero = text(tables->Field("Tabella"));
        t.titolo = text(tables->Field("Titolo"));
        t.fonte = text(tables->Field("Fonte"));
        t.affidabilita = text(tables->Field("Affidabilita"));
        const Value verified = tables->Field("Verificata");
        t.verificata = verified.isNull() || verified.isEmpty() || verified.toBool();
        t.nota = text(tables->Field("Nota"));
        catalogo.tabelle.push_back(std::move(t));
    }
    std::sort(catalogo.tabelle.begin(), catalogo.tabelle.end(), [](const Tabella& x, const Tabella& y) {
        return std::make_tuple(x.versione, ordineTabella(x.numero)) <
            std::make_tuple(y.versione, ordineTabella(y.numero));
    });
    std::map<std::pair<std::string, std::string>, std::size_t> index;
    for (std::size_t i = 0; i < catalogo.tabelle.size(); ++i)
        index[{catalogo.tabelle[i].versione, catalogo.tabelle[i].numero}] = i;
    // In the order of their source; figures added later come after them
    // and take their place among the brackets below.
    clsAccessoDati figuresAccess(connection);
    const auto figures =
        figuresAccess.Apri("SELECT * FROM " + std::string(CifreTable) + " ORDER BY Versione, Tabella, Ordine",
                           adOpenForwardOnly, adLockReadOnly, adCmdUnspecified);
    for (; !figures->Eof(); figures->MoveNext()) {
        const auto found = index.find({text(figures->Field("Versione")), text(figures->Field("Tabella"))});
        if (found == index.end())
            continue;
        Cifra c;
        c.da = readAmount(figures->Field("ScaglioneDa"));
        c.a = readAmount(figures->Field("ScaglioneA"));
        c.fase = text(figures->Field("Fase"));
        c.valoreMedio = figures->Field("ValoreMedio").toCurrency();
        c.fonte = text(figures->Field("Fonte"));
        c.affidabilita = text(figures->Field("Affidabilita"));
        catalogo.tabelle[found->second].cifre.push_back(std::move(c));
    }
    for (Tabella& t : catalogo.tabelle)
        std::stable_sort(t.cifre.begin(), t.cifre.end(), [](const Cifra& x, const Cifra& y) {
            return x.da.value_or(Currency()) < y.da.value_or(Currency());
        });
    return catalogo;
}

Caricamento importaParametri(std::string_view testo, const std::string& origine)
{
    const std::string fonte = std::string(FonteImportata) + origine;
    std::vector<RigaImportata> rows;
    try {
        rows = leggiFileParametri(testo, fonte);
    } catch (const ParametriFileError& e) {
        throw e.inFile(origine);
    }
    const auto connection = parametriConnection();
    const Catalogo present = leggiParametri();

    // Tables the database does not have yet: titled after the same table of
    // another version, trusted no more than their least trusted figure.
    std::map<std::pair<std::string, std::string>, Tabella> added;
    for (const RigaImportata& row : rows) {
        if (present.trova(row.versione, row.tabella) != nullptr)
            continue;
        auto [entry, isNew] = added.try_emplace({row.versione, row.tabella});
        Tabella& t = entry->second;
        if (isNew) {
            t.versione = row.versione;
            t.numero = row.tabella;
            t.titolo = "Tabella " + row.tabella;
            for (const Tabella& other : present.tabelle) {
                if (other.numero == row.tabella)
                    t.titolo = other.titolo;
            }
            t.fonte = fonte;
            t.affidabilita = row.cifra.affidabilita;
        }
        const auto rank = [](const std::string& level) { return level == "alta" ? 2 : (level == "media" ? 1 : 0); };
        if (rank(row.cifra.affidabilita) < rank(t.affidabilita))
            t.affidabilita = row.cifra.affidabilita;
        t.verificata = t.affidabilita != "bassa";
    }

    // Each table the file touches is written back whole: its figures as
    // they are, those of the file in place of the ones with the same bracket
    // and phase, the new ones after them.
    std::map<std::pair<std::string, std::string>, std::vector<Cifra>> merged;
    for (const RigaImportata& row : rows) {
        const std::pair<std::string, std::string> key{row.versione, row.tabella};
        if (merged.count(key) == 0) {
            const Tabella* t = present.trova(row.versione, row.tabella);
            merged[key] = t != nullptr ? t->cifre : std::vector<Cifra>();
        }
    }
    Caricamento result;
    for (const RigaImportata& row : rows) {
        std::vector<Cifra>& figures = merged[{row.versione, row.tabella}];
        const auto same = std::find_if(figures.begin(), figures.end(), [&](const Cifra& c) {
            return c.da == row.cifra.da && c.a == row.cifra.a && c.fase == row.cifra.fase;
        });
        if (same != figures.end()) {
            *same = row.cifra;
            ++result.sostituite;
        } else {
            figures.push_back(row.cifra);
        }
    }

    TransactionScope transaction(connection);
    std::vector<std::vector<Value>> figureRows;
    for (const auto& [key, figures] : merged) {
        connection->executeScript("DELETE FROM " + std::string(CifreTable) + " WHERE Versione = " + quoted(key.first) +
                                  " AND Tabella = " + quoted(key.second));
        for (std::size_t i = 0; i < figures.size(); ++i)
            figureRows.push_back(figureRow(key.first, key.second, i + 1, figures[i]));
    }
    std::vector<std::vector<Value>> tables;
    for (const auto& [key, t] : added)
        tables.push_back(tableRow(t));
    if (!tables.empty())
        connection->insertRows(TabelleTable, ColonneTabelle, tables);
    if (!figureRows.empty())
        connection->insertRows(CifreTable, ColonneCifre, figureRows);
    transaction.commit();
    result.tabelle = tables.size();
    result.cifre = rows.size();
    return result;
}

Caricamento importaFileParametri(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in)
        throw ParametriError("Il file " + file.string() + " non si può leggere");
    std::ostringstream content;
    content << in.rdbuf();
    return importaParametri(content.str(), file.filename().string());
}

std::string esportaParametri() { return scriviFileParametri(leggiParametri()); }

} // namespace avlor::parametri
