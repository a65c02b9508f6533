#!/usr/bin/env python3
"""Exchanges in a row, each with random faults by its seed (1 to 16, if not told):
random_exchanges_test.py FOLDER [FIRST LAST]

Each ends as its faults say, leaves whole files or none, and no process or descriptor."""
import collections
import os
import re
import signal
import sys
import time
import unittest

from qz7 import BLOCK, SystemTest

SEEDS = range(1, 17)
# What ends an exchange.
DONE, WAITS = "done", "Given up."
TIMEOUT, CHECKSUM = "Receive Timeout", "Checksum Error"
ANSWER, GONE = "Acknowledge Error", "has gone away."
ENDINGS = (TIMEOUT, CHECKSUM, ANSWER, WAITS, GONE)

# How an exchange may end that has one of these faults; at which place it stands decides between
# them. Of several faults one decides.
READ_ENDS = {
    "noise": {DONE}, "checksum": {CHECKSUM},
    "flip": {CHECKSUM, WAITS},  # a header whose start is wrong is none
    "flip-echo": {ANSWER, DONE}, "no-echo": {ANSWER, WAITS},
    "stall": {TIMEOUT, WAITS}, "drop": {TIMEOUT, WAITS, CHECKSUM},
    "double": {CHECKSUM, ANSWER, WAITS}, "hangup": {GONE, DONE},
}
# A sum of eight bits does not see two of these that cancel each other.
SUMMED = {"checksum", "flip", "double", "drop"}
# The program sees no more of the radio than its echo and its answers; a byte that is echoed twice
# moves all behind it, so that an echo is taken for the last answer.
WRITE_ENDS = {
    "flip": {DONE}, "flip-echo": {DONE}, "double": {ANSWER, DONE}, "bad-ack": {ANSWER, DONE},
    "no-ack": {WAITS, DONE}, "no-echo": {WAITS, DONE}, "stall": {WAITS, DONE},
    "drop": {WAITS, DONE}, "hangup": {GONE, DONE}, "checksum": {DONE},
}
# So often the program looks in vain, each 10 ms, before the user gives up.
LOOKS = 40


def descriptors():
    return len(os.listdir("/proc/self/fd"))


def numbers(pid):
    """What the system counts of a process; empty once it has ended."""
    found = {}
    try:
        for name in ("io", "status"):
            with open(f"/proc/{pid}/{name}", encoding="ascii", errors="replace") as file:
                found.update(re.findall(r"^(rchar|voluntary_ctxt_switches):\s*(\d+)", file.read(),
                                        re.MULTILINE))
    except OSError:
        return {}
    return {name: int(value) for name, value in found.items()} if len(found) == 2 else {}


def sleeps(pid):
    try:
        with open(f"/proc/{pid}/stat", encoding="ascii") as file:
            return file.read().rsplit(")", 1)[1].split()[0] in "SZ"
    except OSError:
        return True


class RandomExchanges(SystemTest):
    def setUp(self):
        super().setUp()
        self.make_template("t.tpl")
        self.read_radio("a.rdf")
        self.document = self.read_bytes("a.rdf")
        self.files = set(os.listdir(self.folder))
        self.endings = collections.Counter()
        self.faults = collections.Counter()

    def end(self, program, radio):
        """Gives up where nothing moves any more; returns the status and what was told."""
        while program.poll() is None:
            if self.stands_still(program, radio.process.pid):
                program.send_signal(signal.SIGINT)
        out, err = program.communicate()
        self.assertEqual(b"", out)
        return program.returncode, err.decode()

    @staticmethod
    def stands_still(program, radio):
        """The program has looked for bytes again and again, none came, and the radio sleeps."""
        first = numbers(program.pid)
        while program.poll() is None and sleeps(radio):
            now = numbers(program.pid)
            if not now or now["rchar"] != first.get("rchar"):
                return False
            if now["voluntary_ctxt_switches"] - first["voluntary_ctxt_switches"] > LOOKS:
                return True
            time.sleep(0.005)
        return False

    def exchange(self, seed):
        sends = seed % 2 == 0
        radio = self.radio("--fault", "random", "--seed", str(seed),
                           *(["send"] if sends else ["--image", "got", "receive"]))
        arguments = (["read", "new.rdf"] if sends else
                     ["write", "--template", "t.tpl", "a.rdf"])
        program = self.start(*arguments, "--port", radio.port, "--trace", "trace")
        status, err = self.end(program, radio)
        told = radio.stop()
        self.radios.remove(radio)
        radio.process.stdout.close()
        faults = [line.split()[1] for line in told.splitlines() if line.startswith("fault ")]
        left = set(os.listdir(self.folder)) - self.files
        try:
            self.assertLessEqual(left, {"new.rdf", "got", "trace"})
            self.check(sends, status, err, faults)
        finally:
            for name in left:
                os.unlink(self.path(name))

    def check(self, sends, status, err, faults):
        ending = next((text for text in ENDINGS if text in err), "done")
        self.endings[ending] += 1
        self.faults.update(fault.split("@")[0] for fault in faults)
        self.assertEqual(0 if ending == "done" else 1, status, err)
        kinds = {fault.split("@")[0] for fault in faults}
        ends = [(READ_ENDS if sends else WRITE_ENDS)[kind] for kind in kinds]
        # On a machine under load any stream may stand still for a quarter of a second.
        always = ({TIMEOUT} if sends else set()) | (set() if ends else {DONE})
        cancelled = sends and ending == DONE and len(kinds & SUMMED) > 1
        self.assertTrue(cancelled or ending in always.union(*ends), (ending, faults))
        if ending == DONE and not cancelled:
            self.assertTrue(all(DONE in end for end in ends), faults)
        self.assertEqual(self.document, self.read_bytes("a.rdf"))
        new = os.path.exists(self.path("new.rdf"))
        self.assertEqual(sends and status == 0, new)
        # A file is there only where nothing of it is wrong.
        if new and not cancelled:
            self.assertEqual(self.document[BLOCK], self.read_bytes("new.rdf")[BLOCK])
        if os.path.exists(self.path("got")):
            self.assertEqual(self.document[BLOCK][14:], self.read_bytes("got")[14:], faults)

    def test_each_ends_as_its_faults_say_and_leaves_nothing(self):
        before = descriptors()
        for seed in SEEDS:
            with self.subTest(seed=seed):
                self.exchange(seed)
        self.assertEqual(before, descriptors())
        self.assertEqual(self.files, set(os.listdir(self.folder)))
        with self.assertRaises(ChildProcessError):
            os.waitpid(-1, os.WNOHANG)
        print(f"{len(SEEDS)} exchanges:", dict(self.endings), "faults:", dict(self.faults))


if __name__ == "__main__":
    SystemTest.programs = os.path.abspath(sys.argv.pop(1))
    if len(sys.argv) > 2:
        SEEDS = range(int(sys.argv.pop(1)), int(sys.argv.pop(1)) + 1)
    unittest.main()
