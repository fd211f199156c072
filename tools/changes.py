"""Single changes to the product's sources, found in the compiler's own syntax tree.

Every change stays beside the original in one copy of the sources, behind a switch: a program that runs with
ORV_CHANGE=17 in its environment behaves as if change 17 had been made. So one build serves all changes. A
program that runs with ORV_CHANGES_REACHED=FILE adds the number of each change to that file when it first comes
to it."""

import dataclasses
import json
import re
import shlex
import subprocess

from clang import cindex

from source_tree import ROOT, windows_definitions
from tidy import COMPILER, NOT_CLANGS, system_includes

K = cindex.CursorKind

SWITCH_HEADER = "orv_changes.h"
SWITCH = """#pragma once
#include "base/windows.h"

namespace orv_changes {

static void NoteReached(int number) {
    char path[MAX_PATH] = {};
    if (::GetEnvironmentVariableA("ORV_CHANGES_REACHED", path, MAX_PATH) == 0)
        return;
    HANDLE file = ::CreateFileA(path, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return;
    char line[16] = {};
    int length = 0;
    for (int place = 100000; place > 0; place /= 10)
        line[length++] = static_cast<char>('0' + number / place % 10);
    line[length++] = '\\n';
    DWORD written = 0;
    ::WriteFile(file, line, static_cast<DWORD>(length), &written, nullptr);
    ::CloseHandle(file);
}

// 0: none, -1: they are noted, -2: not yet known.
static int chosen = -2;
static char noted[COUNT];

static int Chosen() {
    char value[16] = {};
    if (::GetEnvironmentVariableA("ORV_CHANGES_REACHED", value, sizeof(value)) != 0)
        return -1;
    int number = 0;
    ::GetEnvironmentVariableA("ORV_CHANGE", value, sizeof(value));
    for (const char* digit = value; *digit >= '0' && *digit <= '9'; ++digit)
        number = 10 * number + (*digit - '0');
    return number;
}

// Changes nothing that the code around it may look at, the system's last error included.
static bool Is(int number) {
    if (chosen >= 0)
        return chosen == number;
    const DWORD error = ::GetLastError();
    if (chosen == -2)
        chosen = Chosen();
    if (chosen == -1 && noted[number] == 0) {
        noted[number] = 1;
        NoteReached(number);
    }
    ::SetLastError(error);
    return chosen == number;
}

} // namespace orv_changes

#define ORV_CHANGED(number) ::orv_changes::Is(number)
"""

COMPARED = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
TURNED = {"<": ">=", "<=": ">", ">": "<=", ">=": "<", "==": "!=", "!=": "=="}
JOINED = {"&&": "||", "||": "&&"}
TRUTHS = {"true": "false", "false": "true", "TRUE": "FALSE", "FALSE": "TRUE"}
LEFT_OUT = {K.CALL_EXPR, K.BINARY_OPERATOR, K.COMPOUND_ASSIGNMENT_OPERATOR, K.UNARY_OPERATOR, K.UNEXPOSED_EXPR,
            K.CXX_DELETE_EXPR}
ARITHMETIC = {cindex.TypeKind.INT, cindex.TypeKind.UINT, cindex.TypeKind.LONG, cindex.TypeKind.ULONG,
              cindex.TypeKind.LONGLONG, cindex.TypeKind.ULONGLONG, cindex.TypeKind.SHORT, cindex.TypeKind.USHORT,
              cindex.TypeKind.DOUBLE, cindex.TypeKind.FLOAT}
KINDS = ("comparison", "condition", "statement", "constant", "text", "arguments", "flag")


@dataclasses.dataclass(frozen=True, order=True)
class Change:
    """One change: what stands at [start, end) of the file becomes `changed` while its switch is on."""
    file: str
    start: int
    end: int
    kind: str
    original: str
    changed: str
    how: str = "expression"    # or "statement", or "table": an expression where the program is loaded
    unconst: int = -1          # where a "constexpr" stands that must be "const" for the switch to be read

    def switched(self, number):
        """What takes the place of the original."""
        if self.how == "statement":
            return f"{{ if (!ORV_CHANGED({number})) {{ {self.original} }} }}"
        return f"(ORV_CHANGED({number}) ? ({self.changed}) : ({self.original}))"


