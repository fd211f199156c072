// The two conversions through the C run-time's locale, for any locale. The product itself calls
// AnsiToWide and WideToAnsi.
#pragma once

#include <string>

namespace orv {

// As AnsiToWide, for the code page of `locale`. Leaves the process locale at "C".
std::wstring MultibyteToWide(const std::string& text, const char* locale, bool& exact);

// As WideToAnsi, for the code page of `locale`. Restores the locale that was set before.
std::string WideToMultibyte(const std::wstring& text, const char* locale, bool& exact);

} // namespace orv
