"""The numbers that the program asks for and those of the topics."""
import re
import unittest

from message_texts import FOLDERS, closing, without_comments
from support import read_text, sources, topics

CONTENTS_CONTEXT = 1
# Calls whose number is not one of desktop/toolkit/help.h by name: where the numbers stand.
COMPUTED = {
    "EditorHelpContext(WindowOf(dialog).editor.n)":
        ("core/editors/channel_editor.cpp", r"int EditorHelpContext\(int n\) \{ return [^;]*;"),
}


def named_contexts():
    return {name: int(number) for name, number in
            re.findall(r"constexpr int (kHelp\w+) = (\d+);", read_text("desktop/toolkit/help.h"))}


def asked_contexts():
    """{number: place} of every ShowHelp call; a call that names no number is an error."""
    named = named_contexts()
    asked = {}
    for path in sources(*FOLDERS):
        text = without_comments(read_text(path))
        for match in re.finditer(r"\bShowHelp\(", text):
            argument = text[match.end():closing(text, match.end() - 1)].strip()
            if argument == "int context":
                continue
            if argument in COMPUTED:
                place, pattern = COMPUTED[argument]
                function = re.search(pattern, read_text(place)).group(0)
                numbers = [int(number) for number in re.findall(r"[?:] (\d+)", function)]
            else:
                numbers = [named[argument]]
            asked.update(dict.fromkeys(numbers, path))
    return asked


class Contexts(unittest.TestCase):
    def test_the_program_asks_for_every_number_it_names(self):
        self.assertEqual(set(named_contexts().values()) - set(asked_contexts()), set())

    def test_each_number_of_the_program_has_one_topic(self):
        told = [context for topic in topics().every_topic() for context in topic.contexts]
        for number, place in asked_contexts().items():
            with self.subTest(number, place=place):
                self.assertEqual(told.count(number), 1)

    def test_each_number_of_a_topic_is_asked_for_or_its_topic_stands_in_the_contents(self):
        shown = {stem for section in topics().sections for stem in section.stems}
        asked = asked_contexts()
        for topic in topics().topics:
            for context in topic.contexts:
                with self.subTest(topic.stem, context=context):
                    self.assertTrue(context in asked or topic.stem in shown)

    def test_the_contents_have_the_first_number(self):
        self.assertEqual(topics().contents.contexts, [CONTENTS_CONTEXT])
