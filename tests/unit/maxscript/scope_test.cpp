// Which variable a name means.
#include "tests/unit/maxscript/script_rows.h"

namespace {

class Names : public ScriptRows {};

TEST_P(Names, MeanTheVariableThatTheReferenceSays) {
    EXPECT_EQ(ValueOf(GetParam().script), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Scopes, Names,
    ::testing::Values(
        ScriptRow{L"a = 1\n(a = 2)\na", L"2"}, ScriptRow{L"(b = 2)\nb", L"undefined"},
        ScriptRow{L"a = 1\n(local a = 2)\na", L"1"}, ScriptRow{L"a = 1\n(local a = 2; ::a)", L"1"},
        ScriptRow{L"(local a = 1; (local a = 2); a)", L"1"},
        ScriptRow{L"(local a = 1, b = a + 1; b)", L"2"},
        ScriptRow{L"fn f = (c = 3)\nf()\nc", L"undefined"},
        ScriptRow{L"fn f = (global d = 3)\nf()\nd", L"3"},
        ScriptRow{L"fn f = (global e; e = 3)\nf()\ne", L"3"}, ScriptRow{L"Mine = 4\nMINE", L"4"},
        ScriptRow{L"(for i = 1 to 2 do x = i; i)", L"undefined"},
        ScriptRow{L"(local all = #(); for i = 1 to 2 do (local one; append all one; one = i); all)",
                  L"#(undefined, undefined)"}));

TEST(NamesInFunctions, SeeNoLocalOfTheFunctionAround) {
    const std::wstring error =
        ValueOf(L"fn outer =\n(\n  local a = 1\n  fn inner = a\n  inner()\n)");
    EXPECT_EQ(error,
              L"error: No outer local variable references permitted here: a; line: 4, column: 14");
}

TEST(NamesInStructures, AreKnownFromTheirDeclarationOn) {
    const std::wstring error = ValueOf(L"struct P (fn a = b(), fn b = 1)\n(P()).a()");
    EXPECT_EQ(error.find(L"error: Type error: Call needs function or class, got: undefined"), 0U)
        << standin::ToUtf8(error);
}

// This is why a script that looks for a global must not name it.
TEST(NamesAtTheTopLevel, MakeAGlobalWhenTheyAreOnlyRead) {
    standin::maxscript::Interpreter interpreter;
    EXPECT_EQ(interpreter.globals().find(L"unheardOf"), nullptr);
    interpreter.run(L"unheardOf", L"");
    EXPECT_NE(interpreter.globals().find(L"UNHEARDOF"), nullptr);
}

TEST(NamesInBlocks, MakeNoGlobal) {
    standin::maxscript::Interpreter interpreter;
    interpreter.run(L"(unheardOf)", L"");
    EXPECT_EQ(interpreter.globals().find(L"unheardOf"), nullptr);
}

TEST(Globals, StayFromOneTextToTheNext) {
    standin::maxscript::Interpreter interpreter;
    interpreter.run(L"a = 5\nfn f = a + 1", L"");
    EXPECT_EQ(ToText(interpreter.run(L"f()", L"")), L"6");
}

TEST(Globals, OfTheHostCannotBeOverwritten) {
    standin::maxscript::Interpreter interpreter;
    EXPECT_THROW(interpreter.run(L"append = 5", L""), standin::maxscript::ScriptError);
}

} // namespace
