#include "tests/support/message_box_watcher.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace orv {
namespace test {
namespace {

constexpr wchar_t kDialogClass[] = L"#32770";
// Without SMTO_ABORTIFHUNG: a worker that takes no messages for five seconds counts as hung, and a
// message box is visible before it takes its first one. A window that goes ends the wait.
constexpr UINT kAnswerTimeoutMilliseconds = static_cast<UINT>(kDeadline.count());
constexpr int kTextId = 0xFFFF;   // the id that Windows gives the text of a message box
constexpr int kLastButtonId = 11; // IDCONTINUE, the last of the standard buttons

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 64> name{};
    ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

std::vector<HWND> ChildrenOf(HWND parent) {
    std::vector<HWND> children;
    for (HWND child = ::GetWindow(parent, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

bool IsVisible(HWND window) {
    return (::GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

bool IsStandardButton(HWND control) {
    const int id = ::GetDlgCtrlID(control);
    return ClassOf(control) == L"Button" && id >= IDOK && id <= kLastButtonId;
}

bool IsMessageBox(HWND window) {
    bool hasButton = false;
    bool hasText = false;
    for (HWND control : ChildrenOf(window)) {
        if (!IsVisible(control))
            continue;
        if (IsStandardButton(control))
            hasButton = true;
        else if (ClassOf(control) != L"Static")
            return false;
        if ((::GetDlgCtrlID(control) & 0xFFFF) == kTextId)
            hasText = true;
    }
    return hasButton && hasText;
}

// The visible dialogs of a process, nearest to the user first.
std::vector<HWND> DialogsOf(DWORD processId) {
    struct Search {
        DWORD processId;
        std::vector<HWND> found;
    } search{processId, {}};
    ::EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
            auto& all = *reinterpret_cast<Search*>(parameter);
            DWORD owner = 0;
            ::GetWindowThreadProcessId(window, &owner);
            if (owner == all.processId && ::IsWindowVisible(window) &&
                ClassOf(window) == kDialogClass)
                all.found.push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

SeenMessageBox Read(HWND box) {
    SeenMessageBox seen;
    seen.caption = ReadWindowText(box);
    seen.owner = ::GetWindow(box, GW_OWNER);
    for (HWND control : ChildrenOf(box)) {
        if (!IsVisible(control))
            continue;
        if (IsStandardButton(control)) {
            seen.buttons.push_back(::GetDlgCtrlID(control));
            seen.buttonLabels.push_back(ReadWindowText(control));
            if ((::GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON)
                seen.defaultButton = ::GetDlgCtrlID(control);
        } else if ((::GetDlgCtrlID(control) & 0xFFFF) == kTextId) {
            seen.text = ReadWindowText(control);
        }
    }
    return seen;
}

// A program that starts while the desktop is not up has no windows for as long as it runs: each box
// fails at once, and a watcher would report that none was shown.
void RequireWindows() {
    const HWND window = ::CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 1, 1, nullptr,
                                          nullptr, nullptr, nullptr);
    if (window == nullptr)
        throw std::runtime_error("this program can make no window, error no:" +
                                 std::to_string(::GetLastError()));
    ::DestroyWindow(window);
}

} // namespace

MessageBoxWatcher::MessageBoxWatcher(std::wstring caption, std::vector<int> answers,
                                     DWORD processId)
    : caption_(std::move(caption)), answers_(std::move(answers)), processId_(processId) {
    RequireWindows();
    thread_ = std::thread([this] { watch(); });
}

MessageBoxWatcher::~MessageBoxWatcher() {
    stop();
}

std::vector<SeenMessageBox> MessageBoxWatcher::stop() {
    ended_ = true;
    if (thread_.joinable())
        thread_.join();
    return seen();
}

std::vector<SeenMessageBox> MessageBoxWatcher::seen() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return boxes_;
}

bool MessageBoxWatcher::waitForBoxes(std::size_t count, std::chrono::milliseconds deadline) const {
    return WaitUntil([&] { return seen().size() >= count; }, deadline);
}

void MessageBoxWatcher::watch() {
    WaitUntil(
        [this] {
            for (HWND dialog : DialogsOf(processId_)) {
                if (ended_)
                    break;
                if (IsMessageBox(dialog) &&
                    (caption_.empty() || ReadWindowText(dialog) == caption_))
                    answer(dialog);
            }
            return ended_.load();
        },
        std::chrono::hours(1));
}

void MessageBoxWatcher::answer(HWND box) {
    SeenMessageBox record = Read(box);
    if (record.buttons.empty()) // closed by the test meanwhile
        return;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        const std::size_t next = std::min(boxes_.size() + 1, answers_.size());
        const int wanted = next == 0 ? IDOK : answers_[next - 1];
        const bool offered = std::count(record.buttons.begin(), record.buttons.end(), wanted) > 0;
        record.answer = offered ? wanted : record.buttons.front();
        boxes_.push_back(record);
    }
    // The box runs on its own thread: a posted command is what a click on the button becomes.
    ::PostMessageW(box, WM_COMMAND, MAKEWPARAM(record.answer, BN_CLICKED),
                   reinterpret_cast<LPARAM>(::GetDlgItem(box, record.answer)));
    WaitUntil([&] { return !::IsWindow(box) || !::IsWindowVisible(box) || ended_; });
}

// A worker that has packed for seconds before its box counts as hung until the box runs: it is
// waited for all the same.
std::wstring ReadWindowText(HWND window) {
    DWORD_PTR length = 0;
    if (::SendMessageTimeoutW(window, WM_GETTEXTLENGTH, 0, 0, SMTO_NORMAL,
                              kAnswerTimeoutMilliseconds, &length) == 0)
        return {};
    std::vector<wchar_t> text(static_cast<std::size_t>(length) + 1);
    DWORD_PTR copied = 0;
    if (::SendMessageTimeoutW(window, WM_GETTEXT, text.size(),
                              reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL,
                              kAnswerTimeoutMilliseconds, &copied) == 0)
        return {};
    return std::wstring(text.data(), std::min(static_cast<std::size_t>(copied), text.size() - 1));
}

HWND WaitForDialog(const std::wstring& caption, DWORD processId,
                   std::chrono::milliseconds deadline) {
    HWND found = nullptr;
    WaitUntil(
        [&] {
            for (HWND dialog : DialogsOf(processId)) {
                if (ReadWindowText(dialog) == caption)
                    found = dialog;
            }
            return found != nullptr;
        },
        deadline);
    return found;
}

bool WhileBoxIsOpen(const std::wstring& caption, const std::function<void()>& body,
                    const std::function<void()>& look) {
    std::thread worker(body);
    const bool isOpen = WaitForDialog(caption) != nullptr;
    if (isOpen)
        look();
    const MessageBoxWatcher watcher;
    worker.join();
    return isOpen;
}

} // namespace test
} // namespace orv
