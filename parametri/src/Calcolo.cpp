#include "avlor/parametri/Calcolo.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <set>

namespace avlor::parametri {

namespace {

constexpr int Cento = 10000; // 100 % in hundredths of a percent

// `importo` × num / den, exact, rounded once to the ten-thousandth, halves
// to even.
Currency scala(Currency importo, std::int64_t num, std::int64_t den) { return importo.scaled(num, den); }

// `importo` raised (or lowered) by `centesimi` hundredths of a percent.
Currency piuPercento(Currency importo, int centesimi) { return scala(importo, Cento + centesimi, Cento); }

std::string lowerAscii(std::string_view text)
{
    std::string result(text);
    for (char& c : result)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return result;
}

std::vector<std::string> words(std::string_view text)
{
    std::vector<std::string> result;
    std::string word;
    for (const char c : lowerAscii(text)) {
        if (c == ' ' || c == '-' || c == ',' || c == '/') {
            if (!word.empty())
                result.push_back(word);
            word.clear();
        } else {
            word += c;
        }
    }
    if (!word.empty())
        result.push_back(word);
    return result;
}

std::string elenco(const std::vector<std::string>& names)
{
    std::string result;
    for (const std::string& name : names)
        result += (result.empty() ? "«" : ", «") + name + "»";
    return result;
}

// The words of a phase's name, whole: "Corte di assise d'appello - Fase
// decisionale" -> corte, di, assise, d, appello, fase, decisionale.
std::set<std::string> paroleIntere(std::string_view text)
{
    std::set<std::string> result;
    std::string word;
    for (const char c : lowerAscii(text) + ' ') {
        if (c == ' ' || c == '-' || c == ',' || c == '/' || c == '\'' || c == '(' || c == ')') {
            if (!word.empty())
                result.insert(word);
            word.clear();
        } else {
            word += c;
        }
    }
    return result;
}

bool contiene(const std::set<std::string>& tutte, const std::set<std::string>& alcune)
{
    return std::includes(tutte.begin(), tutte.end(), alcune.begin(), alcune.end());
}

// The authority a criminal phase belongs to: "Corte di assise" in "Corte di
// assise - Fase decisionale"; empty for a phase without one.
std::string autorita(const std::string& fase)
{
    const auto dash = fase.find(" - ");
    return dash == std::string::npos ? std::string() : fase.substr(0, dash);
}

// Of the phases whose names all hold the words asked, the one meant: the
// phase of the authority the words name in full (the one named with most
// words, when a longer name holds a shorter one), then the name every other
// one only adds words to. Those left when neither decides.
std::vector<std::string> restringi(std::vector<std::string> matching, const std::string& indicazione)
{
    const std::set<std::string> asked = paroleIntere(indicazione);
    std::vector<std::string> named;
    for (const std::string& fase : matching) {
        const std::string a = autorita(fase);
        if (!a.empty() && contiene(asked, paroleIntere(a)))
            named.push_back(fase);
    }
    if (!named.empty()) {
        std::vector<std::string> fullest;
        for (const std::string& fase : named) {
            const std::set<std::string> mine = paroleIntere(autorita(fase));
            const bool outdone = std::any_of(named.begin(), named.end(), [&](const std::string& other) {
                const std::set<std::string> theirs = paroleIntere(autorita(other));
                return theirs.size() > mine.size() && contiene(theirs, mine);
            });
            if (!outdone)
                fullest.push_back(fase);
        }
        matching = fullest;
    }
    for (const std::string& fase : matching) {
        const std::set<std::string> mine = paroleIntere(fase);
        if (std::all_of(matching.begin(), matching.end(),
                        [&](const std::string& other) { return contiene(paroleIntere(other), mine); }))
            return {fase};
    }
    return matching;
}

// The phase of `tabella` that `indicazione` names: its whole name (any
// letter case), or words that its name holds (restringi picks among several
// names that hold them).
std::string trovaFase(const Tabella& tabella, const std::string& indicazione)
{
    const std::vector<std::string> all = tabella.fasi();
    for (const std::string& fase : all) {
        if (lowerAscii(fase) == lowerAscii(indicazione))
            return fase;
    }
    const std::vector<std::string> wanted = words(indicazione);
    std::vector<std::string> matching;
    if (!wanted.empty()) {
        for (const std::string& fase : all) {
            const std::string name = lowerAscii(fase);
            if (std::all_of(wanted.begin(), wanted.end(),
                            [&](const std::string& w) { return name.find(w) != std::string::npos; }))
                matching.push_back(fase);
        }
    }
    if (matching.empty())
        throw ParametriError("La tabella " + tabella.numero + " (versione " + tabella.versione + ") non ha una fase «" +
                             indicazione + "»; le sue fasi sono: " + elenco(all));
    matching = restringi(matching, indicazione);
    if (matching.size() == 1)
        return matching.front();
    throw ParametriError("«" + indicazione + "» indica più fasi della tabella " + tabella.numero + " (versione " +
                         tabella.versione + "): " + elenco(matching) + "; indicarne una sola");
}

enum class Capo { Civile, Penale, Stragiudiziale };

Capo capo(const std::string& numero)
{
    if (numero == "15")
        return Capo::Penale;
    if (numero == "25" || numero == "25-bis")
        return Capo::Stragiudiziale;
    return Capo::Civile;
}

struct Limiti {
    int aumento; // hundredths of a percent
    int diminuzione;
    std::string articolo; // where the limits are, for a refusal
    std::string regola; // the limits in words, for the result
};

bool faseIstruttoria(const std::string& fase) { return lowerAscii(fase).rfind("fase istruttoria", 0) == 0; }

Limiti limiti(const std::string& versioneNome, Capo c, const std::string& fase)
{
    // The 2018 amendments to the criminal and out-of-court articles were not
    // recovered; the criminal table of 2018 is the 2014 one, figure by
    // figure, and the 2014 words are used for both.
    const std::string note2018 = versioneNome == "2018" ? " (testo 2014; modifiche del 2018 non recuperate)" : "";
    if (c == Capo::Penale)
        return {8000, 5000, "art. 12 c.1", "art. 12 c.1: aumento fino all'80%, diminuzione fino al 50%" + note2018};
    if (c == Capo::Stragiudiziale)
        return {8000, 5000, "art. 19", "art. 19: aumento fino all'80%, diminuzione fino al 50%" + note2018};
    if (versioneNome == "2022")
        return {5000, 5000, "art. 4 c.1 come modificato dal D.M. 147/2022",
                "art. 4 c.1 come modificato dal D.M. 147/2022: aumento fino al 50%, diminuzione non oltre il 50%, "
                "in ogni fase"};
    if (faseIstruttoria(fase))
        return {10000, 7000, "art. 4 c.1, ultimo periodo",
                "art. 4 c.1, ultimo periodo (testo " + versioneNome +
                    "): fase istruttoria, aumento fino al 100%, diminuzione fino al 70%"};
    return {8000, 5000, "art. 4 c.1",
            "art. 4 c.1 (testo " + versioneNome + "): aumento fino all'80%, diminuzione fino al 50%"};
}

struct RegolaClienti {
    int primi; // per client after the first, up to the tenth
    int oltre; // per client after the tenth
    int massimo; // clients beyond this add nothing
    std::string regola;
};

RegolaClienti regolaClienti(const std::string& versioneNome, Capo c)
{
    if (c == Capo::Penale)
        return {2000, 500, 20,
                "art. 12 c.2: +20% per ogni cliente oltre il primo fino a dieci, +5% per ognuno oltre il decimo "
                "fino a venti" +
                    std::string(versioneNome == "2018" ? " (testo 2014; modifiche del 2018 all'art. 12 non recuperate)"
                                                       : "")};
    if (versioneNome == "2014")
        return {2000, 500, 20,
                "art. 4 c.2 (testo 2014): +20% per ogni cliente oltre il primo fino a dieci, +5% per ognuno oltre "
                "il decimo fino a venti"};
    if (versioneNome == "2018")
        return {3000, 1000, 30,
                "art. 4 c.2 (testo 2018, ricostruito dal testo 2022, che vi ha soltanto tolto «di regola»): +30% "
                "per ogni cliente oltre il primo fino a dieci, +10% per ognuno oltre il decimo fino a trenta"};
    return {3000, 1000, 30,
            "art. 4 c.2 come modificato dal D.M. 147/2022: +30% per ogni cliente oltre il primo fino a dieci, +10% "
            "per ognuno oltre il decimo fino a trenta"};
}

const Currency Soglia = Currency::fromWhole(520000);

// "del 20%", "dell'80%": the article before a percentage, as the number is
// read aloud (uno, otto, undici, ottanta..., ottocento... begin with a vowel).
std::string articolo(int centesimi)
{
    const int whole = (centesimi < 0 ? -centesimi : centesimi) / 100;
    const bool vowel =
        whole == 1 || whole == 8 || whole == 11 || (whole >= 80 && whole <= 89) || (whole >= 800 && whole <= 899);
    return (vowel ? "dell'" : "del ") + testoPercentuale(centesimi < 0 ? -centesimi : centesimi).substr(1);
}

// The bracket for `valore`: its bounds as the table gives them.
struct Scaglione {
    Currency da;
    Currency a;
};

std::vector<Scaglione> scaglioni(const Tabella& t)
{
    std::vector<Scaglione> result;
    for (const Cifra& c : t.cifre) {
        if (!c.da || !c.a)
            continue;
        const bool known =
            std::any_of(result.begin(), result.end(), [&](const Scaglione& s) { return s.da == *c.da && s.a == *c.a; });
        if (!known)
            result.push_back({*c.da, *c.a});
    }
    std::sort(result.begin(), result.end(), [](const Scaglione& x, const Scaglione& y) { return x.da < y.da; });
    return result;
}

std::string testoScaglione(const Scaglione& s) { return testoImporto(s.da) + " - " + testoImporto(s.a) + " €"; }

std::string fonteCifra(const Tabella& t, const Cifra& c)
{
    return "tabella " + t.numero + ", versione " + t.versione + ", " +
        (c.da ? "scaglione " + parametri::testoScaglione(c) : std::string("senza scaglioni")) + ", fase «" + c.fase +
        "»: " + testoImporto(c.valoreMedio) + " € (affidabilità " + c.affidabilita + ")";
}

} // namespace

Indeterminabile indeterminabile(std::string_view testo)
{
    const std::string text = lowerAscii(testo);
    if (text == "bassa")
        return Indeterminabile::Bassa;
    if (text == "alta")
        return Indeterminabile::Alta;
    if (text == "particolare")
        return Indeterminabile::ParticolareImportanza;
    throw ParametriError("«" + std::string(testo) +
                         "» non è una complessità di valore indeterminabile: indicare bassa (26.000,01 - 52.000 €), "
                         "alta (52.000,01 - 260.000 €) o particolare (260.000,01 - 520.000 €, cause di particolare "
                         "importanza)");
}

int percentuale(std::string_view testo)
{
    std::string text;
    for (const char c : testo) {
        if (c != ' ' && c != '%')
            text += c;
    }
    bool negative = false;
    std::size_t at = 0;
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
        negative = text[0] == '-';
        at = 1;
    }
    std::int64_t whole = 0;
    std::int64_t fraction = 0;
    int fractionDigits = 0;
    int wholeDigits = 0;
    bool separator = false;
    bool valid = at < text.size();
    for (; valid && at < text.size(); ++at) {
        const char c = text[at];
        if ((c == ',' || c == '.') && !separator) {
            separator = true;
        } else if (std::isdigit(static_cast<unsigned char>(c)) != 0) {
            if (separator) {
                valid = ++fractionDigits <= 2;
                fraction = fraction * 10 + (c - '0');
            } else {
                valid = ++wholeDigits <= 4;
                whole = whole * 10 + (c - '0');
            }
        } else {
            valid = false;
        }
    }
    if (!valid || wholeDigits == 0)
        throw ParametriError("«" + std::string(testo) +
                             "» non è una percentuale: indicare per esempio +20, -30 o +12,5");
    if (fractionDigits == 1)
        fraction *= 10;
    const auto value = static_cast<int>(whole * 100 + fraction);
    return negative ? -value : value;
}

