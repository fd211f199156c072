// What users, installers and the farm's client leave for the plug-in: the settings file,
// custom.bin, shared memory.
#include "analysis/text/text_convert.h"
#include "base/folders.h"
#include "base/handles.h"
#include "config/client_info.h"
#include "config/plugin_data.h"
#include "config/remembered_settings.h"
#include "config/session_data.h"
#include "tests/fuzz/difficult.h"
#include "tests/fuzz/mutate.h"
#include "tests/fuzz/targets.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

#include <cstring>
#include <stdexcept>

namespace orv {
namespace fuzz {
namespace {

// A file that is written anew for each input.
class RewrittenFile {
public:
    explicit RewrittenFile(const std::wstring& path)
        : file_(::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)) {
        if (!file_)
            throw std::runtime_error("the file for the inputs cannot be opened");
    }

    void write(const std::string& bytes) const {
        DWORD written = 0;
        ::SetFilePointer(file_.get(), 0, nullptr, FILE_BEGIN);
        ::WriteFile(file_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
        ::SetEndOfFile(file_.get());
        ::SetFilePointer(file_.get(), 0, nullptr, FILE_BEGIN);
    }

    HANDLE get() const { return file_.get(); }

private:
    FileHandle file_;
};

std::string HostileSettings(Random& random) {
    static const std::vector<std::string> keys = {
        "ip", "port", "lowerversion", "GI_SIZE", "EDIT_AO_RADIUS", "NOBLOCK", "REMBER_SETTING"};
    std::string bytes = random.oneIn(20) ? "\xFF\xFE" : "";
    bytes += random.oneIn(8) ? AnyText(random) : "[general]\r\n";
    for (std::size_t lines = random.below(8); lines > 0; --lines) {
        bytes += random.oneIn(8) ? AnyText(random) : random.oneOf(keys);
        bytes += random.oneIn(12) ? "" : "=";
        bytes += AnyText(random);
        bytes += random.oneIn(6) ? "\n" : "\r\n";
    }
    return random.oneIn(3) ? MutateBytes(bytes, random) : bytes;
}

class SettingsReader {
public:
    void read(const std::string& bytes) {
        file_.write(bytes);
        ClientInfo info;
        Require(PluginData::instance().loadClientInfo(info), "settings are always loaded");
        Require(info.lowerVersion.size() < 2048, "a value is no longer than it may be");
        Require(info.jsonDir.compare(0, product_.size(), product_) == 0,
                "the folders do not depend on the settings");
        // Eighteen values: one input in eight is enough of them.
        if (count_++ % 8 == 0)
            Require(ReadRememberedSettings().size() <= RememberedControls().size(),
                    "no more is remembered than there are controls");
    }

private:
    RewrittenFile file_{SettingsFile()};
    const std::wstring product_ = ProductFolder();
    std::size_t count_ = 0;
};

std::string HostileAddress(Random& random) {
    std::wstring text = random.oneIn(4) ? L"" : L"ip=127.0.0.1";
    text += Utf8ToWide(AnyText(random));
    const std::string bytes = test::Utf16Bytes(text);
    return random.oneIn(2) ? MutateBytes(bytes, random) : bytes;
}

class AddressReader {
public:
    void read(const std::string& bytes) const {
        file_.write(bytes);
        std::wstring text;
        DWORD error = 0;
        Require(ReadWideText(file_.get(), text, error), "a file that is there can be read");
        Require(text.find(L'\0') == std::wstring::npos, "the text ends at its first zero");
        std::wstring address = L"as it was";
        const bool isTaken = TakeCustomAddress(text, address);
        Require(isTaken == (text.find(L'=') != std::wstring::npos), "an address follows an =");
        Require(isTaken || address == L"as it was", "without one it stays");
    }

private:
    const test::TemporaryFolder folder_;
    const RewrittenFile file_{folder_.file(L"custom.bin")};
};

std::string HostileMemory(Random& random) {
    std::string bytes = random.oneIn(3) ? "D:/archives" : AnyText(random);
    if (random.oneIn(3))
        bytes = MutateBytes(bytes, random);
    if (!random.oneIn(4))
        bytes.push_back('\0');
    return bytes;
}

struct Section {
    Section(const wchar_t* name, std::size_t bytes)
        : mapping(::CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                       static_cast<DWORD>(bytes), name)),
          view(::MapViewOfFile(mapping.get(), FILE_MAP_WRITE, 0, 0, 0)) {
        if (!view)
            throw std::runtime_error("the section cannot be made");
    }
    FileMappingHandle mapping;
    MappedView view;
};

// The sections keep what an earlier input left behind the text of this one, as a client would.
class MemoryReader {
public:
    void read(const std::string& bytes) const {
        const std::size_t size = bytes.size() < kSize ? bytes.size() : kSize;
        std::memcpy(userName_.view.get(), bytes.data(), size);
        std::memcpy(savePath_.view.get(), bytes.data(), size);
        SessionData data;
        readSessionData(data);
        Require(data.savePathBytes.size() < 4096, "a value is no longer than it may be");
        Require(data.present == (data.userName == data.savePath &&
                                 Utf8ToWide(data.savePathBytes) == data.savePath) ||
                    !data.present,
                "both values are what the memory has");
    }

private:
    static constexpr std::size_t kSize = 8192;
    const Section userName_{L"TALVEKRO_USERNAME_DATA", kSize};
    const Section savePath_{L"TALVEKRO_PLUGIN_SAVE_PATH", kSize};
};

} // namespace

std::vector<Target> SettingsTargets() {
    return {{"settings", HostileSettings, FedTo<SettingsReader>()},
            {"custom-address", HostileAddress, FedTo<AddressReader>()},
            {"shared-memory", HostileMemory, FedTo<MemoryReader>()}};
}

} // namespace fuzz
} // namespace orv
