#!/usr/bin/python3
"""What accompanies a release: notes, the manifest that installed programs read, and the list of what is inside."""

import json
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
VERSION = re.search(r"project\(vantro VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())[1]


class ReleaseTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory(prefix="vantro-release-")))

    def write(self, version):
        return subprocess.run([sys.executable, ROOT / "scripts/lib/releasedocuments.py", version, self.folder],
                              env={"SOURCE_DATE_EPOCH": "1000000000"}, capture_output=True, text=True)

    def test_the_present_version_has_its_documents(self):
        result = self.write(VERSION)
        self.assertEqual(result.returncode, 0, result.stderr)
        notes = (self.folder / "NOTES.md").read_text()
        self.assertNotIn("\n## ", notes)
        manifest = json.loads((self.folder / "latest.json").read_text())
        self.assertEqual((manifest["version"], manifest["notes"]), (VERSION, notes))
        self.assertTrue(manifest["url"].startswith("https://"))

        inside = json.loads((self.folder / f"vantro-{VERSION}.spdx.json").read_text())
        self.assertEqual(inside["creationInfo"]["created"], "2001-09-09T01:46:40Z")
        names = [package["name"] for package in inside["packages"]]
        self.assertEqual(len(names), len(set(names)))
        for name in ("vantro", "whisper.cpp with ggml", "QCoro", "libsecret"):
            self.assertIn(name, names)
        known = {"SPDXRef-DOCUMENT", *(package["SPDXID"] for package in inside["packages"])}
        related = {relation[end] for relation in inside["relationships"] for end in ("spdxElementId", "relatedSpdxElement")}
        self.assertEqual(related, known, "each is in a relationship, and no relationship leads nowhere")
        for package in inside["packages"]:
            self.assertRegex(package["licenseDeclared"], r"^[A-Za-z0-9.+-]+( (WITH|AND) [A-Za-z0-9.-]+)?$", package["name"])

    def test_a_version_without_notes_is_refused(self):
        result = self.write("99.0.0")
        self.assertEqual(result.returncode, 1)
        self.assertIn("CHANGELOG.md has nothing to say about 99.0.0", result.stderr)
        self.assertEqual(list(self.folder.iterdir()), [])


if __name__ == "__main__":
    unittest.main()
