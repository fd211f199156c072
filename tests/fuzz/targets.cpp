#include "tests/fuzz/targets.h"

#include <stdexcept>
#include <utility>

namespace orv {
namespace fuzz {

void Require(bool holds, const char* rule) {
    if (!holds)
        throw std::logic_error(rule);
}

const std::vector<Target>& Targets() {
    static const std::vector<Target> all = [] {
        std::vector<Target> targets;
        for (auto&& some : {ReportTargets(), SettingsTargets(), TextTargets(), WireTargets()})
            targets.insert(targets.end(), some.begin(), some.end());
        return targets;
    }();
    return all;
}

} // namespace fuzz
} // namespace orv
