#include "standin/host/maxscript/interpreter.h"

#include "standin/host/maxscript/language_library.h"
#include "standin/host/maxscript/parser.h"
#include "standin/host/text.h"

#include "base/windows.h"

namespace standin {
namespace maxscript {
namespace {

constexpr int kDeepestEvaluation = 1500;

// A file without a byte-order mark is read in the system's code page, as in the host.
std::wstring Decoded(const std::string& bytes) {
    if (bytes.compare(0, 3, "\xEF\xBB\xBF") == 0) {
        return ToWide(bytes.substr(3));
    }
    if (bytes.compare(0, 2, "\xFF\xFE") == 0) {
        std::wstring text;
        for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
            const auto low = static_cast<unsigned char>(bytes[i]);
            const auto high = static_cast<unsigned char>(bytes[i + 1]);
            text.push_back(static_cast<wchar_t>(low | (high << 8)));
        }
        return text;
    }
    return FromBytes(bytes, CP_ACP);
}

} // namespace

Interpreter::Depth::Depth(Interpreter& interpreter) : interpreter_(interpreter) {
    if (++interpreter_.depth_ > kDeepestEvaluation) {
        --interpreter_.depth_;
        throw ScriptError(L"Stack overflow: calls or expressions are too deeply nested");
    }
}

Interpreter::Interpreter(Listener listener) : listener_(std::move(listener)) {
    AddLanguageLibrary(*this);
}

void Interpreter::print(const std::wstring& text) const {
    if (listener_) {
        listener_(text);
    }
}

Value Interpreter::run(const std::wstring& source, const std::wstring& name) {
    struct Restore {
        std::wstring& place;
        std::wstring before;
        ~Restore() { place = before; }
    };
    const Restore restore{sourceName_, sourceName_};
    sourceName_ = name;
    const auto shared = std::make_shared<const std::wstring>(name);
    Parser parser(Tokenize(source, shared), globals_);
    Value last = Value::special(Value::Kind::Ok);
    try {
        while (const ExpressionPtr expression = parser.next()) {
            const auto frame = std::make_shared<Frame>(*this, parser.slots(), nullptr);
            last = expression->value(*frame);
        }
    } catch (const ReturnSignal& signal) {
        return signal.value;
    } catch (const ExitSignal&) {
        throw ScriptError(L"exit outside of a loop");
    } catch (const ContinueSignal&) {
        throw ScriptError(L"continue outside of a loop");
    }
    return last;
}

Value Interpreter::runFile(const std::wstring& path) {
    std::string bytes;
    if (!ReadWholeFile(path, bytes)) {
        throw ScriptError(L"fileIn: cannot open file: " + path);
    }
    return run(Decoded(bytes), path);
}

Value Interpreter::call(const Value& function, const Values& arguments) {
    if (!function.is(Value::Kind::Object)) {
        throw ScriptError(L"Type error: Call needs function or class, got: " + ToText(function));
    }
    return function.object()->call(*this, Arguments{arguments, {}});
}

} // namespace maxscript
} // namespace standin
