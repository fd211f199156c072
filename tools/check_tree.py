#!/usr/bin/env python3
"""Own checks of the tree: words of unfinished work, the order of the folders, cycles, links and lines of the pages.

Prints one line for each fault and ends with 1 when there was any."""

import re
import sys

from source_tree import BESIDE, ORDER, PRODUCT, ROOT, Includes, folders, project_files, text_of

# Only these may include the headers of the host's SDK.
SDK_USERS = folders(("plugin", "host", "standin", "tests"))

# One regular expression a line; what it stands for is in the file itself.
FORBIDDEN = "tools/forbidden-words.txt"


def folder_of(name):
    """The product folder that a file belongs to, or its first folder."""
    if name.startswith("analysis/text/"):
        return "analysis/text"
    return name.split("/", 1)[0]


def may_use(user, used):
    if user == used or used == "base":
        return True
    if user in BESIDE:
        return False
    if used in BESIDE:
        return user != "base"
    return ORDER.index(user) < ORDER.index(used)


def forbidden_words(names):
    patterns = [line for line in text_of(FORBIDDEN).splitlines() if line and not line.startswith("#")]
    expression = re.compile("|".join(f"(?:{p})" for p in patterns))
    for name in names:
        if name == FORBIDDEN:
            continue
        for number, line in enumerate((text_of(name) or "").splitlines(), 1):
            found = expression.search(line)
            if found:
                yield f"{name}:{number}: '{found.group(0)}' is a word of unfinished work"


def folder_order(includes):
    for name, others in includes.own.items():
        user = folder_of(name)
        for other in sorted(others):
            used = folder_of(other)
            if user in PRODUCT and used not in PRODUCT:
                if not (used == "standin" and name.startswith(SDK_USERS)):
                    yield f"{name}: includes {other}, which is no part of the product"
            elif user in PRODUCT and not may_use(user, used):
                yield f"{name}: includes {other}, but {user}/ may not use {used}/"


def sdk_fence(includes):
    for name, lines in includes.lines.items():
        if name.startswith(SDK_USERS):
            continue
        for _, path in lines:
            if path.lower() in includes.sdk_headers:
                yield f"{name}: includes the SDK header {path}; only plugin/ and host/ may"


def cycles(includes):
    """Each include cycle once, as the path that closes it."""
    finished = set()

    def walk(name, path):
        if name in path:
            yield " -> ".join(path[path.index(name):] + [name])
            return
        if name in finished:
            return
        for other in sorted(includes.own.get(name, ())):
            yield from walk(other, path + [name])
        finished.add(name)

    for name in includes.sources:
        for cycle in walk(name, []):
            yield f"include cycle: {cycle}"


# What a program leaves behind when it is run in the tree.
LEFT_BEHIND = re.compile(r"(^|/)golden-actual/|\.(obj|o|exe|dll|gup|jsonl)$")


def left_behind(names):
    for name in names:
        if LEFT_BEHIND.search(name):
            yield f"{name}: is made by a program and does not belong into the tree"


# One spelling where the language has several and clang-format keeps them all. Code of the host's object layout
# has no C++ standard library, so there size_t is C's.
DIALECTS = (
    (re.compile(r"(?<![:\w.>])size_t\b"), "std::size_t", ("standin/sdk/", "plugin/", "host/", "tests/system/abi/")),
    (re.compile(r"\bsizeof [A-Za-z_]"), "sizeof(...) with brackets", ()),
    (re.compile(r"^\s+(?:::)?(?:[A-Z][A-Z0-9_]+|sockaddr(?:_in)?) \w+\{\};"), "= {} for a structure of Windows", ()),
)


def dialects(names):
    for name in names:
        if not name.endswith((".cpp", ".h")):
            continue
        for number, line in enumerate(text_of(name).splitlines(), 1):
            code = line.partition("//")[0]
            for pattern, spelling, elsewhere in DIALECTS:
                if pattern.search(code) and not name.startswith(elsewhere):
                    yield f"{name}:{number}: we write {spelling}"


def dead_links(names):
    """Links of our pages that lead to no file of ours."""
    for name in names:
        if not name.endswith(".md"):
            continue
        for target in re.findall(r"\]\(([^)#\s]+)[^)]*\)", text_of(name)):
            if "://" not in target and not (ROOT / name).parent.joinpath(target).exists():
                yield f"{name}: links to {target}, which is not there"


LONGEST_LINE = 120


def long_lines(names):
    """Prose lines of our pages that are too long. Tables, code and the targets of links cannot be broken."""
    for name in names:
        if not name.endswith(".md"):
            continue
        is_code = False
        for number, line in enumerate(text_of(name).splitlines(), 1):
            if line.startswith("```"):
                is_code = not is_code
            elif not is_code and not line.startswith(("|", "    ")):
                if len(re.sub(r"\]\([^)]*\)", "]", line)) > LONGEST_LINE:
                    yield f"{name}:{number}: is longer than {LONGEST_LINE} characters"


def main():
    names = project_files()
    includes = Includes(names)
    faults = [*forbidden_words(names), *folder_order(includes), *sdk_fence(includes), *cycles(includes),
              *dead_links(names), *long_lines(names), *left_behind(names), *dialects(names)]
    for fault in faults:
        print(fault)
    print(f"{len(names)} files, {len(includes.sources)} sources, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