def text_ids():
    """Each text id with the one behind it."""
    names = re.findall(r"^#define (IDS_\w+)", (ROOT / "resources/texts.h").read_text("utf-8"), re.MULTILINE)
    return dict(zip(names, names[1:] + names[:1]))


class Finder:
    """The changes that one source allows."""

    def __init__(self, name, text, unit, neighbours):
        self.name, self.unit, self.neighbours = name, unit, neighbours
        self.text = text.encode()  # offsets are in bytes
        self.found = {}

    def run(self):
        for cursor in self.unit.cursor.get_children():
            self.declarations(cursor)
        return sorted(self.found.values())

    def is_here(self, cursor):
        place = cursor.location.file
        return place is not None and place.name == self.unit.spelling

    def declarations(self, cursor):
        if not self.is_here(cursor):
            return
        if cursor.kind in (K.NAMESPACE, K.CLASS_DECL, K.STRUCT_DECL, K.LINKAGE_SPEC, K.UNEXPOSED_DECL):
            for child in cursor.get_children():
                self.declarations(child)
        elif cursor.kind in (K.FUNCTION_DECL, K.CXX_METHOD, K.CONSTRUCTOR, K.DESTRUCTOR, K.CONVERSION_FUNCTION):
            if not self.says_constexpr(cursor):
                for child in cursor.get_children():
                    if child.kind == K.COMPOUND_STMT:
                        self.body(child, cursor.result_type.spelling == "bool")
        elif cursor.kind == K.VAR_DECL:
            for child in cursor.get_children():
                if child.kind == K.INIT_LIST_EXPR:
                    self.expressions(child, "table", self.constexpr_of(cursor))

    def source(self, start, end):
        return self.text[start:end].decode()

    def text_of(self, cursor):
        return self.source(cursor.extent.start.offset, cursor.extent.end.offset)

    def says_constexpr(self, cursor):
        return self.constexpr_of(cursor) >= 0

    def constexpr_of(self, cursor):
        head = re.match(rb"(?:(?:static|inline|const|extern)\s+)*(constexpr)\b",
                        self.text[cursor.extent.start.offset:cursor.extent.end.offset])
        return cursor.extent.start.offset + head.start(1) if head else -1

    def add(self, kind, cursor, changed, how="expression", unconst=-1, end=None):
        start, end = cursor.extent.start.offset, end or cursor.extent.end.offset
        original = self.source(start, end)
        if not original or original == changed or "#" in original.split("\n", 1)[0][:1]:
            return
        change = Change(self.name, start, end, kind, original, changed, how, unconst)
        self.found.setdefault((start, end, kind, changed), change)

    def body(self, cursor, returns_bool):
        """The statements of a block, and what is in them."""
        for child in cursor.get_children():
            self.statement(child, returns_bool)

    def statement(self, cursor, returns_bool):
        if cursor.kind in LEFT_OUT and self.is_whole_statement(cursor):
            end = cursor.extent.end.offset
            semicolon = re.match(rb"\s*;", self.text[end:])
            if semicolon:
                self.add("statement", cursor, "", "statement", end=end + semicolon.end())
        if cursor.kind == K.RETURN_STMT:
            children = list(cursor.get_children())
            if children and returns_bool:
                value = children[0]
                self.add("flag", value, f"!({self.text_of(value)})")
        self.visit(cursor, returns_bool)

    def is_whole_statement(self, cursor):
        before = self.text[:cursor.extent.start.offset].rstrip()
        return before.endswith((b"{", b"}", b";", b")", b"else", b":")) and cursor.extent.end.offset > 0

    def visit(self, cursor, returns_bool):
        kind = cursor.kind
        children = list(cursor.get_children())
        if kind == K.COMPOUND_STMT:
            for child in children:
                self.statement(child, returns_bool)
            return
        if kind == K.CASE_STMT:
            for child in children[1:]:
                self.statement(child, returns_bool)
            return
        if kind == K.LAMBDA_EXPR:
            for child in children:
                if child.kind == K.COMPOUND_STMT:
                    self.body(child, False)  # what it returns is not written down
            return
        if kind in (K.STATIC_ASSERT, K.CXX_UNARY_EXPR, K.TYPE_REF, K.TEMPLATE_REF, K.NAMESPACE_REF):
            return
        if kind == K.VAR_DECL and self.says_constexpr(cursor):
            return
        if kind in (K.IF_STMT, K.WHILE_STMT) and children:
            if children[0].kind not in (K.DECL_STMT, K.VAR_DECL):
                self.negate(children[0])
            self.visit(children[0], returns_bool)
            for child in children[1:]:
                self.statement(child, returns_bool)
            return
        if kind in (K.FOR_STMT, K.CXX_FOR_RANGE_STMT, K.DO_STMT, K.DEFAULT_STMT, K.SWITCH_STMT):
            for child in children:
                if child.kind in (K.COMPOUND_STMT, K.IF_STMT, K.CALL_EXPR, K.UNEXPOSED_EXPR):
                    self.statement(child, returns_bool)
                else:
                    self.visit(child, returns_bool)
            return
        self.expression(cursor, "expression", -1)
        for child in children:
            self.visit(child, returns_bool)

    def expressions(self, cursor, how, unconst):
        self.expression(cursor, how, unconst)
        for child in cursor.get_children():
            if child.kind not in (K.CXX_UNARY_EXPR, K.LAMBDA_EXPR):
                self.expressions(child, how, unconst)

    def negate(self, cursor):
        text = self.text_of(cursor)
        self.add("condition", cursor, f"!({text})")

    def expression(self, cursor, how, unconst):
        kind = cursor.kind
        text = self.text_of(cursor)
        if not text:
            return
        if kind in (K.BINARY_OPERATOR, K.CALL_EXPR):
            self.operator(cursor, how, unconst)
        if kind == K.CONDITIONAL_OPERATOR:
            self.negate(next(cursor.get_children()))
        if kind == K.CALL_EXPR:
            self.arguments(cursor)
        if text in TRUTHS:
            self.add("flag", cursor, TRUTHS[text], how, unconst)
        elif text in self.neighbours:
            self.add("text", cursor, self.neighbours[text], how, unconst)
        elif kind == K.INTEGER_LITERAL or kind == K.FLOATING_LITERAL:
            self.add("constant", cursor, f"{text} + 1", how, unconst)
            if text[0].isdigit() and text not in ("0", "1"):
                self.add("constant", cursor, "0", how, unconst)
        elif kind == K.STRING_LITERAL:
            prefix = text[:text.index('"')] if '"' in text else None
            if prefix in ("", "L"):
                self.add("constant", cursor, f'{text} {prefix}"x"', how, unconst)
        elif kind == K.DECL_REF_EXPR:
            self.named(cursor, text, how, unconst)

    def named(self, cursor, text, how, unconst):
        target = cursor.referenced
        if target is None:
            return
        if target.kind == K.ENUM_CONSTANT_DECL:
            names = [c.spelling for c in target.semantic_parent.get_children() if c.kind == K.ENUM_CONSTANT_DECL]
            if len(names) > 1 and text.endswith(target.spelling):
                other = names[(names.index(target.spelling) + 1) % len(names)]
                self.add("constant", cursor, text[:len(text) - len(target.spelling)] + other, how, unconst)
        elif target.kind == K.VAR_DECL and re.fullmatch(r"k[A-Z]\w*", target.spelling):
            shape = target.type.get_canonical()
            if shape.kind in ARITHMETIC:
                self.add("constant", cursor, f"{text} + 1", how, unconst)
            elif shape.kind == cindex.TypeKind.CONSTANTARRAY:
                prefix = {"wchar_t": "L", "char": ""}.get(shape.element_type.spelling.replace("const ", ""))
                if prefix is not None:
                    self.add("constant", cursor, f'{prefix}"x"', how, unconst)

    def operator(self, cursor, how, unconst):
        parts = [c for c in cursor.get_children() if self.text_of(c)]
        if len(parts) == 3:  # an operator of a class: its name stands between
            parts = [parts[0], parts[2]] if cursor.spelling.startswith("operator") else []
        if len(parts) != 2:
            return
        middle = (parts[0].extent.end.offset, parts[1].extent.start.offset)
        between = self.source(*middle).strip()
        left, right = self.text_of(parts[0]), self.text_of(parts[1])
        for table in (COMPARED, TURNED, JOINED):
            if between in table:
                kind = "condition" if table is JOINED else "comparison"
                self.add(kind, cursor, f"{left} {table[between]} {right}", how, unconst)

    def arguments(self, cursor):
        given = [a for a in cursor.get_arguments() if a is not None and self.text_of(a)]
        begin = cursor.extent.start.offset
        for first, second in zip(given, given[1:]):
            texts = self.text_of(first), self.text_of(second)
            same = plain(first.type) == plain(second.type)
            places = [(p.extent.start.offset - begin, p.extent.end.offset - begin) for p in (first, second)]
            if not same or texts[0] == texts[1] or places[0][1] >= places[1][0]:
                continue
            whole = self.text[begin:cursor.extent.end.offset]
            (a, b), (c, d) = places
            if a <= 0:
                continue
            swapped = whole[:a] + whole[c:d] + whole[b:c] + whole[a:b] + whole[d:]
            self.add("arguments", cursor, swapped.decode())


