// The global variables: those of the host and those that scripts make.
#pragma once

#include "standin/host/maxscript/object.h"

#include <map>

namespace standin {
namespace maxscript {

// One global. System globals such as renderWidth are read and written through functions.
struct GlobalCell {
    std::wstring name; // as first written
    Value value;
    std::function<Value()> read;
    std::function<void(const Value&)> write;
    bool isSystem = false; // the host's own: neither listed nor removable
};

class Globals {
public:
    // The global of that name (any case), or null.
    std::shared_ptr<GlobalCell> find(const std::wstring& name) const;

    // The global of that name; a missing one is created with the value undefined. This is what
    // naming an unknown variable at the top level of a script does.
    std::shared_ptr<GlobalCell> findOrMake(const std::wstring& name);

    // False for one that does not exist or is the host's own. Code that was compiled before keeps
    // its variable.
    bool remove(const std::wstring& name);

    // The names that scripts made, in the order of the alphabet.
    std::vector<std::wstring> names() const;

    // The host's own.
    void addValue(const std::wstring& name, const Value& value);
    void addFunction(const std::wstring& name, int least, int most, NativeFunction::Body body);
    void addVariable(const std::wstring& name, std::function<Value()> read,
                     std::function<void(const Value&)> write = nullptr);

private:
    std::map<std::wstring, std::shared_ptr<GlobalCell>> cells_; // by the name in lower case
};

} // namespace maxscript
} // namespace standin
