#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Starts a Slurm of its own on this machine and converts a list of drawings as an array of tasks, one of which is killed.

    slurm.py PROGRAM SAMPLES [--count 200] [--tasks 8]

slurmctld, slurmd and munged listen on loopback addresses and keep everything in a folder of their own; nothing of the machine's own
configuration is read or written, and all of them have ended when this ends. packaging/slurm/convert-list.sbatch runs as a job array;
while it runs, all processes of one task are killed (kill -9), and the task is put back in the queue. Then every drawing must have its
PDF, once and whole, and the merged report must tell of every drawing. Skipped (77) where Slurm is not installed or does not start.
Ends with "N passed, M failed".
"""
import argparse
import glob
import json
import os
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time

import ezdxf
import jsonschema

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
SCRIPTS = os.path.join(ROOT, "packaging", "slurm")
SCHEMA = os.path.join(ROOT, "share", "sheetmaker-pdf", "report.schema.json")
NEEDED = ("slurmctld", "slurmd", "munged", "sbatch", "scontrol", "squeue")
PATH = "/usr/sbin:/usr/bin:/sbin:/bin"
BROKEN = 50  # one drawing in so many is none
SLOW = 6  # drawing of each share that takes a second or two
CONFIGURATION = """ClusterName=sheetmaker
SlurmctldHost={host}(127.0.0.1)
SlurmctldPort={controller}
SlurmdPort={node}
CommunicationParameters=NoInAddrAny,NoCtldInAddrAny
AuthType=auth/munge
AuthInfo=socket={folder}/munge.socket,cred_expire=5
CredType=cred/munge
SlurmUser={user}
SlurmdUser={user}
StateSaveLocation={folder}/controller
SlurmdSpoolDir={folder}/node
SlurmctldPidFile={folder}/slurmctld.pid
SlurmdPidFile={folder}/slurmd.pid
SlurmctldLogFile={folder}/slurmctld.log
SlurmdLogFile={folder}/slurmd.log
SlurmdParameters=config_overrides
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
MpiDefault=none
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
SchedulerType=sched/backfill
SchedulerParameters=batch_sched_delay=0,sched_interval=1,sched_min_interval=100000,bf_interval=2
ReturnToService=2
KillWait=5
NodeName={host} NodeAddr=127.0.0.1 CPUs=4 State=UNKNOWN
PartitionName=night Nodes=ALL Default=YES MaxTime=INFINITE State=UP
"""


def slow_drawing(path):
    """Arrays of arrays of circles, 1.3 million of them."""
    drawing = ezdxf.new("R2000")
    drawing.blocks.new("B0").add_circle((0, 0), 1)
    for level in (1, 2):
        drawing.blocks.new(f"B{level}").add_blockref(f"B{level - 1}", (0, 0), {"row_count": 16, "column_count": 16,
                                                                           "row_spacing": 3 * 16 ** (level - 1),
                                                                           "column_spacing": 3 * 16 ** (level - 1)})
    for place in range(20):
        drawing.modelspace().add_blockref("B2", (place, 0))
    drawing.saveas(path)


class NoSlurm(Exception):
    pass


def free_port():
    with socket.socket() as one:
        one.bind(("127.0.0.1", 0))
        return one.getsockname()[1]


def wait_for(true, seconds, what):
    end = time.monotonic() + seconds
    while not true():
        if time.monotonic() > end:
            raise TimeoutError(what)
        time.sleep(0.1)


class Cluster:
    """munged, slurmctld and slurmd as children of this process, until it is closed."""

    def __init__(self, folder):
        self.folder, self.daemons = folder, []
        self.environment = {"PATH": PATH, "LANG": "C.UTF-8", "SLURM_CONF": os.path.join(folder, "slurm.conf")}
        for part in ("controller", "node"):
            os.mkdir(os.path.join(folder, part))
        with open(os.path.join(folder, "munge.key"), "wb", opener=lambda name, flags: os.open(name, flags, 0o600)) as file:
            file.write(os.urandom(64))
        user = subprocess.run(["id", "-un"], capture_output=True, text=True, check=True).stdout.strip()
        with open(self.environment["SLURM_CONF"], "w", encoding="ascii") as file:
            file.write(CONFIGURATION.format(folder=folder, user=user, host=socket.gethostname().split(".")[0],
                                            controller=free_port(), node=free_port()))

    def start(self):
        inside = lambda name: os.path.join(self.folder, name)
        self.daemon("munged", "--foreground", "--force", "--key-file=" + inside("munge.key"), "--socket=" + inside("munge.socket"),
                    "--pid-file=" + inside("munged.pid"), "--log-file=" + inside("munged.log"), "--seed-file=" + inside("munge.seed"))
        try:
            wait_for(lambda: os.path.exists(inside("munge.socket")), 10, "munged")
            self.daemon("slurmctld", "-D")
            self.daemon("slurmd", "-D")
            wait_for(lambda: self.ask("sinfo", "-h", "-o", "%t").strip() == "idle", 30, "the node is not idle")
        except TimeoutError as error:
            said = "".join(open(log, encoding="utf-8", errors="replace").read()[-2000:] for log in glob.glob(inside("*.log")))
            raise NoSlurm(f"{error}\n{said}") from None

    def daemon(self, *words):
        with open(os.path.join(self.folder, words[0] + ".log"), "a", encoding="utf-8") as log:
            self.daemons.append(subprocess.Popen(words, env=self.environment, stdout=log, stderr=log, cwd=self.folder))

    def ask(self, *words):
        return subprocess.run(words, env=self.environment, capture_output=True, text=True, timeout=30).stdout

    def close(self):
        for daemon in reversed(self.daemons):
            daemon.terminate()
            try:
                daemon.wait(20)
            except subprocess.TimeoutExpired:
                daemon.kill()
                daemon.wait()


def processes_of(job, configuration):
    """Those that a job of this cluster started, by the variables that all of them were given."""
    wanted = {f"SLURM_JOB_ID={job}".encode(), f"SLURM_CONF={configuration}".encode()}
    found = []
    for name in glob.glob("/proc/[0-9]*/environ"):
        try:
            with open(name, "rb") as file:
                if wanted <= set(file.read().split(b"\0")):
                    found.append(int(name.split("/")[2]))
        except OSError:
            pass
    return [process for process in found if process != os.getpid()]


class Night:
    def __init__(self, program, samples, arguments, folder):
        self.folder, self.tasks = folder, arguments.tasks
        self.passed = self.failed = 0
        self.desk = os.path.join(folder, "desk")
        os.mkdir(self.desk)
        self.cluster = Cluster(folder)
        self.environment = {**self.cluster.environment, "PATH": f"{os.path.dirname(program)}:{PATH}", "HOME": os.path.join(folder, "home"),
                            "TMPDIR": os.path.join(folder, "tmp"), "SHEETMAKER_PDF_SHARE": os.path.join(ROOT, "share", "sheetmaker-pdf")}
        for part in ("HOME", "TMPDIR"):
            os.mkdir(self.environment[part])
        self.drawings, self.broken = [], []
        slow_drawing(os.path.join(folder, "slow.dxf"))
        sources = [os.path.join(samples, name) for name in ("house.dxf", "site.dxf", "flange.dxf")]
        for number in range(arguments.count):
            name = f"plans/{number % 7}/plan {number:04}.dxf"
            os.makedirs(os.path.dirname(os.path.join(self.desk, name)), exist_ok=True)
            if number % BROKEN == BROKEN - 1:
                with open(os.path.join(self.desk, name), "w", encoding="ascii") as file:
                    file.write("this is no drawing\n")
                self.broken.append(name)
            else:
                slow = number // arguments.tasks == SLOW
                shutil.copy(os.path.join(folder, "slow.dxf") if slow else sources[number % len(sources)], os.path.join(self.desk, name))
            self.drawings.append(name)
        with open(os.path.join(self.desk, "list.txt"), "w", encoding="utf-8") as file:
            file.writelines(name + "\n" for name in self.drawings)

    def check(self, name, got, wanted):
        good = got == wanted
        print(f"{'ok' if good else 'FAILED':<8}{name}" + ("" if good else f"\n    got    {got!r}\n    wanted {wanted!r}"))
        self.passed, self.failed = self.passed + good, self.failed + (not good)

    def submit(self, *words):
        run = subprocess.run(["sbatch", "--parsable", "--export=ALL", *words], env=self.environment, cwd=self.desk, capture_output=True,
                             text=True, timeout=60)
        if run.returncode != 0:
            raise RuntimeError("sbatch: " + run.stderr)
        return run.stdout.strip()

    def states(self, job):
        """State and ID of each task of an array, by its number."""
        rows = self.cluster.ask("squeue", "-h", "-r", "-t", "all", "-j", job, "-o", "%K %T %A").split("\n")
        return {int(row.split()[0]): row.split()[1:] for row in rows if row and row.split()[0].isdigit()}

    def kill_one(self, job):
        """Kills the first task that is seen to have told of a drawing; its number."""
        def told():
            return sorted(name for name in glob.glob(os.path.join(self.desk, "night/reports/*.jsonl")) if os.path.getsize(name) > 0)
        wait_for(told, 60, "no task begins")
        report = os.path.basename(told()[0])
        victim, identity = int(report.split("-")[1]), int(report.split("-")[2])
        killed = processes_of(identity, self.environment["SLURM_CONF"])
        for process in killed:
            try:
                os.kill(process, signal.SIGKILL)
            except ProcessLookupError:
                pass
        self.check("a task was killed while it ran", len(killed) > 1, True)
        wait_for(lambda: self.states(job).get(victim, [""])[0] in ("FAILED", "CANCELLED", "NODE_FAIL"), 60, "the killed task does not end")
        with open(os.path.join(self.desk, "night/reports", report), encoding="utf-8") as file:
            lines = sum(line.endswith("\n") for line in file)
        share = sum(1 for number in range(len(self.drawings)) if number % self.tasks == victim - 1)
        self.check("it had not done its share", lines < share, True)
        requeued = subprocess.run(["scontrol", "requeue", f"{job}_{victim}"], env=self.environment, capture_output=True, text=True)
        self.check("it was put back in the queue", (requeued.returncode, requeued.stderr), (0, ""))
        return victim

    def run(self):
        job = self.submit(f"--array=1-{self.tasks}", "--output=said-%a.txt", os.path.join(SCRIPTS, "convert-list.sbatch"), "list.txt", "night")
        victim = self.kill_one(job)
        merge = self.submit(f"--dependency=afterany:{job}", "--output=merged.txt", os.path.join(SCRIPTS, "merge-reports.sbatch"), "list.txt",
                            "night")
        ends = ("COMPLETED", "FAILED", "CANCELLED", "TIMEOUT", "NODE_FAIL")
        wait_for(lambda: self.cluster.ask("squeue", "-h", "-t", "all", "-j", merge, "-o", "%T").strip() in ends, 240, "the array does not end")
        bad_shares = sorted({1 + self.drawings.index(name) % self.tasks for name in self.broken})
        self.check("tasks with a broken drawing fail, the others don't", {number: state[0] for number, state in self.states(job).items()},
                   {number: "FAILED" if number in bad_shares else "COMPLETED" for number in range(1, self.tasks + 1)})
        self.check("the killed one ran a second time", len(glob.glob(os.path.join(self.desk, f"night/reports/share-{victim:04}-*-001.jsonl"))),
                   1)
        self.pdfs()
        self.report()
        self.left_over()

    def asked_to_stop(self):
        """The script alone, as Slurm runs it, asked to stop in the middle of a drawing."""
        folder = os.path.join(self.folder, "stop")
        os.mkdir(folder)
        shutil.copy(os.path.join(self.folder, "slow.dxf"), folder)
        with open(os.path.join(folder, "list.txt"), "w", encoding="utf-8") as file:
            file.write("slow.dxf\n")
        variables = {"SLURM_ARRAY_TASK_COUNT": "1", "SLURM_ARRAY_TASK_ID": "1", "SLURM_JOB_ID": "999999999"}
        with subprocess.Popen([os.path.join(SCRIPTS, "convert-list.sbatch"), "list.txt", "night"], cwd=folder, stderr=subprocess.PIPE,
                              text=True, env={**self.environment, **variables}) as task:
            wait_for(lambda: glob.glob(os.path.join(self.environment["TMPDIR"], "*", "tmp", "*")), 20, "the task does not begin")
            task.terminate()
            said = task.communicate(timeout=60)[1]
        self.check("a task that is asked to stop does", (task.returncode, said), (130, "sheetmaker: interrupted\n"))
        self.check("and leaves nothing half-made", (sorted(os.listdir(folder)), os.listdir(self.environment["TMPDIR"])),
                   (["list.txt", "night", "slow.dxf"], []))

    def pdfs(self):
        found = sorted(os.path.relpath(name, self.desk) for name in glob.glob(os.path.join(self.desk, "**", "*.pdf"), recursive=True))
        self.check("every PDF, once", found, sorted(name[:-4] + ".pdf" for name in self.drawings if name not in self.broken))
        torn = [name for name in found if subprocess.run(["qpdf", "--check", os.path.join(self.desk, name)], capture_output=True).returncode]
        self.check("all of them whole", torn, [])

    def report(self):
        with open(os.path.join(self.desk, "merged.txt"), encoding="utf-8") as file:
            said = [line for line in file.read().splitlines() if "breaks off" not in line]
        self.check("the merging job had nothing to say", said, [])
        with open(os.path.join(self.desk, "night/report.json"), encoding="utf-8") as file:
            report = json.load(file)
        with open(SCHEMA, encoding="utf-8") as file:
            errors = [error.message for error in jsonschema.Draft202012Validator(json.load(file)).iter_errors(report)]
        self.check("the report is as its schema says", errors, [])
        self.check("it tells of every drawing once", sorted(one["drawing"] for one in report["drawings"]), sorted(self.drawings))
        self.check("it names the broken ones", sorted(one["drawing"] for one in report["drawings"] if not one["converted"]), self.broken)

    def left_over(self):
        logs = glob.glob(os.path.join(self.desk, "night/logs/*/*.log"))
        self.check("every drawing has its log", len(logs), len(self.drawings) - len(self.broken))
        self.check("nothing is left in the temporary folder", os.listdir(self.environment["TMPDIR"]), [])
        self.check("nor in the user's", os.listdir(self.environment["HOME"]), [])
        hidden = [name for folder, _, names in os.walk(self.desk) for name in names if name.startswith(".")]
        self.check("nor beside the drawings", hidden, [])


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", type=os.path.abspath)
    parser.add_argument("samples", type=os.path.abspath)
    parser.add_argument("--count", type=int, default=200)
    parser.add_argument("--tasks", type=int, default=8)
    arguments = parser.parse_args()
    missing = [name for name in NEEDED if not shutil.which(name, path=PATH)]
    if missing:
        print("skipped: not installed: " + ", ".join(missing))
        return 77
    with tempfile.TemporaryDirectory(prefix="sm-slurm-") as folder:
        night = Night(arguments.program, arguments.samples, arguments, folder)
        try:
            night.asked_to_stop()
            night.cluster.start()
            night.run()
        except NoSlurm as error:
            print(f"skipped: Slurm does not start here: {error}")
            return 77
        finally:
            night.cluster.close()
    print(f"{night.passed} passed, {night.failed} failed")
    return 1 if night.failed else 0


if __name__ == "__main__":
    sys.exit(main())
