// The grid of the case's actions: one query per sequence, every value
// turned into the text the grid shows.
#include <exception>

#include "BusyPointer.h"
#include "FieldText.h"
#include "avlor/core/Format.h"
#include "avlor/core/Value.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/dialog/Statements.h"
#include "avlor/dialog/frmOKParcella.h"

namespace avlor::dialog {

namespace {

std::string trimmedUpper(std::string text)
{
    const std::size_t first = text.find_first_not_of(' ');
    text = first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(' ') - first + 1);
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') {
            c = static_cast<char>(c - 'a' + 'A');
        }
    }
    return text;
}

// The nearest whole amount, halves to the even neighbour, exactly.
Currency wholeHalfEven(Currency amount) { return amount.roundedTo(Currency::fromWhole(1), Rounding::HalfEven); }

} // namespace

std::vector<std::vector<std::string>> frmOKParcella::LeggiAzioni(bool bTariffa)
{
    BusyPointer busy(view());
    std::vector<std::vector<std::string>> rows;
    try {
        clsAccessoDati dati;
        dati.Apri(sql::griglia(s_.idPratica, bTariffa), 1, 3, -1);
        const std::vector<std::string>& fields = gridFieldNames();
        for (; !dati.Recordset().Eof(); dati.Recordset().MoveNext()) {
            const std::string valuta = trimmedUpper(plainText(dati.Campo("Valuta", TipoTesto)));
            // The row's exchange rate is read with it but changes nothing
            // in what the grid shows.
            static_cast<void>(dati.Campo("Cambio", TipoNumero));
            std::vector<std::string> row;
            row.reserve(fields.size());
            for (std::size_t column = 0; column < fields.size(); ++column) {
                if (column >= 6 && column <= 9) {
                    const Value stored = dati.Campo(fields[column], TipoNumero);
                    const Currency amount = stored.isNull() ? Currency{} : stored.toCurrency();
                    if (amount == Currency{}) {
                        row.push_back(stored.isNull() ? std::string() : "0");
                    } else if (valuta != "LIRA") {
                        row.push_back("\u20AC  " + formatAmount(amount, FormatoGrigliaEuro, locale_));
                    } else {
                        row.push_back("L. " + formatAmount(wholeHalfEven(amount), FormatoGrigliaLire, locale_));
                    }
                } else if (column == 11) {
                    const std::string ore = plainText(dati.Campo("Ore", TipoTesto));
                    const std::string minuti = plainText(dati.Campo("Minuti", TipoTesto));
                    row.push_back(ore != "0" || minuti != "0" ? ore + ":" + minuti + "''" : std::string());
                } else {
                    const Value value = dati.Recordset().Field(fields[column]);
                    row.push_back(value.isNull() || value.isEmpty() ? std::string() : value.toText(locale_));
                }
            }
            rows.push_back(std::move(row));
        }
    } catch (const std::exception&) {
        // Actions that cannot be read leave the grid with the rows read so
        // far.
    }
    return rows;
}

// "Mostra Tutte" lists both sequences, the tariff actions first and then
// the hourly ones, each in its own order; unchecked, the grid lists the
// sequence of the kind of entry in use.
void frmOKParcella::RiempiGriglia(bool bTariffa)
{
    grigliaTariffa_ = bTariffa;
    std::vector<std::vector<std::string>> rows;
    if (isOn("chkMosTut")) {
        rows = LeggiAzioni(true);
        std::vector<std::vector<std::string>> hourly = LeggiAzioni(false);
        rows.insert(rows.end(), std::make_move_iterator(hourly.begin()), std::make_move_iterator(hourly.end()));
    } else {
        rows = LeggiAzioni(bTariffa);
    }
    s_.ArrayAzioni = rows;
    setGridRows(std::move(rows));
}

void frmOKParcella::AggiornaGriglia() { RiempiGriglia(!isOn("optOraria")); }

void frmOKParcella::chkMosTut_Click() { AggiornaGriglia(); }

} // namespace avlor::dialog
