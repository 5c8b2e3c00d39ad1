-- Customers who have devices or contracts cannot be deleted, firms cannot lose their names, and lists find their rows by
-- index. The only step that has to run on four forms of the tables: instances made before versions were counted may have
-- been through parts of it.

-- What refers to a customer who is gone keeps everything but the number that leads nowhere.
UPDATE caricihaz LEFT JOIN cari ON CA_ID = CH_CA_ID SET CH_CA_ID = NULL WHERE CH_CA_ID IS NOT NULL AND CA_ID IS NULL;
UPDATE sozlesme LEFT JOIN cari ON CA_ID = SOZ_CA_ID_REF SET SOZ_CA_ID_REF = NULL WHERE SOZ_CA_ID_REF IS NOT NULL AND CA_ID IS NULL;
UPDATE disservis SET DS_AD = CONCAT('ADSIZ FİRMA ', DS_ID) WHERE COALESCE(DS_AD, '') = '';

ALTER TABLE caricihaz DROP FOREIGN KEY IF EXISTS caricihaz_cari;
ALTER TABLE caricihaz ADD CONSTRAINT caricihaz_cari FOREIGN KEY (CH_CA_ID) REFERENCES cari (CA_ID);
ALTER TABLE sozlesme DROP FOREIGN KEY IF EXISTS sozlesme_cari;
ALTER TABLE sozlesme ADD INDEX IF NOT EXISTS SOZ_BAS_TARIH (SOZ_BAS_TARIH),
  ADD CONSTRAINT sozlesme_cari FOREIGN KEY (SOZ_CA_ID_REF) REFERENCES cari (CA_ID);
ALTER TABLE disservis DROP INDEX DS_AD, ADD INDEX DS_AD (DS_AD), MODIFY DS_AD VARCHAR(80) CHECK (COALESCE(DS_AD, '') <> '');
ALTER TABLE callerid DROP INDEX cid_tarih, ADD INDEX cid_tarih (cid_tarih, cid_saat);

-- A trigger runs with the rights of its definer, who is one that every server has: a copy must work on another computer.
DROP TRIGGER IF EXISTS teknikservis_parcalar;
DELIMITER //

-- The note's row exists from the start: the program only ever updates it. One left over under the new slip's key is nobody's.
CREATE OR REPLACE DEFINER = root@localhost TRIGGER teknikservis_not AFTER INSERT ON teknikservis FOR EACH ROW
  REPLACE INTO notlar (SF_TS_ID, SF_NOT) VALUES (NEW.TS_ID, NULL)//

CREATE OR REPLACE DEFINER = root@localhost TRIGGER teknikservis_sil AFTER DELETE ON teknikservis FOR EACH ROW
BEGIN
  DELETE FROM malzeme WHERE TS_NO_REF = OLD.TS_ID;
  DELETE FROM foto WHERE FT_TS_ID = OLD.TS_ID;
  DELETE FROM notlar WHERE SF_TS_ID = OLD.TS_ID;
END//

-- A device that was sent out and has not come back has the zero date as its return: the overdue list asks for that date,
-- and NULL would equal nothing.
CREATE OR REPLACE DEFINER = root@localhost TRIGGER teknikservis_disarida_ekle BEFORE INSERT ON teknikservis FOR EACH ROW
  IF NEW.TS_DISSERVIS_CIKIS IS NOT NULL AND NEW.TS_DISSERVIS_GIRIS IS NULL THEN
    SET NEW.TS_DISSERVIS_GIRIS = '0000-00-00';
  END IF//

CREATE OR REPLACE DEFINER = root@localhost TRIGGER teknikservis_disarida_degis BEFORE UPDATE ON teknikservis FOR EACH ROW
  IF NEW.TS_DISSERVIS_CIKIS IS NOT NULL AND NEW.TS_DISSERVIS_GIRIS IS NULL THEN
    SET NEW.TS_DISSERVIS_GIRIS = '0000-00-00';
  END IF//

DELIMITER ;
