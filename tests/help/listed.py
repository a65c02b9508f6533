"""The messages that help/messages.md explains."""
import re

from support import topics
from topics import Heading, plain


def listed_messages():
    """(line, text) of each message; %s and %d stand for what only the running program knows."""
    topic = next(topic for topic in topics().topics if topic.stem == "messages")
    return [(block.line, plain(block.runs)) for block in topic.blocks
            if isinstance(block, Heading) and block.level == 3]


def one_line(text):
    return " ".join(text.split())


def pattern_of(text):
    """What a program shows that is explained by this text."""
    return ".*".join(re.escape(part) for part in re.split(" ?%[sd]", text))
