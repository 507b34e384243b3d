-- Practice database, schema version 1 (SQLite).
--
-- How values are stored, so that the statements of the application run as
-- they are written and amounts stay exact:
--   CURRENCY  amounts, as INTEGER counts of ten-thousandths of the unit
--             (12.5 euro is stored 125000). The record-access layer converts
--             both ways by the declared type; SQL written by hand (fixtures,
--             tools) must use ten-thousandths. A CHECK refuses any other
--             storage, so a decimal or a double never slips in.
--   BOOLEAN   yes/no, as the texts 'True' / 'False' with COLLATE NOCASE, so
--             that = 'TRUE', = 'True' and = 'true' select the same rows; the
--             SQLite dialect turns a bare true / false into 'True' / 'False'.
--   DATE      calendar dates, as ISO text 'YYYY-MM-DD'; the dialect turns
--             CONVERT (SMALLDATETIME,'dd/mm/yyyy', 105) into such a literal.
--   DOUBLE    plain numbers that may hold fractions (hours of work).
--   INTEGER   whole numbers and keys; TEXT for text.
-- Keys are INTEGER PRIMARY KEY (the row id); tables whose rows have no id
-- of their own (memberships, template items, sources) are written back by
-- the implicit row id. There are no foreign-key
-- constraints: an action may name a performer that is not, or no longer, a
-- user (such actions drop out of the joined lists) and templates record the
-- fixed performer 1.
-- The PostgreSQL schema mirrors this one with NUMERIC(19,4), BOOLEAN and
-- DATE columns.

-- Version of the schema; one row.
CREATE TABLE Versioni (
    Versione INTEGER NOT NULL
);

-- General configuration; one row, made with the database.
CREATE TABLE ConfigGenerale (
    IdConfig INTEGER PRIMARY KEY CHECK (IdConfig = 1),
    ValutaDefault TEXT,
    CambioLiraEuro CURRENCY DEFAULT 0 CHECK (typeof(CambioLiraEuro) IN ('integer', 'null'))
);

-- Users, their confidentiality level and their hourly rates.
CREATE TABLE Utenti (
    ID_Utente INTEGER PRIMARY KEY,
    NomeUtente TEXT,
    LivelloRiservatezza INTEGER DEFAULT 1,
    TitContabilita BOOLEAN COLLATE NOCASE DEFAULT 'False' CHECK (TitContabilita IN ('True', 'False')),
    TariffaEuro CURRENCY DEFAULT 0 CHECK (typeof(TariffaEuro) IN ('integer', 'null')),
    TariffaLira CURRENCY DEFAULT 0 CHECK (typeof(TariffaLira) IN ('integer', 'null'))
);

-- Group membership: a user may be listed in a group more than once.
CREATE TABLE RelGruppiUtenti (
    Fk_Id_Utente INTEGER NOT NULL,
    Fk_Gruppo TEXT NOT NULL
);
CREATE INDEX RelGruppiUtenti_Utente ON RelGruppiUtenti (Fk_Id_Utente, Fk_Gruppo);
CREATE INDEX RelGruppiUtenti_Gruppo ON RelGruppiUtenti (Fk_Gruppo, Fk_Id_Utente);

-- Case files. Id_Riservata and fk_Gruppo are the confidentiality owner that
-- the host's filters test.
CREATE TABLE Pratica (
    ID_Pra INTEGER PRIMARY KEY,
    Valore CURRENCY CHECK (typeof(Valore) IN ('integer', 'null')),
    Valuta TEXT,
    Cambio CURRENCY DEFAULT 0 CHECK (typeof(Cambio) IN ('integer', 'null')),
    Rilevanza INTEGER DEFAULT 0,
    Autorita TEXT,
    Id_Riservata INTEGER DEFAULT 0,
    fk_Gruppo TEXT
);

-- Parties of a case file: clients and opposing parties.
CREATE TABLE MultiIntesta (
    ID_Multi INTEGER PRIMARY KEY,
    ID_Pra INTEGER NOT NULL,
    IsCliente BOOLEAN COLLATE NOCASE DEFAULT 'False' CHECK (IsCliente IN ('True', 'False'))
);
CREATE INDEX MultiIntesta_Pratica ON MultiIntesta (ID_Pra, IsCliente);

