// The number of every dialog and control, with its name. The resource compiler reads this header
// too, so it holds nothing but macros. Numbers of controls whose state is kept in the settings file
// or that the submission reads never change.
#pragma once

// Labels and boxes that the code never asks for. The resource editors of other tools define it
// themselves.
#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

// Dialogs.
#define IDD_MAIN 102
#define IDD_PROGRESS 104

// Main dialog.
#define IDC_ANALYSE_AGAIN 1004
#define IDC_SUBMIT 1005
#define IDC_CAMERAS 1006
#define IDC_WARNINGS 1019
#define IDC_INVERT_SELECTION 1028
#define IDC_SELECT_ALL 1029
#define IDC_SCENE_NAME 1036
#define IDC_NO_WARNINGS 1201 // stands in the list's place while it is empty

// Progress dialog.
#define IDC_PROGRESS_BAR 1202
#define IDC_PROGRESS_TEXT 1203
