// The door to the host without a host: the C functions of host/ record each call and return what
// the test has set. For unit tests, which link no SDK.
#pragma once

#include "base/noncopyable.h"
#include "host/host_api.h"

#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace orv {
namespace test {

// While it lives, the product's calls to the host reach it, from whichever thread. One at a time.
class FakeDoor : private rud_Noncopyable {
public:
    FakeDoor();
    ~FakeDoor();

    // Set by the test before the product runs.
    std::wstring sceneFilePath; // of the open scene, empty for one that was never saved
    std::function<bool(const std::wstring& path)> onSaveTo;  // without one, saving succeeds
    std::function<bool()> onSave;                            // the same, of the host's own command
    std::function<int(const std::wstring& script)> onScript; // without one, a script ends with 1

    // What the product asked for, in order.
    std::vector<std::wstring> savedPaths() const;
    std::vector<std::wstring> scripts() const;
    int saveCommands() const;
    // The tooltips that have not been destroyed.
    std::vector<std::wstring> toolTips() const;
    // Script values made and not freed.
    int valuesAlive() const;

    // The host's side of the calls.
    std::wstring scenePath() const;
    bool saveTo(const std::wstring& path);
    bool save();
    void setToolTips(std::vector<std::wstring> texts);
    int runScript(const std::wstring& script);
    FPValue* createValue();
    void destroyValue(FPValue* value);

private:
    mutable std::mutex mutex_; // guards what follows, and sceneFilePath
    std::vector<std::wstring> savedPaths_;
    std::vector<std::wstring> scripts_;
    std::vector<std::wstring> toolTips_;
    int saveCommands_ = 0;
    int valuesAlive_ = 0;
};

} // namespace test
} // namespace orv
