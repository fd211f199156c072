#!/usr/bin/env python3
"""mutate.py COUNT SEED: makes COUNT single changes to the product's sources and tells which of them no test notices.

The changes are drawn by SEED, spread over the product's folders by their lines. One build has all of them, each behind a
switch (changes.py); each is then run with the tests that reach it, the quick ones first, until one fails. Needs
the slots of ./dev (ORV_WINE_SLOTS)."""

import collections
import contextlib
import json
import os
import queue
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import changes
from source_tree import PRODUCT, ROOT, folders, project_files

WORK = ROOT / "build/mutate"
COPY = WORK / "source"
TREE = COPY / "build/mingw"
EQUIVALENT = ROOT / "tools/equivalent-changes.txt"
# Stands in a folder of the product for the sake of its headers, and is no part of the plug-in: only a test asks it.
NOT_SHIPPED = ("host/abi_slots.cpp",)
# What runs the same once more.
LEFT_OUT = ("fuzz_share_test", "dialogs_144_test")
SLOW = 4.0       # seconds of a program whose tests are run one by one to see what each of them reaches
PATIENCE = 20.0  # seconds that a program may take at least, and PATIENCE_FACTOR times what it takes
PATIENCE_FACTOR = 6


def folder_of(name):
    """The product's folder that a source counts for."""
    return next(prefix for prefix in sorted(folders(PRODUCT), key=len, reverse=True) if name.startswith(prefix))[:-1]


def known_equivalents():
    """Changes that no test can notice, as (file, original, changed), each with its reason."""
    known = {}
    for line in EQUIVALENT.read_text("utf-8").splitlines():
        if line and not line.startswith("#"):
            file, original, changed, reason = line.split(" | ")
            known[(file, original, changed)] = reason
    return known


def one_line(text):
    return re.sub(r"\s+", " ", text).strip()


def identity(change):
    return change.file, one_line(change.original), one_line(change.changed) or "(left out)"


def overlaps(change, others):
    return any(change.start < other.end and other.start < change.end for other in others)


def quotas(lines, count):
    """How many changes each folder gets: by its lines, at least two."""
    total = sum(lines.values())
    wanted = {name: max(2, round(count * number / total)) for name, number in lines.items()}
    while sum(wanted.values()) > count:
        wanted[max(wanted, key=wanted.get)] -= 1
    while sum(wanted.values()) < count:
        wanted[max(lines, key=lines.get)] += 1
    return wanted


def draw(possible, folder_files, wanted, rng, taken, refused):
    """Draws `wanted` more changes of a folder: a file by its lines, a kind, then one of that kind."""
    drawn = []
    files = sorted(f for f in folder_files if possible.get(f))
    weights = [folder_files[f] for f in files]
    for _ in range(200 * wanted):
        if len(drawn) == wanted or not files:
            break
        file = rng.choices(files, weights)[0]
        kinds = sorted({c.kind for c in possible[file]})
        kind = rng.choice(kinds)
        change = rng.choice([c for c in possible[file] if c.kind == kind])
        if change in refused or overlaps(change, taken[file]):
            continue
        taken[file].append(change)
        drawn.append(change)
    return drawn


def refused_by_clang(name, arguments, chosen):
    """Those of the changes that do not compile."""
    refused = []
    while chosen:
        numbered = list(enumerate(chosen, 1))
        text, places = changes.rewrite((ROOT / name).read_text("utf-8"), numbered)
        unit = changes.parse(name, [*arguments, f"-I{WORK}"], text)
        bad = set()
        errors = [d for d in unit.diagnostics if d.severity >= changes.cindex.Diagnostic.Error]
        for error in errors:
            spot = error.location
            if spot.file and spot.file.name == str(ROOT / name):
                bad |= {number for start, end, number in places if start <= spot.offset <= end}
        if not errors:
            break
        if not bad:  # an error elsewhere, such as at a use of a table: all that may have caused it
            bad = {number for number, change in numbered if change.how == "table"} or {n for n, _ in numbered}
        refused += [change for number, change in numbered if number in bad]
        chosen = [change for number, change in numbered if number not in bad]
    return refused


def write_switch(folder, count):
    folder.mkdir(parents=True, exist_ok=True)
    (folder / changes.SWITCH_HEADER).write_text(changes.SWITCH.replace("COUNT", str(count + 1)))


def lines_of(name):
    return (ROOT / name).read_text("utf-8").count("\n")


