#include "config/plugin_data.h"

#include "tests/support/files.h"
#include "tests/unit/config/plugin_data_fixture.h"

#include <thread>
#include <type_traits>

namespace orv {
namespace {

class PluginDataTest : public test::PluginDataFixture {};

TEST_F(PluginDataTest, IsOneObject) {
    const PluginData* other = nullptr;
    std::thread([&other] { other = &PluginData::instance(); }).join();
    EXPECT_EQ(other, &data);
    EXPECT_FALSE(std::is_copy_constructible<PluginData>::value);
    EXPECT_FALSE(std::is_polymorphic<PluginData>::value);
}

TEST_F(PluginDataTest, StartsWithTheDialogsDefaults) {
    EXPECT_EQ(data.analysis.gamma, 2.2F);
    EXPECT_EQ(data.analysis.aoRadius, 1000.0);
    EXPECT_EQ(data.analysis.aoSubdivs, 16);
    EXPECT_EQ(data.analysis.blockStep, 1.0);
    EXPECT_EQ(data.submitState, kWorkerNone);
    EXPECT_EQ(data.progressState, kWorkerNone);
    EXPECT_FALSE(data.done);
    EXPECT_FALSE(data.hide);
    EXPECT_FALSE(data.confirmationRequired);
}

TEST_F(PluginDataTest, ListsTheRememberedControlsByKind) {
    EXPECT_EQ(data.rememberedControls.checkBoxes,
              (std::vector<int>{1043, 1044, 1051, 1053, 1056, 1002, 1001}));
    EXPECT_EQ(data.rememberedControls.dropDownLists, std::vector<int>{1057});
    EXPECT_EQ(data.rememberedControls.editFields,
              (std::vector<int>{1047, 1040, 1037, 1039, 1054, 1045}));
    EXPECT_EQ(data.rememberedControls.radioButtons, (std::vector<int>{1030, 1031, 1032, 1033}));
}

TEST_F(PluginDataTest, OpensTheDataLog) {
    EXPECT_TRUE(test::PathExists(product.path(L"/log/rud_data.log")));
}

TEST(ConfigManager, IsOneObjectThatCannotBeCopied) {
    EXPECT_EQ(&OrvRenderingConfigMgr::instance(), &OrvRenderingConfigMgr::instance());
    EXPECT_FALSE(std::is_copy_constructible<OrvRenderingConfigMgr>::value);
    EXPECT_TRUE(std::has_virtual_destructor<OrvRenderingConfigMgr>::value);
    EXPECT_TRUE((std::is_base_of<rud_Noncopyable, OrvRenderingConfigMgr>::value));
    EXPECT_EQ(sizeof(OrvRenderingConfigMgr), sizeof(void*)); // no data
}

} // namespace
} // namespace orv
