-- Slips of a customer and of a device are counted by index alone, and the rates begin with a day long past, so that the first
-- opening asks the service for them.

ALTER TABLE teknikservis
  DROP INDEX TS_MUSTERI, ADD INDEX TS_MUSTERI (TS_MUSTERI, TS_TARIH, TS_TURU),
  DROP INDEX TS_C_SERINO, ADD INDEX TS_C_SERINO (TS_C_SERINO, TS_TARIH, TS_TURU);

-- Only the row as it was delivered.
UPDATE doviz SET TARIH = '2000-01-01', DOLARSATIS = 1, EUROSATIS = 1, STERLINSATIS = 1
  WHERE DOLARSATIS = 0 AND EUROSATIS = 0 AND STERLINSATIS = 0;
