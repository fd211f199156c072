#!/usr/bin/env python3
"""coverage.py BUILD_TREE: which lines and branches of the product the tests have run, by folder.

Ends with 1 below 95 % of the lines or 85 % of the branches. build/mingw-coverage/uncovered.txt lists each
line that did not run. Of the branches those do not count that only an exception takes: the compiler makes one
behind nearly every call."""

import collections
import json
import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from source_tree import PRODUCT, ROOT, folders

GCOV = "x86_64-w64-mingw32-gcov-posix"
FOLDERS = tuple(dict.fromkeys(folder.split("/")[0] for folder in folders(PRODUCT)))
LINES, BRANCHES = 95.0, 85.0


def reports(tree):
    """What gcov tells of each object that the compiler noted, also of those that never ran."""
    def read(notes):
        run = subprocess.run([GCOV, "--json-format", "--stdout", "--branch-probabilities", str(notes)],
                             cwd=notes.parent, capture_output=True, text=True, check=False)
        if run.returncode != 0:
            raise SystemExit(f"coverage: {GCOV} failed on {notes.name}: {run.stderr.strip()}")
        return [json.loads(line) for line in run.stdout.splitlines() if line.startswith("{")]

    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for found in pool.map(read, sorted(tree.rglob("*.gcno"))):
            yield from found


def name_of(file):
    """The file's name in the project; None for one that is not the product's."""
    path = os.path.relpath(os.path.join(ROOT, file.replace("\\", "/").removeprefix("Z:")), ROOT)
    return path if path.split("/")[0] in FOLDERS else None


def counted(tree):
    """Runs of each line, and of each branch as a list by its line. The same header or object in several
    programs counts once, with the sum of its runs."""
    lines, branches = collections.Counter(), collections.Counter()
    for report in reports(tree):
        for file in report["files"]:
            name = name_of(file["file"])
            if name is None:
                continue
            of_line = collections.Counter()
            for line in file["lines"]:
                at = (name, line["line_number"])
                lines[at] += line["count"]
                for branch in line["branches"]:
                    of_line[at] += 1
                    if not branch["throw"]:
                        branches[(*at, of_line[at])] += branch["count"]
    return lines, branches


def table(lines, branches):
    """Rows of folder, lines that ran and all, branches that ran and all; the whole product last."""
    sums = collections.defaultdict(lambda: [0, 0, 0, 0])
    for place, counts in ((0, lines), (2, branches)):
        for at, runs in counts.items():
            for folder in (at[0].split("/")[0], "all"):
                sums[folder][place] += runs > 0
                sums[folder][place + 1] += 1
    return [(folder, *sums[folder]) for folder in (*FOLDERS, "all") if folder in sums]


def share(part, whole):
    return 100.0 * part / whole if whole else 100.0


def main():
    tree = Path(sys.argv[1]).resolve()
    lines, branches = counted(tree)
    if not lines:
        print("coverage: nothing was counted")
        return 1
    rows = table(lines, branches)
    print(f"{'folder':<12}{'lines':>16}{'':>8}{'branches':>16}")
    for folder, ran, all_lines, taken, all_branches in rows:
        print(f"{folder:<12}{ran:>8} /{all_lines:>6}{share(ran, all_lines):>7.1f}%"
              f"{taken:>8} /{all_branches:>6}{share(taken, all_branches):>7.1f}%")
    missed = sorted(at for at, runs in lines.items() if runs == 0)
    with open(tree / "uncovered.txt", "w", encoding="utf-8") as listing:
        for name, number in missed:
            text = (ROOT / name).read_text("utf-8").splitlines()[number - 1].strip()
            listing.write(f"{name}:{number}: {text}\n")
    of_lines, of_branches = share(*rows[-1][1:3]), share(*rows[-1][3:5])
    enough = of_lines >= LINES and of_branches >= BRANCHES
    print(f"coverage: {of_lines:.1f} % of lines, {of_branches:.1f} % of branches; "
          f"{len(missed)} lines did not run{'' if enough else f', wanted are {LINES:.0f} and {BRANCHES:.0f} %'}")
    return 0 if enough else 1


if __name__ == "__main__":
    sys.exit(main())
