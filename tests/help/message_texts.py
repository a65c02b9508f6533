"""Collects the texts of the program's messages from its sources.

A text is what a call of a message function shows: string literals, joined by "+" with pieces that
only the running program knows. A call that cannot be followed to its literals is a mistake, so that
no message escapes the list in the help.
"""
import re
from dataclasses import dataclass

from support import read_text, sources

FOLDERS = ("app", "editors", "files", "image", "interchange", "link")
LITERAL = r'"(?:[^"\\]|\\.)*"'

# The functions that show a text: in which file (None: anywhere), which parameter it is.
FUNCTIONS = {
    (None, "ShowMessage"): 0,
    (None, "ShowFileError"): 0,
    (None, "AskForRetry"): 2,
    (None, "AskForOk"): 2,
    ("core/link/exchange.cpp", "AskLinkError"): 2,
    ("desktop/link/exchange_window.cpp", "ShowBoxWithoutOwner"): 0,
    ("desktop/printing/print_job.cpp", "ShowFailure"): 0,
    ("desktop/program.cpp", "Fail"): 0,
    ("core/editors/channel_acceptance.cpp", "Refuse"): 0,
    ("core/files/radio_data_file.cpp", "Refuse"): 0,
    ("core/interchange/merge_source.cpp", "Refuse"): 1,
}


@dataclass(frozen=True)
class Elsewhere:
    """Where the texts of a call stand that only names them: each match's first group is one."""
    path: str
    pattern: str
    suffix: bool = False  # a piece follows that only the running program knows


def _file_kind(field):
    # The constants list the magic, then the four texts.
    return r"constexpr FileKind \w+ = \{[^,}]*," + field * rf"\s*{LITERAL}," + r"([^,}]*)[,}]"


# Calls whose text stands elsewhere: the text is a field, or a function's result.
NAMED = {
    ("core/editors/channel_editor.cpp", "check.message"):
        Elsewhere("core/image/frequency_check.cpp", r"return \{false, \w+,([^}]*)\};"),
    ("core/editors/autodial.cpp", "number.refusal"):
        Elsewhere("core/editors/autodial.cpp", r"\brefusal = ([^;]*);"),
    ("core/link/serial_port.cpp", "PortErrorText(device, result)"):
        Elsewhere("core/link/serial_port.cpp", r"return (device \+[^;]*);"),
    # The other questions of an exchange are calls of AskForRetry and AskForOk.
    ("desktop/link/exchange_window.cpp", "question.text"):
        Elsewhere("core/link/exchange.cpp", r"LinkError::kFailedRead, ([^,]*),"),
    ("core/files/radio_data_file.cpp", "kind.wrong_magic + path"):
        Elsewhere("core/files/radio_data_file.cpp", _file_kind(0), True),
    ("core/files/radio_data_file.cpp", "kind.wrong_radio + std::string(RadioName(buffer))"):
        Elsewhere("core/files/radio_data_file.cpp", _file_kind(1), True),
    ("core/files/radio_data_file.cpp", "kind.bad_header"):
        Elsewhere("core/files/radio_data_file.cpp", _file_kind(2)),
    ("core/files/radio_data_file.cpp", "kind.bad_format"):
        Elsewhere("core/files/radio_data_file.cpp", _file_kind(3)),
}

# The one place where a message box is made; it shows what ShowMessage is given.
MESSAGE_BOX_FILE = "desktop/seams_win32.cpp"


def without_comments(text):
    """Comments become blanks, so that places stay what they are."""
    def blank(match):
        piece = match.group(0)
        return piece if piece[0] == '"' else re.sub(r"[^\n]", " ", piece)
    return re.sub(rf'{LITERAL}|//[^\n]*|/\*.*?\*/', blank, text, flags=re.DOTALL)


def closing(text, at):
    """The place of the bracket that closes the one at a place; strings are skipped."""
    depth = 0
    for match in re.compile(rf"{LITERAL}|'(?:[^'\\]|\\.)'|[()\[\]{{}}]").finditer(text, at):
        if match.group(0) in "([{":
            depth += 1
        elif match.group(0) in ")]}":
            depth -= 1
            if depth == 0:
                return match.start()
    raise ValueError("bracket without its end")


