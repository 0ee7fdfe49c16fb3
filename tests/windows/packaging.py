#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks what is handed out for Windows without running it: the component's own file, installer and zip made twice, what is
signed, the help.

    packaging.py SOURCE COMPONENT TYPE-LIBRARY VERSION
"""
import html.parser
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import zipfile
import zlib

EPOCH = 1700000000
failures = 0


def check(name, got, wanted):
    global failures
    failures += got != wanted
    print("ok  " if got == wanted else "FAIL", name, "" if got == wanted else f": {got!r} instead of {wanted!r}")


def read(path):
    with open(path, "rb") as file:
        return file.read()


class Image:
    """The headers of a program or library."""

    def __init__(self, data):
        self.data = data
        self.start = struct.unpack_from("<I", data, 60)[0]
        self.optional = self.start + 24
        self.is_wide = self.word(self.optional) == 0x20B

    def word(self, at):
        return struct.unpack_from("<H", self.data, at)[0]

    def long(self, at):
        return struct.unpack_from("<I", self.data, at)[0]

    @property
    def directories(self):
        return self.optional + (112 if self.is_wide else 96)

    def signature(self):
        """Where the signature stands and how long it is, in the file."""
        return self.long(self.directories + 32), self.long(self.directories + 36)


def version_texts(data):
    """Names and texts of the version resource's first table."""
    def key_of(at):
        end = at + 6
        while data[end:end + 2] != b"\0\0":
            end += 2
        return data[at + 6:end].decode("utf-16-le"), end + 2

    def aligned(at):
        return at + -(at - root) % 4

    root = data.find("StringFileInfo".encode("utf-16-le")) - 6
    table = aligned(key_of(root)[1])
    at, end, texts = aligned(key_of(table)[1]), table + struct.unpack_from("<H", data, table)[0], {}
    while at < end:
        name, value = key_of(at)
        length, units = struct.unpack_from("<HH", data, at)
        texts[name] = data[aligned(value):aligned(value) + 2 * units].decode("utf-16-le").rstrip("\0")
        at = aligned(at + length)
    return texts


def check_component(path, version):
    image = Image(read(path))
    check("no symbols", (image.long(image.start + 12), b".debug" in image.data[:4096]), (0, False))
    check("system's version", (image.word(image.optional + 40), image.word(image.optional + 42)), (6, 1))
    check("subsystem", [image.word(image.optional + at) for at in (68, 48, 50)], [2, 6, 1])
    # Any address, of 64 bits where it may be, and no code in data.
    wanted = 0x160 if image.is_wide else 0x140
    check("addresses and data", image.word(image.optional + 70) & 0x160, wanted)
    check("version resource", version_texts(image.data), {
        "CompanyName": "Tarnwick Software", "FileDescription": "Sheetmaker PDF for AutoCAD", "FileVersion": version,
        "InternalName": "TwAcadPdf", "LegalCopyright": "Tarnwick Software", "OriginalFilename": "TwAcadPdf.dll",
        "ProductName": "Tarnwick Sheetmaker PDF", "ProductVersion": version})


def pc3_groups(data):
    """What a plotter configuration for the CAD host says, read by the published layout of such files: 48 bytes of names, the
    Adler-32 sum of the packed text, the text's length, the packed text's, and a zlib stream of nested groups."""
    check("names", data[:48], b"PIAFILEVERSION_2.0,PC3VER1,compress\r\npmzlibcodec")
    total, plain, stream = struct.unpack("<3I", data[48:60])
    text = zlib.decompress(data[60:])
    check("sum and lengths", (total, plain, stream), (zlib.adler32(data[60:]), len(text), len(data) - 60))
    groups = [{}]
    for line in text.decode("ascii").splitlines():
        line = line.strip()
        if line.endswith("{"):
            groups.append(groups[-1].setdefault(line[:-1], {}))
        elif line == "}":
            groups.pop()
        else:
            name, value = line.split("=", 1)
            groups[-1][name] = value
    check("every group ends", len(groups), 1)
    return groups[0]


