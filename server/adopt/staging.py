"""The statements that bring rows from the tables into which a dump is read to those of the program."""

KEYS = {"cari": "CA_ID", "caricihaz": "CH_ID", "cihaz": "C_ID", "disservis": "DS_ID", "teknikservis": "TS_ID", "malzeme": "MZ_ID",
        "foto": "FT_ID", "sozlesme": "SOZ_ID", "callerid": "cid_no"}
# Unique columns, their widths, and what rows with a value that is taken are told by.
UNIQUE = {"cari": ("CA_AD", 100, "customers whose names differ from another's in case or blanks alone"),
          "caricihaz": ("CH_SERI", 30, "devices with another one's serial number"),
          "sozlesme": ("SOZ_NO", 15, "contracts with another one's number"),
          "teknikservis": ("TS_NO", 15, "slips with another one's number")}
# Table, its column that names a slip, and what stays of a row in the report.
OF_SLIPS = {"malzeme": ("TS_NO_REF", "lines", "CONCAT_WS(' | ', MZ_SIRANO, MZ_PARCA_ADI, MZ_ADET, MZ_TUTAR)"),
            "notlar": ("SF_TS_ID", "notes", "SF_NOT"),
            "foto": ("FT_TS_ID", "pictures", "CONCAT(COALESCE(LENGTH(FT_RESIM), 0), ' bytes')")}
SINGLE = ("sirket", "doviz")
# What is referred to comes before what refers to it.
ORDER = ("cari", "caricihaz", "cihaz", "disservis", "servistip", "sozlesme", "teknikservis", "malzeme", "foto", "notlar", "callerid", "sirket",
         "doviz")


def finding(kind, text, rows):
    kind = kind.replace("'", "''")
    return f"INSERT INTO finding (KIND, WHAT) SELECT '{kind}', {text} FROM {rows};"


def tables(columns):
    """Makes a table for each of the program's, without keys, so that every row finds a place."""
    yield "SET SESSION sql_mode = 'NO_ENGINE_SUBSTITUTION';"
    yield "CREATE TABLE finding (NO INT AUTO_INCREMENT PRIMARY KEY, KIND VARCHAR(120), WHAT LONGTEXT) ENGINE=Aria TRANSACTIONAL=0;"
    for table, fields in columns.items():
        names = ", ".join(f"{name} {kind}" for name, kind in fields)
        key = KEYS.get(table)
        index = f", KEY ({key})" if key else ""
        index += f", KEY ({OF_SLIPS[table][0]})" if table in OF_SLIPS else ""
        yield (f"CREATE TABLE {table} (ROW_NO BIGINT AUTO_INCREMENT PRIMARY KEY, ROW_HASH BIGINT, {names}{index}) "
               "ENGINE=Aria TRANSACTIONAL=0 DEFAULT CHARSET=latin5 COLLATE=latin5_turkish_ci;")


def settle_keys(table):
    """Rows that stand twice go; others with a taken or missing key get a new one."""
    key = KEYS[table]
    yield (f"CREATE TEMPORARY TABLE taken (PRIMARY KEY (ROW_NO)) SELECT * FROM (SELECT ROW_NO, {key}, ROW_HASH, "
           f"ROW_NUMBER() OVER (PARTITION BY {key} ORDER BY ROW_NO) AS PLACE, "
           f"FIRST_VALUE(ROW_HASH) OVER (PARTITION BY {key} ORDER BY ROW_NO) AS FIRST_HASH FROM {table} WHERE {key} > 0) p WHERE PLACE > 1;")
    yield finding("rows that stand twice, taken once", f"CONCAT('{table} {key} ', {key})", "taken WHERE ROW_HASH = FIRST_HASH")
    yield f"DELETE {table} FROM {table} JOIN taken USING (ROW_NO) WHERE taken.ROW_HASH = FIRST_HASH;"
    yield finding("rows whose key another one has, under a new key", f"CONCAT('{table} {key} ', {key})", "taken WHERE ROW_HASH <> FIRST_HASH")
    yield f"UPDATE {table} JOIN taken USING (ROW_NO) SET {table}.{key} = NULL;"
    yield f"SET @next = (SELECT COALESCE(MAX({key}), 0) FROM {table});"
    yield f"UPDATE {table} SET {key} = (@next := @next + 1) WHERE COALESCE({key}, 0) <= 0;"
    yield "DROP TEMPORARY TABLE taken;"


