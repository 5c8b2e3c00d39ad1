-- Plausible data in a repeatable way: every choice comes from the row's number, none from chance. The clock has a say only in
-- what is to be due today: terms of contracts, some reminders, some jobs that are overdue outside.
-- @N@ slips, @CUSTOMERS@ customers, @CONTRACTS@ contracts, @CALLS@ calls; each behind what is there already.

SET NAMES utf8mb4;
SET SESSION sql_mode = 'NO_ENGINE_SUBSTITUTION';

SET @customers = (SELECT COALESCE(MAX(CA_ID), 0) FROM cari);
SET @devices = (SELECT COALESCE(MAX(CH_ID), 0) FROM caricihaz);
SET @slips = (SELECT COALESCE(MAX(TS_ID), 0) FROM teknikservis);
SET @number = (SELECT GREATEST(99, COALESCE(MAX(TS_NO + 0), 0)) FROM teknikservis);
SET @contracts = (SELECT COALESCE(MAX(SOZ_ID), 0) FROM sozlesme);

CREATE TEMPORARY TABLE ad (NO INT PRIMARY KEY AUTO_INCREMENT, AD VARCHAR(20)) CHARSET=latin5;
INSERT INTO ad (AD) VALUES ('AYŞE'),('MEHMET'),('FATMA'),('MUSTAFA'),('EMİNE'),('AHMET'),('HATİCE'),('ALİ'),('ZEYNEP'),('HÜSEYİN'),
  ('ELİF'),('HASAN'),('MERYEM'),('İBRAHİM'),('ŞERİFE'),('İSMAİL'),('ZEHRA'),('OSMAN'),('SULTAN'),('YUSUF'),('HANİFE'),('MURAT'),
  ('MERVE'),('ÖMER'),('HAVVA'),('RAMAZAN'),('ÖZLEM'),('HALİL'),('YASEMİN'),('SÜLEYMAN'),('TUĞBA'),('ABDULLAH'),('ÇİĞDEM'),('MAHMUT'),
  ('GÜLŞEN'),('RECEP'),('IŞIL'),('SALİH'),('ÜMRAN'),('FATİH');
CREATE TEMPORARY TABLE soyad (NO INT PRIMARY KEY AUTO_INCREMENT, AD VARCHAR(20)) CHARSET=latin5;
INSERT INTO soyad (AD) VALUES ('YILMAZ'),('KAYA'),('DEMİR'),('ŞAHİN'),('ÇELİK'),('YILDIZ'),('YILDIRIM'),('ÖZTÜRK'),('AYDIN'),('ÖZDEMİR'),
  ('ARSLAN'),('DOĞAN'),('KILIÇ'),('ASLAN'),('ÇETİN'),('KARA'),('KOÇ'),('KURT'),('ÖZKAN'),('ŞİMŞEK'),('POLAT'),('KORKMAZ'),('ÇAKIR'),
  ('ERDOĞAN'),('IŞIK'),('ÜNAL'),('TEKİN'),('GÜNEŞ'),('BULUT'),('KESKİN'),('AVCI'),('TURAN'),('ATEŞ'),('GÜLER'),('YAVUZ'),('CAN'),
  ('BOZKURT'),('ÖZER'),('SARI'),('DUMAN');
CREATE TEMPORARY TABLE yer (NO INT PRIMARY KEY AUTO_INCREMENT, ILCE VARCHAR(30)) CHARSET=latin5;
INSERT INTO yer (ILCE) VALUES ('KADIKÖY / İSTANBUL'),('ÇANKAYA / ANKARA'),('KONAK / İZMİR'),('NİLÜFER / BURSA'),('MURATPAŞA / ANTALYA'),
  ('ÜSKÜDAR / İSTANBUL'),('BORNOVA / İZMİR'),('SEYHAN / ADANA'),('SELÇUKLU / KONYA'),('ŞİŞLİ / İSTANBUL'),('YENİMAHALLE / ANKARA'),
  ('İZMİT / KOCAELİ'),('ODUNPAZARI / ESKİŞEHİR'),('ATAKUM / SAMSUN'),('ORTAHİSAR / TRABZON'),('ŞAHİNBEY / GAZİANTEP');

