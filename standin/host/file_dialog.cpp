#include "standin/host/file_dialog.h"

#include <commdlg.h>

namespace standin {

std::wstring AskForSceneFile(HWND owner, bool toSave) {
    wchar_t path[MAX_PATH] = {};
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = L"Scenes (*.max)\0*.max\0";
    dialog.lpstrFile = path;
    dialog.nMaxFile = MAX_PATH;
    dialog.lpstrDefExt = L"max";
    // The current folder belongs to the host; a dialog must not move it.
    dialog.Flags = OFN_NOCHANGEDIR | (toSave ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    const BOOL chosen = toSave ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog);
    return chosen != FALSE ? path : L"";
}

} // namespace standin
