#include "library_file.h"

#include <stdarg.h>
#include <stdio.h>

void Reason::operator()(const wchar_t* format, ...) const {
    if (!text || capacity <= 0)
        return;
    va_list arguments;
    va_start(arguments, format);
    _vsnwprintf(text, static_cast<size_t>(capacity), format, arguments);
    text[capacity - 1] = 0;
    va_end(arguments);
}

LibraryFile::LibraryFile(const wchar_t* path)
    : file_(CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                        OPEN_EXISTING, 0, nullptr)) {
    if (file_ == INVALID_HANDLE_VALUE)
        return;
    section_ = CreateFileMappingW(file_, nullptr, PAGE_READONLY | SEC_IMAGE, 0, 0, nullptr);
    if (section_)
        image_ = static_cast<char*>(MapViewOfFile(section_, FILE_MAP_READ, 0, 0, 0));
}

LibraryFile::~LibraryFile() {
    if (image_)
        UnmapViewOfFile(image_);
    if (section_)
        CloseHandle(section_);
    if (file_ != INVALID_HANDLE_VALUE)
        CloseHandle(file_);
}

const IMAGE_NT_HEADERS64* LibraryFile::header() const {
    const IMAGE_DOS_HEADER* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image_);
    return reinterpret_cast<const IMAGE_NT_HEADERS64*>(image_ + dos->e_lfanew);
}

bool LibraryFile::isReadable(const Reason& reason) const {
    if (!image_) {
        reason(L"the file is no library of Windows");
        return false;
    }
    if (header()->FileHeader.Machine != IMAGE_FILE_MACHINE_AMD64) {
        reason(L"the library is not for 64-bit Windows");
        return false;
    }
    return true;
}

char* LibraryFile::preferredBase() const {
    // The view's own header may say where the view stands; the file says what was asked for.
    const LONG at = reinterpret_cast<const IMAGE_DOS_HEADER*>(image_)->e_lfanew;
    IMAGE_NT_HEADERS64 wanted = {};
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(at);
    DWORD read = 0;
    ReadFile(file_, &wanted, sizeof(wanted), &read, &place);
    return reinterpret_cast<char*>(wanted.OptionalHeader.ImageBase);
}

bool LibraryFile::hasItsImports(const Reason& reason) const {
    const DWORD start =
        header()->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    if (start == 0)
        return true;
    const IMAGE_IMPORT_DESCRIPTOR* library =
        reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(image_ + start);
    for (; library->Name; ++library) {
        const char* name = image_ + library->Name;
        const HMODULE module = LoadLibraryA(name);
        if (!module) {
            reason(L"the library needs %hs, which cannot be loaded", name);
            return false;
        }
        const ULONGLONG* entry =
            reinterpret_cast<const ULONGLONG*>(image_ + library->OriginalFirstThunk);
        const char* missing = nullptr;
        for (; *entry && !missing; ++entry) {
            if (*entry & IMAGE_ORDINAL_FLAG64)
                continue;
            const char* function =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(image_ + *entry)->Name;
            if (!GetProcAddress(module, function))
                missing = function;
        }
        FreeLibrary(module);
        if (missing) {
            reason(L"the library needs %hs of %hs, which does not export it", missing, name);
            return false;
        }
    }
    return true;
}
