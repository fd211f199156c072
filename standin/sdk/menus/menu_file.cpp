// One line for each thing, UTF-8, a title being the rest of its line (the README of the stand-in
// SDK has the format). A sub menu stands before the menu that shows it, so no file can describe a
// circle.
#include "menus/menu_file.h"
#include "menus/menu_manager.h"

#include <stdio.h>
#include <string.h>
#include <wchar.h>

namespace {

const char kHeader[] = "standin-menus 1";
const DWORD kLargestFile = 1 << 20;
const int kLongestTitle = 255;
const int kLargestMenuNumber = 10000;

// ---- reading ----

// The whole file with a zero at its end; null when it cannot be read. For the caller to free.
char* ReadWholeFile(const wchar_t* path) {
    HANDLE file =
        CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return nullptr;
    char* text = nullptr;
    const DWORD size = GetFileSize(file, nullptr);
    if (size <= kLargestFile) {
        text = static_cast<char*>(MaxHeapOperators::operator new[](size + 1));
        DWORD read = 0;
        if (!ReadFile(file, text, size, &read, nullptr))
            read = 0;
        text[read] = 0;
    }
    CloseHandle(file);
    return text;
}

// Walks through one line word by word.
class Line {
public:
    explicit Line(char* text) : at_(text) {}

    bool Word(const char* expected) {
        const size_t length = strlen(expected);
        if (strncmp(at_, expected, length) != 0 || (at_[length] != ' ' && at_[length] != 0))
            return false;
        at_ += length + (at_[length] == ' ' ? 1 : 0);
        return true;
    }
    bool Number(unsigned long& number) {
        unsigned long long value = 0;
        const char* start = at_;
        for (; *at_ >= '0' && *at_ <= '9'; ++at_) {
            value = value * 10 + static_cast<unsigned>(*at_ - '0');
            if (value > 0xffffffffULL)
                return false;
        }
        if (at_ == start || (*at_ != ' ' && *at_ != 0))
            return false;
        at_ += *at_ == ' ' ? 1 : 0;
        number = static_cast<unsigned long>(value);
        return true;
    }
    bool Title(MSTR& title) const {
        wchar_t text[kLongestTitle + 1] = {};
        if (*at_ &&
            !MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, at_, -1, text, kLongestTitle + 1))
            return false;
        title = text;
        return true;
    }
    bool AtEnd() const { return *at_ == 0; }

private:
    char* at_;
};

// What a file describes, built beside the present menus and given to the manager only when all of
// it was understood.
class Reader {
public:
    ~Reader() {
        for (int i = 0; i < menus_.Count(); ++i)
            delete menus_[i].menu;
        for (int i = 0; i < contexts_.Count(); ++i)
            delete contexts_[i];
    }

    bool Read(char* text) {
        bool header = false;
        for (char* next = text; next;) {
            char* line = next;
            next = strchr(line, '\n');
            if (next)
                *next++ = 0;
            const size_t length = strlen(line);
            if (length > 0 && line[length - 1] == '\r')
                line[length - 1] = 0;
            if (*line == 0)
                continue;
            if (!header && strcmp(line, kHeader) != 0)
                return false;
            if (header && !ReadLine(Line(line)))
                return false;
            header = true;
        }
        return header;
    }

    // Everything older goes; what was read takes its place.
    void Take(StandinMenuManager& manager) {
        manager.Clear(LiveMenuCount() - olderMenus_, LiveItemCount() - olderItems_);
        for (int i = 0; i < menus_.Count(); ++i)
            if (menus_[i].registered)
                manager.RegisterMenu(menus_[i].menu, 0);
        for (int i = 0; i < contexts_.Count(); ++i) {
            const MenuContextId id = static_cast<MenuContextId>(contexts_[i]->id);
            manager.RegisterMenuBarContext(id, contexts_[i]->name.data());
            manager.Context(id)->SetMenu(contexts_[i]->menu);
        }
        menus_.ZeroCount();
        manager.MainMenuBar();
    }

private:
    struct NumberedMenu {
        unsigned long number;
        bool registered;
        StandinMenu* menu;
    };
    struct ContextEntry : public MaxHeapOperators {
        unsigned long id = 0;
        StandinMenu* menu = nullptr;
        MSTR name;
    };

    bool ReadLine(Line line) {
        if (line.Word("menu"))
            return ReadMenu(line);
        if (line.Word("item"))
            return menus_.Count() > 0 && ReadItem(line, *menus_[menus_.Count() - 1].menu);
        return line.Word("context") && ReadContext(line);
    }

    bool ReadMenu(Line& line) {
        NumberedMenu entry = {0, false, nullptr};
        MSTR title;
        if (!line.Number(entry.number) || entry.number == 0 || Find(entry.number) ||
            menus_.Count() >= kLargestMenuNumber)
            return false;
        entry.registered = line.Word("registered");
        if ((!entry.registered && !line.Word("unregistered")) || !line.Title(title))
            return false;
        entry.menu = new StandinMenu;
        entry.menu->SetTitle(title.data());
        menus_.Append(1, &entry);
        return true;
    }

