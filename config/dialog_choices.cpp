#include "config/dialog_choices.h"

#include "base/noncopyable.h"
#include "config/remembered_settings.h"
#include "resources/controls.h"
#include "windows/controls.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>

namespace orv {
namespace {

void ReadControl(HWND dialog, int id, RememberedKind kind, SubmissionChoices& choices) {
    if (!Control(dialog, id))
        return;
    switch (kind) {
    case RememberedKind::CheckBox:
    case RememberedKind::RadioButton:
        choices.boxes[id] = CheckBox(dialog, id).state();
        break;
    case RememberedKind::DropDownList:
        choices.selections[id] = ComboBox(dialog, id).selection();
        break;
    case RememberedKind::EditField:
        choices.texts[id] = Edit(dialog, id).text();
        break;
    }
}

} // namespace

bool ReadCameraRows(HWND cameraTable, std::vector<CameraRow>& rows) {
    const CheckList table(cameraTable);
    const int count = table.rowCount();
    std::vector<CameraRow> read;
    read.reserve(static_cast<std::size_t>(std::max(0, count)));
    for (int row = 0; row < count; ++row) {
        const CheckList::Tick tick = table.tick(row);
        if (tick == CheckList::Tick::Unknown)
            return false;
        read.push_back({table.name(row), tick == CheckList::Tick::Ticked});
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
        // The request gets no answer; its sender logs that.
    }
    return true;
}

} // namespace orv
