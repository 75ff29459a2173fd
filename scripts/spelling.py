#!/usr/bin/env python3
"""Spell check: scripts/spelling.py [FILE…], without files over all that git knows.

English are the documents in Markdown and the comments of sources and scripts, German the help
documents, the manual pages and the package's texts. Quoted words in an English text, the texts in the
sources and the notes on the samples may be of either language. What looks like code is left out: words with digits, inner
capitals or underscores, options, paths, file names, addresses, and what stands in backticks or
<code>. Names and words that the dictionaries do not know stand in scripts/words.txt.

Prints FILE:LINE: WORD for each word that is in neither, and fails if there is one.
"""
import html
import io
import pathlib
import re
import subprocess
import sys
import tokenize

ROOT = pathlib.Path(__file__).resolve().parent.parent
GERMAN, ENGLISH, EITHER = "de_DE", "en_US", "either"

LETTER = r"[^\W\d_]"
WORD = re.compile(rf"{LETTER}+(?:['’]{LETTER}+)*")
# One lump of text without blanks is code if it looks like one of these.
CODE = re.compile(
    r"""https?://|^[("']*--?\w          # an address, an option
      | [\\_@=<>{}$#*+~%|^\[\]]|::|/.*/ # signs that no text has, a path
      | \w\(|\)\w|\.\w|^[("']*\.?/      # a call, a file name, a path
      | \w/\w*[a-z]\w*\.                # a path
      """, re.VERBOSE)
QUOTED = re.compile(r'"[^"\n]*"|„[^“\n]*“|“[^”\n]*”')


def blanked(pattern, text, flags=0):
    """The text with every match replaced by blanks; its lines stay where they are."""
    return re.sub(pattern, lambda match: re.sub(r"[^\n]", " ", match.group()), text, flags=flags)


def words_of(text):
    """The words of one line that are not code."""
    for lump in text.split():
        lump = lump.rstrip(".,;:!?)")
        if CODE.search(lump):
            continue
        for word in re.findall(r"[\w'’]+", lump):
            word = word.strip("'’_")
            if len(word) > 1 and WORD.fullmatch(word) and not any(
                    before.islower() and after.isupper() for before, after in zip(word, word[1:])):
                yield word


def prose(text, language, first_line=1):
    """(line number, language, word) of a text; quoted words in an English one are of either language."""
    text = blanked(r"`[^`\n]*`", text)
    for number, line in enumerate(text.split("\n"), first_line):
        quoted = []
        if language == ENGLISH:
            line = QUOTED.sub(lambda match: quoted.append(match.group()[1:-1]) or " ", line)
        for word in words_of(line):
            yield number, language, word
        for part in quoted:
            for word in words_of(part):
                yield number, EITHER, word


def from_markdown(text, language):
    """The words without blocks of code and the targets of links."""
    text = blanked(r"^```.*?^```", text, re.DOTALL | re.MULTILINE)
    lines, before_is_blank, code = [], True, False
    for line in text.split("\n"):  # code that is indented stands behind an empty line
        code = line.startswith("    ") and (before_is_blank or code) and not re.match(r" +[-*\d]", line)
        before_is_blank = not line.strip()
        lines.append("" if code else line)
    text = blanked(r"(?<=\])\([^)\n]*\)", "\n".join(lines))
    return prose(re.sub(r"&[a-z]+;|[\[\]|*\\]", " ", text), language)


def from_html(text):
    """The words between the tags; none of <style>, <code>, <kbd>, <pre>."""
    text = blanked(r"<!--.*?-->", text, re.DOTALL)
    text = blanked(r"<(style|script|code|kbd|pre)\b.*?</\1>", text, re.DOTALL)
    text = re.sub(r'<[^>]*?\balt="([^"]*)"[^>]*>', r" \1 ", text)
    text = blanked(r"<[^>]*>", text)
    return prose(html.unescape(text).replace("\u00ad", ""), GERMAN)


def from_roff(text):
    """A manual page's words; what is in bold is a name, what is in italics a placeholder."""
    text = blanked(r"^\.EX$.*?^\.EE$", text, re.DOTALL | re.MULTILINE)
    text = re.sub(r'^(?:\.\\"|\.TH|\.TS|\.BR?\b|\.RB|\.I\b|l[lb ]+\.?$|\.so).*$', "", text, flags=re.MULTILINE)
    text = blanked(r"\\f[BI].*?\\f[RP]", text)
    text = re.sub(r"\\-", "-", text)
    text = re.sub(r"^\.\w+", "", text, flags=re.MULTILINE)
    return prose(re.sub(r"\\\(..|\\[&e~]", " ", text), GERMAN)


CPP_TOKEN = re.compile(r"""//[^\n]*|/\*.*?\*/
    |(?P<prefix>u8|[uUL])?R"(?P<mark>[^(\s]*)\((?P<raw>.*?)\)(?P=mark)"
    |(?P<wide>u)?"(?P<text>(?:[^"\\\n]|\\.)*)"|'(?:[^'\\\n]|\\.)+'""", re.VERBOSE | re.DOTALL)


