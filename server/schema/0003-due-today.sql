-- What is due today is found by index: contracts by state and term, jobs outside that have not come back.

ALTER TABLE sozlesme DROP INDEX SOZ_STATU, ADD INDEX SOZ_STATU (SOZ_STATU, SOZ_BIT_TARIH, SOZ_BAS_TARIH);
ALTER TABLE teknikservis DROP INDEX TS_TURU, ADD INDEX TS_TURU (TS_TURU, TS_DISSERVIS_GIRIS);
