// The host's string. One pointer wide; its text is never null.
#pragma once

#include "MaxHeap.h"
#include "strbasic.h"
#include "utilexp.h"

class WStr : public MaxHeapOperators {
public:
    UtilExport WStr();
    UtilExport WStr(const wchar_t* text);
    UtilExport WStr(const WStr& other);
    UtilExport ~WStr();

    UtilExport WStr& operator=(const WStr& other);
    UtilExport WStr& operator=(const wchar_t* text);

    UtilExport const wchar_t* data() const;
    UtilExport int Length() const;
    UtilExport bool isNull() const;

    operator const wchar_t*() const { return data(); }
    int length() const { return Length(); }

private:
    void* text_;
};

typedef WStr MSTR;
#ifdef _UNICODE
#define TSTR WStr
#endif
