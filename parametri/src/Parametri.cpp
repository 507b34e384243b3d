#include "avlor/parametri/Parametri.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <set>

#include "avlor/core/Format.h"
#include "avlor/core/Locale.h"

namespace avlor::parametri {

namespace {

std::string lowerAscii(std::string_view text)
{
    std::string result(text);
    for (char& c : result)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return result;
}

} // namespace

const std::vector<Versione>& versioni()
{
    static const std::vector<Versione> all = {
        {"2014", "D.M. 10 marzo 2014 n. 55, testo originale (GU n. 77 del 2-4-2014)", "D.M. 55/2014, testo originale",
         Date::fromYmd(2014, 4, 3), Date::fromYmd(2018, 4, 26)},
        {"2018", "D.M. 55/2014 come modificato dal D.M. 8 marzo 2018 n. 37 (GU n. 96 del 26-4-2018)",
         "D.M. 55/2014 come modificato dal D.M. 37/2018", Date::fromYmd(2018, 4, 27), Date::fromYmd(2022, 10, 22)},
        {"2022", "D.M. 55/2014 come modificato dal D.M. 13 agosto 2022 n. 147 (GU n. 236 dell'8-10-2022)",
         "D.M. 55/2014 come modificato dal D.M. 147/2022", Date::fromYmd(2022, 10, 23), std::nullopt},
    };
    return all;
}

const Versione& versione(std::string_view nome)
{
    for (const Versione& v : versioni()) {
        if (v.nome == nome)
            return v;
    }
    throw ParametriError("Non esiste una versione «" + std::string(nome) +
                         "» dei parametri: le versioni sono 2014, "
                         "2018 e 2022");
}

const Versione& versioneInVigore(Date data)
{
    const std::vector<Versione>& all = versioni();
    if (data < all.front().dal)
        throw ParametriError("La data " + data.toDayFirst() +
                             " è anteriore al 3 aprile 2014, giorno in cui i parametri del D.M. 55/2014 sono "
                             "entrati in vigore: quel lavoro si valuta con le tariffe storiche del 1994 e del 2004 "
                             "(avlor tariffe)");
    const Versione* found = &all.front();
    for (const Versione& v : all) {
        if (v.dal <= data)
            found = &v;
    }
    return *found;
}

bool Tabella::haScaglioni() const
{
    return std::any_of(cifre.begin(), cifre.end(), [](const Cifra& c) { return c.da.has_value(); });
}

std::vector<std::string> Tabella::fasi() const
{
    std::vector<std::string> result;
    for (const Cifra& c : cifre) {
        if (std::find(result.begin(), result.end(), c.fase) == result.end())
            result.push_back(c.fase);
    }
    return result;
}

const Tabella* Catalogo::trova(std::string_view versioneNome, std::string_view numero) const
{
    for (const Tabella& t : tabelle) {
        if (t.versione == versioneNome && t.numero == numero)
            return &t;
    }
    return nullptr;
}

int ordineTabella(std::string_view numero)
{
    const bool bis = numero.size() > 4 && numero.substr(numero.size() - 4) == "-bis";
    const std::string digits(bis ? numero.substr(0, numero.size() - 4) : numero);
    return std::atoi(digits.c_str()) * 2 + (bis ? 1 : 0);
}

std::string numeroTabella(std::string_view testo)
{
    // "2", " 25-bis ", "25 bis", "25bis": digits, then "bis" after at most one
    // blank or hyphen. Nothing else is read away: "-1" is no table.
    std::string text = lowerAscii(testo);
    const auto first = text.find_first_not_of(' ');
    text = first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(' ') - first + 1);
    bool bis = false;
    if (text.size() > 3 && text.substr(text.size() - 3) == "bis") {
        bis = true;
        text.resize(text.size() - 3);
        if (!text.empty() && (text.back() == ' ' || text.back() == '-'))
            text.pop_back();
    }
    const bool digitsOnly = !text.empty() && text.size() <= 3 &&
        std::all_of(text.begin(), text.end(), [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; });
    const int number = digitsOnly ? std::atoi(text.c_str()) : 0;
    if (number < 1 || number > 26 || (bis && number != 20 && number != 25))
        throw ParametriError("«" + std::string(testo) +
                             "» non è una tabella dei parametri: le tabelle sono numerate da 1 a 26, con 20-bis e "
                             "25-bis");
    return std::to_string(number) + (bis ? "-bis" : "");
}

// Shown and written to the cent, halves away from zero (65,625 -> 65,63):
// the rounding of invoices and of every published fee computation, when a
// person or a file reads an amount. The computation itself stays exact.
std::string testoImporto(Currency importo) { return formatMoneyAmount(importo, false, Locale::italian()); }

std::string testoImportoPunto(Currency importo)
{
    return formatMoneyAmount(importo, false, Locale{"", ".", "dd/mm/yyyy"});
}

std::string testoScaglione(const Cifra& cifra)
{
    if (!cifra.da || !cifra.a)
        return "senza scaglioni";
    return testoImporto(*cifra.da) + " - " + testoImporto(*cifra.a) + " €";
}

std::vector<std::string> fontiBrevi(const Tabella& tabella, const std::vector<Cifra>& cifre)
{
    const std::string head = std::string(versione(tabella.versione).decretoBreve) + ", tabella " + tabella.numero +
        ", versione " + tabella.versione;
    const std::string unverified = tabella.verificata ? "" : ", non verificata";
    // A table the firm's import added has no source of the decree's own:
    // its figures are named by where they came from, like any other import.
    const bool imported = tabella.fonte.rfind(FonteImportata, 0) == 0;
    std::vector<std::string> result;
    if (!imported && std::any_of(cifre.begin(), cifre.end(), [&](const Cifra& c) { return c.fonte == tabella.fonte; }))
        result.push_back(head + ", affidabilità " + tabella.affidabilita + unverified);
    // The other sources in the order their first figure comes.
    std::vector<std::pair<std::string, std::string>> others;
    std::vector<std::size_t> counts;
    for (const Cifra& c : cifre) {
        if (!imported && c.fonte == tabella.fonte)
            continue;
        const std::pair<std::string, std::string> key{c.fonte, c.affidabilita};
        const auto found = std::find(others.begin(), others.end(), key);
        if (found == others.end()) {
            others.push_back(key);
            counts.push_back(1);
        } else {
            ++counts[static_cast<std::size_t>(found - others.begin())];
        }
    }
    for (std::size_t i = 0; i < others.size(); ++i) {
        std::string origin = others[i].first;
        // A source written as "Fonte: ..." is not named twice.
        if (lowerAscii(origin).rfind("fonte:", 0) == 0) {
            const auto text = origin.find_first_not_of(' ', 6);
            origin = text == std::string::npos ? std::string() : origin.substr(text);
        }
        result.push_back(head + ", " + std::to_string(counts[i]) + (counts[i] == 1 ? " cifra" : " cifre") +
                         (origin.empty() ? std::string(" senza fonte indicata") : " da «" + origin + "»") +
                         ", affidabilità " + others[i].second + unverified);
    }
    return result;
}

} // namespace avlor::parametri
