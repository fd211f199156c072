// Opening the render options from the main dialog, and reading what they show.
#pragma once

#include "tests/dialogs/dialog_user.h"
#include "tests/hosts/host_in_process.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace orv {
namespace test {

// The plug-in in its host with the main dialog, from which the render options are opened. Closes
// them when the test leaves them open.
class RenderOptions : public ::testing::Test {
protected:
    void TearDown() override;

    // Starts the host and opens the main dialog; the scene may be changed before.
    void startHost(LANGID language = kEnglishLanguage);

    // The dialog for the camera of that row, opened by a double click; null when none came.
    HWND openForRow(int row);
    // The dialog for the cameras of these rows, opened by the command for several; null when none
    // came.
    HWND openForRows(std::initializer_list<int> rows);

    // The dialog, however it was opened; null when none came.
    static HWND waitForDialog();

    // Whether the dialog has gone by the deadline.
    bool waitForClose() const;
    // The cells of a row of the camera table.
    std::vector<std::wstring> cells(int row) const;

    HostInProcess host_;
    HWND main_ = nullptr;
};

bool IsEnabled(HWND dialog, int control);
// The entry selected in a drop-down list, -1 for none.
int SelectedEntry(HWND dialog, int list);
std::vector<std::wstring> Entries(HWND dialog, int list);
void SelectEntry(HWND dialog, int list, int entry);

// Clicks at a point of a control's client area.
void ClickAt(HWND dialog, int control, int x, int y);

} // namespace test
} // namespace orv
