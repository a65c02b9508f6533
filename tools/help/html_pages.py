"""Writes the help as a folder of pages that need no network: one a topic, named after it, the
contents and the search. Only the search needs script; its index of keywords is there without.

Headings have the anchors "s1", "s2", ... for the search; no page is ever opened at one from outside.
"""
import json
import os
import re
from html import escape

from topics import (CONTENTS, Code, Heading, ListBlock, Paragraph, Table, keyword_index, plain)

SEARCH = "search"
STATIC_FILES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "pages")

PAGE = """\
<!DOCTYPE html>
<html lang="en-GB">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>{title} - {name}</title>
<link rel="stylesheet" href="help.css">
</head>
<body>
<header>
<p>{name}</p>
<nav aria-label="Help">
<a href="contents.html">Contents</a>
<a href="search.html">Search</a>
</nav>
</header>
<main>
<h1>{title}</h1>
{body}</main>
{aside}</body>
</html>
"""

SEARCH_BODY = """\
<form id="search" hidden="hidden">
<label for="words">Words, or a whole message</label>
<input id="words" type="search" autocomplete="off">
</form>
<noscript><p>The search needs script, which this browser does not run here. The index below works
without it.</p></noscript>
<p id="count" role="status"></p>
<ol id="results"></ol>
<section id="index">
<h2>Index</h2>
<ul>
{index}</ul>
</section>
<script src="search_index.js"></script>
<script src="search.js"></script>
"""


def _text(text):
    return escape(text, quote=False)


def _link(topic):
    return f'<a href="{topic.stem}.html">{_text(topic.title)}</a>'


def _run(run):
    text = _text(run.text)
    if run.code:
        # A line does not break at the hyphens of an option.
        text = re.sub(r"(?<!\S)-[\w-]+", r'<span class="option">\g<0></span>', text)
        text = f"<code>{text}</code>"
    if run.bold:
        text = f"<strong>{text}</strong>"
    if run.target:
        text = f'<a href="{run.target}.html">{text}</a>'
    return text


def _runs(runs):
    return "".join(_run(run) for run in runs)


def _table_row(cells, tag):
    return "<tr>" + "".join(f"<{tag}>{_runs(cell)}</{tag}>" for cell in cells) + "</tr>\n"


def _table(block):
    body = "".join(_table_row(row, "td") for row in block.rows)
    return (f'<div class="table"><table>\n<thead>\n{_table_row(block.header, "th")}</thead>\n'
            f"<tbody>\n{body}</tbody>\n</table></div>\n")


def _block(block, anchors):
    if isinstance(block, Heading):
        tag = f"h{block.level}"
        return f'<{tag} id="{next(anchors)}">{_runs(block.runs)}</{tag}>\n'
    if isinstance(block, Paragraph):
        return f"<p>{_runs(block.runs)}</p>\n"
    if isinstance(block, ListBlock):
        tag = "ol" if block.ordered else "ul"
        items = "".join(f"<li>{_runs(item)}</li>\n" for item in block.items)
        return f"<{tag}>\n{items}</{tag}>\n"
    if isinstance(block, Table):
        return _table(block)
    assert isinstance(block, Code)
    return f"<pre><code>{_text(chr(10).join(block.lines))}</code></pre>\n"


def _anchors():
    number = 0
    while True:
        number += 1
        yield f"s{number}"


def _steps(topics, at):
    """Links to the topics before and behind one."""
    lines = []
    if at > 0:
        lines.append(f'<span class="before">{_link(topics[at - 1])}</span>\n')
    if at + 1 < len(topics):
        lines.append(f'<span class="behind">{_link(topics[at + 1])}</span>\n')
    return f'<nav class="steps" aria-label="Neighbours">\n{"".join(lines)}</nav>\n'


def _sections(help_topics):
    by_stem = {topic.stem: topic for topic in help_topics.topics}
    lines = []
    for section in help_topics.sections:
        lines.append(f"<section>\n<h2>{_text(section.title)}</h2>\n<ul>\n")
        lines += [f"<li>{_link(by_stem[stem])}</li>\n" for stem in section.stems]
        lines.append("</ul>\n</section>\n")
    return "".join(lines)


def _index(topics):
    """The keywords in alphabetical order, each with links to its topics."""
    return "".join(f"<li>{_text(keyword)}: {', '.join(_link(topic) for topic in found)}</li>\n"
                   for keyword, found in keyword_index(topics))


def _block_text(block):
    if isinstance(block, Paragraph):
        return plain(block.runs)
    if isinstance(block, ListBlock):
        return " ".join(plain(item) for item in block.items)
    if isinstance(block, Table):
        return " ".join(plain(cell) for row in (block.header, *block.rows) for cell in row)
    return " ".join(block.lines)


def _search_entries(topic):
    """What a topic says, a piece for each heading."""
    anchors = _anchors()
    pieces = [{"address": f"{topic.stem}.html", "title": topic.title, "heading": "", "text": "",
               "keywords": ", ".join(topic.keywords)}]
    for block in topic.blocks:
        if isinstance(block, Heading):
            pieces.append({"address": f"{topic.stem}.html#{next(anchors)}", "title": topic.title,
                           "heading": plain(block.runs), "text": "", "keywords": ""})
        else:
            pieces[-1]["text"] = f"{pieces[-1]['text']} {_block_text(block)}".strip()
    return pieces


def _search_index(topics):
    entries = [json.dumps(entry) for topic in topics for entry in _search_entries(topic)]
    return "var searchIndex = [\n" + ",\n".join(entries) + "\n];\n"


def write_pages(help_topics, name):
    """The folder as {file name: text}."""
    sections = _sections(help_topics)
    aside = f'<nav class="aside" aria-label="Contents">\n{sections}</nav>\n'
    topics = help_topics.topics
    files = {}

    def add(stem, title, body, aside):
        files[stem + ".html"] = PAGE.format(title=_text(title), name=_text(name), body=body,
                                            aside=aside)

    add(CONTENTS, help_topics.contents.title, f'<div class="contents">\n{sections}</div>\n', "")
    add(SEARCH, "Search", SEARCH_BODY.format(index=_index(help_topics.every_topic())), aside)
    for at, topic in enumerate(topics):
        anchors = _anchors()
        body = "".join(_block(block, anchors) for block in topic.blocks)
        here = f'<a href="{topic.stem}.html"'
        add(topic.stem, topic.title, body + _steps(topics, at),
            aside.replace(here, here + ' aria-current="page"'))
    files["search_index.js"] = _search_index(topics)
    for file_name in sorted(os.listdir(STATIC_FILES)):
        with open(os.path.join(STATIC_FILES, file_name), encoding="utf-8") as file:
            files[file_name] = file.read()
    return files