CREATE TEMPORARY TABLE urun (NO INT PRIMARY KEY AUTO_INCREMENT, AD VARCHAR(60), TURU VARCHAR(40), MARKA VARCHAR(30)) CHARSET=latin5;
INSERT INTO urun (AD, TURU, MARKA) VALUES ('DİZÜSTÜ BİLGİSAYAR','BİLGİSAYAR','TX-500'),('MASAÜSTÜ BİLGİSAYAR','BİLGİSAYAR','PRO 7'),
  ('LAZER YAZICI','YAZICI','LP-1020'),('FİŞ YAZICI','YAZICI','TM-88'),('BARKOD OKUYUCU','OKUYUCU','BC-22'),('CEP TELEFONU','TELEFON','A12'),
  ('TABLET','TABLET','TAB 10'),('MONİTÖR','EKRAN','M-24'),('ÇAMAŞIR MAKİNESİ','BEYAZ EŞYA','CM-9'),('BULAŞIK MAKİNESİ','BEYAZ EŞYA','BM-6'),
  ('BUZDOLABI','BEYAZ EŞYA','BD-450'),('KLİMA','İKLİMLENDİRME','12000 BTU'),('KOMBİ','ISITMA','K-24'),('ELEKTRİKLİ SÜPÜRGE','EV ALETİ','ES-2'),
  ('YAZARKASA','KASA','YK-300'),('GÜVENLİK KAMERASI','KAMERA','GK-4');
CREATE TEMPORARY TABLE durum (NO INT PRIMARY KEY, AD VARCHAR(30)) CHARSET=latin5;
INSERT INTO durum VALUES (0,'ARIZA KABUL'),(1,'SIRA BEKLİYOR'),(2,'PARÇA BEKLİYOR'),(3,'İŞLEM YAPILMADI'),(4,'İADE EDİLDİ'),
  (5,'SERVİSE ALINDI'),(6,'ONARILIYOR'),(7,'DIŞ SERVİSTE'),(8,'FABRİKA İADESİ BEKLENİYOR'),(9,'FABRİKA DEĞİŞİM BEKLENİYOR'),
  (10,'MÜŞTERİ ONAYI BEKLENİYOR'),(11,'MÜŞTERİ ONAY VERDİ'),(12,'MÜŞTERİ ONAYLAMADI'),(13,'TAMAMLANDI'),(14,'FATURALANDI'),
  (15,'TESLİM EDİLDİ');

-- All of it or nothing.
START TRANSACTION;
INSERT INTO cihaz (C_AD, C_TURU, C_MARKA, C_URETICI)
  SELECT AD, TURU, MARKA, CONCAT('UK', LPAD(NO, 4, '0')) FROM urun WHERE NOT EXISTS (SELECT 1 FROM cihaz) ORDER BY NO;
INSERT IGNORE INTO servistip (SERVIS_AD) VALUES ('ATÖLYE'),('YERİNDE SERVİS'),('KARGO İLE'),('BAKIM'),('KURULUM');
INSERT INTO disservis (DS_AD, DS_ADRES, DS_ILCE_IL, DS_YETKILI, DS_TEL)
  SELECT CONCAT(soyad.AD, ' YETKİLİ SERVİS'), 'SANAYİ SİTESİ 12. SOKAK', yer.ILCE, ad.AD, CONCAT('0312', 4000000 + soyad.NO)
  FROM soyad JOIN yer ON yer.NO = 1 + MOD(soyad.NO, 16) JOIN ad ON ad.NO = soyad.NO
  WHERE soyad.NO <= 12 AND NOT EXISTS (SELECT 1 FROM disservis);

