#!/usr/bin/env python3
"""The desktop program under Wine: desktop_bench.py WINDOWS_PROGRAMS NATIVE_PROGRAMS

Prints how long its exchanges take as ratios to the wire's own time (driven by the timer alone: a
pseudo-terminal gives no notifications under Wine), its start and its memory as ratios to those of a
bare program with the same window and of notepad, and the filling of the memory list as a part of a
frame.
"""
import os
import re
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../tests/system"))
import desktop  # noqa: E402
from desktop import GET_DATA, READ_DIALOG  # noqa: E402
from desktop_exchange_test import ExchangeTest  # noqa: E402


def report(what, radio):
    said = "\n".join(radio.rest())
    spent = re.search(r"(?:sent|received) \d+ bytes in ([\d.]+) s", said)
    wire = re.search(r"wire time ([\d.]+) s", said)
    ratio = float(spent.group(1)) / float(wire.group(1))
    print(f"{what}: {spent.group(1)} s, wire {wire.group(1)} s: ratio {ratio:.4f}")


class DesktopBench(ExchangeTest):
    def test_read(self):
        radio = self.connect("send", speed="wire")
        self.start()
        self.main.command(GET_DATA)
        self.window(READ_DIALOG).wait_until_gone()
        report("read under Wine ", radio)
        self.leave_unsaved()

    def test_write(self):
        self.make_template_file("MY.TPL")
        radio = self.connect("receive", speed="wire")
        self.start()
        self.send()
        report("write under Wine", radio)
        self.leave_unsaved()

    # With a template, so that no advice is shown at the start.
    def test_start_and_memory(self):
        self.make_template_file("MY.TPL")
        self.set_preferences(DataDir=self.windows_path(), TemplateFile=self.template_path)
        self.run_bench("start_bench.exe", "qz7.exe", "bare_program.exe", "notepad.exe")

    def test_list(self):
        self.run_bench("list_bench.exe")

    def run_bench(self, name, *arguments):
        program = os.path.join(self.windows_programs, name)
        done = subprocess.run(["wine", program, *arguments], cwd=self.folder, check=True,
                              env=self.desktop.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, text=True)
        print(done.stdout, end="")


if __name__ == "__main__":
    desktop.main()
