"""Writes the help as one page that needs neither network nor script.

Its anchors: "#NUMBER" for each context, "#stem" for each topic, "#search" and "#help" for the topic
that stands in for a viewer's search.
"""
import os
import re
from html import escape

from topics import Code, Heading, ListBlock, Paragraph, Table, keyword_index

SEARCHING = "searching"
SEARCHING_ANCHORS = ("search", "help")
STYLE_FILE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "page.css")

PAGE = """\
<!DOCTYPE html>
<html lang="en-GB">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>{title}</title>
<style>
{style}</style>
</head>
<body>
<nav id="contents" aria-label="Contents">
{navigation}</nav>
<main>
{topics}{index}</main>
</body>
</html>
"""


def _run(run):
    text = escape(run.text, quote=False)
    if run.code:
        # A line does not break at the hyphens of an option.
        text = re.sub(r"(?<!\S)-[\w-]+", r'<span class="option">\g<0></span>', text)
        text = f"<code>{text}</code>"
    if run.bold:
        text = f"<strong>{text}</strong>"
    if run.target:
        text = f'<a href="#{run.target}">{text}</a>'
    return text


def _runs(runs):
    return "".join(_run(run) for run in runs)


def _table_row(cells, tag):
    return "<tr>" + "".join(f"<{tag}>{_runs(cell)}</{tag}>" for cell in cells) + "</tr>\n"


def _table(block):
    body = "".join(_table_row(row, "td") for row in block.rows)
    return (f'<div class="table"><table>\n<thead>\n{_table_row(block.header, "th")}</thead>\n'
            f"<tbody>\n{body}</tbody>\n</table></div>\n")


def _block(block):
    if isinstance(block, Heading):
        # The topic's title is the page's second level.
        return f"<h{block.level + 1}>{_runs(block.runs)}</h{block.level + 1}>\n"
    if isinstance(block, Paragraph):
        return f"<p>{_runs(block.runs)}</p>\n"
    if isinstance(block, ListBlock):
        tag = "ol" if block.ordered else "ul"
        items = "".join(f"<li>{_runs(item)}</li>\n" for item in block.items)
        return f"<{tag}>\n{items}</{tag}>\n"
    if isinstance(block, Table):
        return _table(block)
    assert isinstance(block, Code)
    return f"<pre><code>{escape(chr(10).join(block.lines), quote=False)}</code></pre>\n"


def _anchors(topic):
    names = [str(context) for context in topic.contexts]
    if topic.stem == SEARCHING:
        names += SEARCHING_ANCHORS
    return "".join(f'<span class="anchor" id="{name}"></span>' for name in names)


def _topic(topic):
    return (f'<section id="{topic.stem}">\n{_anchors(topic)}'
            f"<h2>{escape(topic.title, quote=False)}</h2>\n"
            + "".join(_block(block) for block in topic.blocks)
            + '<p class="up"><a href="#contents">Contents</a></p>\n</section>\n')


def _navigation(help_topics, title):
    titles = {topic.stem: topic.title for topic in help_topics.topics}
    lines = [_anchors(help_topics.contents), f"<h1>{escape(title, quote=False)}</h1>\n"]
    for block in help_topics.contents.blocks:
        if isinstance(block, Heading):
            break
        lines.append(_block(block))
    for section in help_topics.sections:
        lines.append(f"<h2>{escape(section.title, quote=False)}</h2>\n<ul>\n")
        for stem in section.stems:
            name = escape(titles[stem], quote=False)
            lines.append(f'<li><a href="#{stem}">{name}</a></li>\n')
        lines.append("</ul>\n")
    lines.append('<p><a href="#index">Index</a></p>\n')
    return "".join(lines)


def _index(topics):
    """The keywords in alphabetical order, each with links to its topics."""
    lines = ['<section id="index">\n<h2>Index</h2>\n<ul class="index">\n']
    for keyword, found in keyword_index(topics):
        links = ", ".join(f'<a href="#{topic.stem}">{escape(topic.title, quote=False)}</a>'
                          for topic in found)
        lines.append(f"<li>{escape(keyword, quote=False)}: {links}</li>\n")
    lines.append("</ul>\n</section>\n")
    return "".join(lines)


def write_page(help_topics, title):
    """The text of the page."""
    with open(STYLE_FILE, encoding="utf-8") as file:
        style = file.read()
    return PAGE.format(title=escape(title, quote=False), style=style,
                       navigation=_navigation(help_topics, title),
                       topics="".join(_topic(topic) for topic in help_topics.topics),
                       index=_index(help_topics.every_topic()))
