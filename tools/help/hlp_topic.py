"""The text of a WinHelp file: the internal file |TOPIC, in the layout of Windows 3.1.

|TOPIC is a row of blocks of 4096 bytes, none compressed. Each starts with 12 bytes: the last link
of the blocks before, the first link of this one, the last topic header before. Links hang together
by their positions:

    long  size of the link with both its data
    long  length of the second data
    long  position of the link before, -1 for the first
    long  position of the next link, -1 for the last
    long  where the second data start in the link
    uchar 0x02 a topic's header, 0x20 a paragraph

A position counts blocks in units of 16384 and bytes within the block, its 12 included; no link is
split here over two blocks. An offset, which jumps lead to, counts blocks in units of 32768 and
characters within the block: what stands in |CONTEXT, |CTXOMAP, the titles and the keywords.

A topic's header holds its size, the offsets of its neighbours in the browse sequence, its number,
where its non-scrolling part is (-1: none), where its text starts and where the next topic starts;
its second data are the title. A header without title and text ends the row, so that the last topic
ends like any other.

A paragraph's second data are its text, cut by a zero byte wherever a command stands; its first data
are the size and length of the text, the paragraph's layout and the commands in a row.
"""
import struct
from dataclasses import dataclass, field

from hlp_file import (NOWHERE, compressed_long, compressed_short, compressed_ushort, long,
                      terminated, text_bytes, ulong, ushort)

BLOCK = 4096
BLOCK_HEADER = 12
LINK_HEADER = 21
POSITION_UNIT = 0x4000
OFFSET_UNIT = 0x8000
TOPIC_HEADER = 0x02
PARAGRAPH = 0x20


def context_hash(name):
    """The number that stands for a context string: letters of either case, digits, "_" and "."."""
    value = 0
    for character in name:
        if character.isascii() and character.isalpha():
            digit = ord(character.upper()) - ord("A") + 17
        elif character in "123456789":
            digit = int(character)
        elif character in "0._":
            digit = {"0": 10, ".": 12, "_": 13}[character]
        else:
            raise ValueError(f"no context string: {name}")
        value = (value * 43 + digit) & 0xFFFFFFFF
    return value


@dataclass(frozen=True)
class Layout:
    """A paragraph's measures in half points."""
    above: int = 0
    below: int = 0
    left: int = 0
    first: int = 0  # of the first line, from the left indent
    tabs: tuple = ()


def layout_bytes(layout):
    """The layout: where its text starts, a style (0), a bit for each measure, the measures."""
    bits = 0
    measures = b""
    for bit, value in ((0x0002, layout.above), (0x0004, layout.below), (0x0010, layout.left),
                       (0x0040, layout.first)):
        if value:
            bits |= bit
            measures += compressed_short(value)
    if layout.tabs:
        bits |= 0x0200
        measures += compressed_short(len(layout.tabs))
        measures += b"".join(compressed_ushort(tab) for tab in layout.tabs)
    return compressed_long(0) + ushort(0) + ushort(bits) + measures


class ParagraphText:
    """A paragraph's text and commands, put together piece by piece."""

    def __init__(self):
        self.text = b""
        self.commands = b""

    def command(self, command):
        self.text += b"\0"
        self.commands += command

    def font(self, number):
        self.command(b"\x80" + ushort(number))

    def add(self, text):
        """Text; a tab character is a step to the next tab stop."""
        head, *pieces = text.split("\t")
        self.text += text_bytes(head)
        for piece in pieces:
            self.command(b"\x83")
            self.text += text_bytes(piece)

    def jump(self, context_name):
        self.command(b"\xe3" + ulong(context_hash(context_name)))

    def end_jump(self):
        self.command(b"\x89")

    def record(self, layout):
        """The first and the second data of the finished paragraph."""
        self.command(b"\x82")
        self.command(b"\xff")
        length = len(self.text)
        head = compressed_long(length) + compressed_ushort(length)
        return head + layout_bytes(layout) + self.commands, self.text


@dataclass
class Link:
    kind: int
    first: bytes
    second: bytes
    characters: int = 0  # that it counts for in offsets
    position: int = 0
    offset: int = 0

    def size(self):
        return LINK_HEADER + len(self.first) + len(self.second)


@dataclass
class TopicText:
    """One topic, ready to be laid out: its title and its paragraphs (first and second data)."""
    title: str
    paragraphs: list
    header: Link | None = None
    links: list = field(default_factory=list)

    def offset(self):
        return self.header.offset

    def size(self):
        return self.header.size() + sum(link.size() for link in self.links)


def _make_links(topic):
    # The header's numbers are known once everything has its place.
    topic.header = Link(TOPIC_HEADER, bytes(28), terminated(topic.title))
    topic.links = [Link(PARAGRAPH, first, second, len(second))
                   for first, second in topic.paragraphs]


def _place(links):
    """Gives each link its place. A topic's header stays in one block with its first paragraph."""
    block, at, characters = 0, BLOCK_HEADER, 0
    for number, link in enumerate(links):
        room = link.size()
        if link.kind == TOPIC_HEADER and number + 1 < len(links):
            room += links[number + 1].size()
        if room > BLOCK - BLOCK_HEADER:
            raise ValueError(f"paragraph too long for a block: {link.second[:60]!r}")
        if at + room > BLOCK:
            block, at, characters = block + 1, BLOCK_HEADER, 0
        link.position = block * POSITION_UNIT + at
        link.offset = block * OFFSET_UNIT + characters
        at += link.size()
        characters += link.characters


def _fill_headers(topics, end):
    for number, topic in enumerate(topics):
        before = topics[number - 1] if number else None
        after = topics[number + 1] if number + 1 < len(topics) else None
        topic.header.first = struct.pack(
            "<iiiIiii", topic.size(), before.offset() if before else NOWHERE,
            after.offset() if after else NOWHERE, number, NOWHERE, topic.links[0].position,
            after.header.position if after else end.position)
    end.first = struct.pack("<iiiIiii", end.size(), NOWHERE, NOWHERE, len(topics), NOWHERE,
                            NOWHERE, NOWHERE)


def _link_bytes(link, before, after):
    return (long(link.size()) + long(len(link.second)) + long(before) + long(after) +
            long(LINK_HEADER + len(link.first)) + bytes([link.kind]) + link.first + link.second)


def _blocks(links):
    blocks = []
    last, last_header = NOWHERE, NOWHERE
    for number, link in enumerate(links):
        if link.position // POSITION_UNIT == len(blocks):
            if blocks:
                blocks[-1] = blocks[-1].ljust(BLOCK, b"\0")
            blocks.append(long(last) + long(link.position) + long(last_header))
        after = links[number + 1].position if number + 1 < len(links) else NOWHERE
        blocks[-1] += _link_bytes(link, last, after)
        last = link.position
        if link.kind == TOPIC_HEADER:
            last_header = link.position
    return b"".join(blocks)


def build_topics(topics):
    """|TOPIC from topics in reading order, each with text. Gives each its offset."""
    for topic in topics:
        _make_links(topic)
    end = Link(TOPIC_HEADER, bytes(28), b"")
    links = [link for topic in topics for link in (topic.header, *topic.links)] + [end]
    _place(links)
    _fill_headers(topics, end)
    return _blocks(links)
