#!/usr/bin/env python3
"""Writes what accompanies the packages of a release: notes, update manifest, and the SPDX list of what is inside.

usage: releasedocuments.py VERSION FOLDER
"""

import base64
import datetime
import json
import os
import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
SITE = "https://vantro.com"
# As docs/dependencies.md writes them; what is not here stands there as its SPDX identifier.
LICENCES = {"LGPL-3": "LGPL-3.0-only", "LGPL-2.1": "LGPL-2.1-or-later", "GPL-3 with runtime exception":
            "GPL-3.0-or-later WITH GCC-exception-3.1", "public domain": "blessing"}


class WrongDocument(Exception):
    pass


def notes_of(version):
    """The section of the changelog, without its title."""
    changelog = (ROOT / "CHANGELOG.md").read_text()
    match = re.search(rf"^## {re.escape(version)}\b[^\n]*\n(.*?)(?=^## |\Z)", changelog, re.MULTILINE | re.DOTALL)
    if not match or not match[1].strip():
        raise WrongDocument(f"CHANGELOG.md has nothing to say about {version}")
    return match[1].strip() + "\n"


def manifest(version, notes):
    return {"version": version, "url": f"{SITE}/download", "notes": notes,
            "file": f"{SITE}/download/vantro_{version}-1_amd64.deb"}


def libraries():
    """The table of docs/dependencies.md: (name, licence, packages)."""
    table = (ROOT / "docs/dependencies.md").read_text().split("## In the program")[1].split("\n## ")[0]
    for line in table.splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if line.startswith("| ") and len(cells) == 5 and cells[0] != "Library":
            yield cells[0], LICENCES.get(cells[3], cells[3]), cells[4]


def bundled():
    """What the package contains besides the program: the speech library, by the lock file."""
    lock = json.loads((ROOT / "third_party/package-lock.json").read_text())["packages"]
    (entry,) = (value for name, value in lock.items() if name.endswith("nodejs-whisper"))
    kind, digest = entry["integrity"].split("-", 1)
    return entry["version"], kind.upper(), base64.b64decode(digest).hex()


def package(identifier, name, licence, **more):
    return {"SPDXID": f"SPDXRef-{identifier}", "name": name, "licenseDeclared": licence, "licenseConcluded": licence,
            "downloadLocation": "NOASSERTION", "copyrightText": "NOASSERTION", "filesAnalyzed": False} | more


def spdx(version):
    created = datetime.datetime.fromtimestamp(int(
        os.environ.get("SOURCE_DATE_EPOCH") or
        subprocess.run(["git", "-C", ROOT, "log", "-1", "--format=%ct"], check=True, capture_output=True, text=True).stdout),
        datetime.timezone.utc)
    archive, kind, digest = bundled()
    packages = [package("vantro", "vantro", "MIT", versionInfo=version),
                package("speech-library", "whisper.cpp with ggml", "MIT",
                        checksums=[{"algorithm": kind, "checksumValue": digest}],
                        comment=f"source taken from the archive nodejs-whisper {archive}, with third_party/patches")]
    relations = [("DOCUMENT", "DESCRIBES", "vantro"), ("vantro", "CONTAINS", "speech-library")]
    for number, (name, licence, source) in enumerate(libraries(), 1):
        if name.startswith("whisper.cpp"):
            continue
        packages.append(package(f"library-{number}", name, licence, comment=f"of the system; Debian: {source}"))
        relations.append(("vantro", "DEPENDS_ON", f"library-{number}"))
    return {"spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT",
            "name": f"vantro-{version}", "documentNamespace": f"{SITE}/spdx/vantro-{version}",
            "creationInfo": {"created": created.strftime("%Y-%m-%dT%H:%M:%SZ"), "creators": ["Organization: vantro"]},
            "packages": packages,
            "relationships": [{"spdxElementId": f"SPDXRef-{one}", "relationshipType": kind,
                               "relatedSpdxElement": f"SPDXRef-{other}"} for one, kind, other in relations]}


def main():
    version, folder = sys.argv[1], Path(sys.argv[2])
    notes = notes_of(version)
    (folder / "NOTES.md").write_text(notes)
    for name, content in (("latest.json", manifest(version, notes)), (f"vantro-{version}.spdx.json", spdx(version))):
        (folder / name).write_text(json.dumps(content, indent=2, ensure_ascii=False) + "\n")


if __name__ == "__main__":
    try:
        main()
    except WrongDocument as error:
        sys.exit(f"releasedocuments.py: {error}")
