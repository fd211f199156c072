// What the host's libraries ask of the host on behalf of a plug-in, handed to the Host.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

#include <string>

struct standin_value;

namespace standin {

class Host;

// From construction to destruction the libraries serve this host. No exception leaves a service.
class HostServices : private orv::rud_Noncopyable {
public:
    explicit HostServices(Host& host);
    ~HostServices();

    HWND mainWindow() const;
    const wchar_t* sceneFileName();
    const wchar_t* sceneFilePath();
    const wchar_t* folder(int which);
    int saveScene();
    int saveSceneTo(const wchar_t* path, bool clearModified, bool makeCurrent);
    int runScript(const wchar_t* text, standin_value& result);
    void registerDialog(HWND dialog);
    void unregisterDialog(HWND dialog);
    void menuBarChanged();

private:
    Host& host_;
    // Answers have to outlive the call that they answer.
    std::wstring fileName_;
    std::wstring filePath_;
    std::wstring folder_;
    std::wstring scriptText_;
};

} // namespace standin
