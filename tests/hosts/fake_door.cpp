#include "tests/hosts/fake_door.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace orv {
namespace test {
namespace {

FakeDoor* current = nullptr;

FakeDoor& Current() {
    if (current == nullptr)
        throw std::logic_error("the product called the host, but the test has none");
    return *current;
}

int CopyText(const std::wstring& text, wchar_t* buffer, int capacity) {
    if (capacity > 0) {
        const std::size_t count = std::min(text.size(), static_cast<std::size_t>(capacity) - 1);
        text.copy(buffer, count);
        buffer[count] = L'\0';
    }
    return static_cast<int>(text.size());
}

} // namespace

FakeDoor::FakeDoor() {
    current = this;
}

FakeDoor::~FakeDoor() {
    current = nullptr;
}

std::vector<std::wstring> FakeDoor::savedPaths() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return savedPaths_;
}

std::vector<std::wstring> FakeDoor::scripts() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return scripts_;
}

int FakeDoor::valuesAlive() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return valuesAlive_;
}

std::wstring FakeDoor::scenePath() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return sceneFilePath;
}

bool FakeDoor::saveTo(const std::wstring& path) {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        savedPaths_.push_back(path);
    }
    if (onSaveTo && !onSaveTo(path))
        return false;
    const std::lock_guard<std::mutex> lock(mutex_);
    sceneFilePath = path;
    return true;
}

int FakeDoor::saveCommands() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return saveCommands_;
}

std::vector<std::wstring> FakeDoor::toolTips() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return toolTips_;
}

bool FakeDoor::save() {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        ++saveCommands_;
    }
    return !onSave || onSave();
}

void FakeDoor::setToolTips(std::vector<std::wstring> texts) {
    const std::lock_guard<std::mutex> lock(mutex_);
    toolTips_ = std::move(texts);
}

int FakeDoor::runScript(const std::wstring& script) {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        scripts_.push_back(script);
    }
    return onScript ? onScript(script) : 1;
}

FPValue* FakeDoor::createValue() {
    const std::lock_guard<std::mutex> lock(mutex_);
    ++valuesAlive_;
    return reinterpret_cast<FPValue*>(new char[64]()); // only its address is used here
}

void FakeDoor::destroyValue(FPValue* value) {
    const std::lock_guard<std::mutex> lock(mutex_);
    --valuesAlive_;
    delete[] reinterpret_cast<char*>(value);
}

} // namespace test
} // namespace orv

using orv::test::Current;

extern "C" {

HWND orv_host_main_window(void) {
    return nullptr;
}

int orv_host_is_unattended(void) {
    return 0;
}

void orv_host_watch_exit(void (*)(void)) {} // it never exits

int orv_host_scene_file_name(wchar_t* buffer, int capacity) {
    const std::wstring path = Current().scenePath();
    const std::size_t separator = path.find_last_of(L"\\/");
    return orv::test::CopyText(separator == std::wstring::npos ? path : path.substr(separator + 1),
                               buffer, capacity);
}

int orv_host_scene_file_path(wchar_t* buffer, int capacity) {
    return orv::test::CopyText(Current().scenePath(), buffer, capacity);
}

int orv_host_save_scene_to(const wchar_t* path) {
    return Current().saveTo(path) ? 1 : 0;
}

int orv_host_save_scene(void) {
    return Current().save() ? 1 : 0;
}

void* orv_host_tooltips_create(void) {
    return &Current();
}

void orv_host_tooltips_set(void* tooltips, HWND, const wchar_t* text) {
    auto& host = *static_cast<orv::test::FakeDoor*>(tooltips);
    std::vector<std::wstring> texts = host.toolTips();
    texts.emplace_back(text);
    host.setToolTips(texts);
}

void orv_host_tooltips_destroy(void* tooltips) {
    if (tooltips != nullptr)
        static_cast<orv::test::FakeDoor*>(tooltips)->setToolTips({});
}

int orv_host_run_script(const wchar_t* text, FPValue*) {
    return Current().runScript(text);
}

FPValue* orv_host_value_create(void) {
    return Current().createValue();
}

void orv_host_value_destroy(FPValue* value) {
    Current().destroyValue(value);
}

// The host has no spinners: its dialogs do without.
int orv_host_setup_float_spinner(HWND, int, int, float, float, float, float) {
    return 0;
}

float orv_host_spinner_float(HWND, int) {
    return 0;
}

void orv_host_set_spinner_float(HWND, int, float) {}
}
