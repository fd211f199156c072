#pragma once

#include "base/windows.h"

#include <string>

namespace orv {

// A new GUID as 36 upper-case characters without braces; empty, with a line in "rud_http", when the
// system cannot make one.
std::wstring MakeGuidText();

// A function that makes GUIDs, such as CoCreateGuid.
using GuidSource = HRESULT(WINAPI*)(GUID*);
std::wstring MakeGuidText(GuidSource source);

// The text of a GUID: its parts in hexadecimal, 8-4-4-4-12 characters.
std::wstring FormatGuid(const GUID& guid);

} // namespace orv
