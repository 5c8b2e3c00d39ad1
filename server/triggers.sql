-- What the database does by itself when slips come and go. A trigger keeps the sql_mode of the one who creates it, and runs
-- with the rights of its definer, who is one that every server has: a copy must work on another computer.

SET SESSION sql_mode = 'NO_ENGINE_SUBSTITUTION';

DELIMITER //

-- The note's row exists from the start: the program only ever updates it.
CREATE DEFINER = root@localhost TRIGGER teknikservis_not AFTER INSERT ON teknikservis FOR EACH ROW
  INSERT INTO notlar (SF_TS_ID, SF_NOT) VALUES (NEW.TS_ID, NULL)//

CREATE DEFINER = root@localhost TRIGGER teknikservis_sil AFTER DELETE ON teknikservis FOR EACH ROW
BEGIN
  DELETE FROM malzeme WHERE TS_NO_REF = OLD.TS_ID;
  DELETE FROM foto WHERE FT_TS_ID = OLD.TS_ID;
  DELETE FROM notlar WHERE SF_TS_ID = OLD.TS_ID;
END//

-- A device that was sent out and has not come back has the zero date as its return: the overdue list asks for that date,
-- and NULL would equal nothing.
CREATE DEFINER = root@localhost TRIGGER teknikservis_disarida_ekle BEFORE INSERT ON teknikservis FOR EACH ROW
  IF NEW.TS_DISSERVIS_CIKIS IS NOT NULL AND NEW.TS_DISSERVIS_GIRIS IS NULL THEN
    SET NEW.TS_DISSERVIS_GIRIS = '0000-00-00';
  END IF//

CREATE DEFINER = root@localhost TRIGGER teknikservis_disarida_degis BEFORE UPDATE ON teknikservis FOR EACH ROW
  IF NEW.TS_DISSERVIS_CIKIS IS NOT NULL AND NEW.TS_DISSERVIS_GIRIS IS NULL THEN
    SET NEW.TS_DISSERVIS_GIRIS = '0000-00-00';
  END IF//

DELIMITER ;
