#!/usr/bin/env python3
"""Whole processes, each in turn with its baseline: the editor until its window stands beside an
empty window and one with a label, which loads the fonts (20 rounds), and the converter beside cat
and abook. Prints figure, baseline and ratio of the
medians as the benchmark programs do.

    benchmarks/processes.py [ROUNDS]
"""

import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
PROGRAMS = ROOT / "build/release/benchmarks"
ENTRIES = [250, 500, 1000, 2000]


def seconds(command):
    start = time.perf_counter()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return time.perf_counter() - start


def row(name, figure, baseline):
    print(f"{name:<44} {figure * 1e9:14.0f} {baseline * 1e9:14.0f} {figure / baseline:8.2f}")


def main():
    rounds = int(sys.argv[1]) if len(sys.argv) > 1 else 20
    os.environ["QT_QPA_PLATFORM"] = "offscreen"
    editor, empty, label = [], [], []
    with tempfile.TemporaryDirectory() as folder:
        pathlib.Path(folder, "norvik.ini").write_text("Unit=0,12\r\n", encoding="ascii")
        for _ in range(rounds + 1):
            editor.append(seconds([PROGRAMS / "process-editor", folder]))
            empty.append(seconds([PROGRAMS / "process-empty"]))
            label.append(seconds([PROGRAMS / "process-empty", "Name"]))
    print(f"\n{'figure':<44} {'ns':>14} {'baseline ns':>14} {'ratio':>8}")
    # The first round fills the caches.
    row("StartUp/empty window", statistics.median(editor[1:]), statistics.median(empty[1:]))
    row("StartUp/window with a label", statistics.median(editor[1:]), statistics.median(label[1:]))
    for entries in ENTRIES:
        # These processes are short and wait for the disk: more rounds make the median steady.
        command = [sys.executable, ROOT / "benchmarks/console.py", "--rounds", str(5 * rounds),
                   "--entries", str(entries)]
        lines = subprocess.run(command, check=True, capture_output=True,
                               text=True).stdout.splitlines()
        medians = {line[:20].strip(): float(line[20:].split()[0]) / 1e3 for line in lines[2:]}
        row(f"Convert/{entries}/abook", medians["norvik-konverter"], medians["abook"])
        row(f"Convert/{entries}/cat", medians["norvik-konverter"], medians["cat"])
        row(f"ConvertWithLosses/{entries}/abook", medians["... --verluste"], medians["abook"])


main()
