// A host with the plug-in and an open scene of three cameras, in this process or as a program of
// its own.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

#include <memory>
#include <string>
#include <vector>

namespace orv {
namespace test {

// The cameras of the scene in the order of the table's rows.
const std::vector<std::string>& RacedCameras(); // UTF-8

class RacedHost : private rud_Noncopyable {
public:
    virtual ~RacedHost() = default;

    // Settings (lines of section "general"), scene and host. The scene's file is room.max; its
    // saves take `saveMilliseconds`.
    virtual void start(const std::string& settings, std::size_t sceneBytes,
                       int saveMilliseconds) = 0;

    // Chooses the menu's first entry and waits for the dialog; null when it does not come.
    virtual HWND openDialog() = 0;

    virtual DWORD process() const = 0;
    virtual HWND window() const = 0;
    virtual std::wstring sceneFolder() const = 0;
    // A log of the product, as far as it is written.
    virtual std::string log(const std::wstring& name) const = 0;

    // Whether the host has come to its end by itself.
    virtual bool hasEnded() const = 0;
};

std::unique_ptr<RacedHost> MakeHostInThisProcess();
std::unique_ptr<RacedHost> MakeHostProcess();

} // namespace test
} // namespace orv
