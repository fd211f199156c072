// Tables of scripts: a text, and the text of its value.
#pragma once

#include "standin/host/maxscript/interpreter.h"
#include "standin/host/text.h"

#include <gtest/gtest.h>

#include <string>

struct ScriptRow {
    const wchar_t* script;
    const wchar_t* value; // as `as string` gives it
};

inline void PrintTo(const ScriptRow& row, std::ostream* out) {
    *out << standin::ToUtf8(row.script);
}

inline std::wstring ValueOf(const std::wstring& script) {
    standin::maxscript::Interpreter interpreter;
    try {
        return ToText(interpreter.run(script, L""));
    } catch (const standin::maxscript::ScriptError& error) {
        return L"error: " + error.report();
    }
}

class ScriptRows : public ::testing::TestWithParam<ScriptRow> {};
