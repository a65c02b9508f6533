"""Writes the help as a WinHelp file, in the format of Windows 3.1 (which later viewers read too).

Beside the text (|TOPIC, see hlp_topic.py) the file holds
    |SYSTEM    version, title, contents topic
    |FONT      the fonts that the text names by number
    |CONTEXT   hashed context strings, which jumps name, to offsets
    |CTXOMAP   context numbers, which the program names, to offsets
    |TTLBTREE  offsets to titles
    |KWBTREE   keywords, to places in |KWDATA, which holds the offsets; |KWMAP finds the n-th one
"""
from dataclasses import dataclass, replace

from hlp_file import build_file, build_tree, long, short, terminated, text_bytes, ulong, ushort
from hlp_topic import Layout, ParagraphText, TopicText, build_topics, context_hash
from topics import Code, Heading, ListBlock, Paragraph, Run, Table, add_run, keyword_index

FACES = (("Arial", 3), ("Courier New", 1))  # with the family: 1 fixed pitch, 3 sans-serif
FACE_SIZE = 20


@dataclass(frozen=True)
class Font:
    face: int
    half_points: int
    bold: bool = False


FONTS = (
    Font(0, 20),
    Font(0, 20, True),
    Font(1, 20),
    Font(1, 20, True),
    Font(0, 32, True),
    Font(0, 25, True),
    Font(0, 21, True),
)
BODY, TITLE, SECTION, SUBSECTION = 0, 4, 5, 6
BOLD, FIXED = 1, 2  # added to BODY

INDENT = 36
# Widths are estimated on the wide side: a viewer without the fonts takes others.
FIXED_WIDTH = 13
NARROW, NARROW_WIDTH = "fijlrtI.,:;'|!()[]-/ ", 8
WIDE, WIDE_WIDTH = "mwMW%@", 20
CAPITAL_WIDTH = 15
BODY_WIDTH = 13
BOLD_EXTRA = 2
COLUMN_GAP = 14
TABLE_WIDTH = 880
LAST_COLUMN_WIDTH = 240


def _font_of(run):
    return BODY + (BOLD if run.bold else 0) + (FIXED if run.code else 0)


def _add_runs(text, runs, font=None):
    """Adds runs in their own fonts, or all in one font."""
    for run in runs:
        text.font(_font_of(run) if font is None else font)
        if run.target:
            text.jump(run.target)
        text.add(run.text)
        if run.target:
            text.end_jump()


def _paragraph(runs, layout, font=None):
    text = ParagraphText()
    _add_runs(text, runs, font)
    return text.record(layout)


def _list_item(mark, runs, layout):
    return _paragraph([Run(mark + "\t"), *runs], layout)


def _list_paragraphs(block):
    """Marks that hang left of the text, one paragraph an item."""
    paragraphs = []
    for number, runs in enumerate(block.items, 1):
        last = number == len(block.items)
        mark = f"{number}." if block.ordered else "\u2022"
        paragraphs.append(_list_item(mark, runs, Layout(
            below=10 if last else 4, left=INDENT, first=-INDENT + 6, tabs=(INDENT,))))
    return paragraphs


def _code_paragraphs(block):
    paragraphs = []
    for number, line in enumerate(block.lines):
        paragraphs.append(_paragraph([Run(line or " ", code=True)], Layout(
            left=24, below=10 if number + 1 == len(block.lines) else 0)))
    return paragraphs


def _character_width(character):
    if character in NARROW:
        return NARROW_WIDTH
    if character in WIDE:
        return WIDE_WIDTH
    return CAPITAL_WIDTH if character.isupper() else BODY_WIDTH


def _run_width(run):
    if run.code:
        return FIXED_WIDTH * len(run.text)
    extra = BOLD_EXTRA if run.bold else 0
    return sum(_character_width(character) + extra for character in run.text)


def cell_width(runs):
    return sum(_run_width(run) for run in runs)


def _words(runs):
    """The words of a line; a word is one run or several."""
    words = [[]]
    for run in runs:
        for number, text in enumerate(run.text.split(" ")):
            if number:
                words.append([])
            if text:
                words[-1].append(replace(run, text=text))
    return [word for word in words if word]


def wrap_cell(runs, width):
    """A cell's runs as lines of at most that width, cut at blanks."""
    lines = [[]]
    for word in _words(runs):
        if lines[-1]:
            if cell_width(lines[-1]) + NARROW_WIDTH + cell_width(word) > width:
                lines.append([])
            else:
                last = lines[-1][-1]
                same = replace(last, text="") == replace(word[0], text="")
                add_run(lines[-1], replace(last, text=" ") if same else Run(" "))
        for run in word:
            add_run(lines[-1], run)
    return lines


def _column_widths(rows):
    """The width of each column: as wide as its widest cell where there is room for all."""
    wanted = [max(cell_width(row[column]) for row in rows) + COLUMN_GAP
              for column in range(len(rows[0]))]
    room = TABLE_WIDTH - min(wanted[-1], LAST_COLUMN_WIDTH)
    while sum(wanted[:-1]) > room:
        widest = max(range(len(wanted) - 1), key=lambda column: wanted[column])
        wanted[widest] -= COLUMN_GAP
    return [*wanted[:-1], min(wanted[-1], TABLE_WIDTH - sum(wanted[:-1]))]


def _line_of_row(cells, layout):
    text = ParagraphText()
    for number, runs in enumerate(cells):
        _add_runs(text, [Run("\t"), *runs] if number else runs)
    return text.record(layout)


