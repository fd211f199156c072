#!/usr/bin/env python3
"""vc_check.py WORK_FOLDER STAMP_FOLDER: has clang read every source of the product as Visual C++ 2015 does.

The types are Visual C++'s, the Windows and C headers are those that Wine has of Microsoft's interfaces, the
C++ library is clang's, the host's headers are the stand-in SDK's. What clang takes and Visual C++ 2015 does
not is looked for in a second reading, as C++11: constexpr functions with more than one return, and braces
for a structure whose members have values of their own."""

import os
import re
import shutil
import subprocess
import sys
from pathlib import Path

from checked import check_sources
from source_tree import PRODUCT, ROOT, folders, project_files, text_of, windows_definitions

COMPILER = "clang++-19"
CHECKED = folders(PRODUCT)
# These two take the place of Visual C++'s own start-up library where it is not the compiler.
GNU_ONLY = ("host/layout_runtime.cpp", "plugin/gnu_runtime.cpp")

LIBCXX = Path("/usr/lib/llvm-19/include/c++/v1")
WINE = Path("/usr/include/wine/wine")
GDIPLUS = Path("/usr/x86_64-w64-mingw32/include")

FLAGS = [
    "--target=x86_64-pc-windows-msvc", "-fms-compatibility-version=19.00", "-fms-extensions", "-nostdinc++",
    "-D_UCRT", "-D_LIBCPP_NO_VCRUNTIME", "-DWINE_UNICODE_NATIVE", "-D_MT", "-D_DLL",
    *windows_definitions(), "-fexceptions", "-fcxx-exceptions", "-Wall", "-Wextra", "-Wshadow", "-Werror",
]
REFUSED_BY_2015 = re.compile(r"no matching constructor for initialization of|constexpr function")


# Known to clang whatever it is to imitate, and to Visual C++ not at all.
GNU_WORDS = re.compile(r"\b(__builtin_\w+|__attribute__|__asm__|__typeof__|strn?casecmp|ssize_t)\b"
                       r"|#\s*include\s*<(unistd|dirent|strings|sys/[a-z]+)\.h>")


def gnu_words(name):
    for number, line in enumerate(text_of(name).splitlines(), 1):
        found = GNU_WORDS.search(line)
        if found:
            yield f"{name}:{number}: Visual C++ does not know {found.group(0)}"


def headers_without_builtins(folder):
    """Copies of the two headers that clang cannot take as they are: winnt.h renames a function to one that
    the compiler has built in, and Wine has GDI+ without its C++ classes."""
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    lines = (WINE / "windows/winnt.h").read_text(encoding="latin-1").splitlines(keepends=True)
    (folder / "winnt.h").write_text(
        "".join(line for line in lines if "define InterlockedCompareExchange128" not in line), encoding="latin-1")
    os.symlink(GDIPLUS / "gdiplus.h", folder / "gdiplus.h")
    os.symlink(GDIPLUS / "gdiplus", folder / "gdiplus")


def resource_faults(work):
    """What Microsoft's resource compiler would not take, as far as LLVM's speaks its language."""
    for name in ("resources/orv_rendering.rc", "plugin/version.rc"):
        text = work / (name.replace("/", "-") + ".i")
        # The names of window classes have two forms, of which a resource script takes either.
        command = ["-x", "c", "-E", "--target=x86_64-pc-windows-msvc", "-DRC_INVOKED", "-DUNICODE", "-D_UNICODE",
                   "-DWINE_UNICODE_NATIVE", "-DWINELIB_NAME_AW(x)=x##A", f"-I{ROOT}", "-isystem", str(WINE / "windows"),
                   "-isystem", str(WINE / "msvcrt"), name, "-o", str(text)]
        reading = run(command)
        if reading.returncode == 0:
            # From its own folder: an absolute path such as /ci/... reads as the option /c of this compiler.
            reading = subprocess.run(["llvm-rc", "-no-preprocess", "/C", "65001", "/I", str(ROOT), "/FO",
                                      "resources.res", text.name], cwd=work, capture_output=True, text=True, check=False)
        if reading.returncode != 0:
            yield f"== {name}\n{reading.stdout}{reading.stderr}"


def run(arguments):
    return subprocess.run([COMPILER, *arguments], cwd=ROOT, capture_output=True, text=True, check=False)


def main():
    work, stamps = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    adapted = work / "headers"
    headers_without_builtins(adapted)
    folders = [LIBCXX, adapted, WINE / "msvcrt", WINE / "windows", ROOT / "build/deps/include",
               ROOT / "standin/sdk/include"]
    flags = FLAGS + [f"-I{ROOT}"] + [part for folder in folders for part in ("-isystem", str(folder))]

    common = ROOT / "tools/vc/common.h"
    in_resources = [*resource_faults(work)]
    if in_resources:
        print("\n".join(in_resources))
        return 1

    prepared = {}
    for standard in ("c++14", "c++11"):
        prepared[standard] = work / f"common-{standard}.pch"
        made = run([*flags, f"-std={standard}", "-w", "-x", "c++-header", str(common), "-o", str(prepared[standard])])
        if made.returncode != 0:
            print(f"the headers cannot be read as {standard}\n{made.stderr}")
            return 1

    def read(name, standard, *more):
        return run([*flags, f"-std={standard}", "-fsyntax-only", "-include-pch", str(prepared[standard]), *more, name])

    def check(name):
        words = [*gnu_words(name)]
        if words:
            return "\n".join(words)
        reading = read(name, "c++14")
        if reading.returncode != 0:
            return reading.stderr
        older = read(name, "c++11", "-Wno-error", "-ferror-limit=0").stderr
        refused = [line for line in older.splitlines() if REFUSED_BY_2015.search(line) and "error:" in line
                   or "constexpr function is a C++14 extension" in line]
        return "\n".join(refused) or None

    headers = [n for n in project_files() if n.startswith(CHECKED) and n.endswith(".h")]
    in_headers = [fault for name in headers for fault in gnu_words(name)]
    if in_headers:
        print("\n".join(in_headers))
        return 1
    sources = [n for n in project_files() if n.startswith(CHECKED) and n.endswith(".cpp") and n not in GNU_ONLY]
    version = run(["--version"]).stdout
    configuration = b"".join(
        [Path(__file__).read_bytes(), (ROOT / "tools/vc/lacking.h").read_bytes(), version.encode()])
    return check_sources(sources, configuration, stamps, check)


if __name__ == "__main__":
    sys.exit(main())
