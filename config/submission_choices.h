// The user's choices in the main dialog at the moment of submitting: plain data.
#pragma once

#include "config/scene_analysis.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace orv {

// One row of the camera table as the user sees it.
struct CameraRow {
    std::wstring name; // column 0
    bool isChecked = false;
};

// The state of the controls by their numbers (resources/controls.h). A control that the dialog does
// not have has no entry. A submission works on one such record and never reads a control again, so
// that it sends what was chosen even when the dialog is closed meanwhile.
struct SubmissionChoices {
    std::vector<CameraRow> cameras; // from the first row to the last
    bool hasCameraTable = false;
    std::map<int, std::uint32_t> boxes; // check boxes and radio buttons: 0, 1, or 2 for "neither"
    std::map<int, std::wstring> texts;  // edits, whole
    std::map<int, std::int32_t> selections; // drop-down lists: entry from 0, -1 for none
    SceneAnalysis analysis;                 // as it was when Submit was pressed
    std::wstring openScene; // full path of the scene that was open then, empty when not recorded

    // The state of a box as the table above says, 0 for one that the dialog does not have.
    std::uint32_t boxState(int box) const {
        const auto found = boxes.find(box);
        return found == boxes.end() ? 0 : found->second;
    }
    // Whether a box is fully checked.
    bool isChecked(int box) const { return boxState(box) == 1; }
    // The text of an edit, empty for one that the dialog does not have.
    std::wstring text(int edit) const {
        const auto found = texts.find(edit);
        return found == texts.end() ? std::wstring() : found->second;
    }
    // The selection of a drop-down list, 0 for one that the dialog does not have.
    std::int32_t selection(int list) const {
        const auto found = selections.find(list);
        return found == selections.end() ? 0 : found->second;
    }
};

} // namespace orv