def choose(count, seed, pool):
    """The changes of this run, in the order of their numbers."""
    rng = random.Random(seed)
    commands = changes.commands(ROOT / "build/mingw", folders(PRODUCT))
    names = sorted(name for name in project_files()
                   if name.startswith(folders(PRODUCT)) and name.endswith(".cpp") and name not in NOT_SHIPPED)
    unknown = [name for name in names if name not in commands]
    if unknown:
        raise SystemExit(f"mutate: nothing says how {', '.join(unknown)} is compiled")
    possible = dict(zip(names, pool.map(lambda n: changes.changes_of(n, commands[n]), names)))
    by_folder = collections.defaultdict(dict)
    for name in names:
        by_folder[folder_of(name)][name] = lines_of(name)
    wanted = quotas({folder: sum(files.values()) for folder, files in by_folder.items()}, count)
    equivalent = known_equivalents()
    taken = collections.defaultdict(list)
    refused = {change for name in names for change in possible[name] if identity(change) in equivalent}
    known = len(refused)
    write_switch(WORK, count)
    for _ in range(6):
        drawn = []
        for folder in sorted(wanted):
            have = sum(len(taken[file]) for file in by_folder[folder])
            drawn += draw(possible, by_folder[folder], wanted[folder] - have, rng, taken, refused)
        if not drawn:
            break
        files = sorted({change.file for change in drawn})
        for file, bad in zip(files, pool.map(lambda f: refused_by_clang(f, commands[f], sorted(taken[f])), files)):
            refused |= set(bad)
            taken[file] = [change for change in taken[file] if change not in refused]
    chosen = sorted(change for of_file in taken.values() for change in of_file)
    sites = sum(len(found) for found in possible.values())
    print(f"-- {sites} changes are possible, {len(chosen)} are made; {known} possible ones are known to change nothing",
          flush=True)
    return chosen


def copy_sources(chosen):
    """A copy of the project with the changes in it. Files that stay as they are keep their times."""
    numbered = collections.defaultdict(list)
    for number, change in enumerate(chosen, 1):
        numbered[change.file].append((number, change))
    for name in project_files():
        target = COPY / name
        target.parent.mkdir(parents=True, exist_ok=True)
        if name in numbered:
            new = changes.rewrite((ROOT / name).read_text("utf-8"), numbered[name])[0].encode()
        else:
            new = (ROOT / name).read_bytes()
        if name.startswith("cmake/"):
            new = new.replace(b"-Werror", b"-w")  # a switch makes code that nobody would write
        if not target.exists() or target.read_bytes() != new:
            target.write_bytes(new)
            shutil.copymode(ROOT / name, target)
    write_switch(COPY, len(chosen))
    (COPY / "build").mkdir(exist_ok=True)
    for shared in ("deps", "wine-new", "wine-new.recipe"):
        link = COPY / "build" / shared
        if not link.is_symlink():
            link.symlink_to(ROOT / "build" / shared)


def configure():
    if not (TREE / "build.ninja").exists():
        subprocess.run(["cmake", "--preset", "mingw"], cwd=COPY, check=True, stdout=subprocess.DEVNULL)


def build(found):
    """Builds the programs. The numbers of changes that GCC refuses, though clang took them."""
    targets = [program.path.stem for program in found]
    run = subprocess.run(["cmake", "--build", "--preset", "mingw", "--target", *targets, "--", "-k", "0"], cwd=COPY,
                         capture_output=True, text=True, check=False)
    if run.returncode == 0:
        return set()
    (WORK / "build.log").write_text(run.stdout + run.stderr)
    bad = set()
    for file, line in re.findall(rf"^(?:{re.escape(str(COPY))}/)?([\w/]+\.cpp):(\d+):\d+: error", run.stdout, re.MULTILINE):
        if (COPY / file).is_file():
            text = (COPY / file).read_text("utf-8").splitlines()[int(line) - 1]
            bad |= {int(number) for number in re.findall(r"ORV_CHANGED\((\d+)\)", text)}
    if not bad:
        raise SystemExit(f"mutate: the copy does not build; see {WORK / 'build.log'}")
    return bad


