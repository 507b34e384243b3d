#pragma once
// The official figures as transcribed from their printed sources (the
// files of sql/tariffe/fonti/, with the source of each in its first lines),
// and what each shipped fee table must hold because of them. The mapping
// from a printed column to a table column is written out here on its own,
// apart from the script that made the shipped files, so that the tests check
// the shipped data against the sources rather than against itself.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <ostream>
#include <regex>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "avlor/core/Currency.h"
#include "avlor/tariffe/Csv.h"

namespace avlor::test {

inline std::filesystem::path sourceTree()
{
    const char* dir = std::getenv("AVLOR_SOURCE_DIR");
    return dir != nullptr && *dir != '\0' ? std::filesystem::path(dir) : std::filesystem::current_path();
}

// The shipped folder of the source tree.
inline std::filesystem::path shippedFolder() { return sourceTree() / "sql" / "tariffe"; }

// The transcribed sources, kept in the source tree.
inline std::filesystem::path sourceFiguresFolder() { return shippedFolder() / "fonti"; }

using SourceRow = std::map<std::string, std::string>;

// The data lines of a source file ('#' lines are its notes, not data).
inline std::string sourceFileText(const std::string& name)
{
    std::ifstream in(sourceFiguresFolder() / name);
    if (!in)
        throw std::runtime_error("missing source file " + (sourceFiguresFolder() / name).string());
    std::string text;
    for (std::string line; std::getline(in, line);) {
        if (!line.starts_with("#"))
            text += line + "\n";
    }
    return text;
}

// The column names of a source file, in printed order.
inline std::vector<std::string> sourceFileHeader(const std::string& name)
{
    const std::string text = sourceFileText(name); // the reader keeps a view of it
    CsvReader reader(text, ',');
    const auto header = reader.next();
    std::vector<std::string> names;
    for (const auto& field : header.value().fields)
        names.push_back(field.text);
    return names;
}

// The rows of a source file, by the names of its header.
inline std::vector<SourceRow> readSourceFile(const std::string& name)
{
    const std::string text = sourceFileText(name); // the reader keeps a view of it
    CsvReader reader(text, ',');
    const auto header = reader.next();
    std::vector<SourceRow> rows;
    while (auto record = reader.next()) {
        SourceRow row;
        for (std::size_t i = 0; i < header->fields.size(); ++i)
            row[header->fields[i].text] = record->fields.at(i).text;
        rows.push_back(std::move(row));
    }
    return rows;
}

// An amount as the sources print it, in Italian notation ("1.007,09").
inline Currency printed(std::string text)
{
    std::string plain;
    for (const char c : text) {
        if (c == ',')
            plain += '.';
        else if (c != '.')
            plain += c;
    }
    return Currency::fromText(plain);
}

struct ExpectedItem {
    std::int32_t id = 0;
    std::string code;
    std::string azione;
    std::optional<std::string> autorita;
    std::map<std::string, Currency> amounts; // every other amount column is 0
};

inline ExpectedItem item(std::int32_t id, std::string code, std::string azione,
                         std::optional<std::string> autorita = std::nullopt)
{
    return {id, std::move(code), std::move(azione), std::move(autorita), {}};
}

// Onorari2004Euro: Tabella A para. I (giudice di pace), brackets "fino a
// 600", "da 600,01 a 1.600", "da 1.600,01 a 2.600" = SCA01, SCA02, SCA03.
inline std::vector<ExpectedItem> expectedOnorari2004Euro()
{
    const std::map<std::string, std::string> words{
        {"fino a 600", "SCA01"}, {"da 600,01 a 1.600", "SCA02"}, {"da 1.600,01 a 2.600", "SCA03"}};
    std::vector<ExpectedItem> items;
    for (const SourceRow& src : readSourceFile("2004_onorari_civili_giudice_di_pace.csv")) {
        ExpectedItem e = item(std::stoi(src.at("voce")), src.at("voce"), src.at("descrizione"), "Giudice di pace");
        for (const auto& [bracket, word] : words) {
            for (const auto& [end, suffix] : {std::pair{" min", "MIN"}, std::pair{" max", "MAX"}}) {
                if (!src.at(bracket + end).empty())
                    e.amounts[word + suffix] = printed(src.at(bracket + end));
            }
        }
        items.push_back(std::move(e));
    }
    return items;
}

// Onorari94 (lire, official text only): item 1 in the sub-brackets of the
// giudice conciliatore, items 2-8 in the pretore's first bracket (SCA1, up
// to 3,000,000 lire); the truncated maximum of item 8 stays 0.
inline std::vector<ExpectedItem> expectedOnorari94()
{
    const std::map<std::string, std::string> subBrackets{{"cause di valore fino a L. 250.000", "SCA01"},
                                                         {"cause di valore da L. 250.001 a L. 500.000", "SCA02"},
                                                         {"cause di valore da L. 500.001 a L. 1.000.000", "SCA03"}};
    std::map<std::int32_t, ExpectedItem> items;
    for (const SourceRow& src : readSourceFile("1994_onorari_civili_conciliatore_pretore_GU.csv")) {
        const std::int32_t id = std::stoi(src.at("voce"));
        auto [it, added] = items.try_emplace(
            id, item(id, src.at("voce"), src.at("descrizione"), id == 1 ? "Giudice conciliatore" : "Pretore"));
        const std::string word = id == 1 ? subBrackets.at(src.at("scaglione_valore")) : "SCA1";
        it->second.amounts[word + "MIN"] = printed(src.at("min_lire"));
        if (!src.at("max_lire").empty())
            it->second.amounts[word + "MAX"] = printed(src.at("max_lire"));
    }
    std::vector<ExpectedItem> out;
    for (auto& [id, e] : items)
        out.push_back(std::move(e));
    return out;
}

// Onorari94Euro (euro reprint): pretore items 2-10 in SCA1 ("sino a EUR
// 1.549,37") and SCA2; tribunale items 11-20, brackets (a)-(d) in SCA3-SCA6,
// descriptions without the reprint's note markers such as " (2b)".
inline std::vector<ExpectedItem> expectedOnorari94Euro()
{
    std::vector<ExpectedItem> items;
    for (const SourceRow& src : readSourceFile("1994_onorari_civili_pretore.csv")) {
        ExpectedItem e = item(std::stoi(src.at("voce")), src.at("voce"), src.at("descrizione"), "Pretore");
        e.amounts["SCA1MIN"] = printed(src.at("sino_a_EUR_1.549,37_min_eur_secondaria"));
        e.amounts["SCA1MAX"] = printed(src.at("sino_a_EUR_1.549,37_max_eur_secondaria"));
        e.amounts["SCA2MIN"] = printed(src.at("da_EUR_1.549,38_a_2.582,28_min_eur_secondaria"));
        e.amounts["SCA2MAX"] = printed(src.at("da_EUR_1.549,38_a_2.582,28_max_eur_secondaria"));
        items.push_back(std::move(e));
    }
    const std::vector<std::pair<std::string, std::string>> brackets{
        {"(a)_fino_EUR_5.164,57(L.10M)_min_eur", "SCA3MIN"},         {"(a)_max_eur", "SCA3MAX"},
        {"(b)_EUR_5.164,58-25.822,84(L.50M)_min_eur", "SCA4MIN"},    {"(b)_max_eur", "SCA4MAX"},
        {"(c)_EUR_25.822,85-51.645,69(L.100M)_min_eur", "SCA5MIN"},  {"(c)_max_eur", "SCA5MAX"},
        {"(d)_EUR_51.645,70-103.291,38(L.200M)_min_eur", "SCA6MIN"}, {"(d)_max_eur", "SCA6MAX"}};
    const std::regex noteMarker(" \\([0-9]+[a-z]?\\)$");
    for (const SourceRow& src : readSourceFile("1994_onorari_civili_tribunale.csv")) {
        ExpectedItem e = item(std::stoi(src.at("voce")), src.at("voce"),
                              std::regex_replace(src.at("descrizione"), noteMarker, ""), "Tribunale");
        for (const auto& [column, word] : brackets) {
            if (!src.at(column).empty())
                e.amounts[word] = printed(src.at(column));
        }
        items.push_back(std::move(e));
    }
    return items;
}

const std::vector<std::string> AuthorityPrefixes{"Pretura",   "Tribunale", "GiuPace", "Gip",
                                                 "AssiseApp", "Appello",   "CostCass"};

// OnorariPenali94 (lire, official text): one band per item, whatever the
// authority, so the same band under every authority prefix. Ids count the
// items in their printed order.
inline std::vector<ExpectedItem> expectedOnorariPenali94()
{
    std::vector<ExpectedItem> items;
    for (const SourceRow& src : readSourceFile("1994_onorari_penali_GU.csv")) {
        ExpectedItem e = item(static_cast<std::int32_t>(items.size() + 1), src.at("voce"), src.at("descrizione"));
        for (const std::string& prefix : AuthorityPrefixes) {
            e.amounts[prefix + "MIN"] = printed(src.at("min_lire"));
            e.amounts[prefix + "MAX"] = printed(src.at("max_lire"));
        }
        items.push_back(std::move(e));
    }
    return items;
}

// OnorariPenali2004Euro: the printed authorities to the prefixes; the one
// Tribunale pair holds the tribunale monocratico; Pretura stays 0.
inline std::vector<ExpectedItem> expectedOnorariPenali2004Euro()
{
    const std::vector<std::pair<std::string, std::string>> authorities{
        {"Giudice di pace", "GiuPace"},
        {"GIP e GUP", "Gip"},
        {"Tribunale monocratico e Magistrato di sorveglianza", "Tribunale"},
        {"Corte d'appello e Tribunale di sorveglianza", "Appello"},
        {"Corte d'assise e d'assise d'appello", "AssiseApp"},
        {"Magistrature superiori", "CostCass"}};
    std::vector<ExpectedItem> items;
    for (const SourceRow& src : readSourceFile("2004_onorari_penali.csv")) {
        ExpectedItem e = item(static_cast<std::int32_t>(items.size() + 1), src.at("voce"), src.at("descrizione"));
        for (const auto& [printedName, prefix] : authorities) {
            e.amounts[prefix + "MIN"] = printed(src.at(printedName + " min"));
            e.amounts[prefix + "MAX"] = printed(src.at(printedName + " max"));
        }
        items.push_back(std::move(e));
    }
    return items;
}

// OnorariStrag2004Euro: the items 1.A to 2.e, numbered by their position in
// the table (each priced line counts), with no amounts.
inline std::vector<ExpectedItem> expectedOnorariStrag2004Euro()
{
    const std::map<std::string, std::string> codes{
        {"1. A)", "1.A"}, {"1. B) a)", "1.B.a"}, {"1. B) b)", "1.B.b"},         {"2. a)", "2.a"},
        {"2. b)", "2.b"}, {"2. c)", "2.c"},      {"2. d) (prima riga)", "2.d"}, {"2. d) (seconda riga)", "2.d"},
        {"2. e)", "2.e"}};
    std::vector<ExpectedItem> items;
    for (const SourceRow& src : readSourceFile("2004_stragiudiziale.csv")) {
        const auto code = codes.find(src.at("voce_come_stampata"));
        if (code != codes.end())
            items.push_back(item(static_cast<std::int32_t>(items.size() + 1), code->second, src.at("descrizione")));
    }
    return items;
}

} // namespace avlor::test

namespace avlor {
// Amounts in test failures as their decimal text.
inline void PrintTo(const Currency& amount, std::ostream* out) { *out << amount.toText(); }
} // namespace avlor
