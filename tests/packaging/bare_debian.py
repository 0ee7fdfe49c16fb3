# SPDX-License-Identifier: GPL-3.0-or-later
"""A Debian system with nothing but its base, made once by debootstrap and copied for each use; needs root.

Its mounts live in the name space of each process that runs in it and end with that, so that a folder is removed without harm.
"""
import os
import shutil
import subprocess

SOURCES = ("/etc/apt/sources.list", "/etc/apt/sources.list.d", "/etc/apt/apt.conf.d", "/etc/apt/trusted.gpg.d", "/etc/resolv.conf")
# A root file system in $1; the rest is the command.
ENTER = """set -e
root=$1
shift
mount -t proc proc "$root/proc"
mount -t tmpfs tmpfs "$root/dev"
for device in "null 1 3" "zero 1 5" "full 1 7" "random 1 8" "urandom 1 9" "tty 5 0"; do
    set -- $device "$@"
    mknod -m 666 "$root/dev/$1" c "$2" "$3"
    shift 3
done
ln -s /proc/self/fd "$root/dev/fd"
mkdir "$root/dev/shm"
exec chroot "$root" env -i HOME=/root LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive \\
    PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin "$@"
"""


def why_not():
    """Why no such system can be made here, or None."""
    if os.geteuid() != 0:
        return "it takes root"
    for tool in ("debootstrap", "unshare", "chroot"):
        if shutil.which(tool) is None:
            return f"{tool} is not installed"
    if mirror() is None:
        return "this machine installs from no Debian mirror that could be used"
    tried = subprocess.run(["unshare", "-m", "--propagation", "private", "true"], capture_output=True, text=True)
    return tried.stderr.strip() if tried.returncode != 0 else None


def mirror():
    """The archive that this machine installs from, or None."""
    for line in subprocess.run(["apt-get", "indextargets", "--format", "$(SITE) $(RELEASE)"], capture_output=True,
                               text=True).stdout.splitlines():
        words = line.split()
        if len(words) == 2 and words[1] in ("bookworm", "stable"):
            return words[0]
    return None


def make_base(folder):
    """The archive of a base system, made the first time; raises CalledProcessError when it can't be."""
    archive = os.path.join(folder, "base.tar")
    if not os.path.exists(archive):
        os.makedirs(folder, exist_ok=True)
        root = os.path.join(folder, "base")
        remove(root)
        subprocess.run(["debootstrap", "--variant=minbase", "bookworm", root, mirror()], check=True, capture_output=True, text=True)
        for path in SOURCES:
            if os.path.isdir(path):
                shutil.copytree(path, root + path, dirs_exist_ok=True)
            elif os.path.exists(path):
                shutil.copy(path, root + path)
        subprocess.run(["tar", "-C", root, "-cf", archive + ".part", "."], check=True)
        os.rename(archive + ".part", archive)
        remove(root)
    return archive


def remove(folder):
    subprocess.run(["rm", "-rf", "--one-file-system", folder], check=True)


class BareDebian:
    """A copy of the base system in `folder`, which it may fill."""

    def __init__(self, archive, folder):
        self.root = folder
        os.makedirs(folder, exist_ok=True)
        subprocess.run(["tar", "-C", folder, "-xpf", archive], check=True)

    def run(self, *words, user=None, timeout=900):
        """The finished process of a command in it."""
        command = ["su", "-l", user, "-s", "/bin/sh", "-c", words[0]] if user else list(words)
        return subprocess.run(["unshare", "-m", "--propagation", "private", "bash", "-c", ENTER, "bash", self.root, *command],
                              capture_output=True, text=True, timeout=timeout)

    def path(self, name):
        return self.root + name

    def names(self, part):
        """Files whose path holds `part`, without those of /proc."""
        found = self.run("find", "/", "-xdev", "-path", f"*{part}*").stdout.split("\n")
        return sorted(name for name in found if name)