-- A word and a surname each name 1600 people; from there on a number tells them apart.
INSERT INTO cari (CA_ID, CA_NO, CA_AD, CA_UNVAN, CA_ADRES, CA_ILCE, CA_YETKILI, CA_CEP, CA_TEL, CA_EPOSTA, CA_BAKIYE)
  SELECT @customers + seq, CONCAT('C', LPAD(@customers + seq, 6, '0')),
    CONCAT(ad.AD, ' ', soyad.AD, IF(@customers + seq < 1600, '', CONCAT(' ', (@customers + seq) DIV 1600))),
    IF(MOD(seq, 4) = 0, CONCAT(soyad.AD, ' TİCARET LTD. ŞTİ.'), NULL),
    CONCAT(ELT(1 + MOD(CRC32(seq), 4), 'ATATÜRK CAD.', 'CUMHURİYET MAH. GÜL SOK.', 'İNÖNÜ BULVARI', 'FEVZİ ÇAKMAK CAD.'), ' NO: ', 1 + MOD(seq, 180)),
    yer.ILCE, CONCAT(ad.AD, ' ', soyad.AD), CONCAT('05', 30 + MOD(seq, 30), LPAD(MOD(CRC32(CONCAT('cep', @customers + seq)), 10000000), 7, '0')),
    CONCAT('0212', LPAD(MOD(CRC32(CONCAT('tel', @customers + seq)), 10000000), 7, '0')),
    IF(MOD(seq, 3) = 0, CONCAT('musteri', @customers + seq, '@ornek.com.tr'), NULL), 0
  FROM seq_1_to_@CUSTOMERS@ s
  JOIN ad ON ad.NO = 1 + MOD(@customers + seq, 40) JOIN soyad ON soyad.NO = 1 + MOD((@customers + seq) DIV 40, 40)
  JOIN yer ON yer.NO = 1 + MOD(CRC32(CONCAT('yer', seq)), 16);

INSERT INTO caricihaz (CH_ID, CH_CA_ID, CH_MODEL, CH_SERI)
  SELECT @devices + seq, @customers + seq, urun.AD, CONCAT('SR', LPAD(@devices + seq, 8, '0'))
  FROM seq_1_to_@CUSTOMERS@ s JOIN urun ON urun.NO = 1 + MOD(CRC32(CONCAT('urun', seq)), 16);

