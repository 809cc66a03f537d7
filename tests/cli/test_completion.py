#!/usr/bin/python3
"""What the shells offer when Tab is pressed, asked of the shells themselves."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = Path(os.environ["VANTRO_PROGRAM"])
COMPLETIONS = Path(__file__).resolve().parents[2] / "packaging/completions"

BASH = """
source "$1"; shift
COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
_vantro
printf '%s\\n' "${COMPREPLY[@]}"
"""


class CompletionTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.environment = {**os.environ, "PATH": f"{PROGRAM.parent}:{os.environ['PATH']}", "HOME": folder.name,
                            "XDG_CONFIG_HOME": folder.name, "XDG_DATA_HOME": folder.name, "LC_ALL": "C.UTF-8"}
        self.folder = folder.name

    def shell(self, *command):
        return subprocess.run(command, env=self.environment, cwd=self.folder, capture_output=True, text=True,
                              check=True, timeout=60).stdout

    def bash(self, *words):
        return self.shell("bash", "-c", BASH, "bash", str(COMPLETIONS / "vantro.bash"), "vantro", *words).splitlines()

    def fish(self, line):
        return self.shell("fish", "--no-config", "-c", f"source {COMPLETIONS}/vantro.fish; complete -C '{line}'").splitlines()

    def test_bash(self):
        self.assertEqual(self.bash("to"), ["toggle"])
        self.assertEqual(self.bash("models", "sel"), ["select"])
        self.assertEqual(self.bash("models", "--"), ["--help", "--json", "--force", "--model-host"])
        self.assertEqual(self.bash("models", "--json", "select", "Parakeet\\ v3"), ["Parakeet\\ v3\\ \\(Fluid\\)"])
        self.assertEqual(self.bash("modes", "set", "Email", "--provider", "Anth"), ["Anthropic"])
        self.assertEqual(self.bash("show", ""), ["settings", "history", "notes", "guide"])
        self.assertEqual(self.bash("transcribe", ""), [""], "files are for the shell")

    def test_fish(self):
        self.assertEqual(self.fish("vantro tog"), ["toggle\tStart a dictation, or end its recording."])
        self.assertIn("tiny.en\tWhisper tiny model optimized for English, fastest, least accurate",
                      self.fish("vantro models select ti"))
        Path(self.folder, "speech.wav").touch()
        self.assertIn("speech.wav", self.fish("vantro transcribe spe"))

    def test_a_broken_settings_file_offers_nothing_wrong(self):
        Path(self.folder, "vantro").mkdir()
        Path(self.folder, "vantro/vantro.ini").write_bytes(b"\0\xff[broken")
        self.assertEqual(self.bash("models", "select", "tiny."), ["tiny.en"])


if __name__ == "__main__":
    unittest.main()
