// What a whole submission needs: a scene, a dialog, a host and the archiver.
#pragma once

#include "client/client_link.h"
#include "config/plugin_data.h"
#include "resources/controls.h"
#include "submit/submit_job.h"
#include "tests/hosts/fake_door.h"
#include "tests/support/files.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/submit/archiver.h"
#include "tests/unit/submit/test_dialog.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {

constexpr wchar_t kTestCaption[] = L"Submission test";

class SubmissionTest : public ::testing::Test {
protected:
    SubmissionTest() {
        host_.sceneFilePath = folder_.file(L"room.max");
        WriteFileBytes(host_.sceneFilePath, kSceneBytes);
        host_.onSaveTo = [this](const std::wstring& path) {
            WriteFileBytes(path, kSceneBytes);
            return true;
        };
        dialog_.setText(IDC_SCENE_NAME, L"shot");
        dialog_.setCameras({{L"Cam", true}, {L"\x76F8\x673A", true}, {L"Off", false}});
        SceneAnalysis& analysis = data_.analysis;
        analysis.reportText = L"{\"app_version\": \"21000\", \"name\": \"D:/room.max\"}";
        for (const wchar_t* name : {L"Cam", L"\x76F8\x673A", L"Off"})
            analysis.cameras[name].name = name;
    }

    ~SubmissionTest() override {
        data_.analysis = SceneAnalysis();
        data_.progressState = kWorkerNone;
        data_.done = false;
        data_.hide = false;
    }

    std::int32_t submit() { return SubmitJob(dialog_.handle(), kTestCaption, L"", L"0"); }

    void usePort(int port) const {
        product_.writeSettings("ip=10.0.0.1\r\nport=" + std::to_string(port) + "\r\n");
    }

    std::wstring outputFolder() const { return folder_.file(L"shot_plugin_output"); }
    std::string log() const { return product_.log(L"rud_data"); }

    const std::string kSceneBytes = "the bytes of a scene";
    TestProductFolder product_;
    TemporaryFolder folder_{L"\x5BA2\x5385 living room"};
    FakeDoor host_;
    TestDialog dialog_;
    PluginData& data_ = PluginData::instance();
};

} // namespace test
} // namespace orv
