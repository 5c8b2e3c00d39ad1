-- Looks at the database "kvtk" and gives a row per finding: how many, what, an example, what to do, and the statement that does it
-- where nothing is lost by it. The database "kvtk_doctor" has been made by the steps and is what "kvtk" should look like.

SET NAMES utf8mb4;
SET SESSION sql_mode = 'NO_ENGINE_SUBSTITUTION', group_concat_max_len = 4000;
USE kvtk_doctor;

CREATE TABLE finding (NO INT AUTO_INCREMENT PRIMARY KEY, N BIGINT, WHAT VARCHAR(300), EXAMPLE VARCHAR(300), ADVICE VARCHAR(300), REPAIR TEXT)
  CHARSET=utf8mb4;

-- The tables themselves

CREATE TABLE found_tables SELECT TABLE_SCHEMA AS S, TABLE_NAME AS T, ENGINE, TABLE_COLLATION FROM information_schema.TABLES
  WHERE TABLE_SCHEMA IN ('kvtk', 'kvtk_doctor') AND TABLE_NAME <> 'finding' AND TABLE_NAME NOT LIKE 'found\_%';
CREATE TABLE found_columns SELECT TABLE_SCHEMA AS S, TABLE_NAME AS T, COLUMN_NAME AS C, COLUMN_TYPE, IS_NULLABLE, COLUMN_DEFAULT, COLLATION_NAME, EXTRA
  FROM information_schema.COLUMNS WHERE TABLE_SCHEMA IN ('kvtk', 'kvtk_doctor') AND TABLE_NAME <> 'finding' AND TABLE_NAME NOT LIKE 'found\_%';
CREATE TABLE found_indexes SELECT TABLE_SCHEMA AS S, TABLE_NAME AS T, INDEX_NAME AS I, MIN(NON_UNIQUE) AS NON_UNIQUE,
    GROUP_CONCAT(COLUMN_NAME ORDER BY SEQ_IN_INDEX) AS C
  FROM information_schema.STATISTICS WHERE TABLE_SCHEMA IN ('kvtk', 'kvtk_doctor') AND TABLE_NAME <> 'finding' AND TABLE_NAME NOT LIKE 'found\_%' GROUP BY 1, 2, 3;
CREATE TABLE found_references SELECT CONSTRAINT_SCHEMA AS S, TABLE_NAME AS T, CONSTRAINT_NAME AS K, COLUMN_NAME AS C, REFERENCED_TABLE_NAME AS RT,
    REFERENCED_COLUMN_NAME AS RC
  FROM information_schema.KEY_COLUMN_USAGE WHERE CONSTRAINT_SCHEMA IN ('kvtk', 'kvtk_doctor') AND REFERENCED_TABLE_NAME IS NOT NULL;
CREATE TABLE found_triggers SELECT TRIGGER_SCHEMA AS S, TRIGGER_NAME AS K, CONCAT_WS(' ', ACTION_TIMING, EVENT_MANIPULATION, EVENT_OBJECT_TABLE,
    ACTION_STATEMENT, SQL_MODE, DEFINER) AS BODY
  FROM information_schema.TRIGGERS WHERE TRIGGER_SCHEMA IN ('kvtk', 'kvtk_doctor');

INSERT INTO finding (N, WHAT, ADVICE, REPAIR)
  SELECT 1, CONCAT('the table ', r.T, ' is missing'), 'doctor --repair makes it, empty; its rows are in a copy', CONCAT('CREATE TABLE ', r.T, ' LIKE kvtk_doctor.', r.T)
  FROM found_tables r LEFT JOIN found_tables o ON o.S = 'kvtk' AND o.T = r.T WHERE r.S = 'kvtk_doctor' AND o.T IS NULL;
