#!/usr/bin/env python3
"""Makes the fonts of the printed phone list from DejaVu Sans Condensed (Debian: `fonts-dejavu-extra`,
`python3-fonttools`): paper/fonts/regular.ttf and bold.ttf with the characters of Windows-1252 alone, and
paper/fonts/widths.inc with the width of each.

    scripts/list_fonts.py           writes them anew
    scripts/list_fonts.py --check   fails where they are not what this script makes

Without the fonts or the library, or with others than those named here, the check is skipped (exit
status 77).
"""
import hashlib
import io
import pathlib
import sys

LIBRARY = "4.38.0"
SOURCES = pathlib.Path("/usr/share/fonts/truetype/dejavu")
FOLDER = pathlib.Path(__file__).resolve().parent.parent / "paper/fonts"
# Name, source and the source's SHA-256.
FONTS = [
    ("regular", "DejaVuSansCondensed.ttf", "2d8aa290adcf1ebcbb35f63e57cf32941b012eaab4b65096b904112cf3bac972"),
    ("bold", "DejaVuSansCondensed-Bold.ttf", "6d2f2481e2aae944e8411cc5be515c69503ff7f5db52f2c67bcbe5d4de6bec13"),
]
FAMILY = "Telefonliste"  # the same name as the whole font's would stand in front of it
# Nothing of these is needed to show single characters.
TABLES = ["DSIG", "FFTM", "GDEF", "GPOS", "GSUB", "MATH", "gasp", "kern"]
UNDEFINED = {0x81, 0x8D, 0x8F, 0x90, 0x9D}


def skip(reason):
    print(f"skipped: {reason}")
    sys.exit(77)


def character(byte):
    """The code point of a byte; 0 for a control character."""
    if byte < 0x20 or byte == 0x7F or byte in UNDEFINED:
        return 0
    return ord(bytes([byte]).decode("cp1252"))


def made(source, style):
    """The font's bytes and the widths of all 256 characters in thousandths of its size."""
    options = subset.Options()
    options.layout_features = []
    options.drop_tables += TABLES
    options.name_IDs = [0, 1, 2, 4, 5, 6]
    options.name_languages = [0x409]
    options.notdef_outline = True
    options.recalc_timestamp = False
    font = subset.load_font(str(source), options)
    subsetter = subset.Subsetter(options)
    subsetter.populate(unicodes=sorted({character(byte) for byte in range(256)} - {0}))
    subsetter.subset(font)
    names = {1: FAMILY, 2: style, 4: f"{FAMILY} {style}", 6: f"{FAMILY}-{style}"}
    for record in font["name"].names:
        if record.nameID in names:
            record.string = names[record.nameID]
    stream = io.BytesIO()
    font.save(stream, reorderTables=None)
    glyphs, units = font.getBestCmap(), font["head"].unitsPerEm
    widths = [font["hmtx"][glyphs[character(byte)]][0] * 1000 // units if character(byte) else 0
              for byte in range(256)]
    return stream.getvalue(), widths


def main():
    files = {}
    lines = ["// Made by scripts/list_fonts.py: widths in thousandths of the font's size, byte by byte.\n"]
    for name, source, digest in FONTS:
        path = SOURCES / source
        if not path.exists():
            skip(f"there is no {path}")
        if hashlib.sha256(path.read_bytes()).hexdigest() != digest:
            skip(f"{path} is another font")
        files[f"{name}.ttf"], widths = made(path, name.capitalize())
        lines.append("{{\n")
        for start in range(0, 256, 16):
            lines.append("    " + ", ".join(str(width) for width in widths[start:start + 16]) + ",\n")
        lines.append("}},\n")
    files["widths.inc"] = "".join(lines).encode()
    if sys.argv[1:] == ["--check"]:
        others = [name for name, content in files.items() if (FOLDER / name).read_bytes() != content]
        if others:
            sys.exit(f"not what scripts/list_fonts.py makes: {', '.join(others)}")
        return
    for name, content in files.items():
        (FOLDER / name).write_bytes(content)


try:
    import fontTools
    from fontTools import subset
except ImportError:
    skip("there is no fontTools")
if fontTools.version != LIBRARY:
    skip(f"fontTools is {fontTools.version}, not {LIBRARY}")
main()