def settle_names(table):
    """The second owner of a unique value gets a number behind it. Values that blanks alone tell apart are the same."""
    column, width, told = UNIQUE[table]
    key = KEYS[table]
    yield finding("values with blanks around them, taken off", f"CONCAT('{table} {key} ', {key}, ': \"', {column}, '\"')",
                  f"{table} WHERE LENGTH({column}) <> LENGTH(TRIM({column}))")
    yield f"UPDATE {table} SET {column} = NULLIF(TRIM({column}), '') WHERE {column} IS NOT NULL;"
    yield (f"CREATE TEMPORARY TABLE twice (PRIMARY KEY (ROW_NO)) SELECT ROW_NO, {key}, {column}, PLACE FROM (SELECT ROW_NO, {key}, {column}, "
           f"ROW_NUMBER() OVER (PARTITION BY {column} ORDER BY {key}) AS PLACE FROM {table} WHERE {column} IS NOT NULL) p WHERE PLACE > 1;")
    yield (f"UPDATE {table} JOIN twice USING (ROW_NO) SET {table}.{column} = "
           f"CONCAT(LEFT(twice.{column}, {width} - 1 - LENGTH(twice.{key})), '/', twice.{key});")
    yield finding(f"{told}, with the key behind it", f"CONCAT('{table} {key} ', twice.{key}, ': ', twice.{column}, ' -> ', {table}.{column})",
                  f"twice JOIN {table} USING (ROW_NO)")
    yield "DROP TEMPORARY TABLE twice;"


def settle_slips():
    yield ("CREATE TEMPORARY TABLE note (PRIMARY KEY (ROW_NO)) SELECT SF_TS_ID, GROUP_CONCAT(DISTINCT SF_NOT ORDER BY ROW_NO SEPARATOR '\\r\\n') AS SF_NOT, "
           "COUNT(*) AS NOTES, MIN(ROW_NO) AS ROW_NO FROM notlar WHERE SF_TS_ID IS NOT NULL GROUP BY SF_TS_ID HAVING COUNT(*) > 1;")
    yield finding("slips with more than one note, joined", "CONCAT('TS_ID ', SF_TS_ID, ': ', NOTES, ' notes')", "note")
    yield "DELETE notlar FROM notlar JOIN note USING (SF_TS_ID) WHERE notlar.ROW_NO <> note.ROW_NO;"
    yield "UPDATE notlar JOIN note USING (ROW_NO) SET notlar.SF_NOT = note.SF_NOT;"
    for table, (column, told, text) in OF_SLIPS.items():
        gone = f"{table} LEFT JOIN teknikservis ON TS_ID = {column} WHERE TS_ID IS NULL"
        yield finding(f"{told} of slips that are gone, left out", f"CONCAT('{column} ', COALESCE({column}, '?'), ': ', COALESCE({text}, ''))",
                      gone + (" AND SF_NOT IS NOT NULL" if table == "notlar" else ""))
        if table == "foto":
            yield f"SELECT 'PICTURE', CONCAT('gone-', COALESCE({column}, 'x'), '-', FT_ID), HEX(FT_RESIM) FROM {gone} AND LENGTH(FT_RESIM) > 0;"
        yield f"DELETE {table} FROM {gone};"
    yield ("CREATE TEMPORARY TABLE older (PRIMARY KEY (ROW_NO)) SELECT ROW_NO, FT_TS_ID, FT_ID FROM (SELECT ROW_NO, FT_TS_ID, FT_ID, ROW_NUMBER() OVER "
           "(PARTITION BY FT_TS_ID ORDER BY COALESCE(LENGTH(FT_RESIM), 0) > 0 DESC, FT_ID DESC) AS PLACE FROM foto) p WHERE PLACE > 1;")
    some = "older JOIN foto USING (ROW_NO) WHERE LENGTH(FT_RESIM) > 0"
    yield finding("second pictures of a slip, put into files", "CONCAT('FT_TS_ID ', foto.FT_TS_ID)", some)
    yield f"SELECT 'PICTURE', CONCAT('older-', foto.FT_TS_ID, '-', foto.FT_ID), HEX(FT_RESIM) FROM {some};"
    yield "DELETE foto FROM foto JOIN older USING (ROW_NO);"


