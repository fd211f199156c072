#include "standin/host/maxscript/operations.h"

#include <cmath>
#include <cwchar>

namespace standin {
namespace maxscript {
namespace {

[[noreturn]] void NoFunction(const std::wstring& symbol, const Value& left) {
    throw ScriptError(L"No \"\"" + symbol + L"\"\" function for " + ToText(left));
}

[[noreturn]] void CannotConvert(const Value& value, const std::wstring& type) {
    throw ScriptError(L"Unable to convert: " + ToText(value) + L" to type: " + type);
}

// Integers wrap round at 32 bits, as in the host.
int Wrapped(long long number) {
    return static_cast<int>(static_cast<unsigned>(static_cast<unsigned long long>(number)));
}

Value Whole(wchar_t symbol, long long left, long long right) {
    switch (symbol) {
    case L'+':
        return Value(Wrapped(left + right));
    case L'-':
        return Value(Wrapped(left - right));
    case L'*':
        return Value(Wrapped(left * right));
    case L'/':
        if (right == 0) {
            throw ScriptError(L"Integer division by zero");
        }
        return Value(Wrapped(left / right));
    default:
        return Value(Wrapped(static_cast<long long>(
            std::fmod(std::trunc(std::pow(static_cast<double>(left), static_cast<double>(right))),
                      9007199254740992.0))));
    }
}

Value Decimal(wchar_t symbol, float left, float right) {
    switch (symbol) {
    case L'+':
        return Value(left + right);
    case L'-':
        return Value(left - right);
    case L'*':
        return Value(left * right);
    case L'/':
        return Value(left / right);
    default:
        return Value(std::pow(left, right));
    }
}

Value Arithmetic(wchar_t symbol, const Value& left, const Value& right) {
    if (!right.isNumber()) {
        CannotConvert(right, ClassNameOf(left));
    }
    if (left.is(Value::Kind::Integer) && right.is(Value::Kind::Integer)) {
        return Whole(symbol, left.integer(), right.integer());
    }
    return Decimal(symbol, left.real(), right.real());
}

bool IsLess(const std::wstring& symbol, const Value& left, const Value& right) {
    if (left.isNumber() && right.isNumber()) {
        return left.is(Value::Kind::Integer) && right.is(Value::Kind::Integer)
                   ? left.integer() < right.integer()
                   : left.real() < right.real();
    }
    if (left.is(Value::Kind::Text) && right.is(Value::Kind::Text)) {
        return left.text() < right.text();
    }
    if (left.isNumber() || left.is(Value::Kind::Text)) {
        CannotConvert(right, ClassNameOf(left));
    }
    NoFunction(symbol, left);
}

Value Joined(const Value& left, const Value& right) {
    if (left.is(Value::Kind::Text)) {
        if (!right.is(Value::Kind::Text)) {
            CannotConvert(right, L"String");
        }
        return Value(left.text() + right.text());
    }
    const auto first = left.as<Array>();
    const auto second = right.as<Array>();
    if (!first) {
        NoFunction(L"+", left);
    }
    if (!second) {
        CannotConvert(right, L"Array");
    }
    Values all = first->values;
    all.insert(all.end(), second->values.begin(), second->values.end());
    return Value(std::make_shared<Array>(std::move(all)));
}

// The number that a text starts with; undefined when it starts with none.
Value NumberIn(const std::wstring& text, bool whole) {
    wchar_t* end = nullptr;
    const double number = std::wcstod(text.c_str(), &end);
    if (end == text.c_str() || !std::isfinite(number)) {
        return Value();
    }
    return whole ? Value(Wrapped(static_cast<long long>(std::fmod(number, 9007199254740992.0))))
                 : Value(static_cast<float>(number));
}

Value ToWhole(const Value& value) {
    if (value.is(Value::Kind::Text)) {
        return NumberIn(value.text(), true);
    }
    if (value.is(Value::Kind::Integer)) {
        return value;
    }
    if (!value.is(Value::Kind::Float) || !std::isfinite(value.real())) {
        CannotConvert(value, L"Integer");
    }
    return Value(Wrapped(
        static_cast<long long>(std::fmod(static_cast<double>(value.real()), 9007199254740992.0))));
}

} // namespace

Value Calculate(const std::wstring& symbol, const Value& left, const Value& right) {
    if (symbol == L"==") {
        return Value(AreEqual(left, right));
    }
    if (symbol == L"!=") {
        return Value(!AreEqual(left, right));
    }
    if (symbol == L"<") {
        return Value(IsLess(symbol, left, right));
    }
    if (symbol == L">") {
        return Value(IsLess(symbol, right, left));
    }
    if (symbol == L"<=") {
        return Value(!IsLess(symbol, right, left));
    }
    if (symbol == L">=") {
        return Value(!IsLess(symbol, left, right));
    }
    if (left.isNumber()) {
        return Arithmetic(symbol[0], left, right);
    }
    if (symbol == L"+") {
        return Joined(left, right);
    }
    NoFunction(symbol, left);
}

Value Negate(const Value& value) {
    if (value.is(Value::Kind::Integer)) {
        return Value(Wrapped(-static_cast<long long>(value.integer())));
    }
    if (!value.is(Value::Kind::Float)) {
        NoFunction(L"-", value);
    }
    return Value(-value.real());
}

Value Convert(const Value& value, const std::wstring& className) {
    if (className == L"string") {
        return Value(ToText(value));
    }
    if (className == L"integer") {
        return ToWhole(value);
    }
    if (className == L"float") {
        if (value.is(Value::Kind::Text)) {
            return NumberIn(value.text(), false);
        }
        if (!value.isNumber()) {
            CannotConvert(value, L"Float");
        }
        return Value(value.real());
    }
    if (className == L"name") {
        if (!value.is(Value::Kind::Text) && !value.is(Value::Kind::Name)) {
            CannotConvert(value, L"Name");
        }
        return Value::name(value.text());
    }
    if (className == L"array") {
        if (!value.is(Value::Kind::Object)) {
            CannotConvert(value, L"Array");
        }
        return Value(std::make_shared<Array>(value.object()->items()));
    }
    CannotConvert(value, className);
}

} // namespace maxscript
} // namespace standin
