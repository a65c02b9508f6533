"""help/messages.md lists messages of the program. That it lists all: recorded.py."""
import functools
import re
import unittest

from listed import listed_messages, one_line
from support import read_text, sources

LITERAL = r'"(?:[^"\\\n]|\\.)*"'


def literals(text):
    """Every string of a C++ source, line breaks as blanks; literals in a row are one."""
    text = re.sub(rf"({LITERAL})|//[^\n]*|/\*.*?\*/", lambda m: m.group(1) or " ", text,
                  flags=re.DOTALL)
    for row in re.findall(rf"(?:{LITERAL}\s*)+", text):
        joined = "".join(literal[1:-1] for literal in re.findall(LITERAL, row))
        yield one_line(re.sub(r"\\(.)", lambda m: {"n": "\n"}.get(m[1], m[1]), joined))


@functools.cache
def program_strings():
    return [string for path in sources("core", "desktop") for string in literals(read_text(path))]


class Literals(unittest.TestCase):
    def test_in_a_row_are_one_text(self):
        self.assertEqual(list(literals('f("One\\n"\n   "two \\"x\\"") // "three"')),
                         ['One two "x"'])


class Messages(unittest.TestCase):
    def test_every_message_explained_is_one_of_the_program(self):
        for line, text in listed_messages():
            with self.subTest(line):
                self.assertRegex(text, r'^".+"$')
                self.assertEqual(text, one_line(text))
                for part in re.split("%[sd]", text[1:-1]):
                    self.assertTrue(any(part.strip() in string for string in program_strings()),
                                    f"messages.md:{line}: no such message: {text}")

    def test_no_message_is_explained_twice(self):
        listed = [text for _, text in listed_messages()]
        self.assertGreater(len(listed), 40)
        self.assertEqual(sorted(set(listed)), sorted(listed))
