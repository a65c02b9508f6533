"""Reads the help topics (help/*.md) into plain data that every form of the help is written from.

A topic is a Markdown file with a front matter:

    ---
    contexts: 102, 103
    keywords: reading, get data
    ---
    # Title

Only what every form can show is taken: a title, sections of two levels, paragraphs, lists of one
level, tables, fenced code, bold, code and links to other topics. Everything else is an error that
names the file and the line.
"""
import os
import re
from dataclasses import dataclass, field, replace

from markdown_it import MarkdownIt

CONTENTS = "contents"


class HelpError(Exception):
    """One or more mistakes in the topics, a line each: "file:line: what"."""

    def __init__(self, mistakes):
        super().__init__("\n".join(mistakes))
        self.mistakes = list(mistakes)


@dataclass(frozen=True)
class Run:
    """A piece of a line in one look. A target is the stem of the topic that it leads to."""
    text: str
    bold: bool = False
    code: bool = False
    target: str | None = None


@dataclass
class Heading:
    level: int  # 2 or 3: the title is no block
    runs: list
    line: int


@dataclass
class Paragraph:
    runs: list
    line: int


@dataclass
class ListBlock:
    ordered: bool
    items: list  # a list of runs each
    line: int


@dataclass
class Table:
    header: list  # cells; a cell is a list of runs
    rows: list
    line: int


@dataclass
class Code:
    lines: list
    line: int


@dataclass
class Topic:
    stem: str
    path: str
    title: str = ""
    contexts: list = field(default_factory=list)
    keywords: list = field(default_factory=list)
    blocks: list = field(default_factory=list)


@dataclass
class Section:
    """A section of the contents: a title and the stems of its topics."""
    title: str
    stems: list


@dataclass
class Help:
    contents: Topic
    sections: list
    topics: list  # in reading order, without the contents

    def every_topic(self):
        return [self.contents, *self.topics]


def add_run(runs, run):
    """Adds a run; neighbours of one look become one run."""
    last = runs[-1] if runs else None
    if last and replace(last, text="") == replace(run, text=""):
        runs[-1] = replace(last, text=last.text + run.text)
    elif run.text:
        runs.append(run)


def plain(runs):
    return "".join(run.text for run in runs)


class _TopicReader:
    """One file's way from text to a topic. Mistakes are collected, not raised."""

    def __init__(self, path, mistakes):
        self.topic = Topic(os.path.splitext(os.path.basename(path))[0], path)
        self.mistakes = mistakes
        self.first_line = 1  # of the Markdown behind the front matter
        self.tokens = []
        self.at = 0

    def mistake(self, line, what):
        self.mistakes.append(f"{self.topic.path}:{line}: {what}")

    def read(self):
        with open(self.topic.path, encoding="utf-8") as file:
            lines = file.read().split("\n")
        for number, line in enumerate(lines, 1):
            self.check_characters(number, line)
        body = self.read_front_matter(lines)
        self.tokens = MarkdownIt("commonmark").enable("table").parse(body)
        self.read_title()
        while self.at < len(self.tokens):
            self.read_block()
        return self.topic

    def check_characters(self, number, line):
        try:
            line.encode("cp1252")
        except UnicodeEncodeError as error:
            self.mistake(number, f"character outside Windows-1252: {line[error.start]!r}")
        if any(ord(character) < 32 for character in line):
            self.mistake(number, "control character or tab")

    def read_front_matter(self, lines):
        end = next((n for n in range(1, len(lines)) if lines[n] == "---"), None)
        if lines[0] != "---" or end is None:
            self.mistake(1, "no front matter between two lines \"---\"")
            return "\n".join(lines)
        for number in range(1, end):
            self.read_front_matter_line(number + 1, lines[number])
        self.first_line = end + 2
        return "\n".join(lines[end + 1:])

    def read_front_matter_line(self, number, line):
        name, colon, value = line.partition(":")
        values = [part.strip() for part in value.split(",") if part.strip()]
        if name == "contexts" and colon and all(part.isdecimal() for part in values):
            self.topic.contexts = [int(part) for part in values]
        elif name == "keywords" and colon:
            self.topic.keywords = values
        else:
            self.mistake(number, f"unknown front matter: {line!r}")

    def line_of(self, token):
        return self.first_line + (token.map[0] if token.map else 0)

    def take(self):
        self.at += 1
        return self.tokens[self.at - 1]

    def skip_to_end_of(self, opening):
        """Leaves a block that has no place in a topic."""
        while self.at < len(self.tokens) and self.tokens[self.at].level > opening.level:
            self.at += 1
        if self.at < len(self.tokens) and self.tokens[self.at].nesting == -1:
            self.at += 1

    def read_title(self):
        if not self.tokens or self.tokens[0].type != "heading_open" or self.tokens[0].tag != "h1":
            self.mistake(self.first_line, "the topic does not start with its title (\"# Title\")")
            return
        runs = self.read_heading_runs(self.take())
        if any(run.target for run in runs):
            self.mistake(self.first_line, "a title is no link")
        self.topic.title = plain(runs)

    def read_heading_runs(self, opening):
        runs = self.read_runs(self.take())
        self.take()
        if not plain(runs).strip():
            self.mistake(self.line_of(opening), "empty heading")
        return runs

    def read_block(self):
        token = self.take()
        line = self.line_of(token)
        if token.type == "heading_open" and token.tag in ("h2", "h3"):
            block = Heading(int(token.tag[1]), self.read_heading_runs(token), line)
        elif token.type == "paragraph_open":
            block = Paragraph(self.read_runs(self.take()), line)
            self.take()
        elif token.type in ("bullet_list_open", "ordered_list_open"):
            block = self.read_list(token)
        elif token.type == "table_open":
            block = self.read_table(line)
        elif token.type == "fence":
            block = Code(token.content.rstrip("\n").split("\n"), line)
        else:
            self.mistake(line, f"no place in a topic: {token.tag or token.type} ({token.type})")
            if token.nesting == 1:
                self.skip_to_end_of(token)
            return
        self.topic.blocks.append(block)

    def read_list(self, opening):
        block = ListBlock(opening.type == "ordered_list_open", [], self.line_of(opening))
        if block.ordered and opening.attrGet("start") not in (None, 1):
            self.mistake(block.line, "a numbered list starts with 1")
        while (token := self.take()).type == "list_item_open":
            block.items.append(self.read_list_item(token))
        assert token.type.endswith("_list_close")
        return block

    def read_list_item(self, opening):
        runs = []
        if self.tokens[self.at].type == "paragraph_open":
            self.take()
            runs = self.read_runs(self.take())
            self.take()
        if not runs or self.tokens[self.at].type != "list_item_close":
            self.mistake(self.line_of(opening), "an item of a list is one paragraph, no more")
            self.skip_to_end_of(opening)
        else:
            self.take()
        return runs

    def read_table(self, line):
        rows = []
        while (token := self.take()).type != "table_close":
            if token.type == "tr_open":
                rows.append([])
            elif token.type == "inline":
                rows[-1].append(self.read_runs(token))
        return Table(rows[0], rows[1:], line)

    def read_runs(self, inline):
        runs = []
        bold = False
        target = None
        line = self.line_of(inline)
        for token in inline.children:
            if token.type in ("text", "softbreak", "code_inline"):
                text = " " if token.type == "softbreak" else token.content
                add_run(runs, Run(text, bold, token.type == "code_inline", target))
            elif token.type in ("strong_open", "strong_close"):
                bold = token.type == "strong_open"
            elif token.type == "link_open":
                target = self.read_target(line, token.attrGet("href"))
            elif token.type == "link_close":
                target = None
            else:
                self.mistake(line, f"no place in a line: {token.tag or token.type} {token.content}")
        return runs

    def read_target(self, line, address):
        match = re.fullmatch(r"([A-Za-z0-9_]+)\.md", address)
        if not match:
            self.mistake(line, f"a link leads to another topic, not to {address!r}")
            return None
        if not os.path.isfile(os.path.join(os.path.dirname(self.topic.path), address)):
            self.mistake(line, f"broken link: {address}")
            return None
        return match.group(1)


