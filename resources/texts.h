// The number of every text that people see. The wording is in texts_en.rc and texts_zh.rc; the
// resource compiler reads this header too, so it holds nothing but macros.
#pragma once

// The library and its menu in the host.
#define IDS_LIBRARY_DESCRIPTION 1
#define IDS_CLASS_CATEGORY 2
#define IDS_CLASS_NAME 3
#define IDS_ACTION_OPEN 6
#define IDS_ACTION_ABOUT 12
#define IDS_ABOUT_TEXT 13
#define IDS_OLD_MENU_TITLE 15 // of an earlier release, looked for only to remove it
#define IDS_ABOUT_CAPTION 30
#define IDS_MENU_TITLE 31

// Which language the texts are in: "0" English, "1" Chinese.
#define IDS_LANGUAGE_MARKER 57

// Main dialog: captions of message boxes.
#define IDS_CAPTION 49
#define IDS_CAPTION_CHECK 68 // of boxes that ask the user to look at an input

// Main dialog: opening.
#define IDS_PLUGIN_TOO_OLD 58
#define IDS_CLIENT_NOT_FOUND 81
#define IDS_SCENE_NAME_UNUSABLE 79
#define IDS_ANALYSIS_FAILED 37
#define IDS_NO_CAMERAS_QUESTION 59 // Yes and No
#define IDS_REPORT_UNREADABLE 201
#define IDS_REPORT_LACKS_MEMBER 250 // follows 201
#define IDS_SUBMISSION_RUNS 202
#define IDS_SAME_CAMERA_NAMES_BEFORE 89
#define IDS_SAME_CAMERA_NAMES_AFTER 90

// Main dialog: controls.
#define IDS_REMEMBER_TOOLTIP 93
#define IDS_SAVE_SCENE_TOOLTIP 97
#define IDS_NO_RENDERER_LIMITS 94
#define IDS_MATERIAL_NEEDS_WHOLE_IMAGE 92

// Main dialog: submitting.
#define IDS_CONFIRM_SUBMISSION 100 // OK and Cancel
#define IDS_NO_CAMERA_TICKED 72    // OK and Cancel
#define IDS_CAMERA_NAMES_UNUSABLE 38
#define IDS_CORONA_WITHOUT_LIMITS 74
#define IDS_SCENE_NOT_SAVED 64
#define IDS_JOB_NOT_WRITTEN 42
#define IDS_SUBMISSION_NOT_STARTED 203
#define IDS_SCENE_REPLACED 221 // Yes and No; the path follows
#define IDS_CHOICES_NOT_READ 222
#define IDS_SUBMISSION_BROKEN_OFF 223

// Progress dialog: what the submission is at.
#define IDS_STAGE_CHECKING 205
#define IDS_STAGE_SAVING 206
#define IDS_STAGE_CLEANING 207
#define IDS_STAGE_PACKING 208
#define IDS_STAGE_DESCRIBING 209
#define IDS_STAGE_SENDING 210
#define IDS_PROGRESS_TIME 211
#define IDS_PROGRESS_SIZE 212

// Exit dialog, and Windows' own list of what holds its shutdown up.
#define IDS_EXIT_WAITS 240
#define IDS_EXIT_ENDS 241
#define IDS_STAGE_ENDING 242
#define IDS_SHUTDOWN_REASON 243

// Camera table.
#define IDS_COLUMN_CAMERA 32
#define IDS_COLUMN_WIDTH 34
#define IDS_COLUMN_HEIGHT 33
#define IDS_COLUMN_FRAME 35
#define IDS_COLUMN_TYPE 83
#define IDS_COLUMN_FORMAT 36
#define IDS_COLUMN_OUTPUT_NAME 66
#define IDS_CAMERA_SPHERICAL 84
#define IDS_CAMERA_NORMAL 85
#define IDS_NO_CAMERAS 204

// Warnings list: what the analysis found.
#define IDS_WARNING_CORONA_UNLIMITED 251
#define IDS_WARNING_CORONA_TIME_ONLY 252
#define IDS_WARNING_REGION 253
#define IDS_WARNING_CYRILLIC_REFERENCE 254
#define IDS_WARNING_ILLEGAL_REFERENCE 255
#define IDS_WARNING_NO_CAMERAS 256
#define IDS_WARNING_CAMERA_NAME 257
#define IDS_WARNING_SCENE_NAME_UNREADABLE 258
#define IDS_WARNING_SCENE_NAME_EMPTY 259

// Warnings list: what the analysis advises.
#define IDS_TIPS_HEADING 78
#define IDS_TIP_RENDERER_MISSING 88
#define IDS_TIP_CORONA_BLOCKS 73
#define IDS_TIP_REGION 75
#define IDS_TIP_CYRILLIC_REFERENCE 80
#define IDS_TIP_TIFF 96
#define IDS_TIP_IMAGE_SAMPLER 95
#define IDS_TIP_SCENE_ERROR 77 // the report's error code 107

// List of problem files.
#define IDS_LIST_TITLE 101
#define IDS_LIST_LABEL 102
#define IDS_LIST_CLOSE 103
#define IDS_ILLEGAL_REFERENCES_HEADING 99
#define IDS_MISSING_FILES_HEADING 62
#define IDS_MISSING_FILE_PREFIX 60
#define IDS_SAME_FILES_HEADING 63
#define IDS_SAME_FILE_PREFIX 61

// Render options dialog: its title for several cameras.
#define IDS_OPTIONS_TITLE_SEVERAL 230

// Render options dialog: names.
#define IDS_NAME_CHARACTERS_REMOVED 67
#define IDS_NAME_BEGINS_WITH_SPACE 69
#define IDS_NAME_ENDS_WITH_SPACE 70
#define IDS_NAME_TOO_LONG 71

// Render options dialog: output formats, in the order of the list.
#define IDS_FORMAT_PNG 9
#define IDS_FORMAT_JPG 8
#define IDS_FORMAT_BMP 10
#define IDS_FORMAT_TGA 29
#define IDS_FORMAT_EXR 20
#define IDS_FORMAT_HDR 21
#define IDS_FORMAT_RLA 22
#define IDS_FORMAT_RPF 23
#define IDS_FORMAT_DDS 24
#define IDS_FORMAT_EPS 25
#define IDS_FORMAT_RGB 26
#define IDS_FORMAT_CIN 27
#define IDS_FORMAT_TIFF 28
#define IDS_FORMAT_VRIMG 104

// The farm's client: the exchange itself.
#define IDS_CLIENT_UNREACHABLE 43 // the error code follows
#define IDS_REPLY_WITHOUT_JSON 44
#define IDS_REPLY_UNREADABLE 53

// The farm's client: its reply codes.
#define IDS_REPLY_ACCEPTED 98            // 10001
#define IDS_REPLY_NOT_A_MAX_PROJECT 54   // 10002
#define IDS_REPLY_RENDER_VERSION 46      // 10003
#define IDS_REPLY_NOT_A_STILL_PROJECT 47 // 10004
#define IDS_REPLY_SCENE_MISSING 48       // 10005
#define IDS_REPLY_JOB_FILE_MISSING 55    // 10006
#define IDS_REPLY_JOB_FILE_UNREADABLE 56 // 10007
#define IDS_REPLY_SCENE_SUFFIX 50        // 10008
#define IDS_REPLY_SUBMITTED_BEFORE 51    // 10009
#define IDS_REPLY_INTERNAL_ERROR 52      // 11000
