"""What the tests of the help share: the places, the topics, the pages taken apart."""
import functools
import importlib.util
import os
import re
import sys
from html.parser import HTMLParser

HERE = os.path.dirname(os.path.abspath(__file__))
TOP = os.path.dirname(os.path.dirname(HERE))
HELP = os.path.join(TOP, "help")
sys.path.insert(0, os.path.join(TOP, "tools", "help"))

SYSTEM_PYTHON = "/usr/bin/python3"  # has the distribution's packages where another comes first


def reexecute_with_packages():
    if not importlib.util.find_spec("markdown_it") and sys.executable != SYSTEM_PYTHON:
        os.execv(SYSTEM_PYTHON, [SYSTEM_PYTHON, *sys.argv])


# Filled by help_test.py from its arguments.
built = {"help": None, "programs": None}


def read_text(*path):
    with open(os.path.join(TOP, *path), encoding="utf-8") as file:
        return file.read()


def read_built(name):
    with open(os.path.join(built["help"], name), "rb") as file:
        return file.read()


def sources(*folders):
    """The C++ files below folders as paths from the top."""
    return [os.path.relpath(os.path.join(root, name), TOP) for folder in folders
            for root, _, names in sorted(os.walk(os.path.join(TOP, folder)))
            for name in sorted(names) if name.endswith((".cpp", ".h"))]


@functools.cache
def topics():
    from topics import read_help
    return read_help(HELP)


VOID = {"meta", "br", "hr", "img", "link", "input"}
BLOCKS = {"h1", "h2", "h3", "p", "li", "td", "th", "pre", "section", "nav"}


class Page(HTMLParser):
    """A page taken apart; mistakes tells what is not well-formed. Its text and links are those of its
    main part, without the way to its neighbours."""

    def __init__(self, text):
        super().__init__(convert_charrefs=True)
        self.stack = []
        self.mistakes = []
        self.ids = []
        self.addresses = []  # of the whole page
        self.links = []
        self.text = ""
        self.title = ""
        self.feed(text)
        self.close()
        self.mistakes += [f"not closed: {tag}" for tag in self.stack]

    def in_the_text(self):
        return "main" in self.stack and "nav" not in self.stack

    def handle_starttag(self, tag, attrs):
        names = [name for name, _ in attrs]
        if len(set(names)) < len(names) or any(value is None for _, value in attrs):
            self.mistakes.append(f"attributes of {tag}: {attrs}")
        values = dict(attrs)
        if tag not in VOID:
            self.stack.append(tag)
        if "id" in values:
            self.ids.append(values["id"])
        self.addresses += [values[name] for name in ("href", "src") if name in values]
        if self.in_the_text():
            self.links += [values["href"]] if tag == "a" else []
            self.text += "\n" if tag in BLOCKS else ""

    def handle_endtag(self, tag):
        if not self.stack or self.stack[-1] != tag:
            self.mistakes.append(f"{tag} closed inside {self.stack[-3:]}, line {self.getpos()[0]}")
            return
        self.stack.pop()

    def handle_data(self, data):
        if self.in_the_text():
            self.text += data
            self.title += data if self.stack[-1] == "h1" else ""

    def unknown_decl(self, data):
        self.mistakes.append(f"declaration: {data}")


@functools.cache
def page_files():
    """{name: text} of the pages' folder."""
    return {name: read_built(os.path.join("help", name)).decode("utf-8")
            for name in sorted(os.listdir(os.path.join(built["help"], "help")))}


@functools.cache
def pages():
    return {name: Page(text) for name, text in page_files().items() if name.endswith(".html")}


@functools.cache
def hlp():
    from hlp_reader import HlpFile
    return HlpFile(read_built("qz7.hlp"))


def words(text):
    return re.findall(r"\S+", text)
