"""Reads a dump of a MySQL or MariaDB server, of any age, as rows of unconverted tokens."""

import gzip
import mmap
import os
import re
import shutil
import tempfile

# What may stand between statements and words. Text in /*! */ is an old server's way to speak to a newer one.
GAP = re.compile(rb"(?:[\s;]++|--[^\n]*+(?:\n|$)|\#[^\n]*+(?:\n|$)|/\*.*?\*/)*+", re.S)
NAMES = re.compile(rb"SET\s+NAMES\s+'?(\w+)", re.I)
IDENTIFIER = rb"(?:`(?:[^`]|``)*`|\"(?:[^\"]|\"\")*\"|[^\s`\"(),.;]+)"
TABLE = re.compile(rb"\s*(?:(" + IDENTIFIER + rb")\s*\.\s*)?(" + IDENTIFIER + rb")\s*")
CREATE = re.compile(rb"CREATE\s+(?:TEMPORARY\s+)?TABLE\s+(?:IF\s+NOT\s+EXISTS\s+)?", re.I)
INSERT = re.compile(rb"(?:INSERT|REPLACE)\s+(?:(?:LOW_PRIORITY|DELAYED|HIGH_PRIORITY|IGNORE)\s+)*(?:INTO\s+)?", re.I)
VALUES = re.compile(rb"VALUES?\s*", re.I)
USE = re.compile(rb"USE\s+(" + IDENTIFIER + rb")", re.I)
DELIMITER = re.compile(rb"DELIMITER\s.*?^\s*DELIMITER\s+;[^\n]*", re.I | re.S | re.M)
# A piece of any statement: a quoted text whole, or what lies between.
PIECE = re.compile(rb"'(?:[^'\\]++|\\.|'')*+'|\"(?:[^\"\\]++|\\.|\"\")*+\"|`[^`]*+`|/\*.*?\*/|--\s[^\n]*+|[^'\"`;(),/-]++|.", re.S)
VALUE = re.compile(
    rb"\s*((?:_\w+\s*)?(?:[xXbBnN]?'(?:[^'\\]++|\\.|'')*+'|\"(?:[^\"\\]++|\\.|\"\")*+\")|[^\s,()'\"]++)\s*([,)])", re.S)
ROW = re.compile(rb"[\s,]*\(")
NOT_A_COLUMN = {"primary", "key", "unique", "index", "constraint", "fulltext", "foreign", "spatial", "check", "period"}


def bare(identifier):
    """A name without its quotes, as text."""
    if identifier[:1] in (b"`", b'"'):
        quote = identifier[:1]
        identifier = identifier[1:-1].replace(quote * 2, quote)
    return identifier.decode("utf-8", "replace")


