#!/usr/bin/python3
"""The history and notes commands as a script and as a person at a terminal use them, on real files.

VANTRO_PROGRAM names the program, VANTRO_STORE_WRITER the one that fills a history.
"""

import contextlib
import csv
import io
import json
import os
import pty
import re
import shutil
import sqlite3
import stat
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
PROGRAM = Path(os.environ.get("VANTRO_PROGRAM", ROOT / "build/dev/bin/vantro"))
WRITER = Path(os.environ.get("VANTRO_STORE_WRITER", ROOT / "build/dev/bin/store_writer"))
FIXTURE = ROOT / "tests/data/store/schema-1.sqlite"
TIMEOUT_S = 60
DONE, FAILED, USAGE, NOT_FOUND = 0, 1, 2, 3
SKIPPED = 77
CAFE, ANNA, WEATHER = "11111111", "22222222", "33333333"


def can_mount():
    return subprocess.run(["unshare", "-rm", "mount", "-t", "tmpfs", "none", "/mnt"], capture_output=True).returncode == 0


class HistoryCase(unittest.TestCase):
    def setUp(self):
        self.profile = Path(self.enterContext(tempfile.TemporaryDirectory(prefix="vantro-history-")))
        self.folder = self.profile / "data/vantro"
        self.file = self.folder / "MainModel.sqlite"
        self.env = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
        self.env |= {"XDG_DATA_HOME": str(self.profile / "data"), "XDG_CONFIG_HOME": str(self.profile / "config"),
                     "TZ": "Europe/Berlin", "LC_ALL": "C.UTF-8", "LANGUAGE": ""}

    def install(self):
        self.folder.mkdir(parents=True)
        shutil.copy(FIXTURE, self.file)

    def edit(self, statement, *values):
        """Changes the history the way any SQLite tool does."""
        with contextlib.closing(sqlite3.connect(self.file)) as database:
            database.execute(statement, values)
            database.commit()

    def run_vantro(self, *words, prefix=(), stdin=None):
        return subprocess.run([*map(str, prefix), str(PROGRAM), *words], env=self.env, input=stdin, capture_output=True,
                              timeout=TIMEOUT_S)

    def history(self, *words, expect=DONE, **options):
        result = self.run_vantro("history", *words, **options)
        self.assertEqual(result.returncode, expect, result.stderr)
        return result

    def listed(self, *words):
        return [row["id"][:8] for row in json.loads(self.history(*words, "--json").stdout) if row["id"]]

    def at_terminal(self, *words, answer=b""):
        """What a person sees who runs the command in a terminal, and its exit code."""
        pid, master = pty.fork()
        if pid == 0:
            os.execve(PROGRAM, [str(PROGRAM), *words], self.env)
        if answer:
            os.write(master, answer)
        seen = b""
        while True:
            try:
                part = os.read(master, 4096)
            except OSError:
                break
            if not part:
                break
            seen += part
        os.close(master)
        return os.waitstatus_to_exitcode(os.waitpid(pid, 0)[1]), seen.decode()


class ListTest(HistoryCase):
    def test_a_first_list_is_empty_and_makes_a_private_file(self):
        self.assertEqual(self.listed(), [])
        self.assertEqual(stat.S_IMODE(self.file.stat().st_mode), 0o600)
        self.assertEqual(self.at_terminal("history")[1].strip(), "There are no dictations yet.")

    def test_filters_narrow_the_list(self):
        self.install()
        self.assertEqual(self.listed(), [WEATHER, ANNA, CAFE])
        self.assertEqual(self.listed("--search", "CAFÉ noon"), [CAFE])
        self.assertEqual(self.listed("--search", "\"report\" AND -"), [], "AND is a word like any other")
        self.assertEqual(self.listed("--search", "天気"), [WEATHER])
        self.assertEqual(self.listed("--mode", "email"), [ANNA])
        self.assertEqual(self.listed("--since", "2023-11-14T23:14:00"), [WEATHER, ANNA])
        self.assertEqual(self.listed("--since", "yesterday"), [])
        self.assertEqual(self.listed("--limit", "2"), [WEATHER], "and one without an identity")
        self.assertEqual(self.history("--search", "milk").stdout, b"")

    def test_plain_lines_have_tabs_and_a_person_gets_a_table(self):
        self.install()
        lines = self.history("list", "--limit", "3").stdout.decode().splitlines()
        self.assertEqual(lines[2].split("\t"), ["22222222-2222-4222-8222-222222222222", "2023-11-14T23:14:20", "Email",
                                                "Hi Anna, the report is late. Best,"])
        self.edit("UPDATE Transcription SET transcription = 'red \x1b[31m alert\r\n' || transcription "
                  "WHERE processingMode = 'Normal'")
        code, table = self.at_terminal("history")
        self.assertEqual(code, DONE)
        self.assertRegex(table, r"ID +TIME +MODE +TEXT")
        self.assertRegex(table, r"11111111 +2023-11-14 23:13 +Normal +red \[31m alert Meet")
        self.assertNotIn("\x1b[31m", table, "a dictation cannot steer the terminal")

    def test_wrong_usage_is_told(self):
        for words in (("nonsense",), ("--mode", "Shouting"), ("--since", "soon"), ("--limit", "-1"), ("--limit", "x"),
                      ("show",), ("delete",), ("show", "a", "b"), ("export", "--format", "xml"), ("--nonsense",)):
            result = self.history(*words, expect=USAGE)
            self.assertIn(b"see vantro history --help", result.stderr, words)
        self.assertFalse(self.file.exists(), "nothing is made for a mistake")
        self.assertIn(b"export [FILE]", self.history("--help").stdout)


