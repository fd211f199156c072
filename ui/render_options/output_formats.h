// The output formats that the farm can write.
#pragma once

#include <string>
#include <vector>

namespace orv {

// Their names, in the order of the dialog's list.
std::vector<std::wstring> OutputFormats();

// The entry of `formats` to select for a camera's format: the one of that name, in any case; for
// "TIFF" and "TIF" the TIFF entry; else the first.
int FormatEntry(const std::vector<std::wstring>& formats, const std::wstring& format);

} // namespace orv
