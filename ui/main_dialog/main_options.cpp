// The options of the main dialog: what they start with, what is restored, what a change leads to.
#include "analysis/text/numbers.h"
#include "config/remembered_settings.h"
#include "resources/controls.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "ui/main_dialog/block_mode.h"
#include "ui/main_dialog/main_controls.h"
#include "ui/main_dialog/main_dialog.h"
#include "ui/workers.h"
#include "windows/controls.h"

namespace orv {
namespace {

constexpr int kBlockRadios[] = {IDC_NO_BLOCKS, IDC_THREE_BLOCKS, IDC_SIX_BLOCKS,
                                IDC_DISTRIBUTED_BLOCKS};

const wchar_t* const kGiScales[] = {L"100%", L"50%", L"33%", L"25%"};

constexpr wchar_t kOn[] = L"1";
constexpr wchar_t kOff[] = L"0";

} // namespace

void MainDialog::fillOptions(bool first) {
    const ComboBox scales(window(), IDC_GI_SCALE);
    scales.clear();
    for (const wchar_t* scale : kGiScales)
        scales.add(scale);
    scales.select(0);
    if (first)
        CheckBox(window(), IDC_SAVE_SCENE_FILE).check(true);
    restoreSettings();
}

void MainDialog::showLimits() {
    const bool hasLimits = data_.analysis.coronaState != CoronaLimitState::NoLimits;
    if (!hasLimits)
        Control(window(), IDC_NO_LIMITS).setText(ResourceText(IDS_NO_RENDERER_LIMITS));
    ShowControls(window(), kCoronaControls, hasLimits);
    ShowControls(window(), kNoLimitControls, !hasLimits);
    ShowControls(window(), kGiControls, !hasLimits); // Corona has no such pass
}

void MainDialog::restoreSettings() {
    for (const RememberedValue& value : ReadRememberedSettings())
        restoreSetting(value);
    // Whatever was restored, and whatever had been ticked before the scene was analysed again.
    EnableByCheckBoxes(window());
    EnableControls(window(), kBlockCountControls, blockMode() == kDistributedBlocks);
}

void MainDialog::restoreSetting(const RememberedValue& value) {
    const int id = value.control.id;
    switch (value.control.kind) {
    case RememberedKind::CheckBox:
        if (value.text == kOn || value.text == kOff) // anything else is no setting of ours
            CheckBox(window(), id).check(value.text == kOn);
        break;
    case RememberedKind::DropDownList:
        if (value.text.size() == 1 && value.text[0] >= L'0' && value.text[0] <= L'3')
            ComboBox(window(), id).select(value.text[0] - L'0');
        break;
    case RememberedKind::EditField: {
        const EditRule* rule = FindEditRule(id);
        Edit(window(), id).setText(rule == nullptr ? value.text : TextByRule(*rule, value.text));
        break;
    }
    case RememberedKind::RadioButton:
        if (value.text == kOn) {
            selectBlocks(id);
            applyMaterialRule();
        }
        break;
    }
}

bool MainDialog::onOption(int id, int code) {
    const EditRule* rule = code == EN_CHANGE ? FindEditRule(id) : nullptr;
    if (rule != nullptr) {
        ApplyEditRule(window(), *rule);
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
            EnableControls(window(), kBlockCountControls, id == IDC_DISTRIBUTED_BLOCKS);
        applyMaterialRule();
        return true;
    case IDC_MATERIAL_CHANNEL:
        applyMaterialRule();
        return true;
    case IDC_AO_CHANNEL:
    case IDC_GI_CHANNEL:
        EnableByCheckBoxes(window());
        return true;
    default:
        return false;
    }
}

std::int32_t MainDialog::blockMode() const {
    for (const int radio : kBlockRadios) {
        if (CheckBox(window(), radio).isChecked())
            return BlockModeOf(radio);
    }
    return kNoBlocks;
}

void MainDialog::takeBlocks() {
    if (IsSubmissionRunning())
        return;
    data_.analysis.blockMode = blockMode();
    data_.analysis.blockCount =
        ClampedWholeNumber(Edit(window(), IDC_BLOCK_COUNT).text(), kFewestBlocks, kMostBlocks);
}

void MainDialog::selectBlocks(int radioButton) {
    ::CheckRadioButton(window(), IDC_NO_BLOCKS, IDC_DISTRIBUTED_BLOCKS, radioButton);
    takeBlocks();
}

void MainDialog::applyMaterialRule() {
    const CheckBox materialChannel(window(), IDC_MATERIAL_CHANNEL);
    if (IsMaterialChannelPossible(blockMode()) || !materialChannel.isChecked())
        return;
    materialChannel.check(false);
    ShowMessage(window(), IDS_MATERIAL_NEEDS_WHOLE_IMAGE, IDS_CAPTION_CHECK);
}

} // namespace orv
