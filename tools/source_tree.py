"""What the checks know of the source tree: its folders and files, and which of our own files each one includes.

source_tree.py files prints all files, source_tree.py product the product's folders, source_tree.py definitions what
its sources are compiled with."""

import os
import re
import sys
from fnmatch import fnmatchcase
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^">]+)[">]', re.MULTILINE)


# The product's folders, from the upper to the lower. A folder may use those behind it, never those before it.
ORDER = ("plugin", "ui", "submit", "analysis", "client", "config", "windows", "log", "analysis/text", "base")
# These stand beside: whoever needs a text or the host may use them, and they use `base` alone.
BESIDE = ("resources", "host")
PRODUCT = (*ORDER, *BESIDE)


def folders(names):
    """The folders as prefixes of file names. A folder that is not there is an error: what was to be checked
    in it would pass unseen."""
    missing = [name for name in names if not (ROOT / name).is_dir()]
    if missing:
        raise SystemExit(f"there is no folder {', '.join(missing)}: it was moved, or the list of folders is wrong")
    return tuple(name + "/" for name in names)


def windows_definitions():
    """The definitions that every source is compiled with, as options of a compiler."""
    return ["-D" + line for line in (ROOT / "cmake/windows-definitions.txt").read_text().split()]


def project_files():
    """The names of all files of the project. They are those in its folder, so that the checks work in a copy without
    a repository, too; what .gitignore names is left out."""
    ignored = [".git", *(ROOT / ".gitignore").read_text().split()]

    def is_ours(folder, name):
        path = os.path.relpath(os.path.join(folder, name), ROOT)
        return not any(fnmatchcase(path if pattern.startswith("/") else name, pattern.strip("/"))
                       for pattern in ignored)

    names = []
    for folder, subfolders, files in os.walk(ROOT):
        subfolders[:] = [name for name in subfolders if is_ours(folder, name)]
        names += [os.path.relpath(os.path.join(folder, name), ROOT) for name in files if is_ours(folder, name)]
    return sorted(names)


def text_of(name):
    """The text of a file, or None for a file that is not text."""
    data = (ROOT / name).read_bytes()
    if b"\0" in data:
        return None
    return data.decode("utf-8", errors="replace")


class Includes:
    """The include lines of all sources, resolved to files of ours where they name one."""

    def __init__(self, names):
        self.sources = [n for n in names if n.endswith((".cpp", ".h", ".rc"))]
        self.lines = {n: INCLUDE.findall(text_of(n) or "") for n in self.sources}
        sdk = "standin/sdk/include/"
        self.sdk_headers = {n[len(sdk):].lower() for n in names if n.startswith(sdk)}
        known = set(names)
        self.own = {}
        for name, lines in self.lines.items():
            found = set()
            for mark, path in lines:
                beside = str(Path(name).parent / path) if mark == '"' else path
                for candidate in (beside, path):
                    if candidate in known:
                        found.add(candidate)
                        break
            self.own[name] = found

    def all_below(self, name):
        """Every file of ours that `name` includes, directly or not."""
        seen, waiting = set(), [name]
        while waiting:
            for other in self.own.get(waiting.pop(), ()):
                if other not in seen:
                    seen.add(other)
                    waiting.append(other)
        return seen


if __name__ == "__main__":
    answers = {"files": project_files, "product": lambda: folders(PRODUCT), "definitions": windows_definitions}
    print("\n".join(answers[sys.argv[1]]()))
