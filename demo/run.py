#!/usr/bin/env python3
"""The demo: a sample scene goes from the stand-in host's menu to the stand-in client, driven from outside
by mouse and keyboard. `./dev demo` starts it with a display and a Wine prefix."""

import os
import shutil
import signal
import sys
import time
from pathlib import Path

import check_job
import sample_scene
from desktop import Desktop, control, window_with
from stage import Progress, StageFailed, Talker, windows_path, wine

ROOT = Path(__file__).resolve().parent.parent
BIN = ROOT / "build/mingw/bin"
DEPENDENCIES = ROOT / "build/deps"
OUTPUT = ROOT / "build/demo"
REQUEST = OUTPUT / "request.http"
PREFIX = Path(os.environ["WINEPREFIX"])

MENU = "Orv Rendering"
ACCEPTED = 10001
TICKED = ["Cam_Living_01", "餐厅视角"]

# Controls of the dialogs, by number.
CLEAN, SUBMIT, CAMERAS, PROGRESS_BAR = 1000, 1005, 1006, 1202
OK = 1


def install_product(port):
    """The product folder as an installation leaves it, with the client's settings."""
    product = PREFIX / "drive_c/ProgramData/Orv Rendering"
    shutil.rmtree(product, ignore_errors=True)
    for folder in ("script", "json", "compress"):
        (product / folder).mkdir(parents=True)
    shutil.copytree(DEPENDENCIES / "7-Zip", product / "7-Zip")
    (product / "script/rud_plugin.ini").write_text(
        f"[general]\r\nip=127.0.0.1\r\nport={port}\r\nlowerversion=1.3.7\r\n", "ascii", newline="")
    for script in (ROOT / "scripts").glob("*.ms"):
        shutil.copy(script, product / "script")
    # In the stand-in host a plain text does for the encrypted parser.
    shutil.copy(ROOT / "scripts/MaxRenderGlobalsParser.ms", product / "script/MaxRenderGlobalsParser.mse")
    return product


def install_plugin():
    """A plug-in folder with nothing but the plug-in, as the host has one."""
    folder = OUTPUT / "plugins"
    folder.mkdir()
    shutil.copy(BIN / "OrvRendering.gup", folder)
    return folder


def message_box(windows):
    """A message box: a small dialog with a text and an OK button."""
    for window in windows:
        if window["class"] == "#32770" and control(window, OK) and not control(window, CAMERAS):
            return window
    return None


def message_text(window):
    return " ".join(c["text"] for c in window["controls"] if c["class"] == "Static" and c["text"])


