// Conversions between the three encodings of the product: UTF-16 inside the plug-in and at the
// host, UTF-8 in JSON and on the wire, the multibyte code page only for C run-time paths.
#pragma once

#include <cstddef>
#include <string>

namespace orv {

// Each conversion takes the whole string, embedded zero characters included. `exact`, where given,
// is set to whether the result has exactly the same characters. A text of 2 GiB or more, which
// the system's functions cannot take, becomes empty and clears `exact`.

// UTF-16 to UTF-8. A lone surrogate becomes U+FFFD and clears `exact`.
std::string WideToUtf8(const std::wstring& text, bool* exact = nullptr);

// The bytes that WideToUtf8 makes of the UTF-16 unit at `position`; each half of a surrogate pair
// has half of the pair's four.
std::size_t Utf8SizeAt(const std::wstring& text, std::size_t position);

// UTF-8 to UTF-16. Each ill-formed sequence becomes U+FFFD, one or several, and clears `exact`.
std::wstring Utf8ToWide(const std::string& text, bool* exact = nullptr);

// UTF-8 to the system's ANSI code page (CP_ACP). Empty, with `exact` cleared, when a character has
// no place in that code page: nothing is replaced by a question mark or a look-alike.
std::string Utf8ToAnsi(const std::string& text, bool* exact = nullptr);

// The next two set the locale of the whole process for the length of the call. Calls from several
// threads take turns; other users of the locale, such as printf of numbers on another thread, are
// not held back. Without the "chs" locale on the system, the locale that is current takes its
// place, and `exact` is cleared unless the text is ASCII.

// Multibyte text of the "chs" locale to UTF-16. Leaves the process locale at "C". Empty, with
// `exact` cleared, when the bytes are not valid in that code page.
std::wstring AnsiToWide(const std::string& text, bool* exact = nullptr);

// UTF-16 to multibyte text of the "chs" locale; restores the locale that was set before. Empty,
// with `exact` cleared, when a character has no place in that code page.
std::string WideToAnsi(const std::wstring& text, bool* exact = nullptr);

// AnsiToWide and WideToAnsi for the code page of any locale.
std::wstring MultibyteToWide(const std::string& text, const char* locale, bool& exact);
std::string WideToMultibyte(const std::wstring& text, const char* locale, bool& exact);

} // namespace orv
