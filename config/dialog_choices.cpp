#include "config/dialog_choices.h"

#include "base/noncopyable.h"
#include "config/remembered_settings.h"
#include "resources/controls.h"

#include <commctrl.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>

namespace orv {

namespace {

// The table is filled with names of at most 259 characters.
constexpr int kNameCapacity = 512;

// A list view with check boxes keeps a box's state as the number of the image beside the row. A row
// that cannot be read has none.
constexpr UINT kNoImage = 0;
constexpr UINT kUncheckedImage = 1;

std::wstring NameOfRow(HWND cameraTable, int row) {
    wchar_t buffer[kNameCapacity] = {};
    LVITEMW item{};
    item.pszText = buffer;
    item.cchTextMax = kNameCapacity;
    ::SendMessageW(cameraTable, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
    return item.pszText; // the list view may answer with a text of its own instead of a copy
}

UINT ImageOfRow(HWND cameraTable, int row) {
    const LRESULT state = ::SendMessageW(cameraTable, LVM_GETITEMSTATE, static_cast<WPARAM>(row),
                                         LVIS_STATEIMAGEMASK);
    return static_cast<UINT>(state) >> 12;
}

void ReadControl(HWND dialog, int id, RememberedKind kind, SubmissionChoices& choices) {
    HWND control = ::GetDlgItem(dialog, id);
    if (control == nullptr)
        return;
    switch (kind) {
    case RememberedKind::CheckBox:
    case RememberedKind::RadioButton:
        choices.boxes[id] = ::IsDlgButtonChecked(dialog, id);
        break;
    case RememberedKind::DropDownList:
        choices.selections[id] =
            static_cast<std::int32_t>(::SendMessageW(control, CB_GETCURSEL, 0, 0));
        break;
    case RememberedKind::EditField:
        choices.texts[id] = ControlText(dialog, id);
        break;
    }
}

} // namespace

bool IsChecked(HWND dialog, int control) {
    return ::IsDlgButtonChecked(dialog, control) == BST_CHECKED;
}

std::wstring ControlText(HWND dialog, int control) {
    HWND window = ::GetDlgItem(dialog, control);
    std::wstring text(static_cast<std::size_t>(std::max(0, ::GetWindowTextLengthW(window))) + 1,
                      L'\0');
    const int length = ::GetWindowTextW(window, &text[0], static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(std::max(0, length)));
    return text;
}

bool ReadCameraRows(HWND cameraTable, std::vector<CameraRow>& rows) {
    std::vector<CameraRow> read;
    const int count = static_cast<int>(::SendMessageW(cameraTable, LVM_GETITEMCOUNT, 0, 0));
    read.reserve(static_cast<std::size_t>(std::max(0, count)));
    for (int row = 0; row < count; ++row) {
        const UINT image = ImageOfRow(cameraTable, row);
        if (image == kNoImage)
            return false;
        read.push_back({NameOfRow(cameraTable, row), image != kUncheckedImage});
    }
    rows.swap(read);
    return true;
}

bool ReadChoices(HWND dialog, SubmissionChoices& choices) {
    SubmissionChoices read;
    for (const RememberedControl& control : RememberedControls())
        ReadControl(dialog, control.id, control.kind, read);
    ReadControl(dialog, IDC_BACK_UP_SCENE, RememberedKind::CheckBox, read);
    ReadControl(dialog, IDC_SCENE_NAME, RememberedKind::EditField, read);
    HWND cameraTable = ::GetDlgItem(dialog, IDC_CAMERAS);
    read.hasCameraTable = cameraTable != nullptr;
    if (read.hasCameraTable && !ReadCameraRows(cameraTable, read.cameras))
        return false;
    choices = std::move(read);
    return true;
}

namespace {

class ChoicesRequest;

// The requests that wait for a dialog's answer. The message carries a number and no address: any
// program of the desktop can send it.
struct OpenRequests {
    std::mutex mutex; // guards the others; never held while a message is sent
    std::map<WPARAM, ChoicesRequest*> byNumber;
    WPARAM lastNumber = 0;

    static OpenRequests& instance() {
        static OpenRequests requests;
        return requests;
    }
};

class ChoicesRequest : private rud_Noncopyable {
public:
    explicit ChoicesRequest(HWND dialog) : dialog_(dialog) {
        OpenRequests& open = OpenRequests::instance();
        const std::lock_guard<std::mutex> lock(open.mutex);
        number_ = ++open.lastNumber;
        open.byNumber[number_] = this;
    }
    ~ChoicesRequest() {
        OpenRequests& open = OpenRequests::instance();
        const std::lock_guard<std::mutex> lock(open.mutex);
        open.byNumber.erase(number_);
    }

    // Sends the request and waits for the answer. The wait ends when the dialog is destroyed.
    bool send(SubmissionChoices& choices) {
        ::SendMessageW(dialog_, kTakeChoices, number_, 0);
        const std::lock_guard<std::mutex> lock(OpenRequests::instance().mutex);
        if (isAnswered_)
            choices = std::move(choices_);
        return isAnswered_;
    }

    static void answer(WPARAM number, HWND dialog) {
        OpenRequests& open = OpenRequests::instance();
        SubmissionChoices choices;
        if (!isOpen(number, dialog) || !ReadChoices(dialog, choices))
            return;
        const std::lock_guard<std::mutex> lock(open.mutex);
        const auto found = open.byNumber.find(number);
        if (found == open.byNumber.end())
            return;
        found->second->choices_ = std::move(choices);
        found->second->isAnswered_ = true;
    }

private:
    static bool isOpen(WPARAM number, HWND dialog) {
        OpenRequests& open = OpenRequests::instance();
        const std::lock_guard<std::mutex> lock(open.mutex);
        const auto found = open.byNumber.find(number);
        return found != open.byNumber.end() && found->second->dialog_ == dialog;
    }

    const HWND dialog_;
    WPARAM number_ = 0;
    bool isAnswered_ = false;
    SubmissionChoices choices_;
};

bool IsOfThisThread(HWND window) {
    return ::GetWindowThreadProcessId(window, nullptr) == ::GetCurrentThreadId();
}

} // namespace

bool TakeChoices(HWND dialog, SubmissionChoices& choices) {
    return IsOfThisThread(dialog) ? ReadChoices(dialog, choices)
                                  : ChoicesRequest(dialog).send(choices);
}

bool TakeCameraRows(HWND cameraTable, std::vector<CameraRow>& rows) {
    if (IsOfThisThread(cameraTable))
        return ReadCameraRows(cameraTable, rows);
    SubmissionChoices choices;
    if (!TakeChoices(::GetParent(cameraTable), choices) || !choices.hasCameraTable)
        return false;
    rows.swap(choices.cameras);
    return true;
}

bool AnswerTakeChoices(HWND dialog, UINT message, WPARAM wParam) noexcept {
    if (message != kTakeChoices)
        return false;
    try {
        ChoicesRequest::answer(wParam, dialog);
    } catch (...) {
        // The request stays without an answer; whoever made it logs that.
    }
    return true;
}

} // namespace orv