class DumpReader:
    """rows() goes through the dump once; afterwards `problems` holds what could not be read, as texts."""

    def __init__(self, path, folder):
        self.problems = []
        self.charset = None
        self.whole = False  # the tool that wrote it came to its end
        self._columns = {}
        self._database = ""
        self._file = open(_plain(path, folder), "rb")
        size = os.fstat(self._file.fileno()).st_size
        self._data = mmap.mmap(self._file.fileno(), 0, access=mmap.ACCESS_READ) if size else b""

    def database_of(self, table):
        """The first database in the dump that has the table; empty when the dump names none."""
        database = ""
        marks = re.compile(rb"^(?:USE\s+(" + IDENTIFIER + rb")|CREATE\s+TABLE\s+(?:IF\s+NOT\s+EXISTS\s+)?|(?:INSERT|REPLACE)\s+INTO\s+)", re.I | re.M)
        for mark in marks.finditer(self._data):
            if mark.group(1):
                database = bare(mark.group(1)).lower()
            elif (match := TABLE.match(self._data, mark.end())) and bare(match.group(2)).lower() == table:
                return bare(match.group(1)).lower() if match.group(1) else database
        return ""

    def rows(self):
        """Yields (database, table in small letters, columns in small letters, tokens)."""
        data, position = self._data, 0
        while True:
            gap = GAP.match(data, position)
            self._read_gap(gap.group())
            position = gap.end()
            if position >= len(data):
                return
            try:
                if match := CREATE.match(data, position):
                    position = self._create(match.end())
                elif match := INSERT.match(data, position):
                    position = yield from self._insert(match.end())
                elif match := USE.match(data, position):
                    self._database = bare(match.group(1)).lower()
                    position = match.end()
                elif match := DELIMITER.match(data, position):
                    position = match.end()
                else:
                    position = self._skip(position, names=True)
            except _Damaged as damage:
                self.problems.append(f"the dump is damaged near byte {damage.position}: {damage}")
                position = self._next_statement(damage.position)

    def _read_gap(self, text):
        if match := NAMES.search(text):
            self.charset = match.group(1).decode("ascii").lower()
        if b"-- Dump completed" in text:
            self.whole = True

    def _skip(self, position, names=False):
        """The end of the statement that begins at position."""
        begin = position
        while match := PIECE.match(self._data, position):
            position = match.end()
            if match.group() == b";":
                break
        if names and position - begin < 200:
            self._read_gap(self._data[begin:position])
        return position

    def _next_statement(self, position):
        match = re.compile(rb"\n(?=\s*(?:INSERT|REPLACE|CREATE|DROP|LOCK|UNLOCK|USE|ALTER|/\*|--))", re.I).search(self._data, position)
        return match.end() if match else len(self._data)

    def _name(self, position):
        match = TABLE.match(self._data, position)
        if not match:
            raise _Damaged("a table's name was expected", position)
        database = bare(match.group(1)).lower() if match.group(1) else self._database
        return database, bare(match.group(2)).lower(), match.end()

    def _create(self, position):
        database, table, position = self._name(position)
        columns, depth, first = [], 0, False
        while match := PIECE.match(self._data, position):
            piece = match.group()
            position = match.end()
            if piece == b"(":
                depth += 1
                first = first or depth == 1
            elif piece == b")":
                depth -= 1
            elif piece == b"," and depth == 1:
                first = True
            elif piece == b";":
                self._columns[database, table] = columns
                return position
            elif first and piece.strip():
                first = False
                word = piece.split()[0]
                if word[:1] in (b"`", b'"') or bare(word).lower() not in NOT_A_COLUMN:
                    columns.append(bare(word).lower())
        raise _Damaged(f"the description of {table} has no end", len(self._data))

    def _insert(self, position):
        data = self._data
        database, table, position = self._name(position)
        columns = self._columns.get((database, table)) or self._columns.get(("", table))
        if data[position:position + 1] == b"(":
            end = data.find(b")", position)
            columns = [bare(name).lower() for name in re.findall(IDENTIFIER, data[position + 1:end])]
            position = GAP.match(data, end + 1).end()
        match = VALUES.match(data, position)
        if not match or columns is None:
            self.problems.append(f"rows of {table} cannot be read: " +
                                 ("the dump does not tell its columns" if match else "they are not written as VALUES"))
            return self._skip(position)
        position = match.end()
        value = VALUE.match
        count = len(columns)
        while match := ROW.match(data, position):
            begin = position
            position = match.end()
            tokens = []
            while match := value(data, position):
                tokens.append(match.group(1))
                position = match.end()
                if match.group(2) == b")":
                    break
            else:
                raise _Damaged(f"a row of {table} has no end", begin)
            if len(tokens) != count:
                self.problems.append(f"a row of {table} near byte {begin} has {len(tokens)} values for {count} columns and was left out: "
                                     + data[begin:min(position, begin + 300)].decode("latin-1"))
                continue
            yield database, table, columns, tokens
        return self._skip(position)


class _Damaged(Exception):
    def __init__(self, text, position):
        super().__init__(text)
        self.position = position


def _plain(path, folder):
    """The dump as a file of bytes: unpacked, and as UTF-8 where a shell wrote UTF-16."""
    with open(path, "rb") as file:
        head = file.read(2)
    if head not in (b"\x1f\x8b", b"\xff\xfe", b"\xfe\xff"):
        return path
    plain = tempfile.NamedTemporaryFile(dir=folder, prefix="dump.", delete=False)
    with plain:
        if head == b"\x1f\x8b":
            with gzip.open(path) as packed:
                shutil.copyfileobj(packed, plain, 1 << 20)
        else:
            with open(path, encoding="utf-16", errors="surrogatepass", newline="") as text:
                while part := text.read(1 << 20):
                    plain.write(part.encode("utf-8", "surrogatepass"))
    return plain.name
