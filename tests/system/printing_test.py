#!/usr/bin/env python3
"""File, Print down to the paper: printing_test.py NATIVE_PROGRAMS WINDOWS_PROGRAMS"""
import os
import subprocess
import sys
import tempfile
import unittest

import print_queue
from printed_paper import page_count, paper_lines, squeezed

NATIVE, WINDOWS = sys.argv.pop(1), sys.argv.pop(1)
COUNT = 150


def qz7ctl(*arguments):
    return subprocess.run([os.path.join(NATIVE, "qz7ctl"), *arguments], check=True,
                          capture_output=True).stdout.decode()


@unittest.skipUnless(print_queue.is_installed(), "CUPS is not installed: nothing was printed")
class Printing(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.made = []
        self.addCleanup(self.remove_papers)
        self.queue = self.enterContext(print_queue.PrintQueue())

    def remove_papers(self):
        for name in self.made:
            for path in print_queue.PrintQueue.papers(name):
                os.remove(path)

    def make_document(self, name):
        """A document with many channels, a split one and a name beyond ASCII among them."""
        path = os.path.join(self.folder, name + ".RDF")
        listing = os.path.join(self.folder, "list.txt")
        with open(listing, "wb") as file:
            for n in range(COUNT):
                file.write(b"%d.%03d,%d.000,N\xe4me%d,comment %d\r\n" % (144 + n % 2, n, 145, n, n))
        qz7ctl("new", path)
        qz7ctl("import", path, listing, path, "--columns", "rx=1,tx=2,name=3,comment=4")
        self.made.append(name)
        return path

    def print_as(self, name):
        """Runs the print test of that name; the lines of its document's listing."""
        path = self.make_document(name)
        folder = "Z:" + self.folder.replace("/", "\\")
        done = subprocess.run(
            ["wine", os.path.join(WINDOWS, "ui_tests.exe"), "--gtest_filter=OnAPrinter." + name],
            env=dict(self.queue.environment, QZ7_PRINTER=self.queue.name, QZ7_PRINTED=folder),
            capture_output=True, text=True, timeout=120)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn("[  PASSED  ] 1 test.", done.stdout)
        self.queue.wait_until_empty()
        return squeezed(qz7ctl("list", path).splitlines())

    def paper_of(self, name):
        papers = self.queue.papers(name)
        self.assertEqual(len(papers), 1)
        return papers[0]

    def test_the_paper_has_the_listing_line_by_line_on_several_pages(self):
        listing = self.print_as("OneCopy")
        self.assertGreater(len(listing), COUNT)
        paper = self.paper_of("OneCopy")
        self.assertEqual(paper_lines(paper), listing)
        self.assertGreater(page_count(paper), 1)

    def test_narrow_paper_has_every_line_to_its_end(self):
        listing = self.print_as("OnNarrowPaper")
        self.assertEqual(paper_lines(self.paper_of("OnNarrowPaper")), listing)

    def test_two_copies_are_the_listing_twice_each_from_a_page_of_its_own(self):
        self.print_as("OneCopy")
        listing = self.print_as("TwoCopies")
        paper = self.paper_of("TwoCopies")
        self.assertEqual(paper_lines(paper), listing + listing)
        self.assertEqual(page_count(paper), 2 * page_count(self.paper_of("OneCopy")))

    def test_a_cancelled_document_does_not_reach_the_paper(self):
        self.print_as("CancelledInTheMiddle")
        self.assertEqual(self.queue.papers("CancelledInTheMiddle"), [])

    def test_a_queue_that_refuses_the_document_is_reported(self):
        self.queue.refuse_jobs()
        self.print_as("RefusedByTheQueue")
        self.assertEqual(self.queue.papers("RefusedByTheQueue"), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
