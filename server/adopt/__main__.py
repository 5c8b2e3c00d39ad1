"""Brings the data of a dump into a new instance.

adopt read COLUMNS DUMP FOLDER    writes the statements for the instance's administrator, with an empty database for staging, to the
                                  standard output; COLUMNS lists table, column and type, a line each, parted by tabs
adopt tell FOLDER                 reads what the statements gave back from the standard input, ends the report and sums it up
FOLDER takes the report and what found no place in the tables.
"""

import collections
import pathlib
import re
import sys

import staging
from dump_reader import DumpReader
from values import Values, latin5_text, raw

PHONES = {"CA_TEL", "CA_TEL2", "CA_CEP", "TS_TEL", "TS_TEL2", "TS_CEP"}
# Made anew by the server or by the program; none of them holds a user's word.
OWN_COLUMNS = {"CA_STAMP", "CH_STAMP", "C_STAMP", "DS_STAMP", "TS_STAMP", "SOZ_STAMP", "SIRKET_ID", "DOVIZ_ID"}
OWN_TABLES = {"schema_version", "backup_state"}
WHOLE = {"smallint": 15, "int": 31, "bigint": 63}
BATCH_BYTES = 1 << 20


def read_columns(path):
    columns = {table: [] for table in staging.ORDER}
    for line in open(path, encoding="utf-8"):
        table, name, kind = line.rstrip("\n").split("\t")
        if table in columns and name not in OWN_COLUMNS:
            columns[table].append((name, kind))
    return columns


class Taker:
    """Writes the rows of a dump as statements, and counts and notes what did not fit."""

    def __init__(self, columns, dump, folder, out):
        self.columns = columns
        self.folder = folder
        self.out = out
        self.reader = DumpReader(dump, folder)
        self.values = Values(self.reader, self.note)
        self.report = open(folder / "report.txt", "w", encoding="utf-8")
        self.counts = collections.Counter()
        self.taken = collections.Counter()
        self.left = collections.Counter()
        self._problems = []
        self._plans = {}
        self._waiting = {}

    def note(self, kind, column, text):
        self._problems.append((kind, column, text))

    def tell(self, kind, text):
        self.counts[kind] += 1
        self.report.write(f"{kind}\t{text}\n")

    def keep_picture(self, data):
        place = self.folder / "pictures"
        place.mkdir(exist_ok=True)
        name = f"unreadable-{self.counts['pictures that cannot be read, put into files']}.bin"
        (place / name).write_bytes(data)
        return name

    def _converter(self, name, kind):
        kind = kind.lower()
        if match := re.match(r"(?:var)?char\((\d+)\)", kind):
            return self.values.text(name, int(match.group(1)), name in PHONES)
        if kind == "longtext":
            return self.values.text(name, 1 << 30)
        if kind == "longblob":
            return self.values.picture(name, self.keep_picture)
        for whole, bits in WHOLE.items():
            if kind.startswith(whole):
                return self.values.number(name, -(1 << bits), (1 << bits) - 1)
        if kind.startswith("datetime"):
            return self.values.moment(name)
        simple = {"date": self.values.date, "time": self.values.time}.get(kind)
        return simple(name) if simple else self.values.number(name)

    def _plan(self, table, columns):
        """Head of the statement, places of the values and how each is converted, places of what has no column."""
        place = {name: at for at, name in enumerate(columns)}
        known = [(name, kind) for name, kind in self.columns[table] if name.lower() in place]
        head = f"INSERT INTO {table} (ROW_HASH, {', '.join(name for name, _ in known)}) VALUES\n" if known else ""
        fields = [(place[name.lower()], self._converter(name, kind)) for name, kind in known]
        known_names = {name.lower() for name, _ in known} | {name.lower() for name in OWN_COLUMNS}
        return head.encode(), fields, [(at, name) for name, at in place.items() if name not in known_names]

    def row(self, table, columns, tokens):
        plan = self._plans.get((table, tuple(columns)))
        if plan is None:
            plan = self._plans[table, tuple(columns)] = self._plan(table, columns)
        head, fields, unknown = plan
        if not fields:
            self.tell("rows without a known column, left out", table)
            return
        texts = [convert(tokens[at]) for at, convert in fields]
        for at, name in unknown:
            if raw(tokens[at]) not in (None, b"", b"0", b"0.00", b"0000-00-00"):
                self.note("values of columns that the program does not know, left out", name, self.values.text_of(raw(tokens[at])))
        if self._problems:
            where = f"{table} {columns[0].upper()}={latin5_text(raw(tokens[0]) or b'')}"
            for kind, column, text in self._problems:
                self.tell(kind, f"{where} {column}" + ("" if text is None else f": {text}"))
            self._problems.clear()
        waiting = self._waiting.setdefault(head, [0, []])
        line = b"(%d,%s)" % (hash(b",".join(tokens)), b",".join(texts))
        waiting[0] += len(line)
        waiting[1].append(line)
        if waiting[0] > BATCH_BYTES:
            self._send(head)
        self.taken[table] += 1

    def _send(self, head):
        self.out.write(head + b",\n".join(self._waiting.pop(head)[1]) + b";\n")

    def run(self):
        self._statements(staging.tables(self.columns))
        wanted = self.reader.database_of("teknikservis")
        for database, table, columns, tokens in self.reader.rows():
            if table in OWN_TABLES:
                continue
            if table not in self.columns or database != wanted:
                self.left[f"{database}.{table}".lstrip(".")] += 1
                continue
            self.row(table, columns, tokens)
        for head in list(self._waiting):
            self._send(head)
        self._statements(staging.settle(self.columns))
        for name, count in self.left.items():
            self.counts["rows of other tables, left out"] += count
            self.report.write(f"rows of other tables, left out\t{name}: {count} rows\n")
        for problem in self.reader.problems:
            self.tell("what could not be read in the dump", problem)
        if not self.reader.whole:
            self.tell("signs of an end that the dump lacks", "it may have been cut, or written by a tool that leaves no sign")
        if not self.taken:
            raise SystemExit("kvtk-server: the dump holds no row of a table that the program knows")
        with open(self.folder / "counts", "w", encoding="utf-8") as file:
            for table, count in self.taken.items():
                file.write(f"TABLE\t{table}\t{count}\n")
            for kind, count in self.counts.items():
                file.write(f"{kind}\t{count}\n")

    def _statements(self, statements):
        for statement in statements:
            self.out.write(statement.encode("iso8859-9") + b"\n")


