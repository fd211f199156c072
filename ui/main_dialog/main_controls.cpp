#include "ui/main_dialog/main_controls.h"

#include "analysis/text/names.h"
#include "analysis/text/text_convert.h"
#include "config/render_choices.h"
#include "log/log.h"
#include "resources/controls.h"
#include "windows/controls.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace orv {
namespace {

constexpr std::int32_t kMostPasses = std::numeric_limits<std::int32_t>::max();
constexpr int kLongestTime = 239; // hours
constexpr int kMostNoise = 100;   // per cent

// Arrows with a step never move from their own position: the edit holds the number.
constexpr NumberRules kNumberFields[] = {
    {IDC_GAMMA, IDC_GAMMA_SPIN, {0.1, 5.0}, 0.0, TypedText::Decimal, 0.1, 0, 5, nullptr},
    {IDC_AO_RADIUS,
     IDC_AO_RADIUS_SPIN,
     {10.0, 1000000000.0},
     0.0,
     TypedText::Decimal,
     0.1,
     0,
     707072,
     kDefaultAoRadius},
    {IDC_AO_SUBDIVS,
     IDC_AO_SUBDIVS_SPIN,
     {1.0, 1000.0},
     0.0,
     TypedText::WholeNumber,
     kOwnCount,
     1,
     1000,
     kDefaultAoSubdivs},
    {IDC_BLOCK_COUNT,
     IDC_BLOCK_COUNT_SPIN,
     {kFewestBlocks, kMostBlocks},
     kFewestBlocks,
     TypedText::WholeNumber,
     1.0,
     kFewestBlocks,
     kMostBlocks,
     L"10"},
    {IDC_PASS_LIMIT,
     IDC_PASS_LIMIT_SPIN,
     {0.0, kMostPasses},
     0.0,
     TypedText::WholeNumber,
     kOwnCount,
     0,
     kMostPasses,
     kNoLimit},
    {IDC_NOISE_LEVEL,
     IDC_NOISE_LEVEL_SPIN,
     {0.0, kMostNoise},
     0.0,
     TypedText::Decimal,
     0.1,
     0,
     kMostNoise,
     kNoLimit},
    {IDC_TIME_LIMIT,
     IDC_TIME_LIMIT_SPIN,
     {0.0, kLongestTime},
     0.0,
     TypedText::Decimal,
     0.1,
     0,
     kLongestTime,
     L"0.0"},
};

struct BlockRadio {
    int radioButton;
    std::int32_t mode;
};

constexpr BlockRadio kBlockRadios[] = {
    {IDC_NO_BLOCKS, kNoBlocks},
    {IDC_THREE_BLOCKS, kThreeBlocks},
    {IDC_SIX_BLOCKS, kSixBlocks},
    {IDC_DISTRIBUTED_BLOCKS, kDistributedBlocks},
};

// A check box that enables what belongs to it.
struct EnablingRule {
    int checkBox;
    std::vector<int> controls;
};

const std::vector<EnablingRule>& EnablingRules() {
    static const std::vector<EnablingRule> rules = {
        {IDC_AO_CHANNEL,
         {IDC_AO_RADIUS_LABEL, IDC_AO_RADIUS, IDC_AO_RADIUS_SPIN, IDC_AO_RADIUS_UNIT,
          IDC_AO_SUBDIVS_LABEL, IDC_AO_SUBDIVS, IDC_AO_SUBDIVS_SPIN}},
        {IDC_GI_CHANNEL, {IDC_GI_SCALE_LABEL, IDC_GI_SCALE}},
    };
    return rules;
}

} // namespace

const NumberRules* FindNumberField(int control) {
    for (const NumberRules& field : kNumberFields) {
        if (field.edit == control || field.arrows == control)
            return &field;
    }
    return nullptr;
}

void OpenNumberFields(HWND dialog) {
    for (const NumberRules& field : kNumberFields)
        NumberField(dialog, field).open();
}

void SettleNumberFields(HWND dialog) {
    for (const NumberRules& field : kNumberFields)
        NumberField(dialog, field).settle();
}

std::int32_t BlockModeOf(int radioButton) {
    for (const BlockRadio& radio : kBlockRadios) {
        if (radio.radioButton == radioButton)
            return radio.mode;
    }
    return 0;
}

