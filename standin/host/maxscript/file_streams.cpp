#include "standin/host/maxscript/file_streams.h"

#include "standin/host/maxscript/language_library.h"
#include "standin/host/text.h"

#include "base/windows.h"

#include <cstdio>

namespace standin {
namespace maxscript {
namespace {

enum class Encoding { CodePage, Utf8, Utf16 };

Encoding EncodingOf(const Value& name) {
    const std::wstring text = name.is(Value::Kind::Undefined) ? L"current" : Fold(TextOf(name));
    if (text == L"utf8") {
        return Encoding::Utf8;
    }
    if (text == L"utf16le" || text == L"utf16") {
        return Encoding::Utf16;
    }
    if (text == L"current" || text == L"ansi") {
        return Encoding::CodePage;
    }
    throw ScriptError(L"this encoding is not known here: " + ToText(name));
}

// What a code page lacks becomes its question mark, as in the host.
std::string Encoded(const std::wstring& text, Encoding encoding) {
    if (encoding == Encoding::Utf8) {
        return ToUtf8(text);
    }
    if (encoding == Encoding::Utf16) {
        return std::string(reinterpret_cast<const char*>(text.data()),
                           text.size() * sizeof(wchar_t));
    }
    return ToBytes(text, CP_ACP);
}

class FileStream : public TextSink {
public:
    FileStream(Stream file, Encoding encoding) : file_(std::move(file)), encoding_(encoding) {}

    std::wstring className() const override { return L"FileStream"; }
    void write(const std::wstring& text) override {
        // Text mode: a line end becomes two characters.
        std::wstring lines;
        for (const wchar_t each : text) {
            if (each == L'\n') {
                lines.push_back(L'\r');
            }
            lines.push_back(each);
        }
        writeBytes(Encoded(lines, encoding_));
    }
    void writeBytes(const std::string& bytes) {
        if (!file_ || std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) {
            throw ScriptError(L"write error on file");
        }
    }
    void close() { file_.reset(); }

private:
    Stream file_;
    Encoding encoding_;
};

// undefined when it cannot be made, as in the host.
Value CreateFileStream(Interpreter&, const Arguments& a) {
    const Encoding encoding = EncodingOf(a.get(L"encoding", Value()));
    const bool mark = ToCondition(a.get(L"writebom", Value(false)), L"writeBOM:");
    Stream file = OpenStream(TextOf(a.values[0]), L"wb");
    if (!file) {
        return Value();
    }
    const auto stream = std::make_shared<FileStream>(std::move(file), encoding);
    if (mark && encoding == Encoding::Utf8) {
        stream->writeBytes("\xEF\xBB\xBF");
    } else if (mark && encoding == Encoding::Utf16) {
        stream->writeBytes("\xFF\xFE");
    }
    return Value(stream);
}

// Only for adding: what is read, is read as bytes.
Value OpenFileStream(Interpreter&, const Arguments& a) {
    const std::wstring mode = Fold(TextOf(a.get(L"mode", Value(L"r+"))));
    if (mode != L"a" && mode != L"at" && mode != L"a+") {
        throw ScriptError(L"openFile: this mode is not known here: " + mode);
    }
    Stream file = OpenStream(TextOf(a.values[0]), L"ab");
    if (!file) {
        return Value();
    }
    return Value(
        std::make_shared<FileStream>(std::move(file), EncodingOf(a.get(L"encoding", Value()))));
}

class BinStream : public Object {
public:
    explicit BinStream(Stream stream) : file(std::move(stream)) {}
    std::wstring className() const override { return L"BinStream"; }

    Stream file;
};

std::FILE* OpenedFile(const Value& value) {
    const auto stream = value.as<BinStream>();
    if (!stream || !stream->file) {
        throw ScriptError(L"needs an open BinStream, got: " + ToText(value));
    }
    return stream->file.get();
}

// An unsigned byte, or undefined at the end.
Value ReadByte(Interpreter&, const Arguments& a) {
    const int byte = std::fgetc(OpenedFile(a.values[0]));
    return byte == EOF ? Value() : Value(byte);
}

Value WriteByte(Interpreter&, const Arguments& a) {
    return Value(std::fputc(IntegerOf(a.values[1]) & 0xFF, OpenedFile(a.values[0])) != EOF);
}

Value Seek(Interpreter&, const Arguments& a) {
    const std::wstring from = Fold(TextOf(a.values[2]));
    const int origin = from == L"seek_end" ? SEEK_END : (from == L"seek_cur" ? SEEK_CUR : SEEK_SET);
    return Value(std::fseek(OpenedFile(a.values[0]), IntegerOf(a.values[1]), origin) == 0);
}

} // namespace

void AddFileStreams(Globals& globals) {
    globals.addFunction(L"createFile", 1, 1, CreateFileStream);
    globals.addFunction(L"openFile", 1, 1, OpenFileStream);
    globals.addFunction(L"close", 1, 1, [](Interpreter&, const Arguments& a) {
        const auto stream = a.values[0].as<FileStream>();
        if (!stream) {
            throw ScriptError(L"close: needs a stream, got: " + ToText(a.values[0]));
        }
        stream->close();
        return Value::special(Value::Kind::Ok);
    });
    globals.addFunction(L"flush", 1, 1, [](Interpreter&, const Arguments&) {
        return Value::special(Value::Kind::Ok);
    });
    globals.addFunction(L"fopen", 2, 2, [](Interpreter&, const Arguments& a) {
        Stream file = OpenStream(TextOf(a.values[0]), TextOf(a.values[1]).c_str());
        return file ? Value(std::make_shared<BinStream>(std::move(file))) : Value();
    });
    globals.addFunction(L"fclose", 1, 1, [](Interpreter&, const Arguments& a) {
        OpenedFile(a.values[0]);
        a.values[0].as<BinStream>()->file.reset();
        return Value(true);
    });
    globals.addFunction(L"fseek", 3, 3, Seek);
    globals.addFunction(L"ftell", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(static_cast<int>(std::ftell(OpenedFile(a.values[0]))));
    });
    globals.addFunction(L"readByte", 1, 2, ReadByte);
    globals.addFunction(L"writeByte", 2, 3, WriteByte);
}

} // namespace maxscript
} // namespace standin
