#include "tests/system/host/host_under_test.h"

#include "tests/support/files.h"
#include "tests/support/program_folder.h"

#include <algorithm>

namespace {

std::wstring ItemText(HMENU menu, int position) {
    wchar_t text[256] = {};
    MENUITEMINFOW item = {};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_STRING | MIIM_FTYPE | MIIM_STATE;
    item.dwTypeData = text;
    item.cch = 256;
    GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &item);
    if ((item.fType & MFT_SEPARATOR) != 0)
        return L"-";
    return (item.fState & MFS_GRAYED) != 0 ? std::wstring(L"*") + text : text;
}

HMENU PullDown(HMENU bar, const std::wstring& title) {
    for (int i = 0; i < GetMenuItemCount(bar); ++i) {
        if (ItemText(bar, i) == title)
            return GetSubMenu(bar, i);
    }
    return nullptr;
}

} // namespace

std::wstring MakePluginFolder(const SceneFolder& folder) {
    const std::wstring plugins = folder.file(L"plug-ins \u63D2\u4EF6");
    orv::test::WriteFileBytes(
        plugins + L"\\OrvRendering.gup",
        orv::test::ReadFileBytes(orv::test::ProgramFolder() + L"\\OrvRendering.gup"));
    return plugins;
}

std::vector<std::wstring> MenuTexts(HMENU menu) {
    std::vector<std::wstring> texts;
    for (int i = 0; menu != nullptr && i < GetMenuItemCount(menu); ++i)
        texts.push_back(ItemText(menu, i));
    return texts;
}

HostUnderTest::HostUnderTest(standin::HostOptions options)
    : host_(std::make_unique<standin::Host>(
          std::move(options), [this](const Json::Value& event) { events_.push_back(event); })) {}

std::vector<Json::Value> HostUnderTest::events(const std::string& name) const {
    std::vector<Json::Value> found;
    std::copy_if(events_.begin(), events_.end(), std::back_inserter(found),
                 [&name](const Json::Value& event) { return event["event"].asString() == name; });
    return found;
}

std::vector<std::wstring> HostUnderTest::menu(const std::wstring& title) const {
    return MenuTexts(PullDown(GetMenu(host_->window()), title));
}

bool HostUnderTest::choose(const std::wstring& menuTitle, const std::wstring& entry) {
    HMENU menu = PullDown(GetMenu(host_->window()), menuTitle);
    for (int i = 0; menu != nullptr && i < GetMenuItemCount(menu); ++i) {
        if (ItemText(menu, i) == entry) {
            SendMessageW(host_->window(), WM_COMMAND, GetMenuItemID(menu, i), 0);
            return true;
        }
    }
    return false;
}