-- Persons. IdRiservata and fkGruppo are the confidentiality owner that the
-- host's filters test.
CREATE TABLE Anagrafica (
    ID_Ana INTEGER PRIMARY KEY,
    IsFisicaGiuridica BOOLEAN COLLATE NOCASE DEFAULT 'False' CHECK (IsFisicaGiuridica IN ('True', 'False')),
    IdRiservata INTEGER DEFAULT 0,
    fkGruppo TEXT
);

-- Invoices and what is left to pay on each.
CREATE TABLE Fatture (
    ID_Fattura INTEGER PRIMARY KEY,
    ResiduoASaldo CURRENCY CHECK (typeof(ResiduoASaldo) IN ('integer', 'null'))
);

-- Billable actions of case files. Tariff and hourly actions form two order
-- sequences per case file (IdPra, IsTariffa, NOrdine). Ids are never reused.
CREATE TABLE Azioni (
    IdAzione INTEGER PRIMARY KEY AUTOINCREMENT,
    IdPra INTEGER NOT NULL,
    NOrdine INTEGER DEFAULT 0 CHECK (NOrdine BETWEEN -32768 AND 32767),
    Data DATE CHECK (Data IS NULL OR (typeof(Data) = 'text' AND Data GLOB '[0-9][0-9][0-9][0-9]-[0-1][0-9]-[0-3][0-9]')),
    TipoAzione INTEGER DEFAULT 0,
    IsTariffa BOOLEAN COLLATE NOCASE DEFAULT 'False' CHECK (IsTariffa IN ('True', 'False')),
    Codice TEXT,
    Descr TEXT,
    Quantita TEXT,
    Valuta TEXT,
    Cambio CURRENCY DEFAULT 0 CHECK (typeof(Cambio) IN ('integer', 'null')),
    Onorari CURRENCY DEFAULT 0 CHECK (typeof(Onorari) IN ('integer', 'null')),
    Diritti CURRENCY DEFAULT 0 CHECK (typeof(Diritti) IN ('integer', 'null')),
    Esenti CURRENCY DEFAULT 0 CHECK (typeof(Esenti) IN ('integer', 'null')),
    Imponibili CURRENCY DEFAULT 0 CHECK (typeof(Imponibili) IN ('integer', 'null')),
    Ore DOUBLE DEFAULT 0,
    Minuti INTEGER DEFAULT 0,
    InNotaSpese INTEGER DEFAULT 0,
    TabellaTariffa TEXT,
    IdVoceParcella INTEGER DEFAULT 0,
    IdEseguitoDa INTEGER DEFAULT 0,
    bFattura BOOLEAN COLLATE NOCASE DEFAULT 'False' CHECK (bFattura IN ('True', 'False')),
    IdFattura INTEGER DEFAULT 0
);
CREATE INDEX Azioni_Ordine ON Azioni (IdPra, IsTariffa, NOrdine);
CREATE INDEX Azioni_Data ON Azioni (IdPra, IsTariffa, Data, NOrdine);

-- Fee templates and their items.
CREATE TABLE ParcellaBase (
    IdParcella INTEGER PRIMARY KEY,
    CodiceParcella TEXT,
    NomeParcella TEXT,
    IsPenale BOOLEAN COLLATE NOCASE DEFAULT 'False' CHECK (IsPenale IN ('True', 'False'))
);

CREATE TABLE VociParcellaBase (
    IdParcellaBase INTEGER NOT NULL,
    NOrdine INTEGER DEFAULT 0,
    IdTariffa INTEGER DEFAULT 0,
    TabellaTariffa TEXT,
    Tipo INTEGER DEFAULT 0,
    Codice TEXT,
    Nome TEXT,
    Competenze CURRENCY DEFAULT 0 CHECK (typeof(Competenze) IN ('integer', 'null')),
    Esenti CURRENCY DEFAULT 0 CHECK (typeof(Esenti) IN ('integer', 'null')),
    Imponibili CURRENCY DEFAULT 0 CHECK (typeof(Imponibili) IN ('integer', 'null')),
    Qta INTEGER DEFAULT 1,
    Valuta TEXT,
    Cambio CURRENCY DEFAULT 0 CHECK (typeof(Cambio) IN ('integer', 'null'))
);
CREATE INDEX VociParcellaBase_Parcella ON VociParcellaBase (IdParcellaBase, NOrdine);

