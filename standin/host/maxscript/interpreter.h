// Runs MAXScript sources. See README.md for what of the language it knows.
#pragma once

#include "standin/host/maxscript/globals.h"

namespace standin {
namespace maxscript {

class Interpreter {
public:
    // Where `print` and `format` without a stream write; one call a line or part of one.
    using Listener = std::function<void(const std::wstring&)>;

    // The language's own functions are there; the host's are added to globals().
    explicit Interpreter(Listener listener = Listener());

    // Runs each top-level expression of a source and returns the last one's value. `name` is the
    // file for messages and getSourceFileName, empty for a text. Throws ScriptError.
    Value run(const std::wstring& source, const std::wstring& name);

    // fileIn: UTF-8 or UTF-16 with a byte-order mark, else the system's code page. Throws
    // ScriptError, also when the file cannot be read.
    Value runFile(const std::wstring& path);

    Value call(const Value& function, const Values& arguments);

    Globals& globals() { return globals_; }
    void print(const std::wstring& text) const;
    const std::wstring& sourceName() const { return sourceName_; }

    // The message of the error that the innermost `catch` handles.
    std::wstring exception;

    // Bounds nesting: throws when it is too deep.
    class Depth {
    public:
        explicit Depth(Interpreter& interpreter);
        ~Depth() { --interpreter_.depth_; }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;

    private:
        Interpreter& interpreter_;
    };

private:
    Listener listener_;
    Globals globals_;
    std::wstring sourceName_;
    int depth_ = 0;
};

} // namespace maxscript
} // namespace standin
