#!/usr/bin/env python3
"""tidy.py BUILD_TREE STAMP_FOLDER: runs clang-tidy over the product's sources that GCC compiles.

A source that passed is looked at again only when it, a header of ours that it includes, or the
configuration has changed since."""

import hashlib
import json
import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from source_tree import ROOT, Includes, tracked_files

COMPILER = "x86_64-w64-mingw32-g++-posix"
CHECKED = ("base/", "resources/", "host/", "analysis/", "log/", "config/", "client/", "submit/", "ui/",
           "plugin/", "standin/", "tests/tools/")


def system_includes():
    """The folders of system headers as GCC itself names them: clang does not find them all alone."""
    output = subprocess.run([COMPILER, "-E", "-x", "c++", "-v", os.devnull], check=True,
                            capture_output=True, text=True).stderr
    listed = output.split("search starts here:")[-1].split("End of search list")[0]
    folders = [line.strip() for line in listed.splitlines() if line.strip()]
    # GCC's own intrinsics are of no use to clang, which has its own.
    return [folder for folder in folders if "/lib/gcc/" not in folder or "/c++" in folder]


def sources_of(build_tree):
    entries = json.loads((build_tree / "compile_commands.json").read_text())
    for entry in entries:
        name = os.path.relpath(os.path.join(entry["directory"], entry["file"]), ROOT)
        command = entry.get("command") or " ".join(entry["arguments"])
        if COMPILER in command.split()[0] and name.startswith(CHECKED) and name.endswith(".cpp"):
            yield name


def main():
    build_tree, stamps = Path(sys.argv[1]), Path(sys.argv[2])
    stamps.mkdir(parents=True, exist_ok=True)
    includes = Includes(tracked_files())
    arguments = ["--extra-arg-before=--target=x86_64-w64-mingw32", "--extra-arg=-Wno-unknown-warning-option"]
    arguments += [f"--extra-arg=-isystem{folder}" for folder in system_includes()]
    configuration = (ROOT / ".clang-tidy").read_bytes() + " ".join(arguments).encode()

    def key_of(name):
        digest = hashlib.sha256(configuration)
        for file in [name, *sorted(includes.all_below(name))]:
            digest.update((ROOT / file).read_bytes())
        return digest.hexdigest()

    def check(name):
        key, stamp = key_of(name), stamps / name.replace("/", "-")
        if stamp.is_file() and stamp.read_text() == key:
            return name, True, None
        run = subprocess.run(["clang-tidy", "--quiet", "-p", str(build_tree), *arguments, name], cwd=ROOT,
                             capture_output=True, text=True)
        if run.returncode == 0:
            stamp.write_text(key)
            return name, False, None
        return name, False, run.stdout + run.stderr

    sources = sorted(set(sources_of(build_tree)))
    if not sources:
        print("no sources to check: is the build tree configured?")
        return 1
    fresh = failed = 0
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for name, known, report in pool.map(check, sources):
            fresh += not known
            if report is not None:
                failed += 1
                print(f"== {name}\n{report}", flush=True)
    print(f"{len(sources)} sources, {fresh} looked at, {failed} with faults")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
