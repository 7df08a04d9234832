# SPDX-License-Identifier: MIT
"""What the tests of the Ansible collection share: virtual printers, the collection as Ansible finds it,
and an environment that touches nothing of the user's.

Each test program gets the build folder as its first word. Its addresses are its own process's, so that
tests may run side by side.
"""
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
COLLECTION = ROOT / "packaging/ansible"
# The command line with shortened pauses; no product program has such a switch.
CLI = BUILD / "tests/vymkit-cli-fast"
PACKAGE = BUILD / "bin/VYMBINDDATA"
SHA256 = hashlib.sha256(PACKAGE.read_bytes()).hexdigest()
OLD = {"MAIN": "VP010100", "ENGINE": "VE010100"}
NEW = {"MAIN": "VP010210", "ENGINE": "VE010105"}
# A printer that restarts after its update with the versions of the package.
RESTART = ["--restart", "0.1", *(word for name, version in NEW.items()
                                 for word in ("--updated", f"{name}={version}"))]
BLOCK = 64  # addresses of one process, out of 2^16 blocks


def own_address(number):
    """The number-th address of this process, from 0; 127.128 to 127.191 are no other tests'."""
    assert number < BLOCK - 1
    pid = os.getpid()
    return f"127.{128 + (pid >> 10 & 63)}.{pid >> 2 & 255}.{(pid & 3) * BLOCK + number + 1}"


def collections_in(folder):
    """Puts the collection where Ansible looks for it; returns the path of collections."""
    place = pathlib.Path(folder) / "collections/ansible_collections/vymkit"
    place.mkdir(parents=True)
    (place / "printers").symlink_to(COLLECTION)
    return place.parent.parent


class Folder(unittest.TestCase):
    """A test with a folder and an environment of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        # A print server that is not there: whatever runs here is left out of it.
        self.env = {"PATH": os.environ["PATH"], "HOME": str(self.folder), "LC_ALL": "C.UTF-8",
                    "XDG_STATE_HOME": str(self.folder / "state"),
                    "CUPS_SERVER": str(self.folder / "cups.sock")}

    def printers(self, first, count=1, *options, firmware=None):
        """Starts virtual printers at addresses of this process; they end with the test."""
        words = [str(BUILD / "bin/vymprinter"), "--listen", f"{own_address(first)}:48350",
                 "--count", str(count), "--model", "Vymprint 200", "--quiet",
                 "--store", str(self.folder / "received"), *options]
        for name, version in (firmware or OLD).items():
            words += ["--firmware", f"{name}={version}"]
        process = subprocess.Popen(words, stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.end, process)
        for _ in range(count):
            self.assertIn("listening on", process.stdout.readline())
        return process

    @staticmethod
    def end(process):
        process.terminate()
        process.wait(timeout=30)
        process.stdout.close()

    def received(self):
        """Which printers, as numbers of their addresses, have stored the firmware, by its name."""
        found = {"MAIN": set(), "ENGINE": set()}
        numbers = {own_address(number): number for number in range(BLOCK - 1)}
        for name, those in found.items():
            for image in (self.folder / "received").glob(f"*/{name}.BIN"):
                those.add(numbers[image.parent.name])
        return found


class Ansible(Folder):
    """A test that runs Ansible's own programs."""

    def setUp(self):
        super().setUp()
        self.env |= {"ANSIBLE_COLLECTIONS_PATH": str(collections_in(self.folder)),
                     "ANSIBLE_HOME": str(self.folder / "ansible"),
                     "ANSIBLE_LOCAL_TEMP": str(self.folder / "ansible/tmp"),
                     "ANSIBLE_REMOTE_TEMP": str(self.folder / "ansible/tmp"),
                     "ANSIBLE_CONFIG": str(self.folder / "ansible.cfg"), "ANSIBLE_NOCOLOR": "1",
                     "ANSIBLE_FORKS": "10",
                     "ANSIBLE_PYTHON_INTERPRETER": sys.executable, "ANSIBLE_PIPELINING": "1",
                     "ANSIBLE_LOCALHOST_WARNING": "0"}
        (self.folder / "ansible.cfg").touch()

    def ansible(self, *words, folder=None):
        return subprocess.run([str(word) for word in words], capture_output=True, text=True,
                              timeout=600, check=False, cwd=folder or self.folder, env=self.env,
                              stdin=subprocess.DEVNULL)

    def inventory(self, hosts, away=(), **variables):
        """Printers of two sites, each with its runner: this computer, twice, if it is not away."""
        everybody = {"fleet_package": str(PACKAGE), "fleet_sha256": SHA256,
                     "fleet_vymkit_cli": str(CLI), "ansible_connection": "local", **variables}
        everybody = {name: value for name, value in everybody.items() if value is not None}
        # Its own address stands beside a runner, so that it is not mistaken for a printer's.
        runners = {f"runner-{site}": {"ansible_host": "127.0.0.1"} for site in ("north", "south")}
        no_way = self.folder / "ssh"
        no_way.write_text("#!/bin/sh\nexit 255\n")
        no_way.chmod(0o755)
        for site in away:
            runners[f"runner-{site}"] |= {"ansible_connection": "ssh",
                                          "ansible_ssh_executable": str(no_way)}
        sites = {}
        for index, (name, facts) in enumerate(hosts.items()):
            site = "north" if index < (len(hosts) + 1) // 2 else "south"
            sites.setdefault(site, {"hosts": {}, "vars": {"fleet_site": site,
                                                          "fleet_runner": f"runner-{site}"}})
            sites[site]["hosts"][name] = facts
        path = self.folder / "inventory.json"
        path.write_text(json.dumps({"all": {"vars": everybody, "children": {
            "runners": {"hosts": runners}, "printers": {"children": sites}}}}))
        return path

    def play(self, inventory, *words):
        """Runs the collection's playbook; returns exit code, output, and the report by site."""
        done = self.ansible("ansible-playbook", "-i", inventory, "vymkit.printers.update", *words)
        reports = re.findall(r'"msg": (\[.*?^    \])', done.stdout, re.MULTILINE | re.DOTALL)
        report = "\n".join(json.loads(reports[-1])) if reports else ""
        return done.returncode, done.stdout + done.stderr, report

    @staticmethod
    def recap(output):
        """The statistics of each printer at the end of the output: host, then "changed" and so on."""
        hosts = re.findall(r"^(\S+)\s+: (ok=.*)$", output.rpartition("PLAY RECAP")[2], re.MULTILINE)
        return {host: {name: int(count) for name, count in re.findall(r"(\w+)=(\d+)", counts)}
                for host, counts in hosts if not host.startswith("runner")}