def plain(shape):
    name = shape.get_canonical().spelling
    return re.sub(r"\bconst\b|&|\s", "", name)


# What clang finds beside itself, its library does not: the headers of its intrinsics.
CLANGS_OWN = "-resource-dir=" + subprocess.run(["clang-14", "-print-resource-dir"], capture_output=True, text=True,
                                               check=True).stdout.strip()


def arguments_for(entry):
    """The options of a compile command that matter for reading the source with libclang."""
    words = shlex.split(entry.get("command") or " ".join(entry["arguments"]))
    kept, skip = [], False
    for word in words[1:]:
        if skip:
            skip = False
        elif word in ("-o", "-MF", "-MT", "-c"):
            skip = word != "-c"
        elif word not in NOT_CLANGS and word not in ("-MD", "-g", "-Werror") and not word.endswith(".cpp") \
                and not word.startswith("-O"):
            kept.append(word)
    if COMPILER in words[0]:
        kept += ["--target=x86_64-w64-mingw32"] + [f"-isystem{folder}" for folder in system_includes()]
    return kept + [CLANGS_OWN, "-w", "-ferror-limit=0"]


def commands(build_tree, prefix):
    """The arguments of each of the product's sources by its name, as the product itself is compiled."""
    found = {}
    for entry in json.loads((build_tree / "compile_commands.json").read_text()):
        name = entry["file"].removeprefix(str(ROOT) + "/")
        out = entry.get("command", "")
        if name.startswith(prefix) and name.endswith(".cpp") and "/tests/" not in out.split(" -o ")[-1] \
                and " -o tests/" not in out and " -o bench/" not in out:
            found.setdefault(name, arguments_for(entry))
    return found


