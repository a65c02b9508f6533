"""The pages as a browser shows them, opened from a folder with a name of every kind."""
import json
import os
import pathlib
import re
import tempfile
import unittest

from browser import Browser
from listed import listed_messages
from support import page_files, pages, topics

FOLDER = "Žluťoučký кот 日本 #1 50%é"

# For every element with a text of its own: what it says, and its contrast to what lies behind it.
CONTRASTS = """
(function () {
  function parts(colour) { return colour.match(/[\\d.]+/g).map(Number); }
  function light(colour) {
    var c = parts(colour).slice(0, 3).map(function (part) {
      part /= 255;
      return part <= 0.03928 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4);
    });
    return 0.2126 * c[0] + 0.7152 * c[1] + 0.0722 * c[2];
  }
  function behind(element) {
    for (; element; element = element.parentElement) {
      var colour = getComputedStyle(element).backgroundColor;
      if (parts(colour)[3] !== 0) { return colour; }
    }
    return "rgb(255, 255, 255)";
  }
  var found = [];
  document.body.querySelectorAll("*").forEach(function (element) {
    var text = Array.from(element.childNodes).filter(function (node) {
      return node.nodeType === 3 && node.data.trim();
    });
    if (text.length && element.getClientRects().length) {
      var a = light(getComputedStyle(element).color);
      var b = light(behind(element));
      found.push([text[0].data, (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05), b]);
    }
  });
  return found;
}())
"""
SHOWN = "Array.from(document.querySelectorAll('%s')).filter(e => e.getClientRects().length).length"


def words_of(message):
    """All that tells one message from another."""
    return re.findall(r"\w+", re.sub("%[sd]", "", message).casefold())


def setUpModule():
    folder = tempfile.TemporaryDirectory()
    unittest.addModuleCleanup(folder.cleanup)
    BrowserTest.folder = os.path.join(folder.name, FOLDER)
    os.mkdir(BrowserTest.folder)
    for name, text in page_files().items():
        with open(os.path.join(BrowserTest.folder, name), "w", encoding="utf-8") as file:
            file.write(text)
    BrowserTest.browser = Browser()
    unittest.addModuleCleanup(BrowserTest.browser.close)


class BrowserTest(unittest.TestCase):
    folder = ""
    browser = None

    def setUp(self):
        self.browser.show_as()

    def address(self, name):
        return pathlib.Path(self.folder, name).as_uri()

    def open(self, name):
        self.browser.open(self.address(name))

    def each_page(self):
        for name in pages():
            self.open(name)
            yield name


class Look(BrowserTest):
    def check_colours(self, scheme, is_ground):
        self.browser.show_as(scheme=scheme)
        told = self.browser.evaluate(CONTRASTS)
        self.assertGreater(len(told), 20)
        self.assertEqual([one for one in told if one[1] < 4.5 or not is_ground(one[2])], [])

    def test_light_and_dark_are_easy_to_read(self):
        for name in self.each_page():
            with self.subTest(name):
                self.check_colours("light", lambda ground: ground > 0.8)
                self.check_colours("dark", lambda ground: ground < 0.1)

    def test_no_page_is_wider_than_its_window(self):
        for name in self.each_page():
            for width in (320, 700, 1000, 1600):
                with self.subTest(name, width=width):
                    self.browser.show_as(width=width)
                    self.assertLessEqual(
                        self.browser.evaluate("document.documentElement.scrollWidth"), width)

    def test_paper_has_the_topic_in_black_and_nothing_else(self):
        self.browser.show_as(medium="print", scheme="dark")
        for name in self.each_page():
            with self.subTest(name):
                self.assertEqual(self.browser.evaluate(SHOWN % "header, .aside, .steps, form"), 0)
                self.assertEqual(self.browser.evaluate(SHOWN % "h1"), 1)
                self.assertEqual({ground for *_, ground in self.browser.evaluate(CONTRASTS)}, {1})

    def test_the_contents_stand_beside_a_topic_where_there_is_room(self):
        self.open("merge.html")
        self.assertEqual(self.browser.evaluate(SHOWN % ".aside"), 1)
        self.browser.show_as(width=700)
        self.assertEqual(self.browser.evaluate(SHOWN % ".aside"), 0)


