// The host's own dialog controls: spinners and tooltips.
#include "max.h"
// the host's own header comes first
#include "host/host_api.h"
#include "host/main_thread.h"

static_assert(orv_host_spinner_changed == (CC_SPINNER_CHANGE), "the host's own message");

namespace {

// Gives a spinner back to the host when it goes.
class Spinner {
public:
    explicit Spinner(ISpinnerControl* spinner) : spinner_(spinner) {}
    Spinner(HWND dialog, int id) : spinner_(GetISpinner(GetDlgItem(dialog, id))) {}
    Spinner(const Spinner&) = delete;
    Spinner& operator=(const Spinner&) = delete;
    ~Spinner() {
        if (spinner_)
            ReleaseISpinner(spinner_);
    }
    explicit operator bool() const { return spinner_ != nullptr; }
    ISpinnerControl* operator->() const { return spinner_; }

private:
    ISpinnerControl* spinner_;
};

// Both controls have to be there: the host does not check.
bool ControlsExist(HWND dialog, int spinner, int edit) {
    return GetDlgItem(dialog, edit) != nullptr && Spinner(dialog, spinner);
}

} // namespace

int orv_host_setup_float_spinner(HWND dialog, int spinner, int edit, float minimum, float maximum,
                                 float value, float step) {
    int done = 0;
    OnHostThread([&] {
        if (ControlsExist(dialog, spinner, edit))
            done = Spinner(SetupFloatSpinner(dialog, spinner, edit, minimum, maximum, value, step))
                       ? 1
                       : 0;
    });
    return done;
}

int orv_host_setup_int_spinner(HWND dialog, int spinner, int edit, int minimum, int maximum,
                               int value) {
    int done = 0;
    OnHostThread([&] {
        if (ControlsExist(dialog, spinner, edit))
            done = Spinner(SetupIntSpinner(dialog, spinner, edit, minimum, maximum, value)) ? 1 : 0;
    });
    return done;
}

float orv_host_spinner_float(HWND dialog, int spinner) {
    float value = 0;
    OnHostThread([&] {
        const Spinner control(dialog, spinner);
        if (control)
            value = control->GetFVal();
    });
    return value;
}

void orv_host_set_spinner_float(HWND dialog, int spinner, float value) {
    OnHostThread([=] {
        const Spinner control(dialog, spinner);
        if (control)
            control->SetValue(value, FALSE);
    });
}

int orv_host_spinner_int(HWND dialog, int spinner) {
    int value = 0;
    OnHostThread([&] {
        const Spinner control(dialog, spinner);
        if (control)
            value = control->GetIVal();
    });
    return value;
}

void orv_host_set_spinner_int(HWND dialog, int spinner, int value) {
    OnHostThread([=] {
        const Spinner control(dialog, spinner);
        if (control)
            control->SetValue(value, FALSE);
    });
}

void* orv_host_tooltips_create(void) {
    ToolTipExtender* tips = nullptr;
    OnHostThread([&] { tips = new ToolTipExtender; });
    return tips;
}

void orv_host_tooltips_set(void* tooltips, HWND control, const wchar_t* text) {
    if (!tooltips)
        return;
    OnHostThread([=] {
        const MSTR tip(text);
        static_cast<ToolTipExtender*>(tooltips)->SetToolTip(control, tip);
    });
}

void orv_host_tooltips_destroy(void* tooltips) {
    OnHostThread([=] { delete static_cast<ToolTipExtender*>(tooltips); });
}
