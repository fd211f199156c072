#include "host/host.h"

#include <algorithm>

namespace orv {
namespace host {
namespace {

// Enough for any path that the host opens; a longer one is asked for again with room for all of it.
constexpr int kFirstCapacity = 512;

std::wstring ReadText(int (*read)(wchar_t* buffer, int capacity)) {
    int capacity = kFirstCapacity;
    for (;;) {
        std::wstring text(static_cast<std::size_t>(capacity), L'\0');
        const int length = std::max(0, read(&text[0], capacity));
        if (length < capacity) {
            text.resize(static_cast<std::size_t>(length));
            return text;
        }
        capacity = length + 1;
    }
}

} // namespace

std::wstring SceneFileName() {
    return ReadText(orv_host_scene_file_name);
}

std::wstring SceneFilePath() {
    return ReadText(orv_host_scene_file_path);
}

} // namespace host
} // namespace orv
