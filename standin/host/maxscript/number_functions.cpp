#include "standin/host/maxscript/language_library.h"

#include "base/windows.h"

#include <cmath>
#include <cstdio>

namespace standin {
namespace maxscript {
namespace {

float FloatOf(const Value& value) {
    if (!value.isNumber()) {
        throw ScriptError(L"Unable to convert: " + ToText(value) + L" to type: Float");
    }
    return value.real();
}

// A number in a form such as ".6g" or "04x": the form of C's printf without its %. Only the known
// letters reach printf.
Value FormattedPrint(Interpreter&, const Arguments& a) {
    const std::wstring form = TextOf(a.get(L"format", Value(L"g")));
    const std::size_t letter = form.find_first_not_of(L"0123456789.-+ #");
    const bool whole = letter == form.size() - 1 &&
                       std::wstring(L"diuxXo").find(form[letter]) != std::wstring::npos;
    const bool decimal = letter == form.size() - 1 &&
                         std::wstring(L"eEfgG").find(form[letter]) != std::wstring::npos;
    if (form.empty() || form.size() > 12 || (!whole && !decimal)) {
        throw ScriptError(L"formattedPrint: this form is not known here: " + form);
    }
    std::string pattern = "%";
    for (const wchar_t each : form) {
        pattern.push_back(static_cast<char>(each));
    }
    char text[512];
    const int length =
        whole ? std::snprintf(text, sizeof(text), pattern.c_str(), IntegerOf(a.values[0]))
              : std::snprintf(text, sizeof(text), pattern.c_str(),
                              static_cast<double>(FloatOf(a.values[0])));
    if (length < 0 || static_cast<std::size_t>(length) >= sizeof(text)) {
        throw ScriptError(L"formattedPrint: too long");
    }
    return Value(std::wstring(text, text + length));
}

Value Extreme(const Arguments& a, const wchar_t* order) {
    const Values all =
        a.values.size() == 1 && a.values[0].as<Array>() ? ArrayOf(a.values[0])->values : a.values;
    Value best;
    for (const Value& each : all) {
        if (best.is(Value::Kind::Undefined) || Calculate(order, each, best).boolean()) {
            best = each;
        }
    }
    return best;
}

Value LocalTime() {
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    Values parts;
    for (const WORD each : {now.wYear, now.wMonth, now.wDayOfWeek, now.wDay, now.wHour, now.wMinute,
                            now.wSecond, now.wMilliseconds}) {
        parts.emplace_back(static_cast<int>(each));
    }
    return MakeArray(parts);
}

} // namespace

void AddNumberFunctions(Globals& globals) {
    globals.addFunction(L"formattedPrint", 1, 1, FormattedPrint);
    globals.addFunction(L"abs", 1, 1, [](Interpreter&, const Arguments& a) {
        return Calculate(L"<", a.values[0], Value(0)).boolean() ? Negate(a.values[0]) : a.values[0];
    });
    globals.addFunction(L"mod", 2, 2, [](Interpreter&, const Arguments& a) {
        return Value(std::fmod(FloatOf(a.values[0]), FloatOf(a.values[1])));
    });
    globals.addFunction(L"floor", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(std::floor(FloatOf(a.values[0])));
    });
    globals.addFunction(L"ceil", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(std::ceil(FloatOf(a.values[0])));
    });
    globals.addFunction(L"amin", 1, NativeFunction::kAny,
                        [](Interpreter&, const Arguments& a) { return Extreme(a, L"<"); });
    globals.addFunction(L"amax", 1, NativeFunction::kAny,
                        [](Interpreter&, const Arguments& a) { return Extreme(a, L">"); });
    globals.addFunction(L"timeStamp", 0, 0, [](Interpreter&, const Arguments&) {
        return Value(static_cast<int>(GetTickCount64() & 0x7FFFFFFFU));
    });
    globals.addFunction(L"getLocalTime", 0, 0,
                        [](Interpreter&, const Arguments&) { return LocalTime(); });
    globals.addVariable(L"localTime", [] {
        const Values t = ArrayOf(LocalTime())->values;
        wchar_t text[64];
        std::swprintf(text, 64, L"%d/%d/%d %02d:%02d:%02d", t[1].integer(), t[3].integer(),
                      t[0].integer(), t[4].integer(), t[5].integer(), t[6].integer());
        return Value(text);
    });
    globals.addFunction(L"gc", 0, 0, [](Interpreter&, const Arguments&) { return Value(0); });
}

} // namespace maxscript
} // namespace standin
