#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the Debian packages, checks them with lintian, and installs them on a Debian system with nothing but its base, the
program by the steps of the container's recipe.

    debian_packages.py BUILD SAMPLES

Rows: what lintian says; a plain user converts a drawing and asks the doctor; the windows' package brings what it needs; removing
leaves nothing but the user's own. Ends with "N passed, M failed"; 77 when this machine can't do it (it takes root, debootstrap and
a Debian mirror).
"""
import glob
import json
import os
import shutil
import subprocess
import sys
import tempfile

import bare_debian

USER = "ann"
RECIPE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "packaging", "container", "Containerfile")


class Rows:
    def __init__(self):
        self.passed = self.failed = 0

    def check(self, name, got, wanted):
        good = got == wanted
        print(f"{'ok' if good else 'FAILED':<8}{name}" + ("" if good else f"\n    got    {got!r}\n    wanted {wanted!r}"))
        self.passed, self.failed = self.passed + good, self.failed + (not good)


def make_packages(build, folder):
    subprocess.run(["cpack", "-G", "DEB", "--config", "CPackConfig.cmake", "-B", folder], cwd=build, check=True, capture_output=True)
    return sorted(glob.glob(os.path.join(folder, "*.deb")))


def lint(rows, packages):
    for package in packages:
        run = subprocess.run(["lintian", "--allow-root", "--fail-on", "error,warning", package], capture_output=True, text=True)
        told = [line for line in run.stdout.splitlines() if not line.startswith("N:")]
        rows.check("lintian: " + os.path.basename(package).split("_")[0], (run.returncode, told), (0, []))


def install(system, package):
    shutil.copy(package, system.path("/opt"))
    return system.run("sh", "-c", "apt-get update -q && apt-get install -y -q --no-install-recommends /opt/"
                      + os.path.basename(package))


def recipe_steps():
    """Words of the container's recipe, a step each: (instruction, the rest)."""
    with open(RECIPE, encoding="utf-8") as lines:
        return [tuple(line.strip().split(" ", 1)) for line in lines if line.strip() and not line.startswith("#")]


def follow_recipe(rows, system, packages):
    """Does in the system what a container engine would do by the recipe."""
    asked = {}
    for instruction, rest in recipe_steps():
        if instruction == "COPY":
            pattern, target = rest.split()
            for package in glob.glob(os.path.join(packages, pattern)):
                shutil.copy(package, system.path(target))
        elif instruction == "RUN":
            run = system.run("sh", "-c", rest)
            rows.check("container: " + rest[:40], run.returncode, 0)
            if run.returncode != 0:
                print(run.stderr[-2000:])
        else:
            asked[instruction] = rest
    os.makedirs(system.path(asked["WORKDIR"]), exist_ok=True)
    entry = json.loads(asked["ENTRYPOINT"])
    run = system.run(f"cd {asked['WORKDIR']} && {' '.join(entry)} --version", user=asked["USER"])
    rows.check("container: its program runs", (run.returncode, run.stdout.split(" ")[0]), (0, "sheetmaker"))


def pages_of(pdf):
    return subprocess.run(["qpdf", "--show-npages", pdf], capture_output=True, text=True).stdout.strip()


def use(rows, system, samples):
    system.run("useradd", "-m", USER)
    shutil.copy(os.path.join(samples, "house.dxf"), system.path(f"/home/{USER}"))
    run = system.run("cd && sheetmaker convert house.dxf", user=USER)
    rows.check("a plain user converts a drawing", (run.returncode, run.stdout), (0, f"house.dxf -> /home/{USER}/house.pdf, 3 pages\n"))
    rows.check("its pages", pages_of(system.path(f"/home/{USER}/house.pdf")), "3")
    doctor = system.run("sheetmaker doctor", user=USER)
    missing = [line for line in doctor.stdout.splitlines() if line.startswith("MISSING")]
    rows.check("the doctor misses nothing", (doctor.returncode, missing), (0, []))
    run = system.run("DISPLAY=:1 sheetmaker settings", user=USER)
    wanted = ("sheetmaker settings: the program with the windows can't be started (/usr/bin/sheetmaker-windows: No such file or "
              'directory); the package sheetmaker-pdf-windows brings it, and "sheetmaker doctor" says more\n')
    rows.check("without windows it says so", (run.returncode, run.stderr), (3, wanted))
    with open(system.path("/usr/share/doc/sheetmaker-pdf/sheetmaker-pdf.spdx.json"), encoding="utf-8") as file:
        parts = {(part["name"], part["versionInfo"] != "NOASSERTION") for part in json.load(file)["packages"]}
    rows.check("what it is made of is listed", {("libqpdf-dev", True), ("libsqlite3-dev", True), ("ghostscript", True)} - parts, set())


def use_windows(rows, system):
    loaded = system.run("ldd", "/usr/libexec/sheetmaker-pdf/sheetmaker-windows").stdout
    rows.check("the windows find their libraries", [line for line in loaded.splitlines() if "not found" in line], [])
    doctor = system.run("DISPLAY=:1 sheetmaker doctor", user=USER).stdout
    rows.check("the doctor finds them", [line for line in doctor.splitlines() if " windows: " in line],
               ["ok        windows: /usr/libexec/sheetmaker-pdf/sheetmaker-windows"])


def remove(rows, system):
    run = system.run("apt-get", "purge", "-y", "-q", "sheetmaker-pdf", "sheetmaker-pdf-windows")
    left = [name for name in system.names("sheetmaker") if not name.startswith(("/opt/", f"/home/{USER}/", "/var/log/"))]
    rows.check("removed without a rest", (run.returncode, left), (0, []))
    own = [name for name in system.names("sheetmaker-pdf") if name.startswith(f"/home/{USER}/")]
    rows.check("the user's own stays", f"/home/{USER}/.local/state/sheetmaker-pdf/SmPdfAcad.log" in own, True)


def main(build, samples):
    rows = Rows()
    with tempfile.TemporaryDirectory() as folder:
        packages = make_packages(build, os.path.join(folder, "packages"))
        rows.check("two packages", [os.path.basename(package).split("_")[0] for package in packages],
                   ["sheetmaker-pdf-windows", "sheetmaker-pdf"])
        lint(rows, packages)
        reason = bare_debian.why_not()
        if reason is None:
            try:
                archive = bare_debian.make_base(os.path.join(build, "bare-debian"))
            except subprocess.CalledProcessError as error:
                reason = "debootstrap failed: " + error.stdout.strip().split("\n")[-1]
        if reason is not None:
            print(f"skipped: no bare Debian system can be made here: {reason}")
            return 1 if rows.failed else 77
        root = tempfile.mkdtemp(prefix="bare-", dir=os.path.join(build, "bare-debian"))
        try:
            system = bare_debian.BareDebian(archive, root)
            update = system.run("apt-get", "-o", "APT::Update::Error-Mode=any", "update", "-q")
            if update.returncode != 0:
                print("skipped: the bare Debian system reaches no mirror: " + update.stderr.strip()[-300:])
                return 1 if rows.failed else 77
            program = next(package for package in packages if "-windows_" not in package)
            windows = next(package for package in packages if "-windows_" in package)
            follow_recipe(rows, system, os.path.dirname(program))
            use(rows, system, samples)
            rows.check("the windows install", install(system, windows).returncode, 0)
            use_windows(rows, system)
            remove(rows, system)
        finally:
            bare_debian.remove(root)
    print(f"{rows.passed} passed, {rows.failed} failed")
    return 1 if rows.failed else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*map(os.path.abspath, sys.argv[1:])))
