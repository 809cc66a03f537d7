"""Counts word errors."""

import re
import unicodedata

WRITTEN_WITHOUT_SPACES = ("ja", "zh")


def words(text, language):
    """Without case and punctuation; characters where words are not written apart."""
    text = re.sub(r"[^\w\s']", " ", unicodedata.normalize("NFKC", text).lower())
    return list("".join(text.split())) if language in WRITTEN_WITHOUT_SPACES else text.split()


def edits(expected, actual):
    """The least number of insertions, deletions and replacements."""
    row = list(range(len(actual) + 1))
    for i, word in enumerate(expected, 1):
        diagonal, row[0] = row[0], i
        for j, other in enumerate(actual, 1):
            diagonal, row[j] = row[j], min(row[j] + 1, row[j - 1] + 1, diagonal + (word != other))
    return row[-1]
