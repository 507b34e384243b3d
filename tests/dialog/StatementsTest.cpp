// The SQL texts of the dialog, character for character.
#include <gtest/gtest.h>

#include "avlor/dialog/Statements.h"

namespace avlor::dialog::sql {
namespace {

TEST(Statements, CaseFileKeepsTheTwoBlanksBeforeWhere)
{
    EXPECT_EQ(casoPratica(7), "SELECT Valuta,Valore,Cambio,Rilevanza,Autorita FROM Pratica  WHERE ID_Pra = 7");
    EXPECT_EQ(casoPratica(-3), "SELECT Valuta,Valore,Cambio,Rilevanza,Autorita FROM Pratica  WHERE ID_Pra = -3");
}

TEST(Statements, ConfigurationAndUsers)
{
    EXPECT_EQ(configGenerale(), "SELECT * FROM ConfigGenerale");
    EXPECT_EQ(utenti(), "SELECT * FROM Utenti ORDER BY ID_Utente");
}

TEST(Statements, DateGoesThroughStyle105WithItsTrailingBlank)
{
    EXPECT_EQ(dataSql("02/06/2004"), "CONVERT (SMALLDATETIME,'02/06/2004', 105) ");
}

TEST(Statements, ProposalOfANewTariffAction)
{
    EXPECT_EQ(proponiNOrdine(7, "15/03/2005", true, true, 0),
              "SELECT NOrdine,Data FROM Azioni WHERE IdPra = 7 AND IsTariffa = 'TRUE'  AND Data <= CONVERT "
              "(SMALLDATETIME,'15/03/2005', 105)  ORDER BY Data DESC,NOrdine DESC");
}

TEST(Statements, ProposalForAnHourlyActionBeingChangedLeavesItOut)
{
    EXPECT_EQ(proponiNOrdine(7, "15/03/2005", false, false, 12),
              "SELECT NOrdine,Data FROM Azioni WHERE IdPra = 7 AND IsTariffa = 'FALSE'  AND IdAzione <> 12 AND Data "
              "<= CONVERT (SMALLDATETIME,'15/03/2005', 105)  ORDER BY Data DESC,NOrdine DESC");
}

TEST(Statements, GridOfEitherSequence)
{
    EXPECT_EQ(griglia(7, true),
              "SELECT Azioni.*, Utenti.NomeUtente FROM Utenti INNER JOIN Azioni ON "
              "Utenti.ID_Utente = Azioni.IdEseguitoDa WHERE IdPra = 7 AND IsTariffa = 'TRUE'  "
              "ORDER BY NOrdine ");
    EXPECT_EQ(griglia(7, false),
              "SELECT Azioni.*, Utenti.NomeUtente FROM Utenti INNER JOIN Azioni ON "
              "Utenti.ID_Utente = Azioni.IdEseguitoDa WHERE IdPra = 7 AND IsTariffa = 'FALSE'  "
              "ORDER BY NOrdine ");
}

TEST(Statements, TariffItemsByCodeAndByDescription)
{
    EXPECT_EQ(codiciTariffa("Onorari2004Euro"), "SELECT * FROM Onorari2004Euro ORDER BY CodiceTariffa");
    EXPECT_EQ(vociTariffa("Diritti94"), "SELECT * FROM Diritti94 ORDER BY Azione");
}

TEST(Statements, TemplatesOfTheCodeListQuoteTheCriminalFlag)
{
    EXPECT_EQ(parcelleBaseCodice(false, true), "SELECT * FROM ParcellaBase ORDER BY CodiceParcella");
    EXPECT_EQ(parcelleBaseCodice(false, false), "SELECT * FROM ParcellaBase ORDER BY CodiceParcella");
    EXPECT_EQ(parcelleBaseCodice(true, true),
              "SELECT * FROM ParcellaBase WHERE IsPenale= 'true' ORDER BY CodiceParcella");
    EXPECT_EQ(parcelleBaseCodice(true, false), "SELECT * FROM ParcellaBase  ORDER BY NomeParcella ");
}

TEST(Statements, TemplatesOfTheItemListLeaveTheCriminalFlagBare)
{
    EXPECT_EQ(parcelleBaseVoce(false, true), "SELECT * FROM ParcellaBase ORDER BY CodiceParcella");
    EXPECT_EQ(parcelleBaseVoce(true, true), "SELECT * FROM ParcellaBase WHERE IsPenale= true ORDER BY CodiceParcella");
    EXPECT_EQ(parcelleBaseVoce(true, false), "SELECT * FROM ParcellaBase  ORDER BY NomeParcella ");
}

TEST(Statements, OneAction) { EXPECT_EQ(azione(42), "SELECT * FROM Azioni WHERE IdAzione = 42"); }

} // namespace
} // namespace avlor::dialog::sql
