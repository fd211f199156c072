// Into how many blocks the farm cuts an image, as the user chooses it.
#pragma once

#include <cstdint>

namespace orv {

// The codes that the job names a block mode by.
constexpr std::int32_t kNoBlocks = 1;
constexpr std::int32_t kThreeBlocks = 10;
constexpr std::int32_t kSixBlocks = 64;
constexpr std::int32_t kDistributedBlocks = 1010;

// Blocks of the last mode, as many as the user types.
constexpr std::int32_t kFewestBlocks = 2;
constexpr std::int32_t kMostBlocks = 10;

// The code of a radio button of the main dialog; 0 for any other control.
std::int32_t BlockModeOf(int radioButton);

// The material channel needs the whole image or blocks that are whole images.
bool IsMaterialChannelPossible(std::int32_t blockMode);

} // namespace orv