-- Slips spread over three years, the newest with the highest number.
INSERT INTO teknikservis (TS_ID, TS_NO, TS_TARIH, TS_SAAT, TS_TESLIM_TARIH, TS_SERVIS_TIP, TS_HIZMET_TIP, TS_TURU, TS_ACIKLAMA,
    TS_TEKNISYEN, TS_MUSTERI, TS_UNVAN, TS_M_NO, TS_ADRES, TS_ILCE, TS_YETKILI, TS_TEL, TS_CEP, TS_EPOSTA, TS_C_SERINO, TS_C_RAFNO,
    TS_C_AD, TS_C_MARKA, TS_C_TURU, TS_C_EKPARCA, TS_C_SIKAYET, TS_C_TEKNISYEN_NOT, TS_MALIYET, TS_SERVIS_TUTAR, TS_ISCILIK_TUTAR,
    TS_PARCA_TUTAR, TS_TUTAR, TS_ODEME_SEKLI, TS_DISSERVIS, TS_DISSERVIS_CIKIS, TS_DISSERVIS_GIRIS, TS_DISSERVIS_TESLIM_SURE,
    TS_HATIRLATMA_TARIH, TS_HATIRLATMA_SAAT, TS_HATIRLATMA_NOTU, TS_USER, TS_USER_TIME)
  SELECT @slips + seq, @number + seq, TARIH, SEC_TO_TIME(28800 + MOD(h, 36000)), IF(DURUM_NO >= 14, TARIH + INTERVAL 5 DAY, NULL),
    ELT(1 + MOD(h, 5), 'ATÖLYE', 'YERİNDE SERVİS', 'KARGO İLE', 'BAKIM', 'KURULUM'), ELT(1 + MOD(h DIV 5, 4), 'VAR', 'YOK', 'BELİRSİZ', NULL),
    DURUM, IF(MOD(h, 7) = 0, 'ACİL', NULL), ELT(1 + MOD(h DIV 7, 4), 'KEMAL USTA', 'SERAP HANIM', 'TARIK', 'İSMAİL'),
    c.CA_AD, c.CA_UNVAN, c.CA_NO, c.CA_ADRES, c.CA_ILCE, c.CA_YETKILI, c.CA_TEL, c.CA_CEP, c.CA_EPOSTA,
    CONCAT('SN', LPAD(MOD(h, 4000000), 7, '0')), IF(MOD(h, 3) = 0, CONCAT('SR', LPAD(c.CA_ID, 8, '0')), NULL),
    urun.AD, urun.MARKA, urun.TURU, ELT(1 + MOD(h DIV 11, 4), 'ŞARJ ALETİ', 'ÇANTA', 'KABLO, KUTU', NULL),
    ELT(1 + MOD(h DIV 13, 6), 'AÇILMIYOR', 'SES GELMİYOR', 'ISINIYOR, KAPANIYOR', 'EKRAN KIRIK', 'ÇOK GÜRÜLTÜLÜ ÇALIŞIYOR', 'ŞARJ OLMUYOR'),
    IF(DURUM_NO >= 13, ELT(1 + MOD(h DIV 17, 3), 'ANAKART ONARILDI', 'PARÇA DEĞİŞTİ', 'TEMİZLİK YAPILDI'), NULL),
    MOD(h, 500), 100 + MOD(h, 9) * 50, MOD(h, 11) * 25, MOD(h, 13) * 12.5, 100 + MOD(h, 9) * 50 + MOD(h, 11) * 25 + MOD(h, 13) * 12.5,
    ELT(1 + MOD(h DIV 19, 4), 'Nakit', 'Kredi Kartı', 'Cari Hesap', NULL), IF(GITTI, CONCAT(firma.AD, ' YETKİLİ SERVİS'), NULL),
    IF(GITTI, IF(GECIKTI, CURDATE() - INTERVAL 8 + MOD(h, 14) + MOD(seq, 9) DAY, TARIH + INTERVAL 1 DAY), NULL), IF(GITTI AND DURUM_NO <> 7, TARIH + INTERVAL 4 DAY, NULL), IF(GITTI, 7 + MOD(h, 14), NULL),
    IF(BUGUN, CURDATE(), IF(MOD(h, 25) = 0, TARIH + INTERVAL 30 DAY, NULL)),
    IF(BUGUN, SEC_TO_TIME(32400 + 900 * MOD(seq, 32)), IF(MOD(h, 25) = 0, '10:00:00', NULL)),
    IF(BUGUN OR MOD(h, 25) = 0, ELT(1 + MOD(h DIV 25, 3), 'MÜŞTERİYİ ARA', 'PARÇA GELDİ Mİ, SOR', 'ÖDEMEYİ HATIRLAT'), NULL),
    'QUEND', TARIH + INTERVAL 9 HOUR
  FROM (SELECT s.*, durum.NO AS DURUM_NO, durum.AD AS DURUM, durum.NO = 7 OR durum.NO >= 13 AND MOD(h DIV 23, 12) = 0 AS GITTI
    FROM (SELECT seq, CRC32(CONCAT('fiş', @slips + seq)) AS h, DATE('2024-01-01') + INTERVAL (seq * 1050 DIV @N@) DAY AS TARIH,
        seq > @N@ - 12 AND MOD(seq, 3) = 0 AS GECIKTI, seq > @N@ - 12 AND MOD(seq, 3) = 1 AS BUGUN
      FROM seq_1_to_@N@) s
    -- Of old slips none is outside any more.
    JOIN durum ON durum.NO = IF(GECIKTI, 7, IF(MOD(h, 3) > 0 OR MOD(h DIV 3, 16) = 7 AND seq <= @N@ - 5000, 15, MOD(h DIV 3, 16)))) s
  JOIN cari c ON c.CA_ID = @customers + 1 + MOD(h, @CUSTOMERS@)
  JOIN urun ON urun.NO = 1 + MOD(h, 16)
  JOIN soyad firma ON firma.NO = 1 + MOD(h DIV 29, 12);

