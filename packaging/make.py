#!/usr/bin/env python3
"""Builds what an artist installs: an installer for Windows and a portable zip, with a list of all files
and their SHA-256. `./dev package` calls it."""

import argparse
import hashlib
import re
import shutil
import subprocess
import sys
import uuid
import zipfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
HERE = ROOT / "packaging"
# One code for all versions; each version's own code follows from it.
UPGRADE_CODE = uuid.UUID("6f0c2c53-7a1e-4c1c-9c8e-2d6f0b9a4e71")
PARSER = "MaxRenderGlobalsParser"
INSTALLER_SCRIPT = "OrvInstallParser.ms"
SCRIPTS = ("OrvAntivirusAdsl_UTF8.ms", "OrvAntivirusAlc_UTF8.ms", "OrvAntivirusCommon_UTF8.ms",
           "OrvAntivirusCrp_UTF8.ms", INSTALLER_SCRIPT)
BUNDLE, PRODUCT = "bundle/OrvRendering.bundle", "product"
# Where the installer puts the two.
TARGETS = {BUNDLE: "$Bundle", PRODUCT: "$Product"}


class Unpackable(Exception):
    """Why no package can be made, in one line."""


def defined(name):
    return re.search(rf'#define {name} "(.*)"', (ROOT / "base/version.h").read_text())[1]


def copy(source, target):
    if not source.is_file():
        raise Unpackable(f"{source} is missing")
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(source, target)


def windows_text(source):
    """A text with the line ends of Windows, however it was checked out."""
    return source.read_bytes().replace(b"\r\n", b"\n").replace(b"\n", b"\r\n")


def filled(template, target, values):
    text = windows_text(HERE / template).decode()
    for name, value in values.items():
        text = text.replace(f"@{name}@", value)
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(text.encode())


def licences(folder, deps):
    """Our licence, and those of the works of others as their packages have them."""
    documents = Path("/usr/share/doc")
    for source, name in (
            (HERE / "licences.txt", "README.txt"),
            (HERE.parent / "LICENSE", "licence-orv-rendering.txt"),
            (documents / "7zip/copyright", "licence-7-zip.txt"),
            (Path("/usr/share/common-licenses/LGPL-2.1"), "licence-lgpl-2.1.txt"),
            (deps / "7-Zip/package-license.txt", "licence-7zip-bin.txt"),
            (deps / "licences/jsoncpp.txt", "licence-jsoncpp.txt"),
            (documents / "gcc-mingw-w64-base/copyright", "licence-gcc.txt"),
            (documents / "mingw-w64-common/copyright", "licence-mingw-w64.txt")):
        copy(source, folder / name)


def gather(payload, version, plugin, deps, script_folder):
    """All files that are installed, in the folders `bundle` and `product`; the settings file beside them."""
    shutil.rmtree(payload, ignore_errors=True)
    values = {"VERSION": version, "UPGRADE_CODE": str(UPGRADE_CODE).upper(),
              "PRODUCT_CODE": str(uuid.uuid5(UPGRADE_CODE, version)).upper()}
    filled("PackageContents.xml.in", payload / BUNDLE / "PackageContents.xml", values)
    copy(plugin, payload / BUNDLE / "Contents/OrvRendering.gup")
    if (script_folder / INSTALLER_SCRIPT).is_file():
        copy(script_folder / INSTALLER_SCRIPT, payload / BUNDLE / "Contents" / INSTALLER_SCRIPT)
    copy(deps / "7-Zip/7z.exe", payload / PRODUCT / "7-Zip/7z.exe")
    scripts = [s for s in sorted(script_folder.glob("*.ms*")) if s.suffix in (".ms", ".mse")]
    for script in scripts:
        copy(script, payload / PRODUCT / "script" / script.name)
    licences(payload / PRODUCT / "licences", deps)
    copy(payload / PRODUCT / "licences/licence-7-zip.txt", payload / PRODUCT / "7-Zip/License.txt")
    filled("rud_plugin.ini.in", payload / "rud_plugin.ini", values)

    present = {s.name for s in scripts}
    missing = [s for s in SCRIPTS if s not in present]
    if not {PARSER + ".ms", PARSER + ".mse"} & present:
        missing.append(PARSER + ".ms")
    if missing:
        raise Unpackable(f"{script_folder.name}/ lacks {', '.join(missing)}")


def installed_files(payload):
    """Each file's path below the payload, sorted."""
    return sorted(str(f.relative_to(payload)) for part in TARGETS for f in (payload / part).rglob("*") if f.is_file())


