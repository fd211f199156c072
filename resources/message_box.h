// Message boxes and texts for the C++ side.
#pragma once

#include "base/windows.h"

#include <initializer_list>
#include <string>

namespace orv {

// The text of number `id`, empty when there is none. Safe from any thread: no shared buffer.
std::wstring ResourceText(unsigned id);

// The same with each value in its place: the first one takes that of "%1", the second that of "%2".
std::wstring ResourceTextWith(unsigned id, std::initializer_list<std::wstring> values);

// Language of message boxes by the text of language marker 57: English for exactly "0", else 1.
WORD MessageBoxLanguage(const std::wstring& marker);

// Shows a message box with themed controls, owned by `owner` (may be null or closed meanwhile: then
// the box has no owner). Returns the button's id, 0 when the box could not be shown. Its language
// follows the language marker.
int ShowMessage(HWND owner, const std::wstring& text, const std::wstring& caption,
                UINT type = MB_OK);

// The same with both texts by number.
int ShowMessage(HWND owner, unsigned textId, unsigned captionId, UINT type = MB_OK);

// The same for a caller that looked the language marker's text up earlier, as the workers do.
int ShowMessage(HWND owner, const std::wstring& text, const std::wstring& caption, UINT type,
                const std::wstring& languageMarker);

} // namespace orv
