"""Writes a topic as a manual page of section 1, for man(7).

The topic's sections are the page's; its title, "NAME: what it is", becomes the name section. A
table of two columns becomes a list of tagged paragraphs, which is how manuals show options; a wider
one stays a table (tbl).
"""
import re
import textwrap

from topics import Code, Heading, ListBlock, Paragraph, Table, plain

WIDTH = 78
ESCAPES = {"\\": "\\e", "^": "\\(ha", "~": "\\(ti", "`": "\\(ga"}
CODE_ESCAPES = {**ESCAPES, "-": "\\-", "'": "\\(aq"}


def escape(text, escapes=None):
    escapes = escapes or ESCAPES
    return "".join(escapes.get(c, c if c.isascii() else f"\\[u{ord(c):04X}]") for c in text)


def _guard(line):
    """A line of text that starts like a request is none."""
    return "\\&" + line if line.startswith((".", "'")) else line


def _run(run, manuals, also_bold=False):
    text = escape(run.text, CODE_ESCAPES if run.code else None)
    if run.code:
        text = re.sub(r",(?=\S)", r",\\:", text)  # a long list may be cut behind a comma
    if run.code or run.bold or also_bold:
        text = f"\\fB{text}\\fR"
    return text + "(1)" if run.target in manuals else text


def _line(runs, manuals, bold=False):
    return "".join(_run(run, manuals, bold) for run in runs)


def _text(runs, manuals):
    """Runs as lines of text; each ends at a blank."""
    wrapped = textwrap.wrap(_line(runs, manuals), WIDTH, break_long_words=False,
                            break_on_hyphens=False)
    return [_guard(line) for line in wrapped]


def _tagged(tag, text, manuals):
    return [".TP", _guard(_line(tag, manuals)), *_text(text, manuals)]


def _wide_table(block, manuals):
    columns = len(block.header)
    lines = [".TS", " ".join(["lb"] * columns),
             " ".join(["l"] * (columns - 1) + ["lx"]) + "."]
    lines.append("\t".join(_line(cell, manuals) for cell in block.header))
    for row in block.rows:
        cells = [_line(cell, manuals) for cell in row]
        lines.append("\t".join(cells[:-1] + ["T{"]))
        lines += _text(row[-1], manuals) or ["\\&"]
        lines.append("T}")
    return [*lines, ".TE"]


def _table(block, manuals, first):
    if len(block.header) != 2:
        return [*([] if first else [".PP"]), *_wide_table(block, manuals)]
    return [line for tag, text in block.rows for line in _tagged(tag, text, manuals)]


def _list(block, manuals):
    lines = []
    for number, runs in enumerate(block.items, 1):
        lines.append(f".IP {number}. 4" if block.ordered else ".IP \\(bu 2")
        lines += _text(runs, manuals)
    return lines


def _code(block, indented):
    text = [_guard(escape(line, CODE_ESCAPES)) for line in block.lines]
    body = [".nf", *text, ".fi"]
    return [".RS 4", *body, ".RE"] if indented else body


def _block(block, manuals, section, first):
    """The lines of a block; first: a heading stands before it."""
    if isinstance(block, Heading):
        text = escape(plain(block.runs))
        return [f'.SH "{text.upper()}"' if block.level == 2 else f'.SS "{text}"']
    if isinstance(block, Paragraph):
        return [*([] if first else [".PP"]), *_text(block.runs, manuals)]
    if isinstance(block, ListBlock):
        return _list(block, manuals)
    if isinstance(block, Table):
        return _table(block, manuals, first)
    assert isinstance(block, Code)
    return [*([] if first else [".PP"]), *_code(block, section != "Synopsis")]


def _name(topic):
    """What the program is, out of the title."""
    for separator in (": ", " - ", " \u2013 "):
        name, found, text = topic.title.partition(separator)
        if found and name == topic.stem:
            return text
    return topic.title


def write_man_page(topic, version, date, manuals=("qz7ctl", "qz7radio")):
    """The page's text, plain ASCII."""
    wide = any(isinstance(block, Table) and len(block.header) != 2 for block in topic.blocks)
    lines = ["'\\\" t"] if wide else []
    lines += [f'.TH {topic.stem.upper()} 1 {date} "QZ-7H Programmer {version}"',
              # A name or an option that is cut at a line's end cannot be copied.
              ".nh", ".ad l", ".SH NAME", f"{topic.stem} \\- {escape(_name(topic))}"]
    section = ""
    # What stands before the first section describes the program, too.
    if topic.blocks and not isinstance(topic.blocks[0], Heading):
        lines.append('.SH "OVERVIEW"')
    first = True
    for block in topic.blocks:
        if isinstance(block, Heading) and block.level == 2:
            section = plain(block.runs)
        lines += _block(block, manuals, section, first)
        first = isinstance(block, Heading)
    others = [f"\\fB{name}\\fR(1)" for name in manuals if name != topic.stem]
    lines += ['.SH "SEE ALSO"', ", ".join(others)]
    return "\n".join(lines) + "\n"
