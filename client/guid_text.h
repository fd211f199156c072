#pragma once

#include <string>

namespace orv {

// A new GUID as 36 upper-case characters without braces; empty, with a line in "rud_http", when the
// system cannot make one.
std::wstring MakeGuidText();

} // namespace orv
