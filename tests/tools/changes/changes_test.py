#!/usr/bin/env python3
"""changes_test.py SOURCE_TREE: each change that ./dev mutate can make does change a program, and none does alone."""

import os
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(sys.argv[1]).resolve()
sys.path.insert(0, str(ROOT / "tools"))

import changes  # noqa: E402
import mutate   # noqa: E402

SAMPLE = "tests/tools/changes/sample.cpp"
OPTIONS = ["-std=c++14", f"-I{ROOT}", *changes.windows_definitions()]


def disjoint(found):
    """As few groups as possible of changes that can stand in one copy."""
    groups = []
    for change in found:
        group = next((g for g in groups if not mutate.overlaps(change, g)), None)
        if group is None:
            groups.append([change])
        else:
            group.append(change)
    return groups


def run(program, **settings):
    result = subprocess.run([ROOT / "tools/under-wine", program], env={**os.environ, **settings}, capture_output=True,
                            text=True, timeout=60, check=False)
    return result.returncode, result.stdout


def compile_group(folder, number, group):
    source = folder / f"group{number}.cpp"
    source.write_text(changes.rewrite((ROOT / SAMPLE).read_text("utf-8"), list(enumerate(group, 1)))[0])
    mutate.write_switch(folder, len(group))
    program = folder / f"group{number}.exe"
    subprocess.run([changes.COMPILER, *OPTIONS, "-w", "-static", f"-I{folder}", str(source), "-o", str(program)], check=True)
    return program


def check_group(folder, number, group):
    """What is wrong with the changes of a group."""
    program = compile_group(folder, number, group)
    untouched = run(program)
    wrong = [] if untouched[0] == 0 and "sum 13" in untouched[1] else [f"without a change: {untouched}"]
    note = folder / f"reached{number}"
    if run(program, ORV_CHANGES_REACHED=mutate.windows_path(note)) != untouched:
        wrong.append("noting what is reached changes the program")
    if {int(line) for line in note.read_text().split()} != set(range(1, len(group) + 1)):
        wrong.append(f"noted as reached: {note.read_text().split()} of {len(group)}")
    for chosen, change in enumerate(group, 1):
        if run(program, ORV_CHANGE=str(chosen)) == untouched:
            wrong.append("changes nothing: " + mutate.described(chosen, change))
    return wrong


def main():
    arguments = [*OPTIONS, "--target=x86_64-w64-mingw32", changes.CLANGS_OWN,
                 *(f"-isystem{folder}" for folder in changes.system_includes())]
    found = changes.changes_of(SAMPLE, arguments)
    wrong = []
    missing = set(changes.KINDS) - {change.kind for change in found}
    if missing:
        wrong.append(f"no change of the kind {', '.join(sorted(missing))}")
    with tempfile.TemporaryDirectory() as name:
        for number, group in enumerate(disjoint(found), 1):
            wrong += check_group(Path(name), number, group)
    print("\n".join(wrong) or f"{len(found)} changes, each of them shows")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