INSERT INTO finding (N, WHAT, ADVICE, REPAIR)
  SELECT 1, CONCAT('the table ', r.T, ' is ', o.ENGINE, ' and ', o.TABLE_COLLATION, ' instead of ', r.ENGINE, ' and ', r.TABLE_COLLATION),
    IF(o.ENGINE <> r.ENGINE, 'doctor --repair changes its engine', 'take its rows over into a new instance: backup, then adopt'),
    IF(o.ENGINE <> r.ENGINE, CONCAT('ALTER TABLE ', r.T, ' ENGINE=', r.ENGINE), NULL)
  FROM found_tables r JOIN found_tables o ON o.S = 'kvtk' AND o.T = r.T AND (o.ENGINE, o.TABLE_COLLATION) <> (r.ENGINE, r.TABLE_COLLATION)
  WHERE r.S = 'kvtk_doctor';
INSERT INTO finding (N, WHAT, ADVICE, REPAIR)
  SELECT 1, CONCAT('the column ', r.T, '.', r.C, ' is missing'), 'doctor --repair makes it, empty; its values are in a copy',
    CONCAT('ALTER TABLE ', r.T, ' ADD ', r.C, ' ', r.COLUMN_TYPE, IF(r.IS_NULLABLE = 'NO', ' NOT NULL', ''),
      IF(r.COLUMN_DEFAULT IS NULL OR r.COLUMN_DEFAULT = 'NULL', '', CONCAT(' DEFAULT ', r.COLUMN_DEFAULT)), ' ', r.EXTRA)
  FROM found_columns r LEFT JOIN found_columns o ON o.S = 'kvtk' AND o.T = r.T AND o.C = r.C
  WHERE r.S = 'kvtk_doctor' AND o.C IS NULL AND EXISTS (SELECT 1 FROM found_tables t WHERE t.S = 'kvtk' AND t.T = r.T);
INSERT INTO finding (N, WHAT, ADVICE)
  SELECT 1, CONCAT('the column ', r.T, '.', r.C, ' is ', o.COLUMN_TYPE, ' ', COALESCE(o.COLLATION_NAME, ''), ' instead of ', r.COLUMN_TYPE, ' ',
    COALESCE(r.COLLATION_NAME, '')), 'take the rows over into a new instance: backup, then adopt'
  FROM found_columns r JOIN found_columns o ON o.S = 'kvtk' AND o.T = r.T AND o.C = r.C
  WHERE r.S = 'kvtk_doctor' AND (o.COLUMN_TYPE <> r.COLUMN_TYPE OR NOT o.COLLATION_NAME <=> r.COLLATION_NAME OR o.EXTRA <> r.EXTRA);
INSERT INTO finding (N, WHAT, ADVICE, REPAIR)
  SELECT 1, CONCAT('the index ', r.I, ' of ', r.T, ' is missing or another one'), 'doctor --repair makes it',
    CONCAT('ALTER TABLE ', r.T, IF(o.I IS NULL, '', CONCAT(' DROP INDEX `', r.I, '`,')), ' ADD ',
      IF(r.I = 'PRIMARY', 'PRIMARY KEY', CONCAT(IF(r.NON_UNIQUE, '', 'UNIQUE '), 'KEY ', r.I)), ' (', r.C, ')')
  FROM found_indexes r LEFT JOIN found_indexes o ON o.S = 'kvtk' AND o.T = r.T AND o.I = r.I
  WHERE r.S = 'kvtk_doctor' AND (o.I IS NULL OR o.C <> r.C OR o.NON_UNIQUE <> r.NON_UNIQUE)
    AND EXISTS (SELECT 1 FROM found_tables t WHERE t.S = 'kvtk' AND t.T = r.T);

-- Rows that point nowhere

INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE)
  SELECT COUNT(*), 'lines of slips that are gone', GROUP_CONCAT(MZ_ID ORDER BY MZ_ID LIMIT 5), 'look at them with kvtk-server sql: malzeme, column MZ_ID; delete by hand what nobody needs'
  FROM kvtk.malzeme LEFT JOIN kvtk.teknikservis ON TS_ID = TS_NO_REF WHERE TS_ID IS NULL;