def write_file_list(payload, target):
    """The two macros of the installer that name each file: what is installed, and what is removed again."""
    install = ["!macro InstallFiles"]
    # The encrypted parser may have been made on the machine; of another version it must not stay.
    remove = ["!macro RemoveFiles", f'  Delete "$Product\\script\\{PARSER}.mse"']
    for name in installed_files(payload):
        part = next(p for p in TARGETS if name.startswith(p + "/"))
        there = TARGETS[part] + "\\" + name[len(part) + 1:].replace("/", "\\")
        install += [f'  SetOutPath "{there.rsplit(chr(92), 1)[0]}"', f'  File "{payload / name}"']
        remove += [f'  Delete "{there}"']
    target.write_text("\n".join([*install, "!macroend", *remove, "!macroend", ""]))


def write_zip(payload, version, target):
    """The same files for who installs by hand, under the folders they belong into."""
    places = {BUNDLE: "Autodesk/ApplicationPlugins/OrvRendering.bundle", PRODUCT: "Orv Rendering"}
    entries = [(name, next(places[p] + name[len(p):] for p in places if name.startswith(p + "/")))
               for name in installed_files(payload)]
    entries.append(("rud_plugin.ini", "Orv Rendering/script/rud_plugin.ini"))
    with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as archive:
        for folder in ("json", "compress", f"log{version}"):
            archive.writestr(zipfile.ZipInfo(f"Orv Rendering/{folder}/", (2019, 1, 1, 0, 0, 0)), b"")
        for name, there in sorted(entries, key=lambda e: e[1]):
            # One date for all, so that the same files give the same zip.
            archive.writestr(zipfile.ZipInfo(there, (2019, 1, 1, 0, 0, 0)), (payload / name).read_bytes(),
                             zipfile.ZIP_DEFLATED)
        archive.writestr(zipfile.ZipInfo("read-me.txt", (2019, 1, 1, 0, 0, 0)),
                         windows_text(HERE / "portable.txt"), zipfile.ZIP_DEFLATED)


def write_manifest(output, payload, results):
    lines = [f"{hashlib.sha256(path.read_bytes()).hexdigest()}  {name}\n"
             for name, path in [*((n, payload / n) for n in installed_files(payload)),
                                ("rud_plugin.ini", payload / "rud_plugin.ini"),
                                *((r.name, r) for r in results)]]
    (output / "SHA256SUMS").write_text("".join(lines))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--plugin", type=Path, default=ROOT / "build/mingw/bin/OrvRendering.gup")
    parser.add_argument("--deps", type=Path, default=ROOT / "build/deps")
    parser.add_argument("--output", type=Path, default=ROOT / "build/package")
    parser.add_argument("--version", default=defined("ORV_VERSION"), help="for tests of upgrades")
    parser.add_argument("--scripts", type=Path, default=ROOT / "scripts", help="for tests of upgrades")
    options = parser.parse_args()
    output = options.output.resolve()
    payload = output / "payload"
    output.mkdir(parents=True, exist_ok=True)
    installer = output / f"OrvRendering-{options.version}-setup.exe"
    portable = output / f"OrvRendering-{options.version}-portable.zip"
    symbols = output / f"OrvRendering-{options.version}.gup.debug"
    try:
        gather(payload, options.version, options.plugin, options.deps, options.scripts)
        write_file_list(payload, output / "files.nsh")
        subprocess.run(["makensis", "-V2", "-WX", f"-DVERSION={options.version}", f"-DOUTPUT={installer}",
                        f"-DPAYLOAD={payload}", f"-DFILES={output / 'files.nsh'}",
                        f"-DCOPYRIGHT={defined('ORV_COPYRIGHT')}", str(HERE / "installer.nsi")], check=True)
        write_zip(payload, options.version, portable)
        copy(options.plugin.with_name(options.plugin.name + ".debug"), symbols)
        write_manifest(output, payload, [installer, portable, symbols])
    except (Unpackable, subprocess.CalledProcessError) as failure:
        print(f"package: {failure}", file=sys.stderr)
        return 1
    for result in (installer, portable, symbols, output / "SHA256SUMS"):
        print(f"{result.stat().st_size:9d}  {result.name}")
    if not (payload / PRODUCT / "script" / f"{PARSER}.mse").is_file():
        print(f"note: {PARSER}.mse is not among the scripts, 3ds Max makes it at its first start: docs/scripts.md")
    return 0


if __name__ == "__main__":
    sys.exit(main())
