#pragma once
// The whole state of a fee-entry dialog as text, for comparing with the
// expected state line by line: every control that differs from its state
// before start-up (kind, frame, caption and columns as laid out, texts
// empty, options off, all enabled and visible), then every form-state
// field. Texts are shown in quotes with a carriage return as \r.
#include <sstream>
#include <string>
#include <vector>

#include "avlor/dialog/frmOKParcella.h"

namespace avlor::test {

inline std::string quoted(const std::string& text)
{
    std::string result = "\"";
    for (char c : text) {
        result += c == '\r' ? std::string("\\r") : std::string(1, c);
    }
    return result + "\"";
}

inline std::string joined(const std::vector<std::string>& texts)
{
    std::string result = "[";
    for (std::size_t i = 0; i < texts.size(); ++i) {
        result += (i ? ", " : "") + quoted(texts[i]);
    }
    return result + "]";
}

inline std::string describeControls(const dialog::frmOKParcella& form)
{
    std::ostringstream out;
    const std::vector<dialog::Control> initial = dialog::initialControls();
    for (std::size_t i = 0; i < initial.size(); ++i) {
        const dialog::Control& before = initial[i];
        const dialog::Control& now = form.controls()[i];
        if (now == before) {
            continue;
        }
        out << now.name << ":";
        if (now.caption != before.caption) {
            out << " caption=" << quoted(now.caption);
        }
        if (now.text != before.text) {
            out << " text=" << quoted(now.text);
        }
        if (now.enabled != before.enabled) {
            out << (now.enabled ? " enabled" : " disabled");
        }
        if (now.visible != before.visible) {
            out << (now.visible ? " visible" : " hidden");
        }
        if (now.value != before.value) {
            out << (now.value ? " on" : " off");
        }
        if (now.columns != before.columns) {
            out << " columns=" << joined(now.columns);
        }
        if (now.current != before.current) {
            out << " current=" << now.current;
        }
        if (now.currency != before.currency || now.exchangeRate != before.exchangeRate) {
            out << " currency=" << quoted(now.currency) << "@" << now.exchangeRate.toText();
        }
        for (std::size_t row = 0; row < now.rows.size(); ++row) {
            out << "\n  " << (row < now.keys.size() ? std::to_string(now.keys[row]) + " " : std::string())
                << joined(now.rows[row]);
        }
        out << "\n";
    }
    return out.str();
}

inline std::string describeState(const dialog::FormState& s)
{
    std::ostringstream out;
    out << "idPratica=" << s.idPratica << " sParti=" << quoted(s.sParti) << " sAdempEff=" << quoted(s.sAdempEff)
        << " sData=" << quoted(s.sData) << " idUtenteCorrente=" << s.idUtenteCorrente << "\n";
    out << "Valore=" << s.Valore.toFixed4() << " bIndeterminato=" << s.bIndeterminato << " Rilevanza=" << s.Rilevanza
        << " Autorita=" << quoted(s.Autorita) << " ValutaPratica=" << quoted(s.ValutaPratica)
        << " CambioPratica=" << s.CambioPratica.toFixed4() << "\n";
    out << "ValutaDefault=" << quoted(s.ValutaDefault) << " CambioLiraEuro=" << s.CambioLiraEuro.toFixed4()
        << " sTabella=" << quoted(s.sTabella) << " NomiCampi=" << s.NomiCampi.size() << "\n";
    out << "bModifica=" << s.bModifica << " idAzioneCorrente=" << s.idAzioneCorrente << " idTariffa=" << s.idTariffa
        << " ImportoVoce=" << s.ImportoVoce.toFixed4() << " ArrayAzioni=" << s.ArrayAzioni.size() << "\n";
    out << "idEseguitoDa=" << s.idEseguitoDa << " TariffaEuro=" << s.TariffaEuro.toFixed4()
        << " TariffaLira=" << s.TariffaLira.toFixed4() << "\n";
    return out.str();
}

inline std::string describe(const dialog::frmOKParcella& form)
{
    return describeControls(form) + "--\n" + describeState(form.state());
}

} // namespace avlor::test
