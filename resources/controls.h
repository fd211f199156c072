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
#define IDD_RENDER_OPTIONS 103
#define IDD_PROGRESS 104
#define IDD_LIST 105
#define IDD_EXIT 106

// Main dialog.
#define IDC_BACK_UP_SCENE 1000 // and clean it of script viruses
#define IDC_REMEMBER 1001      // the options below in the settings file
#define IDC_SAVE_SCENE_FILE 1002
#define IDC_ANALYSE_AGAIN 1004
#define IDC_SUBMIT 1005
#define IDC_CAMERAS 1006
#define IDC_WARNINGS 1019
#define IDC_EDIT_CAMERAS 1013 // render options of all selected rows
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
#define IDC_NO_WARNINGS 1201 // replaces the empty list

// Main dialog: render elements and output.
#define IDC_AO_SUBDIVS_SPIN 1046
#define IDC_GAMMA_SPIN 1048
#define IDC_AO_RADIUS_SPIN 1049
#define IDC_GI_SCALE_LABEL 1055
#define IDC_AO_RADIUS_LABEL 1066
#define IDC_AO_RADIUS_UNIT 1067
#define IDC_AO_SUBDIVS_LABEL 1068

// Main dialog: blocks.
#define IDC_BLOCK_COUNT 1075
#define IDC_BLOCK_COUNT_SPIN 1076

// Main dialog: limits of the Corona renderer, from left to right.
#define IDC_PASS_LIMIT_LABEL 1061
#define IDC_PASS_LIMIT_SPIN 1154
#define IDC_PASS_LIMIT_UNIT 1012
#define IDC_NOISE_LEVEL_LABEL 1058
#define IDC_NOISE_LEVEL_SPIN 1148
#define IDC_NOISE_LEVEL_UNIT 1059
#define IDC_TIME_LIMIT_LABEL 1064
#define IDC_TIME_LIMIT_SPIN 1147
#define IDC_TIME_LIMIT_UNIT 1063
#define IDC_LIMITS_NOTE 1060
#define IDC_LIMITS_BOX 1052
#define IDC_NO_LIMITS 1071 // replaces the limits for any other renderer
#define IDC_NO_LIMITS_BOX 1204

// Main dialog: boxes that grow or move with the window.
#define IDC_SCENE_BOX 1205
#define IDC_CAMERAS_BOX 1206
#define IDC_ELEMENTS_BOX 1207
#define IDC_BLOCKS_BOX 1208
#define IDC_WARNINGS_BOX 1209
#define IDC_SUBMIT_BOX 1210
#define IDC_GAMMA_LABEL 1211
#define IDC_BLOCK_COUNT_LABEL 1212

// Progress dialog.
#define IDC_PROGRESS_BAR 1202
#define IDC_PROGRESS_TEXT 1203
#define IDC_PROGRESS_TIME 1213
#define IDC_PROGRESS_SIZE 1214

// Exit dialog.
#define IDC_EXIT_HEADING 1240
#define IDC_EXIT_STAGE 1241
#define IDC_EXIT_BAR 1242
#define IDC_EXIT_TIME 1243
#define IDC_EXIT_WAIT 1244
#define IDC_EXIT_END 1245

// Render options dialog. The main dialog has other controls of some of these numbers.
#define IDC_OPTIONS_CANCEL 103
#define IDC_OPTIONS_APPLY 1014
#define IDC_OPTIONS_WIDTH 1015
#define IDC_OPTIONS_HEIGHT 1016
#define IDC_OPTIONS_FRAME 1017
#define IDC_OPTIONS_FORMAT 1018
#define IDC_OPTIONS_VIEW 1019
#define IDC_OPTIONS_NAME 1020 // of the output file; for a single camera
#define IDC_OPTIONS_ASPECT_SPIN 1040
#define IDC_OPTIONS_ASPECT 1041
#define IDC_OPTIONS_ASPECT_LOCK 1042
#define IDC_OPTIONS_CAMERA_LABEL 1069
#define IDC_OPTIONS_NAME_LABEL 1070
#define IDC_OPTIONS_CAMERA 1080 // its name in the scene
#define IDC_OPTIONS_CORONA_NOTE 1230
// Its padlocks: the first of each pair unlocks fields, the second locks them.
#define IDC_OPTIONS_UNLOCK_VIEW 1072
#define IDC_OPTIONS_LOCK_VIEW 1078
#define IDC_OPTIONS_UNLOCK_FRAME 1073
#define IDC_OPTIONS_LOCK_FRAME 1077
#define IDC_OPTIONS_UNLOCK_FORMAT 1074
#define IDC_OPTIONS_LOCK_FORMAT 1079
#define IDC_OPTIONS_UNLOCK_SIZE 1075
#define IDC_OPTIONS_LOCK_SIZE 1076

// List dialog.
#define IDC_LIST_LINES 1081
#define IDC_LIST_LABEL 1080
#define IDC_LIST_CLOSE 1078

// Images of type "PNG": the padlocks.
#define IDP_PADLOCK_OPEN 109
#define IDP_PADLOCK_CLOSED 110
