#include "standin/host/main_window.h"

#include <exception>

namespace standin {
namespace {

constexpr COLORREF kBackground = RGB(0x44, 0x44, 0x44);
constexpr COLORREF kBand = RGB(0x33, 0x33, 0x33);
constexpr COLORREF kText = RGB(0xE6, 0xE6, 0xE6);
constexpr COLORREF kQuietText = RGB(0xA8, 0xA8, 0xA8);
constexpr int kStandardDpi = 96;

HINSTANCE Instance() {
    return GetModuleHandleW(nullptr);
}

int Dpi() {
    HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : kStandardDpi;
}

int Scaled(int pixels) {
    return MulDiv(pixels, Dpi(), kStandardDpi);
}

orv::FontHandle MakeFont(int pixels, int weight) {
    return orv::FontHandle(CreateFontW(-Scaled(pixels), 0, 0, 0, weight, FALSE, FALSE, FALSE,
                                       DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                       CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_SWISS, L"Segoe UI"));
}

// Selects an object into a device context for one scope.
class Selected : private orv::rud_Noncopyable {
public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
    ~Selected() { SelectObject(dc_, before_); }

private:
    HDC dc_;
    HGDIOBJ before_;
};

void Fill(HDC dc, const RECT& area, COLORREF color) {
    const orv::BrushHandle brush(CreateSolidBrush(color));
    FillRect(dc, &area, brush.get());
}

void DrawLine(HDC dc, HFONT font, COLORREF color, const std::wstring& text, RECT area) {
    const Selected selected(dc, font);
    SetTextColor(dc, color);
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area,
              DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void DrawList(HDC dc, HFONT font, const std::wstring& heading,
              const std::vector<std::wstring>& names, RECT area) {
    const int line = Scaled(20);
    DrawLine(dc, font, kQuietText, heading, area);
    area.top += line;
    for (const std::wstring& name : names) {
        area.top += line;
        if (area.top > area.bottom)
            return;
        DrawLine(dc, font, kText, name, area);
    }
}

bool RegisterWindowClass(WNDPROC procedure) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = Instance();
    windowClass.hIcon = LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_APPLICATION));
    windowClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    windowClass.lpszClassName = kMainWindowClass;
    return RegisterClassExW(&windowClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

} // namespace

MainWindow::MainWindow(Handlers handlers) : handlers_(std::move(handlers)) {}

MainWindow::~MainWindow() {
    destroy();
}

bool MainWindow::create() {
    if (!RegisterWindowClass(&MainWindow::Procedure))
        return false;
    titleFont_ = MakeFont(24, FW_NORMAL);
    textFont_ = MakeFont(14, FW_NORMAL);
    CreateWindowExW(0, kMainWindowClass, L"", WS_OVERLAPPEDWINDOW, Scaled(40), Scaled(30),
                    Scaled(1100), Scaled(700), nullptr, nullptr, Instance(), this);
    return window_ != nullptr;
}

void MainWindow::destroy() {
    if (window_ != nullptr)
        DestroyWindow(window_); // its menu bar goes with it
    titleFont_.reset();
    textFont_.reset();
    UnregisterClassW(kMainWindowClass, Instance());
}

void MainWindow::show() {
    ShowWindow(window_, SW_SHOW);
    SetForegroundWindow(window_);
    UpdateWindow(window_);
}

void MainWindow::setTitle(const std::wstring& title) {
    SetWindowTextW(window_, title.c_str());
}

void MainWindow::setView(const SceneView& view) {
    view_ = view;
    InvalidateRect(window_, nullptr, TRUE);
}

void MainWindow::setMenuBar(HMENU menu) {
    HMENU before = GetMenu(window_);
    SetMenu(window_, menu);
    if (before != nullptr && before != menu)
        DestroyMenu(before);
    DrawMenuBar(window_);
}

LRESULT CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* const created =
            static_cast<MainWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        created->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* const self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr)
        return DefWindowProcW(window, message, wParam, lParam);
    try {
        return self->handle(window, message, wParam, lParam);
    } catch (const std::exception& failure) {
        OutputDebugStringA(failure.what());
        return 0;
    }
}

LRESULT MainWindow::handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        if (lParam == 0 && handlers_.command)
            handlers_.command(LOWORD(wParam));
        return 0;
    case WM_CLOSE:
        if (handlers_.close)
            handlers_.close();
        return 0;
    case WM_ENDSESSION: // WM_QUERYENDSESSION is answered with TRUE: nothing has to be asked
        if (wParam != FALSE && handlers_.close)
            handlers_.close();
        return 0;
    case WM_ERASEBKGND:
        return 1; // painting covers everything
    case WM_PAINT: {
        PAINTSTRUCT painting = {};
        HDC dc = BeginPaint(window, &painting);
        RECT area = {};
        GetClientRect(window, &area);
        paint(dc, area);
        EndPaint(window, &painting);
        return 0;
    }
    case WM_NCDESTROY:
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        window_ = nullptr;
        break;
    default:
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void MainWindow::paint(HDC dc, const RECT& area) const {
    const int margin = Scaled(24);
    const int bandHeight = Scaled(96);
    RECT band = area;
    band.bottom = bandHeight;
    RECT rest = area;
    rest.top = bandHeight;
    Fill(dc, band, kBand);
    Fill(dc, rest, kBackground);
    SetBkMode(dc, TRANSPARENT);

    RECT line = {margin, Scaled(18), area.right - margin, bandHeight};
    DrawLine(dc, titleFont_.get(), kText, view_.title, line);
    line.top += Scaled(42);
    DrawLine(dc, textFont_.get(), kQuietText, view_.path, line);

    const int middle = (area.left + area.right) / 2;
    const RECT left = {margin, bandHeight + margin, middle - margin / 2, area.bottom};
    const RECT right = {middle + margin / 2, bandHeight + margin, area.right - margin, area.bottom};
    DrawList(dc, textFont_.get(), L"Cameras", view_.cameras, left);
    DrawList(dc, textFont_.get(), L"Objects", view_.objects, right);
}

} // namespace standin