std::int32_t ChosenBlockMode(HWND dialog) {
    for (const BlockRadio& radio : kBlockRadios) {
        if (CheckBox(dialog, radio.radioButton).isChecked())
            return radio.mode;
    }
    return kNoBlocks;
}

void ChooseBlockMode(HWND dialog, int radioButton) {
    for (const BlockRadio& radio : kBlockRadios)
        CheckBox(dialog, radio.radioButton).check(radio.radioButton == radioButton);
}

bool IsMaterialChannelPossible(std::int32_t blockMode) {
    return blockMode != kThreeBlocks && blockMode != kSixBlocks;
}

const std::vector<int> kBlockCountControls = {IDC_BLOCK_COUNT_LABEL, IDC_BLOCK_COUNT,
                                              IDC_BLOCK_COUNT_SPIN};
const std::vector<int> kCoronaControls = {
    IDC_PASS_LIMIT_LABEL,  IDC_PASS_LIMIT,  IDC_PASS_LIMIT_SPIN,  IDC_PASS_LIMIT_UNIT,
    IDC_NOISE_LEVEL_LABEL, IDC_NOISE_LEVEL, IDC_NOISE_LEVEL_SPIN, IDC_NOISE_LEVEL_UNIT,
    IDC_TIME_LIMIT_LABEL,  IDC_TIME_LIMIT,  IDC_TIME_LIMIT_SPIN,  IDC_TIME_LIMIT_UNIT,
    IDC_LIMITS_NOTE,       IDC_LIMITS_BOX};
const std::vector<int> kNoLimitControls = {IDC_NO_LIMITS, IDC_NO_LIMITS_BOX};
const std::vector<int> kGiControls = {IDC_GI_CHANNEL, IDC_GI_SCALE_LABEL, IDC_GI_SCALE};

void EnableControls(HWND dialog, const std::vector<int>& ids, bool enabled) {
    for (const int id : ids)
        Control(dialog, id).enable(enabled);
}

void ShowControls(HWND dialog, const std::vector<int>& ids, bool shown) {
    for (const int id : ids)
        Control(dialog, id).show(shown);
}

void EnableByCheckBoxes(HWND dialog) {
    for (const EnablingRule& rule : EnablingRules())
        EnableControls(dialog, rule.controls, CheckBox(dialog, rule.checkBox).isChecked());
}

std::vector<HWND> EnabledControlsButCancel(HWND dialog) {
    std::vector<HWND> enabled;
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (::GetDlgCtrlID(child) != IDCANCEL && ::IsWindowEnabled(child))
            enabled.push_back(child);
    }
    return enabled;
}

void ControlLock::lock(HWND dialog) {
    if (isLocked_)
        return;
    disabled_ = EnabledControlsButCancel(dialog);
    isLocked_ = true;
    cancel_ = ::GetDlgItem(dialog, IDCANCEL);
    focus_ = ::GetFocus();
    if (focus_ != nullptr && ::IsChild(dialog, focus_))
        ::SetFocus(cancel_); // a disabled control would swallow the keys, Escape among them
    else
        focus_ = nullptr;
    for (HWND control : disabled_)
        ::EnableWindow(control, FALSE);
}

void ControlLock::unlock() {
    isLocked_ = false;
    for (HWND control : disabled_)
        ::EnableWindow(control, TRUE);
    disabled_.clear();
    HWND now = ::GetFocus();
    if (focus_ != nullptr && (now == nullptr || now == cancel_))
        ::SetFocus(focus_);
    focus_ = nullptr;
}

void SetSceneName(HWND field, const std::string& fileName) {
    const std::wstring name = SceneNameOf(Utf8ToWide(fileName));
    Edit(field).setText(name);
    if (name.empty())
        WriteLog(LogModule::Ui, kWarn, "The scene name is empty!");
    else
        WriteLog(LogModule::Ui, kInfo, "Set scene name successfully.");
}

std::wstring GetSceneName(HWND field) {
    std::wstring name = SceneFileNameOf(Edit(field).text());
    WriteLog(LogModule::Ui, kInfo, "Get scene name text down, it is :" + WideToUtf8(name));
    return name;
}

} // namespace orv
