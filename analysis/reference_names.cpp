#include "analysis/reference_names.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace orv {
namespace {

// The class of each character is tested by itself. A regular expression would say the same, but the
// usual libraries recurse once a character, and a path of 30,000 characters overflows the stack.

constexpr char kLegalAscii[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                               "~!@#$&^(){}:\\; '`,.[]+_=/-";

// Full-width forms and typographic punctuation. Written by number, because several of them look
// alike.
constexpr char32_t kLegalPunctuation[] = {
    0xFF01, 0xFFE5, 0x2026, 0xFF08, 0xFF09, 0x2014, // exclamation, yen, ellipsis, parentheses, dash
    0x300C, 0x300D, 0x3010, 0x3011, 0x300A, 0x300B, // brackets in three forms
    0x3001, 0xFF1B, 0xFF0C, 0x3002, 0x00B7, // enumeration comma, semicolon, comma, stop, dot
    0x201C, 0x201D, 0x2018, 0x2019,         // quotation marks
};

constexpr std::size_t kAsciiCount = 128;

struct LegalAscii {
    LegalAscii() {
        for (const char* character = kLegalAscii; *character != 0; ++character)
            isLegal[static_cast<unsigned char>(*character)] = true;
    }

    std::array<bool, kAsciiCount> isLegal{};
};

bool IsLegalBeyondAscii(char32_t character) {
    return (0x4E00 <= character && character <= 0x9FFF) ||
           std::find(std::begin(kLegalPunctuation), std::end(kLegalPunctuation), character) !=
               std::end(kLegalPunctuation);
}

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0U) == 0x80U;
}

struct Character {
    char32_t code;
    std::size_t length; // bytes, 0 when the bytes are no character of this range
};

// The character of two or three bytes at `bytes`, which end with a zero byte. That zero is no
// continuation, so nothing behind it is looked at. Forms that are longer than they have to be, and
// halves of surrogate pairs, come out as characters that are not legal anyway.
Character CharacterAt(const unsigned char* bytes) {
    const bool hasTwo = bytes[0] >= 0xC2 && bytes[0] < 0xF0 && IsContinuation(bytes[1]);
    if (hasTwo && bytes[0] < 0xE0)
        return {((bytes[0] & 0x1FU) << 6U) | (bytes[1] & 0x3FU), 2};
    if (hasTwo && bytes[0] > 0xE0 && IsContinuation(bytes[2]))
        return {((bytes[0] & 0x0FU) << 12U) | ((bytes[1] & 0x3FU) << 6U) | (bytes[2] & 0x3FU), 3};
    return {0, 0};
}

} // namespace

bool HasCyrillic(const std::wstring& path) {
    return std::any_of(path.begin(), path.end(), [](wchar_t character) {
        return 0x0400 <= character && character <= 0x052F;
    });
}

bool IsLegalReferenceName(const char* path) {
    static const LegalAscii ascii;
    const unsigned char* at = reinterpret_cast<const unsigned char*>(path);
    const bool isEmpty = *at == 0;
    while (*at != 0) {
        if (*at < kAsciiCount) {
            if (!ascii.isLegal[*at])
                return false;
            ++at;
            continue;
        }
        const Character character = CharacterAt(at);
        if (character.length == 0 || !IsLegalBeyondAscii(character.code))
            return false;
        at += character.length;
    }
    return !isEmpty;
}

} // namespace orv
