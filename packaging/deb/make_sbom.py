#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes what the packaged program is made of, as SPDX 2.3 in JSON.

    make_sbom.py BUILD VERSION OUTPUT

Static libraries are those that the program was linked with (the archives in BUILD/CMakeCache.txt), by their Debian packages; loaded
libraries and tools those of packaging/packages-runtime.txt; the DWG converter, which is fetched on demand, by package-lock.json.
"""
import datetime
import json
import os
import re
import subprocess
import sys

HEADERS = ("libcli11-dev", "nlohmann-json3-dev")  # compiled in

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))


def debian(package):
    """Version and origin of an installed Debian package."""
    shown = subprocess.run(["dpkg-query", "-W", "-f", "${Version} ${source:Package}", package], capture_output=True, text=True)
    return shown.stdout.split() if shown.returncode == 0 else ["NOASSERTION", package]


def owner(path):
    found = subprocess.run(["dpkg-query", "-S", os.path.realpath(path)], capture_output=True, text=True)
    return found.stdout.split(":")[0] if found.returncode == 0 else None


def archives(build):
    with open(os.path.join(build, "CMakeCache.txt"), encoding="utf-8") as cache:
        paths = re.findall(r"^SM_ARCHIVE_\w+:FILEPATH=(/.*)$", cache.read(), re.M)
    return sorted({package for package in map(owner, paths) if package})


def runtime():
    with open(os.path.join(ROOT, "packaging", "packages-runtime.txt"), encoding="utf-8") as lines:
        return [line.strip() for line in lines if line.strip() and not line.startswith("#")]


def converter():
    with open(os.path.join(ROOT, "share", "sheetmaker-pdf", "dwg", "package-lock.json"), encoding="utf-8") as file:
        lock = json.load(file)["packages"]
    return {name.removeprefix("node_modules/"): facts["version"] for name, facts in lock.items() if name}


def entry(name, version, supplier, **more):
    return {"name": name, "SPDXID": "SPDXRef-" + re.sub(r"[^A-Za-z0-9.-]", "-", name), "versionInfo": version,
            "downloadLocation": "NOASSERTION", "filesAnalyzed": False, "supplier": supplier, **more}


def document(build, version):
    main = entry("sheetmaker-pdf", version, "Organization: The Sheetmaker PDF developers", licenseDeclared="GPL-3.0-or-later")
    packages, relations = [main], [("SPDXRef-DOCUMENT", "DESCRIBES", main["SPDXID"])]
    for names, relation in ((archives(build), "STATIC_LINK"), (HEADERS, "CONTAINS"), (runtime(), "DEPENDS_ON")):
        for name in names:
            number, source = debian(name)
            packages.append(entry(name, number, "Organization: Debian", comment=f"Debian source package {source}"))
            relations.append((main["SPDXID"], relation, packages[-1]["SPDXID"]))
    for name, number in converter().items():
        packages.append(entry(name, number, "NOASSERTION", comment="fetched from npm when a DWG of before R9 is met; not shipped"))
        relations.append((packages[-1]["SPDXID"], "OPTIONAL_DEPENDENCY_OF", main["SPDXID"]))
    moment = datetime.datetime.fromtimestamp(int(os.environ.get("SOURCE_DATE_EPOCH") or 0) or datetime.datetime.now().timestamp(),
                                             datetime.timezone.utc)
    return {"spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT", "name": f"sheetmaker-pdf-{version}",
            "documentNamespace": f"urn:sheetmaker-pdf:{version}",
            "creationInfo": {"created": moment.strftime("%Y-%m-%dT%H:%M:%SZ"), "creators": ["Tool: make_sbom.py"]},
            "packages": packages,
            "relationships": [{"spdxElementId": one, "relationshipType": kind, "relatedSpdxElement": other}
                              for one, kind, other in relations]}


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    with open(sys.argv[3], "w", encoding="utf-8") as output:
        json.dump(document(sys.argv[1], sys.argv[2]), output, indent=1)
        output.write("\n")
