// What is an error says so, with its place; nothing ends the host.
#include "tests/unit/maxscript/script_rows.h"

namespace {

class Mistakes : public ScriptRows {};

TEST_P(Mistakes, AreErrorsWithTheirPlace) {
    EXPECT_EQ(ValueOf(GetParam().script), std::wstring(L"error: ") + GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Running, Mistakes,
    ::testing::Values(
        ScriptRow{L"undefined.x", L"Unknown property: \"x\" in undefined; line: 1, column: 10"},
        ScriptRow{L"a = 1\n  a.b", L"Unknown property: \"b\" in 1; line: 2, column: 4"},
        ScriptRow{L"\"a\" + 1", L"Unable to convert: 1 to type: String; line: 1, column: 5"},
        ScriptRow{L"undefined + 1", L"No \"\"+\"\" function for undefined; line: 1, column: 11"},
        ScriptRow{L"unknown 1",
                  L"Type error: Call needs function or class, got: undefined; line: 1, column: 1"},
        ScriptRow{L"fn f a = a\nf()",
                  L"Argument count error: f wanted 1, got 0; line: 2, column: 2"},
        ScriptRow{L"fn f a = a\nf 1 2",
                  L"Argument count error: f wanted 1, got 2; line: 2, column: 1"},
        ScriptRow{L"toLower()",
                  L"Argument count error: toLower wanted 1, got 0; line: 1, column: 8"},
        ScriptRow{L"if 1 then 2",
                  L"Type error: if requires BooleanClass, got: 1; line: 1, column: 1"},
        ScriptRow{L"1 and true",
                  L"Type error: and requires BooleanClass, got: 1; line: 1, column: 3"},
        ScriptRow{L"#(1)[0]", L"Array index must be +ve number, got: 0; line: 1, column: 5"},
        ScriptRow{L"throw \"my message\"", L"my message; line: 1, column: 1"},
        ScriptRow{L"for x in 5 do x", L"No for loop over 5; line: 1, column: 1"},
        ScriptRow{L"for x = 1 to 2 by 0 do x", L"for: by 0 never ends; line: 1, column: 1"},
        ScriptRow{L"1 / 0", L"Integer division by zero; line: 1, column: 3"},
        ScriptRow{L"globalLess.x = 1",
                  L"Unable to set property: \"x\" in undefined; line: 1, column: 1"},
        ScriptRow{L"struct P (x)\nP 1 2",
                  L"Argument count error: P wanted 1, got 2; line: 2, column: 1"}));

INSTANTIATE_TEST_SUITE_P(
    Reading, Mistakes,
    ::testing::Values(
        ScriptRow{L"(1", L"Syntax error: at the end: an expression is missing; line: 1, column: 3"},
        ScriptRow{L"1 +",
                  L"Syntax error: at the end: an expression is missing; line: 1, column: 4"},
        ScriptRow{L"\"open", L"Syntax error: a text has no closing quote; line: 1, column: 1"},
        ScriptRow{L"/* open", L"Syntax error: a comment has no end; line: 1, column: 8"},
        ScriptRow{L"1 = 2", L"Syntax error: at \"=\": what stands before it cannot be assigned to; "
                            L"line: 1, column: 3"},
        ScriptRow{L"if true\n5", L"Syntax error: at \"\": expected then; line: 2, column: 1"},
        ScriptRow{L"rollout r \"x\" ()", L"Syntax error: at \"rollout\": an expression cannot "
                                         L"start with this word here; line: 1, column: 1"},
        ScriptRow{L"$box01", L"Syntax error: at \"$\": points, path names, bit arrays and ? are "
                             L"not known here; line: 1, column: 1"},
        ScriptRow{L"12L", L"Syntax error: unknown form of a number; line: 1, column: 3"},
        ScriptRow{L"a ` b", L"Syntax error: unknown character: `; line: 1, column: 3"}));

TEST(MistakesInFiles, AreToldWithTheFile) {
    standin::maxscript::Interpreter interpreter;
    try {
        interpreter.run(L"\n\nundefined.x", L"C:\\a.ms");
        FAIL() << "no error";
    } catch (const standin::maxscript::ScriptError& error) {
        EXPECT_EQ(error.report(),
                  L"Unknown property: \"x\" in undefined; file: C:\\a.ms, line: 3, column: 10");
    }
}

TEST(DeepNesting, IsAnErrorAndNoCrash) {
    EXPECT_NE(ValueOf(L"fn f = f()\nf()").find(L"Stack overflow"), std::wstring::npos);
    EXPECT_NE(ValueOf(std::wstring(100000, L'(')).find(L"too deeply nested"), std::wstring::npos);
    std::wstring nots;
    std::wstring minuses;
    for (int i = 0; i < 50000; ++i) {
        nots += L"not ";
        minuses += L"- ";
    }
    EXPECT_NE(ValueOf(nots + L"true").find(L"too deeply nested"), std::wstring::npos);
    EXPECT_NE(ValueOf(minuses + L"1").find(L"too deeply nested"), std::wstring::npos);
}

TEST(Signals, OutsideOfTheirLoopAreErrors) {
    EXPECT_NE(ValueOf(L"exit").find(L"exit outside of a loop"), std::wstring::npos);
    EXPECT_NE(ValueOf(L"continue").find(L"continue outside of a loop"), std::wstring::npos);
    EXPECT_EQ(ValueOf(L"return 5"), L"5");
}

} // namespace
