#!/usr/bin/env python3
"""Makes base/simplifytable.inc: how characters outside Windows-1252 are spelled with those inside.

    scripts/simplify_table.py           writes the table anew
    scripts/simplify_table.py --check   fails where the table is not what this script makes

The table comes from the Unicode data that Python brings, and those of another version know other
characters: with another one than UNICODE the check is skipped (exit status 77).
"""
import difflib
import pathlib
import re
import sys
import unicodedata

UNICODE = "14.0.0"
TABLE = pathlib.Path(__file__).resolve().parent.parent / "base/simplifytable.inc"
LONGEST = 6  # characters of a spelling, as base/simplify.cpp has it

UNDEFINED = (0x81, 0x8D, 0x8F, 0x90, 0x9D)  # bytes that keep their code
REPERTOIRE = {chr(byte) if byte in UNDEFINED else bytes([byte]).decode("cp1252") for byte in range(256)}

# What the Unicode data do not say: letters that are no letter with a mark, signs that look alike.
BY_HAND = {
    "ı": "i", "ȷ": "j", "ĸ": "k", "ŋ": "n", "Ŋ": "N", "ə": "e", "Ə": "E", "ẞ": "SS",
    "\u02b9": "'", "\u02ba": "''", "\u02bb": "‘", "\u02bc": "’", "\u02bd": "‘", "\u02be": "’",
    "\u02bf": "‘", "\u02c8": "'",
    "\u2010": "-", "\u2011": "-", "\u2012": "–", "\u2015": "—", "\u2043": "-", "\u2212": "-",
    "\u201b": "‘", "\u201f": "“", "\u2032": "'", "\u2033": "''", "\u2035": "`",
    "\u2027": "·", "\u2219": "·", "\u22c5": "·", "\u2044": "/", "\u2215": "/", "\u2216": "\\",
    "\u037e": "?", "\ufe14": ",", "\ufe54": ",", "\uff1b": ",", "\uff02": "''",
    "\u2217": "*", "\u2223": "|", "\u2236": ":", "\u223c": "~", "\u2028": " ", "\u2029": " ",
}

# These divide a line into fields: no character may become one of them.
DIVIDING = set(';"\r\n\t')

# Characters that show nothing themselves.
INVISIBLE = [(0x034F, 0x034F), (0x061C, 0x061C), (0x180B, 0x180F), (0x200B, 0x200F), (0x202A, 0x202E),
             (0x2060, 0x206F), (0xFE00, 0xFE0F), (0xFEFF, 0xFEFF), (0xE0000, 0xE007F), (0xE0100, 0xE01EF)]
# What belongs to the character in front of it without being a mark: the further parts of a Korean
# syllable, the colors of skin.
BELONGING = [(0x1160, 0x11FF), (0x1F3FB, 0x1F3FF)]


def is_mark(character):
    """Whether the character is drawn over, under or around the one before it."""
    return unicodedata.category(character).startswith("M")


def named_base(character):
    """The letter that a letter's name begins with: "l" of "l with stroke"; "" where there is none."""
    name = unicodedata.name(character, "")
    match = re.fullmatch(r"(LATIN (?:SMALL|CAPITAL) LETTER \w+) WITH .*", name)
    if not match:
        match = re.fullmatch(r"LATIN LETTER SMALL CAPITAL (\w)", name)
        return match[1] if match else ""
    try:
        return unicodedata.lookup(match[1])
    except KeyError:
        return ""


def composed(base, mark):
    """The one character of the repertoire that a letter and a mark are; "" where there is none."""
    both = unicodedata.normalize("NFC", base + mark)
    return both if both in REPERTOIRE else ""


def append(spelling, character):
    """The spelling with one decomposed character more; None where the repertoire has nothing for it."""
    if is_mark(character):
        if not spelling:
            return None
        return spelling[:-1] + (composed(spelling[-1], character) or spelling[-1])
    character = BY_HAND.get(character, character)
    if any(part not in REPERTOIRE for part in character):
        character = named_base(character)
        if not character or character not in REPERTOIRE:
            return None
    return spelling + character


