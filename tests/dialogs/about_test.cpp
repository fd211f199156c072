// The box with the product's name and version.
#include "base/product.h"
#include "tests/dialogs/open_dialog.h"
#include "tests/support/message_box_watcher.h"
#include "ui/entry.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

TEST(About, ShowsNameAndVersionWithoutAnOwner) {
    MessageBoxWatcher watcher(L"About Orv Rendering");
    orv_show_about();
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text.find(std::wstring(L"Orv Rendering ") + kPluginVersion), 0U);
    EXPECT_EQ(boxes[0].buttons, std::vector<int>{IDOK});
    EXPECT_EQ(boxes[0].owner, nullptr);
}

} // namespace
} // namespace test
} // namespace orv
