#!/usr/bin/env python3
"""check_host_layout.py BUILD_TREE: refuses thread-local variables in the code of the host's object layout, in
the sources by their words and in the objects by their relocations (docs/host-layout.md).

Prints one line for each fault and ends with 1 when there was any."""

import re
import subprocess
import sys
from pathlib import Path

from source_tree import folders, project_files, text_of

OBJDUMP = "x86_64-w64-mingw32-objdump"
FOLDERS = folders(("plugin", "host"))
GNU_SIDE = ("plugin/gnu_runtime.cpp", "host/host.cpp")  # compiled by GCC, whose thread-locals are calls
WORDS = re.compile(r"\bthread_local\b|\b__thread\b|__declspec\s*\(\s*thread\s*\)|\b_Thread_local\b")
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
# A local static with a guard refers to these.
GUARDS = re.compile(r"_Init_thread_\w+|_tls_index")


def in_sources():
    for name in project_files():
        if not name.startswith(FOLDERS) or not name.endswith((".cpp", ".h")) or name in GNU_SIDE:
            continue
        code = COMMENT.sub(lambda comment: "\n" * comment[0].count("\n"), text_of(name))
        for number, line in enumerate(code.splitlines(), 1):
            if WORDS.search(line):
                yield f"{name}:{number}: a thread-local variable in code of the host's layout"


def in_objects(objects):
    for path in objects:
        records = subprocess.run([OBJDUMP, "-r", str(path)], check=True, capture_output=True, text=True).stdout
        section = ""
        for line in records.splitlines():
            if line.startswith("RELOCATION RECORDS FOR"):
                section = line.split("[")[1].split("]")[0]
            elif not section.startswith(".debug") and ("_SECREL" in line or GUARDS.search(line)):
                yield f"{path.name}: {section} refers to {line.split()[-1]}, which is thread-local"


def main():
    objects = [path for folder in FOLDERS for path in (Path(sys.argv[1]) / folder).rglob("*.host-layout/*.obj")]
    faults = [*in_sources(), *in_objects(objects)]
    if not objects:
        faults.append("there are no objects of the host's layout to look at")
    print("\n".join(faults) or f"{len(objects)} objects, no thread-local variable")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
