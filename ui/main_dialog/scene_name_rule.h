// Which scene names the farm can take.
#pragma once

#include <string>

namespace orv {

// Whether `name` is not empty and has only letters A to Z, digits, Chinese characters (U+4E00 to
// U+9FFF), blanks, the ASCII characters ~ ! @ # $ & ^ ( ) { } : . \ ; ' , [ ] + _ = - and common
// Chinese punctuation.
bool HasOnlySceneNameCharacters(const std::wstring& name);

// The file name `fileName` without its extension: what stands before the last ".".
std::wstring WithoutExtension(const std::wstring& fileName);

// Whether the farm can take a scene of file name `fileName` (no folder). Judges the name without
// its extension: beyond the characters above, it must not end in a blank or a ".". An empty file
// name, of a scene never saved, is accepted.
bool IsSceneFileNameAccepted(const std::wstring& fileName);

} // namespace orv
