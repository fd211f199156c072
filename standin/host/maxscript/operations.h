// What the language does with values: operators, conversions, properties. All throw ScriptError for
// operands that the language does not take.
#pragma once

#include "standin/host/maxscript/object.h"

namespace standin {
namespace maxscript {

// + - * / ^ == != < <= > >=
Value Calculate(const std::wstring& symbol, const Value& left, const Value& right);
Value Negate(const Value& value);

// `value as className`; the class in lower case.
Value Convert(const Value& value, const std::wstring& className);

// A property of any value, by its name in lower case. FindProperty returns false when it is
// missing.
Value PropertyOf(const Value& target, const std::wstring& name);
bool FindProperty(const Value& target, const std::wstring& name, Value& value);

} // namespace maxscript
} // namespace standin
