// Loads a plug-in library and keeps its global utilities, as the host does at its start.
#include "max.h"
// max.h first
#include "gup.h"
#include "library_file.h"
#include "standin/sdk/include/standin/gup.h"
#include "standin/sdk/include/standin/host_services.h"

#include <string.h>
#include <wchar.h>

struct standin_plugin : public MaxHeapOperators {
    HMODULE module = nullptr;
    Tab<GUP*> objects;
    ClassDesc* descriptor = nullptr; // of the first utility
    MSTR description;
    int(WINAPI* shutdown)() = nullptr;
};

namespace {

struct Entries {
    const MCHAR* (*LibDescription)();
    int (*LibNumberClasses)();
    ClassDesc* (*LibClassDesc)(int);
    ULONG (*LibVersion)();
    int (*LibInitialize)();
    int (*LibShutdown)();
};

const char* const kEntryNames[] = {"LibDescription", "LibNumberClasses", "LibClassDesc",
                                   "LibVersion",     "LibInitialize",    "LibShutdown"};
const int kEntryCount = sizeof(kEntryNames) / sizeof(kEntryNames[0]);

bool FindEntries(HMODULE module, Entries& entries, const Reason& reason) {
    FARPROC found[kEntryCount];
    for (int i = 0; i < kEntryCount; ++i) {
        found[i] = GetProcAddress(module, kEntryNames[i]);
        if (!found[i]) {
            reason(L"the library does not export %hs", kEntryNames[i]);
            return false;
        }
    }
    static_assert(sizeof(found) == sizeof(entries), "one pointer for each name");
    memcpy(&entries, found, sizeof(entries));
    return true;
}

// The word before an object's virtual table leads to the class's name where the library was
// compiled with run-time type information; 1 is the version of that record on 64-bit Windows.
bool HasTypeInformation(const void* object, HMODULE module) {
    struct Locator {
        DWORD signature;
        DWORD offset;
        DWORD constructorOffset;
        DWORD typeDescriptor; // from the module's start
    };
    const char* base = reinterpret_cast<const char*>(module);
    const IMAGE_DOS_HEADER* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const IMAGE_NT_HEADERS* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const DWORD size = nt->OptionalHeader.SizeOfImage;
    const char* const* table = *static_cast<const char* const* const*>(object);
    const char* const* entry = table - 1;
    const auto inModule = [&](const void* address, size_t length) {
        const char* at = static_cast<const char*>(address);
        return at >= base && at + length <= base + size;
    };
    if (!inModule(entry, sizeof(*entry)) || !inModule(*entry, sizeof(Locator)))
        return false;
    const Locator* locator = reinterpret_cast<const Locator*>(*entry);
    const char* name = base + locator->typeDescriptor + 2 * sizeof(void*);
    return locator->signature == 1 && locator->typeDescriptor < size && inModule(name, 5) &&
           strncmp(name, ".?A", 3) == 0;
}

// False when the host has to give the library up.
bool StartUtilities(standin_plugin& plugin, const Entries& entries, const Reason& reason) {
    for (int i = 0; i < entries.LibNumberClasses(); ++i) {
        ClassDesc* descriptor = entries.LibClassDesc(i);
        if (!descriptor) {
            reason(L"the library has no class descriptor %d", i);
            return false;
        }
        if (!HasTypeInformation(descriptor, plugin.module)) {
            reason(L"the library was compiled without run-time type information");
            return false;
        }
        if (descriptor->SuperClassID() != GUP_CLASS_ID)
            continue;
        GUP* object = static_cast<GUP*>(descriptor->Create(FALSE));
        if (!object) {
            reason(L"class %d cannot be created", i);
            return false;
        }
        if (!plugin.descriptor)
            plugin.descriptor = descriptor;
        if (object->Start() == GUPRESULT_KEEP)
            plugin.objects.Append(1, &object);
        else
            object->DeleteThis();
    }
    return true;
}

bool Open(standin_plugin& plugin, const Reason& reason) {
    Entries entries;
    if (!FindEntries(plugin.module, entries, reason))
        return false;
    if (entries.LibVersion() != static_cast<ULONG>(VERSION_3DSMAX)) {
        reason(L"the library is for version 0x%08lX of the host, not 0x%08lX", entries.LibVersion(),
               static_cast<ULONG>(VERSION_3DSMAX));
        return false;
    }
    if (!entries.LibInitialize()) {
        reason(L"the library's LibInitialize failed");
        return false;
    }
    plugin.shutdown = entries.LibShutdown;
    plugin.description = entries.LibDescription();
    return StartUtilities(plugin, entries, reason);
}

// Loads the library anywhere but at the place that it prefers: with address randomisation Windows
// does so always, and a library that cannot be moved has to fail here as it would there.
HMODULE LoadMoved(const wchar_t* path, const Reason& reason) {
    const LibraryFile file(path);
    if (!file.isReadable(reason) || !file.hasItsImports(reason))
        return nullptr;
    const TakenPlace taken(file.preferredBase());
    const HMODULE module = LoadLibraryW(path);
    if (!module)
        reason(L"the library cannot be loaded, error %lu", GetLastError());
    return module;
}

} // namespace

standin_plugin* standin_plugin_load(const wchar_t* path, wchar_t* reason, int capacity) {
    const Reason why = {reason, capacity};
    why(L"");
    HMODULE module = LoadMoved(path, why);
    if (!module)
        return nullptr;
    standin_plugin* plugin = new standin_plugin;
    plugin->module = module;
    if (Open(*plugin, why))
        return plugin;
    standin_plugin_unload(plugin);
    return nullptr;
}

void standin_plugin_stop(standin_plugin* plugin) {
    if (!plugin)
        return;
    for (int i = 0; i < plugin->objects.Count(); ++i) {
        plugin->objects[i]->Stop();
        plugin->objects[i]->DeleteThis();
    }
    plugin->objects.ZeroCount();
}

void standin_plugin_unload(standin_plugin* plugin) {
    if (!plugin)
        return;
    standin_plugin_stop(plugin);
    standin_release_module(plugin->module);
    if (plugin->shutdown)
        plugin->shutdown();
    FreeLibrary(plugin->module);
    delete plugin;
}

HMODULE standin_plugin_module(const standin_plugin* plugin) {
    return plugin->module;
}
int standin_plugin_object_count(const standin_plugin* plugin) {
    return plugin->objects.Count();
}

const wchar_t* standin_plugin_text(const standin_plugin* plugin, const wchar_t* which) {
    if (wcscmp(which, L"description") == 0)
        return plugin->description.data();
    if (!plugin->descriptor)
        return nullptr;
    if (wcscmp(which, L"class") == 0)
        return plugin->descriptor->ClassName();
    if (wcscmp(which, L"category") == 0)
        return plugin->descriptor->Category();
    return wcscmp(which, L"internal") == 0 ? plugin->descriptor->InternalName() : nullptr;
}
