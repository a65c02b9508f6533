"""Takes a WinHelp file apart by its format. Whatever does not fit together is a FormatError.

Written apart from the writer on purpose: it shares no code and no table with it.
"""
import struct
from dataclasses import dataclass, field


class FormatError(Exception):
    pass


def need(condition, what):
    if not condition:
        raise FormatError(what)


def cut_text(data, at):
    """The text up to a zero byte, and what comes behind it."""
    end = data.find(b"\0", at)
    need(end >= 0, "text without an end")
    return data[at:end].decode("cp1252"), end + 1


class Bytes:
    """Reads numbers one after the other."""

    def __init__(self, data, at=0):
        self.data = data
        self.at = at

    def take(self, form):
        size = struct.calcsize("<" + form)
        need(self.at + size <= len(self.data), "data end early")
        values = struct.unpack_from("<" + form, self.data, self.at)
        self.at += size
        return values[0] if len(values) == 1 else values

    def small_unsigned(self):
        first = self.take("B")
        return (first | self.take("B") << 8) >> 1 if first & 1 else first >> 1

    def small_signed(self):
        first = self.take("B")
        if first & 1:
            return ((first | self.take("B") << 8) >> 1) - 0x4000
        return (first >> 1) - 0x40

    def large_signed(self):
        first = self.take("H")
        if first & 1:
            return ((first | self.take("H") << 16) >> 1) - 0x40000000
        return (first >> 1) - 0x4000

    def done(self):
        return self.at == len(self.data)


class Tree:
    """A B+ tree, walked from its root. The readers give (what stands there, what comes behind)."""

    def __init__(self, data, structure, read_key, read_value):
        (magic, self.flags, self.page_size, name, zero, _, self.root, minus, self.pages,
         self.levels, self.count) = struct.unpack_from("<HHH16shhhhhhi", data)
        need(magic == 0x293B, "no B+ tree")
        need(name.rstrip(b"\0").decode() == structure, f"structure is {name}")
        need(zero == 0 and minus == -1 and self.flags & 2, "B+ tree header")
        need(len(data) == 38 + self.pages * self.page_size, "size of a B+ tree")
        need(0 <= self.root < self.pages, "root page")
        self.data = data
        self.read_key = read_key
        self.read_value = read_value
        self.seen = set()
        self.leaves = []
        self.walk(self.root, self.levels, None, None)
        need(self.seen == set(range(self.pages)), "a page that no way leads to")
        self.check_chain()
        need(len(self.entries()) == self.count, "number of entries")

    def page(self, number):
        need(0 <= number < self.pages and number not in self.seen, f"page {number}")
        self.seen.add(number)
        start = 38 + number * self.page_size
        return self.data[start:start + self.page_size]

    def walk(self, number, level, low, high):
        """Below a page every key lies from low (included) to high (not included)."""
        page = self.page(number)
        if level == 1:
            self.read_leaf(number, page, low, high)
            return
        unused, count, child = struct.unpack_from("<Hhh", page)
        at = 6
        for _ in range(count):
            key, at = self.read_key(page, at)
            need((low is None or key > low) and (high is None or key < high), "index key")
            self.walk(child, level - 1, low, key)
            child = struct.unpack_from("<h", page, at)[0]
            at += 2
            low = key
        self.walk(child, level - 1, low, high)
        need(unused == self.page_size - at and not any(page[at:]), "free room of an index page")

    def read_leaf(self, number, page, low, high):
        unused, count, previous, following = struct.unpack_from("<Hhhh", page)
        at = 8
        entries = []
        for _ in range(count):
            key, at = self.read_key(page, at)
            value, at = self.read_value(page, at)
            need((low is None or key >= low) and (high is None or key < high), "wrong leaf")
            need(not entries or key > entries[-1][0], f"keys out of order at {key!r}")
            entries.append((key, value))
        need(unused == self.page_size - at and not any(page[at:]), "free room of a leaf")
        self.leaves.append((number, previous, following, entries))

    def check_chain(self):
        numbers = [leaf[0] for leaf in self.leaves]
        need([leaf[1] for leaf in self.leaves] == [-1, *numbers[:-1]], "way back over the leaves")
        need([leaf[2] for leaf in self.leaves] == [*numbers[1:], -1], "way on over the leaves")

    def entries(self):
        return [entry for leaf in self.leaves for entry in leaf[3]]


