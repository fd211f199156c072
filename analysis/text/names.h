// The rules for names: of scenes, of cameras and their output, of the files that a scene refers to.
//
// clang-format off
//   rule                        judges                            used by
//   HasIllegalNameChar          a camera's name in the scene      the reader of reports
//   StripChars                  (makes that an output name)       the reader of reports
//   CheckOutputName             the output name being typed       the render options dialog
//   OuterBlankOf                the output name to be applied     the render options dialog
//   IsUsableCameraName          the cameras' names at Submit      the check of the camera table
//   IsSceneFileNameAccepted     the open scene's file             the main dialog, when it opens
//   HasOnlySceneNameCharacters  the scene name that is shown      the main dialog, at Submit
//   IsUsableSceneName           the scene name that was chosen    the submission
//   IsPlainFileName             the file that a scene is saved to the submission
//   CanStandInFileNames         each character of a full path     IsFullPath (analysis/text/paths.h)
//   IsLegalReferenceName        the path of a referenced file     the reader of reports
//   HasCyrillic                 the same, when it is not legal    the reader of reports
// clang-format on
#pragma once

#include <string>

namespace orv {

// The characters that no file name can have on Windows. They are deleted from a camera's name. A
// per cent sign, which a file name can have, is refused by HasIllegalNameChar as well, but stays in
// the name.
constexpr wchar_t kDeletedNameChars[] = L"\\/:*?\"<>|";

// `text` without leading and trailing blanks (U+0020 only; tabs stay).
std::wstring TrimSpaces(const std::wstring& text);

// `text` without every character of `set`; unchanged when either is empty.
std::wstring StripChars(const std::wstring& text, const std::wstring& set);

// Whether `text` holds one of kDeletedNameChars or a per cent sign. `set` does not change the
// answer: the set is fixed.
bool HasIllegalNameChar(const std::wstring& text, const std::wstring& set = std::wstring());

// The name of a camera's output while it is typed.
enum class OutputName {
    Accepted,
    TooLong,      // more than 100 characters
    HasForbidden, // HasIllegalNameChar
};

// Judges what was typed, which is cut to 260 characters first.
OutputName CheckOutputName(const std::wstring& text);

// `text` without the characters that HasIllegalNameChar finds, the per cent sign among them.
std::wstring WithoutIllegalNameChars(const std::wstring& text);

// Whether a name begins with a blank, or else ends with one (U+0020 only).
enum class OuterBlank { None, Front, Back };
OuterBlank OuterBlankOf(const std::wstring& name);

// Whether the farm can use `name` for a folder and a file: not empty, no blank or full stop at
// either end, no illegal character (HasIllegalNameChar) and no back quote.
bool IsUsableCameraName(const std::wstring& name);

// The scene's name as it is typed, without ".max" at its end (in any case), so that "shot" and
// "shot.max" mean the same; and the file name for it, with ".max".
std::wstring SceneNameOf(const std::wstring& typed);
std::wstring SceneFileNameOf(const std::wstring& typed);

// Whether `name` is not empty and has only letters A to Z, digits, Chinese characters (U+4E00 to
// U+9FFF), blanks, the ASCII characters ~ ! @ # $ & ^ ( ) { } : . \ ; ' , [ ] + _ = - and common
// Chinese punctuation.
bool HasOnlySceneNameCharacters(const std::wstring& name);

// Whether the farm can take a scene of file name `fileName` (no folder). Judges the name without
// its extension: beyond the characters above, it must not end in a blank or a full stop. An empty
// file name, of a scene never saved, is accepted.
bool IsSceneFileNameAccepted(const std::wstring& fileName);

// Whether folders and archives can have this name: no blank or full stop at its end, no back quote.
// An empty name is: the scene then keeps the name it has.
bool IsUsableSceneName(const std::wstring& name);

// Whether names of files and folders can have `character`: no control character and none of
// kDeletedNameChars.
bool CanStandInFileNames(wchar_t character);

// Whether `name` is the name of an ordinary file in any folder: it has only characters that file
// names can have, hence no separator and no colon, which would name a stream of a file; it does not
// end in a blank or full stop; and it is not the name of a device, such as "con.max".
bool IsPlainFileName(const std::wstring& name);

// Whether `path` (UTF-8, up to its terminating zero) has at least one character and only such as
// the farm can take in a path: those of HasOnlySceneNameCharacters, the slash, the back quote and
// the middle dot (U+00B7). Malformed UTF-8 is not legal. Allocates no memory and
// takes about as long as a copy: a report may have hundreds of thousands of paths.
bool IsLegalReferenceName(const char* path);

// Whether a character of the Cyrillic or Cyrillic Supplement blocks (U+0400 to U+052F) is in
// `path`.
bool HasCyrillic(const std::wstring& path);

} // namespace orv