def _row_paragraphs(row, widths, layout, between):
    """A row: its last cell flows in its column, unless another cell takes several lines."""
    cells = [wrap_cell(runs, width - COLUMN_GAP) for runs, width in zip(row, widths)]
    if all(len(lines) == 1 for lines in cells[:-1]):
        return [_line_of_row(row, Layout(0, between, layout.left, layout.first, layout.tabs))]
    height = max(len(lines) for lines in cells)
    paragraphs = []
    for number in range(height):
        line = [lines[number] if number < len(lines) else [] for lines in cells]
        below = between if number + 1 == height else 0
        paragraphs.append(
            _line_of_row(line, Layout(0, below, layout.left, layout.first, layout.tabs)))
    return paragraphs


def _table_paragraphs(block):
    """Columns at tab stops; the text of the last one hangs at its own stop."""
    header = [[Run(run.text, True, run.code, run.target) for run in cell] for cell in block.header]
    rows = [header, *block.rows]
    widths = _column_widths(rows)
    stops = [sum(widths[:number]) for number in range(1, len(widths))]
    left = stops[-1] if stops else 0
    layout = Layout(left=left, first=-left, tabs=tuple(stops))
    paragraphs = []
    for number, row in enumerate(rows):
        paragraphs += _row_paragraphs(row, widths, layout, 12 if number + 1 == len(rows) else 4)
    return paragraphs


def _block_paragraphs(block):
    if isinstance(block, Heading):
        font = SECTION if block.level == 2 else SUBSECTION
        return [_paragraph(block.runs, Layout(above=14, below=6), font)]
    if isinstance(block, Paragraph):
        return [_paragraph(block.runs, Layout(below=10))]
    if isinstance(block, ListBlock):
        return _list_paragraphs(block)
    if isinstance(block, Table):
        return _table_paragraphs(block)
    assert isinstance(block, Code)
    return _code_paragraphs(block)


def topic_text(topic):
    paragraphs = [_paragraph([Run(topic.title)], Layout(below=12), TITLE)]
    for block in topic.blocks:
        paragraphs += _block_paragraphs(block)
    return TopicText(topic.title, paragraphs)


def _system(title, contents_offset, seconds):
    """|SYSTEM: magic, version 1.21, the time, flags (0: nothing compressed), then records.

    There is no start-up macro for browse buttons: Wine's viewer shows them, but loses them with the
    first press. Viewers that show them by themselves find the sequence in the topics.
    """
    data = short(0x036C) + short(21) + short(1) + ulong(seconds) + ushort(0)
    for kind, value in ((1, terminated(title)), (3, long(contents_offset))):
        data += ushort(kind) + ushort(len(value)) + value
    return data


def _font_table():
    """|FONT: how many names and fonts and where they start; the names; 11 bytes for each font.

    The colour 1, 1, 0 stands for that of the window's text, or its background.
    """
    names = b"".join(text_bytes(name).ljust(FACE_SIZE, b"\0") for name, _ in FACES)
    data = ushort(len(FACES)) + ushort(len(FONTS)) + ushort(8) + ushort(8 + len(names)) + names
    for font in FONTS:
        data += bytes([font.bold, font.half_points, FACES[font.face][1]]) + ushort(font.face)
        data += bytes([1, 1, 0]) * 2
    return data


def _context_tree(offsets):
    hashes = {context_hash(stem): offset for stem, offset in offsets.items()}
    if len(hashes) < len(offsets):
        raise ValueError("two topics have one hash")
    signed = sorted((value - (1 << 32) if value >= 1 << 31 else value, offset)
                    for value, offset in hashes.items())
    return build_tree([(long(value), long(offset)) for value, offset in signed], "L4").data


def _context_map(topics, offsets):
    entries = sorted((context, offsets[topic.stem]) for topic in topics
                     for context in topic.contexts)
    return ushort(len(entries)) + b"".join(long(context) + long(offset)
                                           for context, offset in entries)


def _title_tree(topics, offsets):
    entries = sorted((offsets[topic.stem], topic.title) for topic in topics)
    return build_tree([(long(offset), terminated(title)) for offset, title in entries], "Lz").data


def _keyword_files(topics, offsets):
    data = b""
    entries = []
    for keyword, found in keyword_index(topics):
        entries.append((terminated(keyword), short(len(found)) + long(len(data))))
        data += b"".join(long(offsets[topic.stem]) for topic in found)
    tree = build_tree(entries, "F24")
    leaves = b"".join(long(start) + ushort(page) for page, start in enumerate(tree.leaf_starts))
    return {"|KWBTREE": tree.data, "|KWDATA": data,
            "|KWMAP": ushort(len(tree.leaf_starts)) + leaves}


def write_hlp(help_topics, title, seconds):
    """The bytes of the whole file; seconds is its date."""
    topics = help_topics.every_topic()
    texts = [topic_text(topic) for topic in topics]
    files = {"|TOPIC": build_topics(texts)}
    offsets = {topic.stem: text.offset() for topic, text in zip(topics, texts)}
    files["|SYSTEM"] = _system(title, offsets[help_topics.contents.stem], seconds)
    files["|FONT"] = _font_table()
    files["|CONTEXT"] = _context_tree(offsets)
    files["|CTXOMAP"] = _context_map(topics, offsets)
    files["|TTLBTREE"] = _title_tree(topics, offsets)
    if any(topic.keywords for topic in topics):
        files.update(_keyword_files(topics, offsets))
    return build_file(files)
