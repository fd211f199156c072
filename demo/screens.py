#!/usr/bin/env python3
"""Takes pictures of the plug-in's dialogs in one language, at the resolution that Wine has at the time.
`./dev screens` starts it; the pictures go to build/screens/LANGUAGE-RESOLUTION-STATE.png."""

import json
import os
import shutil
import subprocess
import sys
import time
from pathlib import Path

import run
from desktop import Desktop, control, window_with
from stage import StageFailed, Talker, windows_path, wine

OUTPUT = run.ROOT / "build/screens"
WORK = run.PREFIX / "drive_c/screens"

# Controls by number.
CANCEL, ANALYSE_AGAIN, EDIT_CAMERAS, WIDTH, OPTIONS_CANCEL, LOCK_SIZE = 2, 1004, 1013, 1015, 103, 1076
WARNINGS, PROGRESS_SIZE = 1019, 1214

FILES = [{"path": f"D:\\maps\\{name}", "missing": True} for name in ("oak.jpg", "客厅 wall.png")]
REPORT = {
    "name": "D:\\scenes\\report.max", "version": "2019", "renderer_full_name": "Missing_Renderer",
    "is_region": "true", "image_width": "3840", "image_height": "2160", "start_frame": "10",
    "image_format": "tif", "gamma_out": "2.2",
    "cameras": [{"name": "Living: wide"}, {"name": "客厅 相机"}, {"name": "50% view"}],
    "corona_setting": {"pass_limit": "0", "time_limit": "0", "noise_level_limit": "0"},
    "vray_setting": {"imagesampler_type": "3"}, "errors": {"error_code": [{"code": "107"}]},
    "reference_file": [{"path": "D:\\maps\\wood 100%.png"}, {"path": "D:\\текстуры\\дуб.jpg"},
                       {"path": "D:\\贴图\\石材.jpg"}],
    "missing_file": [{"path": "D:\\maps\\oak.jpg"}, {"path": "D:\\贴图\\窗帘 凹凸.png"}],
    "same_file": [{"path": "D:\\a\\leaf.png"}, {"path": "D:\\b\\leaf.png"}],
}
SCENES = {
    # A submission from its first complaint to the client that is not there.
    "submission": {"cameras": ["Camera 01", "Door"], "renderer": {"name": "V_Ray_Adv_4_10_03"},
                   "output": {"width": 1920, "height": 1080, "format": "png"}},
    "vray": {
        "cameras": ["Camera 01", {"name": "Camera 客厅", "width": 4096, "height": 2048}, "Door"],
        "renderer": {"name": "V_Ray_Adv_4_10_03", "properties": {"imageSampler_type": 3}},
        "output": {"width": 1920, "height": 1080, "format": "png", "region": True},
        "external_files": FILES,
    },
    "corona": {
        "cameras": ["Camera 01", "Kitchen", "Door"],
        "renderer": {"name": "Corona",
                     "properties": {"progressive_passLimit": 120, "progressive_timeLimit": 3600000,
                                    "adaptivity_targetError": 4.0}},
        "output": {"width": 3000, "height": 2000, "format": "tif"},
    },
    # A report that sets off everything, as a parser of its own would write it.
    "report": {"scripts": {"MaxRenderGlobalsParser.mse": {"does": "text", "text": json.dumps(REPORT)}}},
    "refused": {"scripts": {"MaxRenderGlobalsParser.mse": {"does": "text", "text": json.dumps(
        {**REPORT, "cameras": [{"name": "Camera 01"}, {"name": 5}]})}}},
    "empty": {"renderer": {"name": "V_Ray_Adv_4_10_03"},
              "output": {"width": 1920, "height": 1080, "format": "png"}},
}
LARGE_SCENE = 16_000_000  # bytes that take the archiver some seconds


