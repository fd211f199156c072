#!/usr/bin/env python3
"""package_test.py BIN_FOLDER WORK_FOLDER: what the installer does, seen from outside.

The Wine prefix is a fresh computer (tools/under-new-wine). An older version is installed, upgraded and repaired; the stand-in
host starts with the plug-in from the installed bundle and submits a scene; the product is removed. After
each step the files that are there are compared with those that have to be there."""

import hashlib
import os
import shutil
import subprocess
import sys
import time
import xml.etree.ElementTree as ElementTree
import zipfile
import zlib
from pathlib import Path

BIN, WORK = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
ROOT = Path(__file__).resolve().parents[3]
PREFIX = Path(os.environ["WINEPREFIX"])
sys.path[:0] = [str(ROOT / "demo"), str(ROOT / "packaging")]
sys.dont_write_bytecode = True

import run as demo_run  # noqa: E402  the path has to be set first
from make import PARSER, SCRIPTS, defined  # noqa: E402

VERSION, OLDER = defined("ORV_VERSION"), "1.0.2"
PRODUCT = PREFIX / "drive_c/ProgramData/Orv Rendering"
BUNDLE = PREFIX / "drive_c/ProgramData/Autodesk/ApplicationPlugins/OrvRendering.bundle"
SETTINGS = PRODUCT / "script/rud_plugin.ini"
KEY = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\OrvRendering"
FOLDERS = {"json", "compress"}
DONE, IN_USE, NEWER = 0, 2, 3


class Failed(Exception):
    """What is not as it has to be."""


def need(condition, what):
    if not condition:
        raise Failed(what)


def need_same(actual, expected, what):
    need(actual == expected, f"{what}: unexpected {sorted(actual - expected)}, missing {sorted(expected - actual)}")


def run(*command):
    """The exit code and what the program said. Through a file: services that Wine starts along with a program
    keep its output open, and a pipe would not end."""
    with open(WORK / "output", "w+b") as output:
        code = subprocess.run([str(part) for part in command], stdin=subprocess.DEVNULL, stdout=output, stderr=output,
                              timeout=120, check=False).returncode
        output.seek(0)
        return code, output.read().decode(errors="replace")


def wine(*command):
    return run("wine", *command)[0]


def need_code(code, what, *command):
    """The command ends with that exit code."""
    actual, told = run("wine", *command)
    need(actual == code, f"{what}: exit code {actual} {told}")


def package(version, scripts):
    """Makes the package of a version; returns the installer."""
    output = WORK / f"package-{version}"
    code, told = run(sys.executable, ROOT / "packaging/make.py", "--version", version, "--plugin", BIN / "OrvRendering.gup",
               "--scripts", scripts, "--output", output)
    need(code == 0, f"no package: {told}")
    return output / f"OrvRendering-{version}-setup.exe"


def script_folder(name, *more):
    """The project's scripts, and more files for a version that has more."""
    folder = WORK / name
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir()
    for script in (*SCRIPTS, f"{PARSER}.ms"):
        (folder / script).write_bytes((ROOT / "scripts" / script).read_bytes())
    for script in more:
        (folder / script).write_bytes(b"-- a script\r\n")
    return folder


def files_below(folder):
    return {str(f.relative_to(folder)).replace(os.sep, "/") for f in folder.rglob("*") if f.is_file()}


def expected_product(scripts):
    licences = {"README.txt", *(f"licence-{n}.txt" for n in
                                ("orv-rendering", "7-zip", "lgpl-2.1", "7zip-bin", "jsoncpp", "gcc", "mingw-w64"))}
    return ({"7-Zip/7z.exe", "7-Zip/License.txt", "uninstall.exe", "script/rud_plugin.ini"}
            | {f"script/{f.name}" for f in scripts.iterdir()} | {f"licences/{name}" for name in licences})


def sections(file):
    told = run("x86_64-w64-mingw32-objdump", "-h", file)[1]
    return {line.split()[1] for line in told.splitlines() if line.strip()[:1].isdigit()}


def check_symbols(installer):
    """What a debugger needs lies beside the package, made in the same run, and not in the library."""
    symbols = installer.parent / f"OrvRendering-{VERSION}.gup.debug"
    library = installer.parent / "payload/bundle/OrvRendering.bundle/Contents/OrvRendering.gup"
    need(".debug_info" in sections(symbols), "the symbols have no debug information")
    need(not [name for name in sections(library) if name.startswith(".debug")], "the library has debug information")
    # The link is the file's name and the CRC-32 of its content.
    link = library.read_bytes().find(b"OrvRendering.gup.debug\0")
    need(link > 0, "the library does not name its symbols")
    need(zlib.crc32(symbols.read_bytes()).to_bytes(4, "little") == library.read_bytes()[link + 24:link + 28],
         "the symbols are of another build than the library")


