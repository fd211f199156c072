#include "client/guid_text.h"

#include "log/log.h"

#include <objbase.h>

#include <cstdio>

namespace orv {

std::wstring FormatGuid(const GUID& guid) {
    char text[37];
    std::snprintf(text, sizeof(text), "%08lX-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X",
                  guid.Data1, unsigned{guid.Data2}, unsigned{guid.Data3}, unsigned{guid.Data4[0]},
                  unsigned{guid.Data4[1]}, unsigned{guid.Data4[2]}, unsigned{guid.Data4[3]},
                  unsigned{guid.Data4[4]}, unsigned{guid.Data4[5]}, unsigned{guid.Data4[6]},
                  unsigned{guid.Data4[7]});
    return std::wstring(text, text + sizeof(text) - 1); // nothing but ASCII
}

std::wstring MakeGuidText(GuidSource source) {
    GUID guid = {};
    if (FAILED(source(&guid))) {
        ExchangeLog log;
        WriteLog(log, kError, "The GUID generate failed!");
        return {};
    }
    return FormatGuid(guid);
}

std::wstring MakeGuidText() {
    return MakeGuidText(&::CoCreateGuid);
}

} // namespace orv
