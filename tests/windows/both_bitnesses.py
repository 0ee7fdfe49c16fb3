#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The components for 32-bit and for 64-bit processes on one machine: taking one away leaves all that the other one needs.

    both_bitnesses.py RUN-WINE32 FOLDER COMPONENT64 COMPONENT32

FOLDER gets a Wine prefix of its own. What is registered is compared whole: all keys of classes, in both kinds' views. Those
of the machine alone: of a user's keys Wine shows the same to both kinds of processes, which Windows doesn't.
"""
import os
import shutil
import sys

from convert_by_script import Desk

CLASSES = "HKLM\\Software\\Classes"
NAMES = ("cPlugin", "cNativeDoc", "cAcadPageSetup", "cAcadTransferSettings")
CLIENT = "made = 0\r\nOn Error Resume Next\r\n" + "".join(
    f'Set it = CreateObject("TarnwickSmPubAcad.{name}")\r\nIf Err.Number = 0 Then made = made + 1\r\nErr.Clear\r\n'
    for name in NAMES) + "WScript.Quit 100 + made\r\n"
OTHER = {64: 32, 32: 64}
INSTALLED = {64: "C:\\SM\\TwAcadPdf.dll", 32: "C:\\SM\\TwAcadPdf32.dll"}  # side by side, as the installer lays them


class TwoKinds(Desk):
    def run_of(self, bits, program, *arguments):
        """A program of the system, of so many bits."""
        started = [program] if bits == 32 else ["cmd", "/c", f"C:\\windows\\sysnative\\{program}.exe"]
        return self.run(*started, *arguments)[0]

    def regsvr32(self, bits, *options):
        return self.run_of(bits, "regsvr32", "/s", *options, INSTALLED[bits])

    def classes(self):
        """All that is registered: each value with its key, line by line."""
        self.check("the keys are read", self.run("reg", "export", CLASSES, "C:\\classes.reg", "/y", "/reg:64")[0], 0)
        with open(os.path.join(self.drive, "classes.reg"), encoding="utf-16") as file:
            keys = file.read().split("\n\n")
        return {key.split("\n")[0] + line for key in keys for line in key.split("\n")}

    def made_in(self, bits):
        """How many of the classes a script in a process of so many bits gets an object of."""
        return self.run_of(bits, "cscript", "//nologo", "C:\\client.vbs") - 100


def take_away_in_turn(desk, first):
    second = OTHER[first]
    name = f"{first} bits first"
    nothing = desk.classes()
    desk.check(f"{name}: registered", desk.regsvr32(first), 0)
    alone = desk.classes()
    desk.check(f"{name}: it is there", len(alone) > len(nothing), True)
    desk.check(f"{name}: the other one is registered", desk.regsvr32(second), 0)
    desk.check(f"{name}: both at work", (desk.made_in(first), desk.made_in(second)), (4, 4))
    desk.check(f"{name}: the other one is taken away", desk.regsvr32(second, "/u"), 0)
    desk.check(f"{name}: what is left is the first one's, whole", sorted(desk.classes() ^ alone), [])
    desk.check(f"{name}: the first one is at work, the other isn't", (desk.made_in(first), desk.made_in(second)), (4, 0))
    desk.check(f"{name}: the first one is taken away", desk.regsvr32(first, "/u"), 0)
    desk.check(f"{name}: nothing is left", sorted(desk.classes() ^ nothing), [])


def main(run_wine, folder, component64, component32):
    desk = TwoKinds(run_wine, folder)
    desk.end()
    desk.run("cmd", "/c", "exit")
    os.mkdir(os.path.join(desk.drive, "SM"))
    shutil.copy(component64, os.path.join(desk.drive, "SM", "TwAcadPdf.dll"))
    shutil.copy(component32, os.path.join(desk.drive, "SM", "TwAcadPdf32.dll"))
    with open(os.path.join(desk.drive, "client.vbs"), "w", encoding="ascii", newline="") as file:
        file.write(CLIENT)
    for bits in (64, 32):  # the script host registers itself at its first use
        desk.check(f"{bits} bits: not yet there", desk.made_in(bits), 0)
    for first in (64, 32):
        take_away_in_turn(desk, first)
    desk.end()
    print(f"{desk.failures} failed")
    return 1 if desk.failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
