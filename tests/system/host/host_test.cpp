// The host without plug-ins: window, menu bar, scene, script texts from the host's libraries.
#include "standin/host/text.h"
#include "standin/sdk/include/standin/core.h"
#include "tests/support/program_folder.h"
#include "tests/system/host/host_under_test.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::wstring>;
using standin::HostOptions;

std::wstring TitleOf(HWND window) {
    wchar_t text[300] = {};
    GetWindowTextW(window, text, 300);
    return text;
}

class HostAlone : public ::testing::Test {
protected:
    std::wstring put(const std::string& description) {
        folder.write(L"\u53A8\u623F.max.json", description);
        return folder.write(L"\u53A8\u623F.max", "scene bytes");
    }

    SceneFolder folder;
    HostOptions options;
};

TEST_F(HostAlone, ShowsAWindowWithAFileMenuAndNoScene) {
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    EXPECT_TRUE(IsWindowVisible(host->window()));
    EXPECT_EQ(TitleOf(host->window()), L"Untitled - Stand-in host");
    EXPECT_EQ(host.menuBar(), Texts{L"&File"});
    EXPECT_EQ(host.menu(L"&File"),
              (Texts{L"&Open...", L"-", L"&Save", L"Save &As...", L"-", L"E&xit"}));
    EXPECT_EQ(host->scene().path(), L"");
    EXPECT_EQ(host.events("started").size(), 1U);
}

TEST_F(HostAlone, TellsWhereItsMenusAre) {
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    const auto told = host.events("menu_bar");
    ASSERT_EQ(told.size(), 1U);
    const Json::Value menu = told[0]["menus"][0];
    EXPECT_EQ(menu["title"].asString(), "&File");
    RECT window = {};
    GetWindowRect(host->window(), &window);
    const POINT middle = {(menu["rect"][0].asInt() + menu["rect"][2].asInt()) / 2,
                          (menu["rect"][1].asInt() + menu["rect"][3].asInt()) / 2};
    EXPECT_TRUE(PtInRect(&window, middle));
    EXPECT_EQ(SendMessageW(host->window(), WM_NCHITTEST, 0, MAKELPARAM(middle.x, middle.y)),
              HTMENU);
}

TEST_F(HostAlone, ShowsTheSceneItIsStartedWith) {
    options.scenePath = put(R"({"cameras": ["A"], "objects": ["Teapot"], "modified": true})");
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    EXPECT_EQ(TitleOf(host->window()), L"\u53A8\u623F.max * - Stand-in host");
    host->pump(); // paints
    EXPECT_TRUE(host->saveScene());
    EXPECT_EQ(TitleOf(host->window()), L"\u53A8\u623F.max - Stand-in host");
}

TEST_F(HostAlone, StartsWithoutASceneThatIsNotThere) {
    options.scenePath = folder.file(L"absent.max");
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    const auto opened = host.events("scene_opened");
    ASSERT_EQ(opened.size(), 1U);
    EXPECT_FALSE(opened[0]["ok"].asBool());
    EXPECT_EQ(host->scene().path(), L"");
}

TEST_F(HostAlone, OpensAndSavesThroughTheFileMenu) {
    const std::wstring path = put("{}");
    const std::wstring copy = folder.file(L"copy.max");
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    host->setAskForFile([&](HWND, bool toSave) { return toSave ? copy : path; });
    ASSERT_TRUE(host.choose(L"&File", L"&Open..."));
    EXPECT_EQ(host->scene().path(), path);
    ASSERT_TRUE(host.choose(L"&File", L"Save &As..."));
    EXPECT_EQ(host->scene().path(), copy);
    EXPECT_EQ(orv::test::ReadFileBytes(copy), "scene bytes");
    ASSERT_TRUE(host.choose(L"&File", L"&Save"));
    EXPECT_EQ(host.events("scene_saved").size(), 2U);
}

TEST_F(HostAlone, AsksForANameBeforeTheFirstSave) {
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    host->setAskForFile([](HWND, bool) { return std::wstring(); });
    EXPECT_FALSE(host->saveScene());
    host->setAskForFile([this](HWND, bool) { return folder.file(L"first.max"); });
    EXPECT_TRUE(host->saveScene());
    EXPECT_EQ(host->scene().fileName(), L"first.max");
}

TEST_F(HostAlone, TellsOfARefusedSave) {
    options.scenePath = put(R"({"refuse_save": true})");
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    EXPECT_FALSE(host->saveScene());
    const auto saved = host.events("scene_saved");
    ASSERT_EQ(saved.size(), 1U);
    EXPECT_FALSE(saved[0]["ok"].asBool());
}

TEST_F(HostAlone, LeavesByTheMenuAndByTheWindowsClosing) {
    for (const bool byMenu : {true, false}) {
        HostUnderTest host(options);
        ASSERT_TRUE(host->start());
        if (byMenu)
            ASSERT_TRUE(host.choose(L"&File", L"E&xit"));
        else
            PostMessageW(host->window(), WM_CLOSE, 0, 0);
        host->run(); // returns
        host->stop();
        EXPECT_EQ(host->window(), nullptr);
        EXPECT_EQ(host.events("stopped").size(), 1U);
    }
}

