"""Eyes and hands on the desktop of the demo: what windows there are, mouse, keyboard and pictures."""

import json
import subprocess
import time
from pathlib import Path

from stage import StageFailed, wine


class Desktop:
    """A Wine desktop that fills the X display. Coordinates are the screen's on both sides."""

    def __init__(self, name, size, bin_folder, picture_folder):
        self.name = name
        self.size = size
        self.bin = bin_folder
        self.pictures = picture_folder
        self.picture_count = 0
        self.probe = None

    def open(self):
        """Starts the desktop; returns its process."""
        return subprocess.Popen(["wine", "explorer", f"/desktop={self.name},{self.size}"],
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)

    def command(self, program, *arguments):
        """The command line that runs a program of the build tree on this desktop."""
        return wine(self.bin / "on_desktop.exe", self.name, program, *arguments)

    def windows(self):
        """The visible top-level windows, as window_probe reports them."""
        # A busy Wine now and then refuses to start a program: another try costs nothing.
        for _ in range(3):
            if self.probe is None:
                self.probe = subprocess.Popen(self.command("window_probe.exe"), cwd=self.bin,
                                              stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                              stderr=subprocess.DEVNULL)
            try:
                self.probe.stdin.write(b"\n")
                self.probe.stdin.flush()
            except BrokenPipeError:
                pass
            line = self.probe.stdout.readline()
            if line.endswith(b"\n"):
                return json.loads(line.decode("utf-8"))
            code = self.close()
        raise StageFailed(f"window_probe ended with {code}")

    def close(self):
        """Ends the probe; returns its exit code."""
        if self.probe is None:
            return None
        probe, self.probe = self.probe, None
        try:
            probe.stdin.close()
        except BrokenPipeError:
            pass
        try:
            return probe.wait(20)
        except subprocess.TimeoutExpired:
            probe.kill()
            return probe.wait()

    def wait_for(self, what, find, seconds):
        """Looks at the desktop until `find(windows)` gives something, and returns that."""
        deadline = time.monotonic() + seconds
        while True:
            windows = self.windows()
            found = find(windows)
            if found:
                return found
            if time.monotonic() > deadline:
                captions = ", ".join(f"{w['class']} '{w['caption']}'" for w in windows) or "none"
                raise StageFailed(f"no {what} within {seconds} s; windows: {captions}")
            time.sleep(0.1)  # looking costs the windows time

    def click(self, x, y):
        """A real click of the left mouse button."""
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "1"], check=True, timeout=10)

    def click_middle(self, rect):
        left, top, right, bottom = rect
        self.click((left + right) // 2, (top + bottom) // 2)

    def press(self, key):
        """A real key."""
        subprocess.run(["xdotool", "key", key], check=True, timeout=10)

    def picture(self, name):
        """Saves a picture of the screen; its number tells the order."""
        self.picture_count += 1
        file = Path(self.pictures) / f"{self.picture_count}-{name}.png"
        subprocess.run(["import", "-window", "root", str(file)], check=True, timeout=20)
        return file


def control(window, control_id):
    """The control of that number in a window, or None."""
    return next((c for c in window["controls"] if c["id"] == control_id), None)


def window_with(windows, control_id):
    """The window that has a control of that number, or None."""
    return next((w for w in windows if control(w, control_id)), None)