def check_pc3(staged, source):
    ours = sorted(os.listdir(os.path.join(source, "share", "sheetmaker-pdf", "PC3")))
    check("plotter configurations", sorted(os.listdir(os.path.join(staged, "PC3"))), ours)
    for name in ours:
        device = name[:-4]
        groups = pc3_groups(read(os.path.join(staged, "PC3", name)))
        check(device, list(groups), ["meta", "media", "io", "res_color_mem", "custom"])
        check(device + ": driver", (groups["meta"]["driver_pathname"], groups["meta"]["localized_model_name"]),
              ('"ps%s.hdi' % device.split()[1][2], '"' + device))
        check(device + ": where it plots to", (groups["io"]["plot_to_file"], groups["io"]["pathname"]), ("TRUE", '"'))
        size = groups["media"]["size"]
        check(device + ": sheet", (size["name"], size["media_description"]["media_bounds"]),
              ('"ANSI_A_(11.00_x_8.50_Inches)', {"urx": "279.4", "ury": "215.9"}))
        check(device + ": dots", groups["res_color_mem"]["resolution"]["phys_resolution_x"],
              "1200.0" if "High" in device else "600.0")


class Packer:
    def __init__(self, source, component, folder, version):
        self.source, self.component, self.folder, self.version = source, component, folder, version
        self.packaging = os.path.join(source, "packaging", "windows")

    def tool(self, *command, **environment):
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL, env={**os.environ, **environment})

    def make(self, name, **environment):
        """Installer and zip, with stand-ins for the programs."""
        folder = os.path.join(self.folder, name)
        os.makedirs(folder)
        programs = [os.path.join(folder, program) for program in ("sheetmaker.exe", "sheetmaker-windows.exe")]
        for program in programs:
            shutil.copy(self.component, program)
        stage, files = os.path.join(self.folder, "stage"), os.path.join(self.folder, "files.nsh")
        setup, packed = os.path.join(folder, "Setup-1.exe"), os.path.join(folder, "packed.zip")
        self.tool(f"{self.packaging}/stage-files", stage, self.component, "none", "none",
                  f"{self.source}/share/sheetmaker-pdf", f"{self.source}/LICENSE", *programs, **environment)
        self.tool(f"{self.packaging}/list-files", stage, files, **environment)
        self.tool("makensis", "-V1", "-WX", f"-DVERSION={self.version}", f"-DSTAGE={stage}", f"-DFILES={files}",
                  f"-DSIGN={self.packaging}/sign", f"-DICON={self.packaging}/sheetmaker-pdf.ico", f"-DOUTPUT={setup}",
                  f"{self.packaging}/installer.nsi", **environment)
        self.tool(f"{self.packaging}/make-zip", packed, stage, **environment)
        return setup, packed


def check_setup(setup, icon):
    """The headers and resources of the installer."""
    check("installer's version", {name: version_texts(setup).get(name) for name in ("CompanyName", "ProductName")},
          {"CompanyName": "Tarnwick Software", "ProductName": "Tarnwick Sheetmaker PDF"})
    check("installer is sharp on fine screens", re.findall(b"<dpiAware[^>]*>([^<]*)<", setup), [b"true"])
    sizes, offsets = zip(*(struct.unpack_from("<II", icon, 6 + 16 * number + 8)
                           for number in range(struct.unpack_from("<H", icon, 4)[0])))
    pictures = [icon[offset:offset + size] for size, offset in zip(sizes, offsets)]
    check("installer's icon", [picture in setup for picture in pictures], [True] * 8)


def check_reproduction(packer, library):
    """The second time with a signing command of one's own, which changes nothing here: it is given each file, those that are
    staged, the uninstaller and the installer."""
    made = []
    signed = os.path.join(packer.folder, "signed")
    for name, hook in (("once", {}), ("twice", {"SM_SIGN_COMMAND": f"echo >>'{signed}'"})):
        setup, packed = packer.make(name, SOURCE_DATE_EPOCH=str(EPOCH), **hook)
        described = os.path.join(packer.folder, name + ".tlb")
        shutil.copy(library, described)
        packer.tool("/usr/bin/python3", f"{packer.source}/adapters/windows/server/pin_library_time.py", described,
                    SOURCE_DATE_EPOCH=str(EPOCH))
        made.append((read(setup), read(packed), read(described)))
        time.sleep(1.1)
    check_setup(made[0][0], read(f"{packer.packaging}/sheetmaker-pdf.ico"))
    for number, name in enumerate(("installer", "zip", "type library")):
        check(f"{name} is the same a second time", made[0][number] == made[1][number], True)
    check("date in the type library", [time.asctime(time.gmtime(EPOCH)).encode() in made[0][2],
                                       struct.pack("<I", EPOCH) in made[0][2]], [True, True])
    with open(signed, encoding="utf-8") as file:
        names = [os.path.basename(line.strip()) for line in file]
    check("what is signed", [names[:3], len(names), names[-1]],
          [["TwAcadPdf.dll", "sheetmaker-windows.exe", "sheetmaker.exe"], 5, "Setup-1.exe"])
    with zipfile.ZipFile(packed) as archive:
        check("dates in the zip", {entry.date_time for entry in archive.infolist()}, {time.gmtime(EPOCH)[:6]})
        for text in ("ReadMe.txt", "License.txt"):
            lines = archive.read("SheetmakerPdfAutoCAD/" + text).split(b"\n")
            check(f"line ends of {text}", {line[-1:] for line in lines[:-1]}, {b"\r"})
        return archive.read("SheetmakerPdfAutoCAD/help/index.html").decode()


