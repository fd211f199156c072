#include "submit/dialog_input/scene_name_text.h"

#include <cwchar>

namespace orv {
namespace {

constexpr wchar_t kExtension[] = L".max";
constexpr std::size_t kExtensionLength = 4;

} // namespace

std::wstring SceneNameOf(const std::wstring& typed) {
    if (typed.size() < kExtensionLength)
        return typed;
    const std::size_t stemLength = typed.size() - kExtensionLength;
    return ::_wcsicmp(typed.c_str() + stemLength, kExtension) == 0 ? typed.substr(0, stemLength)
                                                                   : typed;
}

std::wstring SceneFileNameOf(const std::wstring& typed) {
    return SceneNameOf(typed) + kExtension;
}

bool IsUsableSceneName(const std::wstring& name) {
    if (name.empty())
        return true; // the scene then keeps the name it has
    return name.back() != L' ' && name.back() != L'.' && name.find(L'`') == std::wstring::npos;
}

} // namespace orv