std::string testoPercentuale(int centesimi)
{
    const int size = centesimi < 0 ? -centesimi : centesimi;
    std::string text = (centesimi < 0 ? "-" : (centesimi > 0 ? "+" : "")) + std::to_string(size / 100);
    if (size % 100 != 0) {
        text += "," + std::to_string(size % 100 / 10);
        if (size % 10 != 0)
            text += std::to_string(size % 10);
    }
    return text + "%";
}

Risultato calcola(const Catalogo& catalogo, const Richiesta& richiesta)
{
    const Versione& v = versioneInVigore(richiesta.data);
    const std::string versioneNome(v.nome);
    const std::string numero = numeroTabella(richiesta.tabella);
    const Tabella* found = catalogo.trova(versioneNome, numero);
    if (found == nullptr)
        throw ParametriError("La versione " + versioneNome + " dei parametri, in vigore il " +
                             richiesta.data.toDayFirst() + ", non ha la tabella " + numero +
                             " tra le cifre caricate: il compenso non si calcola per stima");
    const Tabella& t = *found;
    if (!t.verificata)
        throw ParametriError("La tabella " + numero + " della versione " + versioneNome +
                             " non è verificata (affidabilità " + t.affidabilita +
                             "): le sue cifre non si presentano come ufficiali e il compenso non si calcola con esse");
    const Capo c = capo(numero);
    if (versioneNome == "2022" && c != Capo::Civile)
        throw ParametriError("Le regole della versione 2022 per la tabella " + numero + " (art. " +
                             (c == Capo::Penale ? "12" : "19") +
                             ") non sono state recuperate: il compenso non si calcola con quella versione");

    Risultato r;
    r.versione = versioneNome;
    r.decreto = std::string(v.decreto);
    r.tabella = numero;
    r.titolo = t.titolo;
    r.affidabilita = t.affidabilita;
    r.verificata = t.verificata;
    r.provenienza = t.fonte;
    if (t.affidabilita != "alta")
        r.avvertenze.push_back("Le cifre della tabella " + numero + " (versione " + versioneNome +
                               ") hanno affidabilità " + t.affidabilita + (t.nota.empty() ? "" : ": " + t.nota));

    if (richiesta.fasi.empty())
        throw ParametriError("Indicare almeno una fase svolta");
    if (richiesta.clienti < 1)
        throw ParametriError("Il numero dei clienti deve essere almeno 1");

    // The bracket whose figures apply, and the doubling steps above it.
    std::optional<Scaglione> scelto;
    if (t.haScaglioni()) {
        if (richiesta.valore && richiesta.indeterminabile)
            throw ParametriError("Indicare il valore della causa oppure che è indeterminabile, non entrambi");
        if (!richiesta.valore && !richiesta.indeterminabile)
            throw ParametriError("La tabella " + numero +
                                 " ha scaglioni di valore: indicare il valore della causa o che è indeterminabile");
        Currency valore;
        if (richiesta.valore) {
            valore = *richiesta.valore;
            if (valore <= Currency())
                throw ParametriError("Il valore della causa deve essere maggiore di zero");
            r.valore = testoImporto(valore) + " €";
            r.regolaScaglione = "art. 5: lo scaglione che contiene il valore della causa";
        } else {
            switch (*richiesta.indeterminabile) {
            case Indeterminabile::Bassa:
                valore = Currency::fromWhole(52000);
                r.valore = "indeterminabile, complessità bassa (26.000,01 - 52.000,00 €)";
                break;
            case Indeterminabile::Alta:
                valore = Currency::fromWhole(260000);
                r.valore = "indeterminabile, complessità alta (52.000,01 - 260.000,00 €)";
                break;
            case Indeterminabile::ParticolareImportanza:
                valore = Soglia;
                r.valore = "indeterminabile, di particolare importanza (260.000,01 - 520.000,00 €)";
                break;
            }
            r.regolaScaglione =
                "art. 5 c.6: valore indeterminabile, di regola da 26.000 a 260.000 € secondo oggetto e complessità, "
                "fino allo scaglione di 520.000 € per le cause di particolare importanza" +
                std::string(versioneNome == "2022" ? " (formulazione 2022 non recuperata: vale la misura del testo "
                                                     "precedente)"
                                                   : "");
        }
        const std::vector<Scaglione> all = scaglioni(t);
        for (const Scaglione& s : all) {
            if (s.da <= valore && valore <= s.a)
                scelto = s;
        }
        if (!scelto && valore > Soglia && all.back().a == Soglia) {
            scelto = all.back();
            // 520.000 - 1.000.000 is the first doubling; each further
            // doubling of 1.000.000 adds one more.
            r.raddoppi = 1;
            for (Currency limit = Currency::fromWhole(1000000); valore > limit; limit = limit.times(2))
                ++r.raddoppi;
            r.regolaScaglione +=
                "; art. 6: oltre 520.000 € le cifre dello scaglione 260.000,01 - 520.000,00 € aumentate del 30% "
                "per ogni raddoppio (520.000 - 1.000.000, poi ogni raddoppio di 1.000.000), qui " +
                std::to_string(r.raddoppi) + (r.raddoppi == 1 ? " volta" : " volte") +
                (versioneNome == "2022" ? " (formulazione 2022 dell'art. 6 non recuperata: le fonti del 2022 "
                                          "applicano lo stesso raddoppio)"
                                        : "");
        }
        if (!scelto) {
            if (valore > all.back().a)
                throw ParametriError("La tabella " + numero + " (versione " + versioneNome + ") ha scaglioni fino a " +
                                     testoImporto(all.back().a) + " €: nessuno contiene il valore " +
                                     testoImporto(valore) + " €");
            throw ParametriError("Manca la cifra della tabella " + numero + " (versione " + versioneNome +
                                 ") per il valore " + testoImporto(valore) +
                                 " €: lo scaglione che lo contiene non è tra le cifre caricate e il compenso non si "
                                 "calcola per stima");
        }
        r.scaglione = testoScaglione(*scelto);
    } else {
        r.valore = richiesta.valore ? testoImporto(*richiesta.valore) + " € (non usato)" : "";
        r.scaglione = "senza scaglioni";
        r.regolaScaglione = "la tabella " + numero + " non ha scaglioni di valore";
    }

    // The phases, each once.
    std::vector<std::string> fasi;
    for (const std::string& indicazione : richiesta.fasi) {
        const std::string fase = trovaFase(t, indicazione);
        if (std::find(fasi.begin(), fasi.end(), fase) != fasi.end())
            throw ParametriError("La fase «" + fase + "» è indicata più di una volta");
        fasi.push_back(fase);
    }
    std::map<std::string, int> percentuali;
    for (const auto& [indicazione, valore] : richiesta.percentuali) {
        const std::string fase = trovaFase(t, indicazione);
        if (std::find(fasi.begin(), fasi.end(), fase) == fasi.end())
            throw ParametriError("La percentuale è indicata per la fase «" + fase + "», che non è tra le fasi svolte");
        if (percentuali.count(fase) != 0)
            throw ParametriError("La percentuale della fase «" + fase + "» è indicata più di una volta");
        percentuali[fase] = valore;
    }

    std::vector<Cifra> usate;
    for (const std::string& fase : fasi) {
        const auto cifra = std::find_if(t.cifre.begin(), t.cifre.end(), [&](const Cifra& x) {
            return x.fase == fase && (!scelto || (x.da && x.a && *x.da == scelto->da && *x.a == scelto->a));
        });
        if (cifra == t.cifre.end())
            throw ParametriError("Manca la cifra della tabella " + numero + " (versione " + versioneNome + ")" +
                                 (scelto ? ", scaglione " + testoScaglione(*scelto) : std::string()) + ", fase «" +
                                 fase + "»: il compenso non si calcola per stima");
        const Limiti l = limiti(versioneNome, c, fase);
        const int p = percentuali.count(fase) != 0 ? percentuali[fase] : 0;
        if (p > l.aumento)
            throw ParametriError("L'aumento " + articolo(p) + " della fase «" + fase + "» supera il limite " +
                                 articolo(l.aumento) + " (" + l.articolo + ", versione " + versioneNome + ")");
        if (-p > l.diminuzione)
            throw ParametriError("La diminuzione " + articolo(p) + " della fase «" + fase + "» supera il limite " +
                                 articolo(l.diminuzione) + " (" + l.articolo + ", versione " + versioneNome + ")");
        FaseCalcolata f;
        f.fase = fase;
        f.cifra = cifra->valoreMedio;
        f.fonteCifra = fonteCifra(t, *cifra);
        f.provenienza = cifra->fonte;
        usate.push_back(*cifra);
        std::int64_t num = 1;
        std::int64_t den = 1;
        for (int i = 0; i < r.raddoppi; ++i) {
            num *= 13;
            den *= 10;
        }
        f.medio = scala(f.cifra, num, den);
        f.regolaMedio = r.raddoppi == 0 ? "valore medio della tabella"
                                        : "valore medio della tabella × 1,3 per " + std::to_string(r.raddoppi) +
                (r.raddoppi == 1 ? " raddoppio (art. 6)" : " raddoppi (art. 6)");
        f.minimo = piuPercento(f.medio, -l.diminuzione);
        f.massimo = piuPercento(f.medio, l.aumento);
        f.regolaLimiti = l.regola;
        f.percentuale = p;
        f.scelto = piuPercento(f.medio, p);
        f.regolaScelto = p == 0 ? "valore medio" : "valore medio " + testoPercentuale(p) + " (" + l.articolo + ")";
        r.sommaMinimi = r.sommaMinimi + f.minimo;
        r.sommaMedi = r.sommaMedi + f.medio;
        r.sommaMassimi = r.sommaMassimi + f.massimo;
        r.sommaFasi = r.sommaFasi + f.scelto;
        r.fasi.push_back(f);
    }
    r.fonti = fontiBrevi(t, usate);

    r.clienti = richiesta.clienti;
    if (richiesta.clienti > 1) {
        if (c == Capo::Stragiudiziale)
            throw ParametriError("L'aumento per più clienti non è tra le regole caricate per la tabella " + numero +
                                 ": indicare un solo cliente");
        const RegolaClienti rc = regolaClienti(versioneNome, c);
        const int contati = std::min(richiesta.clienti, rc.massimo);
        r.percentualeClienti = (std::min(contati, 10) - 1) * rc.primi + std::max(contati - 10, 0) * rc.oltre;
        r.regolaClienti = rc.regola;
        if (richiesta.clienti > rc.massimo)
            r.avvertenze.push_back("Oltre il cliente n. " + std::to_string(rc.massimo) +
                                   " la regola non aumenta ulteriormente il compenso");
    } else {
        r.regolaClienti = "un solo cliente: nessun aumento";
    }
    r.aumentoClienti = scala(r.sommaFasi, r.percentualeClienti, Cento);
    r.compenso = r.sommaFasi + r.aumentoClienti;
    r.speseGenerali = scala(r.compenso, 15, 100);
    r.regolaSpeseGenerali = versioneNome == "2022"
        ? "art. 2 c.2 come modificato dal D.M. 147/2022: rimborso forfettario del 15% del compenso totale"
        : "art. 2 c.2 (testo " + versioneNome + "): di regola il 15% del compenso totale";
    r.totale = r.compenso + r.speseGenerali;
    return r;
}

} // namespace avlor::parametri
