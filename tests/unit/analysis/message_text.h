#pragma once

#include "config/scene_analysis.h"

#include <string>
#include <vector>

namespace orv {
namespace test {

// The messages in their order, each as severity, blank, text.
inline std::vector<std::string> MessageTexts(const SceneAnalysis& analysis) {
    std::vector<std::string> texts;
    for (const AnalysisMessage& message : analysis.messages)
        texts.push_back(message.severity + " " + message.text);
    return texts;
}

} // namespace test
} // namespace orv
