"""help/messages.md lists the program's messages: all of them, and no others."""
import re
import unittest

from message_texts import collect, literal_value, one_line, pattern_of
from support import topics
from topics import Heading, plain


def listed_messages():
    topic = next(topic for topic in topics().topics if topic.stem == "messages")
    return [(block.line, plain(block.runs)) for block in topic.blocks
            if isinstance(block, Heading) and block.level == 3]


class Collector(unittest.TestCase):
    def test_takes_literals_in_a_row_as_one_text(self):
        self.assertEqual(literal_value('"One\\n"\n   "two \\"x\\""'), 'One\ntwo "x"')

    def test_leaves_a_place_for_what_only_the_running_program_knows(self):
        pattern = pattern_of('"Channel " + std::to_string(n) + " is active\\nProceed?"')
        self.assertTrue(re.fullmatch(pattern, "Channel %d is active Proceed?"))
        self.assertFalse(re.fullmatch(pattern, "Channel  is active"))

    def test_does_not_guess_a_text(self):
        self.assertIsNone(pattern_of("message"))
        self.assertIsNone(pattern_of('wrong ? "one" : "two"'))


class Messages(unittest.TestCase):
    def test_every_call_leads_to_its_text(self):
        patterns, mistakes = collect()
        self.assertEqual(mistakes, [])
        self.assertGreater(len(patterns), 40)

    def test_every_message_of_the_program_is_explained(self):
        listed = [text[1:-1] for _, text in listed_messages()]
        for pattern, place in collect()[0].items():
            with self.subTest(place):
                self.assertTrue(any(re.fullmatch(pattern, text) for text in listed),
                                f"not in messages.md: {pattern}")

    def test_every_message_explained_is_one_of_the_program(self):
        patterns = collect()[0]
        for line, text in listed_messages():
            with self.subTest(line):
                self.assertRegex(text, r'^".+"$')
                self.assertEqual(text, one_line(text))
                self.assertTrue(any(re.fullmatch(pattern, text[1:-1]) for pattern in patterns),
                                f"messages.md:{line}: no such message: {text}")

    def test_no_message_is_explained_twice(self):
        listed = [text for _, text in listed_messages()]
        self.assertEqual(sorted(set(listed)), sorted(listed))