def parse(name, arguments, text=None, index=None):
    """The syntax tree of a source, or of `text` in its place."""
    path = str(ROOT / name)
    unsaved = [(path, text)] if text is not None else None
    return (index or cindex.Index.create()).parse(path, arguments, unsaved_files=unsaved)


def changes_of(name, arguments):
    text = (ROOT / name).read_text("utf-8")
    unit = parse(name, arguments)
    broken = [d for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
    if broken:
        raise SystemExit(f"mutate: {name} is not understood: {broken[0]}")
    return Finder(name, text, unit, text_ids()).run()


def rewrite(text, numbered):
    """The source with these changes behind switches, and where each one came to stand: [(start, end, number)]."""
    source, out, places, at, size = text.encode(), [], [], 0, 0
    edits = [(change.start, change.end, change.switched(number).encode(), number) for number, change in numbered]
    edits += [(place, place + len("constexpr"), b"const", 0)
              for place in {change.unconst for _, change in numbered if change.unconst >= 0}]
    include = f'#include "{SWITCH_HEADER}"\n'.encode()
    out.append(include)
    size += len(include)
    for start, end, new, number in sorted(edits):
        out.append(source[at:start])
        size += start - at
        if number:
            places.append((size, size + len(new), number))
        out.append(new)
        size += len(new)
        at = end
    out.append(source[at:])
    return b"".join(out).decode(), places