class Links(BrowserTest):
    def test_every_link_opens_its_page_and_nothing_else_is_asked_for(self):
        self.browser.requests.clear()
        self.browser.complaints.clear()
        titles = {self.address(name): page.title for name, page in pages().items()}
        for name in self.each_page():
            with self.subTest(name):
                links = self.browser.evaluate("Array.from(document.links).map(a => a.href)")
                self.assertLessEqual({self.address("contents.html"), self.address("search.html")},
                                     set(links))
                self.assertLessEqual(set(links), set(titles))
                self.assertEqual(self.browser.evaluate("document.querySelector('h1').textContent"),
                                 titles[self.address(name)])
        self.assertEqual({self.address(name) for name in page_files()}, set(self.browser.requests))
        self.assertEqual([], self.browser.complaints)

    def test_a_click_follows_a_link(self):
        self.open("contents.html")
        self.browser.evaluate("document.querySelector('main a').click()")
        self.browser.wait_for_page()
        self.assertEqual(self.browser.evaluate("location.href"),
                         self.address(topics().topics[0].stem + ".html"))


class Search(BrowserTest):
    def setUp(self):
        super().setUp()
        self.open("search.html")

    def type(self, text):
        """Into the field that has the keyboard, in place of what is there."""
        self.browser.evaluate("document.activeElement.select()")
        self.browser.command("Input.insertText", text=text)

    def results(self):
        """(file and anchor, text of the link) of each."""
        found = self.browser.evaluate(
            "Array.from(document.querySelectorAll('#results a')).map(a => [a.href, a.textContent])")
        return [(address.removeprefix(self.address("")).lstrip("/"), text)
                for address, text in found]

    def count(self):
        return self.browser.evaluate("document.getElementById('count').textContent")

    def test_finds_each_message_as_the_program_shows_it(self):
        fillers = {"%s": "C:\\data\\my list.rdf", "%d": "17"}
        for line, text in listed_messages():
            shown = re.sub("%[sd]", lambda match: fillers[match.group()], text[1:-1])
            with self.subTest(shown):
                self.type(shown)
                self.assertEqual(words_of(text), words_of(self.results()[0][1]))

    def test_a_place_found_is_where_its_heading_is(self):
        entries = json.loads(self.browser.evaluate("JSON.stringify(searchIndex)"))
        self.assertGreater(len(entries), 100)
        for name in pages():
            self.open(name)
            for entry in entries:
                page, _, anchor = entry["address"].partition("#")
                if page == name and anchor:
                    with self.subTest(entry["address"]):
                        self.assertEqual(
                            self.browser.evaluate(f"document.getElementById('{anchor}').innerText"),
                            entry["heading"])

    def test_finds_each_topic_by_its_title_and_each_keyword_by_itself(self):
        for topic in topics().topics:
            for words in (topic.title, *topic.keywords):
                with self.subTest(words):
                    self.type(words)
                    self.assertIn(topic.stem + ".html",
                                  {address.partition("#")[0] for address, _ in self.results()})

    def test_marks_the_beginning_of_a_word(self):
        self.type("Autod a")
        self.assertEqual("autodial.html", self.results()[0][0])
        self.assertEqual({"autod"}, set(self.browser.evaluate(
            "Array.from(document.querySelectorAll('mark')).map(m => m.textContent.toLowerCase())")))

    def test_says_how_much_it_has_found(self):
        self.type("xyzzy")
        self.assertEqual(("Nothing found.", []), (self.count(), self.results()))
        self.type("merge")
        self.assertEqual(f"{len(self.results())} places", self.count())

    def test_takes_every_sign_for_a_gap(self):
        self.type("(*[\\")
        self.assertEqual(("", []), (self.count(), self.results()))
        self.type("<merging> (\\")
        self.assertEqual("merge.html", self.results()[0][0].partition("#")[0])

    def test_has_the_index_while_nothing_is_asked(self):
        self.assertEqual(1, self.browser.evaluate(SHOWN % "#index"))
        self.type("merge")
        self.assertEqual(0, self.browser.evaluate(SHOWN % "#index"))
        self.type("")
        self.assertEqual(1, self.browser.evaluate(SHOWN % "#index"))

    def test_enter_opens_the_first_place(self):
        self.type("Checksum Error")
        first = self.results()[0][0]
        self.browser.command("Input.dispatchKeyEvent", type="keyDown", key="Enter", text="\r",
                             windowsVirtualKeyCode=13)
        self.browser.wait_for_page()
        self.assertEqual(self.address("") + "/" + first, self.browser.evaluate("location.href"))

    def test_without_script_the_index_is_there_and_says_so(self):
        self.browser.command("Emulation.setScriptExecutionDisabled", value=True)
        try:
            self.open("search.html")
            self.assertEqual(1, self.browser.evaluate(SHOWN % "#index"))
            self.assertEqual(1, self.browser.evaluate(SHOWN % "noscript p"))
            self.assertEqual(0, self.browser.evaluate(SHOWN % "form"))
        finally:
            self.browser.command("Emulation.setScriptExecutionDisabled", value=False)
