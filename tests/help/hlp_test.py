"""qz7.hlp: taken apart by its format, it says what the page says."""
import re
import unittest
from collections import Counter

import hlp_file
import hlp_topic
from hlp import cell_width, wrap_cell
from hlp_reader import FormatError, HlpFile, Tree, read_long
from support import hlp, pages, read_built, topics, words
from topics import Run, plain


class Numbers(unittest.TestCase):
    def test_compressed_numbers_at_their_borders(self):
        for function, value, golden in (
                (hlp_file.compressed_ushort, 0, "00"), (hlp_file.compressed_ushort, 127, "fe"),
                (hlp_file.compressed_ushort, 128, "0101"),
                (hlp_file.compressed_ushort, 32767, "ffff"),
                (hlp_file.compressed_short, 0, "80"), (hlp_file.compressed_short, -64, "00"),
                (hlp_file.compressed_short, 63, "fe"), (hlp_file.compressed_short, 64, "8180"),
                (hlp_file.compressed_short, -65, "7f7f"),
                (hlp_file.compressed_long, 0, "0080"), (hlp_file.compressed_long, 16383, "feff"),
                (hlp_file.compressed_long, 16384, "01800080"),
                (hlp_file.compressed_long, -16384, "0000")):
            with self.subTest(function.__name__, value=value):
                self.assertEqual(function(value).hex(), golden)

    def test_numbers_out_of_range_are_refused(self):
        for function, value in ((hlp_file.compressed_ushort, 32768),
                                (hlp_file.compressed_ushort, -1),
                                (hlp_file.compressed_short, 16384),
                                (hlp_file.compressed_long, 0x40000000)):
            with self.assertRaises(ValueError):
                function(value)

    def test_context_strings_are_hashed_in_base_43(self):
        self.assertEqual(hlp_topic.context_hash("A"), 17)
        self.assertEqual(hlp_topic.context_hash("a1"), 17 * 43 + 1)
        self.assertEqual(hlp_topic.context_hash("Z_0"), (42 * 43 + 13) * 43 + 10)
        self.assertEqual(hlp_topic.context_hash("getting_data"),
                         hlp_topic.context_hash("Getting_Data"))
        with self.assertRaises(ValueError):
            hlp_topic.context_hash("a b")


def long_tree(count):
    return hlp_file.build_tree([(hlp_file.long(n), hlp_file.long(-n)) for n in range(count)], "L4")


class Trees(unittest.TestCase):
    def read(self, tree):
        return Tree(tree.data, "L4", read_long, read_long)

    def test_one_page_holds_what_fits(self):
        fits = (2048 - 8) // 8
        self.assertEqual((self.read(long_tree(fits)).pages, self.read(long_tree(fits)).levels),
                         (1, 1))
        tree = self.read(long_tree(fits + 1))
        self.assertEqual((tree.pages, tree.levels, tree.root), (3, 2, 2))

    def test_three_levels_hold_every_entry_in_order(self):
        tree = self.read(long_tree(100000))
        self.assertEqual(tree.levels, 3)
        self.assertEqual(tree.entries(), [(n, -n) for n in range(100000)])

    def test_an_empty_tree_has_one_empty_leaf(self):
        tree = self.read(long_tree(0))
        self.assertEqual((tree.pages, tree.levels, tree.entries()), (1, 1, []))

    def test_the_header_as_it_stands_in_the_file(self):
        self.assertEqual(long_tree(1).data[:54].hex(),
                         "3b29" "0200" "0008" "4c34" + "00" * 14 +
                         "0000" "0000" "0000" "ffff" "0100" "0100" "01000000"
                         "f007" "0100" "ffff" "ffff" "00000000" "00000000")


class Paragraphs(unittest.TestCase):
    def test_a_paragraph_byte_by_byte(self):
        text = hlp_topic.ParagraphText()
        text.font(2)
        text.add("a\tb")
        text.jump("A")
        text.add("c")
        text.end_jump()
        first, second = text.record(hlp_topic.Layout(below=4, left=36, first=-30, tabs=(36,)))
        self.assertEqual(second, b"\0a\0b\0c\0\0\0")
        self.assertEqual(first.hex(), "1280" "12" "0080" "0000" "5402" "88" "c8" "44" "82" "48"
                         "800200" "83" "e311000000" "89" "82" "ff")

    def test_a_cell_is_cut_at_blanks_and_keeps_its_looks(self):
        runs = [Run("one two "), Run("three", code=True), Run(" four")]
        lines = wrap_cell(runs, cell_width([Run("one two")]))
        self.assertEqual([plain(line) for line in lines], ["one two", "three", "four"])
        self.assertTrue(lines[1][0].code)