-- Official fee tables, read only by the application. Id is the official item
-- id, given by whoever loads the table (never generated). An amount the
-- official table does not give stays 0, the default, so that the engine
-- proposes nothing for it instead of a guessed figure.
-- Rights: one amount per value bracket, and the band of an indeterminate value.

CREATE TABLE Diritti94 (
    Id INTEGER PRIMARY KEY,
    CodiceTariffa TEXT NOT NULL,
    Azione TEXT,
    Autorita TEXT,
    VALORESCA1 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA1) IN ('integer', 'null')),
    VALORESCA2 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA2) IN ('integer', 'null')),
    VALORESCA3 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA3) IN ('integer', 'null')),
    VALORESCA4 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA4) IN ('integer', 'null')),
    VALORESCA5 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA5) IN ('integer', 'null')),
    VALORESCA6 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA6) IN ('integer', 'null')),
    VALORESCA7 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA7) IN ('integer', 'null')),
    VALORESCA8 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA8) IN ('integer', 'null')),
    VALORESCA9 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA9) IN ('integer', 'null')),
    VALORESCA10 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA10) IN ('integer', 'null')),
    VALORESCA11 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA11) IN ('integer', 'null')),
    VALORESCA12 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA12) IN ('integer', 'null')),
    VALORESCA13 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA13) IN ('integer', 'null')),
    VALOREINDETMIN CURRENCY DEFAULT 0 CHECK (typeof(VALOREINDETMIN) IN ('integer', 'null')),
    VALOREINDETMAX CURRENCY DEFAULT 0 CHECK (typeof(VALOREINDETMAX) IN ('integer', 'null'))
);

CREATE TABLE Diritti94Euro (
    Id INTEGER PRIMARY KEY,
    CodiceTariffa TEXT NOT NULL,
    Azione TEXT,
    Autorita TEXT,
    VALORESCA1 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA1) IN ('integer', 'null')),
    VALORESCA2 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA2) IN ('integer', 'null')),
    VALORESCA3 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA3) IN ('integer', 'null')),
    VALORESCA4 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA4) IN ('integer', 'null')),
    VALORESCA5 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA5) IN ('integer', 'null')),
    VALORESCA6 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA6) IN ('integer', 'null')),
    VALORESCA7 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA7) IN ('integer', 'null')),
    VALORESCA8 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA8) IN ('integer', 'null')),
    VALORESCA9 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA9) IN ('integer', 'null')),
    VALORESCA10 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA10) IN ('integer', 'null')),
    VALORESCA11 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA11) IN ('integer', 'null')),
    VALORESCA12 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA12) IN ('integer', 'null')),
    VALORESCA13 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA13) IN ('integer', 'null')),
    VALOREINDETMIN CURRENCY DEFAULT 0 CHECK (typeof(VALOREINDETMIN) IN ('integer', 'null')),
    VALOREINDETMAX CURRENCY DEFAULT 0 CHECK (typeof(VALOREINDETMAX) IN ('integer', 'null'))
);

