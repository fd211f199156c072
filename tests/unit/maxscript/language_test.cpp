// What the language's reference says of literals, operators, branches, loops, functions,
// structures.
#include "tests/unit/maxscript/script_rows.h"

namespace {

class Language : public ScriptRows {};

TEST_P(Language, HasTheValueThatTheReferenceSays) {
    EXPECT_EQ(ValueOf(GetParam().script), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Literals, Language,
    ::testing::Values(
        ScriptRow{L"12", L"12"}, ScriptRow{L"0x1F", L"31"}, ScriptRow{L"1.5", L"1.5"},
        ScriptRow{L".5", L"0.5"}, ScriptRow{L"1e3", L"1000.0"}, ScriptRow{L"2.", L"2.0"},
        ScriptRow{L"0.00001", L"1e-05"}, ScriptRow{L"\"a\\tb\"", L"a\tb"},
        ScriptRow{L"\"C:\\dir\"", L"C:\\dir"}, ScriptRow{L"\"\\x4e2d\\xyz\"", L"\u4E2D\\xyz"},
        ScriptRow{L"@\"C:\\new\\text\\\"", L"C:\\new\\text\\"},
        ScriptRow{L"\"\\\"\\*\\?\\%\"", L"\"*?%"}, ScriptRow{L"\"two\nlines\"", L"two\nlines"},
        ScriptRow{L"#Name as string", L"Name"}, ScriptRow{L"#'two words' as string", L"two words"},
        ScriptRow{L"#(1, \"a\", #b)", L"#(1, \"a\", #b)"}, ScriptRow{L"#()", L"#()"},
        ScriptRow{L"true", L"true"}, ScriptRow{L"undefined", L"undefined"}, ScriptRow{L"ok", L"OK"},
        ScriptRow{L"10f", L"10f"}, ScriptRow{L"10f.frame", L"10.0"}));

INSTANTIATE_TEST_SUITE_P(
    Precedence, Language,
    ::testing::Values(
        ScriptRow{L"2 + 3 * 4", L"14"}, ScriptRow{L"(2 + 3) * 4", L"20"},
        ScriptRow{L"2 ^ 3 * 2", L"16"}, ScriptRow{L"10 - 2 - 3", L"5"}, ScriptRow{L"7 / 2", L"3"},
        ScriptRow{L"7 / 2.0", L"3.5"}, ScriptRow{L"-7 / 2", L"-3"},
        ScriptRow{L"2 * 3 as string",
                  L"error: Unable to convert: 3 to type: Integer; line: 1, column: 3"},
        ScriptRow{L"(2 * 3) as string + \"!\"", L"6!"}, ScriptRow{L"1 + 1 == 2", L"true"},
        ScriptRow{L"not 1 == 2", L"true"}, ScriptRow{L"not false and false", L"false"},
        ScriptRow{L"true or false and false", L"true"}, ScriptRow{L"abs -3 + 1", L"4"},
        ScriptRow{L"abs (-3) + 1", L"4"}, ScriptRow{L"(a = 5; a - 1)", L"4"},
        ScriptRow{L"\"abc\".count * 2", L"6"}, ScriptRow{L"#(1, 2)[2] + 1", L"3"},
        ScriptRow{L"toUpper \"a\" + \"b\"", L"Ab"}, ScriptRow{L"1 < 2 and 2 < 3", L"true"}));

INSTANTIATE_TEST_SUITE_P(
    Operators, Language,
    ::testing::Values(
        ScriptRow{L"1 == 1.0", L"true"}, ScriptRow{L"#A == #a", L"true"},
        ScriptRow{L"\"A\" == \"a\"", L"false"}, ScriptRow{L"\"1\" == 1", L"false"},
        ScriptRow{L"#(1, 2) == #(1, 2)", L"true"}, ScriptRow{L"undefined != 1", L"true"},
        ScriptRow{L"\"a\" < \"b\"", L"true"}, ScriptRow{L"#(1) + #(2)", L"#(1, 2)"},
        ScriptRow{L"\"a\" + \"b\"", L"ab"}, ScriptRow{L"2147483647 + 1", L"-2147483648"},
        ScriptRow{L"(a = 5; a += 2; a *= 3; a)", L"21"},
        ScriptRow{L"false and (throw \"not looked at\")", L"false"},
        ScriptRow{L"true or (throw \"not looked at\")", L"true"},
        ScriptRow{L"\"12\" as integer", L"12"}, ScriptRow{L"\"1.9\" as integer", L"1"},
        ScriptRow{L"\"x\" as integer", L"undefined"}, ScriptRow{L"-1.9 as integer", L"-1"},
        ScriptRow{L"\"1.5\" as float", L"1.5"}, ScriptRow{L"3 as float", L"3.0"},
        ScriptRow{L"undefined as string", L"undefined"},
        ScriptRow{L"(\"abc\" as name) == #ABC", L"true"},
        ScriptRow{L"classOf 1 as string", L"Integer"},
        ScriptRow{L"classOf \"a\" == String", L"true"}));

INSTANTIATE_TEST_SUITE_P(
    Control, Language,
    ::testing::Values(
        ScriptRow{L"if 1 == 1 then \"a\" else \"b\"", L"a"},
        ScriptRow{L"if 1 == 2 do 5", L"undefined"},
        ScriptRow{L"if 1 == 2 then 1\nelse if 2 == 2 then 2\nelse 3", L"2"},
        ScriptRow{L"for i = 1 to 3 collect i * i", L"#(1, 4, 9)"},
        ScriptRow{L"for i = 3 to 1 by -1 collect i", L"#(3, 2, 1)"},
        ScriptRow{L"for i = 1 to 2 by 0.5 collect i", L"#(1, 1.5, 2.0)"},
        ScriptRow{L"for i = 2 to 1 collect i", L"#()"},
        ScriptRow{L"for x in #(1, 2, 3, 4) where x > 2 collect x", L"#(3, 4)"},
        ScriptRow{L"for x in #(1, 2, 3, 4) while x < 3 collect x", L"#(1, 2)"},
        ScriptRow{L"for x in #(1, 2) collect (if x == 1 then dontCollect else x)", L"#(2)"},
        ScriptRow{L"(r = 0; for i = 1 to 9 do (if i == 4 do exit; r += i); r)", L"6"},
        ScriptRow{L"(r = 0; for i = 1 to 4 do (if i == 2 do continue; r += i); r)", L"8"},
        ScriptRow{L"(i = 0; while i < 5 do i += 2; i)", L"6"},
        ScriptRow{L"(i = 9; do i += 1 while i < 5; i)", L"10"},
        ScriptRow{L"case 2 of (1: \"a\"; 2: \"b\"; default: \"c\")", L"b"},
        ScriptRow{L"case #x of\n(\n  #y: 1\n  default: 2\n)", L"2"},
        ScriptRow{L"case of ((1 > 2): 1; (2 > 1): 2)", L"2"},
        ScriptRow{L"case 5 of (1: 2)", L"undefined"},
        ScriptRow{L"try (1 / 0) catch (\"caught\")", L"caught"},
        ScriptRow{L"try (throw \"why\") catch (getCurrentException())", L"why"},
        ScriptRow{L"try (try (throw \"a\") catch (throw())) catch (getCurrentException())", L"a"},
        ScriptRow{L"with redraw off (1 + 1)", L"2"}, ScriptRow{L"undo off (3)", L"3"},
        ScriptRow{L"(with undo \"x\" on 4)", L"4"}, ScriptRow{L"(1; 2\n 3)", L"3"},
        ScriptRow{L"()", L"OK"}, ScriptRow{L"1 \\\n + 2", L"3"},
        ScriptRow{L"-- comment\n/* more\n*/ 5 -- end", L"5"},
        ScriptRow{L"#(1,\n2,\n3)", L"#(1, 2, 3)"}, ScriptRow{L"a = 5\n-1", L"-1"}));

INSTANTIATE_TEST_SUITE_P(
    Functions, Language,
    ::testing::Values(ScriptRow{L"fn add a b = a + b\nadd 1 2", L"3"},
                      ScriptRow{L"function one = 1\none() + 1", L"2"},
                      ScriptRow{L"fn f a b:2 = a * b\n#(f 3, f 3 b:5)", L"#(6, 15)"},
                      ScriptRow{L"fn f a: = a == unsupplied\nf()", L"true"},
                      ScriptRow{L"fn fact n = if n < 2 then 1 else n * fact (n - 1)\nfact 5",
                                L"120"},
                      ScriptRow{L"fn f = (return 7; 8)\nf()", L"7"},
                      ScriptRow{L"fn f = (for i in #(1, 2) do return i)\nf()", L"1"},
                      ScriptRow{L"fn f &a = a = 9\nx = 1\nf &x\nx", L"9"},
                      ScriptRow{L"fn f a = a[1] = 5\nx = #(1)\nf x\nx", L"#(5)"},
                      ScriptRow{L"(fn inner a = a * 2\ninner 4)", L"8"},
                      ScriptRow{L"fn compare a b = b - a\nqsort #(1, 3, 2) compare", L"#(3, 2, 1)"},
                      ScriptRow{L"FN Add A B = A + B\nADD 1 2", L"3"}));

INSTANTIATE_TEST_SUITE_P(
    Structures, Language,
    ::testing::Values(
        ScriptRow{L"struct P (x = 1, y = 2, fn sum = x + y)\n(P()).sum()", L"3"},
        ScriptRow{L"struct P (x = 1, y)\n#((P 5 6).y, (P y:7).x)", L"#(6, 1)"},
        ScriptRow{
            L"struct P (n = 0, fn up = n += 1, fn twice = (up(); up()))\np = P()\np.twice()\np.n",
            L"2"},
        ScriptRow{L"struct P (a = 2, b = a * 3)\n(P()).b", L"6"},
        ScriptRow{L"struct M (fn twice x = x * 2)\nM.twice 4", L"8"},
        ScriptRow{L"struct P (x = 1, fn me = this)\n(P()).me().x", L"1"},
        ScriptRow{L"struct P (x, on create do x = 4)\n(P()).x", L"4"},
        ScriptRow{L"struct P (x = 1)\np = P()\nq = p\nq.x = 3\np.x", L"3"},
        ScriptRow{L"struct P (x = 1)\nP()", L"(P x:1)"},
        ScriptRow{L"struct P (x)\nisProperty (P()) #x and not isProperty (P()) #y", L"true"}));

} // namespace
