// The host's main window: title, menu bar, and a plain picture of the open scene.
#pragma once

#include "base/handles.h"
#include "base/noncopyable.h"
#include "base/windows.h"

#include <functional>
#include <string>
#include <vector>

namespace standin {

constexpr wchar_t kMainWindowClass[] = L"StandinHostWindow";

// What the client area shows.
struct SceneView {
    std::wstring title; // the scene's name
    std::wstring path;
    std::vector<std::wstring> objects;
    std::vector<std::wstring> cameras;
};

class MainWindow : private orv::rud_Noncopyable {
public:
    // What the window passes on, on its own thread. A handler may run for long (a modal dialog) and
    // may destroy the window.
    struct Handlers {
        std::function<void(int id)> command; // a menu command
        std::function<void()> close;         // the user wants to leave
    };

    explicit MainWindow(Handlers handlers);
    ~MainWindow();

    // Creates the window, hidden. False when the system refuses it.
    bool create();
    void destroy();
    void show();

    HWND handle() const { return window_; }
    void setTitle(const std::wstring& title);
    void setView(const SceneView& view);

    // Takes the menu over and gives the earlier one back to the system.
    void setMenuBar(HMENU menu);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void paint(HDC dc, const RECT& area) const;

    Handlers handlers_;
    HWND window_ = nullptr;
    SceneView view_;
    orv::FontHandle titleFont_;
    orv::FontHandle textFont_;
};

} // namespace standin
