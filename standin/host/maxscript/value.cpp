#include "standin/host/maxscript/value.h"

#include "standin/host/maxscript/object.h"

#include "base/windows.h"

#include <cmath>
#include <cstdio>

namespace standin {
namespace maxscript {
namespace {

constexpr int kLongestArray = 10000000; // an index beyond is a script's mistake, not a wish

// Six significant digits, and always recognisable as a decimal number.
std::wstring FloatText(float number) {
    if (std::isnan(number)) {
        return L"-1.#IND";
    }
    if (std::isinf(number)) {
        return number > 0 ? L"1.#INF" : L"-1.#INF";
    }
    char digits[32];
    std::snprintf(digits, sizeof(digits), "%g", static_cast<double>(number));
    std::wstring text(digits, digits + std::char_traits<char>::length(digits));
    if (text.find_first_of(L".e") == std::wstring::npos) {
        text += L".0";
    }
    return text;
}

int CheckedIndex(const Value& index) {
    if (!index.isNumber()) {
        throw ScriptError(L"Array index must be a number, got: " + ToText(index));
    }
    const float number = index.real();
    if (!(number >= 1.0F) || number > static_cast<float>(kLongestArray)) {
        throw ScriptError(L"Array index must be +ve number, got: " + ToText(index));
    }
    return index.is(Value::Kind::Integer) ? index.integer() : static_cast<int>(number);
}

} // namespace

Value::Value(std::shared_ptr<Object> object)
    : kind_(std::dynamic_pointer_cast<Reference>(object) ? Kind::Reference : Kind::Object),
      object_(std::move(object)) {}

Value Value::name(std::wstring text) {
    Value value(std::move(text));
    value.kind_ = Kind::Name;
    return value;
}

Value Value::special(Kind kind) {
    Value value;
    value.kind_ = kind;
    return value;
}

std::wstring ToText(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Undefined:
        return L"undefined";
    case Value::Kind::Unsupplied:
        return L"unsupplied";
    case Value::Kind::Ok:
        return L"OK";
    case Value::Kind::DontCollect:
        return L"dontCollect";
    case Value::Kind::Boolean:
        return value.boolean() ? L"true" : L"false";
    case Value::Kind::Integer:
        return std::to_wstring(value.integer());
    case Value::Kind::Float:
        return FloatText(value.real());
    case Value::Kind::Text:
    case Value::Kind::Name:
        return value.text();
    case Value::Kind::Reference:
    case Value::Kind::Object:
        break;
    }
    return value.object()->text();
}

std::wstring ToLiteral(const Value& value) {
    if (value.is(Value::Kind::Text)) {
        return L"\"" + value.text() + L"\"";
    }
    if (value.is(Value::Kind::Name)) {
        return L"#" + value.text();
    }
    return ToText(value);
}

std::wstring ClassNameOf(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Undefined:
    case Value::Kind::DontCollect:
        return L"UndefinedClass";
    case Value::Kind::Unsupplied:
        return L"UnsuppliedClass";
    case Value::Kind::Ok:
        return L"OkClass";
    case Value::Kind::Boolean:
        return L"BooleanClass";
    case Value::Kind::Integer:
        return L"Integer";
    case Value::Kind::Float:
        return L"Float";
    case Value::Kind::Text:
        return L"String";
    case Value::Kind::Name:
        return L"Name";
    case Value::Kind::Reference:
    case Value::Kind::Object:
        break;
    }
    return value.object()->className();
}

bool AreEqual(const Value& left, const Value& right) {
    if (left.isNumber() && right.isNumber()) {
        return left.is(Value::Kind::Integer) && right.is(Value::Kind::Integer)
                   ? left.integer() == right.integer()
                   : !(left.real() < right.real()) && !(left.real() > right.real());
    }
    if (left.kind() != right.kind()) {
        return false;
    }
    switch (left.kind()) {
    case Value::Kind::Boolean:
        return left.boolean() == right.boolean();
    case Value::Kind::Text:
        return left.text() == right.text();
    case Value::Kind::Name:
        return Fold(left.text()) == Fold(right.text());
    case Value::Kind::Object:
    case Value::Kind::Reference:
        return left.object() == right.object() || left.object()->equals(*right.object());
    default:
        return true;
    }
}

bool ToCondition(const Value& value, const wchar_t* where) {
    if (!value.is(Value::Kind::Boolean)) {
        throw ScriptError(L"Type error: " + std::wstring(where) + L" requires BooleanClass, got: " +
                          ToText(value));
    }
    return value.boolean();
}

std::wstring Fold(std::wstring text) {
    if (!text.empty()) {
        CharLowerBuffW(&text[0], static_cast<DWORD>(text.size()));
    }
    return text;
}

std::wstring ToUpper(std::wstring text) {
    if (!text.empty()) {
        CharUpperBuffW(&text[0], static_cast<DWORD>(text.size()));
    }
    return text;
}

std::wstring Array::text() const {
    std::wstring all = L"#(";
    for (std::size_t i = 0; i < values.size(); ++i) {
        all += (i == 0 ? L"" : L", ") + ToLiteral(values[i]);
    }
    return all + L")";
}

bool Array::equals(const Object& other) const {
    const auto* const that = dynamic_cast<const Array*>(&other);
    if (that == nullptr || that->values.size() != values.size()) {
        return false;
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!AreEqual(values[i], that->values[i])) {
            return false;
        }
    }
    return true;
}

bool Array::property(const std::wstring& name, Value& value) {
    if (name == L"count") {
        value = Value(static_cast<int>(values.size()));
        return true;
    }
    return false;
}

Value Array::item(const Value& index) {
    const std::size_t place = static_cast<std::size_t>(CheckedIndex(index));
    return place <= values.size() ? values[place - 1] : Value();
}

void Array::setItem(const Value& index, const Value& value) {
    const std::size_t place = static_cast<std::size_t>(CheckedIndex(index));
    if (place > values.size()) {
        values.resize(place);
    }
    values[place - 1] = value;
}

Value NativeFunction::call(Interpreter& interpreter, const Arguments& arguments) {
    const int count = static_cast<int>(arguments.values.size());
    if (count < least_ || count > most_) {
        throw ScriptError(L"Argument count error: " + name_ + L" wanted " +
                          std::to_wstring(count < least_ ? least_ : most_) + L", got " +
                          std::to_wstring(count));
    }
    return body_(interpreter, arguments);
}

} // namespace maxscript
} // namespace standin
