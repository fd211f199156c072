#!/usr/bin/env python3
"""Checks that texts, control ids and documents agree: the numbers, the dialogs of each language, the
messages that the user guide explains, and names of files, texts and controls in the pages.

Prints one line for each fault and ends with 1 when there was any."""

import re
import sys

from source_tree import ROOT, project_files, text_of

LANGUAGES = ("en", "zh")
DIALOGS = ("main", "progress", "render_options", "list")
GUIDE = "docs/user-guide.md"

# Texts that are no message: names, captions, headings, columns, formats, labels, stages, tooltips. Every
# other text has an entry in the user guide.
NO_MESSAGE = re.compile(
    r"IDS_(LIBRARY_DESCRIPTION|CLASS_\w+|ACTION_\w+|ABOUT_\w+|OLD_MENU_TITLE|MENU_TITLE|LANGUAGE_MARKER"
    r"|CAPTION\w*|COLUMN_\w+|CAMERA_(SPHERICAL|NORMAL)|FORMAT_\w+|STAGE_\w+|PROGRESS_\w+|LIST_\w+"
    r"|\w+_(TOOLTIP|HEADING|PREFIX)|OPTIONS_TITLE_SEVERAL|NO_RENDERER_LIMITS|NO_CAMERAS|SAME_CAMERA_NAMES_AFTER|TITLE_\w+|LABEL_\w+|VIEW_\w+)$")


def defines(name):
    return {m[1]: int(m[2]) for m in re.finditer(r"^#define (ID\w_?\w+) \(?(-?\d+)\)?", text_of(name), re.MULTILINE)}


def strings_of(language):
    """The names of the texts of a language, in the order of the file."""
    return re.findall(r'^\s+(IDS_\w+),? ?L?"', text_of(f"resources/texts_{language}.rc"), re.MULTILINE)


def controls_of(dialog, language):
    body = text_of(f"resources/dialogs_{dialog}_{language}.rc")
    body = re.sub(r"//.*", "", body)
    return sorted(set(re.findall(r"\bID[A-Z]+_\w+\b", body)) - {"IDC_STATIC"})


def numbers(texts, controls):
    """No two texts, and no two controls of one dialog, have one number."""
    groups = [("texts.h", texts)]
    groups += [(f"the dialog '{dialog}'", {n: controls.get(n, -1) for n in controls_of(dialog, "en") if n.startswith("IDC_")})
               for dialog in DIALOGS]
    for where, table in groups:
        seen = {}
        for name, number in table.items():
            if number in seen and number != -1:
                yield f"{where}: {number} has two names, {seen[number]} and {name}"
            seen[number] = name


def languages(texts, controls):
    for language in LANGUAGES:
        have = strings_of(language)
        for name in sorted(set(texts) - set(have)):
            yield f"texts_{language}.rc lacks {name}"
        for name in sorted(set(have) - set(texts)):
            yield f"texts_{language}.rc has {name}, which texts.h does not number"
        for name in sorted({n for n in have if have.count(n) > 1}):
            yield f"texts_{language}.rc has {name} twice"
    for dialog in DIALOGS:
        first, second = (controls_of(dialog, language) for language in LANGUAGES)
        for name in sorted(set(first) ^ set(second)):
            yield f"the dialog '{dialog}' has {name} in one language only"
        for name in first:
            if name not in controls:
                yield f"the dialog '{dialog}' has {name}, which controls.h does not number"


def unused(texts, controls, names):
    code = "\n".join(text_of(n) for n in names
                     if n.endswith((".cpp", ".h", ".rc")) and n not in ("resources/texts.h", "resources/controls.h")
                     and not re.match(r"resources/texts_\w+\.rc", n))
    words = set(re.findall(r"\bID\w+\b", code))
    for name in sorted({**texts, **controls}):
        if name not in words:
            yield f"{name} is used nowhere"


def guide(texts):
    """Each message has one entry: a heading or a row that begins with its number in bold."""
    text = text_of(GUIDE)
    entries = [int(n) for n in re.findall(r"^\|\s*\*\*(\d+)\*\*", text, re.MULTILINE)]
    messages = {number: name for name, number in texts.items() if not NO_MESSAGE.match(name)}
    for number in sorted(set(messages) - set(entries)):
        yield f"{GUIDE} does not explain message {number} ({messages[number]})"
    for number in sorted(set(entries) - set(texts.values())):
        yield f"{GUIDE} explains message {number}, which does not exist"
    for number in sorted(set(entries) & (set(texts.values()) - set(messages))):
        yield f"{GUIDE} explains {number}, which is no message"
    for number in sorted({n for n in entries if entries.count(n) > 1}):
        yield f"{GUIDE} explains message {number} twice"
    wordings = dict(re.findall(r'^\s+(IDS_\w+),? "((?:[^"]|"")*)"', text_of("resources/texts_en.rc"), re.MULTILINE))
    for number, quoted in re.findall(r"^\|\s*\*\*(\d+)\*\* “([^”]*)”", text, re.MULTILINE):
        wording = wordings.get(messages.get(int(number), ""), "").replace('""', '"').replace("\\n", " ").replace("|", "/")
        wording = re.sub(r"\s+", " ", wording).strip()
        quoted = quoted.strip()
        if not (wording == quoted or (quoted.endswith("…") and wording.startswith(quoted[:-1].strip()))):
            yield f"{GUIDE} quotes message {number} as “{quoted}”, but it reads “{wording}”"


def pages(texts, controls, names):
    """What the pages name in backticks is there: files and folders of the project, texts and controls."""
    known = set(names)
    folders = {name.rsplit("/", i)[0] for name in names for i in range(1, name.count("/") + 1)}
    first_parts = {name.split("/", 1)[0] for name in names if "/" in name}
    ids = {**texts, **controls}
    for name in names:
        if not name.endswith(".md"):
            continue
        for quoted in re.findall(r"`([^`\n]+)`", text_of(name)):
            if re.fullmatch(r"ID[SCDP]_\w+", quoted) and quoted not in ids:
                yield f"{name}: names {quoted}, which does not exist"
            if re.fullmatch(r"[\w.-]+(/[\w.-]+)+/?", quoted) and quoted.split("/")[0] in first_parts:
                path = quoted.rstrip("/")
                beside = "/".join([*name.split("/")[:-1], path])
                stem = [n for n in known if n.startswith((path + ".", beside + "."))]
                if not {path, beside} & (known | folders) and not stem and not (ROOT / path).exists():
                    yield f"{name}: names {quoted}, which is not there"


def versions():
    """The version has one home; the one text that repeats it follows."""
    version = re.search(r'#define ORV_VERSION "([\d.]+)"', text_of("base/version.h"))[1]
    for language in LANGUAGES:
        about = re.search(r'IDS_ABOUT_TEXT,? "([^"]*)"', text_of(f"resources/texts_{language}.rc"))[1]
        if not about.startswith(f"Orv Rendering {version}\\n"):
            yield f"texts_{language}.rc: the about text does not name version {version}"
    if f"## {version}" not in text_of("CHANGELOG.md"):
        yield f"CHANGELOG.md does not tell what is new in {version}"


def main():
    names = project_files()
    texts, controls = defines("resources/texts.h"), defines("resources/controls.h")
    faults = [*numbers(texts, controls), *languages(texts, controls), *unused(texts, controls, names),
              *guide(texts), *pages(texts, controls, names), *versions()]
    for fault in faults:
        print(fault)
    print(f"{len(texts)} texts, {len(controls)} dialogs and controls, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
