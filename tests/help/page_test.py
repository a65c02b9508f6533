"""qz7.html: well-formed, complete in itself, every link leads somewhere."""
import re
import unittest

from support import page, page_text, topics


class Page(unittest.TestCase):
    def test_is_well_formed(self):
        self.assertEqual(page().mistakes, [])
        self.assertTrue(page_text().startswith("<!DOCTYPE html>\n"))

    def test_an_ampersand_or_angle_bracket_of_the_text_is_written_as_an_entity(self):
        body = page_text().partition("</head>")[2]
        self.assertEqual(re.findall(r"&(?!amp;|lt;|gt;|quot;|#\d+;)", body), [])
        self.assertEqual(re.findall(r"<(?!/?[a-z][a-z0-9]*[\s>])", body), [])

    def test_needs_nothing_from_outside(self):
        self.assertEqual([a for a in page().addresses if not a.startswith("#")], [])
        self.assertNotRegex(page_text(), r"(?i)<script|<link|@import|url\(|https?:|\son\w+=")

    def test_every_link_leads_to_one_place(self):
        self.assertEqual(sorted(set(page().ids)), sorted(page().ids))
        self.assertEqual({a[1:] for a in page().addresses} - set(page().ids), set())

    def test_every_topic_is_a_section_with_its_title_and_numbers(self):
        for topic in topics().topics:
            with self.subTest(topic.stem):
                section = page().sections[topic.stem]
                self.assertEqual(section.title, topic.title)
                for context in topic.contexts:
                    self.assertIn(str(context), section.anchors)

    def test_every_topic_is_reached_from_the_contents(self):
        links = page().sections["contents"].links
        self.assertEqual(links, [*(topic.stem for topic in topics().topics), "index"])

    def test_search_and_help_lead_to_the_topic_on_searching(self):
        self.assertIn("search", page().sections["searching"].anchors)
        self.assertIn("help", page().sections["searching"].anchors)

    def test_every_keyword_stands_in_the_index(self):
        index = page().sections["index"]
        lines = [line.casefold() for line in index.text.split("\n")]
        for topic in topics().every_topic():
            self.assertIn(topic.stem, index.links if topic.keywords else [topic.stem])
            for keyword in topic.keywords:
                start = keyword.casefold() + ": "
                self.assertTrue(any(line.startswith(start) for line in lines), keyword)

    def test_has_colours_for_light_dark_and_paper(self):
        self.assertIn("prefers-color-scheme: dark", page_text())
        self.assertIn("@media print", page_text())
