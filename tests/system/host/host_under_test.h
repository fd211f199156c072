// A stand-in host in the process of the test, with a record of its events.
#pragma once

#include "standin/host/host.h"
#include "tests/system/host/scene_folder.h"

#include <json/json.h>

#include <memory>
#include <string>
#include <vector>

// Folder with a copy of the product's library, as an installation has it; made once for a test.
std::wstring MakePluginFolder(const SceneFolder& folder);

// The entries of a menu as a user reads them; "-" is a separator, "*" stands before a grey entry.
std::vector<std::wstring> MenuTexts(HMENU menu);

class HostUnderTest {
public:
    explicit HostUnderTest(standin::HostOptions options);

    standin::Host& operator*() { return *host_; }
    standin::Host* operator->() { return host_.get(); }

    // The events of that name so far.
    std::vector<Json::Value> events(const std::string& name) const;

    std::vector<std::wstring> menuBar() const { return MenuTexts(GetMenu(host_->window())); }

    // Entries of the pull-down menu with this title; empty when it is missing.
    std::vector<std::wstring> menu(const std::wstring& title) const;

    // Chooses an entry as a mouse does: by the command that it sends. False when it is not there.
    bool choose(const std::wstring& menuTitle, const std::wstring& entry);

private:
    std::vector<Json::Value> events_;
    std::unique_ptr<standin::Host> host_;
};
