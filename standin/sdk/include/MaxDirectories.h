// Folders that Interface::GetDir returns.
#pragma once

#define APP_SCENE_DIR 1
#define APP_EXPORT_DIR 3
#define APP_PLUGCFG_DIR 9
#define APP_SCRIPTS_DIR 15
#define APP_TEMP_DIR 29
