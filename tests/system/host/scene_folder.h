// A folder for the files of one test; Chinese characters and a blank are in its path.
#pragma once

#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

#include <string>

class SceneFolder : public orv::test::TemporaryFolder {
public:
    SceneFolder() : TemporaryFolder(L"\u573A\u666F scenes") {}

    // Writes a file into the folder and returns its full path.
    std::wstring write(const std::wstring& name, const std::string& bytes) const {
        orv::test::WriteFileBytes(file(name), bytes);
        return file(name);
    }
};
