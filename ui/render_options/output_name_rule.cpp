#include "ui/render_options/output_name_rule.h"

#include "analysis/text/name_rules.h"
#include "resources/texts.h"

namespace orv {
namespace {

constexpr std::size_t kMostCharactersRead = 260;
constexpr std::size_t kMostCharacters = 100;

} // namespace

TypedName CheckTypedName(const std::wstring& text) {
    const std::wstring name = text.substr(0, kMostCharactersRead);
    if (name.size() > kMostCharacters)
        return TypedName::TooLong;
    return HasIllegalNameChar(name) ? TypedName::HasForbidden : TypedName::Accepted;
}

std::wstring WithoutForbiddenCharacters(const std::wstring& text) {
    return StripChars(text, std::wstring(kDeletedNameChars) + L'%');
}

unsigned BlankAtEndMessage(const std::wstring& name) {
    if (name.empty())
        return 0;
    if (name.front() == L' ')
        return IDS_NAME_BEGINS_WITH_SPACE;
    return name.back() == L' ' ? IDS_NAME_ENDS_WITH_SPACE : 0;
}

} // namespace orv
