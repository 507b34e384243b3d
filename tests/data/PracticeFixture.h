#pragma once
// A small practice, loaded into a fresh test database, that every statement
// of the application can be run against: users and groups, one case file
// with tariff and hourly actions on both sides of 2 June 2004, parties,
// persons, invoices, templates and a few fee-table rows.
#include <gtest/gtest.h>

#include "TestDatabase.h"

namespace avlor::test {

class PracticeTest : public testing::Test {
protected:
    void SetUp() override {
        db.exec(R"sql(
INSERT INTO Utenti (ID_Utente, NomeUtente, LivelloRiservatezza, TitContabilita, TariffaEuro, TariffaLira) VALUES
  (1, 'Admin', 3, 'True', 1000000, 0),
  (2, 'Tutti', 3, 'False', 0, 0),
  (5, 'Rossi', 2, 'true', 1500000, 500000000),
  (9, 'Bianchi', 1, 'FALSE', 0, 400000000),
  (11, 'True', 1, NULL, NULL, NULL);
INSERT INTO RelGruppiUtenti (Fk_Id_Utente, Fk_Gruppo) VALUES
  (5, 'Civile'), (9, 'Civile'), (5, 'Tutti'), (5, 'Civile'), (9, 'D''Amico'), (11, 'True'), (1, 'TRUE');
INSERT INTO Pratica (ID_Pra, Valore, Valuta, Cambio, Rilevanza, Autorita) VALUES
  (5, 258230000, ' EURO ', 10000, 50, 'Tribunale'),
  (6, NULL, 'LIRA', 19362700, 0, NULL);
-- Tariff actions 1, 2, 3, 5 and hourly actions 1, 2 of case 5; one action of case 6.
INSERT INTO Azioni (IdAzione, IdPra, NOrdine, Data, TipoAzione, IsTariffa, Codice, Descr, Quantita, Valuta, Cambio,
                    Onorari, Diritti, Esenti, Imponibili, Ore, Minuti, InNotaSpese, TabellaTariffa, IdVoceParcella,
                    IdEseguitoDa, bFattura, IdFattura) VALUES
  (1, 5, 1, '2004-06-01', 0, 'True', '12', 'Esame', '1', 'EURO', 10000, 0, 123450000, 0, 0, 0, 0, -1,
   'Diritti94Euro', 12, 5, 'False', 0),
  (2, 5, 2, '2004-06-02', 1, 'True', '3', 'Studio', '2', 'EURO', 10000, 2500000, 0, 150000, 0, 0, 0, 0,
   'Onorari2004Euro', 3, 5, 'True', 7),
  (3, 5, 3, '2004-06-02', 0, 'True', '14', 'Udienza', NULL, 'EURO', 10000, 0, 50000, 0, 0, 0, 0, 0,
   'Diritti2004Euro', 14, 9, 'False', 0),
  (4, 5, 5, '2004-06-03', 0, 'True', '15', 'Deposito', '1', 'LIRA', 19362700, 0, 123456000, 0, 0, 0, 0, 0,
   'Diritti94', 15, 99, 'False', 0),
  (5, 5, 1, '2004-06-01', 0, 'False', NULL, 'Ricerca', NULL, 'EURO', 10000, 1000000, 0, 0, 0, 2, 30, 0,
   NULL, 0, 5, 'False', 0),
  (6, 5, 2, '2004-06-05', 0, 'False', NULL, 'Telefonata', NULL, 'EURO', 10000, 0, 0, 0, 0, 0, 45, 0,
   NULL, 0, 9, 'False', 0),
  (7, 6, 1, '2004-06-01', 0, 'True', '1', 'Altra pratica', '1', 'LIRA', 19362700, 0, 0, 0, 0, 0, 0, 0,
   'Diritti94', 1, 5, 'False', 0);
INSERT INTO MultiIntesta (ID_Multi, ID_Pra, IsCliente) VALUES
  (1, 5, 'True'), (2, 5, 'TRUE'), (3, 5, 'False'), (4, 6, 'false');
INSERT INTO Anagrafica (ID_Ana, IsFisicaGiuridica, IdRiservata, fkGruppo) VALUES
  (3, 'True', 0, NULL), (4, 'False', 5, 'Civile'), (8, NULL, 7, NULL);
INSERT INTO Fatture (ID_Fattura, ResiduoASaldo) VALUES (3, 1234567), (4, NULL);
INSERT INTO ParcellaBase (IdParcella, CodiceParcella, NomeParcella, IsPenale) VALUES
  (1, 'B', 'Penale base', 'True'), (2, 'A', 'Civile base', 'False'), (3, 'C', 'Appello penale', 'TRUE');
INSERT INTO VociParcellaBase (IdParcellaBase, NOrdine, IdTariffa, TabellaTariffa, Tipo, Codice, Nome, Competenze,
                              Esenti, Imponibili, Qta, Valuta, Cambio) VALUES
  (2, 2, 3, 'Onorari2004Euro', 1, '3', 'Studio', 0, 0, 0, 1, 'EURO', 10000),
  (2, 1, 0, NULL, 0, '99', 'Accesso', 155000, 20000, 0, 3, 'EURO', 10000),
  (1, 1, 0, NULL, 1, '7', 'Colloquio', 500000, 0, 0, 1, 'EURO', 10000);
INSERT INTO Diritti2004Euro (Id, CodiceTariffa, Azione, VALORESCA1, VALORESCA2, VALOREINDETMIN, VALOREINDETMAX) VALUES
  (14, '14', 'Udienza', 50000, 100000, 120000, 320000), (3, '3', 'Atto', 0, 0, 0, 0), (391, '391', 'Fissa', 0, 0, 0, 0);
INSERT INTO Onorari2004Euro (Id, CodiceTariffa, Azione, SCA01MIN, SCA01MAX, SCA10MIN, SCA10MAX) VALUES
  (3, '3', 'Studio della controversia', 550000, 1450000, 100000000, 250000000);
INSERT INTO OnorariPenali2004Euro (Id, CodiceTariffa, Azione, TribunaleMIN, TribunaleMAX, GiuPaceMIN, GiuPaceMAX) VALUES
  (1, '1.1', 'Informativa', 80000, 120000, 60000, 100000);
INSERT INTO OnorariStrag2004Euro (Id, CodiceTariffa, Azione) VALUES (1, '1.A', 'Consultazioni orali');
)sql");
    }

    TestDatabase db;
};

} // namespace avlor::test
