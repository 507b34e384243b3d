-- The lawyers' fee parameters (D.M. 55/2014 as amended in 2018 and 2022),
-- which price work done since 3 April 2014 beside the fee tables of 1994 and
-- 2004. Loaded by "avlor db init" with the figures that ship with the
-- program; "avlor parametri importa" adds corrected or missing figures. The
-- version row of the database stays as the first script leaves it: these
-- tables are an addition that nothing older reads.

-- One row per table of each version of the decree, with the provenance of
-- its figures.
CREATE TABLE ParametriTabelle (
    Versione TEXT NOT NULL,
    Tabella TEXT NOT NULL,
    Titolo TEXT,
    Fonte TEXT,
    Affidabilita TEXT,
    Verificata BOOLEAN COLLATE NOCASE DEFAULT 'True' CHECK (Verificata IN ('True', 'False')),
    Nota TEXT,
    PRIMARY KEY (Versione, Tabella)
);

-- One row per figure: the average amount of a phase in a value bracket (no
-- bracket in the criminal table), with its own source and confidence.
-- Ordine keeps the figures of a table in the order of their source.
CREATE TABLE ParametriCifre (
    Versione TEXT NOT NULL,
    Tabella TEXT NOT NULL,
    Ordine INTEGER NOT NULL,
    ScaglioneDa CURRENCY CHECK (typeof(ScaglioneDa) IN ('integer', 'null')),
    ScaglioneA CURRENCY CHECK (typeof(ScaglioneA) IN ('integer', 'null')),
    Fase TEXT NOT NULL,
    ValoreMedio CURRENCY NOT NULL CHECK (typeof(ValoreMedio) = 'integer'),
    Fonte TEXT,
    Affidabilita TEXT
);
CREATE INDEX ParametriCifre_Tabella ON ParametriCifre (Versione, Tabella);
