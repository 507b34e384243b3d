#include "avlor/engine/FinalMessage.h"

#include "avlor/core/Messages.h"

namespace avlor {

std::string noProposalText(std::string_view kindWord, std::string_view itemCode)
{
    std::string text(kindWord);
    text += " codice <";
    text += itemCode;
    text += ">";
    text += " non previsto per una pratica di questo valore.";
    text += "\r";
    text += "Nessun valore proposto.";
    return text;
}

void showNoProposal(std::string_view kindWord, std::string_view itemCode)
{
    static_cast<void>(
        messageBoxes().show(noProposalText(kindWord, itemCode), "Attenzione", MsgIcon::Information, MsgButtons::Ok));
}

} // namespace avlor
