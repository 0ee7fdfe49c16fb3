# SPDX-License-Identifier: GPL-3.0-or-later
"""What a run did to the machine's files, as strace saw it: each process that it started, each file that it opened or changed."""
import codecs
import glob
import os
import re
import signal
import subprocess

CALL = re.compile(r"(\w+)\((.*)\) += (-?\d+|\?)(?:<((?:[^>\\]|\\.)*)>)?(?: (E\w+))?")
TEXT = re.compile(r'"((?:[^"\\]|\\.)*)"')
FROM = re.compile(r"^(?:AT_FDCWD|\d+)<((?:[^>\\]|\\.)*)>")
OPENING = {"open", "openat", "openat2", "creat"}
LOOKING = {"stat", "lstat", "newfstatat", "statx", "access", "faccessat", "faccessat2", "readlink", "readlinkat", "statfs", "chdir", "getcwd",
           "getxattr", "lgetxattr", "listxattr", "inotify_add_watch", "fstat", "fstatfs"}
# What the C library, its locales and fontconfig read, and the interpreter's own files.
SYSTEM = ("/usr/", "/lib/", "/lib64/", "/etc/ld.so.cache", "/etc/fonts/", "/etc/passwd", "/etc/nsswitch.conf", "/etc/machine-id",
          "/etc/locale.alias", "/etc/localtime", "/etc/papersize", "/etc/ghostscript/", "/var/lib/ghostscript/", "/var/cache/fontconfig/",
          "/sys/devices/system/cpu/")
HARMLESS = re.compile(r"/dev/null|/dev/urandom|/proc/stat|/proc/(\d+|self)/stat|/proc/(self|\d+)/(exe|maps|ns/pid)|/proc/(meminfo|cpuinfo|sys/.*)")


def plain(text):
    return os.fsdecode(codecs.escape_decode(text.encode("latin-1"))[0])


class Trace:
    """Of the commands that `run` ran: `opened` (path without links, whether for writing, whether a folder), `changed` and
    `touched` paths, `programs` that were started, `reached` addresses of other machines or services."""

    def __init__(self):
        self.opened, self.changed, self.touched, self.programs, self.reached = [], [], [], [], []

    def read(self, prefix):
        for name in glob.glob(prefix + ".*"):
            with open(name, encoding="latin-1") as file:
                for line in file:
                    if match := CALL.match(line):
                        self.add(*match.groups())

    def add(self, name, arguments, result, seen, _):
        where, texts = FROM.match(arguments), [plain(text) for text in TEXT.findall(arguments)]
        if name in ("execve", "execveat"):
            self.programs += [os.path.realpath(texts[0])] if result == "0" else []
        elif name == "connect":
            self.reached += [] if "/var/run/nscd/socket" in texts else [arguments]  # the C library asks who the user is
        elif name in OPENING or name not in LOOKING:
            folder = plain(where.group(1)) if where else "/"
            paths = [os.path.join(folder, text) for text in texts if text]
            self.touched += paths
            if name in OPENING:
                self.add_opened(name, arguments, paths, seen)
            elif name.startswith(("symlink", "link")):
                self.changed += [os.path.realpath(os.path.dirname(paths[-1]))]
            elif name not in ("clone", "clone3", "fork", "vfork", "wait4", "waitid", "exit_group", "exit", "kill", "tgkill", "pidfd_open"):
                self.changed += [os.path.join(os.path.realpath(os.path.dirname(path)), os.path.basename(path)) for path in paths]
        else:
            self.touched += [text for text in texts if text.startswith("/")]

    def add_opened(self, name, arguments, paths, seen):
        flags = TEXT.sub("", arguments)
        written = name == "creat" or re.search(r"O_WRONLY|O_RDWR|O_CREAT|O_TRUNC|O_TMPFILE", flags) is not None
        if seen is not None or written:
            path = plain(seen).removesuffix(" (deleted)") if seen is not None else os.path.realpath(paths[0])
            self.opened.append((path, written, "O_DIRECTORY" in flags))


def run(command, folder, environment, logs, patience):
    """Exit code, the lines on the error stream, and the trace of the command."""
    prefix = os.path.join(logs, "trace")
    tracer = ["strace", "-ff", "-qq", "-y", "-s", "9000", "--seccomp-bpf", "-e", "trace=%file,%process,connect,sendto", "-e", "signal=none",
              "-o", prefix]
    tracing = subprocess.Popen([*tracer, *command], cwd=folder, env=environment, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL,
                               stderr=subprocess.PIPE, start_new_session=True)
    try:
        _, told = tracing.communicate(b"secret\n", timeout=patience)
    except subprocess.TimeoutExpired:
        os.killpg(tracing.pid, signal.SIGKILL)
        tracing.communicate()
        raise
    trace = Trace()
    trace.read(prefix)
    return tracing.returncode, told.decode(errors="backslashreplace"), trace


def is_below(path, folders):
    return any(path == folder or path.startswith(folder.rstrip("/") + "/") for folder in folders)


def problems(trace, job, own, read, listed, programs, share):
    """What the run did and may not: it may write in the folders `job` and `own`, read the files `read` of the job and elsewhere, list
    `listed` folders, start `programs`."""
    found = []
    for path, written, folder in trace.opened:
        if HARMLESS.fullmatch(path) or is_below(path, own) or (written and is_below(path, [job])):
            continue
        if written:
            found.append(f"{path} was opened for writing")
        elif folder and not path.startswith(SYSTEM) and not is_below(path, [share]) and path not in listed:
            found.append(f"the folder {path} was read")
        elif not folder and not path.startswith(SYSTEM) and not is_below(path, [share, *programs]) and path not in read:
            found.append(f"{path} was read")
    found += [f"{path} was changed" for path in trace.changed if not is_below(path, [job, *own])]
    found += [f"{path} was touched" for path in trace.touched if path.startswith(("//", "/net/"))]
    found += [f"{path} was started" for path in trace.programs if path not in programs]
    found += [f"{address} was reached" for address in trace.reached]
    return sorted(set(found))
