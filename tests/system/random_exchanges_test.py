#!/usr/bin/env python3
"""Exchanges in a row, each with random faults by its seed: random_exchanges_test.py FOLDER [COUNT]

Each ends as its faults say, leaves whole files or none, and no process or descriptor."""
import collections
import os
import signal
import subprocess
import sys
import time
import unittest

from qz7 import BLOCK, SystemTest

COUNT = 16
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
# The program sees no more of the radio than its echo and its answers; a byte that is echoed twice
# moves all behind it, so that an echo is taken for the last answer.
WRITE_ENDS = {
    "flip": {DONE}, "flip-echo": {DONE}, "double": {ANSWER, DONE}, "bad-ack": {ANSWER, DONE},
    "no-ack": {WAITS, DONE}, "no-echo": {WAITS, DONE}, "stall": {WAITS, DONE},
    "drop": {WAITS, DONE}, "hangup": {GONE, DONE}, "checksum": {DONE},
}
# So long nothing has to move before the user gives up.
PATIENCE = 0.4


def descriptors():
    return len(os.listdir("/proc/self/fd"))


class RandomExchanges(SystemTest):
    def setUp(self):
        super().setUp()
        self.make_template("t.tpl")
        self.read_radio("a.rdf")
        self.document = self.read_bytes("a.rdf")
        self.files = set(os.listdir(self.folder))
        self.endings = collections.Counter()
        self.faults = collections.Counter()

    def end(self, program):
        """Gives up where nothing moves any more; returns the status and what was told."""
        last, since = None, time.monotonic()
        while program.poll() is None:
            trace = self.path("trace")
            now = os.path.getsize(trace) if os.path.exists(trace) else 0
            used = self.time_used(program.pid)
            if (now, used) != last:
                last, since = (now, used), time.monotonic()
            if time.monotonic() - since > PATIENCE:
                program.send_signal(signal.SIGINT)
                since = time.monotonic()
            time.sleep(0.01)
        out, err = program.communicate()
        self.assertEqual(b"", out)
        return program.returncode, err.decode()

    @staticmethod
    def time_used(pid):
        """Processor time, in steps of which a waiting program makes none."""
        try:
            with open(f"/proc/{pid}/stat", encoding="ascii") as file:
                return sum(map(int, file.read().rsplit(")", 1)[1].split()[11:13])) // 5
        except OSError:
            return 0

    def exchange(self, seed):
        sends = seed % 2 == 0
        radio = self.radio("--fault", "random", "--seed", str(seed),
                           *(["send"] if sends else ["--image", "got", "receive"]))
        arguments = (["read", "new.rdf"] if sends else
                     ["write", "--template", "t.tpl", "a.rdf"])
        program = self.start(*arguments, "--port", radio.port, "--trace", "trace")
        status, err = self.end(program)
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
        ends = [(READ_ENDS if sends else WRITE_ENDS)[fault.split("@")[0]] for fault in faults]
        self.assertIn(ending, set().union({DONE} if not ends else set(), *ends), faults)
        if ending == DONE:
            self.assertTrue(all(DONE in end for end in ends), faults)
        self.assertEqual(self.document, self.read_bytes("a.rdf"))
        new = os.path.exists(self.path("new.rdf"))
        self.assertEqual(sends and status == 0, new)
        # A file is there only where nothing of it is wrong.
        if new:
            self.assertEqual(self.document[BLOCK], self.read_bytes("new.rdf")[BLOCK])
        if os.path.exists(self.path("got")):
            self.assertEqual(self.document[BLOCK][14:], self.read_bytes("got")[BLOCK][14:])

    def test_each_ends_as_its_faults_say_and_leaves_nothing(self):
        before = descriptors()
        for seed in range(1, COUNT + 1):
            with self.subTest(seed=seed):
                self.exchange(seed)
        self.assertEqual(before, descriptors())
        self.assertEqual(self.files, set(os.listdir(self.folder)))
        with self.assertRaises(ChildProcessError):
            os.waitpid(-1, os.WNOHANG)
        print(f"{COUNT} exchanges:", dict(self.endings), "faults:", dict(self.faults))


if __name__ == "__main__":
    SystemTest.programs = os.path.abspath(sys.argv.pop(1))
    if len(sys.argv) > 1 and sys.argv[1].isdigit():
        COUNT = int(sys.argv.pop(1))
    unittest.main()
