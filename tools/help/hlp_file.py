"""The outside of a WinHelp file: numbers, B+ trees, and the internal files with their directory.

The file starts with a header of four longs: the magic number, where the directory is, where the
first free block is (-1: none) and the size of the whole file. Everything else is an internal file:

    long  reserved space, these 9 bytes included
    long  used space
    uchar flags, 4
    ...   the contents

The directory is an internal file itself: a B+ tree from file names to where the files are. All
numbers are little-endian.
"""
import struct
from dataclasses import dataclass

FILE_MAGIC = 0x00035F3F
BTREE_MAGIC = 0x293B
DIRECTORY_PAGE = 1024
TREE_PAGE = 2048
NOWHERE = -1


def short(value):
    return struct.pack("<h", value)


def ushort(value):
    return struct.pack("<H", value)


def long(value):
    return struct.pack("<i", value)


def ulong(value):
    return struct.pack("<I", value)


def compressed_ushort(value):
    """0 to 127 take one byte, up to 32767 two: the lowest bit tells which."""
    if not 0 <= value < 0x8000:
        raise ValueError(f"no compressed unsigned short: {value}")
    return bytes([value << 1]) if value < 0x80 else ushort(value << 1 | 1)


def compressed_short(value):
    """-64 to 63 take one byte, -16384 to 16383 two."""
    if -0x40 <= value < 0x40:
        return bytes([(value + 0x40) << 1])
    if not -0x4000 <= value < 0x4000:
        raise ValueError(f"no compressed short: {value}")
    return ushort((value + 0x4000) << 1 | 1)


def compressed_long(value):
    """-16384 to 16383 take two bytes, anything of up to 31 bits four."""
    if -0x4000 <= value < 0x4000:
        return ushort((value + 0x4000) << 1)
    if not -0x40000000 <= value < 0x40000000:
        raise ValueError(f"no compressed long: {value}")
    return ulong((value + 0x40000000) << 1 | 1)


def text_bytes(text):
    return text.encode("cp1252")


def terminated(text):
    return text_bytes(text) + b"\0"


@dataclass
class Tree:
    """A B+ tree as bytes, and of each leaf the number of its first entry: page N is leaf N."""
    data: bytes
    leaf_starts: list


def _leaves(entries, page_size):
    """The entries by page: as many on each as fit behind its header of 8 bytes."""
    leaves = [[]]
    room = page_size - 8
    for key, value in entries:
        size = len(key) + len(value)
        if size > room:
            leaves.append([])
            room = page_size - 8
        leaves[-1].append((key, value))
        room -= size
    return leaves


def _leaf_page(entries, previous, following, page_size):
    body = b"".join(key + value for key, value in entries)
    head = ushort(page_size - 8 - len(body)) + short(len(entries)) + short(previous)
    return (head + short(following) + body).ljust(page_size, b"\0")


def _index_level(children, page_size):
    """The index pages over children, which are (first key, page number): a list of children each.

    The first child of a page needs no key: what is below the first key is there.
    """
    pages = [[]]
    room = page_size - 6
    for key, number in children:
        size = len(key) + 2 if pages[-1] else 0
        if size > room:
            pages.append([])
            room = page_size - 6
            size = 0
        pages[-1].append((key, number))
        room -= size
    return pages


def _index_page(children, page_size):
    body = b"".join(key + short(number) for key, number in children[1:])
    head = ushort(page_size - 6 - len(body)) + short(len(children) - 1) + short(children[0][1])
    return (head + body).ljust(page_size, b"\0")


def build_tree(entries, structure, page_size=TREE_PAGE, flags=0x0002):
    """A B+ tree of entries (key, value) in the order of their keys.

    The header of 38 bytes is: magic, flags, page size, structure (how keys and values are made up,
    16 characters), 0, page splits, root page, -1, number of pages, levels, number of entries. The
    leaves come first, then each level of index pages; the root is the last page.
    """
    leaves = _leaves(entries, page_size)
    pages = []
    starts = []
    count = 0
    for number, leaf in enumerate(leaves):
        following = number + 1 if number + 1 < len(leaves) else NOWHERE
        pages.append(_leaf_page(leaf, number - 1 if number else NOWHERE, following, page_size))
        starts.append(count)
        count += len(leaf)
    level = [(leaf[0][0] if leaf else b"", number) for number, leaf in enumerate(leaves)]
    levels = 1
    while len(level) > 1:
        above = []
        for children in _index_level(level, page_size):
            above.append((children[0][0], len(pages)))
            pages.append(_index_page(children, page_size))
        level = above
        levels += 1
    header = struct.pack("<HHH16shhhhhhi", BTREE_MAGIC, flags, page_size,
                         structure.encode("ascii"), 0, 0, len(pages) - 1, NOWHERE, len(pages),
                         levels, len(entries))
    return Tree(header + b"".join(pages), starts)


def _internal_file(data):
    return long(len(data) + 9) + long(len(data)) + b"\x04" + data


def build_file(internal_files):
    """The whole file from {name: contents}."""
    body = b""
    entries = []
    for name in sorted(internal_files, key=text_bytes):
        entries.append((terminated(name), long(16 + len(body))))
        body += _internal_file(internal_files[name])
    directory = _internal_file(build_tree(entries, "z4", DIRECTORY_PAGE, 0x0402).data)
    size = 16 + len(body) + len(directory)
    return ulong(FILE_MAGIC) + long(16 + len(body)) + long(NOWHERE) + long(size) + body + directory