CREATE TABLE found_notes SELECT SF_TS_ID, COALESCE(SF_NOT, '') = '' AS IS_EMPTY
  FROM kvtk.notlar LEFT JOIN kvtk.teknikservis ON TS_ID = SF_TS_ID WHERE TS_ID IS NULL;
INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE, REPAIR)
  SELECT COUNT(*), 'empty notes of slips that are gone', GROUP_CONCAT(SF_TS_ID ORDER BY SF_TS_ID LIMIT 5), 'doctor --repair takes them away',
    'DELETE notlar FROM notlar LEFT JOIN teknikservis ON TS_ID = SF_TS_ID WHERE TS_ID IS NULL AND COALESCE(SF_NOT, '''') = '''''
  FROM found_notes WHERE IS_EMPTY;
INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE)
  SELECT COUNT(*), 'notes of slips that are gone', GROUP_CONCAT(SF_TS_ID ORDER BY SF_TS_ID LIMIT 5), 'look at them with kvtk-server sql: notlar, column SF_TS_ID; the next slip of that key replaces them'
  FROM found_notes WHERE NOT IS_EMPTY;
INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE)
  SELECT COUNT(*), 'pictures of slips that are gone', GROUP_CONCAT(FT_ID ORDER BY FT_ID LIMIT 5), 'look at them with kvtk-server sql: foto, column FT_ID; delete by hand what nobody needs'
  FROM kvtk.foto LEFT JOIN kvtk.teknikservis ON TS_ID = FT_TS_ID WHERE TS_ID IS NULL AND LENGTH(FT_RESIM) > 0;
INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE, REPAIR)
  SELECT COUNT(*), 'slips without a row for their note: what is typed there is not kept', GROUP_CONCAT(TS_NO ORDER BY TS_ID LIMIT 5), 'doctor --repair makes the rows',
    'INSERT INTO notlar (SF_TS_ID) SELECT TS_ID FROM teknikservis LEFT JOIN notlar ON SF_TS_ID = TS_ID WHERE SF_TS_ID IS NULL'
  FROM kvtk.teknikservis LEFT JOIN kvtk.notlar ON SF_TS_ID = TS_ID WHERE SF_TS_ID IS NULL;
INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE, REPAIR)
  SELECT COUNT(*), 'devices of customers who are gone', GROUP_CONCAT(CH_ID ORDER BY CH_ID LIMIT 5), 'doctor --repair keeps them without an owner',
    'UPDATE caricihaz LEFT JOIN cari ON CA_ID = CH_CA_ID SET CH_CA_ID = NULL WHERE CA_ID IS NULL'
  FROM kvtk.caricihaz LEFT JOIN kvtk.cari ON CA_ID = CH_CA_ID WHERE CH_CA_ID IS NOT NULL AND CA_ID IS NULL;
INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE, REPAIR)
  SELECT COUNT(*), 'contracts of customers who are gone', GROUP_CONCAT(SOZ_NO ORDER BY SOZ_ID LIMIT 5), 'doctor --repair keeps them without a customer',
    'UPDATE sozlesme LEFT JOIN cari ON CA_ID = SOZ_CA_ID_REF SET SOZ_CA_ID_REF = NULL WHERE CA_ID IS NULL'
  FROM kvtk.sozlesme LEFT JOIN kvtk.cari ON CA_ID = SOZ_CA_ID_REF WHERE SOZ_CA_ID_REF IS NOT NULL AND CA_ID IS NULL;
