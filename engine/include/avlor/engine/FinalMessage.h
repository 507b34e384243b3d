#pragma once
// The one message of the tariff engine: shown when nothing can be proposed.
#include <string>
#include <string_view>

namespace avlor {

// kind word + " codice <" + item code + ">" + " non previsto per una pratica
// di questo valore." + "\r" + "Nessun valore proposto.". Kind word and code
// are empty when no row was read (" codice <> non previsto ...").
[[nodiscard]] std::string noProposalText(std::string_view kindWord, std::string_view itemCode);

// Shows that text titled "Attenzione", information icon, OK button, through
// the message boxes the host installed.
void showNoProposal(std::string_view kindWord, std::string_view itemCode);

} // namespace avlor
