-- Every table has a key that tells its rows apart: servers that hold one database together need it. No screen sees this one.

ALTER TABLE doviz ADD COLUMN IF NOT EXISTS DOVIZ_ID INT NOT NULL AUTO_INCREMENT INVISIBLE PRIMARY KEY;
