// What a user can choose for the rendering of a scene, where the dialog shows it and the job names
// it: plain data.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orv {

// Into how many blocks the farm cuts an image, by the codes of the job.
constexpr std::int32_t kNoBlocks = 1;
constexpr std::int32_t kThreeBlocks = 10;
constexpr std::int32_t kSixBlocks = 64;
constexpr std::int32_t kDistributedBlocks = 1010; // whole images; the user types how many

// Blocks of the last mode.
constexpr std::int32_t kFewestBlocks = 2;
constexpr std::int32_t kMostBlocks = 10;

// The scales of the GI image, in the order of their list.
constexpr const char* kGiScales[] = {"100%", "50%", "33%", "25%"};
constexpr std::int32_t kGiScaleCount =
    static_cast<std::int32_t>(sizeof(kGiScales) / sizeof(kGiScales[0]));

// The scale that a selection of that list stands for. None, and one that a settings file invents,
// counts as the first.
constexpr std::int32_t GiScaleEntry(std::int32_t selection) {
    return selection >= 0 && selection < kGiScaleCount ? selection : 0;
}

// What the fields of the dialog open with, and what the settings file has when nothing is to be
// remembered. The time limit opens with "0.0" and is kept as kNoLimit; the gamma opens with the
// scene's, where the analysis found one.
constexpr wchar_t kDefaultAoRadius[] = L"1000.0";
constexpr wchar_t kDefaultAoSubdivs[] = L"16";
constexpr wchar_t kDefaultGamma[] = L"2.2";
constexpr wchar_t kNoLimit[] = L"0"; // of passes, noise and time

} // namespace orv
