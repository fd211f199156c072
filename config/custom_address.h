// The address override that may stand in custom.bin.
#pragma once

#include "base/windows.h"

#include <string>

namespace orv {

// Reads UTF-16LE text from the start of an open file up to its first zero character; the odd last
// byte of a file is dropped, a byte-order mark is kept as the character it is. At most the first 64
// MiB are read. False, with the system's error code in `error`, when the file cannot be read.
bool ReadWideText(HANDLE file, std::wstring& text, DWORD& error);

// Sets `address` to all that follows the first "=" of `text`, untrimmed. False, with `address`
// unchanged, when there is no "=".
bool TakeCustomAddress(const std::wstring& text, std::wstring& address);

} // namespace orv
