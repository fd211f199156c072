#include "standin/client/shared_memory.h"

#include <algorithm>

namespace standin {

namespace {

// The plug-in reads into a buffer of this size.
constexpr std::size_t kSectionSize = 4096;

bool Publish(const wchar_t* name, const std::string& value, orv::FileMappingHandle& section,
             std::string& problem) {
    if (value.size() >= kSectionSize) {
        problem = "A shared value must be shorter than 4096 bytes.";
        return false;
    }
    section.reset(::CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                       static_cast<DWORD>(kSectionSize), name));
    const DWORD created = ::GetLastError();
    if (!section) {
        problem = "Shared memory cannot be created, error " + std::to_string(created) + ".";
        return false;
    }
    const orv::MappedView view(
        ::MapViewOfFile(section.get(), FILE_MAP_WRITE, 0, 0, value.size() + 1));
    const DWORD mapped = ::GetLastError();
    if (!view) {
        problem = "Shared memory cannot be written, error " + std::to_string(mapped) + ".";
        return false;
    }
    std::copy_n(value.c_str(), value.size() + 1, static_cast<char*>(view.get()));
    return true;
}

} // namespace

bool PublishSession(const std::string& userName, const std::string& savePath,
                    SharedSections& sections, std::string& problem) {
    return Publish(L"TALVEKRO_USERNAME_DATA", userName, sections.userName, problem) &&
           Publish(L"TALVEKRO_PLUGIN_SAVE_PATH", savePath, sections.savePath, problem);
}

} // namespace standin
