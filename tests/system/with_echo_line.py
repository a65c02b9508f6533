#!/usr/bin/env python3
"""Runs a command with a serial line that sends back every byte, as the radio's cable does.

with_echo_line.py [--wine] COMMAND...

The line's name stands in QZ7_LOOPBACK_PORT: a pseudo-terminal, or COM9 for a program under Wine.
"""
import os
import pty
import subprocess
import sys
import threading
import tty


def echo(master):
    while True:
        try:
            data = os.read(master, 4096)
        except OSError:
            return
        while data:
            data = data[os.write(master, data):]


def main():
    arguments = sys.argv[1:]
    under_wine = arguments[:1] == ["--wine"]
    command = arguments[1:] if under_wine else arguments
    master, slave = pty.openpty()
    tty.setraw(slave)
    name = os.ttyname(slave)
    threading.Thread(target=echo, args=(master,), daemon=True).start()
    environment = dict(os.environ, QZ7_LOOPBACK_PORT=name)
    link = None
    if under_wine:
        link = os.path.join(os.environ["WINEPREFIX"], "dosdevices", "com9")
        if os.path.islink(link):
            os.unlink(link)
        os.symlink(name, link)
        environment["QZ7_LOOPBACK_PORT"] = "COM9"
    try:
        return subprocess.run(command, env=environment, check=False).returncode
    finally:
        if link is not None:
            os.unlink(link)


if __name__ == "__main__":
    sys.exit(main())
