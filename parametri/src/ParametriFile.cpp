#include "avlor/parametri/ParametriFile.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <tuple>

#include "ShippedParametriFiles.h"
#include "avlor/core/Text.h"
#include "avlor/tariffe/Csv.h"

namespace avlor::parametri {

namespace {

const std::vector<std::string> ColonneImport = {"versione", "tabella",      "scaglione_da", "scaglione_a",
                                                "fase",     "valore_medio", "affidabilita", "fonte"};
const std::vector<std::string> ColonneSpedite = {"scaglione_da", "scaglione_a", "fase", "valore_medio"};

std::string trim(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    const auto last = text.find_last_not_of(" \t");
    return std::string(text.substr(first, last - first + 1));
}

std::string lowerAscii(std::string_view text)
{
    std::string result(text);
    for (char& c : result)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return result;
}

// The text of a shipped or imported file with its "#" lines blanked (so the
// reader still counts them) and kept apart.
std::string withoutComments(std::string_view text, std::vector<std::string>& comments)
{
    std::string result;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos)
            end = text.size();
        const std::string_view line = text.substr(start, end - start);
        if (!line.empty() && line.front() == '#') {
            std::string comment = trim(line.substr(1));
            if (!comment.empty() && comment.back() == '\r')
                comment.pop_back();
            comments.push_back(trim(comment));
        } else {
            result += line;
        }
        if (end < text.size())
            result += '\n';
        start = end + 1;
    }
    return result;
}

std::vector<std::string> cells(const CsvRecord& record)
{
    std::vector<std::string> result;
    for (const CsvField& field : record.fields)
        result.push_back(trim(field.text));
    return result;
}

void requireHeader(const std::optional<CsvRecord>& header, const std::vector<std::string>& expected,
                   const std::string& file)
{
    std::string wanted;
    for (const std::string& name : expected)
        wanted += (wanted.empty() ? "" : ";") + name;
    if (!header)
        throw ParametriFileError(1, "", "il file è vuoto: manca l'intestazione " + wanted, file);
    std::vector<std::string> names = cells(*header);
    for (std::string& name : names)
        name = lowerAscii(name);
    if (names != expected)
        throw ParametriFileError(header->line, "", "l'intestazione deve essere " + wanted, file);
}

// The two bounds of a bracket, both empty (a table without brackets) or
// both amounts with the first below the second.
void readBracket(const std::string& da, const std::string& a, std::size_t line, Cifra& cifra, const std::string& file)
{
    if (da.empty() && a.empty())
        return;
    const auto from = leggiImporto(da);
    if (!from)
        throw ParametriFileError(line, "scaglione_da", "«" + da + "» non è un importo", file);
    const auto to = leggiImporto(a);
    if (!to)
        throw ParametriFileError(line, "scaglione_a", "«" + a + "» non è un importo", file);
    if (!(*from < *to))
        throw ParametriFileError(line, "scaglione_a", "lo scaglione deve finire dopo il suo inizio", file);
    cifra.da = from;
    cifra.a = to;
}

void readFigure(const std::string& fase, const std::string& valore, std::size_t line, Cifra& cifra,
                const std::string& file)
{
    if (fase.empty())
        throw ParametriFileError(line, "fase", "la fase manca", file);
    cifra.fase = fase;
    const auto amount = leggiImporto(valore);
    if (!amount || *amount <= Currency())
        throw ParametriFileError(line, "valore_medio", "«" + valore + "» non è un importo maggiore di zero", file);
    cifra.valoreMedio = *amount;
}

std::string exported(Currency amount) { return testoImportoPunto(amount); }

struct Affidabilita {
    std::string livello;
    bool verificata = true;
    std::string nota;
};

std::map<std::pair<std::string, std::string>, Affidabilita> readTrust(std::string_view text)
{
    std::map<std::pair<std::string, std::string>, Affidabilita> result;
    std::vector<std::string> comments;
    const std::string body = withoutComments(text, comments);
    CsvReader reader(body, ';');
    requireHeader(reader.next(), {"versione", "tabella", "affidabilita", "verificata", "nota"}, "Affidabilita.csv");
    while (auto record = reader.next()) {
        if (record->isBlank())
            continue;
        std::vector<std::string> row = cells(*record);
        // A note may hold the separator itself ("...; nessuna fonte
        // indipendente"): what follows the fourth column is all note.
        for (std::size_t i = 5; i < row.size(); ++i)
            row[4] += "; " + row[i];
        row.resize(5);
        result[{row[0], row[1]}] = {row[2], row[3] == "si", row[4]};
    }
    return result;
}