CREATE TABLE Diritti2004Euro (
    Id INTEGER PRIMARY KEY,
    CodiceTariffa TEXT NOT NULL,
    Azione TEXT,
    Autorita TEXT,
    VALORESCA1 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA1) IN ('integer', 'null')),
    VALORESCA2 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA2) IN ('integer', 'null')),
    VALORESCA3 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA3) IN ('integer', 'null')),
    VALORESCA4 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA4) IN ('integer', 'null')),
    VALORESCA5 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA5) IN ('integer', 'null')),
    VALORESCA6 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA6) IN ('integer', 'null')),
    VALORESCA7 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA7) IN ('integer', 'null')),
    VALORESCA8 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA8) IN ('integer', 'null')),
    VALORESCA9 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA9) IN ('integer', 'null')),
    VALORESCA10 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA10) IN ('integer', 'null')),
    VALORESCA11 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA11) IN ('integer', 'null')),
    VALORESCA12 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA12) IN ('integer', 'null')),
    VALORESCA13 CURRENCY DEFAULT 0 CHECK (typeof(VALORESCA13) IN ('integer', 'null')),
    VALOREINDETMIN CURRENCY DEFAULT 0 CHECK (typeof(VALOREINDETMIN) IN ('integer', 'null')),
    VALOREINDETMAX CURRENCY DEFAULT 0 CHECK (typeof(VALOREINDETMAX) IN ('integer', 'null'))
);


-- Civil fees: a band per value bracket (sub-brackets SCA01-SCA03, brackets
-- SCA1-SCA11), the extraordinary band and the band of an indeterminate value.

CREATE TABLE Onorari94 (
    Id INTEGER PRIMARY KEY,
    CodiceTariffa TEXT NOT NULL,
    Azione TEXT,
    Autorita TEXT,
    SCA01MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA01MIN) IN ('integer', 'null')),
    SCA01MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA01MAX) IN ('integer', 'null')),
    SCA02MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA02MIN) IN ('integer', 'null')),
    SCA02MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA02MAX) IN ('integer', 'null')),
    SCA03MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA03MIN) IN ('integer', 'null')),
    SCA03MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA03MAX) IN ('integer', 'null')),
    SCA1MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA1MIN) IN ('integer', 'null')),
    SCA1MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA1MAX) IN ('integer', 'null')),
    SCA2MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA2MIN) IN ('integer', 'null')),
    SCA2MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA2MAX) IN ('integer', 'null')),
    SCA3MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA3MIN) IN ('integer', 'null')),
    SCA3MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA3MAX) IN ('integer', 'null')),
    SCA4MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA4MIN) IN ('integer', 'null')),
    SCA4MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA4MAX) IN ('integer', 'null')),
    SCA5MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA5MIN) IN ('integer', 'null')),
    SCA5MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA5MAX) IN ('integer', 'null')),
    SCA6MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA6MIN) IN ('integer', 'null')),
    SCA6MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA6MAX) IN ('integer', 'null')),
    SCA7MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA7MIN) IN ('integer', 'null')),
    SCA7MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA7MAX) IN ('integer', 'null')),
    SCA8MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA8MIN) IN ('integer', 'null')),
    SCA8MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA8MAX) IN ('integer', 'null')),
    SCA9MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA9MIN) IN ('integer', 'null')),
    SCA9MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA9MAX) IN ('integer', 'null')),
    SCA10MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA10MIN) IN ('integer', 'null')),
    SCA10MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA10MAX) IN ('integer', 'null')),
    SCA11MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA11MIN) IN ('integer', 'null')),
    SCA11MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA11MAX) IN ('integer', 'null')),
    MINSTRAORDIMP CURRENCY DEFAULT 0 CHECK (typeof(MINSTRAORDIMP) IN ('integer', 'null')),
    MAXSTRAORDIMP CURRENCY DEFAULT 0 CHECK (typeof(MAXSTRAORDIMP) IN ('integer', 'null')),
    MININDET CURRENCY DEFAULT 0 CHECK (typeof(MININDET) IN ('integer', 'null')),
    MAXINDET CURRENCY DEFAULT 0 CHECK (typeof(MAXINDET) IN ('integer', 'null'))
);

