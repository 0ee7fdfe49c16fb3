# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs a command and says what it took: wall and CPU seconds, memory of its largest process and of all together."""
import os
import subprocess
import tempfile
import threading
import time


class Result:
    """Seconds and MiB of one run; `ok` when it exited 0 and left its output."""

    def __init__(self, ok, wall, cpu, largest, together, size):
        self.ok, self.wall, self.cpu, self.largest, self.together, self.size = ok, wall, cpu, largest, together, size


def tree_memory(root):
    """Proportional memory in KiB of a process and all it started."""
    children = {}
    for entry in os.listdir("/proc"):
        if entry.isdigit():
            try:
                with open(f"/proc/{entry}/stat", "rb") as file:
                    parent = int(file.read().rsplit(b")", 1)[1].split()[1])
                children.setdefault(parent, []).append(int(entry))
            except (OSError, IndexError):
                pass
    total, queue = 0, [root]
    while queue:
        pid = queue.pop()
        queue.extend(children.get(pid, []))
        try:
            with open(f"/proc/{pid}/smaps_rollup", "rb") as file:
                for line in file:
                    if line.startswith(b"Pss:"):
                        total += int(line.split()[1])
                        break
        except OSError:
            pass
    return total


def run(command, output, timeout=900, sample=True):
    """Runs `command` in an empty folder; `output` is the file it must leave, None when it leaves none."""
    if output and os.path.exists(output):
        os.remove(output)
    peak = [0]
    stop = threading.Event()
    with tempfile.TemporaryDirectory() as folder, open(os.devnull, "r+b") as null:
        begin = time.monotonic()
        process = subprocess.Popen(command, cwd=folder, stdin=null, stdout=null, stderr=null)

        def watch():
            while not stop.wait(0.02):
                peak[0] = max(peak[0], tree_memory(process.pid))

        watcher = threading.Thread(target=watch)
        if sample:
            watcher.start()
        killer = threading.Timer(timeout, process.kill)
        killer.start()
        _, status, usage = os.wait4(process.pid, 0)
        wall = time.monotonic() - begin
        process.returncode = os.waitstatus_to_exitcode(status)
        killer.cancel()
        stop.set()
        if sample:
            watcher.join()
    size = os.path.getsize(output) if output and os.path.exists(output) else 0
    largest = usage.ru_maxrss
    return Result(process.returncode == 0 and (size > 0 or not output), wall, usage.ru_utime + usage.ru_stime, largest / 1024,
                  max(peak[0], largest if not peak[0] else 0) / 1024, size)