-- References can be made only when no row points nowhere any more.
INSERT INTO finding (N, WHAT, ADVICE, REPAIR)
  SELECT 1, CONCAT('nothing keeps the customers that ', r.T, ' refers to'), 'doctor --repair makes the reference',
    CONCAT('ALTER TABLE ', r.T, ' ADD CONSTRAINT ', r.K, ' FOREIGN KEY (', r.C, ') REFERENCES ', r.RT, ' (', r.RC, ')')
  FROM found_references r LEFT JOIN found_references o ON o.S = 'kvtk' AND (o.T, o.C, o.RT, o.RC) = (r.T, r.C, r.RT, r.RC)
  WHERE r.S = 'kvtk_doctor' AND o.K IS NULL;
INSERT INTO finding (N, WHAT, ADVICE, REPAIR)
  SELECT 1, CONCAT('the trigger ', r.K, ' is missing or another one'), 'doctor --repair makes it', 'TRIGGERS'
  FROM found_triggers r LEFT JOIN found_triggers o ON o.S = 'kvtk' AND o.K = r.K WHERE r.S = 'kvtk_doctor' AND NOT o.BODY <=> r.BODY;
INSERT INTO finding (N, WHAT, ADVICE)
  SELECT 1, CONCAT('the trigger ', o.K, ' is none of the program''s'), 'ask whoever made it; it changes rows behind the screens'
  FROM found_triggers o LEFT JOIN found_triggers r ON r.S = 'kvtk_doctor' AND r.K = o.K WHERE o.S = 'kvtk' AND r.K IS NULL;

-- What no screen can show. Slips are gone through once: each gets the letters of what is wrong with it.

CREATE TABLE found_slips SELECT TAGS, COUNT(*) AS N, SUBSTRING_INDEX(GROUP_CONCAT(TS_NO ORDER BY TS_ID LIMIT 5), ',', 5) AS EXAMPLE
  FROM (SELECT TS_ID, TS_NO, CONCAT(
      IF(TS_TURU IN ('ARIZA KABUL', 'SIRA BEKLİYOR', 'PARÇA BEKLİYOR', 'İŞLEM YAPILMADI', 'İADE EDİLDİ', 'SERVİSE ALINDI', 'ONARILIYOR',
        'DIŞ SERVİSTE', 'FABRİKA İADESİ BEKLENİYOR', 'FABRİKA DEĞİŞİM BEKLENİYOR', 'MÜŞTERİ ONAYI BEKLENİYOR', 'MÜŞTERİ ONAY VERDİ',
        'MÜŞTERİ ONAYLAMADI', 'TAMAMLANDI', 'FATURALANDI', 'TESLİM EDİLDİ'), '', 's'),
      IF(COALESCE(TS_HIZMET_TIP, '') IN ('', 'VAR', 'YOK', 'BELİRSİZ', 'ONARIM GRANTİLİ'), '', 'w'),
      IF(COALESCE(TS_ODEME_SEKLI, '') IN ('', 'Nakit', 'Kredi Kartı', 'Cari Hesap'), '', 'p'),
      IF(DAY(TS_TARIH) > 0 AND TS_TARIH >= '1980-01-01', '', 'd'),
      IF(TS_TESLIM_TARIH + 0 > 0 AND DAY(TS_TESLIM_TARIH) * MONTH(TS_TESLIM_TARIH) = 0 OR TS_RANDEVU + 0 > 0 AND DAY(TS_RANDEVU) * MONTH(TS_RANDEVU) = 0
        OR TS_HATIRLATMA_TARIH + 0 > 0 AND DAY(TS_HATIRLATMA_TARIH) * MONTH(TS_HATIRLATMA_TARIH) = 0
        OR TS_C_GARBASTAR + 0 > 0 AND DAY(TS_C_GARBASTAR) * MONTH(TS_C_GARBASTAR) = 0
        OR TS_C_GARBITTAR + 0 > 0 AND DAY(TS_C_GARBITTAR) * MONTH(TS_C_GARBITTAR) = 0, 'D', ''),
      IF(TS_DISSERVIS_CIKIS + 0 > 0 AND TS_DISSERVIS_GIRIS IS NULL, 'o', ''),
      IF(COALESCE(TS_NO, '') = '', 'n', ''),
      IF(TS_NO LIKE '% %', 'b', '')) AS TAGS FROM kvtk.teknikservis) t
  WHERE TAGS <> '' GROUP BY TAGS;
