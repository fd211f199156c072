"""What the checks know of the source tree: its folders and files, and which of our own files each one includes.

source_tree.py product prints the product's folders, source_tree.py definitions what its sources are compiled with."""

import re
import subprocess
import sys
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


def tracked_files():
    """All files of the project that exist: the tracked ones and the new ones that are not ignored."""
    names = subprocess.run(
        ["git", "ls-files", "-co", "--exclude-standard", "-z"],
        cwd=ROOT, check=True, capture_output=True).stdout.decode().split("\0")
    return sorted(name for name in set(names) if name and (ROOT / name).is_file())


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
    answers = {"product": lambda: folders(PRODUCT), "definitions": windows_definitions}
    print("\n".join(answers[sys.argv[1]]()))
