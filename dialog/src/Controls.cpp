#include "avlor/dialog/Controls.h"

namespace avlor::dialog {

namespace {

Control make(std::string name, ControlKind kind, std::string frame, std::string caption)
{
    Control control;
    control.name = std::move(name);
    control.kind = kind;
    control.frame = std::move(frame);
    control.caption = std::move(caption);
    return control;
}

Control list(std::string name, std::string frame, std::vector<std::string> columns)
{
    Control control = make(std::move(name), ControlKind::List, std::move(frame), "");
    control.columns = std::move(columns);
    return control;
}

std::vector<Control> layout()
{
    using K = ControlKind;
    std::vector<Control> c;
    c.push_back(make("fraClienteContro", K::Frame, "", "Cliente/Controparte"));
    c.push_back(make("lblClienteContro", K::Label, "fraClienteContro", ""));
    c.push_back(make("fraAdempimento", K::Frame, "", "Adempimento Effettuato"));
    c.push_back(make("lblAdempimento", K::Label, "fraAdempimento", ""));
    c.push_back(make("fraTipo", K::Frame, "", ""));
    c.push_back(make("optOraria", K::Option, "fraTipo", "Parcella Oraria"));
    c.push_back(make("optDiritti", K::Option, "fraTipo", "Diritti"));
    c.push_back(make("optOnorari", K::Option, "fraTipo", "Onorari"));
    c.push_back(make("optStragiudiziale", K::Option, "fraTipo", "Stragiudiziale"));
    c.push_back(make("optPenale", K::Option, "fraTipo", "Penale"));
    c.push_back(make("optParcellaBase", K::Option, "fraTipo", "Parcella Base"));
    c.push_back(make("fraCodice", K::Frame, "", "Codice"));
    c.push_back(list("cmbCodice", "fraCodice", {"Codice", "Azione"}));
    c.push_back(make("fraVoce", K::Frame, "", "Voce Di Parcella"));
    c.push_back(list("cmbVoce", "fraVoce", {"Azione", "Codice", "Autorita"}));
    c.push_back(make("fraDescrizione", K::Frame, "", "Descrizione"));
    c.push_back(make("txtDescrizione", K::TextBox, "fraDescrizione", ""));
    c.push_back(make("fraData", K::Frame, "", "Data"));
    c.push_back(make("FData", K::DateField, "fraData", ""));
    c.push_back(make("fraOrdine", K::Frame, "", "Ord."));
    c.push_back(make("FNumOrdine", K::NumberField, "fraOrdine", ""));
    c.push_back(make("fraN", K::Frame, "", ""));
    c.push_back(make("FQuantita", K::NumberField, "fraN", ""));
    c.push_back(make("fraImporto", K::Frame, "", ""));
    c.push_back(make("lblImporto", K::Label, "fraImporto", "Importo"));
    c.push_back(make("FImporto", K::MoneyField, "fraImporto", ""));
    c.push_back(make("lblImponibili", K::Label, "fraImporto", "Spese Imponibili"));
    c.push_back(make("FImponibili", K::MoneyField, "fraImporto", ""));
    c.push_back(make("lblEsenti", K::Label, "fraImporto", "Spese Esenti"));
    c.push_back(make("FEsenti", K::MoneyField, "fraImporto", ""));
    c.push_back(make("lblMINMAXT", K::Label, "", ""));
    c.push_back(make("fraMinMax", K::Frame, "", ""));
    c.push_back(make("lblMinT", K::Label, "fraMinMax", "Tariffa Min"));
    c.push_back(make("FDenMinT", K::MoneyField, "fraMinMax", ""));
    c.push_back(make("lblMaxT", K::Label, "fraMinMax", "Tariffa Max"));
    c.push_back(make("FDenMaxT", K::MoneyField, "fraMinMax", ""));
    c.push_back(make("lblMINMAXS", K::Label, "", ""));
    c.push_back(make("fraStaord", K::Frame, "", ""));
    c.push_back(make("lblMinS", K::Label, "fraStaord", "Tariffa Min"));
    c.push_back(make("FDenMinS", K::MoneyField, "fraStaord", ""));
    c.push_back(make("lblMaxS", K::Label, "fraStaord", "Tariffa Max"));
    c.push_back(make("FDenMaxS", K::MoneyField, "fraStaord", ""));
    c.push_back(make("fraEseguito", K::Frame, "", "Eseguito da"));
    c.push_back(list("cmbEseguito", "fraEseguito", {"Utente", "TAREURO", "TARLIRE"}));
    c.push_back(make("fraTempo", K::Frame, "", "Tempo Impiegato"));
    c.push_back(make("lblOre", K::Label, "fraTempo", ""));
    c.push_back(make("FOre", K::NumberField, "fraTempo", ""));
    c.push_back(make("lblMinuti", K::Label, "fraTempo", "Minuti"));
    c.push_back(make("FMinuti", K::NumberField, "fraTempo", ""));
    c.push_back(make("chkIncludi", K::CheckBox, "", "Includi in Nota Spese"));
    c.push_back(make("chkMosTut", K::CheckBox, "", "Mostra Tutte"));
    c.push_back(make("cmdAggiungi", K::Button, "", "&Aggiungi"));
    c.push_back(make("cmdModifica", K::Button, "", ""));
    c.push_back(make("cmdCancella", K::Button, "", ""));
    Control grid = make("GrigliaParcella", K::Grid, "", "");
    grid.columns = {"IDAZIONE",   "",           "",           "Data",        "Azione",      "",
                    "Diritti",    "Onorari",    "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM",
                    "IdEseguito", "IsNotaSpese"};
    c.push_back(std::move(grid));
    return c;
}

} // namespace

std::string_view kindName(ControlKind kind) noexcept
{
    switch (kind) {
    case ControlKind::Frame:
        return "Frame";
    case ControlKind::Label:
        return "Label";
    case ControlKind::Option:
        return "Option";
    case ControlKind::CheckBox:
        return "CheckBox";
    case ControlKind::TextBox:
        return "TextBox";
    case ControlKind::DateField:
        return "DateField";
    case ControlKind::NumberField:
        return "NumberField";
    case ControlKind::MoneyField:
        return "MoneyField";
    case ControlKind::List:
        return "List";
    case ControlKind::Button:
        return "Button";
    case ControlKind::Grid:
        return "Grid";
    }
    return "Control";
}

const std::vector<std::string>& controlNames()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> result;
        for (const Control& control : layout()) {
            result.push_back(control.name);
        }
        return result;
    }();
    return names;
}

std::vector<Control> initialControls() { return layout(); }

const std::vector<std::string>& gridFieldNames()
{
    static const std::vector<std::string> names = {"IdAzione",   "bFattura", "NOrdine",      "Data",       "Descr",
                                                   "Quantita",   "Diritti",  "Onorari",      "Imponibili", "Esenti",
                                                   "NomeUtente", "Ore",      "IdEseguitoDa", "InNotaSpese"};
    return names;
}

} // namespace avlor::dialog