CREATE TABLE found_tags (TAG CHAR(1) COLLATE utf8mb4_bin, WHAT VARCHAR(100), ADVICE VARCHAR(200), REPAIR VARCHAR(300)) CHARSET=utf8mb4;
INSERT INTO found_tags VALUES
  ('s', 'slips in a status that is none of the sixteen', 'open each and choose one', NULL),
  ('w', 'slips with a warranty state that no list has', 'open each and choose one', NULL),
  ('p', 'slips with a payment way that no list has', 'open each and choose one', NULL),
  ('d', 'slips without a date that a day''s list finds', 'open each and type one', NULL),
  ('D', 'slips with a date without month or day', 'open each and type it', NULL),
  ('o', 'slips sent out that are missing in the overdue list', 'doctor --repair puts them there',
    'UPDATE teknikservis SET TS_DISSERVIS_GIRIS = ''0000-00-00'' WHERE TS_DISSERVIS_CIKIS + 0 > 0 AND TS_DISSERVIS_GIRIS IS NULL'),
  ('n', 'slips without a number', 'open each and give it one', NULL);
INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE, REPAIR)
  SELECT SUM(N), WHAT, MIN(EXAMPLE), ADVICE, REPAIR FROM found_tags JOIN found_slips ON LOCATE(BINARY TAG, BINARY TAGS) > 0 GROUP BY TAG ORDER BY MIN(N);
INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE)
  SELECT COUNT(*), 'contracts in a state that no list has: they never remind', GROUP_CONCAT(SOZ_NO ORDER BY SOZ_ID LIMIT 5), 'open each and choose one'
  FROM kvtk.sozlesme WHERE COALESCE(SOZ_STATU, '') NOT IN ('PASİF', 'AKTİF', 'BİTTİ');
INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE, REPAIR)
  SELECT COUNT(*), 'customers with an empty text for a telephone: a withheld call matches them all', GROUP_CONCAT(CA_AD ORDER BY CA_ID LIMIT 5), 'doctor --repair takes the empty texts out',
    'UPDATE cari SET CA_TEL = NULLIF(TRIM(CA_TEL), ''''), CA_TEL2 = NULLIF(TRIM(CA_TEL2), ''''), CA_CEP = NULLIF(TRIM(CA_CEP), '''') WHERE '''' IN (TRIM(CA_TEL), TRIM(CA_TEL2), TRIM(CA_CEP))'
  FROM kvtk.cari WHERE '' IN (TRIM(CA_TEL), TRIM(CA_TEL2), TRIM(CA_CEP));

-- Keys that only blanks tell apart

INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE)
  SELECT COUNT(*), 'slips whose number is another one''s but for blanks', GROUP_CONCAT(CONCAT('"', b.TS_NO, '"') ORDER BY b.TS_ID LIMIT 5), 'open each and give it a number of its own'
  FROM (SELECT TS_ID, TS_NO FROM kvtk.teknikservis WHERE TS_NO LIKE '% %') b JOIN kvtk.teknikservis o ON o.TS_NO = REPLACE(b.TS_NO, ' ', '') AND o.TS_ID <> b.TS_ID;
INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE, REPAIR)
  SELECT COUNT(*), 'slip numbers with a blank in front: no search by number finds them', GROUP_CONCAT(CONCAT('"', b.TS_NO, '"') ORDER BY b.TS_ID LIMIT 5), 'doctor --repair takes the blanks off',
    'UPDATE IGNORE teknikservis SET TS_NO = TRIM(TS_NO) WHERE TS_NO LIKE '' %'''
  FROM kvtk.teknikservis b LEFT JOIN kvtk.teknikservis o ON o.TS_NO = TRIM(b.TS_NO) AND o.TS_ID <> b.TS_ID WHERE b.TS_NO LIKE ' %' AND o.TS_ID IS NULL;
INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE)
  SELECT COUNT(*), 'customers whose name is another one''s but for blanks', GROUP_CONCAT(CONCAT('"', b.CA_AD, '"') ORDER BY b.CA_ID LIMIT 5), 'open each; keep one card and move its devices and contracts'
  FROM (SELECT CA_ID, CA_AD FROM kvtk.cari WHERE CA_AD LIKE ' %' OR CA_AD LIKE '%  %') b
  JOIN kvtk.cari o ON o.CA_AD = REPLACE(REPLACE(TRIM(b.CA_AD), '  ', ' '), '  ', ' ') AND o.CA_ID <> b.CA_ID;
INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE)
  SELECT COUNT(*), 'devices whose serial number is another one''s but for blanks', GROUP_CONCAT(CONCAT('"', b.CH_SERI, '"') ORDER BY b.CH_ID LIMIT 5), 'open the customer''s devices and give it its own'
  FROM (SELECT CH_ID, CH_SERI FROM kvtk.caricihaz WHERE CH_SERI LIKE '% %') b JOIN kvtk.caricihaz o ON o.CH_SERI = REPLACE(b.CH_SERI, ' ', '') AND o.CH_ID <> b.CH_ID;

-- Tables of one row

INSERT INTO finding (N, WHAT, ADVICE, REPAIR)
  SELECT 1, 'the row of the shop''s own data is missing', 'doctor --repair makes it, empty', 'INSERT INTO sirket (SIRKET_ADI) VALUES ('''')'
  FROM (SELECT COUNT(*) AS N FROM kvtk.sirket) s WHERE N = 0;
INSERT INTO finding (N, WHAT, ADVICE)
  SELECT N, 'rows of the shop''s own data, of which one is used', 'delete the others with kvtk-server sql: sirket' FROM (SELECT COUNT(*) AS N FROM kvtk.sirket) s WHERE N > 1;
INSERT INTO finding (N, WHAT, ADVICE, REPAIR)
  SELECT 1, 'the row of exchange rates is missing', 'doctor --repair makes it', 'INSERT INTO doviz (TARIH, DOLARSATIS, EUROSATIS, STERLINSATIS) VALUES (CURRENT_DATE, 0, 0, 0)'
  FROM (SELECT COUNT(*) AS N FROM kvtk.doviz) d WHERE N = 0;

-- Clocks: a save carries the computer's time and the server's. Rows that came in one statement tell nothing; the newest slips are
-- enough, as every computer has some of them.

INSERT INTO finding (N, WHAT, EXAMPLE, ADVICE)
  SELECT COUNT(*), CONCAT('saves of this week by ', COALESCE(U, '?'), ' on a computer whose clock is wrong'),
    CONCAT(ROUND(AVG(TIMESTAMPDIFF(SECOND, STAMP, MOMENT)) / 60), ' minutes'), 'set the clock of that computer, or of this one'
  FROM (SELECT TS_STAMP AS STAMP, MIN(TS_USER) AS U, MIN(TS_USER_TIME) AS MOMENT
    FROM (SELECT TS_STAMP, TS_USER, TS_USER_TIME FROM kvtk.teknikservis ORDER BY TS_ID DESC LIMIT 20000) newest
    WHERE TS_STAMP > NOW() - INTERVAL 7 DAY GROUP BY TS_STAMP HAVING COUNT(*) = 1) s WHERE ABS(TIMESTAMPDIFF(SECOND, STAMP, MOMENT)) > 300 GROUP BY U;

DELETE FROM finding WHERE N = 0;
SELECT N, WHAT, COALESCE(EXAMPLE, ''), ADVICE, COALESCE(REPAIR, '') FROM finding ORDER BY NO;