TEST_F(HostAlone, ReturnsFromTheLoopWhenTheWindowIsGone) {
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    DestroyWindow(host->window());
    host->run(); // returns
    host->stop();
    EXPECT_EQ(host.events("stopped").size(), 1U);
}

TEST_F(HostAlone, StopsTwiceAndStartsAgain) {
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    EXPECT_FALSE(host->start()) << "it runs already";
    host->stop();
    host->stop();
    EXPECT_EQ(host.events("stopped").size(), 1U);
    EXPECT_TRUE(host->start());
}

TEST_F(HostAlone, SurvivesStrangeMessages) {
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    HWND window = host->window();
    for (const WPARAM command : {0, 1, 999, 1006, 65535})
        SendMessageW(window, WM_COMMAND, command, 0);
    SendMessageW(window, WM_COMMAND, 1000, reinterpret_cast<LPARAM>(window));
    SendMessageW(window, WM_USER + 1, 1, 2);
    MoveWindow(window, 0, 0, 1, 1, TRUE);
    host->pump();
    EXPECT_TRUE(IsWindow(window));
}

class OneAnswer : public standin::ScriptRunner {
public:
    explicit OneAnswer(standin::ScriptOutcome outcome) : outcome_(std::move(outcome)) {}
    standin::ScriptOutcome run(const std::wstring&) override { return outcome_; }

private:
    standin::ScriptOutcome outcome_;
};

// The host's value class, as far as a script's result goes; and its script entry by its real name.
struct HostValue {
    int type;
    int padding;
    union {
        int integer;
        float real;
        const wchar_t* text;
    };
};
constexpr int kTypeFloat = 0;
constexpr int kTypeInt = 1;
constexpr int kTypeBool = 4;
constexpr int kTypeString = 8;

int Execute(const wchar_t* text, HostValue& value) {
    using Entry = int (*)(const wchar_t*, int, HostValue*, int);
    const HMODULE library = LoadLibraryW(L"MAXScrpt.dll");
    const auto entry = reinterpret_cast<Entry>(reinterpret_cast<INT_PTR>(
        GetProcAddress(library, "?ExecuteMAXScriptScript@@YAHPEB_WHPEAVFPValue@@H@Z")));
    const int result = entry != nullptr ? entry(text, 0, &value, 1) : -1;
    FreeLibrary(library);
    return result;
}

TEST_F(HostAlone, HandsTheValueOfAScriptToTheCaller) {
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    const auto answer = [&host](standin::ScriptOutcome outcome) {
        outcome.ok = true;
        host->setScriptRunner(std::make_unique<OneAnswer>(outcome));
        HostValue value = {-1, 0, {0}};
        EXPECT_EQ(Execute(L"any text", value), 1);
        return value;
    };
    standin::ScriptOutcome outcome;
    outcome.type = standin::ScriptOutcome::Type::Boolean;
    outcome.boolean = true;
    EXPECT_EQ(answer(outcome).type, kTypeBool);
    EXPECT_EQ(answer(outcome).integer, 1);
    outcome.type = standin::ScriptOutcome::Type::Integer;
    outcome.integer = -7;
    EXPECT_EQ(answer(outcome).type, kTypeInt);
    EXPECT_EQ(answer(outcome).integer, -7);
    outcome.type = standin::ScriptOutcome::Type::Float;
    outcome.real = 0.5F;
    EXPECT_EQ(answer(outcome).type, kTypeFloat);
    EXPECT_EQ(answer(outcome).real, 0.5F);
}

TEST_F(HostAlone, HandsATextOfAScriptToTheCaller) {
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    standin::ScriptOutcome outcome;
    outcome.ok = true;
    outcome.type = standin::ScriptOutcome::Type::Text;
    outcome.text = L"\u4E2D text";
    host->setScriptRunner(std::make_unique<OneAnswer>(outcome));
    HostValue value = {-1, 0, {0}};
    EXPECT_EQ(Execute(L"any text", value), 1);
    EXPECT_EQ(value.type, kTypeString);
    EXPECT_EQ(std::wstring(value.text), outcome.text);
}

TEST_F(HostAlone, AnswersZeroToATextItDoesNotKnow) {
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    HostValue value = {-1, 0, {0}};
    EXPECT_EQ(Execute(L"delete nothing", value), 0);
    const auto run = host.events("script_run");
    ASSERT_EQ(run.size(), 1U);
    EXPECT_FALSE(run[0]["ok"].asBool());
    EXPECT_NE(run[0]["error"].asString(), "");
}

TEST_F(HostAlone, RefusesALibraryThatIsNoPlugin) {
    const std::wstring plugins = folder.file(L"plug-ins");
    orv::test::WriteFileBytes(plugins + L"\\text.gup", "this is not a library");
    orv::test::WriteFileBytes(plugins + L"\\other.gup",
                              orv::test::ReadFileBytes(orv::test::ProgramFolder() + L"\\gup.dll"));
    options.pluginFolder = plugins;
    HostUnderTest host(options);
    ASSERT_TRUE(host->start());
    EXPECT_EQ(host->pluginCount(), 0);
    const auto refused = host.events("plugin_refused");
    ASSERT_EQ(refused.size(), 2U);
    EXPECT_NE(refused[0]["reason"].asString(), "");
    EXPECT_NE(refused[1]["reason"].asString(), "");
}

} // namespace