def settle_references():
    for table, column in (("caricihaz", "CH_CA_ID"), ("sozlesme", "SOZ_CA_ID_REF")):
        key = KEYS[table]
        gone = f"{table} LEFT JOIN cari ON CA_ID = {column}"
        yield finding("rows of customers who are gone, kept without an owner", f"CONCAT('{table} {key} ', {key}, ': {column} ', {column})",
                      f"{gone} WHERE {column} IS NOT NULL AND CA_ID IS NULL")
        yield f"UPDATE {gone} SET {column} = NULL WHERE CA_ID IS NULL;"
    yield finding("firms without a name, given one", "CONCAT('DS_ID ', DS_ID)", "disservis WHERE COALESCE(DS_AD, '') = ''")
    yield "UPDATE disservis SET DS_AD = CONCAT('ADSIZ FİRMA ', DS_ID) WHERE COALESCE(DS_AD, '') = '';"
    yield ("CREATE TEMPORARY TABLE word (PRIMARY KEY (ROW_NO)) SELECT MIN(ROW_NO) AS ROW_NO FROM servistip WHERE COALESCE(SERVIS_AD, '') <> '' "
           "GROUP BY SERVIS_AD;")
    yield finding("service types that stand twice or have no name, left out", "COALESCE(SERVIS_AD, '')",
                  "servistip LEFT JOIN word USING (ROW_NO) WHERE word.ROW_NO IS NULL")
    yield "DELETE servistip FROM servistip LEFT JOIN word USING (ROW_NO) WHERE word.ROW_NO IS NULL;"
    for table in SINGLE:
        column = "SIRKET_ADI" if table == "sirket" else "TARIH"
        yield finding("further rows of tables that have one, left out", f"CONCAT('{table}: ', COALESCE({column}, ''))",
                      f"{table} WHERE ROW_NO > (SELECT MIN(ROW_NO) FROM {table})")


def settle_dates():
    out = "TS_DISSERVIS_CIKIS > '0000-00-00' AND TS_DISSERVIS_GIRIS IS NULL"
    yield finding("slips sent out that would be missing in the overdue list, put right", "CONCAT('TS_ID ', TS_ID)", f"teknikservis WHERE {out}")
    yield f"UPDATE teknikservis SET TS_DISSERVIS_GIRIS = '0000-00-00' WHERE {out};"


def move(columns):
    """Fills the program's tables, and tells how many rows came and went in."""
    for table, fields in columns.items():
        names = ", ".join(name for name, _ in fields)
        if table in SINGLE:
            yield f"SET @one = (SELECT MIN(ROW_NO) FROM {table});"
            yield f"DELETE FROM kvtk.{table} WHERE @one IS NOT NULL;"
            yield f"INSERT INTO kvtk.{table} ({names}) SELECT {names} FROM {table} WHERE ROW_NO = @one;"
        elif table == "notlar":
            yield "UPDATE kvtk.notlar JOIN notlar USING (SF_TS_ID) SET kvtk.notlar.SF_NOT = notlar.SF_NOT WHERE notlar.SF_NOT IS NOT NULL;"
        else:
            key = KEYS.get(table)
            yield f"INSERT INTO kvtk.{table} ({names}) SELECT {names} FROM {table}{f' ORDER BY {key}' if key else ''};"
        yield f"SELECT 'TABLE', '{table}', COUNT(*) FROM {table};"
    yield "SELECT 'FINDING', KIND, COALESCE(WHAT, '') FROM finding ORDER BY NO;"


def settle(columns):
    yield "SET SESSION group_concat_max_len = 1073741824;"
    for table in KEYS:
        yield from settle_keys(table)
    for table in UNIQUE:
        yield from settle_names(table)
    yield from settle_slips()
    yield from settle_references()
    yield from settle_dates()
    yield from move(columns)
