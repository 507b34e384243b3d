// Placeholder bodies of the events, filled in by the following commits.
#include "avlor/dialog/frmOKParcella.h"

namespace avlor::dialog {

void frmOKParcella::Setta(std::int32_t idP, const std::string& sParti, const std::string& sAdempEff,
                          const std::string& sData)
{
    s_.idPratica = idP;
    s_.sParti = sParti;
    s_.sAdempEff = sAdempEff;
    s_.sData = sData;
}
void frmOKParcella::Form_Load() {}
void frmOKParcella::optDiritti_Click() {}
void frmOKParcella::optOnorari_Click() {}
void frmOKParcella::optPenale_Click() {}
void frmOKParcella::optStragiudiziale_Click() {}
void frmOKParcella::optOraria_Click() {}
void frmOKParcella::optParcellaBase_Click() {}
void frmOKParcella::FData_Change() {}
void frmOKParcella::cmbCodice_DropDown() {}
void frmOKParcella::cmbCodice_Click() {}
void frmOKParcella::cmbVoce_DropDown() {}
void frmOKParcella::cmbVoce_Click() {}
void frmOKParcella::GrigliaParcella_RowColChange() {}
void frmOKParcella::cmbEseguito_Click() {}
void frmOKParcella::FOre_Change() {}
void frmOKParcella::FMinuti_Change() {}
void frmOKParcella::chkIncludi_Click() {}
void frmOKParcella::chkMosTut_Click() {}
void frmOKParcella::cmdAggiungi_Click() {}
void frmOKParcella::cmdModifica_Click() {}
void frmOKParcella::cmdCancella_Click() {}

} // namespace avlor::dialog
