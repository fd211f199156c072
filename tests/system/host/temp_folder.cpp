#include "tests/system/host/temp_folder.h"

#include "standin/host/text.h"

#include "base/windows.h"

#include <shellapi.h>

namespace test {

TempFolder::TempFolder() {
    static int count = 0;
    wchar_t temp[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, temp);
    path_ = std::wstring(temp) + L"orv \u5BBF\u4E3B " + std::to_wstring(GetCurrentProcessId()) + L"-" +
            std::to_wstring(++count);
    CreateDirectoryW(path_.c_str(), nullptr);
}

TempFolder::~TempFolder() {
    std::wstring from = path_;
    from.push_back(L'\0'); // the list of files ends with two zeros
    SHFILEOPSTRUCTW operation = {};
    operation.wFunc = FO_DELETE;
    operation.pFrom = from.c_str();
    operation.fFlags = FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
    SHFileOperationW(&operation);
}

std::wstring TempFolder::write(const std::wstring& name, const std::string& bytes) const {
    standin::WriteWholeFile(file(name), bytes);
    return file(name);
}

std::string BytesOf(const std::wstring& path) {
    std::string bytes;
    standin::ReadWholeFile(path, bytes);
    return bytes;
}

} // namespace test
