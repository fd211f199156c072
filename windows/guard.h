// What stands between the product's code and callers that no exception may reach: window
// procedures, threads, and calls by the host or by Windows.
#pragma once

#include <exception>
#include <string>

namespace orv {

// Runs `body`. When it throws, calls `report` with one line, `failure` and what the exception says
// ("Opening the dialog failed: out of memory"), and returns false. An exception of `report` is
// dropped.
template<class Report, class Body>
bool RunGuarded(const char* failure, Report report, Body body) noexcept {
    try {
        try {
            body();
            return true;
        } catch (const std::exception& error) {
            report(std::string(failure) + ": " + error.what());
        } catch (...) {
            report(std::string(failure) + ".");
        }
    } catch (...) {
        // There is nowhere left to report it.
    }
    return false;
}

} // namespace orv
