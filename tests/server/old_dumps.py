"""Writes dumps as old shops have them: old_dumps.py small AGE | old_dumps.py big SLIPS, to the standard output.

AGE is "4.1" (MyISAM, latin5, capitals, few columns), "5.0" (InnoDB, UTF-8, raw pictures) or "8.0" (utf8mb4, two databases, more columns).
"""

import sys

JPEG = b"\xff\xd8\xff\xe0 '\\\0\n\x1a picture \xff\xd9"
CUT = JPEG[:-2]

# Table, columns, rows. A text is data of the shop, bytes are a picture, None is NULL.
SLIP = ("TS_ID TS_NO TS_TARIH TS_SAAT TS_TURU TS_MUSTERI TS_TEL TS_C_SERINO TS_C_AD TS_DISSERVIS_CIKIS TS_DISSERVIS_GIRIS "
        "TS_DISSERVIS_TESLIM_SURE TS_TUTAR TS_TESLIM_TARIH TS_STAMP").split()


def slip(key, number, **values):
    row = dict.fromkeys(SLIP) | {"TS_ID": key, "TS_NO": number, "TS_TARIH": "2009-05-04", "TS_SAAT": "10:11:12", "TS_TURU": "ONARILIYOR",
                                 "TS_MUSTERI": "IŞIK ĞÜÖÇİ ğüşıöç", "TS_C_SERINO": "SN1", "TS_C_AD": "KLİMA", "TS_TUTAR": 12.5,
                                 "TS_STAMP": "2009-05-04 10:11:12"} | values
    return [row[name] for name in SLIP]


TABLES = {
    "cari": ("CA_ID CA_AD CA_TEL CA_CEP CA_ADRES".split(), [
        [1, "ALİ ‘IŞIK’ – €", "", "0532", "tırnak ' ters \\ satır\r\nsonu"],
        [2, "Ali ‘Işık’ – €", " ", "0533", None],
        [3, "VELİ", "0212", None, "x" * 201],
        [3, "VELİ", "0212", None, "x" * 201]]),
    "caricihaz": ("CH_ID CH_CA_ID CH_MODEL CH_SERI".split(), [[1, 1, "KOMBİ", "S1"], [2, 99, "KOMBİ", "s1 "]]),
    "disservis": (["DS_ID", "DS_AD"], [[1, None], [2, "ÖZ SERVİS"]]),
    "servistip": (["SERVIS_AD"], [["BAKIM"], ["bakım"], [""]]),
    "teknikservis": (SLIP, [
        slip(5, "100", TS_DISSERVIS_CIKIS="2009-05-05", TS_DISSERVIS_TESLIM_SURE=5, TS_TURU="DIŞ SERVİSTE"),
        slip(6, " 100", TS_TEL=""),
        slip(7, "101", TS_TARIH="2009-02-31", TS_SAAT="25:00:00", TS_TESLIM_TARIH="0000-00-00"),
        slip(7, "102", TS_C_AD="BAŞKA")]),
    "malzeme": ("MZ_ID TS_NO_REF MZ_PARCA_ADI MZ_ADET MZ_TUTAR".split(), [[1, 5, "FAN", "1.5000", "1234567.8912"], [2, 77, "KAYIP PARÇA", "1.0", "2.0"]]),
    "notlar": (["SF_TS_ID", "SF_NOT"], [[5, "birinci"], [5, "ikinci\n“satır”"], [6, None], [88, "kimsenin"]]),
    "foto": (["FT_ID", "FT_TS_ID", "FT_RESIM"], [[1, 5, JPEG], [2, 6, CUT], [3, 7, b"BM nothing"], [4, 99, JPEG], [5, 5, b""]]),
    "sozlesme": (["SOZ_ID", "SOZ_NO", "SOZ_CA_ID_REF", "SOZ_TUTAR"], [[1, "1", 3, 10], [2, "1", 98, 20]]),
    "sirket": (["SIRKET_ADI"], [["ESKİ DÜKKAN"], ["İKİNCİ"]]),
    "callerid": ("cid_no cid_tarih cid_saat cid_telefon".split(), [[1, "2009-05-04", "10:00:00", ""]]),
}


def escaped(data):
    for plain, code in ((b"\\", b"\\\\"), (b"'", b"\\'"), (b"\0", b"\\0"), (b"\n", b"\\n"), (b"\r", b"\\r"), (b"\x1a", b"\\Z")):
        data = data.replace(plain, code)
    return data


