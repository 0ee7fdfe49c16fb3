# SPDX-License-Identifier: GPL-3.0-or-later
"""The operating system is known in a few rooms only, and paths are made from text in one place.

Everything else must compile for another system as it stands: what it needs of the system it asks of base/.
"""
import functools
import os
import re

from sources import INCLUDE, STANDARD, files, read

# Rooms that may include the system's headers and call its functions.
KNOW_THE_SYSTEM = ("adapters/base/", "adapters/system/", "adapters/store/", "adapters/qt/", "adapters/windows/",
                   "adapters/win32/")
# The processes of the workers are forks of this one on one system, and programs of their own on the other.
WORKERS = ("apps/sheetmaker/workers/posix/", "apps/sheetmaker/workers/windows/")
# The windows of Windows hang together by its handles.
WINDOWS = ("apps/sheetmaker/win32/",)

HEADERS = re.compile(r"^(sys|net|netinet|arpa|linux)/|^(unistd|fcntl|dirent|pwd|grp|poll|spawn|dlfcn|signal|strings|langinfo|"
                     r"iconv|locale|termios|netdb|pthread|sched|glob|fnmatch|wordexp|libgen|syslog|ftw|nl_types|utime|"
                     r"semaphore|mqueue|aio|stdlib|windows)\.h$")
CALLS = re.compile(r"(?<![\w.>])(?:::)?(getpid|getppid|getuid|geteuid|getpwuid|isatty|fork|vfork|execv|execve|execvp|waitpid|"
                   r"pipe2|dup2|mkstemp|mkostemp|mkdtemp|localtime_r|gmtime_r|strsignal|strcasecmp|strncasecmp|readlink|"
                   r"realpath|popen|pclose|setenv|unsetenv|sigprocmask|sigaction|usleep|lseek|pread|ftruncate|fsync|umask|chmod|chown)\s*\(")
ENVIRON = re.compile(r"\bextern char\s*\*\*\s*environ\b")

# Where text and paths become each other.
MAKES_PATHS = "adapters/base/files/"
# The plug-in stands on the standard library alone and keeps its paths as text.
PATHS_IN = ("adapters/", "apps/")
FROM_TEXT = re.compile(r"(?:std::filesystem|(?<![\w:])fs)::path\((?!\)|const std::filesystem::path)|\bu8path\(")
# What takes a path and would make one of text without a word; the name that it is given.
TAKES_PATH = re.compile(r"\b(?:std::filesystem|fs)::(?:absolute|canonical|weakly_canonical|exists|is_directory|is_regular_file|is_symlink|"
                        r"is_empty|equivalent|remove|remove_all|rename|copy|copy_file|create_directory|create_directories|"
                        r"create_symlink|read_symlink|file_size|last_write_time|permissions|resize_file|space|status|symlink_status|"
                        r"directory_iterator|recursive_directory_iterator)(?:\s+\w+)?\(\s*\*?(?:\w+(?:\.|->))*(\w+)\s*[,)]")
OPENS = re.compile(r"\b[io]?fstream(?:\s+\w+)?\(\s*\*?(?:\w+(?:\.|->))*(\w+)\s*[,)]")
JOINS = re.compile(r"(?<![/*])/ (?:\w+(?:\.|->))*(\w+)(?![\w(:.\-])")
BECOMES = re.compile(r"\b(?:std::filesystem|fs)::path&?\s+\w+(?:\s*=\s*|\()(?:\w+(?:\.|->))*(\w+)\s*[;)]")
GIVES_TEXT = re.compile(r"\b(?:std::filesystem|fs)::path\s+\w+\s*=\s*(?!base::ToPath).*\.value_or\(\"|/ \(?\w+ \+ \"|/ fmt::format")
IS_TEXT = re.compile(r"\bstd::(?:string(?:_view)?|optional<std::string>)(?:\s+const)?&?\s+(\w+)\s*(?=[;,)={(:])")
IS_PATH = re.compile(r"\b(?:std::filesystem|fs)::path(?:\s+const)?&?\s+(\w+)\s*(?=[;,)={(:])")
IS_OTHER = re.compile(r"\b(?:char|double|float|int|auto|std::u?int\d+_t|std::size_t)(?:\s+const)?[&*]?\s+(\w+)\s*(?=[;,)={(:])")
TO_TEXT = re.compile(r"\.(?:generic_)?(?:u8)?string\(\)")


def code_of(line):
    """Without comments and what stands in quotes."""
    return re.sub(r'"(?:[^"\\]|\\.)*"', '""', line).split("//")[0]


def faults_of_system(name, text):
    for quote, header in INCLUDE.findall(text):
        if quote == "<" and header not in STANDARD and HEADERS.match(header):
            yield f"{name}: includes <{header}>, which this system alone has; ask base/ for what it gives"
    for number, line in enumerate(text.splitlines(), 1):
        call = CALLS.search(code_of(line))
        if call or ENVIRON.search(line):
            yield f"{name}:{number}: {call.group(1) if call else 'environ'} is this system's; ask base/ for it"


def names_of(pattern, text):
    return set(pattern.findall("\n".join(code_of(line) for line in text.splitlines())))


def text_names(source, name, text):
    """Names that mean text in a file: its own, its header's, and members that no header has for a path."""
    header = name[:-len(".cpp")] + ".h"
    near = text + (read(source, header) if name.endswith(".cpp") and os.path.exists(os.path.join(source, header)) else "")
    return (names_of(IS_TEXT, near) | (members(source) - names_of(IS_OTHER, near))) - names_of(IS_PATH, near)


@functools.cache
def members(source):
    texts, paths = set(), set()
    for name in files(source, PATHS_IN, (".h",)):
        for line in read(source, name).splitlines():
            if line.startswith("    ") and line.split("//")[0].rstrip().endswith(";") and "(" not in line.split("//")[0]:
                texts |= names_of(IS_TEXT, line)
                paths |= names_of(IS_PATH, line)
    return texts - paths


def silent_paths(code, texts):
    """Where text becomes a path without a word, as far as the names of what is text tell."""
    for pattern in (TAKES_PATH, OPENS, JOINS, BECOMES):
        for found in pattern.finditer(code):
            if found.group(1) in texts:
                yield found.group(1)
    if GIVES_TEXT.search(code) and "ToPath(" not in code:
        yield "text"


def faults_of_silent_paths(source, name, text):
    if "filesystem" not in text and "fs::" not in text and "ToPath" not in text:
        return
    texts = text_names(source, name, text)
    for number, line in enumerate(text.splitlines(), 1):
        for what in silent_paths(re.sub(r'"(?:[^"\\]|\\.)*"', '""', line).split("//")[0], texts):
            yield f"{name}:{number}: {what} becomes a path without a word; base::ToPath makes it one"


def faults_of_paths(name, text):
    for number, line in enumerate(text.splitlines(), 1):
        code = code_of(line)
        if FROM_TEXT.search(code):
            yield f"{name}:{number}: makes a path from text; base::ToPath does"
        if TO_TEXT.search(code):
            yield f"{name}:{number}: makes text from a path; base::ToText does"


def check_platform(source):
    for name in files(source, ["src", "adapters", "apps"], (".h", ".cpp")):
        text = read(source, name)
        if not name.startswith((*KNOW_THE_SYSTEM, *WORKERS, *WINDOWS)):
            yield from faults_of_system(name, text)
        if name.startswith(PATHS_IN) and not name.startswith((MAKES_PATHS, "adapters/windows/")):
            yield from faults_of_paths(name, text)
            yield from faults_of_silent_paths(source, name, text)
