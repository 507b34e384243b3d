#pragma once
// The controls of the fee-entry dialog "Parcellazione Adempimento", held as
// plain values: what a front end shows and what the dialog's logic reads and
// writes. No toolkit is involved; a window maps each control to a widget of
// its own kind.
//
// Every control has its name, its kind, the frame that holds it (empty for
// the dialog itself), a caption, a text, and its enabled and visible states.
//   - Options and check boxes also have a boolean value.
//   - Multi-column lists (cmbCodice, cmbVoce, cmbEseguito) have column
//     captions, rows (one text per column), one hidden 32-bit key per row,
//     the current row (-1 for none) and the text shown in their edit part.
//   - The grid (GrigliaParcella) has its 14 column captions, its rows (the
//     text array, 14 texts per row) and its current row (-1 for none).
//   - Money fields (FImporto, FImponibili, FEsenti, FDenMinT, FDenMaxT,
//     FDenMinS, FDenMaxS) hold the text the user sees, plus the currency
//     word and the lire-per-euro rate they were given at start-up.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "avlor/core/Currency.h"

namespace avlor::dialog {

enum class ControlKind {
    Frame,
    Label,
    Option,
    CheckBox,
    TextBox,
    DateField,
    NumberField,
    MoneyField,
    List,
    Button,
    Grid,
};

// "Frame", "Label", "Option", "CheckBox", "TextBox", "DateField",
// "NumberField", "MoneyField", "List", "Button", "Grid".
[[nodiscard]] std::string_view kindName(ControlKind kind) noexcept;

struct Control {
    std::string name;
    ControlKind kind = ControlKind::Label;
    std::string frame; // the frame that holds the control; empty when none
    std::string caption;
    std::string text;
    bool enabled = true;
    bool visible = true;
    bool value = false; // options and check boxes

    // Lists and the grid.
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
    std::vector<std::int32_t> keys; // lists only: one per row
    int current = -1;

    // Money fields.
    std::string currency; // "EURO", "LIRA" or whatever the configuration holds
    Currency exchangeRate; // lire per euro

    bool operator==(const Control&) const = default;
};

// Names of the controls, in the order in which controls() lists them (the
// order of the dialog's layout, top to bottom).
[[nodiscard]] const std::vector<std::string>& controlNames();

// All the controls of the dialog in their state before start-up: captions,
// columns and frames as laid out, texts empty, options off, everything
// enabled and visible.
[[nodiscard]] std::vector<Control> initialControls();

// The names of the 14 data fields bound to the grid's columns, in order.
[[nodiscard]] const std::vector<std::string>& gridFieldNames();

} // namespace avlor::dialog