INSERT INTO malzeme (TS_NO_REF, MZ_SIRANO, MZ_PARCA_ADI, MZ_ADET, MZ_TUTAR)
  SELECT TS_ID, satir.seq, ELT(1 + MOD(CRC32(CONCAT(TS_ID, satir.seq)), 5), 'ŞARJ SOKETİ', 'FAN', 'ANAKART', 'EKRAN PANELİ', 'İŞÇİLİK PAKETİ'),
    1 + MOD(TS_ID, 3), 50 + MOD(TS_ID, 20) * 12.5
  FROM teknikservis JOIN seq_1_to_3 satir ON satir.seq <= MOD(TS_ID, 4) WHERE TS_ID > @slips ORDER BY TS_ID, satir.seq;

UPDATE notlar SET SF_NOT = CONCAT('MÜŞTERİ ARANDI, BİLGİ VERİLDİ. FİŞ ', SF_TS_ID) WHERE SF_TS_ID > @slips AND MOD(SF_TS_ID, 5) = 0;

-- All periods by turns; of three contracts, the terms of two have ended. The first reminder of some is today's.
INSERT INTO sozlesme (SOZ_NO, SOZ_AD, SOZ_CA_ID_REF, SOZ_BAS_TARIH, SOZ_BIT_TARIH, SOZ_TUTAR, SOZ_MESAFE, SOZ_HATIRLA_TARIH,
    SOZ_HATIRLA_SAAT, SOZ_HATIRLA_MESAJ, SOZ_HATIRLA_DONEM, SOZ_STATU)
  SELECT 1000 + @contracts + seq, CONCAT(ELT(1 + MOD(h, 4), 'KLİMA', 'KOMBİ', 'YAZICI', 'SUNUCU'), ' BAKIM SÖZLEŞMESİ'),
    @customers + 1 + MOD(seq * 7, @CUSTOMERS@), BASLAMA, BASLAMA + INTERVAL 1 YEAR, 1000 + MOD(h, 20) * 250, MOD(seq * 3, 90),
    IF(YIL = 0 AND MOD(seq, 7) = 0, CURDATE(), BASLAMA + INTERVAL 14 DAY), SEC_TO_TIME(32400 + 900 * MOD(seq, 32)),
    ELT(1 + MOD(h DIV 4, 3), 'PERİYODİK BAKIM', 'FİLTRE DEĞİŞİMİ', 'GENEL KONTROL'), 1 + 2 * MOD(seq, 15),
    IF(YIL > 0, 'BİTTİ', IF(MOD(seq, 16) = 0, 'PASİF', 'AKTİF'))
  FROM (SELECT s.*, CURDATE() - INTERVAL MOD(seq * 37, 300) DAY - INTERVAL YIL * 366 DAY AS BASLAMA
    FROM (SELECT seq, CRC32(CONCAT('sözleşme', seq)) AS h, MOD((seq - 1) DIV 15, 3) AS YIL FROM seq_1_to_@CONTRACTS@) s) s;

INSERT INTO callerid (cid_tarih, cid_saat, cid_hat, cid_telefon)
  SELECT DATE('2026-01-01') + INTERVAL MOD(seq, 330) DAY, SEC_TO_TIME(28800 + MOD(CRC32(seq), 36000)), 1 + MOD(seq, 2), c.CA_CEP
  FROM seq_1_to_@CALLS@ s JOIN cari c ON c.CA_ID = @customers + 1 + MOD(s.seq, @CUSTOMERS@);

COMMIT;
