#!/usr/bin/env python3
"""The Debian package in a root of its own: installed by dpkg, tried there, removed without a trace.

deb_test.py DIST WINDOWS_PROGRAMS NATIVE_PROGRAMS
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import support

DEB = support.package(r"qz7_.+_amd64\.deb")
# Who is not root becomes it in a name space of its own.
AS_ROOT = [] if os.geteuid() == 0 else ["unshare", "--map-root-user"]
# What dpkg keeps for itself.
OF_DPKG = re.compile(r"var/(lib/dpkg/(status|status-old|lock|lock-frontend|available|diversions|"
                     r"statoverride|triggers/.*|info/format|updates/.*)|log/dpkg\.log)")


def run(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, text=True, **options).stdout


class Installed(unittest.TestCase):
    def setUp(self):
        self.root = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.root)
        # An empty root, on which what this machine has installed counts as installed.
        admin = os.path.join(self.root, "var/lib/dpkg")
        os.makedirs(os.path.join(admin, "info"))
        os.makedirs(os.path.join(admin, "updates"))
        shutil.copy("/var/lib/dpkg/status", admin)
        self.empty = self.files()
        self.dpkg("--install", DEB)

    def files(self):
        return {name for name in support.files_below(self.root) if not OF_DPKG.fullmatch(name)}

    def folders(self):
        return {name for name in os.listdir(self.root) if name != "var"}

    def dpkg(self, *arguments):
        run(*AS_ROOT, "dpkg", f"--root={self.root}", "--log=/dev/null", *arguments,
            env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL": "C"})

    def run_inside(self, *command):
        """In the root alone, with the libraries that the package depends on."""
        for line in run("ldd", self.root + command[0]).splitlines():
            library = re.search(r"(/\S+) \(0x", line)
            if library:
                place = self.root + library.group(1)
                os.makedirs(os.path.dirname(place), exist_ok=True)
                shutil.copy(library.group(1), place)
        return run(*AS_ROOT, "chroot", self.root, *command)

    def test_runs_there(self):
        for name in ("qz7ctl", "qz7radio"):
            self.assertEqual(f"{name} {support.version()}\n",
                             self.run_inside(f"/usr/bin/{name}", "--version"))
        self.run_inside("/usr/bin/qz7ctl", "new", "/new.rdf")
        self.run_inside("/usr/bin/qz7ctl", "import", "/new.rdf", "/usr/share/qz7/samples/journey.tpe",
                        "/journey.rdf", "--headers")
        self.assertIn("\tSUMMIT", self.run_inside("/usr/bin/qz7ctl", "rows", "/journey.rdf"))

    def test_has_manual_pages(self):
        for name in ("qz7ctl", "qz7radio"):
            page = run("mandoc", "-T", "utf8", f"{self.root}/usr/share/man/man1/{name}.1.gz")
            self.assertIn(f"{name}(1)", page.lower())

    def test_is_removed_without_a_trace(self):
        self.assertIn("usr/bin/qz7ctl", self.files())
        self.dpkg("--purge", "qz7")
        self.assertEqual(self.empty, self.files())
        self.assertEqual(set(), self.folders())

    def test_a_newer_one_takes_the_place_of_an_older_one(self):
        with open(self.root + "/var/lib/dpkg/status", encoding="utf-8") as file:
            status = file.read()
        older = re.sub(r"(?m)(^Package: qz7\n(?:.+\n)*?Version: ).*", r"\g<1>0.9.0", status)
        self.assertNotEqual(status, older)
        with open(self.root + "/var/lib/dpkg/status", "w", encoding="utf-8") as file:
            file.write(older)
        before = self.files()
        self.dpkg("--install", DEB)
        self.assertEqual(before, self.files())


class Package(unittest.TestCase):
    def test_lintian_finds_nothing(self):
        told = subprocess.run(["lintian", "--allow-root", "--fail-on", "error,warning", DEB],
                              check=False, capture_output=True, text=True)
        self.assertEqual((0, ""), (told.returncode, told.stdout + told.stderr))


if __name__ == "__main__":
    del sys.argv[1:3]
    unittest.main()
