#!/usr/bin/env python3
"""A read and a write at wire speed, against what the stand-in radio measures on the line.

exchange_bench.py FOLDER_OF_THE_PROGRAMS

Prints, for each, the program's time (its own trace, first byte to last) as a ratio to the radio's,
the radio's as a ratio to the wire's own time, and the program's processor time.
"""
import os
import re
import resource
import subprocess
import sys
import tempfile


def start_radio(programs, folder, *arguments):
    radio = subprocess.Popen(
        [os.path.join(programs, "qz7radio"), "--speed", "wire", *arguments],
        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, cwd=folder)
    return radio, radio.stdout.readline().strip()


def run(programs, folder, arguments):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run([os.path.join(programs, "qz7ctl"), *arguments], check=True, cwd=folder,
                   stderr=subprocess.DEVNULL)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return (after.ru_utime - before.ru_utime) + (after.ru_stime - before.ru_stime)


def traced_seconds(path):
    with open(path, encoding="ascii") as trace:
        times = [float(line.split()[0]) for line in trace]
    return (times[-1] - times[0]) / 1000


def measured_seconds(radio):
    output = radio.communicate(timeout=30)[0]
    spent = re.search(r"(?:sent|received) \d+ bytes in ([\d.]+) s", output)
    wire = re.search(r"wire time ([\d.]+) s", output)
    return float(spent.group(1)), float(wire.group(1))


def report(what, program, radio, wire, processor):
    print(f"{what}: program {program:.4f} s, radio {radio:.4f} s, wire {wire:.4f} s: "
          f"program/radio {program / radio:.4f}, radio/wire {radio / wire:.4f}, "
          f"program/wire {program / wire:.4f}; processor time {processor:.3f} s")


def main():
    programs = os.path.abspath(sys.argv[1])
    with tempfile.TemporaryDirectory() as folder:
        radio, port = start_radio(programs, folder, "send")
        used = run(programs, folder, ["read", "--port", port, "--trace", "read.txt", "a.rdf"])
        report("read ", traced_seconds(os.path.join(folder, "read.txt")),
               *measured_seconds(radio), used)

        radio, port = start_radio(programs, folder, "--speed", "fast", "send")
        run(programs, folder, ["template", "--port", port, "a.tpl"])
        radio.wait(timeout=30)

        radio, port = start_radio(programs, folder, "receive")
        used = run(programs, folder, ["write", "--port", port, "--trace", "write.txt",
                                      "--template", "a.tpl", "a.rdf"])
        report("write", traced_seconds(os.path.join(folder, "write.txt")),
               *measured_seconds(radio), used)


if __name__ == "__main__":
    main()