def read_long(page, at):
    return struct.unpack_from("<i", page, at)[0], at + 4


def read_short_and_long(page, at):
    return struct.unpack_from("<hi", page, at), at + 6


@dataclass
class Paragraph:
    offset: int
    position: int
    text: str = ""
    fonts: set = field(default_factory=set)
    jumps: list = field(default_factory=list)  # hashes
    layout: dict = field(default_factory=dict)


@dataclass
class Topic:
    title: str
    offset: int
    position: int
    number: int
    back: int
    forward: int
    paragraphs: list = field(default_factory=list)

    def text(self):
        return "\n".join(paragraph.text for paragraph in self.paragraphs)


BLOCK = 4096
POSITION_UNIT = 1 << 14
OFFSET_UNIT = 1 << 15


class HlpFile:
    def __init__(self, data):
        self.data = data
        magic, directory, free, size = struct.unpack_from("<Iiii", data)
        need(magic == 0x00035F3F, "no help file")
        need(free == -1 and size == len(data), "file header")
        self.spans = [(0, 16)]
        tree = Tree(self.internal(directory), "z4", cut_text, read_long)
        need(tree.page_size == 1024 and tree.flags & 0x400, "directory")
        self.files = {name: self.internal(at) for name, at in tree.entries()}
        self.check_spans()
        self.read_system()
        self.fonts = self.read_fonts()
        self.topics = self.read_topics()
        self.contexts = dict(Tree(self.files["|CONTEXT"], "L4", read_long, read_long).entries())
        self.context_map = self.read_context_map()
        self.titles = Tree(self.files["|TTLBTREE"], "Lz", read_long, cut_text).entries()
        self.keywords = self.read_keywords()

    def internal(self, at):
        need(0 < at <= len(self.data) - 9, "place of an internal file")
        reserved, used, flags = struct.unpack_from("<iiB", self.data, at)
        need(reserved >= used + 9 and at + reserved <= len(self.data) and flags == 4,
             "header of an internal file")
        self.spans.append((at, at + reserved))
        return self.data[at + 9:at + 9 + used]

    def check_spans(self):
        """Every byte of the file belongs to one internal file."""
        spans = sorted(self.spans)
        need(all(a[1] == b[0] for a, b in zip(spans, spans[1:])), "internal files overlap")
        need(spans[-1][1] == len(self.data), "bytes behind the last internal file")

    def read_system(self):
        data = Bytes(self.files["|SYSTEM"])
        magic, self.minor, major, self.date, flags = data.take("HhhIH")
        need(magic == 0x036C and major == 1 and self.minor == 21 and flags == 0, "|SYSTEM")
        self.system = {}
        while not data.done():
            kind, size = data.take("HH")
            need(kind not in self.system and data.at + size <= len(data.data), "|SYSTEM record")
            self.system[kind] = data.data[data.at:data.at + size]
            data.at += size
        self.title = cut_text(self.system[1], 0)[0]
        self.contents = struct.unpack("<i", self.system[3])[0]

    def read_fonts(self):
        """(face, half points, bold) of every font."""
        data = self.files["|FONT"]
        faces, fonts, faces_at, fonts_at = struct.unpack_from("<HHHH", data)
        need(faces_at == 8 and (fonts_at - faces_at) % faces == 0, "|FONT header")
        need(len(data) == fonts_at + 11 * fonts, "size of |FONT")
        size = (fonts_at - faces_at) // faces
        found = []
        for number in range(fonts):
            attributes, half_points, family, face = struct.unpack_from(
                "<BBBH", data, fonts_at + 11 * number)
            need(attributes in (0, 1) and 1 <= family <= 5 and face < faces, "font")
            name = data[faces_at + face * size:faces_at + (face + 1) * size]
            found.append((cut_text(name, 0)[0], half_points, bool(attributes & 1)))
        return found

    def link_at(self, position):
        """(kind, first data, second data, link before, next link) of a link inside its block."""
        topic = self.files["|TOPIC"]
        block, at = divmod(position, POSITION_UNIT)
        start = block * BLOCK + at
        end = min((block + 1) * BLOCK, len(topic))
        need(12 <= at and start + 21 <= end, f"link at {position:#x}")
        size, length, before, after, first_end, kind = struct.unpack_from("<iiiiiB", topic, start)
        need(21 <= first_end <= size and start + size <= end, f"size of the link at {position:#x}")
        need(length == size - first_end, "compressed text")
        return (kind, topic[start + 21:start + first_end], topic[start + first_end:start + size],
                before, after, at + size)

    def read_topics(self):
        """Follows the links from the first to the last, over all blocks."""
        topics = []
        headers = []
        position, last, last_header = 12, -1, -1
        block, characters, block_end = -1, 0, BLOCK
        while position != -1:
            if position // POSITION_UNIT != block:
                need(position // POSITION_UNIT == block + 1, "a block without a link")
                block, characters, block_end = block + 1, 0, 12
                told = struct.unpack_from("<iii", self.files["|TOPIC"], block * BLOCK)
                need(told == (last, position, last_header), f"header of block {block}")
            need(position % POSITION_UNIT == block_end, "links that do not touch")
            kind, first, second, before, after, block_end = self.link_at(position)
            need(before == last, "way back over the links")
            offset = block * OFFSET_UNIT + characters
            if kind == 2 and after == -1:
                self.check_end(first, second, topics)
                headers.append((position, first, 0))
                last_header = position
            elif kind == 2:
                headers.append((position, first, block_end - position % POSITION_UNIT))
                topics.append(self.topic(first, second, offset, position))
                last_header = position
            else:
                need(kind == 0x20 and topics and after != -1, f"link of kind {kind:#x}")
                paragraph, length = self.paragraph(first, second, offset, position)
                topics[-1].paragraphs.append(paragraph)
                characters += length
            last, position = position, after
        need(block == (len(self.files["|TOPIC"]) - 1) // BLOCK, "blocks behind the last link")
        need(len(headers) == len(topics) + 1, "no end of the topics")
        self.check_headers(headers, topics)
        return topics

    @staticmethod
    def check_end(first, second, topics):
        need(struct.unpack("<iiiIiii", first) == (49, -1, -1, len(topics), -1, -1, -1)
             and not second, "the header behind the last topic")

    @staticmethod
    def topic(first, second, offset, position):
        need(len(first) == 28 and second.endswith(b"\0"), "topic header")
        _, back, forward, number, _, _, _ = struct.unpack("<iiiIiii", first)
        return Topic(cut_text(second, 0)[0], offset, position, number, back, forward)

    def check_headers(self, headers, topics):
        offsets = {-1, *(topic.offset for topic in topics)}
        for number, ((_, first, _), topic) in enumerate(zip(headers, topics)):
            size, _, _, _, fixed, start, following = struct.unpack("<iiiIiii", first)
            need(topic.paragraphs and topic.number == number, "topic without text or number")
            need({topic.back, topic.forward} <= offsets, "browse sequence")
            need(following == headers[number + 1][0], "next topic")
            need(fixed == -1 and start == topic.paragraphs[0].position, "start of the text")
            need(topic.position // POSITION_UNIT == start // POSITION_UNIT,
                 "header and text in two blocks")
            need(size == sum(self.link_size(at) for at in
                             [topic.position, *(p.position for p in topic.paragraphs)]),
                 "size of a topic")

    def link_size(self, position):
        block, at = divmod(position, POSITION_UNIT)
        return struct.unpack_from("<i", self.files["|TOPIC"], block * BLOCK + at)[0]

    def paragraph(self, first, second, offset, position):
        data = Bytes(first)
        size, length = data.large_signed(), data.small_unsigned()
        need(size == len(second) and length == len(second), "length of a text")
        need(data.large_signed() == 0 and data.take("H") == 0, "start of a layout")
        paragraph = Paragraph(offset, position, layout=self.layout(data))
        pieces = second.split(b"\0")
        need(pieces[-1] == b"", "text without an end")
        jump = False
        ended = False
        for number, piece in enumerate(pieces[:-1]):
            need(not (piece and (ended or not paragraph.fonts)), "text in no font or no paragraph")
            paragraph.text += piece.decode("cp1252")
            command = data.take("B")
            need(command != 0xFF or number == len(pieces) - 2, "end of the commands")
            if command == 0x80:
                font = data.take("H")
                need(font < len(self.fonts), "font number")
                paragraph.fonts.add(font)
            elif command == 0x82:
                need(not ended and not jump, "end of a paragraph")
                ended = True
            elif command == 0x83:
                paragraph.text += "\t"
            elif command == 0xE3:
                need(not jump, "jump in a jump")
                paragraph.jumps.append(data.take("i"))
                jump = True
            elif command == 0x89:
                need(jump, "end of no jump")
                jump = False
            else:
                need(command == 0xFF and ended, f"command {command:#x}")
        need(data.done(), "commands behind the end")
        return paragraph, length

    @staticmethod
    def layout(data):
        bits = data.take("H")
        need(bits & ~0x0256 == 0, f"layout bits {bits:#x}")
        layout = {}
        for bit, name in ((2, "above"), (4, "below"), (0x10, "left"), (0x40, "first")):
            layout[name] = data.small_signed() if bits & bit else 0
        count = data.small_signed() if bits & 0x200 else 0
        layout["tabs"] = [data.small_unsigned() for _ in range(count)]
        need(layout["tabs"] == sorted(set(layout["tabs"])), "order of the tab stops")
        need(layout["left"] + layout["first"] >= 0, "text left of the window")
        return layout

    def topic_at(self, offset):
        """The topic that starts at an offset."""
        found = [topic for topic in self.topics if topic.offset == offset]
        need(len(found) == 1, f"no topic at offset {offset:#x}")
        return found[0]

    def topic_of_hash(self, number):
        need(number in self.contexts, f"unknown context {number:#x}")
        return self.topic_at(self.contexts[number])

    def read_context_map(self):
        data = Bytes(self.files["|CTXOMAP"])
        entries = [data.take("ii") for _ in range(data.take("H"))]
        need(data.done() and len(dict(entries)) == len(entries), "|CTXOMAP")
        return dict(entries)

    def read_keywords(self):
        """Each keyword with the offsets of its topics."""
        tree = Tree(self.files["|KWBTREE"], "F24", self.folded_text, read_short_and_long)
        places = self.files["|KWDATA"]
        keywords = {}
        used = 0
        for (_, keyword), (count, at) in tree.entries():
            need(at == used and count > 0, "|KWDATA")
            keywords[keyword] = list(struct.unpack_from(f"<{count}i", places, at))
            used += 4 * count
        need(used == len(places), "size of |KWDATA")
        self.check_keyword_map(tree)
        return keywords

    @staticmethod
    def folded_text(page, at):
        text, at = cut_text(page, at)
        return (text.casefold(), text), at

    def check_keyword_map(self, tree):
        data = Bytes(self.files["|KWMAP"])
        told = [data.take("iH") for _ in range(data.take("H"))]
        starts = []
        count = 0
        for number, _, _, entries in tree.leaves:
            starts.append((count, number))
            count += len(entries)
        need(data.done() and told == starts, "|KWMAP")
