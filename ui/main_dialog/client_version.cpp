#include "ui/main_dialog/client_version.h"

#include <cstddef>

namespace orv {

ClientVersion CheckClientVersion(const std::wstring& lowestAccepted,
                                 const std::wstring& pluginVersion) {
    // The length of "1.3.7". The client writes its settings for plug-ins that compare in this way.
    const std::size_t compared = 5;
    if (lowestAccepted.empty())
        return ClientVersion::Missing;
    const int order = lowestAccepted.compare(0, compared, pluginVersion, 0, compared);
    if (order > 0 || (order == 0 && lowestAccepted.size() > compared))
        return ClientVersion::PluginTooOld;
    return ClientVersion::Accepted;
}

} // namespace orv
