#pragma once
// The SQL texts the fee-entry dialog hands to the record-access layer, built
// by joining fixed fragments and values exactly as the dialog always has:
// double blanks, quoted and bare yes/no words and trailing blanks included.
// The database compares the yes/no columns without regard to case and
// accepts both spellings, so every form selects the same rows.
#include <cstdint>
#include <string>

namespace avlor::dialog::sql {

// "SELECT Valuta,Valore,Cambio,Rilevanza,Autorita FROM Pratica  WHERE ID_Pra =
// <id>"
[[nodiscard]] std::string casoPratica(std::int32_t idPratica);
// "SELECT * FROM ConfigGenerale"
[[nodiscard]] std::string configGenerale();
// "SELECT * FROM Utenti ORDER BY ID_Utente"
[[nodiscard]] std::string utenti();

// The date as a statement hands it to the server: "CONVERT (SMALLDATETIME,'"
// + dayFirst + "', 105) " (style 105, day first, with its trailing blank).
[[nodiscard]] std::string dataSql(const std::string& dayFirst);

// The order-number proposal: the actions of the sequence dated on or before
// the day, latest first.
[[nodiscard]] std::string proponiNOrdine(std::int32_t idPratica, const std::string& dayFirst, bool bTariffa,
                                         bool bNuova, std::int32_t idAzione);

// The grid's rows: the tariff actions (bTariffa) or the hourly ones.
[[nodiscard]] std::string griglia(std::int32_t idPratica, bool bTariffa);

// The rows of the code list (ordered by code) and of the item list (ordered
// by description) from the fee table `tabella`.
[[nodiscard]] std::string codiciTariffa(const std::string& tabella);
[[nodiscard]] std::string vociTariffa(const std::string& tabella);

// The template rows. `penali`: the criminal templates are asked for;
// `autorita`: the case names an authority. The code list and the item list
// spell the criminal filter differently ('true' quoted, true bare).
[[nodiscard]] std::string parcelleBaseCodice(bool penali, bool autorita);
[[nodiscard]] std::string parcelleBaseVoce(bool penali, bool autorita);

// One action, whole: "SELECT * FROM Azioni WHERE IdAzione = <id>".
[[nodiscard]] std::string azione(std::int32_t idAzione);

// The table actions are added to.
inline constexpr const char* TabellaAzioni = "Azioni";

// The numbers of one sequence from `nOrdine` up, before an action is added
// at that number.
[[nodiscard]] std::string numeriDaInserimento(std::int32_t idPratica, std::int32_t nOrdine, bool bTariffa);
// The same after an action was changed to `nOrdine`, the changed one left
// out.
[[nodiscard]] std::string numeriDaModifica(std::int32_t idPratica, std::int32_t nOrdine, bool bTariffa,
                                           std::int32_t idAzione);
// The tariff numbers, from the lowest: the start of the sequence that a
// change closes up.
[[nodiscard]] std::string numeriTariffa(std::int32_t idPratica);
// The numbers of the sequence that a delete renumbers: the hourly one when
// `bOraria`, else the tariff one.
[[nodiscard]] std::string numeriDopoCancellazione(std::int32_t idPratica, bool bOraria);
// The tariff numbers from `nOrdine` up that a template makes room above.
[[nodiscard]] std::string numeriDaParcellaBase(std::int32_t idPratica, std::int32_t nOrdine);
// The items of a template, in their order.
[[nodiscard]] std::string vociParcellaBase(std::int32_t idParcellaBase);

} // namespace avlor::dialog::sql