def spelled(character):
    """How a character outside the repertoire is spelled; "" where it is not."""
    if character in BY_HAND:
        return BY_HAND[character]
    if unicodedata.category(character) == "Zs":
        return " "
    spelling = ""
    for part in unicodedata.normalize("NFKD", character):
        spelling = append(spelling, part)
        if spelling is None:
            return ""
    # An accent standing alone is no blank.
    return spelling if spelling.strip() and len(spelling) <= LONGEST else ""


def all_characters():
    """Every character but the halves of pairs."""
    return (chr(point) for point in range(0x110000) if not 0xD800 <= point < 0xE000)


def ranges(points):
    """The pairs of first and last of each run of neighbors."""
    found = []
    for point in sorted(points):
        if found and found[-1][1] == point - 1:
            found[-1][1] = point
        else:
            found.append([point, point])
    return found


def compositions():
    """(letter, mark, composed) for all letters of the repertoire that have a mark."""
    found = []
    # A mark that stands for another one composes like it.
    twins = [c for c in all_characters() if is_mark(c) and len(unicodedata.normalize("NFD", c)) == 1]
    for character in REPERTOIRE:
        parts = unicodedata.normalize("NFD", character)
        if len(parts) == 1:
            continue
        base, mark = parts
        found += [(base, twin, character) for twin in twins if unicodedata.normalize("NFD", twin) == mark]
    return sorted(found)


def check_order(pairs):
    """The marks of one letter may be taken as they come only if their order says something."""
    for letter in {pair[0] for pair in pairs}:
        classes = {unicodedata.combining(mark) for base, mark, _ in pairs if base == letter}
        assert len(classes) == 1, letter


def literal(text):
    """The text between quotes, in ASCII."""
    return 'u"' + "".join("\\" + c if c in '\\"' else c if " " <= c <= "~" else f"\\u{ord(c):04X}"
                          for c in text) + '"'


def array(kind, name, remark, rows):
    """An array of C++ with several rows a line."""
    lines, line = [f"/// {remark}", f"constexpr std::array<{kind}, {len(rows)}> {name} = {{{{"], "   "
    for row in rows:
        if len(line) + len(row) + 2 > 100:
            lines.append(line)
            line = "   "
        line += f" {row},"
    return lines + [line, "}};", ""]


def table():
    """The whole file."""
    same, others = [], []
    for character in all_characters():
        if character in REPERTOIRE or is_mark(character):
            continue
        spelling = spelled(character)
        assert not DIVIDING & set(spelling), character
        if spelling:
            is_same = unicodedata.normalize("NFC", character) == spelling
            (same if is_same else others).append(f"{{0x{ord(character):04X}, {literal(spelling)}}}")
    pairs = compositions()
    check_order(pairs)
    marks = {ord(c) for c in all_characters() if is_mark(c)}
    invisible = {point for first, last in INVISIBLE for point in range(first, last + 1)}
    marks |= {point for first, last in BELONGING for point in range(first, last + 1)}

    def spans(points):
        return [f"{{0x{first:04X}, 0x{last:04X}}}" for first, last in ranges(points)]

    lines = [f"// Made by scripts/simplify_table.py from the data of Unicode {UNICODE}; not to be edited.", ""]
    lines += array("Composition", "Compositions", "Letters of the repertoire and the marks they are made of.",
                   [f"{{0x{ord(a):04X}, 0x{ord(b):04X}, 0x{ord(c):04X}}}" for a, b, c in pairs])
    lines += array("Spelling", "SameCharacters", "Other codes of characters of the repertoire.", same)
    lines += array("Spelling", "Spellings", "Characters that the repertoire can only spell.", others)
    lines += array("Span", "Marks", "What belongs to the character in front of it.", spans(marks - invisible))
    lines += array("Span", "Invisible", "What shows nothing itself.", spans(invisible))
    return "\n".join(lines)


def main(arguments):
    if unicodedata.unidata_version != UNICODE:
        print(f"Python's data are those of Unicode {unicodedata.unidata_version}, the table's of {UNICODE}.")
        return 77
    new = table()
    if arguments == ["--check"]:
        old = TABLE.read_text(encoding="ascii")
        sys.stdout.writelines(difflib.unified_diff(old.splitlines(True), new.splitlines(True), "checked in", "made"))
        return 0 if old == new else 1
    TABLE.write_text(new, encoding="ascii")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