def read_topic(path):
    """One topic by itself. Raises HelpError."""
    mistakes = []
    topic = _TopicReader(path, mistakes).read()
    if mistakes:
        raise HelpError(mistakes)
    return topic


def _read_sections(contents, stems, mistakes):
    """The contents as sections. Every topic must stand in them once."""
    sections = []
    seen = set()

    def mistake(line, what):
        mistakes.append(f"{contents.path}:{line}: {what}")

    for block in contents.blocks:
        if isinstance(block, Heading) and block.level == 2:
            sections.append(Section(plain(block.runs), []))
        elif isinstance(block, ListBlock) and sections:
            for item in block.items:
                targets = {run.target for run in item}
                target = next(iter(targets)) if len(targets) == 1 else None
                if target is None:
                    mistake(block.line, f"not one link: {plain(item)!r}")
                elif target in seen or target not in stems:
                    mistake(block.line, f"not a topic, or a second time: {target}")
                else:
                    seen.add(target)
                    sections[-1].stems.append(target)
        elif not isinstance(block, Paragraph):
            mistake(block.line, "the contents are sections with lists of links")
    for stem in sorted(stems - seen):
        mistake(1, f"topic missing: {stem}")
    return sections


def _check_numbers_and_keywords(topics, mistakes):
    contexts = {}
    for topic in topics:
        for context in topic.contexts:
            if context in contexts:
                mistakes.append(f"{topic.path}:2: context {context} is also that of "
                                f"{contexts[context]}")
            contexts[context] = topic.path
        folded = [keyword.casefold() for keyword in topic.keywords]
        if len(set(folded)) < len(folded):
            mistakes.append(f"{topic.path}:2: a keyword stands twice")
        if any(len(keyword) > 60 for keyword in topic.keywords):
            mistakes.append(f"{topic.path}:2: a keyword is longer than 60 characters")


def read_help(folder):
    """Every topic of a folder in the order of its contents. Raises HelpError with all mistakes."""
    mistakes = []
    by_stem = {}
    for name in sorted(os.listdir(folder)):
        if name.endswith(".md"):
            topic = _TopicReader(os.path.join(folder, name), mistakes).read()
            by_stem[topic.stem] = topic
    contents = by_stem.pop(CONTENTS, None)
    if contents is None:
        raise HelpError([*mistakes, f"{folder}:1: no {CONTENTS}.md"])
    sections = _read_sections(contents, set(by_stem), mistakes)
    _check_numbers_and_keywords([contents, *by_stem.values()], mistakes)
    if mistakes:
        raise HelpError(mistakes)
    order = [by_stem[stem] for section in sections for stem in section.stems]
    return Help(contents, sections, order)


def keyword_index(topics):
    """(keyword, topics) in alphabetical order. Keywords that differ in case only are one."""
    spelling = {}
    found = {}
    for topic in topics:
        for keyword in topic.keywords:
            key = keyword.casefold()
            spelling.setdefault(key, keyword)
            found.setdefault(key, []).append(topic)
    return [(spelling[key], found[key]) for key in sorted(found)]
