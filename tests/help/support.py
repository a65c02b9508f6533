"""What the tests of the help share: the places, the topics, the page taken apart."""
import functools
import importlib.util
import os
import re
import sys
from dataclasses import dataclass, field
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
BLOCKS = {"h1", "h2", "h3", "h4", "p", "li", "td", "th", "pre", "dt", "dd"}


@dataclass
class PageSection:
    anchors: list = field(default_factory=list)
    text: str = ""
    links: list = field(default_factory=list)
    title: str = ""


class Page(HTMLParser):
    """The page as sections; mistakes tells what is not well-formed."""

    def __init__(self, text):
        super().__init__(convert_charrefs=True)
        self.stack = []
        self.mistakes = []
        self.ids = []
        self.addresses = []
        self.sections = {}
        self.current = None
        self.skipped = 0  # inside of what belongs to no topic
        self.feed(text)
        self.close()
        self.mistakes += [f"not closed: {tag}" for tag in self.stack]

    def handle_starttag(self, tag, attrs):
        names = [name for name, _ in attrs]
        if len(set(names)) < len(names) or any(value is None for _, value in attrs):
            self.mistakes.append(f"attributes of {tag}: {attrs}")
        values = dict(attrs)
        if tag not in VOID:
            self.stack.append(tag)
        if tag in ("section", "nav"):
            self.current = self.sections.setdefault(values["id"], PageSection())
        if "id" in values:
            self.ids.append(values["id"])
            if self.current is not None:
                self.current.anchors.append(values["id"])
        self.addresses += [values[name] for name in ("href", "src") if name in values]
        self.skipped += tag == "p" and values.get("class") == "up"
        if self.current is not None and tag == "a" and not self.skipped:
            self.current.links.append(values["href"].removeprefix("#"))
        if self.current is not None and tag in BLOCKS:
            self.current.text += "\n"

    def handle_endtag(self, tag):
        if not self.stack or self.stack[-1] != tag:
            self.mistakes.append(f"{tag} closed inside {self.stack[-3:]}, line {self.getpos()[0]}")
            return
        self.stack.pop()
        if tag == "p" and self.skipped:
            self.skipped = 0
        if tag in ("section", "nav"):
            self.current = None

    def handle_data(self, data):
        if self.current is not None and not self.skipped:
            self.current.text += data
            if self.stack[-1] == "h2" and not self.current.title:
                self.current.title = data

    def unknown_decl(self, data):
        self.mistakes.append(f"declaration: {data}")


@functools.cache
def page_text():
    return read_built("qz7.html").decode("utf-8")


@functools.cache
def page():
    return Page(page_text())


@functools.cache
def hlp():
    from hlp_reader import HlpFile
    return HlpFile(read_built("qz7.hlp"))


def words(text):
    return re.findall(r"\S+", text)
