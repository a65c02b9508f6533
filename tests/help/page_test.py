"""The pages: well-formed, complete in themselves, every link leads somewhere."""
import re
import unittest

from support import page_files, pages, topics

STYLES_AND_SCRIPTS = {"help.css", "search.js", "search_index.js"}


class Pages(unittest.TestCase):
    def test_are_one_for_each_topic_and_the_search(self):
        names = {topic.stem + ".html" for topic in topics().every_topic()}
        self.assertEqual(set(page_files()), names | {"search.html"} | STYLES_AND_SCRIPTS)
        for topic in topics().every_topic():
            self.assertEqual(pages()[topic.stem + ".html"].title, topic.title)

    def test_are_well_formed(self):
        for name, page in pages().items():
            with self.subTest(name):
                self.assertEqual(page.mistakes, [])
                self.assertTrue(page_files()[name].startswith("<!DOCTYPE html>\n"))

    def test_write_an_ampersand_or_angle_bracket_of_the_text_as_an_entity(self):
        for name in pages():
            with self.subTest(name):
                body = page_files()[name].partition("</head>")[2]
                self.assertEqual(re.findall(r"&(?!amp;|lt;|gt;|quot;|#\d+;)", body), [])
                self.assertEqual(re.findall(r"<(?!/?[a-z][a-z0-9]*[\s>])", body), [])

    def test_need_nothing_from_outside(self):
        for name, text in page_files().items():
            with self.subTest(name):
                self.assertEqual(re.findall(r"(?i)@import|url\(|https?:|\son\w+=", text), [])

    def test_only_the_search_has_script(self):
        self.assertEqual([name for name in pages() if "<script" in page_files()[name]],
                         ["search.html"])

    def test_every_link_leads_to_a_file_of_the_folder(self):
        for name, page in pages().items():
            with self.subTest(name):
                self.assertEqual(sorted(set(page.ids)), sorted(page.ids))
                self.assertEqual(set(page.addresses) - set(page_files()), set())

    def test_every_page_leads_to_the_contents_and_the_search(self):
        for name, page in pages().items():
            with self.subTest(name):
                self.assertLessEqual({"contents.html", "search.html", "help.css"},
                                     set(page.addresses))

    def test_every_topic_is_reached_from_the_contents_in_their_order(self):
        self.assertEqual(pages()["contents.html"].links,
                         [topic.stem + ".html" for topic in topics().topics])

    def test_every_keyword_stands_in_the_index(self):
        index = pages()["search.html"]
        lines = [line.casefold() for line in index.text.split("\n")]
        for topic in topics().every_topic():
            self.assertIn(topic.stem + ".html", index.links)
            for keyword in topic.keywords:
                start = keyword.casefold() + ": "
                self.assertTrue(any(line.startswith(start) for line in lines), keyword)