Catalogo buildShipped()
{
    Catalogo catalogo;
    std::map<std::pair<std::string, std::string>, Affidabilita> trust;
    for (const auto& file : parametri_detail::shippedParametriFiles()) {
        if (file.name == "Affidabilita.csv")
            trust = readTrust(file.text);
    }
    for (const auto& file : parametri_detail::shippedParametriFiles()) {
        const std::string name(file.name);
        const auto slash = name.find('/');
        if (slash == std::string::npos)
            continue;
        const std::string version = name.substr(0, slash);
        // "tab25bis_..." -> "25-bis"
        const std::string stem = name.substr(slash + 4, name.find('_', slash) - slash - 4);
        Tabella tabella;
        try {
            tabella = leggiTabellaSpedita(version, numeroTabella(stem), file.text);
        } catch (const ParametriFileError& e) {
            throw e.inFile(name);
        }
        const auto found = trust.find({version, tabella.numero});
        if (found == trust.end())
            throw ParametriFileError(1, "", "la tabella non ha la sua affidabilità in Affidabilita.csv", name);
        tabella.affidabilita = found->second.livello;
        tabella.verificata = found->second.verificata;
        tabella.nota = found->second.nota;
        for (Cifra& cifra : tabella.cifre)
            cifra.affidabilita = tabella.affidabilita;
        catalogo.tabelle.push_back(std::move(tabella));
    }
    std::sort(catalogo.tabelle.begin(), catalogo.tabelle.end(), [](const Tabella& x, const Tabella& y) {
        return std::make_tuple(x.versione, ordineTabella(x.numero)) <
            std::make_tuple(y.versione, ordineTabella(y.numero));
    });
    return catalogo;
}

} // namespace

ParametriFileError::ParametriFileError(std::size_t riga, const std::string& colonna, const std::string& motivo,
                                       const std::string& file)
    : ParametriError((file.empty() ? "" : file + ", ") + "riga " + std::to_string(riga) +
                     (colonna.empty() ? "" : ", colonna " + colonna) + ": " + motivo),
      riga_(riga), colonna_(colonna), motivo_(motivo)
{
}

ParametriFileError ParametriFileError::inFile(const std::string& file) const
{
    return ParametriFileError(riga_, colonna_, motivo_, file);
}

std::optional<Currency> leggiImporto(std::string_view testo)
{
    const std::string text = trim(testo);
    std::string digits;
    int decimals = -1;
    for (const char c : text) {
        if ((c == ',' || c == '.') && decimals < 0) {
            decimals = 0;
        } else if (std::isdigit(static_cast<unsigned char>(c)) != 0) {
            digits += c;
            if (decimals >= 0 && ++decimals > 2)
                return std::nullopt;
        } else {
            return std::nullopt;
        }
    }
    if (digits.empty() || digits.size() > 15 || decimals == 0)
        return std::nullopt;
    std::int64_t cents = std::stoll(digits);
    for (int i = std::max(decimals, 0); i < 2; ++i)
        cents *= 10;
    return Currency::fromRaw(cents * 100);
}

Tabella leggiTabellaSpedita(const std::string& versione, const std::string& numero, std::string_view testo)
{
    std::vector<std::string> comments;
    const std::string body = withoutComments(testo, comments);
    Tabella tabella;
    tabella.versione = versione;
    tabella.numero = numero;
    const std::string prefix = "Tabella " + numero + " - ";
    if (comments.empty() || comments.front().rfind(prefix, 0) != 0)
        throw ParametriFileError(1, "", "la prima riga deve essere «# " + prefix + "TITOLO»");
    tabella.titolo = comments.front().substr(prefix.size());
    if (const auto mark = tabella.titolo.find("  ***"); mark != std::string::npos)
        tabella.titolo.resize(mark);
    for (std::size_t i = 1; i < comments.size(); ++i)
        tabella.fonte += (tabella.fonte.empty() ? "" : " ") + comments[i];

    CsvReader reader(body, ';');
    std::optional<CsvRecord> header;
    do {
        header = reader.next();
    } while (header && header->isBlank());
    requireHeader(header, ColonneSpedite, "");
    while (auto record = reader.next()) {
        if (record->isBlank())
            continue;
        const std::vector<std::string> row = cells(*record);
        if (row.size() != ColonneSpedite.size())
            throw ParametriFileError(record->line, "", "la riga deve avere 4 colonne");
        Cifra cifra;
        readBracket(row[0], row[1], record->line, cifra, "");
        readFigure(row[2], row[3], record->line, cifra, "");
        cifra.fonte = tabella.fonte;
        tabella.cifre.push_back(std::move(cifra));
    }
    return tabella;
}

