#!/usr/bin/env python3
"""Makes a Windows bitmap font file from BDF sources.

usage: build_font.py OUT.fon BDF...

Every BDF becomes four sizes of the face that its FAMILY_NAME gives, its own and 5/4, 3/2 and 2
times that, for screens of 96, 120, 144 and 192 dots per inch; all must have the same face. The
sources must be fixed-pitch, their strokes one pixel wide. A code between the lowest and
the highest one that has no glyph gets the glyph with the code -1.

The result holds FNT 2.0 fonts with character set 254 in a 16-bit NE library
without code, which every Windows reads. The same sources give the same bytes.
"""

import struct
import sys
from typing import NamedTuple

RADIO_CHARSET = 254
FF_MODERN = 0x30  # with its lowest bit clear: every character has the same width
DOTS_PER_INCH = 96
COPYRIGHT = b"QZ-7H Programmer"

FNT_HEADER_SIZE = 118
FNT_CHARACTER_ENTRY_SIZE = 4
FONTDIR_HEADER_SIZE = 113  # the FNT header up to its bits pointer

ALIGN_SHIFT = 4  # resources start on multiples of 16 bytes
RT_FONTDIR = 0x8007
RT_FONT = 0x8008
MOVEABLE_SHARED_PRELOAD = 0x0C50
MOVEABLE_SHARED_DISCARDABLE = 0x1C30
NE_HEADER_SIZE = 64


class Font(NamedTuple):
  face: bytes
  points: int
  weight: int
  width: int
  height: int
  ascent: int
  glyphs: dict  # code: rows from the top, each an integer of `width` bits


def fail(text):
  sys.exit("build_font.py: " + text)


def read_properties(lines):
  """The header's keywords and properties, each as the rest of its line."""
  properties = {}
  for line in lines:
    keyword, _, value = line.partition(" ")
    if keyword == "CHARS":
      return properties
    properties[keyword] = value.strip().strip('"')
  fail("a BDF file without CHARS")


def read_glyph(lines, cell):
  """One glyph up to its ENDCHAR, as its code and its rows."""
  code = None
  for line in lines:
    keyword, _, value = line.partition(" ")
    if keyword == "ENCODING":
      code = int(value)
    elif keyword == "BBX" and value.split() != cell:
      fail(f"the glyph {code} does not fill its cell")
    elif keyword == "BITMAP":
      break
  padding = -int(cell[0]) % 8
  rows = [int(next(lines), 16) >> padding for _ in range(int(cell[1]))]
  if next(lines) != "ENDCHAR":
    fail(f"the glyph {code} has too many rows")
  return code, rows


def read_bdf(path):
  with open(path, encoding="ascii") as source:
    lines = iter(source.read().splitlines())
  properties = read_properties(lines)
  cell = properties["FONTBOUNDINGBOX"].split()
  glyphs = {}
  for line in lines:
    if line.startswith("STARTCHAR"):
      code, rows = read_glyph(lines, cell)
      if code in glyphs:
        fail(f"{path}: the code {code} stands twice")
      glyphs[code] = rows
  if -1 not in glyphs:
    fail(f"{path}: no glyph for the codes without one (ENCODING -1)")
  return Font(
      face=properties["FAMILY_NAME"].encode("ascii"),
      points=int(properties["POINT_SIZE"]) // 10,
      weight={"Medium": 400, "Bold": 700}[properties["WEIGHT_NAME"]],
      width=int(cell[0]),
      height=int(cell[1]),
      ascent=int(properties["FONT_ASCENT"]),
      glyphs=glyphs)


def doubled_rows(rows, width):
  """A glyph of twice the size with its slants smoothed: a corner between two equal neighbours
  becomes like them."""
  def pixel(x, y):
    return rows[y] >> (width - 1 - x) & 1 if 0 <= x < width and 0 <= y < len(rows) else 0

  result = []
  for y in range(len(rows)):
    upper = lower = 0
    for x in range(width):
      own, up, right = pixel(x, y), pixel(x, y - 1), pixel(x + 1, y)
      left, down = pixel(x - 1, y), pixel(x, y + 1)
      upper_left = up if left == up != down and up != right else own
      upper_right = right if up == right != left and right != down else own
      lower_left = left if down == left != right and left != up else own
      lower_right = down if right == down != up and down != left else own
      upper = upper << 2 | upper_left << 1 | upper_right
      lower = lower << 2 | lower_left << 1 | lower_right
    result += [upper, lower]
  return result


