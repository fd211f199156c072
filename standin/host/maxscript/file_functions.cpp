// Names of files and folders, and what is done with whole files.
#include "standin/host/maxscript/language_library.h"
#include "standin/host/maxscript/scene_library.h"

#include "standin/host/maxscript/file_streams.h"
#include "standin/host/text.h"

#include "base/handles.h"
#include "base/windows.h"

#include <algorithm>

namespace standin {
namespace maxscript {
namespace {

// The description's word counts for the files that it names, the disk's for all others.
bool Exists(const SceneState& state, const std::wstring& path) {
    for (const SceneAsset& asset : state.assets) {
        if (asset.state != 0 && SameText(asset.path, path)) {
            return asset.state > 0;
        }
    }
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::size_t DotOf(const std::wstring& path) {
    const std::size_t dot = path.rfind(L'.');
    const std::size_t separator = path.find_last_of(L"\\/");
    return dot == std::wstring::npos || (separator != std::wstring::npos && dot < separator)
               ? path.size()
               : dot;
}

// Files, or folders with a backslash at their end, that match a path with a pattern.
Value Search(const std::wstring& pattern, bool folders) {
    std::vector<std::wstring> found;
    WIN32_FIND_DATAW entry = {};
    const orv::FindHandle search(FindFirstFileW(pattern.c_str(), &entry));
    if (!search) {
        return MakeTexts(found);
    }
    const std::size_t separator = pattern.find_last_of(L"\\/");
    const std::wstring folder =
        separator == std::wstring::npos ? L"" : pattern.substr(0, separator + 1);
    do {
        const std::wstring name = entry.cFileName;
        const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (isFolder == folders && name != L"." && name != L"..") {
            found.push_back(folder + name + (folders ? L"\\" : L""));
        }
    } while (FindNextFileW(search.get(), &entry) != FALSE);
    std::sort(found.begin(), found.end());
    return MakeTexts(found);
}

DWORD AttributeOf(const Value& name) {
    const std::wstring text = Fold(TextOf(name));
    if (text == L"readonly") {
        return FILE_ATTRIBUTE_READONLY;
    }
    if (text == L"hidden") {
        return FILE_ATTRIBUTE_HIDDEN;
    }
    throw ScriptError(L"this file attribute is not known here: " + ToText(name));
}

Value GetAttribute(Interpreter&, const Arguments& a) {
    const DWORD all = GetFileAttributesW(TextOf(a.values[0]).c_str());
    return Value(all != INVALID_FILE_ATTRIBUTES && (all & AttributeOf(a.values[1])) != 0);
}

Value SetAttribute(Interpreter&, const Arguments& a) {
    const std::wstring& path = TextOf(a.values[0]);
    const DWORD flag = AttributeOf(a.values[1]);
    const DWORD all = GetFileAttributesW(path.c_str());
    if (all == INVALID_FILE_ATTRIBUTES) {
        return Value(false);
    }
    const DWORD wanted = ToCondition(a.values[2], L"setFileAttribute") ? all | flag : all & ~flag;
    return Value(SetFileAttributesW(path.c_str(), wanted) != FALSE);
}

Value FileSize(Interpreter&, const Arguments& a) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (GetFileAttributesExW(TextOf(a.values[0]).c_str(), GetFileExInfoStandard, &data) == FALSE) {
        return Value(0);
    }
    return Value(static_cast<int>(data.nFileSizeLow & 0x7FFFFFFFU));
}

bool MakeFolders(const std::wstring& path) {
    const std::wstring plain = path.substr(0, path.find_last_not_of(L"\\/") + 1);
    const DWORD attributes = GetFileAttributesW(plain.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    }
    const std::size_t separator = plain.find_last_of(L"\\/");
    if (separator == std::wstring::npos || !MakeFolders(plain.substr(0, separator))) {
        return false;
    }
    return CreateDirectoryW(plain.c_str(), nullptr) != FALSE;
}

void AddNames(Globals& globals) {
    globals.addFunction(L"filenameFromPath", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(FileNameOf(TextOf(a.values[0])));
    });
    globals.addFunction(L"getFilenamePath", 1, 1, [](Interpreter&, const Arguments& a) {
        const std::wstring& path = TextOf(a.values[0]);
        return Value(path.substr(0, path.find_last_of(L"\\/") + 1));
    });
    globals.addFunction(L"getFilenameFile", 1, 1, [](Interpreter&, const Arguments& a) {
        const std::wstring name = FileNameOf(TextOf(a.values[0]));
        return Value(name.substr(0, DotOf(name)));
    });
    globals.addFunction(L"getFilenameType", 1, 1, [](Interpreter&, const Arguments& a) {
        const std::wstring& path = TextOf(a.values[0]);
        return Value(path.substr(DotOf(path)));
    });
}

void AddWholeFiles(Globals& globals) {
    globals.addFunction(L"deleteFile", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(DeleteFileW(TextOf(a.values[0]).c_str()) != FALSE);
    });
    globals.addFunction(L"renameFile", 2, 2, [](Interpreter&, const Arguments& a) {
        return Value(MoveFileW(TextOf(a.values[0]).c_str(), TextOf(a.values[1]).c_str()) != FALSE);
    });
    // Never over a file that exists.
    globals.addFunction(L"copyFile", 2, 2, [](Interpreter&, const Arguments& a) {
        return Value(CopyFileW(TextOf(a.values[0]).c_str(), TextOf(a.values[1]).c_str(), TRUE) !=
                     FALSE);
    });
    globals.addFunction(L"makeDir", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(MakeFolders(TextOf(a.values[0])));
    });
    globals.addFunction(L"getFileSize", 1, 1, FileSize);
    globals.addFunction(L"getFileAttribute", 2, 2, GetAttribute);
    globals.addFunction(L"setFileAttribute", 3, 3, SetAttribute);
    globals.addFunction(L"getFiles", 1, 1, [](Interpreter&, const Arguments& a) {
        return Search(TextOf(a.values[0]), false);
    });
    globals.addFunction(L"getDirectories", 1, 1, [](Interpreter&, const Arguments& a) {
        return Search(TextOf(a.values[0]), true);
    });
}

