#include <gtest/gtest.h>

#include "avlor/dialog/Controls.h"
#include "avlor/dialog/frmOKParcella.h"

namespace avlor::dialog {
namespace {

TEST(Controls, EveryControlOfTheLayoutIsThereOnceInItsOrder)
{
    const std::vector<std::string> expected = {"fraClienteContro",
                                               "lblClienteContro",
                                               "fraAdempimento",
                                               "lblAdempimento",
                                               "fraTipo",
                                               "optOraria",
                                               "optDiritti",
                                               "optOnorari",
                                               "optStragiudiziale",
                                               "optPenale",
                                               "optParcellaBase",
                                               "fraCodice",
                                               "cmbCodice",
                                               "fraVoce",
                                               "cmbVoce",
                                               "fraDescrizione",
                                               "txtDescrizione",
                                               "fraData",
                                               "FData",
                                               "fraOrdine",
                                               "FNumOrdine",
                                               "fraN",
                                               "FQuantita",
                                               "fraImporto",
                                               "lblImporto",
                                               "FImporto",
                                               "lblImponibili",
                                               "FImponibili",
                                               "lblEsenti",
                                               "FEsenti",
                                               "lblMINMAXT",
                                               "fraMinMax",
                                               "lblMinT",
                                               "FDenMinT",
                                               "lblMaxT",
                                               "FDenMaxT",
                                               "lblMINMAXS",
                                               "fraStaord",
                                               "lblMinS",
                                               "FDenMinS",
                                               "lblMaxS",
                                               "FDenMaxS",
                                               "fraEseguito",
                                               "cmbEseguito",
                                               "fraTempo",
                                               "lblOre",
                                               "FOre",
                                               "lblMinuti",
                                               "FMinuti",
                                               "chkIncludi",
                                               "chkMosTut",
                                               "cmdAggiungi",
                                               "cmdModifica",
                                               "cmdCancella",
                                               "GrigliaParcella"};
    EXPECT_EQ(controlNames(), expected);
}

TEST(Controls, UnknownNameIsRefusedClearly)
{
    frmOKParcella dialog(nullptr, Locale::neutral());
    try {
        static_cast<void>(dialog.control("cmdSalva"));
        FAIL() << "an unknown control was found";
    } catch (const DialogError& error) {
        EXPECT_STREQ(error.what(), "Il dialogo \"Parcellazione Adempimento\" non ha un controllo di nome \"cmdSalva\"");
    }
}

} // namespace
} // namespace avlor::dialog
