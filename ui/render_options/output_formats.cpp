#include "ui/render_options/output_formats.h"

#include "base/windows.h"
#include "resources/message_box.h"
#include "resources/texts.h"

namespace orv {
namespace {

const unsigned kFormatTexts[] = {
    IDS_FORMAT_PNG, IDS_FORMAT_JPG, IDS_FORMAT_BMP,  IDS_FORMAT_TGA,   IDS_FORMAT_EXR,
    IDS_FORMAT_HDR, IDS_FORMAT_RLA, IDS_FORMAT_RPF,  IDS_FORMAT_DDS,   IDS_FORMAT_EPS,
    IDS_FORMAT_RGB, IDS_FORMAT_CIN, IDS_FORMAT_TIFF, IDS_FORMAT_VRIMG,
};

constexpr int kTiffEntry = 12;

bool IsSame(const std::wstring& one, const std::wstring& other) {
    return ::CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

} // namespace

std::vector<std::wstring> OutputFormats() {
    std::vector<std::wstring> formats;
    for (const unsigned text : kFormatTexts)
        formats.push_back(ResourceText(text));
    return formats;
}

int FormatEntry(const std::vector<std::wstring>& formats, const std::wstring& format) {
    for (std::size_t entry = 0; entry < formats.size(); ++entry) {
        if (IsSame(formats[entry], format))
            return static_cast<int>(entry);
    }
    return format == L"TIFF" || format == L"TIF" ? kTiffEntry : 0;
}

} // namespace orv
