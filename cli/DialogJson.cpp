#include "DialogJson.h"

namespace avlor::cli {

using nlohmann::ordered_json;

ordered_json formJson(const dialog::FormState& f)
{
    const auto amount = [](Currency c) { return c.toFixed4(); };
    ordered_json form;
    form["idPratica"] = f.idPratica;
    form["sParti"] = f.sParti;
    form["sAdempEff"] = f.sAdempEff;
    form["sData"] = f.sData;
    form["idUtenteCorrente"] = f.idUtenteCorrente;
    form["Valore"] = amount(f.Valore);
    form["bIndeterminato"] = f.bIndeterminato;
    form["Rilevanza"] = f.Rilevanza;
    form["Autorita"] = f.Autorita;
    form["ValutaPratica"] = f.ValutaPratica;
    form["CambioPratica"] = amount(f.CambioPratica);
    form["ValutaDefault"] = f.ValutaDefault;
    form["CambioLiraEuro"] = amount(f.CambioLiraEuro);
    form["sTabella"] = f.sTabella;
    form["NomiCampi"] = f.NomiCampi;
    form["bModifica"] = f.bModifica;
    form["idAzioneCorrente"] = f.idAzioneCorrente;
    form["idTariffa"] = f.idTariffa;
    form["ImportoVoce"] = amount(f.ImportoVoce);
    form["ArrayAzioni"] = f.ArrayAzioni;
    form["idEseguitoDa"] = f.idEseguitoDa;
    form["TariffaEuro"] = amount(f.TariffaEuro);
    form["TariffaLira"] = amount(f.TariffaLira);
    return form;
}

ordered_json controlJson(const dialog::Control& c)
{
    using dialog::ControlKind;
    ordered_json out;
    out["testo"] = c.text;
    out["caption"] = c.caption;
    out["abilitato"] = c.enabled;
    out["visibile"] = c.visible;
    switch (c.kind) {
    case ControlKind::Option:
    case ControlKind::CheckBox:
        out["valore"] = c.value;
        break;
    case ControlKind::List:
        out["colonne"] = c.columns;
        out["righe"] = c.rows;
        out["chiavi"] = c.keys;
        out["corrente"] = c.current;
        break;
    case ControlKind::Grid:
        out["colonne"] = c.columns;
        out["righe"] = c.rows;
        out["corrente"] = c.current;
        break;
    default:
        break;
    }
    return out;
}

ordered_json dialogAnswer(const dialog::frmOKParcella& dialog, const std::vector<ScriptAnswers::Shown>& shown)
{
    ordered_json answer;
    answer["messaggi"] = ordered_json::array();
    for (const auto& m : shown) {
        answer["messaggi"].push_back({{"testo", m.text},
                                      {"titolo", m.title},
                                      {"icona", wordOf(m.icon)},
                                      {"pulsanti", wordsOf(m.buttons)},
                                      {"risposta", wordOf(m.answer)}});
    }
    const auto focus = dialog.focused();
    answer["focus"] = focus ? ordered_json(*focus) : ordered_json(nullptr);
    answer["chiuso"] = dialog.closed();
    answer["form"] = formJson(dialog.state());
    ordered_json controls = ordered_json::object();
    for (const auto& c : dialog.controls())
        controls[c.name] = controlJson(c);
    answer["controlli"] = std::move(controls);
    return answer;
}

} // namespace avlor::cli
