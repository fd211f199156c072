#include "ui/skin/skin.h"

#include "resources/controls.h"
#include "resources/text.h"
#include "windows/measures.h"

#include <objidl.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>

// GDI+ needs the COM headers above, and names of its own for min and max.
namespace Gdiplus {
using std::max;
using std::min;
} // namespace Gdiplus

#include <gdiplus.h>

namespace orv {
namespace {

struct ReleaseStream {
    void operator()(IStream* stream) const { stream->Release(); }
};
using StreamPointer = std::unique_ptr<IStream, ReleaseStream>;

// A movable block with the bytes of a resource; empty when there is no such resource.
GlobalMemory CopyOfResource(HMODULE module, int id, const wchar_t* type) {
    const HRSRC found = ::FindResourceW(module, MAKEINTRESOURCEW(id), type);
    const HGLOBAL loaded = found != nullptr ? ::LoadResource(module, found) : nullptr;
    const void* bytes = loaded != nullptr ? ::LockResource(loaded) : nullptr;
    const DWORD size = found != nullptr ? ::SizeofResource(module, found) : 0;
    if (bytes == nullptr || size == 0)
        return GlobalMemory();
    GlobalMemory block(::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size));
    void* const copy = block ? ::GlobalLock(block.get()) : nullptr;
    if (copy == nullptr)
        return GlobalMemory();
    std::memcpy(copy, bytes, size);
    ::GlobalUnlock(block.get());
    return block;
}

// Copies the pixels of an image into rows of `pitch` bytes, converted to `format`.
bool CopyPixels(Gdiplus::Bitmap& image, Gdiplus::PixelFormat format, int bytesPerRow,
                BYTE* firstRow, int pitch) {
    const Gdiplus::Rect whole(0, 0, static_cast<INT>(image.GetWidth()),
                              static_cast<INT>(image.GetHeight()));
    Gdiplus::BitmapData pixels;
    if (image.LockBits(&whole, Gdiplus::ImageLockModeRead, format, &pixels) != Gdiplus::Ok)
        return false;
    const auto* const source = static_cast<const BYTE*>(pixels.Scan0);
    for (int row = 0; row < whole.Height; ++row)
        std::memcpy(firstRow + static_cast<std::ptrdiff_t>(row) * pitch,
                    source + static_cast<std::ptrdiff_t>(row) * pixels.Stride,
                    static_cast<std::size_t>(bytesPerRow));
    image.UnlockBits(&pixels);
    return true;
}

constexpr int kImageSize = 16;

} // namespace

GdiplusSession::GdiplusSession() {
    const Gdiplus::GdiplusStartupInput input;
    started_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
}

GdiplusSession::~GdiplusSession() {
    if (started_)
        Gdiplus::GdiplusShutdown(token_);
}

bool SkinImage::load(HMODULE module, int id, const wchar_t* type) {
    reset();
    GlobalMemory file = CopyOfResource(module, id, type);
    IStream* opened = nullptr;
    if (!file || ::CreateStreamOnHGlobal(file.get(), TRUE, &opened) != S_OK)
        return false;
    const StreamPointer stream(opened);
    file.release(); // it goes with the stream

    Gdiplus::Bitmap image(stream.get());
    if (image.GetLastStatus() != Gdiplus::Ok)
        return false;
    const int width = static_cast<int>(image.GetWidth());
    const int height = static_cast<int>(image.GetHeight());
    const bool alpha = (image.GetPixelFormat() & PixelFormatAlpha) != 0;
    if (!create(width, height, alpha) ||
        !CopyPixels(image, alpha ? PixelFormat32bppPARGB : PixelFormat24bppRGB,
                    width * bitsPerPixel_ / 8, firstRow_, rowPitch_)) {
        reset();
        return false;
    }
    return true;
}

void SkinImage::draw(HDC target, const RECT& area) const {
    const MemoryDc memory(bitmap_ ? ::CreateCompatibleDC(target) : nullptr);
    if (!memory)
        return;
    const DcSelection selection(memory.get(), bitmap_.get());
    BLENDFUNCTION blend = {};
    blend.BlendOp = AC_SRC_OVER;
    blend.SourceConstantAlpha = 255;
    blend.AlphaFormat = bitsPerPixel_ == 32 ? AC_SRC_ALPHA : 0;
    ::AlphaBlend(target, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 memory.get(), 0, 0, width_, height_, blend);
}

void SkinImage::reset() {
    bitmap_.reset();
    width_ = height_ = bitsPerPixel_ = rowPitch_ = 0;
    firstRow_ = nullptr;
    transparentColour_ = -1;
}

bool SkinImage::create(int width, int height, bool alpha) {
    if (width <= 0 || height <= 0)
        return false;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height; // positive: the last row comes first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = alpha ? 32 : 24;
    void* bytes = nullptr;
    bitmap_.reset(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bytes, nullptr, 0));
    if (!bitmap_)
        return false;
    width_ = width;
    height_ = height;
    bitsPerPixel_ = info.bmiHeader.biBitCount;
    const int bytesPerRow = (width * bitsPerPixel_ + 31) / 32 * 4; // rows are whole 32-bit words
    rowPitch_ = -bytesPerRow;
    firstRow_ = static_cast<BYTE*>(bytes) + static_cast<std::ptrdiff_t>(height - 1) * bytesPerRow;
    return true;
}

int StateImageSize(int dotsPerInch) {
    const int half = USER_DEFAULT_SCREEN_DPI / 2;
    return kImageSize * std::max(1, (dotsPerInch + half) / USER_DEFAULT_SCREEN_DPI);
}

void DrawStateImage(HDC target, const RECT& area, bool on) {
    SkinImage image;
    if (!image.load(orv_resource_module(), on ? IDP_PADLOCK_OPEN : IDP_PADLOCK_CLOSED, L"PNG"))
        return;
    // What the control showed before would shine through.
    ::FillRect(target, &area, ::GetSysColorBrush(COLOR_3DFACE));
    image.draw(target, area);
}

void PaintImageSlots(HWND dialog, const std::vector<ImageSlot>& slots) {
    for (const ImageSlot& slot : slots) {
        HWND control = ::GetDlgItem(dialog, slot.control);
        if (control == nullptr || !::IsWindowVisible(control))
            continue;
        PAINTSTRUCT paint = {};
        if (::BeginPaint(control, &paint) == nullptr)
            continue;
        RECT area = {};
        ::GetClientRect(control, &area);
        DrawStateImage(paint.hdc, area, slot.on);
        ::EndPaint(control, &paint);
    }
}

} // namespace orv
