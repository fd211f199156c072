// What hostile inputs are thrown at.
#pragma once

#include "tests/fuzz/random.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orv {
namespace fuzz {

struct Target {
    const char* name;
    std::function<std::string(Random&)> make;      // one input
    std::function<void(const std::string&)> taste; // feeds it; throws when the result is wrong
};

// Everything that reads what comes from outside. To be called once the product folder is ready;
// ends with a crash wherever the product does.
const std::vector<Target>& Targets();

// Throws std::logic_error with `rule` when it does not hold.
void Require(bool holds, const char* rule);

// What feeds inputs to a `Reader`, a type with `void read(const std::string&)`, which is made for
// the first of them: a run of one target leaves the files of the others alone.
template<class Reader>
std::function<void(const std::string&)> FedTo() {
    const auto reader = std::make_shared<std::unique_ptr<Reader>>();
    return [reader](const std::string& bytes) {
        if (!*reader)
            *reader = std::make_unique<Reader>();
        (*reader)->read(bytes);
    };
}

// The targets by their sources' files.
std::vector<Target> ReportTargets();
std::vector<Target> SettingsTargets();
std::vector<Target> TextTargets();
std::vector<Target> WireTargets();

} // namespace fuzz
} // namespace orv
