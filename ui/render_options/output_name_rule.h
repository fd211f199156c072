// What the name of a camera's output may be, while it is typed and when it is taken over.
#pragma once

#include <string>

namespace orv {

enum class TypedName {
    Accepted,
    TooLong,      // more than 100 characters; nothing is changed
    HasForbidden, // characters that no file name can have, which have to go
};

// Judges what was typed, which is cut to 260 characters first.
TypedName CheckTypedName(const std::wstring& text);

// `text` without the characters that HasIllegalNameChar finds, the per cent sign among them.
std::wstring WithoutForbiddenCharacters(const std::wstring& text);

// The text number of the message for a name with a blank at its beginning, or else at its end; 0
// when there is none at either.
unsigned BlankAtEndMessage(const std::wstring& name);

} // namespace orv
