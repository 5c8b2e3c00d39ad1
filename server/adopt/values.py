"""Turns a dump's tokens into what the tables hold, and tells what did not fit."""

import datetime
import re
import unicodedata

# Bytes of ISO 8859-9, with the Turkish Windows code page's characters at 0x80 to 0x9F: what existing data holds there.
CHARACTERS = [bytes([byte]).decode("cp1254", "ignore") or chr(byte) for byte in range(256)]
BYTES = {character: byte for byte, character in enumerate(CHARACTERS)}
# Turkish letters that went through a Western code page once.
WESTERN = str.maketrans("ÐÝÞðýþ", "ĞİŞğış")
ESCAPE = re.compile(rb"\\(.)|''", re.S)
ESCAPED = {b"0": b"\0", b"n": b"\n", b"r": b"\r", b"t": b"\t", b"b": b"\b", b"Z": b"\x1a"}
TOKEN = re.compile(rb"(?:_(\w+)\s*)?([xXbBnN]?)(['\"])(.*)\3", re.S)
DATE = re.compile(r"(\d{4})-(\d\d?)-(\d\d?)(?:[ T].*)?")
TIME = re.compile(r"(\d\d?):(\d\d?)(?::(\d\d?)(?:\.\d*)?)?")


SPECIAL = re.compile(rb"[\\'\0\r\n]")
WRITTEN = {b"\\": b"\\\\", b"'": b"\\'", b"\0": b"\\0", b"\r": b"\\r", b"\n": b"\\n"}


def quoted(data):
    return b"'" + SPECIAL.sub(lambda found: WRITTEN[found.group()], data) + b"'"


def raw(token):
    """The bytes of a token without quotes and escapes; None for NULL."""
    if token[:2] in (b"0x", b"0X"):
        return _from_hex(token[2:])
    match = TOKEN.fullmatch(token)
    if not match:
        return None if token.upper() == b"NULL" else token
    inner = match.group(4)
    if match.group(2) in (b"x", b"X"):
        return _from_hex(inner)
    if b"\\" not in inner and b"''" not in inner:
        return inner
    return ESCAPE.sub(lambda found: ESCAPED.get(found.group(1), found.group(1)) if found.group(1) else b"'", inner)


def _from_hex(digits):
    return bytes.fromhex(("0" * (len(digits) % 2)) + digits.decode("ascii"))


def latin5_text(data):
    return "".join(map(CHARACTERS.__getitem__, data))


class Values:
    """Conversions for one dump. note(kind, column, text) is called for what did not fit."""

    def __init__(self, reader, note):
        self._reader = reader
        self._note = note

    def text_of(self, data):
        """Bytes of the dump as text. A dump that claims UTF-8 may hold other bytes, and one that claims nothing either."""
        if data.isascii():
            return data.decode("ascii")
        if self._reader.charset in (None, "utf8", "utf8mb3", "utf8mb4", "binary"):
            try:
                return data.decode("utf-8")
            except UnicodeDecodeError:
                pass
        return latin5_text(data)

    def _to_bytes(self, text, column):
        try:
            return bytes(map(BYTES.__getitem__, text))
        except KeyError:
            pass
        western = text.translate(WESTERN)
        if western != text:
            self._note("Turkish letters that a Western code page had changed, put right", column, text)
        out = bytearray()
        lost = False
        for character in unicodedata.normalize("NFC", western):
            if character in BYTES:
                out.append(BYTES[character])
                continue
            lost = True
            nearest = [BYTES[part] for part in unicodedata.normalize("NFKD", character) if part in BYTES]
            out += bytes(nearest) or b"?"
        if lost:
            self._note("texts with characters that no column can hold, brought to the nearest ones", column, text)
        return bytes(out)

    def text(self, column, width, phone=False):
        def convert(token):
            if token[:1] == b"'" and 2 < len(token) <= width + 2 and token.isascii() and b"\\" not in token and b"''" not in token \
                    and not phone:
                return token
            data = raw(token)
            if data is None:
                return b"NULL"
            if phone and not data.strip():
                self._note("empty telephone numbers, now none at all", column, None)
                return b"NULL"
            if not data:
                return b"NULL"
            data = self._to_bytes(self.text_of(data), column)
            if len(data) > width:
                self._note("texts too long for their column, cut", column, latin5_text(data))
                data = data[:width]
            return quoted(data)
        return convert

    def date(self, column):
        def convert(token):
            text = (raw(token) or b"").decode("latin-1").strip()
            if not text:
                return b"NULL"
            if re.fullmatch(r"\d{8}(\d{6})?", text):
                text = f"{text[:4]}-{text[4:6]}-{text[6:8]}"
            match = DATE.fullmatch(text)
            if match and all(int(part) == 0 for part in match.groups()):
                return b"'0000-00-00'"
            try:
                return b"'%s'" % datetime.date(*map(int, match.groups())).isoformat().encode()
            except (AttributeError, ValueError):
                self._note("dates that no calendar has, taken out", column, text)
                return b"NULL"
        return convert

    def moment(self, column):
        date = self.date(column)

        def convert(token):
            text = (raw(token) or b"").decode("latin-1").strip()
            if re.fullmatch(r"\d{14}", text):
                text = f"{text[:4]}-{text[4:6]}-{text[6:8]} {text[8:10]}:{text[10:12]}:{text[12:]}"
            day = date(token)
            clock = TIME.search(text, 11)
            if day in (b"NULL", b"'0000-00-00'") or not clock:
                return day
            return day[:-1] + b" " + clock.group().encode() + b"'"
        return convert

    def time(self, column):
        def convert(token):
            text = (raw(token) or b"").decode("latin-1").strip()
            if not text:
                return b"NULL"
            match = TIME.fullmatch(text)
            if match and int(match.group(1)) < 24 and int(match.group(2)) < 60 and int(match.group(3) or 0) < 60:
                return b"'%s'" % text.encode()
            self._note("times that no clock shows, taken out", column, text)
            return b"NULL"
        return convert

    def number(self, column, low=None, high=None):
        """Any number; with bounds a whole one between them."""
        def convert(token):
            data = raw(token)
            text = "" if data is None else data.decode("latin-1").strip()
            if not text:
                return b"NULL"
            if "," in text:
                text = text.replace(".", "").replace(",", ".")
            try:
                number = float(text)
                if low is not None and (number != int(number) or not low <= int(text) <= high) or number - number != 0:
                    raise ValueError
                return text.encode()
            except ValueError:
                self._note("values that are no number, taken out", column, text)
                return b"NULL"
        return convert

    def picture(self, column, keep):
        """keep(bytes) puts what is no picture into a file and gives its name."""
        def convert(token):
            data = raw(token)
            if data is None:
                return b"NULL"
            if not data:
                return b"''"
            if data[:2] != b"\xff\xd8":
                self._note("pictures that cannot be read, put into files", column, keep(data))
                return b"''"
            if data.rstrip(b"\0")[-2:] != b"\xff\xd9":
                self._note("cut pictures, kept as they are", column, f"{len(data)} bytes")
            return b"0x" + data.hex().encode()
        return convert
