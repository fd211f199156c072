// The plug-in's library as the host meets it: loaded, asked for its class, and started.
#pragma once

#include "host/abi_facts.h"
#include "standin/maxutil.h"
#include "tests/hosts/bare_host.h"
#include "tests/support/program_folder.h"
#include "tests/system/abi/slots.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {

constexpr DWORD kTableId = 0x45AA4389; // of the action table

class PluginSlots : public ::testing::Test {
protected:
    PluginSlots() {
        standin_set_language(0x0409);
        module = ::LoadLibraryW((ProgramFolder() + L"\\OrvRendering.gup").c_str());
        if (!module)
            throw std::runtime_error("the plug-in cannot be loaded");
        descriptor = entry<void* (*)(int)>("LibClassDesc")(0);
    }
    ~PluginSlots() override {
        standin_core_reset(); // its tables are deleted by the library's own code
        ::FreeLibrary(module);
    }

    template<class Function>
    Function entry(const char* name) {
        return Exported<Function>((ProgramFolder() + L"\\OrvRendering.gup").c_str(), name);
    }

    void* create() { return CallSlot<void*>(descriptor, host_abi::slot::ClassDesc_Create, TRUE); }

    BareHost host;
    HMODULE module = nullptr;
    void* descriptor = nullptr;
};

class StartedPlugin : public PluginSlots {
protected:
    StartedPlugin() {
        CallSlot<DWORD>(utility, host_abi::slot::GUP_Start);
        void* const manager = CallSlot<void*>(
            Exported<void* (*)()>(L"core.dll", "?GetCOREInterface@@YAPEAVInterface@@XZ")(),
            host_abi::slot::Interface_GetActionManager);
        table = CallSlot<void*>(manager, host_abi::slot::IActionManager_FindTable, kTableId);
        callback = CallSlot<void*>(table, host_abi::slot::ActionTable_GetCallback);
    }
    ~StartedPlugin() override {
        CallSlot<void>(utility, host_abi::slot::GUP_Stop);
        CallSlot<void>(utility, host_abi::slot::GUP_DeleteThis);
    }

    void* utility = create();
    void* table = nullptr;
    void* callback = nullptr;
};

} // namespace test
} // namespace orv