class Screens(run.Demo):
    """The demo's host and its dialogs, opened for their pictures only."""

    def __init__(self, language, dots):
        self.programs = []
        self.language = language
        self.prefix = f"{language}-{dots}"
        self.desktop = Desktop(f"screens-{self.prefix}", "1920x1400", run.BIN, WORK)

    def run(self):
        began = time.monotonic()
        self.desktop.open()
        for name, scene in SCENES.items():
            host = self.start_host(name, scene)
            try:
                getattr(self, name)(host)
            finally:
                host.close()
        print(f"-- pictures in {self.prefix} done in {time.monotonic() - began:.1f} s", flush=True)

    def start_host(self, name, description):
        run.install_product(1)
        scene = WORK / f"{name}.max"
        scene.write_bytes(os.urandom(LARGE_SCENE) if name == "submission" else b"scene")
        (WORK / f"{name}.max.json").write_text(json.dumps(description), "utf-8")
        host = Talker("host", self.desktop.command(
            "standin-host.exe", "--plugin-dir", windows_path(WORK / "plugins"), "--scene",
            windows_path(scene), "--language", self.language), run.BIN, WORK / "host.log")
        self.programs.append(host)
        host.wait_for("event", 40, "started")
        self.open_menu(host, run.MENU)
        self.choose(self.desktop.wait_for("open menu", self.popup, 20), 0, 3)
        return host

    def vray(self, _host):
        dialog = self.picture_of("main", run.CAMERAS)
        rows = control(dialog, run.CAMERAS)["rows"]
        self.click_row(rows[1], "--repeat", "2", "--delay", "60")
        options = self.picture_of("options", WIDTH)
        self.desktop.click_middle(control(options, LOCK_SIZE)["rect"])
        options = self.picture_of("options-locked", WIDTH)
        self.desktop.click_middle(control(options, OPTIONS_CANCEL)["rect"])
        self.desktop.wait_for("main dialog alone", lambda w: not window_with(w, WIDTH), 20)
        if not control(dialog, EDIT_CAMERAS):
            return
        self.click_row(rows[0])
        subprocess.run(["xdotool", "keydown", "shift"], check=True, timeout=10)
        self.click_row(rows[2])
        subprocess.run(["xdotool", "keyup", "shift"], check=True, timeout=10)
        dialog = self.picture_of("main-selected", run.CAMERAS)
        self.desktop.click_middle(control(dialog, EDIT_CAMERAS)["rect"])
        self.picture_of("options-several", WIDTH)

    def corona(self, _host):
        dialog = self.picture_of("main-corona", run.CAMERAS)
        self.click_row(control(dialog, run.CAMERAS)["rows"][1], "--repeat", "2", "--delay", "60")
        self.picture_of("options-corona", WIDTH)

    def report(self, _host):
        dialog = self.picture_of("main-report", run.CAMERAS)
        self.desktop.click_middle(control(dialog, WARNINGS)["rect"])
        for state, keys in (("advice", ["Next"] * 2), ("end", ["End"])):
            subprocess.run(["xdotool", "key", *keys], check=True, timeout=10)
            self.picture_of(f"main-report-{state}", run.CAMERAS)

    def refused(self, _host):
        self.box("report-refused", 1)

    def empty(self, _host):
        self.box("question-no-cameras", 6)

    def submission(self, _host):
        dialog = self.picture_of("main-submission", run.CAMERAS)
        self.desktop.click_middle(control(dialog, run.SUBMIT)["rect"])
        box = self.box("message-no-camera-ticked", CANCEL)
        self.desktop.click_middle(control(box, CANCEL)["rect"])
        self.desktop.wait_for("closed message", lambda w: not run.message_box(w), 20)
        self.tick("Door")
        # The first attempt ends a moment after its message.
        self.desktop.wait_for("free dialog", self.free, 20)
        self.desktop.click_middle(control(dialog, run.SUBMIT)["rect"])
        packing = self.desktop.wait_for("progress window", self.packing, 30)
        self.save("progress-packing", window_with(packing, run.PROGRESS_BAR)["rect"])
        box = self.box("message-no-client", run.OK, 240)
        self.desktop.click_middle(control(box, run.OK)["rect"])

    @staticmethod
    def free(windows):
        """Whether the main dialog can be used and no other window of the submission is left."""
        dialog = window_with(windows, run.CAMERAS)
        others = window_with(windows, run.PROGRESS_BAR) or run.message_box(windows)
        return dialog and dialog["enabled"] and not others

    def packing(self, windows):
        """The windows, once the progress window shows how large the archive is."""
        progress = window_with(windows, run.PROGRESS_BAR)
        size = control(progress, PROGRESS_SIZE) if progress else None
        return windows if size and size["text"] else None

    def box(self, state, button, seconds=30):
        """Saves the picture of the message box that has that button, and returns the box."""
        box = self.desktop.wait_for(state, lambda w: next(
            (x for x in w if x["class"] == "#32770" and control(x, button) and not control(x, run.CAMERAS)),
            None), seconds)
        time.sleep(0.5)  # until it is drawn
        self.save(state, box["rect"])
        return box

    def click_row(self, row, *how):
        left, top, _, bottom = row["rect"]
        middle = (top + bottom) // 2
        subprocess.run(["xdotool", "mousemove", str(left + 4 * (bottom - top)), str(middle), "click", *how,
                        "1"], check=True, timeout=10)

    def picture_of(self, state, control_id):
        """Saves the picture of the window with that control, once it has stopped changing."""
        window = self.desktop.wait_for(state, lambda w: window_with(w, control_id), 30)
        before = None
        for _ in range(20):
            file = self.save(state, window["rect"])
            now = file.read_bytes()
            if now == before:
                break
            before = now
            time.sleep(0.3)
        return window_with(self.desktop.windows(), control_id)

    def save(self, state, rect):
        left, top, right, bottom = rect
        file = OUTPUT / f"{self.prefix}-{state}.png"
        subprocess.run(["import", "-window", "root", "-crop", f"{right - left}x{bottom - top}+{left}+{top}",
                        "+repage", "-define", "png:exclude-chunks=date,time", str(file)],
                       check=True, timeout=30)
        return file


def main():
    language, dots = sys.argv[1:]
    shutil.rmtree(WORK, ignore_errors=True)
    (WORK / "plugins").mkdir(parents=True)
    shutil.copy(run.BIN / "OrvRendering.gup", WORK / "plugins")
    screens = Screens(language, dots)
    try:
        screens.run()
    except StageFailed as failure:
        print(f"screens: failed in {screens.prefix}: {failure}")
        return 1
    finally:
        screens.close()
    return 0


if __name__ == "__main__":
    sys.exit(main())