def literal(value, age):
    if value is None:
        return b"NULL"
    if isinstance(value, bytes):
        if age == "4.1":
            return b"0x" + value.hex().upper().encode() if value else b"''"
        return (b"_binary '" if age == "8.0" else b"'") + escaped(value) + b"'"
    if not isinstance(value, str):
        return str(value).encode()
    return b"'" + escaped(value.encode("cp1254" if age == "4.1" else "utf-8")) + b"'"


def small(age):
    out = sys.stdout.buffer
    put = lambda text: out.write(text.encode("cp1254" if age == "4.1" else "utf-8") + b"\n")
    put(f"-- MySQL dump 10.{age}\n--\n-- Host: localhost    Database: eski\n/* a word ; with ' signs */;")
    put({"4.1": "SET NAMES latin5;", "5.0": "/*!40101 SET NAMES utf8 */;", "8.0": "/*!50503 SET NAMES utf8mb4 */;"}[age])
    if age == "8.0":
        put("CREATE DATABASE /*!32312 IF NOT EXISTS*/ `baska` /*!40100 DEFAULT CHARACTER SET latin5 */;\nUSE `baska`;")
        put("CREATE TABLE `cari` (`CA_ID` int, `CA_AD` text);\nINSERT INTO `cari` VALUES (1,'BAŞKA DÜKKAN');\nUSE `eski`;")
    if age == "5.0":
        put("USE eski;")
    for table, (columns, rows) in TABLES.items():
        name = table.upper() if age == "4.1" else table
        more = []
        if age == "8.0" and table == "cari":
            more = [("CA_VERGI", "1234567890"), ("CA_BOS", None)]
            rows = rows + [[9, "Ţ漢", None, None, None]]
        if age == "4.1" and table == "teknikservis":
            columns, rows = columns[:-1], [row[:-1] for row in rows]
        lines = ",\n".join(f"  `{column}` varchar(255) collate latin5_turkish_ci default 'a,b(\\')'" for column in columns + [c for c, _ in more])
        put(f"DROP TABLE IF EXISTS `{name}`;\nCREATE TABLE `{name}` (\n{lines},\n  KEY `K` (`{columns[0]}`(10))\n) "
            f"{'TYPE=MyISAM' if age == '4.1' else 'ENGINE=InnoDB'} DEFAULT CHARSET=latin5;\nLOCK TABLES `{name}` WRITE;")
        texts = [b"(" + b",".join(literal(value, age) for value in row + [v for _, v in more]) + b")" for row in rows]
        for part in [[text] for text in texts] if age == "5.0" else [texts]:
            out.write(b"INSERT INTO `" + name.encode() + b"` VALUES " + b",".join(part) + b";\n")
        put("UNLOCK TABLES;")
    if age == "5.0":
        put("DELIMITER ;;\n/*!50003 CREATE TRIGGER t AFTER INSERT ON cari FOR EACH ROW BEGIN INSERT INTO cari VALUES (1); END */;;\nDELIMITER ;")
    if age != "4.1":
        put("-- Dump completed on 2009-05-04 10:11:12")


def big(slips):
    out = sys.stdout.buffer
    out.write(b"/*!40101 SET NAMES utf8 */;\n")
    for table in ("cari", "teknikservis", "malzeme", "notlar"):
        columns = TABLES[table][0]
        out.write(f"CREATE TABLE `{table}` ({', '.join(f'`{column}` text' for column in columns)});\n".encode())
    for begin in range(1, slips + 1, 500):
        keys = range(begin, min(begin + 500, slips + 1))
        rows = {"cari": [[key, f"MÜŞTERİ – {key // 5 if key % 50 == 0 else key}", "", f"05{key:08}", "ATATÜRK CAD."] for key in keys],
                "teknikservis": [slip(key, str(100 + key - key % 1000 // 999), TS_TEL="", TS_DISSERVIS_CIKIS="2010-01-01" if key % 9 == 0 else None)
                                 for key in keys],
                "malzeme": [[key * 2 + one, key + slips * (key % 100 == 0), "ŞARJ SOKETİ", "1.00", "25.50"] for key in keys for one in (0, 1)],
                "notlar": [[key, f"“not” {key}"] for key in keys] + [[begin, "ikinci"]]}
        for table, lines in rows.items():
            out.write(f"INSERT INTO `{table}` VALUES ".encode() + b",".join(
                b"(" + b",".join(literal(value, "5.0") for value in line) + b")" for line in lines) + b";\n")
    out.write(b"-- Dump completed\n")


small(sys.argv[2]) if sys.argv[1] == "small" else big(int(sys.argv[2]))
