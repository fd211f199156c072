// The rule for the paths of files that a scene refers to.
#pragma once

#include <string>

namespace orv {

// Whether a character of the Cyrillic or Cyrillic Supplement blocks (U+0400 to U+052F) is in
// `path`.
bool HasCyrillic(const std::wstring& path);

// Whether `path` (UTF-8, up to its terminating zero) has at least one character and only such as
// the farm can take in a path: ASCII letters and digits, CJK Unified Ideographs (U+4E00 to U+9FFF),
// and the punctuation listed with the function. A path that is no proper UTF-8 is not legal. Takes
// no memory and about as long as a copy: a report may have hundreds of thousands of paths.
bool IsLegalReferenceName(const char* path);

} // namespace orv
