#!/usr/bin/env python3
"""Writes the fee-table files shipped in sql/tariffe/ from the transcribed
official figures in sql/tariffe/fonti/ (each file names its printed source).

The files it writes are what `avlor db init` loads through the same checked
import as `avlor tariffe importa`; the program never runs this script. It
exists so that anyone can see, and redo, how each printed figure reaches its
column:

  * only figures printed in a source are written; the columns that the
    sources mark DERIVATO (lire recomputed from a euro reprint) are not
    official figures and are never used;
  * a printed value bracket goes into the one column whose bracket of value
    is the same (for example the 1994 tribunale bracket "(a) fino a
    EUR 5.164,57" is the column pair SCA3 of Onorari94Euro, whose values run
    from 2.582,29 to 5.164,57 euro); a column that no printed bracket fills
    stays 0, so the engine answers that the item is not foreseen for that
    value;
  * amounts are written exactly, with four decimals and a decimal point, in
    the unit of the table (lire for the *94 tables, euro for the others).

Usage: scripts/gen-tariffe.py [SOURCE_DIR] (default sql/tariffe/fonti).
"""

import csv
import io
import re
import sys
from decimal import Decimal
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
OUT = ROOT / "sql" / "tariffe"

# Columns of each family, in the order of the schema (and of an export).
TEXT_COLUMNS = ["Id", "CodiceTariffa", "Azione", "Autorita"]
CIVIL_WORDS = ["SCA01", "SCA02", "SCA03"] + [f"SCA{i}" for i in range(1, 12)]
CIVIL_COLUMNS = TEXT_COLUMNS + [w + m for w in CIVIL_WORDS for m in ("MIN", "MAX")] + [
    "MINSTRAORDIMP", "MAXSTRAORDIMP", "MININDET", "MAXINDET"]
AUTHORITY_PREFIXES = ["Pretura", "Tribunale", "GiuPace", "Gip", "AssiseApp", "Appello", "CostCass"]
CRIMINAL_COLUMNS = TEXT_COLUMNS + [p + m for p in AUTHORITY_PREFIXES for m in ("MIN", "MAX")]
OUT_OF_COURT_COLUMNS = TEXT_COLUMNS

URL_GU_CIVILE = ("https://www.gazzettaufficiale.it/atto/serie_generale/caricaArticolo?art.codiceRedazionale=094G0483"
                 "&art.dataPubblicazioneGazzetta=1994-10-21&art.flagTipoArticolo=3&art.idArticolo=16&art.idGruppo=4"
                 "&art.idSottoArticolo=1&art.idSottoArticolo1=10&art.progressivo=0&art.versione=1")
URL_GU_PENALE = ("https://www.gazzettaufficiale.it/atto/serie_generale/caricaArticolo?art.codiceRedazionale=094G0483"
                 "&art.dataPubblicazioneGazzetta=1994-10-21&art.flagTipoArticolo=4&art.idArticolo=9&art.idGruppo=5"
                 "&art.idSottoArticolo=1&art.idSottoArticolo1=10&art.progressivo=0&art.versione=1")
URL_PRETORE = "http://avvocatogiunta.it/cause_civili/c_pretore2.htm"
URL_TRIBUNALE = "http://www.avvocatogiunta.it/cause_civili/c_tribunale.htm"
URL_GDP_2004 = "https://win.infogiur.com/Tariffe/civile_giudice_di_pace.asp"
URL_PENALE_2004 = "https://win.infogiur.com/Tariffe/penale.asp"
URL_STRAG_2004 = ("https://domiciliazionelegale.it/PAGINE/Tariffe_Forensi/Aggiornate/Tariffe/"
                  "Stragiudiziale.asp")

FONTE_GU_CIVILE = "D.M. 5 ottobre 1994 n. 585, Tabella A, testo ufficiale in Gazzetta Ufficiale (lire): " + URL_GU_CIVILE
FONTE_GU_PENALE = ("D.M. 5 ottobre 1994 n. 585, tariffa penale, testo ufficiale in Gazzetta Ufficiale (lire): "
                   + URL_GU_PENALE)
FONTE_PRETORE = ("D.M. 5 ottobre 1994 n. 585, Tabella A par. II (pretore), conversione in euro ristampata da uno "
                 "studio legale: " + URL_PRETORE)
FONTE_TRIBUNALE = ("D.M. 5 ottobre 1994 n. 585, Tabella A (tribunale), conversione in euro ristampata da uno studio "
                   "legale: " + URL_TRIBUNALE)
