// Whether the farm's client accepts this version of the plug-in.
#pragma once

#include <string>

namespace orv {

enum class ClientVersion {
    Accepted,
    Missing,      // the client's settings name no version: it was never started here
    PluginTooOld, // the client asks for a newer plug-in
};

// Compares the lowest version that the client accepts, as its settings give it, with
// `pluginVersion`, character by character over the first five. A longer text that begins with the
// plug-in's own version asks for a newer one.
ClientVersion CheckClientVersion(const std::wstring& lowestAccepted,
                                 const std::wstring& pluginVersion);

} // namespace orv
