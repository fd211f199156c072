#include "standin/host/scene.h"

#include "standin/host/text.h"

#include "base/windows.h"

namespace standin {
namespace {

std::wstring DescriptionOf(const std::wstring& scenePath) {
    return scenePath + L".json";
}

std::wstring FullPathOf(const std::wstring& path) {
    const DWORD need = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(need, L'\0');
    const DWORD length = need == 0 ? 0 : GetFullPathNameW(path.c_str(), need, &full[0], nullptr);
    if (length == 0 || length >= need) {
        return path;
    }
    full.resize(length);
    return full;
}

} // namespace

bool Scene::open(const std::wstring& path, std::string& error) {
    if (!FileExists(path)) {
        error = "there is no file " + ToUtf8(path);
        return false;
    }
    std::string text = "{}\n";
    if (FileExists(DescriptionOf(path)) && !ReadWholeFile(DescriptionOf(path), text)) {
        error = "cannot read " + ToUtf8(DescriptionOf(path));
        return false;
    }
    SceneDescription description;
    if (!ReadSceneDescription(text, description, error)) {
        return false;
    }
    path_ = FullPathOf(path);
    descriptionText_ = text;
    description_ = description;
    modified_ = description.modified;
    ++generation_;
    return true;
}

bool Scene::describe(const std::string& json, std::string& error) {
    SceneDescription description;
    if (!ReadSceneDescription(json, description, error)) {
        return false;
    }
    descriptionText_ = json;
    description_ = description;
    modified_ = description.modified;
    ++generation_;
    return true;
}

void Scene::change(const std::string& json) {
    SceneDescription description;
    std::string error;
    if (ReadSceneDescription(json, description, error)) {
        descriptionText_ = json;
        description_ = description;
        modified_ = true;
    }
}

bool Scene::save() {
    return hasFile() && saveTo(path_, true, true);
}

bool Scene::saveTo(const std::wstring& path, bool clearModified, bool makeCurrent) {
    Sleep(static_cast<DWORD>(description_.saveMilliseconds));
    if (path.empty() || description_.refuseSave) {
        return false;
    }
    const std::wstring target = FullPathOf(path);
    const bool otherFile = !SameText(target, path_);
    if (otherFile && hasFile()) {
        if (!CopyFileW(path_.c_str(), target.c_str(), FALSE)) {
            return false;
        }
    } else if (FileExists(target) ? !CanBeWritten(target)
                                  : !WriteWholeFile(target, "a scene of the stand-in host\n")) {
        return false;
    }
    if (!WriteWholeFile(DescriptionOf(target), descriptionText_)) {
        return false;
    }
    if (makeCurrent) {
        path_ = target;
    }
    if (clearModified) {
        modified_ = false;
    }
    return true;
}

std::wstring Scene::fileName() const {
    return FileNameOf(path_);
}

} // namespace standin
