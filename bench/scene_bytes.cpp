#include "bench/scene_bytes.h"

#include <algorithm>
#include <random>
#include <vector>

namespace orv {
namespace bench {
namespace {

constexpr std::size_t kSceneSize = 200U * 1000 * 1000;

} // namespace

std::string SceneBytes() {
    std::mt19937 random(20190507U);
    std::vector<std::string> records(4096, std::string(96, '\0'));
    for (std::string& record : records)
        std::generate(record.begin(), record.end(),
                      [&random] { return static_cast<char>(random() & 0xFF); });
    std::string bytes;
    bytes.reserve(kSceneSize);
    while (bytes.size() + 112 <= kSceneSize) {
        bytes += records[random() % records.size()];
        for (int i = 0; i < 4; ++i) {
            const std::uint_fast32_t number = random();
            for (int byte = 0; byte < 4; ++byte)
                bytes += static_cast<char>((number >> (8 * byte)) & 0xFF);
        }
    }
    return bytes.append(kSceneSize - bytes.size(), '\0');
}

} // namespace bench
} // namespace orv
