#!/usr/bin/env python3
"""tidy.py BUILD_TREE STAMP_FOLDER [FOLDER...]: runs clang-tidy over the product's sources that GCC compiles,
and over those of the further folders.

A source that passed is looked at again only when it, a header of ours that it includes, or the
configuration has changed since."""

import json
import os
import subprocess
import sys
from pathlib import Path

from checked import check_sources
from source_tree import PRODUCT, ROOT, folders

COMPILER = "x86_64-w64-mingw32-g++-posix"
CHECKED = folders(PRODUCT)


def system_includes():
    """The folders of system headers as GCC itself names them: clang does not find them all alone."""
    output = subprocess.run([COMPILER, "-E", "-x", "c++", "-v", os.devnull], check=True,
                            capture_output=True, text=True).stderr
    listed = output.split("search starts here:")[-1].split("End of search list")[0]
    folders = [line.strip() for line in listed.splitlines() if line.strip()]
    # GCC's own intrinsics are of no use to clang, which has its own.
    return [folder for folder in folders if "/lib/gcc/" not in folder or "/c++" in folder]


def sources_of(build_tree, checked):
    entries = json.loads((build_tree / "compile_commands.json").read_text())
    for entry in entries:
        name = os.path.relpath(os.path.join(entry["directory"], entry["file"]), ROOT)
        command = entry.get("command") or " ".join(entry["arguments"])
        if COMPILER in command.split()[0] and name.startswith(checked) and name.endswith(".cpp"):
            yield name


# GCC's own options, which clang refuses.
NOT_CLANGS = ("-fno-ipa-ra",)


def commands_for_clang(build_tree, folder):
    """A copy of the build tree's compile commands that clang understands; returns its folder."""
    entries = json.loads((build_tree / "compile_commands.json").read_text())
    for entry in entries:
        if "command" in entry:
            entry["command"] = " ".join(word for word in entry["command"].split(" ") if word not in NOT_CLANGS)
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "compile_commands.json").write_text(json.dumps(entries))
    return folder


def main():
    build_tree, stamps = Path(sys.argv[1]), Path(sys.argv[2])
    commands = commands_for_clang(build_tree, stamps / "commands")
    checked = CHECKED + folders(name.rstrip("/") for name in sys.argv[3:])
    arguments = ["--extra-arg-before=--target=x86_64-w64-mingw32", "--extra-arg=-Wno-unknown-warning-option"]
    arguments += [f"--extra-arg=-isystem{folder}" for folder in system_includes()]

    def check(name):
        run = subprocess.run(["clang-tidy", "--quiet", "-p", str(commands), *arguments, name], cwd=ROOT,
                             capture_output=True, text=True, check=False)
        return None if run.returncode == 0 else run.stdout + run.stderr

    configuration = (ROOT / ".clang-tidy").read_bytes() + " ".join(arguments).encode()
    return check_sources(sorted(set(sources_of(build_tree, checked))), configuration, stamps, check)


if __name__ == "__main__":
    sys.exit(main())
