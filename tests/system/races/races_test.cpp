// Input at every moment of a submission, of a user who has pressed Submit and changes their mind.
// What was on the screen at Submit is sent, or nothing is sent and a message says so.
#include "analysis/text/paths.h"
#include "analysis/text/text_convert.h"
#include "config/remembered_settings.h"
#include "config/render_choices.h"
#include "resources/controls.h"
#include "resources/texts.h"
#include "tests/dialogs/dialog_user.h"
#include "tests/support/files.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/wait_until.h"
#include "tests/system/client/client_process.h"
#include "tests/system/flow/flow.h"
#include "tests/system/races/raced_host.h"
#include "tests/system/races/screen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <map>
#include <random>

namespace orv {
namespace test {
namespace {

constexpr int kMessageText = 0xFFFF; // the control of a message box that holds its text
constexpr std::chrono::milliseconds kRunDeadline{90000};

// ---- What is raced

enum class Input { Escape, AltF4, Cancel, CloseHost, CloseHostTwice, EndSession };
constexpr std::array<const char*, 6> kInputNames = {
    {"Escape", "Alt+F4", "Cancel", "close host", "close host twice", "end of session"}};

// A number of milliseconds after Submit, or the stage that the progress window names.
struct Moment {
    int milliseconds;
    unsigned stageText; // 0: the milliseconds count
    const char* name;
};
constexpr int kLastMillisecond = 60;
constexpr std::array<Moment, 5> kStages = {{{0, IDS_STAGE_SAVING, "saving"},
                                            {0, IDS_STAGE_CLEANING, "cleaning"},
                                            {0, IDS_STAGE_PACKING, "packing"},
                                            {0, IDS_STAGE_DESCRIBING, "describing"},
                                            {0, IDS_STAGE_SENDING, "sending"}}};

struct Course {
    bool ownProcess;
    Input input;
    Moment moment;
    bool endsWithout; // the answer to the host's question about a submission that runs
    std::string ticks;
    std::wstring sceneName;
    bool colorChannel;
    bool aoChannel;
    bool savesFirst;
    bool cleans;
    bool remembers;
    int saveMilliseconds;
};

Course MakeCourse(int number, std::mt19937& random) {
    const auto coin = [&random] { return (random() & 1U) != 0; };
    Course course{};
    course.ownProcess = random() % 4 == 0;
    course.input = static_cast<Input>(random() % kInputNames.size());
    // Four of five runs take the milliseconds in turn, the fifth the stages.
    if (number % 5 == 4) {
        course.moment = kStages[static_cast<std::size_t>(number / 5) % kStages.size()];
    } else {
        const int milliseconds = (number - number / 5) % (kLastMillisecond + 1);
        course.moment = Moment{milliseconds, 0,
                               milliseconds <= 20   ? "0 to 20 ms"
                               : milliseconds <= 40 ? "21 to 40 ms"
                                                    : "41 to 60 ms"};
    }
    course.endsWithout = coin();
    do {
        course.ticks = {coin() ? '1' : '0', coin() ? '1' : '0', coin() ? '1' : '0'};
    } while (course.ticks == "000");
    course.sceneName = coin() ? L"room" : L"room v" + std::to_wstring(number);
    course.colorChannel = coin();
    course.aoChannel = coin();
    course.savesFirst = coin();
    course.cleans = course.moment.stageText == IDS_STAGE_CLEANING || (random() % 4) == 0;
    course.remembers = (random() % 4) != 0;
    course.saveMilliseconds = coin() ? 150 : 0;
    return course;
}

std::string Describe(const Course& course) {
    return std::string(kInputNames[static_cast<std::size_t>(course.input)]) + " at " +
           (course.moment.stageText != 0 ? course.moment.name
                                         : std::to_string(course.moment.milliseconds) + " ms") +
           (course.ownProcess ? ", host of its own" : "") +
           (course.endsWithout ? ", end without it" : "") + ", ticks " + course.ticks + ", name " +
           WideToUtf8(course.sceneName) + (course.savesFirst ? ", saves first" : "") +
           (course.cleans ? ", cleans" : "") + (course.remembers ? ", remembers" : "") +
           ", saving takes " + std::to_string(course.saveMilliseconds) + " ms";
}

// ---- What was chosen, and what came of it

using Settings = std::map<std::wstring, std::wstring>;

const Settings& OldSettings() {
    static const Settings old = {{L"RENDER_CHANNEL_COLOR", L"0"},
                                 {L"RENDER_CHANNEL_AO", L"0"},
                                 {L"CHECK_RENDER_MTL", L"0"},
                                 {L"CHECK_PSD", L"1"},
                                 {L"CHECK_GI", L"1"},
                                 {L"IDC_SAVE_SCENE_FILE", L"1"},
                                 {L"REMBER_SETTING", L"1"},
                                 {L"GI_SIZE", L"2"},
                                 {L"EDIT_DURATION2", L"1.5"},
                                 {L"EDIT_AO_RADIUS", L"555.5"},
                                 {L"EDIT_AO_SUBDIVS", L"23"},
                                 {L"EDIT_OUTPUT_GAMMA", L"1.8"},
                                 {L"EDIT_ITERATIONS_A", L"7"},
                                 {L"EDIT_NOISE_LEVEL2", L"3.5"},
                                 {L"NOBLOCK", L"0"},
                                 {L"THREEBLOCK", L"1"},
                                 {L"SIXBLOCK", L"0"},
                                 {L"DCSBLOCK", L"0"}};
    return old;
}

std::string SettingLines(int port) {
    std::string lines = "port=" + std::to_string(port) + "\r\nlowerversion=1.3.7\r\n";
    for (const auto& setting : OldSettings())
        lines += WideToUtf8(setting.first) + "=" + WideToUtf8(setting.second) + "\r\n";
    return lines;
}

Settings SettingsInFile() {
    Settings settings;
    for (const RememberedValue& value : ReadRememberedSettings())
        settings[value.control.key] = value.text;
    return settings;
}

// What the file has to hold after a submission that the screen shows.
Settings SettingsOnScreen(HWND dialog) {
    const bool remembers = IsTicked(dialog, IDC_REMEMBER);
    Settings settings;
    for (const RememberedControl& control : RememberedControls()) {
        std::wstring& value = settings[control.key];
        if (!remembers)
            value = control.defaultValue;
        else if (control.kind == RememberedKind::EditField)
            value = TextOfControl(dialog, control.id);
        else if (control.kind == RememberedKind::DropDownList)
            value = std::to_wstring(GiScaleEntry(static_cast<std::int32_t>(
                ::SendDlgItemMessageW(dialog, control.id, CB_GETCURSEL, 0, 0))));
        else
            value = IsTicked(dialog, control.id) ? L"1" : L"0";
    }
    return settings;
}

struct Chosen {
    std::vector<std::string> cameras;
    std::string sceneFile;
    bool colorChannel;
    bool aoChannel;
    double gamma;
    bool savesFirst;
    Settings settings;
};

Chosen OnScreen(HWND dialog) {
    Chosen chosen;
    const std::string ticks = TickedRows(dialog, IDC_CAMERAS);
    for (std::size_t row = 0; row < ticks.size(); ++row) {
        if (ticks[row] == '1')
            chosen.cameras.push_back(RacedCameras()[row]);
    }
    chosen.sceneFile = WideToUtf8(TextOfControl(dialog, IDC_SCENE_NAME)) + ".max";
    chosen.colorChannel = IsTicked(dialog, IDC_COLOR_CHANNEL);
    chosen.aoChannel = IsTicked(dialog, IDC_AO_CHANNEL);
    chosen.gamma = std::stod(TextOfControl(dialog, IDC_GAMMA));
    chosen.savesFirst = IsTicked(dialog, IDC_SAVE_SCENE_FILE);
    chosen.settings = SettingsOnScreen(dialog);
    return chosen;
}

std::string FileNameOf(const std::string& path) {
    const std::wstring wide = Utf8ToWide(path);
    return WideToUtf8(StemPart(wide) + ExtensionPart(wide));
}

// What differs between what was chosen and what the client got; empty when nothing does.
std::string Difference(const Chosen& chosen, const Json::Value& request) {
    Json::Value job;
    const std::wstring jobFile = Utf8ToWide(request["body"]["filePath"].asString());
    if (!PathExists(jobFile) || !Json::Reader().parse(ReadFileBytes(jobFile), job))
        return "there is no job file";
    std::vector<std::string> cameras;
    for (const Json::Value& camera : job["cameras"])
        cameras.push_back(camera["name"].asString());
    std::string difference;
    if (cameras != chosen.cameras)
        difference += " cameras";
    if (FileNameOf(job["name"].asString()) != chosen.sceneFile)
        difference += " scene " + job["name"].asString();
    const Json::Value& options = job["max_options"];
    if (options["color_channel"].asBool() != chosen.colorChannel)
        difference += " colour";
    if (options["ao_channel"].asBool() != chosen.aoChannel)
        difference += " ao";
    if (options["gamma_out"].asDouble() < chosen.gamma - 0.01 ||
        options["gamma_out"].asDouble() > chosen.gamma + 0.01)
        difference += " gamma";
    if ((request["body"]["PLUGIN_SAVE_SCENE_FILE"].asUInt() == 1) != chosen.savesFirst)
        difference += " save box";
    if (!request["ok"].asBool())
        difference += " problems " + Json::FastWriter().write(request["problems"]);
    return difference;
}

enum class Verdict { SentWhole, NotSentAndTold, Changed, Lost };
constexpr std::array<const char*, 4> kVerdictNames = {
    {"sent whole", "not sent, told", "changed", "lost"}};

struct Outcome {
    Verdict verdict = Verdict::Lost;
    std::string details;
};

// ---- One run

class Race {
public:
    explicit Race(const Course& course)
        : course_(course), host_(course.ownProcess ? MakeHostProcess() : MakeHostInThisProcess()) {}