FONTE_GDP_2004 = "D.M. 8 aprile 2004 n. 127, Tabella A par. I (giudice di pace), ristampa dell'editore: " + URL_GDP_2004
FONTE_PENALE_2004 = "D.M. 8 aprile 2004 n. 127, Tabella C (penale), ristampa dell'editore: " + URL_PENALE_2004
FONTE_STRAG_2004 = ("D.M. 8 aprile 2004 n. 127, Cap. III (prestazioni stragiudiziali), ristampa di terzi: "
                    + URL_STRAG_2004)
NESSUNA_FONTE = "Nessuna fonte disponibile"

IMPORTA = "avlor tariffe importa --tabella {t} FILE.csv"


def read_source(directory, name):
    """The rows of a source CSV (its '#' lines are notes, not data)."""
    text = (directory / name).read_text(encoding="utf-8")
    body = "\n".join(line for line in text.splitlines() if not line.startswith("#"))
    return list(csv.DictReader(io.StringIO(body)))


def italian(text):
    """An amount as printed in Italian notation ('1.007,09', '1301,47', '85.000')."""
    text = text.strip()
    if not re.fullmatch(r"\d{1,3}(\.\d{3})*(,\d+)?|\d+(,\d+)?", text):
        raise ValueError(f"not a printed amount: {text!r}")
    return Decimal(text.replace(".", "").replace(",", "."))


def amount_text(value):
    return f"{value:.4f}"


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


def write_table(name, columns, rows):
    """rows: dicts with Id, CodiceTariffa, Azione, Autorita and amounts."""
    lines = [",".join(columns)]
    for row in sorted(rows, key=lambda r: r["Id"]):
        cells = []
        for column in columns:
            value = row.get(column)
            if column == "Id":
                cells.append(str(value))
            elif column in TEXT_COLUMNS:
                cells.append("" if value is None else quoted(value))
            else:
                cells.append(amount_text(value if value is not None else Decimal(0)))
        lines.append(",".join(cells))
    (OUT / f"{name}.csv").write_text("\n".join(lines) + "\n", encoding="utf-8")


def strip_note_marker(description):
    """'Studio della controversia (2b)' -> 'Studio della controversia': the
    reprint's reference to its own footnote is not part of the item's name."""
    return re.sub(r" \(\d+[a-z]?\)$", "", description)


def onorari_94(directory, sources):
    rows = {}
    for src in read_source(directory, "1994_onorari_civili_conciliatore_pretore_GU.csv"):
        item = int(src["voce"])
        row = rows.setdefault(item, {"Id": item, "CodiceTariffa": src["voce"], "Azione": src["descrizione"],
                                     "Autorita": "Giudice conciliatore" if item == 1 else "Pretore"})
        if item == 1:
            word = {"cause di valore fino a L. 250.000": "SCA01",
                    "cause di valore da L. 250.001 a L. 500.000": "SCA02",
                    "cause di valore da L. 500.001 a L. 1.000.000": "SCA03"}[src["scaglione_valore"]]
        else:
            # The extract prints no bracket beside items 2-8; they are the
            # first bracket of the pretore, "fino a L. 3.000.000", which the
            # euro reprint confirms figure by figure (sino a EUR 1.549,37).
            word = "SCA1"
        row[word + "MIN"] = italian(src["min_lire"])
        if src["max_lire"]:
            row[word + "MAX"] = italian(src["max_lire"])
    write_table("Onorari94", CIVIL_COLUMNS, rows.values())

    sources.append(("Onorari94", None, FONTE_GU_CIVILE,
                    "Caricate le cifre stampate nel testo ufficiale: voce 1 (par. I, cause avanti al giudice "
                    "conciliatore) nei sottoscaglioni SCA01 (fino a L. 250.000), SCA02 (da L. 250.001 a L. 500.000) "
                    "e SCA03 (da L. 500.001 a L. 1.000.000); voci 2-8 (par. II, cause avanti al pretore) nello "
                    "scaglione SCA1 (fino a L. 3.000.000). Le altre voci e gli altri scaglioni in lire non sono "
                    "stampati nelle fonti disponibili; le lire ricavate dalla conversione in euro non sono cifre "
                    "ufficiali e non sono caricate. Davanti al giudice di pace il testo applica gli onorari dei "
                    "corrispondenti scaglioni davanti a conciliatore, pretore e tribunale. Per la tabella completa: "
                    + IMPORTA.format(t="Onorari94")))
    for item in sorted(rows):
        note = None
        if item == 1:
            note = ("Par. I: per le cause di valore superiore a L. 1.000.000 si applicano gli onorari del "
                    "paragrafo seguente.")
        elif item == 8:
            note = ("Massimo non leggibile nell'estratto ufficiale (stampato '438.00' a fine pagina): SCA1MAX resta "
                    "0 e la voce non viene proposta finche' non si importa il massimo ufficiale. La ristampa in euro "
                    "riporta 226,21 euro, conversione di L. 438.000 non stampata in lire.")
        sources.append(("Onorari94", item, FONTE_GU_CIVILE, note))


