#include "ui/main_dialog/block_mode.h"

#include "resources/controls.h"

namespace orv {
namespace {

struct BlockRadio {
    int radioButton;
    std::int32_t mode;
};

constexpr BlockRadio kBlockRadios[] = {
    {IDC_NO_BLOCKS, kNoBlocks},
    {IDC_THREE_BLOCKS, kThreeBlocks},
    {IDC_SIX_BLOCKS, kSixBlocks},
    {IDC_DISTRIBUTED_BLOCKS, kDistributedBlocks},
};

} // namespace

std::int32_t BlockModeOf(int radioButton) {
    for (const BlockRadio& radio : kBlockRadios) {
        if (radio.radioButton == radioButton)
            return radio.mode;
    }
    return 0;
}

bool IsMaterialChannelPossible(std::int32_t blockMode) {
    return blockMode != kThreeBlocks && blockMode != kSixBlocks;
}

} // namespace orv
