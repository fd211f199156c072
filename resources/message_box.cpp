#include "resources/message_box.h"

#include "resources/activation_context.h"
#include "resources/text.h"
#include "resources/texts.h"

namespace orv {
namespace {

constexpr int kTextSize = 256; // the same limit as the loaders in text.h

constexpr WORD kEnglish = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
// The number asked for where the texts are not English. Windows has no buttons for it unless its
// language is installed, and then labels them in the language of the user.
constexpr WORD kNotEnglish = 1;

} // namespace

std::wstring ResourceText(unsigned id) {
    const HINSTANCE module = orv_resource_module();
    if (module == nullptr)
        return {};
    wchar_t buffer[kTextSize];
    const int length = ::LoadStringW(module, id, buffer, kTextSize);
    return length > 0 ? std::wstring(buffer, static_cast<std::size_t>(length)) : std::wstring();
}

std::wstring ResourceTextWith(unsigned id, std::initializer_list<std::wstring> values) {
    std::wstring text = ResourceText(id);
    int number = 0;
    for (const std::wstring& value : values) {
        const std::wstring mark = L"%" + std::to_wstring(++number);
        const std::size_t at = text.find(mark);
        if (at != std::wstring::npos)
            text.replace(at, mark.size(), value);
    }
    return text;
}

WORD MessageBoxLanguage(const std::wstring& marker) {
    return marker == L"0" ? kEnglish : kNotEnglish;
}

int ShowMessage(HWND owner, const std::wstring& text, const std::wstring& caption, UINT type,
                const std::wstring& languageMarker) {
    const ActivationContextScope themedControls;
    const WORD language = MessageBoxLanguage(languageMarker);
    const int button = ::MessageBoxExW(owner, text.c_str(), caption.c_str(), type, language);
    if (button > 0 || owner == nullptr || ::IsWindow(owner))
        return button;
    // The user closed the dialog while a submission ran: its messages still appear.
    return ::MessageBoxExW(nullptr, text.c_str(), caption.c_str(), type | MB_SETFOREGROUND,
                           language);
}

int ShowMessage(HWND owner, const std::wstring& text, const std::wstring& caption, UINT type) {
    return ShowMessage(owner, text, caption, type, ResourceText(IDS_LANGUAGE_MARKER));
}

int ShowMessage(HWND owner, unsigned textId, unsigned captionId, UINT type) {
    return ShowMessage(owner, ResourceText(textId), ResourceText(captionId), type);
}

} // namespace orv
