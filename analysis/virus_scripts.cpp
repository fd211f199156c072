#include "analysis/virus_scripts.h"

#include "config/plugin_data.h"
#include "host/host.h"

namespace orv {
namespace {

struct CleaningScript {
    std::wstring ClientInfo::*path;
    const char* logLine;
};

const CleaningScript kScripts[] = {
    {&ClientInfo::virusCheckAdsl, "Check ADSL virus for scene"},
    {&ClientInfo::virusCheckAlc, "Check ALC virus for scene"},
    {&ClientInfo::virusCheckCrp, "Check CRP virus for scene"},
};

} // namespace

void RunVirusScripts() {
    ClientInfo info;
    PluginData::instance().loadClientInfo(info);
    host::ScriptValue value;
    for (const CleaningScript& script : kScripts) {
        if (PluginData::instance().endSubmission.isMade())
            return;
        host::RunScript(L"fileIn \"" + info.*script.path + L"\"", value.get());
        PluginData::instance().writeLog(kWarn, script.logLine);
    }
}

} // namespace orv