def onorari_94_euro(directory, sources):
    rows = {}
    for src in read_source(directory, "1994_onorari_civili_pretore.csv"):
        item = int(src["voce"])
        rows[item] = {"Id": item, "CodiceTariffa": src["voce"], "Azione": src["descrizione"], "Autorita": "Pretore",
                      "SCA1MIN": italian(src["sino_a_EUR_1.549,37_min_eur_secondaria"]),
                      "SCA1MAX": italian(src["sino_a_EUR_1.549,37_max_eur_secondaria"]),
                      "SCA2MIN": italian(src["da_EUR_1.549,38_a_2.582,28_min_eur_secondaria"]),
                      "SCA2MAX": italian(src["da_EUR_1.549,38_a_2.582,28_max_eur_secondaria"])}
    tribunale = {"(a)_fino_EUR_5.164,57(L.10M)_min_eur": "SCA3MIN", "(a)_max_eur": "SCA3MAX",
                 "(b)_EUR_5.164,58-25.822,84(L.50M)_min_eur": "SCA4MIN", "(b)_max_eur": "SCA4MAX",
                 "(c)_EUR_25.822,85-51.645,69(L.100M)_min_eur": "SCA5MIN", "(c)_max_eur": "SCA5MAX",
                 "(d)_EUR_51.645,70-103.291,38(L.200M)_min_eur": "SCA6MIN", "(d)_max_eur": "SCA6MAX"}
    tribunale_notes = {}
    for src in read_source(directory, "1994_onorari_civili_tribunale.csv"):
        item = int(src["voce"])
        row = {"Id": item, "CodiceTariffa": src["voce"], "Azione": strip_note_marker(src["descrizione"]),
               "Autorita": "Tribunale"}
        for printed, column in tribunale.items():
            if src[printed]:
                row[column] = italian(src[printed])
        rows[item] = row
        notes = []
        if row["Azione"] != src["descrizione"]:
            notes.append(f"Descrizione senza il richiamo di nota della ristampa ('{src['descrizione']}').")
        if not src["(d)_max_eur"]:
            notes.append("Scaglione (d) non riportato dalla ristampa: SCA6 resta 0.")
        if item == 18:
            notes.append("SCA5MAX stampato '1301,47' senza il punto delle migliaia: 1.301,47 euro.")
        tribunale_notes[item] = " ".join(notes) or None
    write_table("Onorari94Euro", CIVIL_COLUMNS, rows.values())

    sources.append(("Onorari94Euro", None, FONTE_PRETORE + " ; " + FONTE_TRIBUNALE,
                    "Tabella del 1994 convertita in euro. Voci 2-10 (pretore): 'sino a EUR 1.549,37' in SCA1, "
                    "'da EUR 1.549,38 a 2.582,28' in SCA2. Voci 11-20 (tribunale): (a) fino a EUR 5.164,57 in SCA3, "
                    "(b) EUR 5.164,58-25.822,84 in SCA4, (c) EUR 25.822,85-51.645,69 in SCA5, (d) EUR "
                    "51.645,70-103.291,38 in SCA6 (voci 11-18). Non disponibili: voce 1, scaglioni (e)-(l), valore "
                    "indeterminabile, voci dalla 21. Le cifre sono quelle di una ristampa privata, non del testo "
                    "ufficiale: una tabella ufficiale si carica con " + IMPORTA.format(t="Onorari94Euro")))
    for item in sorted(rows):
        if item <= 10:
            note = None
            if item == 4:
                note = "Nella ristampa la voce e' numerata per errore '3)'."
            elif item == 10:
                note = ("SCA2MIN caricato come stampato (49,48); la regola stampata sulla stessa pagina (minimo del "
                        "secondo scaglione = meta' del massimo del primo, arrotondato a L. 5.000) darebbe 46,48: "
                        "verificare sulla tabella ufficiale.")
            sources.append(("Onorari94Euro", item, FONTE_PRETORE, note))
        else:
            sources.append(("Onorari94Euro", item, FONTE_TRIBUNALE, tribunale_notes[item]))