class ShowAndDeleteTest(HistoryCase):
    def test_show_gives_the_text_exactly(self):
        text = "first\0 line\nsecond\ttab \U0001F600"
        self.install()
        self.edit("UPDATE Transcription SET transcription = ? WHERE processingMode = 'Normal'", text)
        self.assertEqual(self.history("show", CAFE).stdout.decode(), text + "\n")
        self.assertEqual(json.loads(self.history("show", CAFE, "--json").stdout)["transcription"], text)
        self.assertEqual(self.history("show", ANNA).stdout, b"Hi Anna, the report is late. Best, \n")
        self.assertIn("Original text:", self.at_terminal("history", "show", ANNA)[1])
        self.history("show", "99999999", expect=NOT_FOUND)
        self.history("show", "not-an-id", expect=NOT_FOUND)

    def test_delete_asks_a_person_and_wants_a_yes_from_a_script(self):
        self.install()
        self.history("delete", CAFE, expect=USAGE)
        code, seen = self.at_terminal("history", "delete", CAFE, answer=b"n\n")
        self.assertEqual(code, FAILED)
        self.assertIn("Delete this dictation permanently? [y/N]", seen)
        self.assertEqual(self.listed(), [WEATHER, ANNA, CAFE])
        self.history("delete", CAFE, "99999999", "--yes", expect=NOT_FOUND)
        self.assertEqual(self.listed(), [WEATHER, ANNA, CAFE], "all or none")
        self.assertEqual(self.at_terminal("history", "delete", CAFE, answer=b"y\n")[0], DONE)
        result = self.history("delete", WEATHER, ANNA, ANNA, "--yes", "--json")
        self.assertEqual(json.loads(result.stdout), {"deleted": 2})
        self.assertEqual(self.listed(), [])

    def test_a_beginning_that_several_share_is_refused(self):
        subprocess.run([WRITER, self.file, "40"], check=True, stdout=subprocess.DEVNULL)
        ids = [row["id"] for row in json.loads(self.history("--json").stdout)]
        shared = next(id[0] for id in ids if sum(other.startswith(id[0]) for other in ids) > 1)
        self.assertIn(b"several dictations begin with", self.history("show", shared, expect=USAGE).stderr)


