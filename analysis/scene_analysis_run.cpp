#include "analysis/scene_analysis_run.h"

#include "analysis/text/text_convert.h"
#include "analysis/work_folder.h"
#include "base/folders.h"
#include "base/handles.h"
#include "client/guid_text.h"
#include "config/plugin_data.h"
#include "host/host.h"
#include "log/log.h"
#include "resources/message_box.h"
#include "resources/texts.h"

#include <algorithm>
#include <new>

namespace orv {
namespace {

constexpr wchar_t kByteOrderMark = 0xFEFF;

std::wstring NewReportPath() {
    ClientInfo info;
    PluginData::instance().loadClientInfo(info);
    EnsureFolder(info.jsonDir); // if it fails, the script cannot write and says so
    return info.jsonDir + L"/" + MakeGuidText() + L".ret";
}

bool ReadAll(HANDLE file, std::string& bytes) {
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const DWORD wanted =
            static_cast<DWORD>(std::min<std::size_t>(bytes.size() - filled, 1U << 20));
        DWORD got = 0;
        if (!::ReadFile(file, &bytes[filled], wanted, &got, nullptr))
            return false;
        if (got == 0) // shorter than it was a moment ago
            break;
        filled += got;
    }
    bytes.resize(filled);
    return true;
}

// The whole file, empty when it cannot be read. The path goes to Windows as it is: in the multibyte
// code page a name could lose characters.
std::string ReadReportFile(const std::wstring& path) {
    const FileHandle file(::CreateFileW(path.c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size = {};
    if (!file || !::GetFileSizeEx(file.get(), &size)) {
        const DWORD error = ::GetLastError();
        LogSystemError(LogModule::Data, kError, file ? "GetFileSizeEx" : "CreateFileW", error,
                       path);
        return {};
    }
    std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
    if (!ReadAll(file.get(), bytes)) {
        const DWORD error = ::GetLastError();
        LogSystemError(LogModule::Data, kError, "ReadFile", error, path);
        return {};
    }
    return bytes;
}

// Converted in one piece by Windows. A wide stream with a UTF-8 facet would do for most reports,
// but wchar_t has 16 bits here, and the facet gives up at a character beyond U+FFFF, such as an
// emoji in a camera's name.
std::wstring ReadReport(const std::wstring& path) {
    try {
        std::wstring text = Utf8ToWide(ReadReportFile(path));
        if (!text.empty() && text.front() == kByteOrderMark)
            text.erase(0, 1);
        return text;
    } catch (const std::bad_alloc&) { // nothing but memory bounds a report
        WriteLog(LogModule::Data, kError,
                 "Report " + WideToUtf8(path) + " is too large for the memory.");
        return {};
    }
}

// A file that stays behind does no harm: the next run has another name.
void DeleteIfThere(const std::wstring& path) {
    if (PathExists(path))
        ::DeleteFileW(path.c_str());
}

} // namespace

std::wstring AnalysisCommand(const std::wstring& scriptPath, const std::wstring& reportPath) {
    return L"fileIn \"" + scriptPath + L"\"\n" + L"gMax.analysis \"" + reportPath + L"\" \"\"";
}

bool RunSceneAnalysis(HWND ownerWindow, FPValue& result, const std::wstring& scriptPath,
                      std::wstring& reportText) {
    const std::wstring reportPath = NewReportPath();
    PluginData::instance().analysis.reportPath = reportPath;

    const int answer = host::RunScript(AnalysisCommand(scriptPath, reportPath), result);
    if (answer != 1) {
        WriteLog(LogModule::Data, kError,
                 "Analysis script failed, the host returned " + std::to_string(answer));
        ShowMessage(ownerWindow, IDS_ANALYSIS_FAILED, IDS_CAPTION);
        return false;
    }
    reportText = ReadReport(reportPath);
    DeleteIfThere(reportPath);
    DeleteIfThere(reportPath + L".log"); // the parser's own log
    return true;
}

} // namespace orv