std::wstring EnvironmentVariable(const std::wstring& name) {
    wchar_t text[1024] = {};
    const DWORD length = GetEnvironmentVariableW(name.c_str(), text, 1024);
    return length < 1024 ? std::wstring(text, length) : std::wstring();
}

} // namespace

void AddFileFunctions(Interpreter& interpreter, SceneState& state) {
    Globals& globals = interpreter.globals();
    AddNames(globals);
    AddWholeFiles(globals);
    AddFileStreams(globals);
    globals.addFunction(L"doesFileExist", 1, 1, [&state](Interpreter&, const Arguments& a) {
        return Value(Exists(state, TextOf(a.values[0])));
    });
    const auto systemTools = std::make_shared<Record>(L"systemTools");
    systemTools->add(L"getEnvVariable", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(EnvironmentVariable(TextOf(a.values[0])));
    });
    globals.addValue(L"systemTools", Value(systemTools));
    // Nobody is there to close a box: its text goes to the Listener.
    globals.addFunction(L"messageBox", 1, 1, [](Interpreter& runs, const Arguments& a) {
        runs.print(L"messageBox: " + TextOf(a.values[0]) + L"\n");
        return Value(true);
    });
    // The stand-in has no cipher: the copy under the new suffix is plain text, which it reads too.
    globals.addFunction(L"encryptScript", 1, 1, [](Interpreter&, const Arguments& a) {
        const std::wstring& path = TextOf(a.values[0]);
        const std::wstring to = path.substr(0, DotOf(path)) + L".mse";
        if (CopyFileW(path.c_str(), to.c_str(), FALSE) == FALSE) {
            throw ScriptError(L"encryptScript: cannot write " + to);
        }
        return Value::special(Value::Kind::Ok);
    });
}

} // namespace maxscript
} // namespace standin
