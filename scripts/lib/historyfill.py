"""Fills the history of a profile with dictations and notes, as SQLite tools do. The program must have made the file."""

import sqlite3
import time
import uuid
from contextlib import closing

LONG_TEXT = "\n".join(f"Paragraph {number}: the committee met again and read what was written the last time."
                      for number in range(1, 61))
_TEXTS = ("Please move the meeting with the carpenters to Thursday at nine.",
          "The invoice for the new windows has arrived, it is 40 euros less than agreed.",
          "Remind me to call Anna about the concert tickets before Friday.",
          "The second chapter needs a better beginning. It takes a page until the reader knows where he is.",
          "Thank you for the quick answer, the café on the corner is fine with us.",
          "When the build is done, look at the warnings first and at the times afterwards.")


def dictations(count, now_s=None, spacing_s=5400):
    """(seconds since 1970, mode, transcription, formatted), newest first; the third is long, and every tenth was not
    rewritten although its mode asks for it."""
    now_s = now_s or time.time()
    for number in range(count):
        text = LONG_TEXT if number == 2 else _TEXTS[number % len(_TEXTS)]
        mode = "Email" if number % 5 == 1 else "Normal"
        formatted = f"Hello,\n\n{text}\n\nBest," if mode == "Email" and number % 10 != 1 else ""
        yield now_s - number * spacing_s, mode, text, formatted


def fill_dictations(path, rows):
    with closing(sqlite3.connect(path, timeout=10)) as database, database:
        database.executemany(
            "INSERT INTO Transcription (pk, id, created_at, processingMode, transcription, formatted) "
            "VALUES (?, ?, ?, ?, ?, ?)",
            ((int(when * 1000) * 1000, str(uuid.uuid4()), int(when * 1000), mode, text, formatted)
             for when, mode, text, formatted in rows))


def fill_notes(path, days, now_s=None):
    """days: for each, newest first, its summary and its notes."""
    now_s = now_s or time.time()
    with closing(sqlite3.connect(path, timeout=10)) as database, database:
        for ago, (summary, notes) in enumerate(days):
            first = int((now_s - ago * 86400) * 1000)
            database.execute("INSERT INTO DailyNote (pk, id, created_at, formatted) VALUES (?, ?, ?, ?)",
                             (first * 1000, str(uuid.uuid4()), first, summary))
            database.executemany(
                "INSERT INTO Note (pk, id, created_at, transcription, dailyNote) VALUES (?, ?, ?, ?, ?)",
                ((first * 1000 + number, str(uuid.uuid4()), first + number, text, first * 1000)
                 for number, text in enumerate(notes)))
