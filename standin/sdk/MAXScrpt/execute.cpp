#include "maxscript/maxscript.h"
#include "standin/sdk/include/standin/core.h"
#include "standin/sdk/include/standin/host_services.h"

namespace {

// The result of one kind: how the scripting engine hands such a value to C++.
void Convert(const standin_value& value, FPValue& result) {
    result.Free();
    switch (value.kind) {
    case STANDIN_VALUE_BOOLEAN:
        result.type = static_cast<ParamType2>(TYPE_BOOL);
        result.i = value.integer != 0 ? 1 : 0;
        break;
    case STANDIN_VALUE_INTEGER:
        result.type = static_cast<ParamType2>(TYPE_INT);
        result.i = value.integer;
        break;
    case STANDIN_VALUE_FLOAT:
        result.type = static_cast<ParamType2>(TYPE_FLOAT);
        result.f = static_cast<float>(value.number);
        break;
    case STANDIN_VALUE_STRING:
        result.type = TYPE_STRING;
        result.s = value.text;
        break;
    case STANDIN_VALUE_NAME:
        result.type = TYPE_NAME;
        result.s = value.text;
        break;
    default:
        result.type = TYPE_VOID;
        break;
    }
}

} // namespace

BOOL ExecuteMAXScriptScript(const MCHAR* s, BOOL quietErrors, FPValue* fpv, BOOL logQuietErrors) {
    standin_value value = {STANDIN_VALUE_NONE, 0, 0.0, nullptr};
    const int done = standin_run_script(s ? s : L"", quietErrors, logQuietErrors, &value);
    if (done && fpv)
        Convert(value, *fpv);
    return done ? TRUE : FALSE;
}
