// Why a script stopped.
#pragma once

#include <exception>
#include <memory>
#include <string>

namespace standin {
namespace maxscript {

// A place in a source: a file or a text that was run.
struct Position {
    std::shared_ptr<const std::wstring> source; // a file's path; empty text for a text
    int line = 0;                               // from 1; 0: unknown
    int column = 0;                             // from 1
};

// An error of the language, of the host's library, or one that a script threw. The first expression
// that passes it on adds the place.
class ScriptError : public std::exception {
public:
    explicit ScriptError(std::wstring message) : message_(std::move(message)) {}
    ScriptError(std::wstring message, Position position)
        : message_(std::move(message)), position_(std::move(position)) {}

    const char* what() const noexcept override { return "a script failed"; }

    const std::wstring& message() const { return message_; }
    const Position& position() const { return position_; }
    void setPosition(const Position& position) { position_ = position; }

    // "message; file: a.ms, line: 3, column: 7", for the Listener.
    std::wstring report() const {
        if (position_.line == 0) {
            return message_;
        }
        const bool isFile = position_.source && !position_.source->empty();
        return message_ + L"; " + (isFile ? L"file: " + *position_.source + L", " : L"") +
               L"line: " + std::to_wstring(position_.line) + L", column: " +
               std::to_wstring(position_.column);
    }

private:
    std::wstring message_;
    Position position_;
};

} // namespace maxscript
} // namespace standin