class Program:
    """A test program of the copy."""

    def __init__(self, test):
        properties = {p["name"]: p["value"] for p in test.get("properties", [])}
        self.name = test["name"]
        self.path = Path(next(word for word in test["command"] if word.endswith(".exe")))
        self.arguments = test["command"][test["command"].index(str(self.path)) + 1:]
        self.environment = dict(entry.split("=", 1) for entry in properties.get("ENVIRONMENT", []))
        self.folder = properties.get("WORKING_DIRECTORY", str(self.path.parent))
        self.seconds = 0.0
        self.tests = None  # (name, what it reaches, seconds) of each test, for a slow program
        # What needs something of the machine, such as a full disk, has it for itself.
        self.alone = threading.Lock() if properties.get("FIXTURES_REQUIRED") else contextlib.nullcontext()


def programs():
    listed = json.loads(subprocess.run(["ctest", "--show-only=json-v1"], cwd=TREE, capture_output=True, text=True,
                                       check=True).stdout)["tests"]
    return [Program(test) for test in listed
             if any(word.endswith("under-wine") for word in test["command"])
             and any(word.endswith(".exe") for word in test["command"]) and test["name"] not in LEFT_OUT]


class Slots:
    """The Wine prefixes and displays that programs run in, one at a time in each."""

    def __init__(self):
        self.free = queue.Queue()
        for file in sorted(Path(os.environ["ORV_WINE_SLOTS"]).glob("*.display")):
            self.free.put((file.stem, file.read_text().strip()))
        self.count = self.free.qsize()

    def run(self, program, arguments, environment, patience):
        """(exit code, None when its time was over; output; seconds). A slot in which something failed is renewed."""
        with program.alone:
            return self.run_in_slot(program, arguments, environment, patience)

    def run_in_slot(self, program, arguments, environment, patience):
        slot, display = self.free.get()
        prefix = Path(os.environ["ORV_WINE_SLOTS"]) / slot
        settings = {**os.environ, **program.environment, **environment, "WINEPREFIX": str(prefix), "DISPLAY": display}
        settings["WINEDLLOVERRIDES"] += ";winedbg.exe="  # nobody asks a crash for its reasons
        begun = time.monotonic()
        code = None
        try:
            with tempfile.TemporaryFile() as output:
                process = subprocess.Popen(["wine", str(program.path), *program.arguments, *arguments],
                                           cwd=program.folder, env=settings, stdin=subprocess.DEVNULL,
                                           stdout=output, stderr=subprocess.STDOUT, start_new_session=True)
                try:
                    code = process.wait(patience)
                except subprocess.TimeoutExpired:
                    os.killpg(process.pid, signal.SIGKILL)
                    process.wait()
                seconds = time.monotonic() - begun
                output.seek(0)
                text = output.read().decode("utf-8", "replace")
        finally:
            if code != 0:
                subprocess.run([str(ROOT / "tools/renew-slot"), slot], env=settings, check=False,
                               stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            self.free.put((slot, display))
        return code, text, seconds


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def reached_by(slots, program, arguments=()):
    """The changes that an unchanged run comes to, and its seconds. None where it fails."""
    with tempfile.TemporaryDirectory() as folder:
        note = Path(folder) / "reached"
        for _ in range(3):
            note.unlink(missing_ok=True)
            code, text, seconds = slots.run(program, arguments, {"ORV_CHANGES_REACHED": windows_path(note)}, 900)
            if code == 0:
                numbers = note.read_text().split() if note.exists() else []
                return {int(number) for number in numbers}, seconds
        print(f"-- {program.name} {' '.join(arguments)} fails without any change:\n{text[-2000:]}", flush=True)
        return None


def tests_of(slots, program):
    _, text, _ = slots.run(program, ["--gtest_list_tests"], {}, 120)
    names, suite = [], ""
    for line in text.splitlines():
        word = line.split("#")[0].rstrip()
        if re.fullmatch(r"[\w/]+\.", word):
            suite = word
        elif re.fullmatch(r"  [\w/]+", word) and suite:
            names.append(suite + word.strip())
    return names


def measure(slots, found, pool):
    """Fills in what each program, or each test of a slow one, reaches."""
    def whole(program):
        program.reached, program.seconds = reached_by(slots, program) or (set(), 0.0)

    list(pool.map(whole, found))
    slow = [program for program in found if program.seconds > SLOW and program.reached]
    single = [(program, name) for program in slow for name in tests_of(slots, program)]
    results = pool.map(lambda one: reached_by(slots, one[0], [f"--gtest_filter={one[1]}"]), single)
    for program in slow:
        program.tests = []
    for (program, name), result in zip(single, results):
        if result is not None:
            program.tests.append((name, *result))


def runs_for(wanted, found):
    """What reaches one of the changes `wanted`: (program, names of tests or None for all, seconds), the quick ones
    first."""
    for_it = []
    for program in found:
        if program.tests is None:
            if program.reached & wanted:
                for_it.append((program, None, program.seconds))
        else:
            hits = [(name, seconds) for name, reached, seconds in program.tests if reached & wanted]
            if hits:
                for_it.append((program, [name for name, _ in hits], sum(seconds for _, seconds in hits)))
    return sorted(for_it, key=lambda run: run[2])


def first_failed(text):
    failed = re.findall(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)", text, re.MULTILINE)
    return failed[0] if failed else "the program's end"


def try_change(slots, number, runs):
    """Who noticed the change, or None."""
    for program, names, seconds in runs:
        arguments = ["--gtest_fail_fast", "--gtest_brief=1"]
        if names is not None:
            arguments.append("--gtest_filter=" + ":".join(names))
        patience = PATIENCE + PATIENCE_FACTOR * seconds
        code, text, _ = slots.run(program, arguments, {"ORV_CHANGE": str(number)}, patience)
        if code is None:
            return f"{program.name}: hangs"
        if code != 0:
            return f"{program.name}: {first_failed(text)}"
    return None


def line_of(change):
    return (ROOT / change.file).read_bytes()[:change.start].count(b"\n") + 1


def described(number, change):
    original, changed = identity(change)[1:]
    return f"{number:4} {change.file}:{line_of(change)}: {change.kind}: {original} -> {changed}"


def report(chosen, noticed, unreached):
    rows = collections.OrderedDict()
    for number, change in enumerate(chosen, 1):
        row = rows.setdefault(folder_of(change.file), [0, 0])
        row[0] += 1
        row[1] += noticed[number] is not None
    print("Nobody noticed:")
    for number, change in enumerate(chosen, 1):
        if noticed[number] is None:
            print(described(number, change) + (" (no test reaches it)" if number in unreached else ""))
    print(f"{'folder':<16}{'changes':>8}{'noticed':>8}")
    for folder, (made, seen) in sorted(rows.items()):
        print(f"{folder:<16}{made:>8}{seen:>8}{100.0 * seen / made:>7.0f} %")
    seen = sum(who is not None for who in noticed.values())
    print(f"mutate: {len(chosen)} changes, {seen} noticed ({100.0 * seen / len(chosen):.1f} %)")


def build_copy(chosen):
    """Builds a copy with the changes; returns those that compile, and the test programs."""
    while True:
        copy_sources(chosen)
        configure()
        found = programs()
        bad = build(found)
        if not bad:
            return chosen, found
        print(f"-- {len(bad)} changes do not compile and are left out", flush=True)
        chosen = [change for number, change in enumerate(chosen, 1) if number not in bad]


def try_all(slots, pool, chosen, found):
    """Who noticed each change, by its number."""
    of_file = collections.defaultdict(set)
    for number, change in enumerate(chosen, 1):
        if change.how != "table":
            of_file[change.file].add(number)
    noticed = {}

    def one(item):
        number, change = item
        # Every program that has a table reads it while it is loaded: those count that run its file's functions.
        reaching = of_file[change.file] if change.how == "table" else set()
        noticed[number] = try_change(slots, number, runs_for(reaching or {number}, found))
        print(f"   {described(number, change)}: {noticed[number] or 'NOBODY'}", flush=True)

    list(pool.map(one, enumerate(chosen, 1)))
    return noticed


def main():
    count, seed = int(sys.argv[1]), int(sys.argv[2])
    print(f"-- seed {seed}: ./dev mutate {count} {seed} makes the same changes again", flush=True)
    WORK.mkdir(parents=True, exist_ok=True)
    slots = Slots()
    pool = ThreadPoolExecutor(slots.count)
    chosen, found = build_copy(choose(count, seed, pool))
    (WORK / "changes.txt").write_text("".join(described(n, c) + "\n" for n, c in enumerate(chosen, 1)))
    print("-- built; which tests reach which change?", flush=True)
    measure(slots, found, pool)
    noticed = try_all(slots, pool, chosen, found)
    report(chosen, noticed, {number for number in noticed if not runs_for({number}, found)})


if __name__ == "__main__":
    main()