def check_installed(version, scripts):
    need_same(files_below(PRODUCT), expected_product(scripts), f"product folder of {version}")
    need_same(files_below(BUNDLE), {"PackageContents.xml", "Contents/OrvRendering.gup", "Contents/OrvInstallParser.ms"},
              f"bundle of {version}")
    need((BUNDLE / "Contents/OrvRendering.gup").read_bytes() == (BIN / "OrvRendering.gup").read_bytes(),
         "the installed plug-in is not the one that was built")
    for folder in (*FOLDERS, f"log{version}"):
        need((PRODUCT / folder).is_dir(), f"no folder {folder}")
    contents = ElementTree.parse(BUNDLE / "PackageContents.xml").getroot()
    need(contents.get("AppVersion") == version, "the bundle tells another version")
    need(contents.get("ProductCode") != contents.get("UpgradeCode"), "product and upgrade code are one")
    need(contents.find("CompanyDetails") is not None, "no company details")
    need({(r.get("SeriesMin"), r.get("SeriesMax")) for r in contents.iter("RuntimeRequirements")} == {("2019", "2019")},
         "the bundle is not for 2019 alone")
    modules = [e.get("ModuleName") for e in contents.iter("ComponentEntry")]
    need(len(modules) == 2, f"the bundle names {modules}")
    for module in modules:
        need((BUNDLE / module).is_file(), f"the bundle names {module}, which is not there")
    _, told = run("wine", "reg", "query", KEY, "/v", "DisplayVersion")
    need(f" {version}" in told, f"Windows' list of programs tells '{told.strip()}'")
    return contents.get("ProductCode"), contents.get("UpgradeCode")


def check_removed(left):
    need_same(files_below(PRODUCT) if PRODUCT.exists() else set(), left, "left in the product folder")
    need(not BUNDLE.exists(), "the bundle is still there")
    need(wine("reg", "query", KEY) != 0, "Windows' list of programs still has it")


def check_sums(installer):
    """The list has each file of the package with its sum, and the zip holds the same files."""
    output = installer.parent
    sums = dict(reversed(line.split("  ", 1)) for line in (output / "SHA256SUMS").read_text().splitlines())
    for name, expected in sums.items():
        path = output / name if (output / name).is_file() else output / "payload" / name
        need(hashlib.sha256(path.read_bytes()).hexdigest() == expected, f"the sum of {name} is wrong")
    need_same({n for n in sums if "/" in n},
              {str(f.relative_to(output / "payload")) for part in ("bundle", "product")
               for f in (output / "payload" / part).rglob("*") if f.is_file()}, "list of files")
    with zipfile.ZipFile(output / f"OrvRendering-{VERSION}-portable.zip") as archive:
        zipped = sorted(hashlib.sha256(archive.read(i)).hexdigest() for i in archive.infolist() if not i.is_dir()
                        and i.filename != "read-me.txt")
    need(zipped == sorted(sums[n] for n in sums if "/" in n or n == "rud_plugin.ini"),
         "the zip does not hold the files of the list")


class InstalledDemo(demo_run.Demo):
    """The demo's course of events with what the installer left."""

    def __init__(self, installer):
        super().__init__()
        self.installer = installer

    def open_menu(self, host, title):
        # The host runs and has the plug-in loaded: nothing may be exchanged below it.
        need_code(IN_USE, "a plug-in in use was not noticed", self.installer, "/S")
        need((BUNDLE / "Contents/OrvRendering.gup").is_file(), "the plug-in in use was removed")
        super().open_menu(host, title)

    @staticmethod
    def install_product(port):
        # What the farm's client does: it writes its port.
        text = SETTINGS.read_text("ascii")
        need("port=0" in text, "the settings are not those of the package")
        SETTINGS.write_text(text.replace("port=0", f"port={port}"), "ascii", newline="")
        return PRODUCT

    @staticmethod
    def install_plugin():
        return BUNDLE / "Contents"