def onorari_2004_euro(directory, sources):
    brackets = {"fino a 600": "SCA01", "da 600,01 a 1.600": "SCA02", "da 1.600,01 a 2.600": "SCA03"}
    rows = []
    for src in read_source(directory, "2004_onorari_civili_giudice_di_pace.csv"):
        item = int(src["voce"])
        row = {"Id": item, "CodiceTariffa": src["voce"], "Azione": src["descrizione"], "Autorita": "Giudice di pace"}
        for printed, word in brackets.items():
            for end in ("min", "max"):
                if src[f"{printed} {end}"]:
                    row[word + end.upper()] = italian(src[f"{printed} {end}"])
        rows.append(row)
        sources.append(("Onorari2004Euro", item, FONTE_GDP_2004, None))
    write_table("Onorari2004Euro", CIVIL_COLUMNS, rows)
    sources.append(("Onorari2004Euro", None, FONTE_GDP_2004,
                    "Par. I (cause avanti al giudice di pace), voci 1-11, completo: 'fino a 600' in SCA01, "
                    "'da 600,01 a 1.600' in SCA02, 'da 1.600,01 a 2.600' in SCA03. La voce 1 (per l'intero "
                    "giudizio) ha importi solo fino a 600 euro, le voci 2-11 solo da 600,01 a 2.600 euro: gli altri "
                    "scaglioni restano 0 come nella tabella. Paragrafi II e seguenti non disponibili: "
                    + IMPORTA.format(t="Onorari2004Euro")))


def penali_94(directory, sources):
    rows = []
    for position, src in enumerate(read_source(directory, "1994_onorari_penali_GU.csv"), start=1):
        row = {"Id": position, "CodiceTariffa": src["voce"], "Azione": src["descrizione"], "Autorita": None}
        for prefix in AUTHORITY_PREFIXES:
            row[prefix + "MIN"] = italian(src["min_lire"])
            row[prefix + "MAX"] = italian(src["max_lire"])
        rows.append(row)
        sources.append(("OnorariPenali94", position, FONTE_GU_PENALE, src["nota"] or None))
    write_table("OnorariPenali94", CRIMINAL_COLUMNS, rows)
    sources.append(("OnorariPenali94", None, FONTE_GU_PENALE,
                    "Voci 1.1, 1.2, 1.3, 2 e 3 (Id 1-5, nell'ordine della tabella). La tariffa penale del 1994 da' "
                    "una sola forcella per voce, senza distinguere l'autorita': la stessa forcella e' caricata in "
                    "tutte le colonne (Pretura, Tribunale, GiuPace, Gip, AssiseApp, Appello, CostCass), cosi' il "
                    "calcolo la propone qualunque sia l'autorita' della pratica. Voci dalla 4 in poi non disponibili: "
                    + IMPORTA.format(t="OnorariPenali94")))


def penali_2004(directory, sources):
    columns = {"Giudice di pace": "GiuPace", "GIP e GUP": "Gip",
               "Tribunale monocratico e Magistrato di sorveglianza": "Tribunale",
               "Corte d'appello e Tribunale di sorveglianza": "Appello",
               "Corte d'assise e d'assise d'appello": "AssiseApp", "Magistrature superiori": "CostCass"}
    rows = []
    for position, src in enumerate(read_source(directory, "2004_onorari_penali.csv"), start=1):
        row = {"Id": position, "CodiceTariffa": src["voce"], "Azione": src["descrizione"], "Autorita": None}
        for printed, prefix in columns.items():
            row[prefix + "MIN"] = italian(src[printed + " min"])
            row[prefix + "MAX"] = italian(src[printed + " max"])
        rows.append(row)
        sources.append(("OnorariPenali2004Euro", position, FONTE_PENALE_2004,
                        f"Tribunale collegiale (forcella stampata, senza colonna propria): min "
                        f"{src['Tribunale collegiale min']}, max {src['Tribunale collegiale max']} euro."))
    write_table("OnorariPenali2004Euro", CRIMINAL_COLUMNS, rows)
    sources.append(("OnorariPenali2004Euro", None, FONTE_PENALE_2004,
                    "Voci 1.1, 1.2, 1.3 e 2 (Id 1-4, nell'ordine della tabella). Colonne: Giudice di pace in GiuPace; "
                    "GIP e GUP in Gip; Tribunale monocratico e Magistrato di sorveglianza in Tribunale; Corte "
                    "d'appello e Tribunale di sorveglianza in Appello; Corte d'assise e d'assise d'appello in "
                    "AssiseApp; Magistrature superiori in CostCass. La tabella ha una sola coppia Tribunale, che il "
                    "calcolo usa per il tribunale in composizione sia monocratica sia collegiale: vi e' caricata la "
                    "colonna del tribunale monocratico, dove si svolge la gran parte dei processi; la forcella del "
                    "tribunale collegiale e' riportata nella nota di ogni voce. Pretura resta 0: nel 2004 la pretura "
                    "non esiste piu'. Voci dalla 3 in poi non disponibili: "
                    + IMPORTA.format(t="OnorariPenali2004Euro")))


