#include "standin/host/maxscript/language_library.h"

#include <algorithm>

namespace standin {
namespace maxscript {
namespace {

constexpr wchar_t kBlanks[] = L" \t\r\n";

Value Substring(Interpreter&, const Arguments& a) {
    const std::wstring& text = TextOf(a.values[0]);
    const int from = IntegerOf(a.values[1]);
    const int count = IntegerOf(a.values[2]);
    if (from < 1 || static_cast<std::size_t>(from) > text.size()) {
        return Value(L"");
    }
    return Value(text.substr(static_cast<std::size_t>(from) - 1,
                             count < 0 ? std::wstring::npos : static_cast<std::size_t>(count)));
}

Value SubstituteString(Interpreter&, const Arguments& a) {
    std::wstring text = TextOf(a.values[0]);
    const std::wstring& from = TextOf(a.values[1]);
    const std::wstring& to = TextOf(a.values[2]);
    if (from.empty()) {
        return Value(text);
    }
    std::wstring made;
    std::size_t at = 0;
    for (std::size_t found = text.find(from); found != std::wstring::npos;
         found = text.find(from, at)) {
        made.append(text, at, found - at).append(to);
        at = found + from.size();
    }
    return Value(made.append(text, at, std::wstring::npos));
}

// From 1; undefined when it is not there.
Value FindString(Interpreter&, const Arguments& a) {
    const std::size_t found = TextOf(a.values[0]).find(TextOf(a.values[1]));
    return found == std::wstring::npos ? Value() : Value(static_cast<int>(found) + 1);
}

Value ReplacePart(Interpreter&, const Arguments& a) {
    std::wstring text = TextOf(a.values[0]);
    const int from = IntegerOf(a.values[1]);
    const int count = IntegerOf(a.values[2]);
    if (from < 1 || count < 0 || static_cast<std::size_t>(from) > text.size()) {
        throw ScriptError(L"replace: out of the text's range");
    }
    return Value(text.replace(static_cast<std::size_t>(from) - 1, static_cast<std::size_t>(count),
                              TextOf(a.values[3])));
}

// * stands for any characters, ? for one. Without recursion: the last * is tried again further on.
bool Matches(const std::wstring& text, const std::wstring& pattern) {
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t star = std::wstring::npos;
    std::size_t retry = 0;
    while (t < text.size()) {
        if (p < pattern.size() && (pattern[p] == L'?' || pattern[p] == text[t]) &&
            pattern[p] != L'*') {
            ++t;
            ++p;
        } else if (p < pattern.size() && pattern[p] == L'*') {
            star = p++;
            retry = t;
        } else if (star != std::wstring::npos) {
            p = star + 1;
            t = ++retry;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', p) == std::wstring::npos;
}

Value MatchPattern(Interpreter&, const Arguments& a) {
    std::wstring text = TextOf(a.values[0]);
    std::wstring pattern = TextOf(a.get(L"pattern", Value(L"*")));
    if (ToCondition(a.get(L"ignorecase", Value(true)), L"ignoreCase:")) {
        text = Fold(std::move(text));
        pattern = Fold(std::move(pattern));
    }
    return Value(Matches(text, pattern));
}

Value FilterString(Interpreter&, const Arguments& a) {
    const std::wstring& text = TextOf(a.values[0]);
    const std::wstring& separators = TextOf(a.values[1]);
    const bool keepEmpty =
        ToCondition(a.get(L"splitemptytokens", Value(false)), L"splitEmptyTokens:");
    std::vector<std::wstring> parts;
    std::size_t from = 0;
    while (from <= text.size()) {
        const std::size_t end = std::min(text.find_first_of(separators, from), text.size());
        if (keepEmpty || end > from) {
            parts.push_back(text.substr(from, end - from));
        }
        from = end + 1;
    }
    return MakeTexts(parts);
}

int Compared(const std::wstring& left, const std::wstring& right) {
    return left < right ? -1 : (right < left ? 1 : 0);
}

Value CharAsInt(Interpreter&, const Arguments& a) {
    const std::wstring& text = TextOf(a.values[0]);
    if (text.empty()) {
        throw ScriptError(L"bit.charAsInt: an empty text");
    }
    return Value(static_cast<int>(text[0]));
}

Value IntAsChar(Interpreter&, const Arguments& a) {
    return Value(std::wstring(1, static_cast<wchar_t>(IntegerOf(a.values[0]) & 0xFFFF)));
}

} // namespace

void AddTextFunctions(Globals& globals) {
    globals.addFunction(L"substring", 3, 3, Substring);
    globals.addFunction(L"substituteString", 3, 3, SubstituteString);
    globals.addFunction(L"findString", 2, 2, FindString);
    globals.addFunction(L"replace", 4, 4, ReplacePart);
    globals.addFunction(L"matchPattern", 1, 1, MatchPattern);
    globals.addFunction(L"filterString", 2, 2, FilterString);
    globals.addFunction(L"toLower", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(Fold(TextOf(a.values[0])));
    });
    globals.addFunction(L"toUpper", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(ToUpper(TextOf(a.values[0])));
    });
    globals.addFunction(L"trimLeft", 1, 2, [](Interpreter&, const Arguments& a) {
        const std::wstring& text = TextOf(a.values[0]);
        const std::size_t from =
            text.find_first_not_of(a.values.size() > 1 ? TextOf(a.values[1]) : kBlanks);
        return Value(from == std::wstring::npos ? std::wstring() : text.substr(from));
    });
    globals.addFunction(L"trimRight", 1, 2, [](Interpreter&, const Arguments& a) {
        const std::wstring& text = TextOf(a.values[0]);
        return Value(text.substr(
            0, text.find_last_not_of(a.values.size() > 1 ? TextOf(a.values[1]) : kBlanks) + 1));
    });
    globals.addFunction(L"stricmp", 2, 2, [](Interpreter&, const Arguments& a) {
        return Value(Compared(Fold(TextOf(a.values[0])), Fold(TextOf(a.values[1]))));
    });
    const auto bit = std::make_shared<Record>(L"bit");
    bit->add(L"charAsInt", 1, 1, CharAsInt).add(L"intAsChar", 1, 1, IntAsChar);
    const auto bits = [&bit](const wchar_t* name, int (*combine)(int, int)) {
        bit->add(name, 2, 2, [combine](Interpreter&, const Arguments& a) {
            return Value(combine(IntegerOf(a.values[0]), IntegerOf(a.values[1])));
        });
    };
    bits(L"and", [](int left, int right) { return left & right; });
    bits(L"or", [](int left, int right) { return left | right; });
    bits(L"xor", [](int left, int right) { return left ^ right; });
    globals.addValue(L"bit", Value(bit));
}

} // namespace maxscript
} // namespace standin
