#!/usr/bin/env python3
"""File, Print of the desktop program, with the system's own print box and a queue of the test's own:
desktop_printing_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS"""
import os
import unittest

import desktop
import print_queue
from desktop import CANCEL, OK, DesktopTest
from printed_paper import page_count, paper_lines, squeezed
from qz7 import wait_for

PRINT = 104
PRINT_BOX = "Print"
COPIES = 1154


@unittest.skipUnless(print_queue.is_installed(), "CUPS is not installed: nothing was printed")
class Printing(DesktopTest):
    def setUp(self):
        super().setUp()
        self.queue = self.enterContext(print_queue.PrintQueue())
        self.desktop.environment["CUPS_SERVER"] = self.queue.environment["CUPS_SERVER"]
        self.addCleanup(self.desktop.environment.pop, "CUPS_SERVER")
        self.addCleanup(self.remove_papers)
        self.name = f"QZ{os.getpid()}.RDF"
        self.make_document(self.name, comment="to print")
        self.start(self.name.lower(), name=self.name)

    def remove_papers(self):
        for path in self.papers():
            os.remove(path)

    def papers(self):
        return self.queue.papers(self.name.removesuffix(".RDF"))

    def test_two_copies_of_the_document_go_to_the_chosen_printer(self):
        self.main.command(PRINT)
        box = self.window(PRINT_BOX)
        self.assertEqual("1", box.text(COPIES))
        box.set(COPIES, "2")
        box.finish(OK)
        wait_for(self.papers, "the paper")
        self.queue.wait_until_empty()
        self.leave()
        listing = squeezed(self.ok("list", self.name).splitlines())
        paper = paper_lines(self.papers()[0])
        self.assertEqual(2 * len(listing), len(paper))
        # The paper of the queue is too narrow for the longest lines in Wine's font.
        for printed, line in zip(paper, listing + listing):
            self.assertTrue(line.startswith(printed), (line, printed))
        self.assertEqual(0, page_count(self.papers()[0]) % 2)

    def test_cancel_in_the_print_box_prints_nothing(self):
        self.main.press_keys("ctrl+p")
        self.window(PRINT_BOX).finish(CANCEL)
        self.leave()
        self.queue.wait_until_empty()
        self.assertEqual([], self.papers())


if __name__ == "__main__":
    desktop.main()
