"""The operating system is known in a few rooms only, and paths are made from text in one place.

Everything else must compile for another system as it stands: what it needs of the system it asks of base/.
"""
import re

from sources import INCLUDE, STANDARD, files, read

# Rooms that may include the system's headers and call its functions.
KNOW_THE_SYSTEM = ("adapters/base/", "adapters/system/", "adapters/store/", "adapters/qt/", "adapters/windows/")
# The processes of the workers are forks of this one; another system needs another worker altogether.
FORKS = {"apps/sheetmaker/workers/Worker.h", "apps/sheetmaker/workers/Worker.cpp",
         "apps/sheetmaker/workers/WorkerPool.cpp"}

HEADERS = re.compile(r"^(sys|net|netinet|arpa|linux)/|^(unistd|fcntl|dirent|pwd|grp|poll|spawn|dlfcn|signal|strings|langinfo|"
                     r"iconv|locale|termios|netdb|pthread|sched|glob|fnmatch|wordexp|libgen|syslog|ftw|nl_types|utime|"
                     r"semaphore|mqueue|aio|stdlib|windows)\.h$")
CALLS = re.compile(r"(?<![\w.>])(?:::)?(getpid|getppid|getuid|geteuid|getpwuid|isatty|fork|vfork|execv|execve|execvp|waitpid|"
                   r"pipe2|dup2|mkstemp|mkostemp|mkdtemp|localtime_r|gmtime_r|strsignal|strcasecmp|strncasecmp|readlink|"
                   r"realpath|setenv|unsetenv|sigprocmask|sigaction|usleep|lseek|pread|ftruncate|fsync|umask|chmod|chown)\s*\(")
ENVIRON = re.compile(r"\bextern char\s*\*\*\s*environ\b")

# Where text and paths become each other.
MAKES_PATHS = "adapters/base/files/"
# The plug-in stands on the standard library alone and keeps its paths as text.
PATHS_IN = ("adapters/", "apps/")
FROM_TEXT = re.compile(r"(?:std::filesystem|(?<![\w:])fs)::path\((?!\)|const std::filesystem::path)|\bu8path\(")
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
        if not name.startswith(KNOW_THE_SYSTEM) and name not in FORKS:
            yield from faults_of_system(name, text)
        if name.startswith(PATHS_IN) and not name.startswith((MAKES_PATHS, "adapters/windows/")):
            yield from faults_of_paths(name, text)