CREATE TABLE Onorari94Euro (
    Id INTEGER PRIMARY KEY,
    CodiceTariffa TEXT NOT NULL,
    Azione TEXT,
    Autorita TEXT,
    SCA01MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA01MIN) IN ('integer', 'null')),
    SCA01MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA01MAX) IN ('integer', 'null')),
    SCA02MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA02MIN) IN ('integer', 'null')),
    SCA02MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA02MAX) IN ('integer', 'null')),
    SCA03MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA03MIN) IN ('integer', 'null')),
    SCA03MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA03MAX) IN ('integer', 'null')),
    SCA1MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA1MIN) IN ('integer', 'null')),
    SCA1MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA1MAX) IN ('integer', 'null')),
    SCA2MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA2MIN) IN ('integer', 'null')),
    SCA2MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA2MAX) IN ('integer', 'null')),
    SCA3MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA3MIN) IN ('integer', 'null')),
    SCA3MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA3MAX) IN ('integer', 'null')),
    SCA4MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA4MIN) IN ('integer', 'null')),
    SCA4MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA4MAX) IN ('integer', 'null')),
    SCA5MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA5MIN) IN ('integer', 'null')),
    SCA5MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA5MAX) IN ('integer', 'null')),
    SCA6MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA6MIN) IN ('integer', 'null')),
    SCA6MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA6MAX) IN ('integer', 'null')),
    SCA7MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA7MIN) IN ('integer', 'null')),
    SCA7MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA7MAX) IN ('integer', 'null')),
    SCA8MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA8MIN) IN ('integer', 'null')),
    SCA8MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA8MAX) IN ('integer', 'null')),
    SCA9MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA9MIN) IN ('integer', 'null')),
    SCA9MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA9MAX) IN ('integer', 'null')),
    SCA10MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA10MIN) IN ('integer', 'null')),
    SCA10MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA10MAX) IN ('integer', 'null')),
    SCA11MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA11MIN) IN ('integer', 'null')),
    SCA11MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA11MAX) IN ('integer', 'null')),
    MINSTRAORDIMP CURRENCY DEFAULT 0 CHECK (typeof(MINSTRAORDIMP) IN ('integer', 'null')),
    MAXSTRAORDIMP CURRENCY DEFAULT 0 CHECK (typeof(MAXSTRAORDIMP) IN ('integer', 'null')),
    MININDET CURRENCY DEFAULT 0 CHECK (typeof(MININDET) IN ('integer', 'null')),
    MAXINDET CURRENCY DEFAULT 0 CHECK (typeof(MAXINDET) IN ('integer', 'null'))
);

CREATE TABLE Onorari2004Euro (
    Id INTEGER PRIMARY KEY,
    CodiceTariffa TEXT NOT NULL,
    Azione TEXT,
    Autorita TEXT,
    SCA01MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA01MIN) IN ('integer', 'null')),
    SCA01MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA01MAX) IN ('integer', 'null')),
    SCA02MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA02MIN) IN ('integer', 'null')),
    SCA02MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA02MAX) IN ('integer', 'null')),
    SCA03MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA03MIN) IN ('integer', 'null')),
    SCA03MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA03MAX) IN ('integer', 'null')),
    SCA1MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA1MIN) IN ('integer', 'null')),
    SCA1MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA1MAX) IN ('integer', 'null')),
    SCA2MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA2MIN) IN ('integer', 'null')),
    SCA2MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA2MAX) IN ('integer', 'null')),
    SCA3MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA3MIN) IN ('integer', 'null')),
    SCA3MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA3MAX) IN ('integer', 'null')),
    SCA4MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA4MIN) IN ('integer', 'null')),
    SCA4MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA4MAX) IN ('integer', 'null')),
    SCA5MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA5MIN) IN ('integer', 'null')),
    SCA5MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA5MAX) IN ('integer', 'null')),
    SCA6MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA6MIN) IN ('integer', 'null')),
    SCA6MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA6MAX) IN ('integer', 'null')),
    SCA7MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA7MIN) IN ('integer', 'null')),
    SCA7MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA7MAX) IN ('integer', 'null')),
    SCA8MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA8MIN) IN ('integer', 'null')),
    SCA8MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA8MAX) IN ('integer', 'null')),
    SCA9MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA9MIN) IN ('integer', 'null')),
    SCA9MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA9MAX) IN ('integer', 'null')),
    SCA10MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA10MIN) IN ('integer', 'null')),
    SCA10MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA10MAX) IN ('integer', 'null')),
    SCA11MIN CURRENCY DEFAULT 0 CHECK (typeof(SCA11MIN) IN ('integer', 'null')),
    SCA11MAX CURRENCY DEFAULT 0 CHECK (typeof(SCA11MAX) IN ('integer', 'null')),
    MINSTRAORDIMP CURRENCY DEFAULT 0 CHECK (typeof(MINSTRAORDIMP) IN ('integer', 'null')),
    MAXSTRAORDIMP CURRENCY DEFAULT 0 CHECK (typeof(MAXSTRAORDIMP) IN ('integer', 'null')),
    MININDET CURRENCY DEFAULT 0 CHECK (typeof(MININDET) IN ('integer', 'null')),
    MAXINDET CURRENCY DEFAULT 0 CHECK (typeof(MAXINDET) IN ('integer', 'null'))
);