def doubled(font):
  """The font for screens that are twice as fine."""
  glyphs = {code: doubled_rows(rows, font.width) for code, rows in font.glyphs.items()}
  return font._replace(points=2 * font.points, width=2 * font.width, height=2 * font.height,
                       ascent=2 * font.ascent, glyphs=glyphs)


def redrawn_rows(rows, width, numerator, denominator, pen):
  """A glyph redrawn in another size: its strokes, led through the same pixels, by a pen of so many
  pixels. Enlarging the pixels themselves would make some strokes wider than others."""
  def is_set(x, y):
    return 0 <= x < width and 0 <= y < len(rows) and rows[y] >> (width - 1 - x) & 1

  def place(coordinate):
    return coordinate * numerator // denominator

  new_width = place(width)
  new_rows = [0] * place(len(rows))

  def draw(x0, y0, x1, y1):
    steps = max(abs(x1 - x0), abs(y1 - y0), 1)
    for step in range(steps + 1):
      x = (x0 * (steps - step) + x1 * step + steps // 2) // steps
      y = (y0 * (steps - step) + y1 * step + steps // 2) // steps
      for row in range(y, min(y + pen, len(new_rows))):
        for column in range(x, min(x + pen, new_width)):
          new_rows[row] |= 1 << (new_width - 1 - column)

  for y in range(len(rows)):
    for x in range(width):
      if not is_set(x, y):
        continue
      draw(place(x), place(y), place(x), place(y))
      for dx, dy in ((1, 0), (0, 1), (1, 1), (-1, 1)):
        is_corner = dx and dy and (is_set(x + dx, y) or is_set(x, y + dy))
        if is_set(x + dx, y + dy) and not is_corner:
          draw(place(x), place(y), place(x + dx), place(y + dy))
  return new_rows


def redrawn(font, numerator, denominator, pen):
  """The font for screens that are finer by that ratio."""
  def scaled(size):
    return size * numerator // denominator

  glyphs = {code: redrawn_rows(rows, font.width, numerator, denominator, pen)
            for code, rows in font.glyphs.items()}
  return font._replace(points=scaled(font.points), width=scaled(font.width),
                       height=scaled(font.height), ascent=scaled(font.ascent), glyphs=glyphs)


def glyph_bits(rows, width):
  """A glyph as FNT keeps it: columns of eight pixels, each from top to bottom."""
  column_count = (width + 7) // 8
  aligned = [row << (column_count * 8 - width) for row in rows]
  shifts = range((column_count - 1) * 8, -1, -8)
  return bytes(row >> shift & 0xFF for shift in shifts for row in aligned)


def fnt_header(font, first, last, file_size, width_bytes, face_offset, bits_offset):
  default = next(code for code in range(first, last + 1) if code not in font.glyphs)
  return struct.pack(
      "<HI60s7H3BHB2HB2H4BH4IB",
      0x200, file_size, COPYRIGHT,
      0, font.points, DOTS_PER_INCH, DOTS_PER_INCH, font.ascent, 0, 0,
      0, 0, 0, font.weight, RADIO_CHARSET,
      font.width, font.height, FF_MODERN, font.width, font.width,
      first, last, default - first, ord(" ") - first,
      width_bytes, 0, face_offset, 0, bits_offset, 0)


def make_fnt(font):
  first = min(code for code in font.glyphs if code >= 0)
  last = max(font.glyphs)
  bitmaps = [
      glyph_bits(font.glyphs.get(code, font.glyphs[-1]), font.width)
      for code in range(first, last + 1)
  ]
  bitmaps.append(bytes(len(bitmaps[0])))  # the blank that ends the table
  bits_offset = FNT_HEADER_SIZE + len(bitmaps) * FNT_CHARACTER_ENTRY_SIZE
  bits = b"".join(bitmaps)
  table = b"".join(
      struct.pack("<HH", font.width, bits_offset + n * len(bitmaps[0]))
      for n in range(len(bitmaps)))
  width_bytes = len(bits) // font.height
  width_bytes += width_bytes % 2
  face_offset = bits_offset + len(bits)
  file_size = face_offset + len(font.face) + 1
  header = fnt_header(font, first, last, file_size, width_bytes, face_offset, bits_offset)
  return header + table + bits + font.face + b"\0"


def make_font_directory(fonts, images):
  directory = struct.pack("<H", len(fonts))
  for number, (font, image) in enumerate(zip(fonts, images), start=1):
    device_name = b"\0"
    directory += struct.pack("<H", number) + image[:FONTDIR_HEADER_SIZE]
    directory += device_name + font.face + b"\0"
  return directory


def pad(data):
  return data + bytes(-len(data) % (1 << ALIGN_SHIFT))


def counted(text):
  return bytes([len(text)]) + text


def name_table(text):
  """A table of one name, which is the module's own and has the ordinal 0."""
  return counted(text) + bytes(2) + bytes(1)


def dos_stub():
  message = b"This is a font for Windows.\r\n$"
  # push cs; pop ds; mov dx, message; mov ah, 9; int 21h; mov ax, 4C01h; int 21h
  code = bytes.fromhex("0e 1f ba 0e 00 b4 09 cd 21 b8 01 4c cd 21")
  body = pad(code + message)
  header_size = 64
  size = header_size + len(body)
  header = struct.pack("<2s13H", b"MZ", size % 512, (size + 511) // 512, 0, header_size // 16,
                       0, 0xFFFF, 0, 0xB8, 0, 0, 0, header_size, 0)
  header += bytes(header_size - 4 - len(header)) + struct.pack("<I", size)
  return header + body


def resource_table(resources, first_offset):
  """The table of (type, flags, images); `first_offset` is where the first image stands."""
  type_size, entry_size = 8, 12
  names_offset = 2 + sum(type_size + entry_size * len(images) for _, _, images in resources) + 2
  table = struct.pack("<H", ALIGN_SHIFT)
  offset = first_offset
  for kind, flags, images in resources:
    table += struct.pack("<HHI", kind, len(images), 0)
    for number, image in enumerate(images, start=1):
      identifier = names_offset if kind == RT_FONTDIR else 0x8000 | number
      size = len(pad(image))
      table += struct.pack("<4HI", offset >> ALIGN_SHIFT, size >> ALIGN_SHIFT, flags, identifier, 0)
      offset += size
  return table + bytes(2) + counted(b"FONTDIR") + bytes(1)


def ne_header(resources_size, resident_size, entry_size, non_resident_size, non_resident_offset):
  resident = NE_HEADER_SIZE + resources_size
  entries = resident + resident_size
  return struct.pack(
      "<2s2B2HI4H2I3H5HI3H2B4H",
      b"NE", 5, 10, entries, entry_size, 0,
      0x8308, 0, 0, 0,  # a library for the Windows interface, without data of its own
      0, 0, 0, 0, non_resident_size,
      NE_HEADER_SIZE, NE_HEADER_SIZE, resident, entries, entries,
      non_resident_offset, 0, ALIGN_SHIFT, 0,
      2, 8, 0, 0, 0, 0x300)


def make_fon(fonts):
  images = [make_fnt(font) for font in fonts]
  resources = [
      (RT_FONTDIR, MOVEABLE_SHARED_PRELOAD, [make_font_directory(fonts, images)]),
      (RT_FONT, MOVEABLE_SHARED_DISCARDABLE, images),
  ]
  stub = dos_stub()
  resident = name_table(fonts[0].face)
  entries = bytes(2)
  description = b"FONTRES 100,%d,%d : %s" % (DOTS_PER_INCH, DOTS_PER_INCH, fonts[0].face)
  non_resident = name_table(description)
  table_size = len(resource_table(resources, 0))
  non_resident_offset = len(stub) + NE_HEADER_SIZE + table_size + len(resident) + len(entries)
  first_offset = len(pad(bytes(non_resident_offset + len(non_resident))))
  head = stub
  head += ne_header(table_size, len(resident), len(entries), len(non_resident), non_resident_offset)
  head += resource_table(resources, first_offset) + resident + entries + non_resident
  return pad(head) + b"".join(pad(image) for _, _, group in resources for image in group)


def main(arguments):
  if len(arguments) < 2:
    sys.exit(__doc__.split("\n\n")[1])
  out, *sources = arguments
  fonts = [read_bdf(path) for path in sources]
  if len({font.face for font in fonts}) != 1:
    fail("the sources are not of one face")
  with open(out, "wb") as file:
    file.write(make_fon(
        fonts + [redrawn(font, 5, 4, 1) for font in fonts] +
        [redrawn(font, 3, 2, 2) for font in fonts] + [doubled(font) for font in fonts]))


if __name__ == "__main__":
  main(sys.argv[1:])