def strag_2004(directory, sources):
    codes = {"1. A)": "1.A", "1. B) a)": "1.B.a", "1. B) b)": "1.B.b", "2. a)": "2.a", "2. b)": "2.b",
             "2. c)": "2.c", "2. d) (prima riga)": "2.d", "2. d) (seconda riga)": "2.d", "2. e)": "2.e"}
    rows = []
    for src in read_source(directory, "2004_stragiudiziale.csv"):
        printed = src["voce_come_stampata"]
        if printed not in codes:
            continue  # the part of the table that the source does not hold
        position = len(rows) + 1
        rows.append({"Id": position, "CodiceTariffa": codes[printed], "Azione": src["descrizione"],
                     "Autorita": None})
        sources.append(("OnorariStrag2004Euro", position, FONTE_STRAG_2004, f"Voce stampata '{printed}'."))
    write_table("OnorariStrag2004Euro", OUT_OF_COURT_COLUMNS, rows)
    sources.append(("OnorariStrag2004Euro", None, FONTE_STRAG_2004,
                    "Elenco delle voci 1-9 (da 1.A a 2.e), numerate secondo la posizione nella tabella ufficiale "
                    "contando ogni riga con importo. Gli importi delle prestazioni stragiudiziali non stanno nella "
                    "tabella: li calcola il programma dal valore della pratica. Le voci dalla 10 in poi non sono "
                    "nella fonte: per elencarle " + IMPORTA.format(t="OnorariStrag2004Euro")))


def empty_tables(sources):
    reasons = {
        "Diritti94": "Tabella dei diritti del 1994 (lire) non disponibile.",
        "Diritti94Euro": "Tabella dei diritti del 1994 in euro non disponibile.",
        "Diritti2004Euro": "Tabella dei diritti del 2004 non disponibile.",
        "OnorariPenali94Euro": ("Conversione in euro della tariffa penale del 1994 non disponibile; convertire le "
                                "lire non darebbe cifre stampate."),
        "OnorariStrag94": "Elenco delle voci stragiudiziali del 1994 (lire) non disponibile.",
        "OnorariStrag94Euro": "Elenco delle voci stragiudiziali del 1994 in euro non disponibile.",
    }
    for table, reason in reasons.items():
        sources.append((table, None, NESSUNA_FONTE,
                        reason + " La tabella e' vuota: caricare la tabella completa con " + IMPORTA.format(t=table)))


def write_sources(sources):
    lines = ["Tabella,Id,Fonte,Note"]
    tables = list(dict.fromkeys(table for table, _, _, _ in sources))
    # Each table's own note first, then its items in order.
    ordered = sorted(sources, key=lambda s: (tables.index(s[0]), s[1] is not None, s[1] or 0))
    for table, item, fonte, note in ordered:
        lines.append(",".join([quoted(table), "" if item is None else str(item), quoted(fonte),
                               "" if note is None else quoted(note)]))
    (OUT / "FonteTariffe.csv").write_text("\n".join(lines) + "\n", encoding="utf-8")


def main():
    directory = Path(sys.argv[1]) if len(sys.argv) > 1 else OUT / "fonti"
    sources = []
    onorari_94(directory, sources)
    onorari_94_euro(directory, sources)
    onorari_2004_euro(directory, sources)
    penali_94(directory, sources)
    penali_2004(directory, sources)
    strag_2004(directory, sources)
    empty_tables(sources)
    write_sources(sources)


if __name__ == "__main__":
    main()
