"""The demo's stages, and the programs that it starts and listens to."""

import collections
import json
import subprocess
import threading
import time
from contextlib import contextmanager


class StageFailed(Exception):
    """Why a stage failed, in one line."""


class Progress:
    """Announces each stage; remembers the one under way."""

    def __init__(self):
        self.current = "start"
        self.started = time.monotonic()

    @contextmanager
    def stage(self, name):
        self.current = name
        print(f"-- {name} ... ", end="", flush=True)
        began = time.monotonic()
        yield
        print(f"done in {time.monotonic() - began:.1f} s", flush=True)


def wine(program, *arguments):
    return ["wine", str(program), *map(str, arguments)]


def windows_path(path):
    """The Windows path of a file of this machine."""
    return "Z:" + str(path).replace("/", "\\")


class Talker:
    """A program that tells what it does by one JSON object a line."""

    def __init__(self, name, command, cwd, log):
        self.name = name
        self.events = []
        self.changed = threading.Condition()
        self.ended = False
        self.errors = collections.deque(maxlen=20)
        self.log = open(log, "w", encoding="utf-8")
        self.process = subprocess.Popen(command, cwd=cwd, stdin=subprocess.DEVNULL,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.threads = [threading.Thread(target=self._listen, daemon=True),
                        threading.Thread(target=self._listen_errors, daemon=True)]
        for thread in self.threads:
            thread.start()

    def _listen(self):
        for line in self.process.stdout:
            text = line.decode("utf-8", errors="replace")
            self.log.write(text)
            try:
                event = json.loads(text)
            except ValueError:
                continue
            with self.changed:
                self.events.append(event)
                self.changed.notify_all()
        with self.changed:
            self.ended = True
            self.changed.notify_all()

    def _listen_errors(self):
        for line in self.process.stderr:
            text = line.decode("utf-8", errors="replace")
            self.log.write(text)
            self.errors.append(text.strip())

    def wait_for(self, key, seconds, value=None):
        """The first line that has this member, with this value if one is given, once it has come."""
        def come():
            return next((e for e in self.events if key in e and value in (None, e[key])), None)

        with self.changed:
            self.changed.wait_for(lambda: come() or self.ended, seconds)
            event = come()
        if event:
            return event
        why = "it ended" if self.ended else f"none within {seconds} s"
        told = "; ".join(line for line in self.errors if line)
        raise StageFailed(f"no '{value or key}' from the {self.name}: {why}" + (f" ({told})" if told else ""))

    def latest(self, key, value):
        """The last line until now that has this member with this value, or None."""
        with self.changed:
            return next((e for e in reversed(self.events) if e.get(key) == value), None)

    def wait_for_end(self, seconds):
        """The exit code, once the program has ended."""
        try:
            return self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise StageFailed(f"the {self.name} did not end within {seconds} s") from None

    def close(self):
        """Ends the program if it still runs."""
        if self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(5)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
        for thread in self.threads:
            thread.join(5)
        self.log.close()