def split_outside(text, separator):
    """Cuts at a separator that stands neither in brackets nor in a string."""
    pieces, start, depth = [], 0, 0
    for match in re.finditer(rf"{LITERAL}|'(?:[^'\\]|\\.)'|[()\[\]{{}}{separator}]", text):
        piece = match.group(0)
        if piece in "([{":
            depth += 1
        elif piece in ")]}":
            depth -= 1
        elif piece == separator and depth == 0:
            pieces.append(text[start:match.start()])
            start = match.end()
    return [" ".join(piece.split()) for piece in [*pieces, text[start:]]]


def literal_value(text):
    """The value of one or more string literals in a row; None for anything else."""
    if not re.fullmatch(rf"(?:{LITERAL}\s*)+", text.strip()):
        return None
    joined = "".join(literal[1:-1] for literal in re.findall(LITERAL, text))
    return re.sub(r"\\(.)", lambda m: {"n": "\n", "t": "\t"}.get(m.group(1), m.group(1)), joined)


def one_line(text):
    return " ".join(text.split())


def pattern_of(expression, suffix=False):
    """A regular expression for what the expression can show; None if it has no literal."""
    pieces = [literal_value(piece) for piece in split_outside(expression, "+")]
    if all(piece is None for piece in pieces) or "?" in re.sub(LITERAL, "", expression):
        return None
    if suffix:
        pieces.append(None)
    # A blank stands for the line breaks; \0 keeps the unknown pieces apart from them.
    text = one_line("".join("\0" if piece is None else piece for piece in pieces))
    return ".+".join(re.escape(part) for part in text.split("\0"))


def constants(texts):
    """Every named string constant of the sources."""
    found = {}
    for text in texts.values():
        for match in re.finditer(rf"constexpr (?:const )?char\s*\*?\s*(k\w+)(?:\[\])? =\s*"
                                 rf"((?:{LITERAL}\s*)+);", text):
            found[match.group(1)] = match.group(2)
    return found


def _index_of(path, name):
    return FUNCTIONS.get((path, name), FUNCTIONS.get((None, name)))


def _passes_on(text, at, expression, path):
    """Whether a place lies in a message function whose own text parameter the expression is."""
    for (file, name), index in FUNCTIONS.items():
        if file not in (None, path):
            continue
        for match in re.finditer(rf"\b{name}\(", text):
            end = closing(text, match.end() - 1)
            body = re.compile(r"\)\s*\{").match(text, end)
            parameters = split_outside(text[match.end():end], ",")
            if (body and index < len(parameters)
                    and parameters[index].endswith((" " + expression, "&" + expression))
                    and body.end() - 1 < at < closing(text, body.end() - 1)):
                return True
    return False


def collect():
    """(patterns, mistakes): what messages can say, as {pattern: place}, and what stays unclear."""
    texts = {path: without_comments(read_text(path)) for path in sources(*FOLDERS)}
    known = constants(texts)
    patterns, mistakes = {}, []
    used = set()

    def add(expression, place, suffix=False):
        pattern = pattern_of(known.get(expression, expression), suffix)
        if pattern is None:
            mistakes.append(f"{place}: no text found: {expression}")
        else:
            patterns[pattern] = place

    for path, text in texts.items():
        if path != MESSAGE_BOX_FILE and re.search(r"\bMessageBox\w*\(|\bTaskDialog\w*\(", text):
            mistakes.append(f"{path}: a message box past ShowMessage")
        for match in re.finditer(r"\b([A-Z]\w+)\(", text):
            index = _index_of(path, match.group(1))
            if index is None:
                continue
            arguments = split_outside(text[match.end():closing(text, match.end() - 1)], ",")
            if re.match(r"const\b|\w+&", arguments[0]):
                continue  # a declaration
            expression = arguments[index]
            place = f"{path}:{text.count(chr(10), 0, match.start()) + 1}"
            elsewhere = NAMED.get((path, expression))
            if elsewhere:
                used.add((path, expression))
                found = re.findall(elsewhere.pattern, texts[elsewhere.path])
                if not found:
                    mistakes.append(f"{place}: nothing found for {expression}")
                for one in found:
                    add(one.strip(), elsewhere.path, elsewhere.suffix)
            elif not _passes_on(text, match.start(), expression, path):
                add(expression, place)
    mistakes += [f"{path}: no such call any more: {name}" for path, name in set(NAMED) - used]
    return patterns, mistakes
