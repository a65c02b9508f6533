"""The numbers that the program asks for by name and those of the topics.

That a number which is computed leads to a topic: recorded.py.
"""
import re
import unittest

from support import read_text, sources, topics

CONTENTS_CONTEXT = 1
NAMES = "desktop/toolkit/help.h"
PAGES = "desktop/toolkit/help.cpp"


def named_contexts():
    return {name: int(number) for name, number in
            re.findall(r"constexpr int (kHelp\w+) = (\d+);", read_text(NAMES))}


class Contexts(unittest.TestCase):
    def test_the_program_asks_for_every_number_it_names(self):
        used = " ".join(read_text(path) for path in sources("desktop") if path != NAMES)
        for name in named_contexts():
            with self.subTest(name):
                self.assertRegex(used, rf"\b{name}\b")

    def test_each_number_of_the_program_has_one_topic(self):
        told = [context for topic in topics().every_topic() for context in topic.contexts]
        self.assertGreater(len(named_contexts()), 10)
        for name, number in named_contexts().items():
            with self.subTest(name):
                self.assertEqual(told.count(number), 1)

    def test_each_number_of_a_topic_is_asked_for_or_its_topic_stands_in_the_contents(self):
        shown = {stem for section in topics().sections for stem in section.stems}
        asked = named_contexts().values()
        for topic in topics().topics:
            for context in topic.contexts:
                with self.subTest(topic.stem, context=context):
                    self.assertTrue(context in asked or topic.stem in shown)

    def test_the_program_opens_the_page_of_each_number(self):
        told = re.findall(r'HelpPage\{(\d+), "(\w+)"\}', read_text(PAGES))
        self.assertEqual(told, sorted((str(context), topic.stem) for topic in topics().topics
                                      for context in topic.contexts))

    def test_the_contents_have_the_first_number(self):
        self.assertEqual(topics().contents.contexts, [CONTENTS_CONTEXT])
