// Scripts. The only source that includes the host's scripting header, which defines common words.
#include "max.h"
// the host's own header comes first
#include "maxscript/maxscript.h"

#include "host/host_api.h"
#include "host/main_thread.h"

int orv_host_run_script(const wchar_t* text, FPValue* result) {
    int answer = 0;
    // Errors go to the host's listener, where the artist can see them.
    OnHostThread([&] { answer = ExecuteMAXScriptScript(text, FALSE, result, TRUE); });
    return answer;
}

int orv_host_is_unattended(void) {
    int unattended = 0;
    OnHostThread([&] {
        FPValue value;
        // True for a network renderer, too. Errors stay out of the listener.
        if (ExecuteMAXScriptScript(_M("GetQuietMode()"), TRUE, &value, FALSE) &&
            static_cast<int>(value.type) == static_cast<int>(TYPE_BOOL))
            unattended = value.i;
    });
    return unattended;
}

FPValue* orv_host_value_create(void) {
    return new FPValue;
}

void orv_host_value_destroy(FPValue* value) {
    delete value;
}
