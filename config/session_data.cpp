#include "config/session_data.h"

#include "analysis/text/text_convert.h"
#include "base/handles.h"
#include "log/log.h"

#include <algorithm>
#include <vector>

namespace orv {
namespace {

constexpr wchar_t kUserNameSection[] = L"TALVEKRO_USERNAME_DATA";
constexpr wchar_t kSavePathSection[] = L"TALVEKRO_PLUGIN_SAVE_PATH";

constexpr std::size_t kLongestValue = 4096; // bytes, the zero at the end included

void LogFailure(const wchar_t* section, const std::string& what) {
    WriteLog(LogModule::Data, kWarn, "Session data " + WideToUtf8(section) + ": " + what);
}

// The readable size of a view, at most kLongestValue: a section may be smaller.
std::size_t SizeOf(const void* view) {
    MEMORY_BASIC_INFORMATION region = {};
    if (::VirtualQuery(view, &region, sizeof(region)) == 0 || region.State != MEM_COMMIT)
        return 0;
    return std::min<std::size_t>(region.RegionSize, kLongestValue);
}

// Copies the view before it is read: the client may be writing. Pages of the view may be reserved
// only, or lost with a network drive, and an access would end the host. ReadProcessMemory fails for
// such pages; then nothing is copied.
std::vector<char> CopyOf(const void* view) {
    std::vector<char> bytes(SizeOf(view));
    SIZE_T copied = 0;
    if (!::ReadProcessMemory(::GetCurrentProcess(), view, bytes.data(), bytes.size(), &copied))
        copied = 0;
    bytes.resize(copied);
    return bytes;
}

// The bytes before the zero byte of a section.
bool ReadSection(const wchar_t* name, std::string& value) {
    const FileMappingHandle section(::OpenFileMappingW(FILE_MAP_READ, FALSE, name));
    if (!section)
        return false;
    const MappedView view(::MapViewOfFile(section.get(), FILE_MAP_READ, 0, 0, 0));
    if (!view) {
        const DWORD error = ::GetLastError();
        LogSystemError(LogModule::Data, kWarn, "MapViewOfFile", error, name);
        return false;
    }
    const std::vector<char> bytes = CopyOf(view.get());
    if (bytes.empty()) {
        LogFailure(name, "its memory cannot be read.");
        return false;
    }
    const auto end = std::find(bytes.begin(), bytes.end(), '\0');
    if (end == bytes.end()) {
        LogFailure(name, "no zero byte at the end of the text.");
        return false;
    }
    value.assign(bytes.begin(), end);
    return true;
}

bool ReadText(const wchar_t* name, std::string& bytes, std::wstring& text) {
    if (!ReadSection(name, bytes))
        return false;
    bool isUtf8 = false;
    text = Utf8ToWide(bytes, &isUtf8);
    if (!isUtf8)
        LogFailure(name, "the text is not UTF-8.");
    return true;
}

} // namespace

void readSessionData(SessionData& data) {
    std::string bytes;
    std::wstring text;
    if (!ReadText(kUserNameSection, bytes, text))
        return;
    data.userName = text;
    if (!ReadText(kSavePathSection, bytes, text))
        return;
    data.savePath = text;
    data.savePathBytes = bytes;
    data.present = true;
}

} // namespace orv
