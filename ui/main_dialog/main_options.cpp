#include "ui/main_dialog/main_options.h"

#include "analysis/text/numbers.h"
#include "analysis/text/text_convert.h"
#include "config/render_choices.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "ui/main_dialog/main_controls.h"
#include "ui/workers.h"
#include "windows/controls.h"

namespace orv {
namespace {

constexpr wchar_t kOn[] = L"1";
constexpr wchar_t kOff[] = L"0";

CoronaLimits LimitsIn(const SceneAnalysis& analysis) {
    return {analysis.coronaPassLimit, analysis.coronaTimeLimitHours,
            analysis.coronaTimeLimitSeconds, analysis.coronaNoiseLimit};
}

void SetLimits(const CoronaLimits& limits, SceneAnalysis& analysis) {
    analysis.coronaPassLimit = limits.passes;
    analysis.coronaTimeLimitHours = limits.hours;
    analysis.coronaTimeLimitSeconds = limits.seconds;
    analysis.coronaNoiseLimit = limits.noise;
}

} // namespace

void MainOptions::open(HWND dialog) {
    dialog_ = dialog;
    OpenNumberFields(dialog_);
}

void MainOptions::fill(bool first) {
    chooseBlocks(IDC_NO_BLOCKS);
    const float gamma = data_.analysis.gammaOut;
    setNumber(IDC_GAMMA, gamma > 0.0F ? DecimalText(gamma, 1) : kDefaultGamma);
    showLimits();
    const ComboBox scales(dialog_, IDC_GI_SCALE);
    scales.clear();
    for (const char* scale : kGiScales)
        scales.add(Utf8ToWide(scale));
    scales.select(0);
    if (first)
        CheckBox(dialog_, IDC_SAVE_SCENE_FILE).check(true);
    restoreSettings(first);
    if (hasLimits())
        CheckBox(dialog_, IDC_GI_CHANNEL).check(false); // nobody sees a tick, or could take it away
    // Whatever was restored, and whatever had been ticked before the scene was analysed again.
    EnableByCheckBoxes(dialog_);
    EnableControls(dialog_, kBlockCountControls, ChosenBlockMode(dialog_) == kDistributedBlocks);
    foundLimits_ = LimitsIn(data_.analysis);
}

bool MainOptions::hasLimits() const {
    return data_.analysis.coronaState != CoronaLimitState::NoLimits;
}

void MainOptions::showLimits() {
    const bool limited = hasLimits();
    if (!limited)
        Control(dialog_, IDC_NO_LIMITS).setText(ResourceText(IDS_NO_RENDERER_LIMITS));
    ShowControls(dialog_, kCoronaControls, limited);
    ShowControls(dialog_, kNoLimitControls, !limited);
    ShowControls(dialog_, kGiControls, !limited); // Corona has no such pass
}

void MainOptions::restoreSettings(bool first) {
    for (const RememberedValue& value : ReadRememberedSettings())
        restoreSetting(value, first);
}

void MainOptions::restoreSetting(const RememberedValue& value, bool first) {
    const int id = value.control.id;
    switch (value.control.kind) {
    case RememberedKind::CheckBox:
        if (value.text == kOn)
            CheckBox(dialog_, id).check(true);
        else if (value.text == kOff && first) // later it would undo what the user has ticked
            CheckBox(dialog_, id).check(false);
        break;
    case RememberedKind::DropDownList: {
        const int entry = value.text.size() == 1 ? value.text[0] - L'0' : -1;
        if (entry >= 0 && entry < kGiScaleCount)
            ComboBox(dialog_, id).select(entry);
        break;
    }
    case RememberedKind::EditField:
        setNumber(id, value.text);
        break;
    case RememberedKind::RadioButton:
        if (value.text == kOn) {
            chooseBlocks(id);
            applyMaterialRule();
        }
        break;
    }
}

void MainOptions::setNumber(int edit, const std::wstring& text) {
    const NumberRules* rules = FindNumberField(edit);
    Edit(dialog_, edit).setText(rules == nullptr ? text : TextByRules(*rules, text));
}

bool MainOptions::onCommand(int id, int code) {
    const bool isOfEdit = code == EN_CHANGE || code == EN_KILLFOCUS;
    const NumberRules* field = isOfEdit ? FindNumberField(id) : nullptr;
    if (field != nullptr && code == EN_KILLFOCUS) {
        NumberField(dialog_, *field).settle();
        return true;
    }
    if (field != nullptr) {
        NumberField(dialog_, *field).applyRules();
        if (id == IDC_BLOCK_COUNT)
            takeBlocks();
        return true;
    }
    switch (id) {
    case IDC_NO_BLOCKS:
    case IDC_THREE_BLOCKS:
    case IDC_SIX_BLOCKS:
    case IDC_DISTRIBUTED_BLOCKS:
        takeBlocks();
        if (id == IDC_NO_BLOCKS || id == IDC_DISTRIBUTED_BLOCKS)
            EnableControls(dialog_, kBlockCountControls, id == IDC_DISTRIBUTED_BLOCKS);
        applyMaterialRule();
        return true;
    case IDC_MATERIAL_CHANNEL:
        applyMaterialRule();
        return true;
    case IDC_AO_CHANNEL:
    case IDC_GI_CHANNEL:
        EnableByCheckBoxes(dialog_);
        return true;
    default:
        return false;
    }
}

bool MainOptions::onArrows(int arrows, int steps) {
    const NumberRules* field = FindNumberField(arrows);
    return field != nullptr && NumberField(dialog_, *field).step(steps);
}

void MainOptions::prepareSubmission() {
    SettleNumberFields(dialog_);
    takeBlocks();
    SetLimits(foundLimits_, data_.analysis);
}

void MainOptions::takeBlocks() {
    if (IsSubmissionRunning())
        return;
    data_.analysis.blockMode = ChosenBlockMode(dialog_);
    data_.analysis.blockCount =
        ClampedWholeNumber(Edit(dialog_, IDC_BLOCK_COUNT).text(), kFewestBlocks, kMostBlocks);
}

void MainOptions::chooseBlocks(int radioButton) {
    ChooseBlockMode(dialog_, radioButton);
    takeBlocks();
}

void MainOptions::applyMaterialRule() {
    const CheckBox materialChannel(dialog_, IDC_MATERIAL_CHANNEL);
    if (IsMaterialChannelPossible(ChosenBlockMode(dialog_)) || !materialChannel.isChecked())
        return;
    materialChannel.check(false);
    ShowMessage(dialog_, IDS_MATERIAL_NEEDS_WHOLE_IMAGE, IDS_CAPTION_CHECK);
}

} // namespace orv
