// The open scene: a file of any bytes with a description beside it ("NAME.max" and
// "NAME.max.json").
#pragma once

#include "standin/host/scene_description.h"

#include <string>

namespace standin {

class Scene {
public:
    // Opens a scene file. The description beside it may be absent: such a scene holds nothing.
    // False, with a reason, when the file is absent or its description cannot be read; the scene
    // that was open stays open.
    bool open(const std::wstring& path, std::string& error);

    // Replaces the content by a description text (see README.md); the file name stays. False, with
    // a reason, for a text that is not a description; nothing changes then.
    bool describe(const std::string& json, std::string& error);

    // Saves to the current file, which has to exist as a name: see hasFile(). False when the
    // description refuses saving or the file cannot be written.
    bool save();

    // Saves to `path`, as the host's SaveToFile: `clearModified` takes the modified mark away,
    // `makeCurrent` makes `path` the open file.
    bool saveTo(const std::wstring& path, bool clearModified, bool makeCurrent);

    bool hasFile() const { return !path_.empty(); }
    const std::wstring& path() const { return path_; } // full path, empty when never saved
    std::wstring fileName() const;                     // without the folder

    // Takes over what scripts changed of the content: a description text again, which saving
    // writes. The scene counts as modified then.
    void change(const std::string& json);

    // The description as it would be saved, and a number that is another one each time that the
    // content was replaced by open() or describe().
    const std::string& descriptionText() const { return descriptionText_; }
    int generation() const { return generation_; }

    bool modified() const { return modified_; }
    void setModified(bool modified) { modified_ = modified; }

    const SceneDescription& description() const { return description_; }

private:
    std::wstring path_;
    std::string descriptionText_ = "{}\n";
    SceneDescription description_;
    bool modified_ = false;
    int generation_ = 1;
};

} // namespace standin