class Reader(unittest.TestCase):
    def test_finds_a_byte_that_does_not_fit(self):
        data = bytearray(read_built("qz7.hlp"))
        for place in (0, 4, 8, 12, 16, 20, 24):
            bad = bytearray(data)
            bad[place] ^= 0x55
            with self.assertRaises(FormatError, msg=f"byte {place}"):
                HlpFile(bytes(bad))


    def test_finds_a_change_in_any_byte_of_a_link_or_a_block_header(self):
        data = read_built("qz7.hlp")
        start = data.index(HlpFile(data).files["|TOPIC"])
        for place in range(start, start + 12 + 21 + 28):
            bad = bytearray(data)
            bad[place] ^= 0x41
            with self.assertRaises(FormatError, msg=f"byte {place - start} of the text"):
                HlpFile(bytes(bad))


def page_words(topic):
    return Counter(words(pages()[topic.stem + ".html"].text))


def hlp_words(topic):
    """The words of a topic without the marks of its lists, which the page leaves to the browser."""
    count = Counter()
    for paragraph in topic.paragraphs:
        count.update(words(re.sub(r"^(\u2022|\d+\.)\t", "", paragraph.text)))
    return count


class File(unittest.TestCase):
    def topic_of(self, source):
        context = hlp_topic.context_hash(source.stem)
        return hlp().topic_of_hash(context - (1 << 32) if context >= 1 << 31 else context)

    def test_has_the_topics_in_reading_order(self):
        self.assertEqual([topic.title for topic in hlp().topics],
                         [topic.title for topic in topics().every_topic()])
        self.assertEqual([topic.paragraphs[0].text for topic in hlp().topics],
                         [topic.title for topic in topics().every_topic()])
        self.assertEqual([topic.number for topic in hlp().topics],
                         list(range(len(hlp().topics))))

    def test_opens_at_the_contents(self):
        self.assertEqual(hlp().topic_at(hlp().contents).title, topics().contents.title)
        self.assertRegex(hlp().title, r"^QZ-7H Programmer Help \d+\.\d+\.\d+$")

    def test_every_context_number_leads_to_its_topic(self):
        told = {context: topic.title for topic in topics().every_topic()
                for context in topic.contexts}
        found = {context: hlp().topic_at(offset).title
                 for context, offset in hlp().context_map.items()}
        self.assertEqual(found, told)

    def test_every_context_string_leads_to_its_topic(self):
        self.assertEqual(len(hlp().contexts), len(topics().every_topic()))
        for source in topics().every_topic():
            self.assertEqual(self.topic_of(source).title, source.title)

    def test_the_titles_stand_at_their_offsets(self):
        self.assertEqual(hlp().titles, [(topic.offset, topic.title) for topic in hlp().topics])

    def test_every_keyword_leads_to_its_topics(self):
        found = {keyword.casefold(): [hlp().topic_at(offset).title for offset in offsets]
                 for keyword, offsets in hlp().keywords.items()}
        told = {}
        for topic in topics().every_topic():
            for keyword in topic.keywords:
                told.setdefault(keyword.casefold(), []).append(topic.title)
        self.assertEqual(found, told)

    def test_the_browse_sequence_runs_through_all_topics_and_back(self):
        offsets = [topic.offset for topic in hlp().topics]
        self.assertEqual([topic.back for topic in hlp().topics], [-1, *offsets[:-1]])
        self.assertEqual([topic.forward for topic in hlp().topics], [*offsets[1:], -1])

    def test_every_topic_says_the_words_of_the_page(self):
        for source in topics().topics:
            with self.subTest(source.stem):
                self.assertEqual(hlp_words(self.topic_of(source)), page_words(source))

    def test_every_topic_has_the_links_of_the_page(self):
        for source in topics().topics:
            with self.subTest(source.stem):
                jumps = {hlp().topic_of_hash(jump).title
                         for paragraph in self.topic_of(source).paragraphs
                         for jump in paragraph.jumps}
                stems = {link.removesuffix(".html") for link in pages()[source.stem + ".html"].links}
                self.assertEqual(jumps, {topic.title for topic in topics().topics
                                         if topic.stem in stems}
                                 | ({topics().contents.title} if "contents" in stems else set()))

    def test_every_topic_is_reached_from_the_contents(self):
        jumps = {hlp().topic_of_hash(jump).title
                 for paragraph in hlp().topics[0].paragraphs for jump in paragraph.jumps}
        self.assertEqual(jumps, {topic.title for topic in topics().topics})
