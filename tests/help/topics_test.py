"""The reader of the topics: what it takes, and the mistakes it names."""
import os
import tempfile
import unittest

import support
from topics import (Code, Heading, HelpError, ListBlock, Paragraph, Run, Table, keyword_index,
                    read_help)

HEAD = "---\nkeywords: one\n---\n"
CONTENTS = "---\ncontexts: 1\nkeywords: contents\n---\n# Contents\n\n## All\n\n- [A](a.md)\n"


def read(**texts):
    """A help folder with these topics; contents is the usual one unless told."""
    with tempfile.TemporaryDirectory() as folder:
        for stem, text in {"contents": CONTENTS, **texts}.items():
            with open(os.path.join(folder, stem + ".md"), "w", encoding="utf-8") as file:
                file.write(text)
        try:
            return read_help(folder)
        except HelpError as error:
            raise HelpError([line.removeprefix(folder + "/") for line in error.mistakes]) from None


def blocks(markdown):
    return read(a=HEAD + "# A\n\n" + markdown).topics[0].blocks


class Taken(unittest.TestCase):
    def test_front_matter_and_title(self):
        topic = read(a="---\ncontexts: 102, 103\nkeywords: get data, clone\n---\n# A b\n").topics[0]
        self.assertEqual((topic.title, topic.contexts, topic.keywords, topic.blocks),
                         ("A b", [102, 103], ["get data", "clone"], []))

    def test_a_paragraph_with_every_look(self):
        block, = blocks("One\n**two** `three` [four `4`](a.md) & <five 5>")
        self.assertEqual(block, Paragraph([
            Run("One "), Run("two", bold=True), Run(" "), Run("three", code=True), Run(" "),
            Run("four ", target="a"), Run("4", code=True, target="a"), Run(" & <five 5>")], 6))

    def test_headings_lists_and_code(self):
        found = blocks("## H\n\n### I\n\n- a\n- b\n\n1. c\n2. d\n\n```\n x\n\ny\n```\n")
        self.assertEqual(found, [
            Heading(2, [Run("H")], 6), Heading(3, [Run("I")], 8),
            ListBlock(False, [[Run("a")], [Run("b")]], 10),
            ListBlock(True, [[Run("c")], [Run("d")]], 13), Code([" x", "", "y"], 16)])

    def test_a_table(self):
        self.assertEqual(blocks("| a | b |\n| - | - |\n| `c` | |\n"),
                         [Table([[Run("a")], [Run("b")]], [[[Run("c", code=True)], []]], 6)])

    def test_keywords_of_several_topics_are_one_entry(self):
        found = read(contents=CONTENTS + "- [B](b.md)\n", a=HEAD + "# A\n",
                     b="---\nkeywords: One, a\n---\n# B\n")
        self.assertEqual([(word, [topic.stem for topic in topics])
                          for word, topics in keyword_index(found.topics)],
                         [("a", ["b"]), ("one", ["a", "b"])])


class Mistakes(unittest.TestCase):
    def check(self, expected, **texts):
        with self.assertRaises(HelpError) as caught:
            read(**{"a": HEAD + "# A\n", **texts})
        self.assertIn(expected, "\n".join(caught.exception.mistakes))

    def test_a_broken_link(self):
        self.check("a.md:6: broken link: b.md", a=HEAD + "# A\n\nSee [b](b.md).\n")

    def test_a_link_out_of_the_help(self):
        self.check("a.md:6: a link leads to another topic",
                   a=HEAD + "# A\n\n[b](http://example.org/)\n")

    def test_what_has_no_place_in_a_topic(self):
        for markdown in ("> quote", "***", "#### four", "<div>\n</div>", "    indented code",
                         "- a\n  - b", "- a\n\n  b", "# Second title", "2. two"):
            with self.subTest(markdown):
                self.check("a.md:6: ", a=HEAD + "# A\n\n" + markdown)

    def test_what_has_no_place_in_a_line(self):
        for markdown in ("*emphasis*", "![picture](a.md)", "a <b>b</b>", "hard  \nbreak"):
            with self.subTest(markdown):
                self.check("a.md:6: no place in a line", a=HEAD + "# A\n\n" + markdown)

    def test_characters_outside_windows_1252(self):
        self.check("a.md:7: character outside Windows-1252: '\u2192'",
                   a=HEAD + "# A\n\nx \u00b1 \u2022\na \u2192 b\n")

    def test_a_tab(self):
        self.check("a.md:6: control character or tab", a=HEAD + "# A\n\na\tb\n")

    def test_no_front_matter(self):
        self.check("a.md:1: no front matter", a="# A\n")

    def test_unknown_front_matter(self):
        self.check("a.md:2: unknown front matter", a="---\ncontext: 1\n---\n# A\n")
        self.check("a.md:2: unknown front matter", a="---\ncontexts: x\n---\n# A\n")

    def test_no_title(self):
        self.check("a.md:4: the topic does not start with its title", a=HEAD + "Text\n")

    def test_a_number_used_twice(self):
        self.check("context 1 is also that of", a="---\ncontexts: 1\n---\n# A\n")

    def test_a_topic_missing_from_the_contents(self):
        self.check("contents.md:1: topic missing: b", b=HEAD + "# B\n")

    def test_a_topic_twice_in_the_contents(self):
        self.check("contents.md:9: not a topic, or a second time: a",
                   contents=CONTENTS + "- [A](a.md)\n")

    def test_an_item_of_the_contents_that_is_no_link(self):
        self.check("contents.md:9: not one link: 'A and'", contents=CONTENTS + "- [A](a.md) and\n")

    def test_all_mistakes_at_once(self):
        with self.assertRaises(HelpError) as caught:
            read(a="---\ncontexts: 1\n---\n# A\n\n> x\n\n[b](b.md)\n", c=HEAD + "# C\n")
        self.assertEqual(len(caught.exception.mistakes), 4)


class Program(unittest.TestCase):
    def test_the_topics_of_this_program_have_no_mistakes(self):
        self.assertGreater(len(support.topics().topics), 20)
