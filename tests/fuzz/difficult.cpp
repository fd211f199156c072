#include "tests/fuzz/difficult.h"

namespace orv {
namespace fuzz {
namespace {

std::string Repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

std::vector<std::string> MakeTexts() {
    return {
        "",
        " ",
        "   ",
        ".",
        "..",
        "../../..",
        "..\\..\\windows\\system32\\drivers\\etc\\hosts",
        "room.",
        "room ",
        "a`b",
        "con",
        "CON.max",
        "nul",
        "aux.7z",
        "COM1",
        "lpt9.txt",
        "con\xC2\xB9",
        "room.max:stream",
        "room.max::$DATA",
        "\\\\?\\C:\\room.max",
        "\\\\.\\pipe\\room",
        "\\\\server\\share\\room.max",
        "D:room.max",
        "D:/scenes\\room.max",
        "D:\\\\scenes//room.max",
        "/",
        "\\",
        "\"",
        "\" -o\"D:\\\\",
        "a\" \"b",
        "a\\\"b",
        "'; deleteFile \"room.max\" --",
        "%s%s%s%n",
        "%1!s! %99999d",
        "%PATH%",
        "$(room)",
        "{0}",
        "0",
        "-0",
        "-1",
        "+1",
        "1e308",
        "1e309",
        "-1e309",
        "1e-400",
        "nan",
        "inf",
        "0x7FFFFFFF",
        "2147483647",
        "2147483648",
        "-2147483648",
        "-2147483649",
        "4294967296",
        "9223372036854775807",
        "9223372036854775808",
        "99999999999999999999999999999999999999",
        "1,5",
        "1.5.5",
        "\xD9\xA1\xD9\xA2",         // digits of another script
        "\xEF\xBC\x91\xEF\xBC\x92", // wide digits
        "true",
        "false",
        "null",
        "\t\r\n\v\f",
        "line\nline",
        "line\r\n[general]\r\nport=1",
        "key=value=value",
        "a;b",
        "[general]",
        std::string("zero\0within", 11),
        std::string(1, '\0'),
        "\x01\x02\x1B[31m\x7F",
        "\xEF\xBB\xBF"
        "mark",
        "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F",
        "a\xCC\x88\xCC\xA3\xCC\x81", // marks upon marks
        "\xE5\xAE\xA2\xE5\x8E\x85.max",
        "\xE5\x9C\xBA\xE6\x99\xAF/\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E",
        "\xD0\xBA\xD0\xBE\xD0\xBC\xD0\xBD\xD0\xB0\xD1\x82\xD0\xB0.jpg",
        "\xD8\xBA\xD8\xB1\xD9\x81\xD8\xA9",
        "\xE2\x80\xAE"
        "xam.moor", // turns the direction of what follows
        "\xE2\x80\x8B\xE2\x80\x8D\xEF\xBB\xBF",
        "\xE2\x80\xA8\xE2\x80\xA9",
        "\xF0\x9F\x92\xBE\xF0\x9F\x8E\xA5",
        "\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x9A\x80",
        "\xF4\x8F\xBF\xBF", // the last character there is
        "\xF4\x90\x80\x80", // the one behind it
        "\xC0\x80",         // zero, longer than it needs to be
        "\xC0\xAF\xE0\x80\xAF",
        "\xED\xA0\x80",             // half a pair
        "\xED\xA0\xBD\xED\xB2\xBE", // a pair, each half by itself
        "\xE5\xAE",                 // cut off
        "\xF0\x9F\x92",
        "\x80\xBF\xFE\xFF",
        "\xEF\xBF\xBE\xEF\xBF\xBF",
        "\xEF\xBF\xBD",
        Repeated("a", 259),
        Repeated("a", 260),
        Repeated("\xE5\xAE\xA2", 260),
        Repeated("..\\", 100),
        Repeated("\\", 300),
        Repeated("a.", 200),
        Repeated("\xF0\x9F\x92\xBE", 130),
        Repeated("<>:\"/\\|?*%", 40),
        Repeated("x", 4095),
        Repeated("x", 4096),
        Repeated("long ", 1000),
    };
}

std::vector<std::string> MakeJson() {
    return {
        "",
        " ",
        "{}",
        "[]",
        "null",
        "0",
        "\"text\"",
        "{",
        "}",
        "[",
        "{\"a\":}",
        "{\"a\"}",
        "{\"a\":1,}",
        "[1,]",
        "[,1]",
        "[1 2]",
        "{\"a\":1 \"b\":2}",
        "{a:1}",
        "{'a':1}",
        "{\"a\":1}{\"b\":2}",
        "{\"a\":1}]",
        "{\"a\":1,\"a\":2,\"a\":{}}",
        "{\"\":\"\"}",
        "{\"cameras\":{\"cameras\":[[[]]]}}",
        "[01]",
        "[1.]",
        "[.1]",
        "[-]",
        "[+1]",
        "[1e]",
        "[1e99999]",
        "[-1e-99999]",
        "[0x10]",
        "[NaN,Infinity,-Infinity]",
        "[18446744073709551616]",
        "[-9223372036854775809]",
        "[tru]",
        "[True]",
        "\"unclosed",
        "\"\\",
        "\"\\u12\"",
        "\"\\u0000\"",
        "\"\\uD800\"",
        "\"\\uDC00\\uD800\"",
        "\"\\uD83D\\uDCBE\"",
        "\"\\uD83D\\u0041\"",
        "\"\\x41\"",
        "\"\t\"",
        "\"\n\"",
        std::string("{\"a\":\"\0\"}", 9),
        std::string("{\0}", 3),
        "\xEF\xBB\xBF{\"a\":1}",
        "\xFF\xFE{\"a\":1}",
        "{\"\xED\xA0\x80\":\"\xC0\x80\"}",
        "/* open",
        "// only a comment",
        "{/**/\"a\"/*x*/:/*y*/1/*z*/}//end",
        "[1]/",
        "[1]/*",
        Repeated("[", 100),
        Repeated("[", 999) + Repeated("]", 999),
        Repeated("[", 1001) + Repeated("]", 1001),
        Repeated("{\"a\":", 999) + "1" + Repeated("}", 999),
        Repeated("{\"a\":", 1200),
        "[" + Repeated("1", 2000) + "]",
        "[0." + Repeated("9", 2000) + "]",
        "{\"" + Repeated("k", 4000) + "\":1}",
        "[\"" + Repeated("\\u0041", 700) + "\"]",
        "[" + Repeated("null,", 700) + "null]",
    };
}

} // namespace

const std::vector<std::string>& DifficultTexts() {
    static const std::vector<std::string> texts = MakeTexts();
    return texts;
}

const std::vector<std::string>& DifficultJson() {
    static const std::vector<std::string> documents = MakeJson();
    return documents;
}

} // namespace fuzz
} // namespace orv
