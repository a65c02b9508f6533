#!/usr/bin/env python3
"""build_help.py TOPICS OUTPUT VERSION: writes the help's pages (help/), qz7.hlp and the manual pages to
OUTPUT."""
import os
import shutil
import sys
import time

from hlp import write_hlp
from html_pages import write_pages
from man_page import write_man_page
from topics import HelpError, read_help

TITLE = "QZ-7H Programmer Help"
MAN_PAGES = ("qz7ctl", "qz7radio")


def source_seconds(help_topics):
    """The date of the help: that of the sources, or what the packager says."""
    told = os.environ.get("SOURCE_DATE_EPOCH")
    if told:
        return int(told)
    return int(max(os.path.getmtime(topic.path) for topic in help_topics.every_topic()))


def write(folder, name, data):
    with open(os.path.join(folder, name), "wb") as file:
        file.write(data)


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    source, output, version = sys.argv[1:]
    try:
        help_topics = read_help(source)
        by_stem = {topic.stem: topic for topic in help_topics.topics}
        title = f"{TITLE} {version}"
        seconds = source_seconds(help_topics)
        date = time.strftime("%Y-%m-%d", time.gmtime(seconds))
        pages = os.path.join(output, "help")
        shutil.rmtree(pages, ignore_errors=True)  # of topics that are no more
        os.makedirs(pages)
        for name, text in write_pages(help_topics, title).items():
            write(pages, name, text.encode("utf-8"))
        write(output, "qz7.hlp", write_hlp(help_topics, title, seconds))
        for name in MAN_PAGES:
            write(output, f"{name}.1", write_man_page(by_stem[name], version, date).encode("utf-8"))
    except HelpError as error:
        sys.exit(str(error))


if __name__ == "__main__":
    main()