-- Criminal fees: a band per authority.

CREATE TABLE OnorariPenali94 (
    Id INTEGER PRIMARY KEY,
    CodiceTariffa TEXT NOT NULL,
    Azione TEXT,
    Autorita TEXT,
    PreturaMIN CURRENCY DEFAULT 0 CHECK (typeof(PreturaMIN) IN ('integer', 'null')),
    PreturaMAX CURRENCY DEFAULT 0 CHECK (typeof(PreturaMAX) IN ('integer', 'null')),
    TribunaleMIN CURRENCY DEFAULT 0 CHECK (typeof(TribunaleMIN) IN ('integer', 'null')),
    TribunaleMAX CURRENCY DEFAULT 0 CHECK (typeof(TribunaleMAX) IN ('integer', 'null')),
    GiuPaceMIN CURRENCY DEFAULT 0 CHECK (typeof(GiuPaceMIN) IN ('integer', 'null')),
    GiuPaceMAX CURRENCY DEFAULT 0 CHECK (typeof(GiuPaceMAX) IN ('integer', 'null')),
    GipMIN CURRENCY DEFAULT 0 CHECK (typeof(GipMIN) IN ('integer', 'null')),
    GipMAX CURRENCY DEFAULT 0 CHECK (typeof(GipMAX) IN ('integer', 'null')),
    AssiseAppMIN CURRENCY DEFAULT 0 CHECK (typeof(AssiseAppMIN) IN ('integer', 'null')),
    AssiseAppMAX CURRENCY DEFAULT 0 CHECK (typeof(AssiseAppMAX) IN ('integer', 'null')),
    AppelloMIN CURRENCY DEFAULT 0 CHECK (typeof(AppelloMIN) IN ('integer', 'null')),
    AppelloMAX CURRENCY DEFAULT 0 CHECK (typeof(AppelloMAX) IN ('integer', 'null')),
    CostCassMIN CURRENCY DEFAULT 0 CHECK (typeof(CostCassMIN) IN ('integer', 'null')),
    CostCassMAX CURRENCY DEFAULT 0 CHECK (typeof(CostCassMAX) IN ('integer', 'null'))
);

CREATE TABLE OnorariPenali94Euro (
    Id INTEGER PRIMARY KEY,
    CodiceTariffa TEXT NOT NULL,
    Azione TEXT,
    Autorita TEXT,
    PreturaMIN CURRENCY DEFAULT 0 CHECK (typeof(PreturaMIN) IN ('integer', 'null')),
    PreturaMAX CURRENCY DEFAULT 0 CHECK (typeof(PreturaMAX) IN ('integer', 'null')),
    TribunaleMIN CURRENCY DEFAULT 0 CHECK (typeof(TribunaleMIN) IN ('integer', 'null')),
    TribunaleMAX CURRENCY DEFAULT 0 CHECK (typeof(TribunaleMAX) IN ('integer', 'null')),
    GiuPaceMIN CURRENCY DEFAULT 0 CHECK (typeof(GiuPaceMIN) IN ('integer', 'null')),
    GiuPaceMAX CURRENCY DEFAULT 0 CHECK (typeof(GiuPaceMAX) IN ('integer', 'null')),
    GipMIN CURRENCY DEFAULT 0 CHECK (typeof(GipMIN) IN ('integer', 'null')),
    GipMAX CURRENCY DEFAULT 0 CHECK (typeof(GipMAX) IN ('integer', 'null')),
    AssiseAppMIN CURRENCY DEFAULT 0 CHECK (typeof(AssiseAppMIN) IN ('integer', 'null')),
    AssiseAppMAX CURRENCY DEFAULT 0 CHECK (typeof(AssiseAppMAX) IN ('integer', 'null')),
    AppelloMIN CURRENCY DEFAULT 0 CHECK (typeof(AppelloMIN) IN ('integer', 'null')),
    AppelloMAX CURRENCY DEFAULT 0 CHECK (typeof(AppelloMAX) IN ('integer', 'null')),
    CostCassMIN CURRENCY DEFAULT 0 CHECK (typeof(CostCassMIN) IN ('integer', 'null')),
    CostCassMAX CURRENCY DEFAULT 0 CHECK (typeof(CostCassMAX) IN ('integer', 'null'))
);

