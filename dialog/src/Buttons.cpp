// The check box of the expense note and the three buttons that store,
// change and delete actions.
#include "avlor/dialog/frmOKParcella.h"

namespace avlor::dialog {

// Whether the action goes into the expense note is read when it is stored;
// ticking the box changes nothing else.
void frmOKParcella::chkIncludi_Click() { }

// Storing, changing and deleting actions write the firm's billing data and
// come with the writing of actions; until then the three buttons leave the
// dialog and the database exactly as they are.
void frmOKParcella::cmdAggiungi_Click() { }

void frmOKParcella::cmdModifica_Click() { }

void frmOKParcella::cmdCancella_Click() { }

} // namespace avlor::dialog