    bool ReadItem(Line& line, StandinMenu& menu) {
        unsigned long table = 0;
        unsigned long command = 0;
        unsigned long number = 0;
        MSTR title;
        if (line.Word("separator")) {
            menu.Append()->ActAsSeparator();
            return line.AtEnd();
        }
        if (line.Word("action")) {
            if (!line.Number(table) || !line.Number(command) || !line.Title(title))
                return false;
            menu.Append()->SetAction(table, static_cast<int>(command), title.data());
            return true;
        }
        if (line.Word("command")) {
            if (!line.Number(command) || !line.Title(title))
                return false;
            menu.Append()->SetHostCommand(static_cast<int>(command), title.data());
            return true;
        }
        if (!line.Word("sub-menu") || !line.Number(number) || !line.AtEnd())
            return false;
        StandinMenu* subMenu = Find(number);
        if (!subMenu || subMenu == &menu)
            return false;
        menu.Append()->SetSubMenu(subMenu);
        return true;
    }

    bool ReadContext(Line& line) {
        ContextEntry* entry = new ContextEntry;
        contexts_.Append(1, &entry);
        unsigned long number = 0;
        if (!line.Number(entry->id) || !line.Number(number) || !line.Title(entry->name))
            return false;
        entry->menu = Find(number);
        return number == 0 || entry->menu;
    }

    StandinMenu* Find(unsigned long number) {
        for (int i = 0; i < menus_.Count(); ++i)
            if (menus_[i].number == number)
                return menus_[i].menu;
        return nullptr;
    }

    const int olderMenus_ = LiveMenuCount();
    const int olderItems_ = LiveItemCount();
    Tab<NumberedMenu> menus_;
    Tab<ContextEntry*> contexts_;
};

// ---- writing ----

class Writer {
public:
    explicit Writer(HANDLE file) : file_(file) {}

    bool Write(StandinMenuManager& manager) {
        Put("%s\n", kHeader);
        for (int i = 0; i < manager.RegisteredMenuCount(); ++i)
            WriteMenu(*manager.RegisteredMenu(i));
        for (int i = 0; i < manager.NumContexts(); ++i) {
            StandinContext* context = static_cast<StandinContext*>(manager.GetContextByIndex(i));
            Put("context %lu %d ", static_cast<unsigned long>(context->GetId()),
                context->Menu() ? WriteMenu(*context->Menu()) : 0);
            PutTitle(context->GetName());
        }
        return !failed_;
    }

private:
    // Writes a menu after those that it shows; answers its number, 0 for one that shows itself.
    int WriteMenu(StandinMenu& menu) {
        for (int i = 0; i < numbered_.Count(); ++i)
            if (numbered_[i].menu == &menu)
                return numbered_[i].number;
        const int entry = numbered_.Count();
        const Numbered open = {&menu, 0};
        numbered_.Append(1, &open);
        Tab<int> subMenus; // by item; numbers are known before this menu's own lines begin
        for (int i = 0; i < menu.NumItems(); ++i) {
            StandinMenu* subMenu = menu.Item(i)->SubMenu();
            const int number = subMenu ? WriteMenu(*subMenu) : 0;
            subMenus.Append(1, &number);
        }
        numbered_[entry].number = ++lastNumber_;
        Put("menu %d %s ", lastNumber_,
            MenuManager().IsRegistered(&menu) ? "registered" : "unregistered");
        PutTitle(menu.GetTitle());
        const int number = lastNumber_;
        for (int i = 0; i < menu.NumItems(); ++i)
            WriteItem(*menu.Item(i), subMenus[i]);
        return number;
    }

    void WriteItem(StandinItem& item, int subMenu) {
        switch (item.GetActionMode()) {
        case IMenuItem::AM_SEPARATOR:
            Put("item separator\n");
            break;
        case IMenuItem::AM_ITEM:
            Put("item action %lu %lu ", item.Table(), static_cast<unsigned long>(item.Command()));
            PutTitle(item.GetTitle());
            break;
        case IMenuItem::AM_FN:
            Put("item command %lu ", static_cast<unsigned long>(item.Command()));
            PutTitle(item.GetTitle());
            break;
        case IMenuItem::AM_SUBMENU:
            if (subMenu > 0)
                Put("item sub-menu %d\n", subMenu);
            break;
        default:
            break;
        }
    }

    void PutTitle(const MSTR& title) {
        char text[4 * kLongestTitle + 1] = {};
        wchar_t line[kLongestTitle + 1];
        lstrcpynW(line, title.data(), kLongestTitle + 1);
        for (wchar_t* c = line; *c; ++c)
            if (*c == L'\n' || *c == L'\r')
                *c = L' ';
        WideCharToMultiByte(CP_UTF8, 0, line, -1, text, sizeof(text), nullptr, nullptr);
        Put("%s\n", text);
    }

    void Put(const char* format, ...) {
        char line[4 * kLongestTitle + 128];
        va_list arguments;
        va_start(arguments, format);
        const int length = _vsnprintf(line, sizeof(line), format, arguments);
        va_end(arguments);
        DWORD written = 0;
        if (length < 0 || !WriteFile(file_, line, static_cast<DWORD>(length), &written, nullptr) ||
            written != static_cast<DWORD>(length))
            failed_ = true;
    }

    struct Numbered {
        StandinMenu* menu;
        int number;
    };
    HANDLE file_;
    Tab<Numbered> numbered_;
    int lastNumber_ = 0;
    bool failed_ = false;
};

} // namespace

bool LoadMenus(const wchar_t* path) {
    char* text = ReadWholeFile(path);
    if (!text)
        return false;
    bool understood = false;
    {
        Reader reader;
        understood = reader.Read(text);
        if (understood)
            reader.Take(MenuManager());
    }
    MaxHeapOperators::operator delete[](text);
    return understood;
}

bool SaveMenus(const wchar_t* path) {
    HANDLE file = CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    const bool written = Writer(file).Write(MenuManager());
    CloseHandle(file);
    return written;
}
