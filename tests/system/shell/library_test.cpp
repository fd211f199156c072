// The library's entries, called by name as the host calls them.
#include "tests/support/files.h"
#include "tests/support/import_patch.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/abi/slots.h"
#include "tests/system/shell/plugin_in_host.h"

#include "standin/maxutil.h"

#include <gtest/gtest.h>

#include <winternl.h>

#include <memory>
#include <stdexcept>

namespace orv {
namespace test {
namespace {

class Library : public ::testing::Test {
protected:
    Library() {
        standin_set_language(kEnglish);
        module_ = ::LoadLibraryW(PluginPath().c_str());
    }
    ~Library() override { ::FreeLibrary(module_); }

    template<class Result, class... Arguments>
    Result call(const char* name, Arguments... arguments) {
        return Exported<Result (*)(Arguments...)>(PluginPath().c_str(), name)(arguments...);
    }

    BareHost host;
    HMODULE module_ = nullptr;
};

TEST_F(Library, HasOneClassAndOneDescriptorForIt) {
    EXPECT_EQ(call<int>("LibNumberClasses"), 1);
    void* descriptor = call<void*>("LibClassDesc", 0);
    EXPECT_NE(descriptor, nullptr);
    EXPECT_EQ(call<void*>("LibClassDesc", 0), descriptor);
    EXPECT_EQ(call<void*>("LibClassDesc", 1), nullptr);
    EXPECT_EQ(call<void*>("LibClassDesc", -1), nullptr);
}

TEST_F(Library, IsForThisReleaseOfTheHost) {
    EXPECT_EQ(call<unsigned long>("LibVersion"), 0x52083400UL);
}

TEST_F(Library, CanBeInitialisedAndShutDownManyTimes) {
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(call<int>("LibInitialize"), 1);
        EXPECT_EQ(call<int>("LibShutdown"), 1);
    }
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(Library, DescribesItselfInTheHostsLanguage) {
    EXPECT_STREQ(call<const wchar_t*>("LibDescription"),
                 L"Orv Rendering: sends the open scene to the render farm");
    standin_set_language(kChinese);
    const TemporaryFolder folder;
    const std::wstring copy = folder.file(L"Chinese.gup");
    ASSERT_TRUE(::CopyFileW(PluginPath().c_str(), copy.c_str(), TRUE));
    const HMODULE module = ::LoadLibraryW(copy.c_str());
    EXPECT_STREQ(Exported<const wchar_t* (*)()>(copy.c_str(), "LibDescription")(),
                 L"Orv Rendering\uFF1A\u5C06\u5F53\u524D\u573A\u666F\u63D0\u4EA4\u5230\u6E32\u67D3"
                 L"\u519C\u573A");
    ::FreeLibrary(module);
}

// Mapped without running its entry, so that no module handle is stored yet.
TEST_F(Library, HasNoDescriptionBeforeItsEntryRan) {
    const TemporaryFolder folder;
    const std::wstring copy = folder.file(L"NotEntered.gup");
    ASSERT_TRUE(::CopyFileW(PluginPath().c_str(), copy.c_str(), TRUE));
    const HMODULE module = ::LoadLibraryExW(copy.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
    ASSERT_NE(module, nullptr);
    const FARPROC entry = ::GetProcAddress(module, "LibDescription");
    ASSERT_NE(entry, nullptr);
    const wchar_t* (*describe)() = nullptr;
    std::memcpy(&describe, &entry, sizeof(describe));
    EXPECT_EQ(describe(), nullptr);
    ::FreeLibrary(module);
}

// ---- The loader's calls ----

// What the loader of Windows reports of a library, before it runs the library's entry.
struct LoadedLibrary {
    ULONG flags;
    const UNICODE_STRING* path;
    const UNICODE_STRING* name;
    HMODULE module;
};
using WhenLoaded = void(CALLBACK*)(ULONG, const LoadedLibrary*, void*);

std::vector<HMODULE> withoutThreads;             // modules that want no calls for threads
std::unique_ptr<ImportPatch> disableThreadCalls; // in the library that is being loaded

BOOL WINAPI NoteDisabling(HMODULE module) {
    withoutThreads.push_back(module);
    return ::DisableThreadLibraryCalls(module);
}

void CALLBACK Watch(ULONG, const LoadedLibrary* library, void*) {
    const std::wstring name(library->name->Buffer, library->name->Length / sizeof(wchar_t));
    if (name != L"OrvRendering.gup" || disableThreadCalls != nullptr)
        return;
    try {
        disableThreadCalls =
            std::make_unique<ImportPatch>(library->module, "DisableThreadLibraryCalls",
                                          reinterpret_cast<ULONGLONG>(&NoteDisabling));
    } catch (const std::runtime_error&) {
        // The library does not ask; no exception may reach the loader.
    }
}

// The host starts and ends threads all the time.
TEST(LibraryEntry, WantsNoCallsForThreads) {
    BareHost host;
    standin_set_language(kEnglish);
    void* cookie = nullptr;
    Exported<LONG(NTAPI*)(ULONG, WhenLoaded, void*, void**)>(
        L"ntdll.dll", "LdrRegisterDllNotification")(0, &Watch, nullptr, &cookie);
    withoutThreads.clear();
    const HMODULE module = ::LoadLibraryW(PluginPath().c_str());
    Exported<LONG(NTAPI*)(void*)>(L"ntdll.dll", "LdrUnregisterDllNotification")(cookie);
    disableThreadCalls.reset();
    EXPECT_EQ(withoutThreads, std::vector<HMODULE>{module});
    ::FreeLibrary(module);
}

// A flag, set, and a pointer, null.
TEST_F(Library, ConstructsItsVertexNormalsControl) {
    struct {
        bool enabled;
        void* target;
        char behind;
    } object = {false, this, 'x'};
    Exported<void* (*)(void*)>(PluginPath().c_str(), "??0VertexNormalsControl@@QEAA@XZ")(&object);
    EXPECT_TRUE(object.enabled);
    EXPECT_EQ(object.target, nullptr);
    EXPECT_EQ(object.behind, 'x');
}

} // namespace
} // namespace test
} // namespace orv