def from_cpp(text, with_texts):
    """The words of the comments, and those of the texts that the user sees."""
    comment_lines = {}
    for match in CPP_TOKEN.finditer(text):
        line = text.count("\n", 0, match.start()) + 1
        token = match.group()
        if token.startswith("//"):
            comment_lines[line] = token.lstrip("/<").strip()
        elif token.startswith("/*"):
            for offset, part in enumerate(token.split("\n")):
                comment_lines[line + offset] = part.strip("/* ")
        elif with_texts and match["wide"]:
            # "&" marks a key of the menu.
            yield from prose(re.sub(r"&|\\[nrt]", lambda m: "" if m.group() == "&" else " ",
                                    match["text"]), EITHER, line)
    for line, comment in comment_lines.items():
        if comment.startswith("namespace "):  # behind the brace that ends it
            continue
        yield from prose(comment, ENGLISH, line)


def from_python(text):
    """The words of the comments and of the strings that stand for themselves."""
    before = tokenize.NEWLINE
    for token in tokenize.generate_tokens(io.StringIO(text).readline):
        if token.type == tokenize.COMMENT:
            yield from prose(token.string.lstrip("#! "), ENGLISH, token.start[0])
        elif token.type == tokenize.STRING and before in (tokenize.NEWLINE, tokenize.INDENT):
            yield from prose(token.string.strip('"'), ENGLISH, token.start[0])
        if token.type not in (tokenize.NL, tokenize.COMMENT):
            before = token.type


def from_hashes(text):
    """The words of the comments behind "#"."""
    for number, line in enumerate(text.split("\n"), 1):
        match = re.search(r"(?:^|\s)#\s+(.*)", line)
        if match and not match[1].startswith("shellcheck "):
            yield from prose(match[1], ENGLISH, number)


def from_changelog(text):
    """The words of Debian's list of changes, without the lines that have a form."""
    return prose(re.sub(r"^(?:\S| -- ).*$", "", text, flags=re.MULTILINE), GERMAN)


def words_in(name, text):
    """The words to check of the file of that name (relative to the project's folder)."""
    if name == "packaging/debian/changelog":
        return from_changelog(text)
    if name == "packaging/debian/copyright":
        text = blanked(r"^Files: paper/fonts/.*", text, re.DOTALL | re.MULTILINE)  # in English
    if name.startswith("packaging/debian/"):
        return prose(re.sub(r"^[\w-]+:", "", text, flags=re.MULTILINE), GERMAN)
    ending = pathlib.PurePath(name).suffix
    if ending == ".md":
        return from_markdown(text, EITHER if name.startswith("samples/") else ENGLISH)
    if ending == ".htm":
        return from_html(text)
    if name.startswith("docs/help/") and ending == ".txt":
        return prose(text, GERMAN)
    if ending == ".1":
        return from_roff(text)
    if ending in (".cpp", ".h"):
        return from_cpp(text, not name.startswith(("tests/", "benchmarks/", "fuzzers/")))
    if ending == ".py":
        return from_python(text)
    if ending in (".sh", ".cmake", ".dict", ".bash-completion") or text.startswith("#!") or \
            name.endswith(("CMakeLists.txt", ".clang-tidy", ".clang-format")):
        return from_hashes(text)
    if ending == ".desktop":
        texts = re.sub(r"^(?!#|(?:GenericName|Comment|Keywords)=).*$", "", text, flags=re.MULTILINE)
        texts = re.sub(r"^\w+=|;", " ", texts, flags=re.MULTILINE)
        return [*from_hashes(texts), *prose(blanked(r"^#.*$", texts, re.MULTILINE), GERMAN)]
    return []


def unknown(words, dictionary):
    """Those of the words that the dictionary does not know."""
    found = subprocess.run(["hunspell", "-l", "-i", "utf-8", "-d", dictionary],
                           input="\n".join(sorted(words)) + "\n", stdout=subprocess.PIPE, check=True,
                           encoding="utf-8")
    return set(found.stdout.split("\n"))


def allowed_words():
    """The project's own list; a word in small letters may begin with a capital, too."""
    lines = (ROOT / "scripts/words.txt").read_text(encoding="utf-8").split("\n")
    return {line.strip() for line in lines if line.strip() and not line.startswith("#")}


def is_allowed(word, allowed):
    """Also with the genitive's "s" behind an apostrophe."""
    word = word.replace("’", "'")
    base = word[:-2] if word.endswith("'s") else word
    return any(form in allowed or form.lower() in allowed for form in (word, base))


def main(arguments):
    names = arguments or subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, check=True, encoding="utf-8",
                                        stdout=subprocess.PIPE).stdout.rstrip("\0").split("\0")
    found = []  # (name, line, language, word)
    for name in names:
        path = ROOT / name
        if not path.is_file() or path.is_symlink():
            continue
        try:
            text = path.read_bytes().decode("utf-8")
        except UnicodeDecodeError:
            continue  # pictures, registers
        found += [(name, *word) for word in words_in(name, text)]
    allowed = allowed_words()
    everything = {word.replace("’", "'") for _, _, _, word in found}
    wrong = {dictionary: unknown(everything, dictionary) for dictionary in (GERMAN, ENGLISH)}
    wrong[EITHER] = wrong[GERMAN] & wrong[ENGLISH]
    status = 0
    for name, line, language, word in found:
        if word.replace("’", "'") in wrong[language] and not is_allowed(word, allowed):
            print(f"{name}:{line}: {word}")
            status = 1
    return status


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
