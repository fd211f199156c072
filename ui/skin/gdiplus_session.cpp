#include "ui/skin/gdiplus_session.h"

#include "ui/skin/gdiplus_headers.h"

namespace orv {

GdiplusSession::GdiplusSession() {
    const Gdiplus::GdiplusStartupInput input;
    started_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
}

GdiplusSession::~GdiplusSession() {
    if (started_)
        Gdiplus::GdiplusShutdown(token_);
}

} // namespace orv
