#include "tests/system/shell/plugin_in_host.h"

#include "standin/maxutil.h"
#include "tests/support/program_folder.h"

#include <stdexcept>

namespace orv {
namespace test {

Texts Items(standin_menu* menu) {
    Texts texts;
    standin_item item;
    for (int i = 0; menu && standin_menu_item(menu, i, &item); ++i)
        if (item.kind == STANDIN_ITEM_SEPARATOR)
            texts.push_back(L"-");
        else
            texts.push_back((item.kind == STANDIN_ITEM_SUB_MENU ? L"> " : L"") +
                            std::wstring(item.title));
    return texts;
}

Texts MenuBar() {
    return Items(standin_menu_bar());
}

int MenusTitled(const wchar_t* title) {
    int count = 0;
    for (int i = 0; i < standin_registered_menu_count(); ++i)
        count += std::wstring(standin_menu_title(standin_registered_menu(i))) == title ? 1 : 0;
    return count;
}

std::string MenuFile(const std::string& title, bool withContext) {
    std::string file = "standin-menus 1\n"
                       "menu 1 registered " +
                       title +
                       "\n"
                       "item action 1168786313 1497 Old open\n"
                       "item command 5 Something else\n"
                       "menu 2 registered Main Menu Bar\n"
                       "item sub-menu 1\n"
                       "context 1 2 Main Menu Bar\n";
    if (withContext)
        file += "context " + std::to_string(kMenuContext) + " 1 " + title + "\n";
    return file;
}

PluginInHost::PluginInHost(unsigned short language) {
    standin_set_language(language);
    wchar_t reason[200];
    plugin_ = standin_plugin_load(PluginPath().c_str(), reason, 200);
    if (!plugin_) {
        const std::wstring text = reason;
        throw std::runtime_error(std::string(text.begin(), text.end()));
    }
}

PluginInHost::~PluginInHost() {
    standin_plugin_unload(plugin_);
}

std::wstring PluginPath() {
    return ProgramFolder() + L"\\OrvRendering.gup";
}

} // namespace test
} // namespace orv