CREATE TABLE OnorariPenali2004Euro (
    Id INTEGER PRIMARY KEY,
    CodiceTariffa TEXT NOT NULL,
    Azione TEXT,
    Autorita TEXT,
    PreturaMIN CURRENCY DEFAULT 0 CHECK (typeof(PreturaMIN) IN ('integer', 'null')),
    PreturaMAX CURRENCY DEFAULT 0 CHECK (typeof(PreturaMAX) IN ('integer', 'null')),
    TribunaleMIN CURRENCY DEFAULT 0 CHECK (typeof(TribunaleMIN) IN ('integer', 'null')),
    TribunaleMAX CURRENCY DEFAULT 0 CHECK (typeof(TribunaleMAX) IN ('integer', 'null')),
    GiuPaceMIN CURRENCY DEFAULT 0 CHECK (typeof(GiuPaceMIN) IN ('integer', 'null')),
    GiuPaceMAX CURRENCY DEFAULT 0 CHECK (typeof(GiuPaceMAX) IN ('integer', 'null')),
    GipMIN CURRENCY DEFAULT 0 CHECK (typeof(GipMIN) IN ('integer', 'null')),
    GipMAX CURRENCY DEFAULT 0 CHECK (typeof(GipMAX) IN ('integer', 'null')),
    AssiseAppMIN CURRENCY DEFAULT 0 CHECK (typeof(AssiseAppMIN) IN ('integer', 'null')),
    AssiseAppMAX CURRENCY DEFAULT 0 CHECK (typeof(AssiseAppMAX) IN ('integer', 'null')),
    AppelloMIN CURRENCY DEFAULT 0 CHECK (typeof(AppelloMIN) IN ('integer', 'null')),
    AppelloMAX CURRENCY DEFAULT 0 CHECK (typeof(AppelloMAX) IN ('integer', 'null')),
    CostCassMIN CURRENCY DEFAULT 0 CHECK (typeof(CostCassMIN) IN ('integer', 'null')),
    CostCassMAX CURRENCY DEFAULT 0 CHECK (typeof(CostCassMAX) IN ('integer', 'null'))
);


-- Out-of-court fees: priced by formula from the case value; the rows name
-- the items for the lists.

CREATE TABLE OnorariStrag94 (
    Id INTEGER PRIMARY KEY,
    CodiceTariffa TEXT NOT NULL,
    Azione TEXT,
    Autorita TEXT
);

CREATE TABLE OnorariStrag94Euro (
    Id INTEGER PRIMARY KEY,
    CodiceTariffa TEXT NOT NULL,
    Azione TEXT,
    Autorita TEXT
);

CREATE TABLE OnorariStrag2004Euro (
    Id INTEGER PRIMARY KEY,
    CodiceTariffa TEXT NOT NULL,
    Azione TEXT,
    Autorita TEXT
);

-- Where the loaded figures come from: one row per table (Id NULL) or per item.
CREATE TABLE FonteTariffe (
    Tabella TEXT,
    Id INTEGER,
    Fonte TEXT,
    Note TEXT
);
CREATE INDEX FonteTariffe_Voce ON FonteTariffe (Tabella, Id);

INSERT INTO ConfigGenerale (IdConfig, ValutaDefault, CambioLiraEuro) VALUES (1, 'EURO', 19362700);
INSERT INTO Versioni (Versione) VALUES (1);
