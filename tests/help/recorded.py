#!/usr/bin/env python3
"""recorded.py RECORD...: what the tests of the programs were shown is what the help explains.

A record is a file that a test program wrote where QZ7_RECORD told it to: a line for each message
("message TEXT") and each topic that the help was opened at ("context NUMBER").
"""
import re
import sys
import unittest

from support import reexecute_with_packages, topics

reexecute_with_packages()
from listed import listed_messages, one_line, pattern_of  # needs the packages

# No test program gets to show these: the resource library stays unloaded, the disk is full (tried in
# a process of its own), a system's code is told, a transmit frequency is refused that the receive
# check has let through.
OUT_OF_REACH = {
    "%s: Unknown error #-%d.",
    "A valid transmit frequency is required",
    "An error occured while trying to load the resources Error no. 32",
    "Error writing file: %s",
}


def recorded(kind):
    found = set()
    for path in RECORDS:
        with open(path, encoding="cp1252") as file:
            for line in file:
                word, _, rest = line.partition(" ")
                if word == kind:
                    found.add(one_line(rest))
    return found


class Recorded(unittest.TestCase):
    # Texts of the tests' own, for functions that show whatever they are given.
    MADE_UP = {"No answer", "the printer burns"}

    def setUp(self):
        self.listed = [text[1:-1] for _, text in listed_messages()]

    def test_every_message_shown_is_explained(self):
        for shown in recorded("message") - self.MADE_UP:
            with self.subTest(shown):
                self.assertTrue(any(re.fullmatch(pattern_of(text), shown) for text in self.listed))

    def test_every_message_explained_is_shown_by_a_test(self):
        shown = recorded("message")
        unseen = {text for text in self.listed
                  if not any(re.fullmatch(pattern_of(text), one) for one in shown)}
        self.assertEqual(unseen, OUT_OF_REACH)

    def test_each_number_that_the_help_was_opened_at_has_one_topic(self):
        told = [context for topic in topics().every_topic() for context in topic.contexts]
        self.assertGreaterEqual(len(recorded("context")), 15)
        for number in recorded("context"):
            with self.subTest(number):
                self.assertEqual(told.count(int(number)), 1)


if __name__ == "__main__":
    RECORDS = sys.argv[1:]
    if not RECORDS:
        sys.exit(__doc__)
    unittest.main(argv=sys.argv[:1])
