#include "ui/camera_table/scene_name_field.h"

#include "analysis/text/text_convert.h"

#include <vector>

namespace orv {
namespace {

const wchar_t kSceneSuffix[] = L".max";
constexpr std::size_t kSceneSuffixLength = 4;

std::wstring TextOf(HWND window) {
    std::vector<wchar_t> buffer(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1);
    const int length = ::GetWindowTextW(window, buffer.data(), static_cast<int>(buffer.size()));
    return std::wstring(buffer.data(), static_cast<std::size_t>(length));
}

} // namespace

std::wstring SceneNameOf(const std::string& fileName) {
    std::wstring name = Utf8ToWide(fileName);
    if (name.size() >= kSceneSuffixLength &&
        ::lstrcmpiW(name.c_str() + name.size() - kSceneSuffixLength, kSceneSuffix) == 0)
        name.resize(name.size() - kSceneSuffixLength);
    return name;
}

void SetSceneName(HWND field, const std::string& fileName, ModuleLog& log) {
    const std::wstring name = SceneNameOf(fileName);
    ::SetWindowTextW(field, name.c_str());
    if (name.empty())
        log.write("The scene name is empty!", kWarn);
    else
        log.write("Set scene name successfully.", kInfo);
}

std::wstring GetSceneName(HWND field, ModuleLog& log) {
    const std::wstring name = TextOf(field) + kSceneSuffix;
    log.write("Get scene name text down, it is :" + WideToUtf8(name), kInfo);
    return name;
}

} // namespace orv
