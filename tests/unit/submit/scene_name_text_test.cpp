#include "submit/dialog_input/scene_name_text.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

struct TypedCase {
    const wchar_t* typed;
    const wchar_t* name;
    const wchar_t* fileName;
};

TEST(SceneNameText, TakesOneExtensionOff) {
    const TypedCase cases[] = {
        {L"shot", L"shot", L"shot.max"},
        {L"shot.max", L"shot", L"shot.max"},
        {L"shot.MAX", L"shot", L"shot.max"},
        {L"shot.max.max", L"shot.max", L"shot.max.max"},
        {L"shot.v2", L"shot.v2", L"shot.v2.max"},
        {L"max", L"max", L"max.max"},
        {L".max", L"", L".max"},
        {L"", L"", L".max"},
        {L"\x573A\x666F", L"\x573A\x666F", L"\x573A\x666F.max"},
    };
    for (const TypedCase& typed : cases) {
        EXPECT_EQ(SceneNameOf(typed.typed), typed.name);
        EXPECT_EQ(SceneFileNameOf(typed.typed), typed.fileName);
    }
}

TEST(IsUsableSceneName, RefusesEndsThatWindowsDropsAndBackQuotes) {
    for (const wchar_t* name : {L"shot", L" shot", L".shot", L"", L"a b.c", L"\x573A"})
        EXPECT_TRUE(IsUsableSceneName(name));
    for (const wchar_t* name : {L"shot.", L"shot ", L"sh`ot", L"`", L".", L" "})
        EXPECT_FALSE(IsUsableSceneName(name));
}

} // namespace
} // namespace orv