class Demo:
    # A test of what the installer leaves has ways of its own for these two.
    install_product = staticmethod(install_product)
    install_plugin = staticmethod(install_plugin)

    def __init__(self):
        self.progress = Progress()
        self.stage = self.progress.stage
        self.desktop = Desktop("orv", "1280x800", BIN, OUTPUT)
        self.programs = []

    def start(self, name, command):
        talker = Talker(name, command, BIN, OUTPUT / f"{name}.log")
        self.programs.append(talker)
        return talker

    def run(self):
        with self.stage("sample scene"):
            scene_folder = PREFIX.joinpath("drive_c", *sample_scene.SCENE_FOLDER)
            windows_folder = "\\".join(("C:", *sample_scene.SCENE_FOLDER))
            shutil.rmtree(scene_folder.parent, ignore_errors=True)
            scene = sample_scene.write_sample(scene_folder, windows_folder)
            scene_path = f"{windows_folder}\\{scene.name}"
            plugins = self.install_plugin()
            self.startup_script = sample_scene.write_startup_script(OUTPUT / "host/scripts/startup")

        with self.stage("client"):
            client = self.start("client", wine(
                BIN / "standin-client.exe", "--requests", 1, "--record", windows_path(REQUEST)))
            port = client.wait_for("listening", 20)["listening"]
            self.install_product(port)

        with self.stage("host"):
            self.desktop.open()
            host = self.start("host", self.desktop.command(
                "standin-host.exe", "--plugin-dir", windows_path(plugins), "--scene", scene_path,
                "--host-dir", windows_path(OUTPUT / "host")))
            started = host.wait_for("event", 30, "started")
            check_job.need(started["plugins"] == 1, "the host did not take the plug-in")
            check_job.need(started["scene"] == scene_path, "the host did not open the scene")

        with self.stage("menu"):
            self.open_menu(host, MENU)
            popup = self.desktop.wait_for("open menu", self.popup, 10)
            self.desktop.picture("menu")
            self.choose(popup, 0, 3)

        with self.stage("dialog"):
            dialog = self.desktop.wait_for("dialog with three cameras", self.filled_dialog, 30)
            self.desktop.picture("dialog")
            names = [row["text"] for row in control(dialog, CAMERAS)["rows"]]
            check_job.need(set(TICKED) <= set(names), f"the cameras are {names}")

        with self.stage("cameras"):
            for name in TICKED:
                self.tick(name)
            self.desktop.picture("ticked")

        with self.stage("cleaning"):
            # The label is wider than the dialog's row for it: the box itself is clicked.
            left, top, _, bottom = control(self.dialog(), CLEAN)["rect"]
            self.desktop.click(left + (bottom - top) // 2, (top + bottom) // 2)
            self.desktop.wait_for("ticked cleaning", lambda w: control(self.dialog(w), CLEAN)["checked"], 10)

        with self.stage("submit"):
            self.desktop.click_middle(control(self.dialog(), SUBMIT)["rect"])
            self.desktop.wait_for("progress window", lambda w: window_with(w, PROGRESS_BAR), 20)
            self.desktop.picture("packing")

        with self.stage("request"):
            request = client.wait_for("request", 90)
            check_job.need(request["ok"], f"the client found: {'; '.join(request['problems'])}")
            check_job.need(request["ret"] == ACCEPTED, f"the client replied {request['ret']}")

        with self.stage("reply"):
            box = self.desktop.wait_for("message box", message_box, 20)
            self.desktop.picture("reply")
            text = message_text(box)
            check_job.need("submitted" in text, f"the message says '{text}'")
            # With the mouse: without a window manager the box need not have the keyboard.
            self.desktop.click_middle(control(box, OK)["rect"])
            self.desktop.wait_for("closed dialog", lambda w: not message_box(w) and not self.dialog(w), 20)
            host.wait_for("event", 20, "action_ended")
            self.desktop.picture("end")

        with self.stage("leaving"):
            self.leave(host)
            host.wait_for("event", 20, "stopped")
            code = host.wait_for_end(20)
            check_job.need(code == 0, f"the host ended with {code}")

        self.progress.current = "checks"
        print("-- checks with other programs than the product's")
        self.check(request, scene, scene_path)

    def open_menu(self, host, title):
        host.wait_for("event", 10, "menu_bar")
        menus = host.latest("event", "menu_bar")["menus"]
        entry = next((m for m in menus if m["title"].replace("&", "") == title), None)
        check_job.need(entry, f"the menu bar has no '{title}'")
        self.desktop.click_middle(entry["rect"])

    def leave(self, host):
        """Chooses the last entry of the host's first menu."""
        self.open_menu(host, "File")
        self.desktop.wait_for("open menu", self.popup, 10)
        self.desktop.press("Up")
        self.desktop.press("Return")

    @staticmethod
    def popup(windows):
        return next((w for w in windows if w["class"] == "#32768"), None)

    def choose(self, popup, index, count):
        """Clicks an entry of an open menu, counted among `count` rows of about one height."""
        left, top, right, bottom = popup["rect"]
        height = (bottom - top) / count
        self.desktop.click((left + right) // 2, int(top + height * (index + 0.5)))

    def dialog(self, windows=None):
        return window_with(self.desktop.windows() if windows is None else windows, CAMERAS)

    def filled_dialog(self, windows):
        dialog = self.dialog(windows)
        return dialog if dialog and len(control(dialog, CAMERAS)["rows"]) == 3 else None

    def row(self, windows, name):
        dialog = self.dialog(windows)
        rows = control(dialog, CAMERAS)["rows"] if dialog else []
        return next((row for row in rows if row["text"] == name), None)

    def tick(self, name):
        row = self.row(self.desktop.windows(), name)
        check_job.need(row and not row["checked"], f"'{name}' is not there to be ticked")
        left, top, _, bottom = row["rect"]
        # The check box stands at the row's left edge and is as wide as the row is high.
        self.desktop.click(left + (bottom - top) // 2, (top + bottom) // 2)
        self.desktop.wait_for(f"tick of '{name}'", lambda w: (self.row(w, name) or {}).get("checked"), 10)

    def check(self, request, scene, scene_path):
        body = request["body"]
        check_job.check_request(REQUEST.read_bytes(), body, scene_path)
        check_job.check_archive(check_job.linux_path(body["compressPath"], PREFIX), scene)
        check_job.check_job_file(check_job.linux_path(body["filePath"], PREFIX), scene_path, TICKED)
        check_job.check_cleaning(PREFIX / "drive_c/ProgramData/Orv Rendering", self.startup_script)

    def close(self):
        self.desktop.close()
        for program in self.programs:
            program.close()


def interrupt(*_):
    raise KeyboardInterrupt


def main():
    signal.signal(signal.SIGTERM, interrupt)
    shutil.rmtree(OUTPUT, ignore_errors=True)
    OUTPUT.mkdir(parents=True)
    began = time.monotonic()
    demo = Demo()
    try:
        demo.run()
    except KeyboardInterrupt:
        print()
        print(f"demo: failed at {demo.progress.current}: interrupted")
        return 130
    except Exception as failure:  # whatever it was: one line says where and why
        print()
        try:
            demo.desktop.picture("failed")
        except Exception as second:
            print(f"-- and no picture could be taken: {second}")
        why = str(failure) if isinstance(failure, StageFailed) else f"{type(failure).__name__}: {failure}"
        print(f"demo: failed at {demo.progress.current}: {why}")
        return 1
    finally:
        demo.close()
    print(f"-- pictures of each stage are in {OUTPUT.relative_to(ROOT)}/; "
          f"it took {time.monotonic() - began:.0f} s")
    print(f"demo: ok, the client accepted the job ({ACCEPTED})")
    return 0


if __name__ == "__main__":
    sys.exit(main())