def check_signature(packer):
    if not shutil.which("osslsigncode") or not shutil.which("openssl"):
        print("left out: a signature; osslsigncode or openssl isn't installed")
        return
    key, certificate, both, password = (os.path.join(packer.folder, name)
                                        for name in ("key.pem", "certificate.pem", "both.p12", "password"))
    with open(password, "w", encoding="ascii") as file:
        file.write("throw-away")
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", key, "-out", certificate,
                    "-days", "2", "-subj", "/CN=Throw-away", "-addext", "extendedKeyUsage=codeSigning"],
                   check=True, capture_output=True)
    subprocess.run(["openssl", "pkcs12", "-export", "-inkey", key, "-in", certificate, "-out", both, "-passout",
                    "file:" + password], check=True, capture_output=True)
    setup, packed = packer.make("certified", SM_SIGN_PKCS12=both, SM_SIGN_PASSWORD_FILE=password)
    with zipfile.ZipFile(packed) as archive:
        for name in ("TwAcadPdf.dll", "sheetmaker.exe"):
            archive.extract("SheetmakerPdfAutoCAD/" + name, packer.folder)
    component = os.path.join(packer.folder, "SheetmakerPdfAutoCAD", "TwAcadPdf.dll")
    for file in (setup, component, component.replace("TwAcadPdf.dll", "sheetmaker.exe")):
        verified = subprocess.run(["osslsigncode", "verify", "-CAfile", certificate, "-in", file], capture_output=True,
                                  text=True, check=False)
        name = os.path.basename(file)
        check(f"signature of {name}", (verified.returncode, Image(read(file)).signature()[1] > 0), (0, True))
    check("the component itself stays unsigned", Image(read(packer.component)).signature(), (0, 0))


class Links(html.parser.HTMLParser):
    def __init__(self, page):
        super().__init__()
        self.ids, self.targets = [], []
        self.feed(page)

    def handle_starttag(self, tag, attributes):
        for name, value in attributes:
            if name == "id":
                self.ids.append(value)
            elif name == "href":
                self.targets.append(value.removeprefix("#"))


def check_topics(page, source):
    """What holds for the help of Linux holds for this one: its contexts, its links, the captions of the forms."""
    with tempfile.TemporaryDirectory() as folder:
        for part in ("src", "adapters", "apps"):
            os.symlink(os.path.join(source, part), os.path.join(folder, part))
        pages = os.path.join(folder, "share", "sheetmaker-pdf", "help")
        shutil.copytree(os.path.join(source, "share", "sheetmaker-pdf", "help"), pages)
        with open(os.path.join(pages, "index.html"), "w", encoding="utf-8") as file:
            file.write(page)
        checked = subprocess.run(["/usr/bin/python3", f"{source}/tests/house/check_help.py", "--source", folder],
                                 capture_output=True, text=True, check=False)
    check("help: as the forms are", (checked.returncode, checked.stdout if checked.returncode else ""), (0, ""))


def check_help(page, source):
    check_topics(page, source)
    links = Links(page)
    check("help: each section once", len(links.ids), len(set(links.ids)))
    check("help: links that lead nowhere", sorted(set(links.targets) - set(links.ids)), [])
    check("help: sections of Windows", {"component", "registry", "installer"} - set(links.ids), set())
    of_linux = r"~/|\.config|\.local|terminal|file manager|apt-get|Linux|\$[A-Z]+"
    check("help: words of Linux", re.findall(of_linux, page), [])


def main(source, component, library, version):
    check_component(component, version)
    with tempfile.TemporaryDirectory() as folder:
        packer = Packer(source, component, folder, version)
        check_help(check_reproduction(packer, library), source)
        check_pc3(os.path.join(packer.folder, "stage"), source)
        check_signature(packer)
    print(f"{failures} failed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
