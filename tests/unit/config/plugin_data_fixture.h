// The process-wide object in a product folder of the test's own.
#pragma once

#include "config/plugin_data.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orv {
namespace test {

// The order of the members matters: the object takes its log folder from the settings that it finds
// when it is built, so the first test of the process has to give it an empty product folder.
class PluginDataFixture : public testing::Test {
protected:
    TestProductFolder product;
    PluginData& data = PluginData::instance();

    // The lines of "rud_data" without their time stamps.
    std::vector<std::string> logLines() const {
        const std::string content = product.log(L"rud_data");
        std::vector<std::string> lines;
        std::size_t start = 0;
        std::size_t end = 0;
        while ((end = content.find("\r\n", start)) != std::string::npos) {
            const std::string line = content.substr(start, end - start);
            lines.push_back(line.substr(line.find('[')));
            start = end + 2;
        }
        return lines;
    }
};

} // namespace test
} // namespace orv