def submit_a_scene(installer):
    demo_run.BIN, demo_run.DEPENDENCIES = BIN, ROOT / "build/deps"
    demo_run.OUTPUT = WORK / "demo"
    demo_run.REQUEST = demo_run.OUTPUT / "request.http"
    shutil.rmtree(demo_run.OUTPUT, ignore_errors=True)
    demo_run.OUTPUT.mkdir()
    demo = InstalledDemo(installer)
    try:
        demo.run()
    finally:
        demo.close()


def uninstall(*options):
    code = wine(PRODUCT / "uninstall.exe", "/S", *options)
    # The uninstaller goes on as a copy of itself, and its folder goes last.
    deadline = time.monotonic() + 60
    while wine("reg", "query", KEY) == 0 or (PRODUCT / "uninstall.exe").exists() or BUNDLE.exists():
        need(time.monotonic() < deadline, "the uninstaller does not come to its end")
    return code


def test():
    old_scripts, scripts = script_folder("scripts-old", "LeftBehind.ms"), script_folder("scripts")
    older, current = package(OLDER, old_scripts), package(VERSION, scripts)
    check_sums(current)
    check_symbols(current)

    print("-- an older version is installed", flush=True)
    need_code(DONE, "the older version was not installed", older, "/S")
    old_codes = check_installed(OLDER, old_scripts)

    print("-- upgrade: the old files leave, the settings stay", flush=True)
    settings = SETTINGS.read_bytes() + b"RENDER_CHANNEL_COLOR=1\r\n"
    SETTINGS.write_bytes(settings)
    need_code(DONE, "the upgrade failed", current, "/S")
    shutil.rmtree(PRODUCT / f"log{OLDER}")
    codes = check_installed(VERSION, scripts)
    need(SETTINGS.read_bytes() == settings, "the settings were changed")
    need(codes[0] != old_codes[0] and codes[1] == old_codes[1], "the codes of the two versions are wrong")

    print("-- repair", flush=True)
    (PRODUCT / "7-Zip/7z.exe").unlink()
    (BUNDLE / "Contents/OrvRendering.gup").write_bytes(b"damaged")
    need_code(DONE, "the repair failed", current, "/S")
    check_installed(VERSION, scripts)
    need(SETTINGS.read_bytes() == settings, "the repair changed the settings")

    print("-- an older version does not replace a newer one", flush=True)
    need_code(NEWER, "the older version was not refused", older, "/S")
    check_installed(VERSION, scripts)

    print("-- the host makes the parser that the plug-in loads", flush=True)
    need_code(DONE, "the script failed", BIN / "standin-script.exe", BUNDLE / "Contents/OrvInstallParser.ms")
    need((PRODUCT / f"script/{PARSER}.mse").is_file(), "there is no parser")

    print("-- a scene is submitted from the installed bundle", flush=True)
    submit_a_scene(current)
    log = (PRODUCT / f"log{OLDER}/rud_http.log").read_text(errors="replace")
    need("Submit successfully." in log, "the log does not tell of the submission")

    print("-- removal keeps settings and logs", flush=True)
    need(uninstall() == DONE, "the uninstaller failed")
    backup = "backup/studio.ms.1.backup"  # of a start-up script that the demo's submission cleaned
    check_removed({"script/rud_plugin.ini", "log/OrvAntivirus.log", backup,
                   *(f"log{OLDER}/rud_{n}.log" for n in ("data", "ui", "http"))})

    print("-- removal with settings and logs leaves the user's own files alone", flush=True)
    need_code(DONE, "the second installation failed", current, "/S")
    need("RENDER_CHANNEL_COLOR" in SETTINGS.read_text("ascii"), "the kept settings do not count")
    need(uninstall("/REMOVESETTINGS") == DONE, "the second removal failed")
    check_removed({backup})

    print("-- removal without such files leaves nothing", flush=True)
    shutil.rmtree(PRODUCT)
    need_code(DONE, "the third installation failed", current, "/S")
    need(uninstall("/REMOVESETTINGS") == DONE, "the third removal failed")
    check_removed(set())
    need(not PRODUCT.exists(), "the product folder is still there")


def main():
    WORK.mkdir(parents=True, exist_ok=True)
    began = time.monotonic()
    try:
        test()
    except Exception as failure:  # whatever it was: one line says why
        print(f"package test: failed: {type(failure).__name__}: {failure}")
        return 1
    print(f"package test: ok in {time.monotonic() - began:.0f} s")
    return 0


if __name__ == "__main__":
    sys.exit(main())
