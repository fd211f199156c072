#include "ui/progress/progress_lines.h"

#include "analysis/text/numbers.h"
#include "base/windows.h"
#include "resources/message_box.h"
#include "resources/texts.h"

namespace orv {
namespace {

std::wstring TwoDigits(std::uint64_t number) {
    return (number < 10 ? L"0" : L"") + std::to_wstring(number);
}

} // namespace

unsigned StageText(SubmissionStage stage) {
    switch (stage) {
    case SubmissionStage::Checking:
        return IDS_STAGE_CHECKING;
    case SubmissionStage::Saving:
        return IDS_STAGE_SAVING;
    case SubmissionStage::Cleaning:
        return IDS_STAGE_CLEANING;
    case SubmissionStage::Packing:
        return IDS_STAGE_PACKING;
    case SubmissionStage::Describing:
        return IDS_STAGE_DESCRIBING;
    case SubmissionStage::Sending:
        return IDS_STAGE_SENDING;
    }
    return IDS_STAGE_CHECKING;
}

std::wstring ElapsedText(std::uint64_t milliseconds) {
    const std::uint64_t seconds = milliseconds / 1000;
    const std::wstring rest = TwoDigits(seconds % 60);
    if (seconds < 3600)
        return std::to_wstring(seconds / 60) + L":" + rest;
    return std::to_wstring(seconds / 3600) + L":" + TwoDigits(seconds / 60 % 60) + L":" + rest;
}

std::wstring TimeLine(std::uint64_t milliseconds) {
    constexpr wchar_t kMark[] = L"%1";
    std::wstring line = ResourceText(IDS_PROGRESS_TIME);
    const std::size_t at = line.find(kMark);
    if (at != std::wstring::npos)
        line.replace(at, 2, ElapsedText(milliseconds));
    return line;
}

std::wstring MegabyteText(std::uint64_t bytes) {
    return DecimalText(static_cast<double>(bytes) / (1024.0 * 1024.0), 1);
}

std::uint64_t FileSize(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (path.empty() || !::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data))
        return 0;
    return (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

} // namespace orv
