# SPDX-License-Identifier: GPL-3.0-or-later
"""What the rules of the house read: files, their text, their includes."""
import os
import re

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.M)
STANDARD = set("""algorithm array atomic bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes climits
clocale cmath compare complex concepts condition_variable csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring
ctime cwchar cwctype deque exception execution filesystem forward_list fstream functional future initializer_list iomanip
ios iosfwd iostream istream iterator latch limits list locale map memory memory_resource mutex new numbers numeric optional
ostream queue random ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack
stdexcept stop_token streambuf string string_view syncstream system_error thread tuple type_traits typeindex typeinfo
unordered_map unordered_set utility valarray variant vector version""".split())


def files(source, folders, endings):
    for folder in folders:
        for path, _, names in os.walk(os.path.join(source, folder)):
            for name in sorted(names):
                if name.endswith(endings):
                    yield os.path.relpath(os.path.join(path, name), source)


def read(source, name):
    with open(os.path.join(source, name), encoding="utf-8") as file:
        return file.read()
