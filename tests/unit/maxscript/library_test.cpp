// The functions of the language's own library.
#include "tests/unit/maxscript/script_rows.h"

namespace {

class Library : public ScriptRows {};

TEST_P(Library, GivesWhatTheReferenceSays) {
    EXPECT_EQ(ValueOf(GetParam().script), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Library,
    ::testing::Values(
        ScriptRow{L"substring \"abcdef\" 2 3", L"bcd"}, ScriptRow{L"substring \"abc\" 2 -1", L"bc"},
        ScriptRow{L"substring \"abc\" 9 1", L""},
        ScriptRow{L"substituteString \"aXbX\" \"X\" \"--\"", L"a--b--"},
        ScriptRow{L"substituteString \"abc\" \"\" \"x\"", L"abc"},
        ScriptRow{L"findString \"abc\" \"c\"", L"3"},
        ScriptRow{L"findString \"abc\" \"x\"", L"undefined"},
        ScriptRow{L"replace \"abc\" 2 1 \"XY\"", L"aXYc"},
        ScriptRow{L"matchPattern \"V_Ray_5\" pattern:\"v_ray*\"", L"true"},
        ScriptRow{L"matchPattern \"abc\" pattern:\"a?c\"", L"true"},
        ScriptRow{L"matchPattern \"abc\" pattern:\"A*\" ignoreCase:false", L"false"},
        ScriptRow{L"matchPattern \"abcabd\" pattern:\"*ab?\"", L"true"},
        ScriptRow{L"matchPattern \"abc\" pattern:\"ab\"", L"false"},
        ScriptRow{L"matchPattern \"\" pattern:\"*\"", L"true"},
        ScriptRow{L"filterString \"1, 2,,3\" \", \"", L"#(\"1\", \"2\", \"3\")"},
        ScriptRow{L"filterString \"a,,b\" \",\" splitEmptyTokens:true", L"#(\"a\", \"\", \"b\")"},
        ScriptRow{L"toLower \"A\u0416\"", L"a\u0436"}, ScriptRow{L"trimLeft \"  a \"", L"a "},
        ScriptRow{L"trimRight \"a\\\\\\\\\" \"\\\\/\"", L"a"}, ScriptRow{L"trimRight \"  \"", L""},
        ScriptRow{L"stricmp \"A\" \"a\"", L"0"}, ScriptRow{L"stricmp \"a\" \"b\"", L"-1"},
        ScriptRow{L"bit.charAsInt \"A\"", L"65"}, ScriptRow{L"bit.intAsChar 20013", L"\u4E2D"},
        ScriptRow{L"bit.or 5 2", L"7"}, ScriptRow{L"\"abc\"[2]", L"b"}));

INSTANTIATE_TEST_SUITE_P(
    Arrays, Library,
    ::testing::Values(
        ScriptRow{L"append #(1) 2", L"#(1, 2)"}, ScriptRow{L"appendIfUnique #(1) 1", L"false"},
        ScriptRow{L"findItem #(5, 6) 6", L"2"}, ScriptRow{L"findItem #(5, 6) 7", L"0"},
        ScriptRow{L"join #(1) #(2, 3)", L"#(1, 2, 3)"},
        ScriptRow{L"deleteItem #(1, 2, 3) 2", L"#(1, 3)"},
        ScriptRow{L"insertItem 9 #(1, 2) 2", L"#(1, 9, 2)"},
        ScriptRow{L"sort #(3, 1, 2)", L"#(1, 2, 3)"},
        ScriptRow{L"sort #(\"b\", \"a\")", L"#(\"a\", \"b\")"},
        ScriptRow{L"makeUniqueArray #(1, 2, 1)", L"#(1, 2)"},
        ScriptRow{L"(a = #(); a[3] = 1; a)", L"#(undefined, undefined, 1)"},
        ScriptRow{L"#(1)[2]", L"undefined"}, ScriptRow{L"(amax #(3, 9, 4)) + (amin 5 2)", L"11"},
        ScriptRow{L"fn odd a b = 1\n(qsort #(1, 2, 3, 4, 5) odd).count", L"5"}));

INSTANTIATE_TEST_SUITE_P(
    NumbersAndStreams, Library,
    ::testing::Values(
        ScriptRow{L"formattedPrint 2.2 format:\".6g\"", L"2.2"},
        ScriptRow{L"formattedPrint 10 format:\"04x\"", L"000a"},
        ScriptRow{L"formattedPrint 1 format:\"s\"",
                  L"error: formattedPrint: this form is not known here: s; line: 1, column: 1"},
        ScriptRow{L"mod 7 4", L"3.0"}, ScriptRow{L"floor 1.7", L"1.0"},
        ScriptRow{L"ceil 1.2", L"2.0"}, ScriptRow{L"abs -2.5", L"2.5"},
        ScriptRow{L"s = stringStream \"\"\nformat \"% and %\" 1 \"50%\" to:s\ns as string",
                  L"1 and 50%"},
        ScriptRow{L"s = stringStream \"\"\nprint #(1, \"a\") to:s\ns as string", L"#(1, \"a\")\n"},
        ScriptRow{L"format \"%\" to:5", L"error: format: more % than values; line: 1, column: 1"},
        ScriptRow{L"format \"x\" to:5", L"error: to: needs a stream, got: 5; line: 1, column: 1"}));

TEST(Listener, GetsWhatHasNoStream) {
    std::wstring told;
    standin::maxscript::Interpreter interpreter(
        [&told](const std::wstring& text) { told += text; });
    interpreter.run(L"print \"a\"\nformat \"%!\\n\" 5", L"");
    EXPECT_EQ(told, L"\"a\"\n5!\n");
}

} // namespace
