#!/usr/bin/env python3
"""Changes one operator, constant or message of the core at a time and says which changes no test
noticed.

    tests/mutation/mutate.py [--each N] [--seed S] [--jobs J] [SOURCE…]

Without SOURCE: the sources of the formats, of sort, check, line-access zero and globalising. N
changes of each (25), drawn from all possible ones with the seed. The working tree is not touched:
the changed source is compiled aside and linked in front of the core's library. Results stay in
build/mutation/results.txt. Needs a few minutes to build, then some seconds a change.
"""

import argparse
import concurrent.futures
import json
import pathlib
import random
import re
import resource
import shlex
import signal
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "mutation"

# Beside the rooms of the formats.
SOURCES = {
    "sort": ["registertools/sortregister.cpp"],
    "check": ["registertools/checkregister.cpp"],
    "line-access zero": ["registertools/lineaccesszero.cpp"],
    "globalise": ["formats/common/globalize.cpp"],
}


def all_sources():
    """The sources by group: a format's are those of its room, the menu items left out."""
    rooms = sorted(path for path in (ROOT / "formats").iterdir()
                   if path.is_dir() and path.name != "common")
    groups = {room.name: sorted(str(path.relative_to(ROOT)) for path in room.glob("*.cpp")
                                if not path.stem.endswith("menu")) for room in rooms}
    return {**groups, **SOURCES}


# What stands between other tokens and what takes its place.
OPERATORS = {
    "==": "!=", "!=": "==", "<=": "<", ">=": ">", " < ": " <= ", " > ": " >= ", "&&": "||",
    "||": "&&", " + ": " - ", " - ": " + ", "+=": "-=", "-=": "+=", "++": "--", " & ": " | ",
    " | ": " & ", " * ": " + ", " / ": " * ", "true": "false", "false": "true",
}
TOKENS = re.compile(
    r'//[^\n]*|"(?:\\.|[^"\\])*"|' + r"u?'(?:\\.|[^'\\])+'" +
    r"|\b0x[0-9A-Fa-f']+\b|\b\d[\d']*\b|\btrue\b|\bfalse\b" +
    r"|==|!=|<=|>=| < | > |&&|\|\|| \+ | - |\+=|-=|\+\+| & | \| | \* | / ")


def changed(token):
    """What takes a token's place, or None."""
    if token.startswith("//"):
        return None
    if token.startswith('"'):
        return token[:-1] + '~"'
    if token[0] in "u'" and token.endswith("'"):
        return "u'~'" if token.startswith("u") else "'~'"
    if token in OPERATORS:
        return OPERATORS[token]
    if token.startswith("0x"):
        return hex(int(token.replace("'", ""), 16) + 1)
    if token[0].isdigit():
        return str(int(token.replace("'", "")) + 1)
    return None


def mutants(source):
    """(line, before, after, changed text) of every possible change."""
    text = (ROOT / source).read_text()
    for match in TOKENS.finditer(text):
        line_start = text.rfind("\n", 0, match.start()) + 1
        line = text[line_start:text.find("\n", match.end())]
        after = changed(match.group())
        if after is None or re.match(r"\s*#|\s*//|\s*template|\s*static_assert", line):
            continue
        number = text.count("\n", 0, match.start()) + 1
        yield number, match.group(), after, text[:match.start()] + after + text[match.end():]


# In seconds: of the processor, whatever else the machine does, and of the clock, for what waits.
PROCESSOR_LIMIT = 120
CLOCK_LIMIT = 1800


def set_limits():
    resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))
    resource.setrlimit(resource.RLIMIT_CPU, (PROCESSOR_LIMIT, PROCESSOR_LIMIT + 1))


def run(command):
    try:
        status = subprocess.run(command, cwd=BUILD, capture_output=True, timeout=CLOCK_LIMIT,
                                check=False, preexec_fn=set_limits).returncode
    except subprocess.TimeoutExpired:
        return "timeout"
    return "timeout" if status == -signal.SIGXCPU else status


def prepare():
    subprocess.run(
        ["cmake", "-S", ROOT, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
         "-DCMAKE_CXX_FLAGS=-O0", "-DNORVIK_WINDOW=OFF"], check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", BUILD, "--target", "core-tests"], check=True)
    commands = json.loads((BUILD / "compile_commands.json").read_text())
    return {
        str(pathlib.Path(entry["file"]).relative_to(ROOT)): shlex.split(entry["command"])
        for entry in commands if pathlib.Path(entry["file"]).is_relative_to(ROOT)
    }


def noticed(number, source, text, commands):
    """How a change was noticed: "compiler", "tests", "timeout"; None when it was not."""
    folder = BUILD / "mutants" / str(number)
    folder.mkdir(parents=True, exist_ok=True)
    copy = folder / pathlib.Path(source).name
    copy.write_text(text)
    command = [part for part in commands[source] if "ccache" not in part]
    command = [part for part in command if part not in ("-Werror",)]
    command[command.index("-o") + 1] = str(folder / "mutant.o")
    command[command.index("-c") + 1] = str(copy)
    if run(command) != 0:
        return "compiler"
    objects = [str(path) for path in (BUILD / "tests/CMakeFiles/core-tests.dir").rglob("*.o")]
    program = folder / "core-tests"
    link = ["g++", "-o", str(program), str(folder / "mutant.o"), *objects,
            str(BUILD / "tests/libnorvik-test-support.a"), str(BUILD / "libnorvik-core.a"),
            "-lgtest_main", "-lgmock", "-lgtest", "-lpthread"]
    if run(link) != 0:
        return "compiler"
    result = run([str(program), "--gtest_brief=1", "--gtest_fail_fast",
                  "--gtest_filter=-*Killed*:*Samples*"])
    for path in folder.iterdir():
        path.unlink()
    return None if result == 0 else "timeout" if result == "timeout" else "tests"


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--each", type=int, default=25)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("sources", nargs="*", metavar="SOURCE")
    options = parser.parse_args()
    groups = {"chosen": options.sources} if options.sources else all_sources()
    commands = prepare()
    draw = random.Random(options.seed)
    drawn = []
    for group, sources in groups.items():
        possible = [(group, source, *mutant) for source in sources for mutant in mutants(source)]
        drawn += draw.sample(possible, min(options.each, len(possible)))
    print(f"{len(drawn)} changes", flush=True)
    tally = {}
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool, \
            open(BUILD / "results.txt", "w", encoding="utf-8") as results:
        jobs = {pool.submit(noticed, number, source, text, commands): (group, source, line, old, new)
                for number, (group, source, line, old, new, text) in enumerate(drawn)}
        for job in concurrent.futures.as_completed(jobs):
            group, source, line, old, new = jobs[job]
            how = job.result()
            counts = tally.setdefault(group, {"compiler": 0, "tests": 0, "timeout": 0, None: 0})
            counts[how] += 1
            results.write(f"{how or 'SURVIVED'}\t{source}:{line}\t{old} -> {new}\n")
            results.flush()
            if how is None:
                print(f"not noticed: {source}:{line}: {old} -> {new}", flush=True)
    all_run = all_noticed = 0
    for group, counts in sorted(tally.items()):
        ran = counts["tests"] + counts["timeout"] + counts[None]  # what compiles
        all_run += ran
        all_noticed += ran - counts[None]
        print(f"{group:<18}{ran - counts[None]:>4} of {ran:<4} noticed")
    print(f"{'all':<18}{all_noticed:>4} of {all_run:<4} noticed: "
          f"{100 * all_noticed / max(all_run, 1):.1f} %")
    return 0


sys.exit(main())
