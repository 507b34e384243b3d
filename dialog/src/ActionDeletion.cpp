// Deleting the action loaded in the entry, after the user's confirmation
// (and a second one for an invoiced action), and renumbering its sequence.
#include <exception>

#include "BusyPointer.h"
#include "FieldText.h"
#include "Renumbering.h"
#include "UnitOfWork.h"
#include "avlor/core/Messages.h"
#include "avlor/core/Value.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/dialog/Statements.h"
#include "avlor/dialog/frmOKParcella.h"

namespace avlor::dialog {

void frmOKParcella::cmdCancella_Click()
{
    if (s_.idAzioneCorrente == 0) {
        return;
    }
    const bool oraria = isOn("optOraria");
    const std::string descrizione = trimmed(textOf(oraria ? "txtDescrizione" : "cmbVoce"));
    if (messageBoxes().show("ATTENZIONE : Confermi la cancellazione dell'Azione \r" + descrizione + " ? ",
                            TitoloMessaggi, MsgIcon::Question, MsgButtons::YesNo) != MsgResult::Yes) {
        return;
    }
    EliminaAzione();
    if (!oraria) {
        AggiornaGriglia();
        PreparaNuovaVoce();
        FineModifica();
    } else {
        AggiornaGriglia();
        FineModifica();
        // The performer goes back to the user at the keyboard, as after an
        // hourly action is stored.
        CaricaUtenti(s_.idUtenteCorrente);
        SvuotaInserimentoOrario();
    }
}

void frmOKParcella::EliminaAzione()
{
    BusyPointer busy(view());
    try {
        // The question is asked before the press's writing begins, so that
        // no other workstation waits on this case file while it is open.
        bool elimina = true;
        {
            clsAccessoDati dati;
            dati.Apri(sql::azione(s_.idAzioneCorrente), 1, 3, -1);
            const Value fatturata = dati.Campo("bFattura", TipoNumero);
            if (!fatturata.isNull() && fatturata.toBool()) {
                const std::string descrizione = plainText(dati.Campo("Descr", TipoTesto));
                elimina = messageBoxes().show("ATTENZIONE : L'azione " + descrizione +
                                                  "\rrisulta gia' fatturata. Vuoi eliminarla ugualmente ?",
                                              TitoloMessaggi, MsgIcon::Question, MsgButtons::YesNo) == MsgResult::Yes;
            }
        }
        UnitOfWork lavoro(s_.idPratica);
        if (elimina) {
            clsAccessoDati dati;
            dati.Apri(sql::azione(s_.idAzioneCorrente), 1, 3, -1);
            dati.Recordset().Delete();
        }
        // The sequence in view is numbered afresh even when the invoiced
        // action was kept: declining still closes every gap.
        rinumeraSequenza(s_.idPratica, isOn("optOraria"));
        lavoro.commit();
    } catch (const std::exception& error) {
        segnalaFallimento(error);
    }
}

} // namespace avlor::dialog
