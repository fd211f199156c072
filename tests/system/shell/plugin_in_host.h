// The plug-in in a host without a window, and that host's menus as the user would see them.
#pragma once

#include "standin/gup.h"
#include "standin/menus.h"
#include "tests/hosts/bare_host.h"

#include <string>
#include <vector>

namespace orv {
namespace test {

constexpr int kStartup = 0x50; // the notification after the host has started
constexpr unsigned long kTable = 0x45AA4389;
constexpr unsigned long kActionContext = 0x21933FB3;
constexpr int kMenuContext = 0x411A1C29;
constexpr int kOpen = 1497;
constexpr int kAbout = 1498;
constexpr wchar_t kMenuTitle[] = L"Orv Rendering";
constexpr wchar_t kOldMenuTitle[] = L"Orv Render"; // of an earlier release, English

constexpr unsigned short kEnglish = 0x0409;
constexpr unsigned short kChinese = 0x0804;

using Texts = std::vector<std::wstring>;

// What a menu shows: labels, "-" for a separator, "> title" for a sub menu.
Texts Items(standin_menu* menu);
// The main menu bar.
Texts MenuBar();
// How many registered menus have that title.
int MenusTitled(const wchar_t* title);

// A menu file as earlier runs may have left it: a registered menu in the main menu bar with two
// items, and the product's menu context where `withContext` says so.
std::string MenuFile(const std::string& title, bool withContext);

// The plug-in, loaded and started; stopped and unloaded at the end of the scope.
class PluginInHost : private rud_Noncopyable {
public:
    explicit PluginInHost(unsigned short language = kEnglish);
    ~PluginInHost();

    standin_plugin* operator()() const { return plugin_; }
    HMODULE module() const { return standin_plugin_module(plugin_); }

private:
    standin_plugin* plugin_;
};

std::wstring PluginPath();

} // namespace test
} // namespace orv
