#include "config/plugin_data.h"

#include "analysis/text/numbers.h"
#include "analysis/text/text_convert.h"
#include "base/folders.h"
#include "base/handles.h"
#include "config/client_info.h"
#include "log/log.h"

namespace orv {

OrvRenderingConfigMgr::OrvRenderingConfigMgr() = default;

OrvRenderingConfigMgr::~OrvRenderingConfigMgr() = default;

OrvRenderingConfigMgr& OrvRenderingConfigMgr::instance() {
    static OrvRenderingConfigMgr manager;
    return manager;
}

namespace {

// Suffixes of the product folder. The forward slashes stay as they are behind the shell's
// backslashes.
constexpr wchar_t kCustomAddressSuffix[] = L"/script/custom.bin";

struct PathMember {
    std::wstring ClientInfo::*member;
    const wchar_t* suffix;
};

const PathMember kPathMembers[] = {
    {&ClientInfo::jsonDir, L"/json"},
    {&ClientInfo::sevenZipPath, L"/7-Zip/7z.exe"},
    {&ClientInfo::compressDir, L"/compress"},
    {&ClientInfo::parserScript, L"/script/MaxRenderGlobalsParser.mse"},
    {&ClientInfo::virusCheckAdsl, L"/script/OrvAntivirusAdsl_UTF8.ms"},
    {&ClientInfo::virusCheckAlc, L"/script/OrvAntivirusAlc_UTF8.ms"},
    {&ClientInfo::virusCheckCrp, L"/script/OrvAntivirusCrp_UTF8.ms"},
};

} // namespace

PluginData& PluginData::instance() {
    static PluginData data;
    return data;
}

PluginData::PluginData() : rememberedControls(MakeRememberedControlLists()) {
    OpenLog(LogModule::Data);
}

bool PluginData::loadClientInfo(ClientInfo& info) {
    const std::wstring productFolder = ProductFolder();
    for (const PathMember& path : kPathMembers)
        info.*path.member = productFolder + path.suffix;

    info.ip = ReadGeneralSetting(L"ip");
    info.port = WholeNumber(WideToAnsi(ReadGeneralSetting(L"port")));
    info.lowerVersion = ReadGeneralSetting(L"lowerversion");
    readCustomAddress(info);
    WriteLog(LogModule::Data, kInfo, "Get client infomation successfully.");
    return true;
}

int PluginData::readCustomAddress(ClientInfo& info) {
    const std::wstring path = ProductFolder() + kCustomAddressSuffix;
    FileHandle file(::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        // Usually there is no file, so this is not an error.
        LogSystemError(LogModule::Data, kInfo, "CreateFile", ::GetLastError());
        return 0;
    }
    std::wstring text;
    DWORD error = ERROR_SUCCESS;
    if (!ReadWideText(file.get(), text, error)) {
        LogSystemError(LogModule::Data, kInfo, "ReadFile", error);
        return 0;
    }
    file.reset();
    return TakeCustomAddress(text, info.ip) ? 1 : 0;
}

} // namespace orv
