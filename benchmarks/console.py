#!/usr/bin/env python3
"""The converter as a whole process, beside two others that do the same kind of work.

    benchmarks/console.py [CONVERTER] [--rounds N] [--entries N]

Each round runs, one after the other:
  norvik-konverter  2000 entries .t9t to .csv: checked, with findings to report, and sorted
  ... --verluste    the same, with the losses reported
  cat               the same .t9t into a file
  abook             Debian's abook, --convert of a CSV file of its own, as long, into vCard
What a run writes is removed before each one (abook refuses an existing target). Printed are the
medians and the ratios of the medians; CONVERTER is that of the release build where none is given.
"""
import argparse
import os
import random
import shutil
import statistics
import sys
import tempfile
import time
from pathlib import Path

FINDINGS = 20  # entries with a tone that no telephone has
HEADER = bytes.fromhex("060D545374436F6C6C656374696F6E026401")
SURNAMES = ["Müller", "Özdemir", "Schäfer", "Brandt", "Weiß", "Zöllner", "Meier", "Lange"]
TOWNS = ["Musterstadt", "Nebelhafen", "Apfelbach", "Bad Lindental"]


def integer(value: int) -> bytes:
    return bytes([2, value]) if value < 128 else bytes([3, value & 0xFF, value >> 8])


def string(text: str) -> bytes:
    data = text.encode("cp850")
    return bytes([6, len(data)]) + data


def register_file(entries: int) -> bytes:
    """Entries in no order, with info texts of two lines."""
    numbers = list(range(entries))
    random.Random(195).shuffle(numbers)
    records = bytearray(HEADER)
    for place, number in enumerate(numbers):
        info = f"Weg {number}".ljust(21) + TOWNS[number % len(TOWNS)]
        tone = 85 if place < FINDINGS else number % 20
        records += integer(place) + integer(place + 1)
        records += string(f"{SURNAMES[number % len(SURNAMES)]}, {number:04}")
        records += string(f"0301{number:06}") + string(info)
        records += integer(tone) + integer(15) + integer(number) + integer(0)
    return bytes(records) + b"\x00"


def abook_file(entries: int) -> str:
    """Name, mail, telephone, notes, nickname: the columns that abook itself writes as CSV."""
    lines = (f'"{SURNAMES[number % len(SURNAMES)]}, {number:04}","post{number}@example.org",'
             f'"0301{number:06}","Weg {number} {TOWNS[number % len(TOWNS)]}","nr{number}"\n'
             for number in range(entries))
    return "".join(lines)


def run(words: list[str], target: Path, errors: Path, output: bool) -> float:
    """The seconds from the start of the process to its end."""
    target.unlink(missing_ok=True)
    actions = [(os.POSIX_SPAWN_OPEN, 2, str(errors), os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o600)]
    if output:
        actions.append((os.POSIX_SPAWN_OPEN, 1, str(target),
                        os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o600))
    start = time.perf_counter()
    process = os.posix_spawn(words[0], words, os.environ, file_actions=actions)
    status = os.waitstatus_to_exitcode(os.waitpid(process, 0)[1])
    seconds = time.perf_counter() - start
    if status not in (0, 1):
        sys.exit(f"{' '.join(words)} ended with status {status}: {errors.read_text()}")
    return seconds


def expect(condition: bool, what: str) -> None:
    if not condition:
        sys.exit(f"this was no measurement: {what}")


def main() -> None:
    root = Path(__file__).resolve().parent.parent
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("converter", nargs="?", type=Path,
                        default=root / "build/release/console/norvik-konverter")
    parser.add_argument("--rounds", type=int, default=101)
    parser.add_argument("--entries", type=int, default=2000)
    options = parser.parse_args()
    abook, cat = shutil.which("abook"), shutil.which("cat")
    if abook is None:
        sys.exit("abook is missing (Debian package abook)")

    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        os.environ["HOME"] = name  # abook would look for an address book there
        os.environ["LC_ALL"] = "C.UTF-8"
        source, csv = folder / "quelle.t9t", folder / "quelle.csv"
        source.write_bytes(register_file(options.entries))
        csv.write_text(abook_file(options.entries), encoding="utf-8")
        converter, errors = str(options.converter.resolve()), folder / "meldungen"
        targets = {key: folder / f"ziel{place}.{ending}" for place, (key, ending) in enumerate(
            [("norvik-konverter", "csv"), ("... --verluste", "csv"), ("cat", "t9t"),
             ("abook", "vcf")])}
        words = {
            "norvik-konverter": [converter, str(source), str(targets["norvik-konverter"])],
            "... --verluste": [converter, "--verluste", str(source),
                               str(targets["... --verluste"])],
            "cat": [cat, str(source)],
            "abook": [abook, "--convert", "--informat", "csv", "--infile", str(csv),
                      "--outformat", "vcard", "--outfile", str(targets["abook"])],
        }
        times: dict[str, list[float]] = {key: [] for key in words}
        for key in list(words) * options.rounds:
            times[key].append(run(words[key], targets[key], errors, output=key == "cat"))
            if key == "norvik-konverter":
                expect(f"Es wurden {FINDINGS} Fehler korrigiert" in errors.read_text("utf-8"),
                       "the findings are missing")

        expect(targets["norvik-konverter"].read_bytes().count(b"\r\n") == options.entries + 1,
               "entries are missing in the CSV file")
        expect(targets["cat"].read_bytes() == source.read_bytes(), "cat wrote something else")
        expect(targets["abook"].read_text("utf-8").count("BEGIN:VCARD") == options.entries,
               "entries are missing in the vCard file")

        medians = {key: statistics.median(values) for key, values in times.items()}
        print(f"{options.rounds} rounds, {options.entries} entries, {source.stat().st_size} bytes")
        print(f"{'':20}{'median ms':>12}{'best ms':>12}{'/ cat':>10}{'/ abook':>10}")
        for key, median in medians.items():
            print(f"{key:20}{median * 1e3:12.2f}{min(times[key]) * 1e3:12.2f}"
                  f"{median / medians['cat']:10.2f}{median / medians['abook']:10.2f}")


if __name__ == "__main__":
    main()