class ExportTest(HistoryCase):
    def test_all_rows_come_out_in_every_format(self):
        subprocess.run([WRITER, self.file, "450"], check=True, stdout=subprocess.DEVNULL)
        rows = json.loads(self.history("export").stdout)
        self.assertEqual(len(rows), 450)
        self.assertEqual(list(rows[0]), ["created_at", "formatted", "id", "processing_mode", "transcription"])
        target = self.profile / "out.CSV"
        self.assertEqual(self.history("export", str(target)).stdout, b"")
        self.assertEqual(stat.S_IMODE(target.stat().st_mode), 0o600)
        with target.open(newline="") as file:
            self.assertEqual([row["transcription"] for row in csv.DictReader(file)], [row["transcription"] for row in rows])
        markdown = self.history("export", "--format", "markdown", "--limit", "3").stdout.decode()
        self.assertEqual(len(re.findall(r"^## \d{4}-\d\d-\d\d \d\d:\d\d, Email$", markdown, re.M)), 3)
        self.assertEqual(json.loads(self.history("export", "--search", "nothingness").stdout), [])

    def test_quotes_and_line_breaks_survive_csv(self):
        self.install()
        text = 'she said "no",\nthen\r\nleft'
        self.edit("UPDATE Transcription SET transcription = ? WHERE processingMode = 'Normal'", text)
        rows = list(csv.reader(io.StringIO(self.history("export", "--format", "csv").stdout.decode(), newline="")))
        self.assertIn(text, [row[3] for row in rows])

    def test_a_file_that_cannot_be_written_is_named(self):
        self.install()
        result = self.history("export", str(self.profile / "missing/out.json"), expect=FAILED)
        self.assertIn(b"missing/out.json cannot be written", result.stderr)

    def test_a_pipe_takes_an_export_and_stays_a_pipe(self):
        self.install()
        pipe = self.profile / "pipe"
        os.mkfifo(pipe)
        with subprocess.Popen(["cat", pipe], stdout=subprocess.PIPE) as reader:
            self.history("export", str(pipe))
            self.assertEqual(len(json.loads(reader.communicate(timeout=10)[0])), 4)
        self.assertTrue(pipe.is_fifo(), "a file took its place")


class NotesTest(HistoryCase):
    def notes(self, *words, expect=DONE, stdin=None):
        result = self.run_vantro("notes", *words, stdin=stdin)
        self.assertEqual(result.returncode, expect, result.stderr)
        return result

    def test_notes_live_by_the_day(self):
        self.install()
        self.notes("show", expect=NOT_FOUND)
        self.notes("add", "buy", "bread")
        self.notes("add", "-", stdin="  from a pipe\nwith two lines\n".encode())
        self.notes("add", " ", expect=USAGE)
        days = json.loads(self.notes("--json").stdout)
        self.assertEqual([(day["note_count"], day["formatted"]) for day in days], [(2, ""), (1, "One note about milk.")])
        self.assertEqual(days[1]["date"], "2023-11-14")
        today = json.loads(self.notes("show", "--json").stdout)["notes"]
        self.assertEqual([note["transcription"] for note in today], ["buy bread", "from a pipe\nwith two lines"])
        self.assertIn("One note about milk.", self.at_terminal("notes", "show", "2023-11-14")[1])

        self.notes("delete", "2023-11-14", expect=USAGE)
        self.assertIn("Permanently delete 2023-11-14 with its summary and 1 note?", self.at_terminal("notes", "delete", "2023-11-14",
                                                                                    answer=b"n\n")[1])
        self.notes("delete", "2023-11-14", "--yes")
        self.notes("delete", "2023-11-14", "--yes", expect=NOT_FOUND)
        self.notes("delete", today[0]["id"][:8], "--yes")
        self.assertEqual(len(self.notes("show", "today").stdout.splitlines()), 1)
        self.notes("summarize", expect=FAILED)
        self.notes("show", "someday", expect=USAGE)


class StoreTest(HistoryCase):
    def check_refused(self, result, *texts):
        self.assertEqual(result.returncode, FAILED, result.stderr)
        for text in ("Failed to load persistent stores: ", *texts):
            self.assertIn(text, result.stderr.decode())

    def test_a_history_that_cannot_be_loaded_ends_command_and_program(self):
        self.folder.mkdir(parents=True)
        self.file.write_bytes(b"no database " * 500)
        before = self.file.read_bytes()
        self.check_refused(self.run_vantro("history"), "is damaged")
        self.check_refused(self.run_vantro("notes"), "is damaged")
        self.assertEqual(self.file.read_bytes(), before)
        self.assertEqual([path.name for path in self.folder.iterdir()], [self.file.name])

    @unittest.skipUnless(can_mount(), "file systems cannot be mounted here")
    def test_a_read_only_disk_is_told(self):
        self.install()
        script = 'mount --bind "$1" "$1" && mount -o remount,bind,ro "$1" || exit 99; shift; "$@"'
        result = self.run_vantro("history", prefix=("unshare", "-rm", "sh", "-c", script, "sh", self.folder))
        self.check_refused(result, "cannot be written to: Read-only file system")


def main():
    if not os.access(PROGRAM, os.X_OK):
        print(f"skipped: there is no program {PROGRAM}")
        sys.exit(SKIPPED)
    result = unittest.main(exit=False, verbosity=2, module="__main__").result
    for test, reason in result.skipped:
        print(f"skipped: {test}: {reason}")
    sys.exit(0 if result.wasSuccessful() else 1)


if __name__ == "__main__":
    main()
