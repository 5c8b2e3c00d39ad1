"""Brings the files that an older program kept beside itself to those of this one: files.py FOLDER PROGRAM BEFORE.

What stood there before goes to the folder BEFORE, so that nothing is lost. Names are found in capitals or small letters.
"""

import pathlib
import shutil
import sys

from values import latin5_text

TEXTS = ["Parametreler.dat", "Parametreler.ini", "Sms.ini", "Smtp.ini", "smtpsablon.txt", "Sunucular.ini"]
PICTURES = ["masaustu.png"]
# Columns and window places of another toolkit, and colours in its own bytes.
FOREIGN = {"islemrenk.dat": "colours of statuses, to be chosen anew", "servisfis.ini": "columns of the slip list, to be arranged anew",
           "bakim.ini": "columns of the reminders, to be arranged anew", "hatirla.ini": "columns of the reminders, to be arranged anew",
           "kvbform.ini": "a window's place", "hatirlaform.ini": "a window's place", "gelenarama.ini": "a window's place",
           "trloc.ini": "words of another toolkit"}
TEMPLATES = {".fr3", ".rtf", ".png", ".jpg", ".bmp"}


def as_utf8(data):
    """A text file of any code page that the older program or an editor wrote."""
    if data[:2] in (b"\xff\xfe", b"\xfe\xff"):
        return data.decode("utf-16").encode("utf-8")
    data = data.removeprefix(b"\xef\xbb\xbf")
    try:
        data.decode("utf-8")
        return data
    except UnicodeDecodeError:
        return latin5_text(data).encode("utf-8")


class Files:
    def __init__(self, program, before):
        self.program = program
        self.before = before
        self.taken = self.same = self.left = 0

    def put(self, name, data):
        """Puts a file into the program's folder; one of another content goes aside first."""
        target = self.program / name
        if target.is_file() and target.read_bytes() == data:
            self.same += 1
            return
        if target.exists():
            aside = self.before / name
            aside.parent.mkdir(parents=True, exist_ok=True)
            shutil.move(target, aside)
        target.parent.mkdir(parents=True, exist_ok=True)
        unfinished = target.with_name(target.name + ".new")
        unfinished.write_bytes(data)
        unfinished.replace(target)
        self.taken += 1
        print(f"taken: {name}")

    def leave(self, path, why):
        self.left += 1
        print(f"left out: {path} ({why})")

    def take(self, folder):
        known = {name.lower(): name for name in TEXTS + PICTURES}
        for path in sorted(folder.iterdir()):
            name = path.name.lower()
            if path.is_dir():
                if name == "rapor":
                    self.take_templates(path)
                continue
            if name in known:
                data = path.read_bytes()
                self.put(known[name], as_utf8(data) if known[name] in TEXTS else data)
            elif name in FOREIGN:
                self.leave(path.name, FOREIGN[name])

    def take_templates(self, folder):
        for path in sorted(folder.rglob("*")):
            if not path.is_file():
                continue
            below = path.relative_to(folder)
            if path.suffix.lower() in TEMPLATES:
                # The program asks for small letters; a shop's own names below are as they were.
                parts = [part.lower() for part in below.parts]
                self.put(pathlib.Path("rapor", *parts), path.read_bytes())
            else:
                self.leave(f"rapor/{below}", "no template and no picture")


def main(folder, program, before):
    files = Files(program, before)
    files.take(folder)
    print(f"{files.taken} files taken, {files.same} were the same already, {files.left} left out")
    if before.exists():
        print(f"what stood there before lies in {before}")
    if files.taken + files.same == 0:
        raise SystemExit("kvtk-server: there is no file of the program in that folder")


if __name__ == "__main__":
    main(*map(pathlib.Path, sys.argv[1:4]))
