// The rule for the paths of files that a scene refers to.
#pragma once

#include <string>

namespace orv {

// Whether a character of the Cyrillic or Cyrillic Supplement blocks (U+0400 to U+052F) is in
// `path`.
bool HasCyrillic(const std::wstring& path);

// Whether `path` has at least one character and only such as the farm can take in a path: ASCII
// letters and digits, CJK Unified Ideographs (U+4E00 to U+9FFF), and the punctuation listed with
// the function.
bool IsLegalReferenceName(const std::wstring& path);

} // namespace orv
