// window_probe: prints what is on the desktop as JSON, so that a script outside of Windows knows
// where to point and what a window says. Each line of its input is answered by one line of output,
// until the input ends: an array of visible top-level windows,
//   {"class", "caption", "process", "rect": [left, top, right, bottom], "enabled", "controls"}
// with visible child windows as {"class", "text", "id", "rect", "enabled"}; a button that can be
// checked has "checked", and a list view has "rows" of {"text", "rect", "checked"}.
#include "base/handles.h"
#include "base/noncopyable.h"
#include "base/windows.h"

#include <commctrl.h>
#include <json/json.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr UINT kAnswerTime = 2000; // milliseconds that a window may take to answer
constexpr int kMostRows = 200;
constexpr int kTextCapacity = 512;

std::string Utf8(const std::wstring& text) {
    if (text.empty()) {
        return std::string();
    }
    const int length = static_cast<int>(text.size());
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, text.c_str(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.c_str(), length, &bytes[0], size, nullptr, nullptr);
    return bytes;
}

// A window that hangs answers 0 after the time is over.
DWORD_PTR Ask(HWND window, UINT message, WPARAM first = 0, LPARAM second = 0) {
    DWORD_PTR answer = 0;
    return SendMessageTimeoutW(window, message, first, second, SMTO_ABORTIFHUNG, kAnswerTime,
                               &answer) != 0
               ? answer
               : 0;
}

std::wstring TextOf(HWND window) {
    std::vector<wchar_t> text(kTextCapacity, L'\0');
    Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.back() = L'\0';
    return text.data();
}

std::wstring ClassOf(HWND window) {
    wchar_t name[128] = L"";
    GetClassNameW(window, name, 128);
    return name;
}

Json::Value Rectangle(const RECT& rectangle) {
    Json::Value value(Json::arrayValue);
    for (const LONG edge : {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom}) {
        value.append(static_cast<Json::Int>(edge));
    }
    return value;
}

Json::Value WindowRectangle(HWND window) {
    RECT rectangle = {};
    GetWindowRect(window, &rectangle);
    return Rectangle(rectangle);
}

// Memory in another process, which list-view messages take their structures from.
class ForeignMemory : private orv::rud_Noncopyable {
public:
    ForeignMemory(HWND window, std::size_t size) {
        DWORD processId = 0;
        GetWindowThreadProcessId(window, &processId);
        process_.reset(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE,
                                   processId));
        if (process_) {
            address_ = VirtualAllocEx(process_.get(), nullptr, size, MEM_COMMIT, PAGE_READWRITE);
        }
    }
    ~ForeignMemory() {
        if (address_ != nullptr) {
            VirtualFreeEx(process_.get(), address_, 0, MEM_RELEASE);
        }
    }

    bool valid() const { return address_ != nullptr; }
    char* address() const { return static_cast<char*>(address_); }
    bool write(std::size_t offset, const void* data, std::size_t size) const {
        return WriteProcessMemory(process_.get(), address() + offset, data, size, nullptr) != 0;
    }
    bool read(std::size_t offset, void* data, std::size_t size) const {
        return ReadProcessMemory(process_.get(), address() + offset, data, size, nullptr) != 0;
    }

private:
    orv::ProcessHandle process_;
    void* address_ = nullptr;
};

Json::Value Rows(HWND list) {
    Json::Value rows(Json::arrayValue);
    const ForeignMemory memory(list, sizeof(LVITEMW) + kTextCapacity * sizeof(wchar_t));
    if (!memory.valid()) {
        return rows;
    }
    const int count = static_cast<int>(Ask(list, LVM_GETITEMCOUNT));
    for (int row = 0; row < count && row < kMostRows; ++row) {
        const WPARAM index = static_cast<WPARAM>(row);
        const LPARAM address = reinterpret_cast<LPARAM>(memory.address());
        Json::Value value(Json::objectValue);

        LVITEMW item = {};
        item.pszText = reinterpret_cast<wchar_t*>(memory.address() + sizeof(LVITEMW));
        item.cchTextMax = kTextCapacity;
        wchar_t text[kTextCapacity] = L"";
        memory.write(0, &item, sizeof(item));
        Ask(list, LVM_GETITEMTEXTW, index, address);
        memory.read(sizeof(LVITEMW), text, sizeof(text) - sizeof(wchar_t));
        value["text"] = Utf8(text);

        RECT bounds = {};
        bounds.left = LVIR_BOUNDS;
        memory.write(0, &bounds, sizeof(bounds));
        Ask(list, LVM_GETITEMRECT, index, address);
        memory.read(0, &bounds, sizeof(bounds));
        MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&bounds), 2);
        value["rect"] = Rectangle(bounds);

        const DWORD_PTR state = Ask(list, LVM_GETITEMSTATE, index, LVIS_STATEIMAGEMASK);
        value["checked"] = (state >> 12) == 2;
        rows.append(value);
    }
    return rows;
}

BOOL CALLBACK AddControl(HWND window, LPARAM parameter) {
    if (IsWindowVisible(window) == 0) {
        return TRUE;
    }
    Json::Value value(Json::objectValue);
    const std::wstring className = ClassOf(window);
    value["class"] = Utf8(className);
    value["text"] = Utf8(TextOf(window));
    value["id"] = GetDlgCtrlID(window);
    value["rect"] = WindowRectangle(window);
    value["enabled"] = IsWindowEnabled(window) != 0;
    if (className == L"Button" && (Ask(window, WM_GETDLGCODE) & DLGC_BUTTON) != 0) {
        value["checked"] = Ask(window, BM_GETCHECK) == BST_CHECKED;
    }
    if (className == WC_LISTVIEWW) {
        value["rows"] = Rows(window);
    }
    reinterpret_cast<Json::Value*>(parameter)->append(value);
    return TRUE;
}

BOOL CALLBACK AddWindow(HWND window, LPARAM parameter) {
    if (IsWindowVisible(window) == 0) {
        return TRUE;
    }
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    Json::Value value(Json::objectValue);
    value["class"] = Utf8(ClassOf(window));
    value["caption"] = Utf8(TextOf(window));
    value["process"] = static_cast<Json::UInt>(processId);
    value["rect"] = WindowRectangle(window);
    value["enabled"] = IsWindowEnabled(window) != 0;
    Json::Value controls(Json::arrayValue);
    EnumChildWindows(window, AddControl, reinterpret_cast<LPARAM>(&controls));
    value["controls"] = controls;
    reinterpret_cast<Json::Value*>(parameter)->append(value);
    return TRUE;
}

} // namespace

int main() {
    Json::StreamWriterBuilder builder;
    builder["emitUTF8"] = true;
    builder["indentation"] = "";
    while (std::getchar() == '\n') {
        Json::Value windows(Json::arrayValue);
        EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&windows));
        const std::string text = Json::writeString(builder, windows) + "\n";
        std::fwrite(text.data(), 1, text.size(), stdout);
        std::fflush(stdout);
    }
    return 0;
}
