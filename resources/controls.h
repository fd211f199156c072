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
#define IDC_BACK_UP_SCENE 1000 // and clean it of script viruses
#define IDC_REMEMBER 1001 // the options below in the settings file
#define IDC_SAVE_SCENE_FILE 1002
#define IDC_ANALYSE_AGAIN 1004
#define IDC_SUBMIT 1005
#define IDC_CAMERAS 1006
#define IDC_WARNINGS 1019
#define IDC_INVERT_SELECTION 1028
#define IDC_SELECT_ALL 1029
#define IDC_NO_BLOCKS 1030
#define IDC_THREE_BLOCKS 1031
#define IDC_SIX_BLOCKS 1032
#define IDC_DISTRIBUTED_BLOCKS 1033
#define IDC_SCENE_NAME 1036
#define IDC_AO_SUBDIVS 1037
#define IDC_GAMMA 1039
#define IDC_AO_RADIUS 1040
#define IDC_COLOR_CHANNEL 1043
#define IDC_AO_CHANNEL 1044
#define IDC_NOISE_LEVEL 1045
#define IDC_TIME_LIMIT 1047
#define IDC_MATERIAL_CHANNEL 1051
#define IDC_PSD_CHANNEL 1053
#define IDC_PASS_LIMIT 1054
#define IDC_GI_CHANNEL 1056
#define IDC_GI_SCALE 1057
#define IDC_NO_WARNINGS 1201 // stands in the list's place while it is empty

// Progress dialog.
#define IDC_PROGRESS_BAR 1202
#define IDC_PROGRESS_TEXT 1203
