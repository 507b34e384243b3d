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
    void SetUp() override
    {
        // Amounts go through amount(), which writes them as the backend
        // stores them.
        const auto a = [](const char* decimal) { return TestDatabase::amount(decimal); };
        db.exec(R"sql(
INSERT INTO Utenti (ID_Utente, NomeUtente, LivelloRiservatezza, TitContabilita, TariffaEuro, TariffaLira) VALUES
  (1, 'Admin', 3, 'True', )sql" +
                a("100") + R"sql(, 0),
  (2, 'Tutti', 3, 'False', 0, 0),
  (5, 'Rossi', 2, 'true', )sql" +
                a("150") + ", " + a("50000") + R"sql(),
  (9, 'Bianchi', 1, 'FALSE', 0, )sql" +
                a("40000") + R"sql(),
  (11, 'True', 1, NULL, NULL, NULL);
INSERT INTO RelGruppiUtenti (Fk_Id_Utente, Fk_Gruppo) VALUES
  (5, 'Civile'), (9, 'Civile'), (5, 'Tutti'), (5, 'Civile'), (9, 'D''Amico'), (11, 'True'), (1, 'TRUE');
INSERT INTO Pratica (ID_Pra, Valore, Valuta, Cambio, Rilevanza, Autorita) VALUES
  (5, )sql" + a("25823") +
                ", ' EURO ', " + a("1") + R"sql(, 50, 'Tribunale'),
  (6, NULL, 'LIRA', )sql" +
                a("1936.27") + R"sql(, 0, NULL);
-- Tariff actions 1, 2, 3, 5 and hourly actions 1, 2 of case 5; one action of case 6.
INSERT INTO Azioni (IdAzione, IdPra, NOrdine, Data, TipoAzione, IsTariffa, Codice, Descr, Quantita, Valuta, Cambio,
                    Onorari, Diritti, Esenti, Imponibili, Ore, Minuti, InNotaSpese, TabellaTariffa, IdVoceParcella,
                    IdEseguitoDa, bFattura, IdFattura) VALUES
  (1, 5, 1, '2004-06-01', 0, 'True', '12', 'Esame', '1', 'EURO', )sql" +
                a("1") + ", 0, " + a("12345") + R"sql(, 0, 0, 0, 0, -1,
   'Diritti94Euro', 12, 5, 'False', 0),
  (2, 5, 2, '2004-06-02', 1, 'True', '3', 'Studio', '2', 'EURO', )sql" +
                a("1") + ", " + a("250") + ", 0, " + a("15") + R"sql(, 0, 0, 0, 0,
   'Onorari2004Euro', 3, 5, 'True', 7),
  (3, 5, 3, '2004-06-02', 0, 'True', '14', 'Udienza', NULL, 'EURO', )sql" +
                a("1") + ", 0, " + a("5") + R"sql(, 0, 0, 0, 0, 0,
   'Diritti2004Euro', 14, 9, 'False', 0),
  (4, 5, 5, '2004-06-03', 0, 'True', '15', 'Deposito', '1', 'LIRA', )sql" +
                a("1936.27") + ", 0, " + a("12345.6") + R"sql(, 0, 0, 0, 0, 0,
   'Diritti94', 15, 99, 'False', 0),
  (5, 5, 1, '2004-06-01', 0, 'False', NULL, 'Ricerca', NULL, 'EURO', )sql" +
                a("1") + ", " + a("100") + R"sql(, 0, 0, 0, 2, 30, 0,
   NULL, 0, 5, 'False', 0),
  (6, 5, 2, '2004-06-05', 0, 'False', NULL, 'Telefonata', NULL, 'EURO', )sql" +
                a("1") + R"sql(, 0, 0, 0, 0, 0, 45, 0,
   NULL, 0, 9, 'False', 0),
  (7, 6, 1, '2004-06-01', 0, 'True', '1', 'Altra pratica', '1', 'LIRA', )sql" +
                a("1936.27") + R"sql(, 0, 0, 0, 0, 0, 0, 0,
   'Diritti94', 1, 5, 'False', 0);
INSERT INTO MultiIntesta (ID_Multi, ID_Pra, IsCliente) VALUES
  (1, 5, 'True'), (2, 5, 'TRUE'), (3, 5, 'False'), (4, 6, 'false');
INSERT INTO Anagrafica (ID_Ana, IsFisicaGiuridica, IdRiservata, fkGruppo) VALUES
  (3, 'True', 0, NULL), (4, 'False', 5, 'Civile'), (8, NULL, 7, NULL);
INSERT INTO Fatture (ID_Fattura, ResiduoASaldo) VALUES (3, )sql" +
                a("123.4567") + R"sql(), (4, NULL);
INSERT INTO ParcellaBase (IdParcella, CodiceParcella, NomeParcella, IsPenale) VALUES
  (1, 'B', 'Penale base', 'True'), (2, 'A', 'Civile base', 'False'), (3, 'C', 'Appello penale', 'TRUE');
INSERT INTO VociParcellaBase (IdParcellaBase, NOrdine, IdTariffa, TabellaTariffa, Tipo, Codice, Nome, Competenze,
                              Esenti, Imponibili, Qta, Valuta, Cambio) VALUES
  (2, 2, 3, 'Onorari2004Euro', 1, '3', 'Studio', 0, 0, 0, 1, 'EURO', )sql" +
                a("1") + R"sql(),
  (2, 1, 0, NULL, 0, '99', 'Accesso', )sql" +
                a("15.5") + ", " + a("2") + R"sql(, 0, 3, 'EURO', )sql" + a("1") + R"sql(),
  (1, 1, 0, NULL, 1, '7', 'Colloquio', )sql" +
                a("50") + R"sql(, 0, 0, 1, 'EURO', )sql" + a("1") + R"sql();
INSERT INTO Diritti2004Euro (Id, CodiceTariffa, Azione, VALORESCA1, VALORESCA2, VALOREINDETMIN, VALOREINDETMAX) VALUES
  (14, '14', 'Udienza', )sql" +
                a("5") + ", " + a("10") + ", " + a("12") + ", " + a("32") +
                R"sql(), (3, '3', 'Atto', 0, 0, 0, 0), (391, '391', 'Fissa', 0, 0, 0, 0);
INSERT INTO Onorari2004Euro (Id, CodiceTariffa, Azione, SCA01MIN, SCA01MAX, SCA10MIN, SCA10MAX) VALUES
  (3, '3', 'Studio della controversia', )sql" +
                a("55") + ", " + a("145") + ", " + a("10000") + ", " + a("25000") + R"sql();
INSERT INTO OnorariPenali2004Euro (Id, CodiceTariffa, Azione, TribunaleMIN, TribunaleMAX, GiuPaceMIN, GiuPaceMAX) VALUES
  (1, '1.1', 'Informativa', )sql" +
                a("8") + ", " + a("12") + ", " + a("6") + ", " + a("10") + R"sql();
INSERT INTO OnorariStrag2004Euro (Id, CodiceTariffa, Azione) VALUES (1, '1.A', 'Consultazioni orali');
)sql");
    }

    TestDatabase db;
};

} // namespace avlor::test
