#include "tests/system/flow/flow.h"

#include "analysis/text/paths.h"
#include "analysis/text/text_convert.h"
#include "resources/controls.h"
#include "resources/texts.h"
#include "standin/host/scene.h"
#include "submit/scene_archive.h"
#include "tests/support/log_lines.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"

#include <json/json.h>
#include <tlhelp32.h>

#include <algorithm>
#include <iostream>
#include <random>

namespace orv {
namespace test {
namespace {

constexpr int kMessageText = 0xFFFF; // the control of a message box that holds its text
constexpr char kEndOfSubmission[] = "[INFO] The submission ended with ";

std::vector<std::string> Ends(const std::string& log) {
    std::vector<std::string> ends;
    for (const std::string& line : LogLines(log)) {
        if (line.compare(0, sizeof(kEndOfSubmission) - 1, kEndOfSubmission) == 0)
            ends.push_back(line.substr(sizeof(kEndOfSubmission) - 1));
    }
    return ends;
}

bool OpensAsAScene(const std::wstring& path) {
    standin::Scene scene;
    std::string error;
    return scene.open(path, error);
}

bool IsWholeJson(const std::wstring& path) {
    Json::Value value;
    return Json::Reader().parse(ReadFileBytes(path), value) && value.isObject();
}

} // namespace

std::vector<DWORD> ProcessesNamed(const std::wstring& name) {
    std::vector<DWORD> found;
    const FileHandle snapshot(::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    for (BOOL more = ::Process32FirstW(snapshot.get(), &entry); more;
         more = ::Process32NextW(snapshot.get(), &entry)) {
        if (::_wcsicmp(entry.szExeFile, name.c_str()) == 0)
            found.push_back(entry.th32ProcessID);
    }
    return found;
}

std::string NoisyBytes(std::size_t count) {
    std::mt19937 random(20190507);
    std::string bytes(count, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random() & 0xFF);
    return bytes;
}

SubmissionFlow::SubmissionFlow() {
    host_.sceneName = L"room.max";
    host_.sceneBytes = NoisyBytes(4000);
    InstallArchiver();
}

SubmissionFlow::~SubmissionFlow() {
    // A test that failed half-way may have left a box: the submission has to end before the next.
    while (HWND box = FindDialogWith(kMessageText))
        ::SendMessageW(box, WM_COMMAND, IDOK, 0);
    if (!HasFailure())
        return;
    for (const wchar_t* name : {L"rud_data", L"rud_http", L"rud_plugin"})
        std::cout << "Log " << WideToUtf8(name) << ":\n" << log(name) << '\n';
}

void SubmissionFlow::startClient(const std::wstring& arguments) {
    client_ = std::make_unique<ClientProcess>(arguments);
    ASSERT_NE(client_->port(), 0);
    host_.product.writeSettings("port=" + std::to_string(client_->port()) +
                                "\r\nlowerversion=1.3.7\r\n");
}

void SubmissionFlow::open(const std::wstring& sceneName, bool tickCamera) {
    host_.start();
    dialog_ = host_.openDialog();
    ASSERT_NE(dialog_, nullptr);
    if (tickCamera)
        ClickCheckBox(dialog_, IDC_CAMERAS, 0);
    Type(dialog_, IDC_SCENE_NAME, sceneName);
    ended_ = Ends(log(L"rud_data")).size();
}

void SubmissionFlow::submit() {
    const std::string validated = "Update camera table";
    const auto countOf = [&] {
        std::size_t count = 0;
        for (const std::string& line : LogLines(log(L"rud_ui")))
            count += line.find(validated) != std::string::npos ? 1U : 0U;
        return count;
    };
    const std::size_t before = countOf();
    // Pressed once: a short submission may have ended by the time a second press arrives.
    EXPECT_TRUE(WaitUntil([this] { return ::IsWindowEnabled(dialog_) != FALSE; }))
        << "the submission before does not end";
    ::SendMessageW(dialog_, WM_COMMAND, IDC_SUBMIT, 0);
    EXPECT_TRUE(WaitUntil([&] {
        return FindDialogWith(kMessageText) != nullptr || countOf() > before;
    })) << "the submission does not begin";
}

MessageSeen SubmissionFlow::answer(int button) {
    MessageSeen seen;
    HWND box = nullptr;
    const auto readBox = [&] { // it is on the screen a moment before its text is
        box = FindDialogWith(kMessageText);
        seen.text = ReadWindowText(::GetDlgItem(box, kMessageText));
        return !seen.text.empty();
    };
    if (!WaitUntil(readBox, kPackingDeadline)) {
        ADD_FAILURE() << "no message came";
        return seen;
    }
    seen.caption = ReadWindowText(box);
    seen.owner = ::GetWindow(box, GW_OWNER);
    for (const int id : {IDOK, IDCANCEL, IDYES, IDNO}) {
        if (::GetDlgItem(box, id) != nullptr)
            seen.buttons.push_back(id);
    }
    seen.isAlone = FindDialogWith(IDC_PROGRESS_BAR) == nullptr;
    EXPECT_FALSE(::IsWindowVisible(dialog_) && ::IsWindowEnabled(dialog_))
        << "the dialog can be used under the message";
    seen.answer = button;
    ::PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
    EXPECT_TRUE(WaitUntil([box] { return !::IsWindow(box); }));
    return seen;
}

int SubmissionFlow::result() {
    std::vector<std::string> ends;
    const bool hasEnded = WaitUntil(
        [&] {
            ends = Ends(log(L"rud_data"));
            return ends.size() > ended_;
        },
        kPackingDeadline);
    ended_ = ends.size();
    return hasEnded ? std::atoi(ends.back().c_str()) : kStillRunning;
}

MessageSeen SubmissionFlow::submitToMessage(int* code) {
    submit();
    const MessageSeen seen = answer();
    const int ended = result();
    if (code != nullptr)
        *code = ended;
    return seen;
}

bool SubmissionFlow::dialogStays() {
    return WaitUntil([this] { return ::IsWindowEnabled(dialog_) != FALSE; }) &&
           FindDialogWith(IDC_PROGRESS_BAR) == nullptr && FindDialogWith(IDC_CAMERAS) == dialog_;
}

std::wstring SubmissionFlow::text(unsigned id) {
    wchar_t buffer[256] = {};
    ::LoadStringW(::GetModuleHandleW(L"OrvRendering.gup"), id, buffer, 256);
    return buffer;
}

bool SubmissionFlow::logHas(const std::wstring& name, const std::string& line) const {
    return log(name).find(line) != std::string::npos;
}

std::wstring SubmissionFlow::outputFolder() const {
    return FolderPart(scenePath()) + StemPart(scenePath()) + L"_plugin_output";
}

std::vector<std::wstring> SubmissionFlow::archives() const {
    return ListFolder(outputFolder() + L"\\compress");
}

std::vector<std::wstring> SubmissionFlow::jobFiles() const {
    return ListFolder(outputFolder() + L"\\json");
}

void SubmissionFlow::expectNothingLostOrLeft(const std::vector<std::wstring>& alsoThere) const {
    EXPECT_TRUE(ReadFileBytes(scenePath()) == host_.sceneBytes) << "the scene's bytes";
    EXPECT_TRUE(OpensAsAScene(scenePath()));
    EXPECT_TRUE(WaitUntil([] { return ProcessesNamed(L"7z.exe").empty(); }));

    for (const std::wstring& name : ListFolder(host_.sceneFolder)) {
        const bool isExpected =
            name == host_.sceneName || name == host_.sceneName + L".json" ||
            name == StemPart(host_.sceneName) + L"_plugin_output" ||
            std::find(alsoThere.begin(), alsoThere.end(), name) != alsoThere.end();
        EXPECT_TRUE(isExpected) << WideToUtf8(name) << " is left beside the scene";
    }
    for (const std::wstring& name : archives()) {
        EXPECT_EQ(ExtensionPart(name), L".7z") << WideToUtf8(name);
        const TemporaryFolder out;
        EXPECT_TRUE(Unpack(outputFolder() + L"\\compress\\" + name,
                           ArchivePassword(WideToUtf8(StemPart(host_.sceneName))), out.path()));
        EXPECT_TRUE(ReadFileBytes(out.file(host_.sceneName)) == host_.sceneBytes);
    }
    for (const std::wstring& name : jobFiles()) {
        EXPECT_EQ(ExtensionPart(name), L".json") << WideToUtf8(name);
        EXPECT_TRUE(IsWholeJson(outputFolder() + L"\\json\\" + name)) << WideToUtf8(name);
    }
}

void SubmissionFlow::expectSecondSubmissionSucceeds() {
    int code = kStillRunning;
    EXPECT_EQ(submitToMessage(&code).text, text(IDS_REPLY_ACCEPTED));
    EXPECT_EQ(code, 0);
    EXPECT_TRUE(dialogCloses());
    EXPECT_FALSE(archives().empty());
}

} // namespace test
} // namespace orv
