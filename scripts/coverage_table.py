"""Prints a table of the covered lines and branches, one row a folder: coverage_table.py JSON"""

import collections
import json
import pathlib
import sys

CORE = ["base", "register", "ringtones", "registertools", "formats", "sync", "losses", "versions", "dialogs",
        "mainwindow"]


def counts(file):
    """The covered and all lines, then the covered and all branches, of a file's record."""
    lines = [line for line in file["lines"] if not line.get("gcovr/noncode")]
    branches = [branch for line in lines for branch in line["branches"]]
    return [
        sum(line["count"] > 0 for line in lines),
        len(lines),
        sum(branch["count"] > 0 for branch in branches),
        len(branches),
    ]


def row(name, numbers):
    lines, all_lines, branches, all_branches = numbers
    return (
        f"{name:<14}{lines:>6} of {all_lines:<6}{100 * lines / max(all_lines, 1):6.1f} %"
        f"{branches:>8} of {all_branches:<6}{100 * branches / max(all_branches, 1):6.1f} %"
    )


def main():
    folders = collections.defaultdict(lambda: [0, 0, 0, 0])
    for file in json.loads(pathlib.Path(sys.argv[1]).read_text())["files"]:
        folder = file["file"].split("/")[0]
        folders[folder] = [a + b for a, b in zip(folders[folder], counts(file))]
    print(f"{'folder':<14}{'lines':>13}{'':9}{'branches':>15}")
    for folder in CORE + sorted(set(folders) - set(CORE)):
        print(row(folder, folders[folder]))
    core = [sum(folders[folder][i] for folder in CORE) for i in range(4)]
    print(row("the core", core))


main()