def tell(folder, answers):
    """Sums up what came of a dump: rows that went in of those that it holds, and what did not fit, by kind."""
    counts, came, went = collections.Counter(), {}, {}
    for line in open(folder / "counts", encoding="utf-8"):
        parts = line.rstrip("\n").split("\t")
        if parts[0] == "TABLE":
            came[parts[1]] = int(parts[2])
        else:
            counts[parts[0]] += int(parts[1])
    (folder / "counts").unlink()
    with open(folder / "report.txt", "a", encoding="utf-8") as report:
        for line in answers:
            kind, name, text = latin5_text(line.rstrip(b"\n")).split("\t", 2)
            if kind == "TABLE":
                went[name] = int(text)
            elif kind == "FINDING":
                counts[name] += 1
                report.write(f"{name}\t{text}\n")
            elif kind == "PICTURE":
                (folder / "pictures").mkdir(exist_ok=True)
                (folder / "pictures" / f"{name}.jpg").write_bytes(bytes.fromhex(text))
    for table in staging.ORDER:
        if came.get(table):
            print(f"{table}: {went[table] if table not in staging.SINGLE else 1} of {came[table]} rows")
    for kind, count in sorted(counts.items()):
        print(f"{count} {kind}")
    if counts:
        print(f"each of these stands in {folder}/report.txt")


if __name__ == "__main__":
    if sys.argv[1] == "read":
        Taker(read_columns(sys.argv[2]), sys.argv[3], pathlib.Path(sys.argv[4]), sys.stdout.buffer).run()
    else:
        tell(pathlib.Path(sys.argv[2]), sys.stdin.buffer)