const Catalogo& catalogoSpedito()
{
    static const Catalogo shipped = buildShipped();
    return shipped;
}

std::vector<RigaImportata> leggiFileParametri(std::string_view testo, const std::string& fonteMancante)
{
    std::vector<std::string> comments;
    const std::string body = withoutComments(testo, comments);
    std::vector<RigaImportata> result;
    std::set<std::tuple<std::string, std::string, std::string, std::string, std::string>> seen;
    try {
        CsvReader reader(body, detectCsvSeparator(body));
        std::optional<CsvRecord> header;
        do {
            header = reader.next();
        } while (header && header->isBlank());
        requireHeader(header, ColonneImport, "");
        while (auto record = reader.next()) {
            if (record->isBlank())
                continue;
            std::vector<std::string> row = cells(*record);
            if (row.size() != ColonneImport.size())
                throw ParametriFileError(record->line, "",
                                         "la riga ha " + std::to_string(row.size()) + " colonne invece di " +
                                             std::to_string(ColonneImport.size()));
            for (std::size_t column = 0; column < row.size(); ++column) {
                if (!isValidUtf8(row[column]))
                    throw ParametriFileError(record->line, ColonneImport[column],
                                             "il testo non è UTF-8 (salvare il file in UTF-8)");
            }
            RigaImportata riga;
            riga.riga = record->line;
            try {
                riga.versione = std::string(versione(row[0]).nome);
            } catch (const ParametriError& e) {
                throw ParametriFileError(record->line, "versione", e.what());
            }
            try {
                riga.tabella = numeroTabella(row[1]);
            } catch (const ParametriError& e) {
                throw ParametriFileError(record->line, "tabella", e.what());
            }
            readBracket(row[2], row[3], record->line, riga.cifra, "");
            readFigure(row[4], row[5], record->line, riga.cifra, "");
            const std::string trust = lowerAscii(row[6]);
            if (trust != "alta" && trust != "media" && trust != "bassa")
                throw ParametriFileError(record->line, "affidabilita",
                                         "«" + row[6] + "» non è un'affidabilità: alta, media o bassa");
            riga.cifra.affidabilita = trust;
            riga.cifra.fonte = row[7].empty() ? fonteMancante : row[7];
            const auto key = std::make_tuple(riga.versione, riga.tabella, row[2], row[3], riga.cifra.fase);
            if (!seen.insert(key).second)
                throw ParametriFileError(record->line, "fase",
                                         "la cifra della tabella " + riga.tabella + " (versione " + riga.versione +
                                             "), " + testoScaglione(riga.cifra) + ", fase «" + riga.cifra.fase +
                                             "» è già in una riga precedente");
            result.push_back(std::move(riga));
        }
    } catch (const CsvError& e) {
        throw ParametriFileError(e.line(), "", e.what());
    }
    return result;
}

std::string scriviFileParametri(const Catalogo& catalogo)
{
    std::vector<std::string> header;
    for (const std::string& name : ColonneImport)
        header.push_back(name);
    std::string text = csvLine(header);
    for (const Tabella& t : catalogo.tabelle) {
        for (const Cifra& c : t.cifre)
            text += csvLine({t.versione, t.numero, c.da ? exported(*c.da) : std::string(),
                             c.a ? exported(*c.a) : std::string(), csvQuoted(c.fase), exported(c.valoreMedio),
                             c.affidabilita, csvQuoted(c.fonte)});
    }
    return text;
}

} // namespace avlor::parametri
