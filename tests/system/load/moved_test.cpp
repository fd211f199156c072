// The library at every place but the one that it prefers, as address randomisation puts it.
#include "standin/maxutil.h"
#include "tests/support/files.h"
#include "tests/support/pe_file.h"
#include "tests/support/program_folder.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/abi/slots.h"
#include "tests/system/shell/plugin_in_host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace orv {
namespace test {
namespace {

constexpr std::uintptr_t kFourGigabytes = std::uintptr_t{1} << 32;

std::uintptr_t PlaceOf(HMODULE module) {
    return reinterpret_cast<std::uintptr_t>(module);
}

// Keeps a part of the address space from being given out.
class HeldPlace : private rud_Noncopyable {
public:
    explicit HeldPlace(std::uintptr_t place, std::size_t size = 1)
        : place_(::VirtualAlloc(reinterpret_cast<void*>(place), size, MEM_RESERVE, PAGE_NOACCESS)) {
    }
    ~HeldPlace() {
        if (place_ != nullptr)
            ::VirtualFree(place_, 0, MEM_RELEASE);
    }
    explicit operator bool() const { return place_ != nullptr; }

private:
    void* place_;
};

class Library : public ::testing::TestWithParam<const wchar_t*> {
protected:
    const std::wstring path = ProgramFolder() + L"\\" + GetParam();
};

TEST_P(Library, PrefersAPlaceThatThisProgramHasTaken) {
    const auto place = reinterpret_cast<const wchar_t*>(PeFile(path).preferredBase());
    HMODULE there = nullptr;
    ASSERT_TRUE(::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                         GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                                     place, &there));
    EXPECT_EQ(there, ::GetModuleHandleW(nullptr));
}

TEST_P(Library, IsMovedInThisRun) {
    BareHost host; // the plug-in's entry asks the host for its language
    const HMODULE module = ::LoadLibraryW(path.c_str());
    ASSERT_NE(module, nullptr) << ::GetLastError();
    EXPECT_NE(PlaceOf(module), PeFile(path).preferredBase());
    ::FreeLibrary(module);
}

INSTANTIATE_TEST_SUITE_P(All, Library,
                         ::testing::Values(L"OrvRendering.gup", L"core.dll", L"gup.dll",
                                           L"maxutil.dll", L"menus.dll", L"ParamBlk2.dll",
                                           L"MAXScrpt.dll"),
                         [](const auto& parameter) {
                             const std::wstring name = parameter.param;
                             return std::string(name.begin(), name.begin() + name.find(L'.'));
                         });

// Descriptor, start, start-up notification, menu, an action's text, stop: what the host does with
// the library, through code and data that the loader had to relocate.
void Use() {
    const PluginInHost plugin;
    standin_broadcast(kStartup);
    EXPECT_EQ(Items(standin_find_menu(kMenuTitle)).size(), 3U);
    EXPECT_STREQ(standin_plugin_text(plugin(), L"internal"), L"Orv_Rendering");
    EXPECT_NE(PlaceOf(plugin.module()), PeFile(PluginPath()).preferredBase());
}

// Takes whatever is free below 4 GB, so that a module has to be placed above.
class HeldLowMemory : private rud_Noncopyable {
public:
    HeldLowMemory() {
        constexpr std::uintptr_t kStep = 0x10000; // places are given out in steps of 64 KB
        MEMORY_BASIC_INFORMATION region = {};
        for (std::uintptr_t at = kStep; at < kFourGigabytes;) {
            if (::VirtualQuery(reinterpret_cast<const void*>(at), &region, sizeof(region)) == 0)
                return;
            const std::uintptr_t end =
                reinterpret_cast<std::uintptr_t>(region.BaseAddress) + region.RegionSize;
            const std::uintptr_t first = (at + kStep - 1) / kStep * kStep;
            if (region.State == MEM_FREE && end > first)
                places_.push_back(
                    std::make_unique<HeldPlace>(first, std::min(end, kFourGigabytes) - first));
            at = end;
        }
    }

private:
    std::vector<std::unique_ptr<HeldPlace>> places_;
};

TEST(Moved, WorksAboveFourGigabytes) {
    BareHost host;
    const HeldLowMemory low;
    const PluginInHost plugin;
    EXPECT_GE(PlaceOf(plugin.module()), kFourGigabytes);
    standin_broadcast(kStartup);
    EXPECT_EQ(MenuBar(), Texts{L"> Orv Rendering"});
    EXPECT_EQ(Items(standin_find_menu(kMenuTitle)).size(), 3U);
}

TEST(Moved, WorksAtEachPlaceWhereItIsLoadedAgain) {
    std::vector<std::unique_ptr<HeldPlace>> former;
    std::vector<std::uintptr_t> places;
    for (int i = 0; i < 4; ++i) {
        BareHost host;
        std::uintptr_t place = 0;
        {
            const PluginInHost plugin;
            place = PlaceOf(plugin.module());
            standin_broadcast(kStartup);
            EXPECT_EQ(Items(standin_find_menu(kMenuTitle)).size(), 3U);
        }
        for (const std::uintptr_t other : places)
            EXPECT_NE(place, other);
        places.push_back(place);
        former.push_back(std::make_unique<HeldPlace>(place));
        EXPECT_TRUE(*former.back()) << "the place is free once the library is unloaded";
    }
}

// Two installations of the plug-in: the host loads both files.
TEST(Moved, WorksTwiceFromTwoPaths) {
    BareHost host;
    standin_set_language(kEnglish);
    const TemporaryFolder folder(L"copy \u526F\u672C");
    const std::wstring copy = folder.file(L"OrvRendering.gup");
    ASSERT_TRUE(::CopyFileW(PluginPath().c_str(), copy.c_str(), TRUE));
    wchar_t reason[200] = {};
    standin_plugin* const first = standin_plugin_load(PluginPath().c_str(), reason, 200);
    ASSERT_NE(first, nullptr) << reason;
    standin_plugin* const second = standin_plugin_load(copy.c_str(), reason, 200);
    ASSERT_NE(second, nullptr) << reason;
    EXPECT_NE(standin_plugin_module(first), standin_plugin_module(second));
    for (const standin_plugin* const plugin : {first, second}) {
        EXPECT_STREQ(standin_plugin_text(plugin, L"class"), L"Orv Rendering");
        EXPECT_EQ(standin_plugin_object_count(plugin), 1);
    }
    standin_broadcast(kStartup);
    EXPECT_EQ(MenusTitled(kMenuTitle), 1);
    EXPECT_EQ(Items(standin_find_menu(kMenuTitle)).size(), 3U);
    standin_plugin_unload(second);
    standin_plugin_unload(first);
    EXPECT_EQ(standin_notification_count(), 0);
}

TEST(Moved, LeavesNothingWhereItStoodWhenItIsUnloaded) {
    BareHost host;
    std::uintptr_t place = 0;
    {
        const PluginInHost plugin;
        place = PlaceOf(plugin.module());
        WNDCLASSEXW door = {};
        door.cbSize = sizeof(door);
        EXPECT_TRUE(::GetClassInfoExW(plugin.module(), L"OrvHostDoor", &door));
    }
    EXPECT_EQ(::GetModuleHandleW(PluginPath().c_str()), nullptr);
    MEMORY_BASIC_INFORMATION region = {};
    ASSERT_NE(::VirtualQuery(reinterpret_cast<const void*>(place), &region, sizeof(region)), 0U);
    EXPECT_EQ(region.State, static_cast<DWORD>(MEM_FREE));
    WNDCLASSEXW door = {};
    door.cbSize = sizeof(door);
    EXPECT_FALSE(::GetClassInfoExW(reinterpret_cast<HINSTANCE>(place), L"OrvHostDoor", &door));
    Use(); // and it can come again
}

} // namespace
} // namespace test
} // namespace orv
