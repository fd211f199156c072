"""What the checks know of the source tree: its files, and which of our own files each one includes."""

import re
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^">]+)[">]', re.MULTILINE)


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