    Outcome run();

private:
    void choose();
    void waitForMoment() const;
    void give(Input input) const;
    void endSession() const;
    // Answers what is asked until the submission and, where it was closed, the host have ended.
    bool settle();
    bool answerBoxes();
    bool hasSubmissionEnded() const {
        return host_->log(L"rud_data").find("The submission ended with ") != std::string::npos;
    }
    Outcome judge(ClientProcess& client, const Chosen& chosen) const;

    const Course course_;
    std::unique_ptr<RacedHost> host_;
    HWND dialog_ = nullptr;
    std::vector<std::string> told_;
};

void Race::choose() {
    TickRows(dialog_, IDC_CAMERAS, course_.ticks);
    Type(dialog_, IDC_SCENE_NAME, course_.sceneName);
    Type(dialog_, IDC_GAMMA, L"2.6");
    SetTicked(dialog_, IDC_COLOR_CHANNEL, course_.colorChannel);
    SetTicked(dialog_, IDC_AO_CHANNEL, course_.aoChannel);
    SetTicked(dialog_, IDC_SAVE_SCENE_FILE, course_.savesFirst);
    SetTicked(dialog_, IDC_BACK_UP_SCENE, course_.cleans);
    SetTicked(dialog_, IDC_REMEMBER, course_.remembers);
}

void Race::waitForMoment() const {
    if (course_.moment.stageText == 0) {
        const auto until = std::chrono::steady_clock::now() +
                           std::chrono::milliseconds(course_.moment.milliseconds);
        while (std::chrono::steady_clock::now() < until)
            std::this_thread::yield();
        return;
    }
    wchar_t stage[256] = {};
    ::LoadStringW(::GetModuleHandleW(nullptr), course_.moment.stageText, stage, 256);
    const DWORD process = host_->process();
    WaitUntil([&] {
        const HWND progress = FindDialogOf(process, IDC_PROGRESS_BAR);
        return (progress != nullptr && TextOfControl(progress, IDC_PROGRESS_TEXT) == stage) ||
               FindDialogOf(process, kMessageText) != nullptr || hasSubmissionEnded();
    });
}

struct SessionEnd {
    DWORD process;
    std::vector<HWND> windows;
};

BOOL CALLBACK CollectWindows(HWND window, LPARAM parameter) {
    auto& end = *reinterpret_cast<SessionEnd*>(parameter);
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process == end.process)
        end.windows.push_back(window);
    return TRUE;
}

// As Windows does: each top-level window is asked; one that says no keeps the session.
void Race::endSession() const {
    SessionEnd end = {host_->process(), {}};
    ::EnumWindows(&CollectWindows, reinterpret_cast<LPARAM>(&end));
    bool ends = true;
    for (const HWND window : end.windows) {
        DWORD_PTR answer = TRUE;
        if (::SendMessageTimeoutW(window, WM_QUERYENDSESSION, 0, 0, SMTO_ABORTIFHUNG, 5000,
                                  &answer) != 0)
            ends = ends && answer != FALSE;
    }
    for (const HWND window : end.windows) {
        DWORD_PTR ignored = 0;
        ::SendMessageTimeoutW(window, WM_ENDSESSION, ends ? TRUE : FALSE, 0, SMTO_ABORTIFHUNG, 5000,
                              &ignored);
    }
}

void Race::give(Input input) const {
    switch (input) {
    case Input::Escape:
        PostKey(dialog_, VK_ESCAPE);
        PressRealKey(VK_ESCAPE);
        break;
    case Input::AltF4:
        ::PostMessageW(dialog_, WM_SYSCOMMAND, SC_CLOSE, 0);
        PressRealKey(VK_F4, true);
        break;
    case Input::Cancel:
        ClickControl(dialog_, IDCANCEL);
        break;
    case Input::CloseHostTwice:
        ::PostMessageW(host_->window(), WM_CLOSE, 0, 0);
        ::PostMessageW(host_->window(), WM_CLOSE, 0, 0);
        ::PostMessageW(dialog_, WM_COMMAND, IDCANCEL, 0); // a host waits for its dialogs
        break;
    case Input::CloseHost:
        ::PostMessageW(dialog_, WM_COMMAND, IDCANCEL, 0);
        ::PostMessageW(host_->window(), WM_CLOSE, 0, 0);
        break;
    case Input::EndSession:
        endSession();
        break;
    }
}

// Whether there was something to answer.
bool Race::answerBoxes() {
    const DWORD process = host_->process();
    if (const HWND box = FindDialogOf(process, kMessageText)) {
        told_.push_back(WideToUtf8(TextOfControl(box, kMessageText)));
        const int button = ::GetDlgItem(box, IDOK) != nullptr ? IDOK : IDNO;
        ::PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
        WaitUntil([box] { return !::IsWindow(box); });
        return true;
    }
    if (const HWND question = FindDialogOf(process, IDC_EXIT_END)) {
        if (!course_.endsWithout || !::IsWindowEnabled(::GetDlgItem(question, IDC_EXIT_END)))
            return false;
        told_.push_back("the user ended it");
        ::PostMessageW(question, WM_COMMAND, IDC_EXIT_END, 0);
        WaitUntil([&] {
            return !::IsWindow(question) ||
                   !::IsWindowEnabled(::GetDlgItem(question, IDC_EXIT_END));
        });
        return true;
    }
    return false;
}

bool Race::settle() {
    bool closing = false;
    return WaitUntil(
        [&] {
            if (answerBoxes())
                return false;
            if (!hasSubmissionEnded() && !host_->hasEnded())
                return false;
            if (!closing && !host_->hasEnded()) {
                if (const HWND dialog = FindDialogOf(host_->process(), IDC_CAMERAS)) {
                    ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
                    return false;
                }
                ::PostMessageW(host_->window(), WM_CLOSE, 0, 0);
                closing = true;
            }
            return host_->hasEnded();
        },
        kRunDeadline);
}

Outcome Race::judge(ClientProcess& client, const Chosen& chosen) const {
    const Json::Value request = client.nextLine(std::chrono::milliseconds(1));
    Outcome outcome;
    if (request.isObject()) {
        outcome.details = Difference(chosen, request);
        outcome.verdict = outcome.details.empty() ? Verdict::SentWhole : Verdict::Changed;
    } else {
        const bool isLogged =
            host_->log(L"rud_data").find("The submission ended with ") != std::string::npos;
        const bool isTold = !told_.empty() || course_.input == Input::EndSession;
        outcome.verdict = isLogged && isTold ? Verdict::NotSentAndTold : Verdict::Lost;
        if (outcome.verdict == Verdict::Lost)
            outcome.details = isLogged ? "nothing was told" : "no line in the log";
    }
    const Settings after = SettingsInFile();
    if (after != OldSettings() && after != chosen.settings) {
        outcome.verdict = Verdict::Changed;
        outcome.details += " settings:";
        for (const auto& setting : after) {
            const auto expected = chosen.settings.find(setting.first);
            if (expected == chosen.settings.end() || expected->second != setting.second)
                outcome.details +=
                    " " + WideToUtf8(setting.first) + "=" + WideToUtf8(setting.second);
        }
    }
    if (!WaitUntil([] { return ProcessesNamed(L"7z.exe").empty(); })) {
        outcome.verdict = Verdict::Lost;
        outcome.details += " an archiver is left";
    }
    return outcome;
}

Outcome Race::run() {
    ClientProcess client;
    // Packing of the larger scene takes long enough to be hit.
    const std::size_t bytes =
        course_.moment.stageText == IDS_STAGE_PACKING ? (2U << 20) : (64U << 10);
    host_->start(SettingLines(client.port()), bytes, course_.saveMilliseconds);
    dialog_ = host_->openDialog();
    if (dialog_ == nullptr)
        throw std::runtime_error("the dialog does not open");
    choose();
    const Chosen chosen = OnScreen(dialog_);
    ::PostMessageW(dialog_, WM_COMMAND, IDC_SUBMIT, 0);
    waitForMoment();
    give(course_.input);
    if (!settle()) {
        Outcome outcome;
        outcome.details = "it did not come to its end";
        return outcome;
    }
    return judge(client, chosen);
}

// ---- All runs

int Number(const char* variable, int otherwise) {
    const char* const text = std::getenv(variable);
    const int number = text == nullptr ? 0 : std::atoi(text);
    return number > 0 ? number : otherwise;
}

TEST(Races, SendWhatWasChosenOrTellThatNothingWasSent) {
    const int runs = Number("ORV_RACES_RUNS", 12);
    const int seed = Number("ORV_RACES_SEED", 20261122);
    std::cout << "races: seed " << seed << std::endl;
    std::mt19937 random(static_cast<unsigned>(seed));
    std::map<std::string, std::array<int, 4>> table; // by moment and input
    std::array<int, 4> counts{};
    for (int number = 0; number < runs; ++number) {
        const Course course = MakeCourse(number, random);
        SCOPED_TRACE("run " + std::to_string(number) + ": " + Describe(course));
        Outcome outcome;
        try {
            outcome = Race(course).run();
        } catch (const std::exception& failure) {
            outcome.details = failure.what();
        }
        const auto verdict = static_cast<std::size_t>(outcome.verdict);
        EXPECT_LT(verdict, static_cast<std::size_t>(Verdict::Changed))
            << kVerdictNames[verdict] << ": " << outcome.details;
        std::cout << number << ": " << Describe(course) << ": " << kVerdictNames[verdict] << " "
                  << outcome.details << std::endl;
        ++counts[verdict];
        ++table[std::string(course.moment.name) + " | " +
                kInputNames[static_cast<std::size_t>(course.input)]][verdict];
    }
    std::cout << "| moment | input | sent whole | not sent, told | changed | lost |\n";
    for (const auto& row : table) {
        std::cout << "| " << row.first;
        for (const int count : row.second)
            std::cout << " | " << count;
        std::cout << " |\n";
    }
    std::cout << "races: " << runs << " runs, " << counts[2] << " changed, " << counts[3]
              << " lost\n";
}

} // namespace
} // namespace test
} // namespace orv
