// Which variable a name means, decided while a source is read, as the host does.
#pragma once

#include "standin/host/maxscript/globals.h"
#include "standin/host/maxscript/structures.h"

#include <map>

namespace standin {
namespace maxscript {

// The rules: a local of the running function, innermost block first; a member of the structure
// whose function it is, when it was declared before; a global that exists. An unknown name becomes
// a global at the top level, and a local of the block anywhere else. A function sees no local of
// the function around it.
class Scopes {
public:
    explicit Scopes(Globals& globals) : globals_(globals) { reset(); }

    // Forgets everything but the globals: for the next top-level expression.
    void reset();
    std::size_t slots() const { return functions_.back().slots; }

    void enterFunction();
    void leaveFunction();
    void enterBlock() { functions_.back().blocks.emplace_back(); }
    void leaveBlock() { functions_.back().blocks.pop_back(); }
    void enterStruct() { structs_.push_back({functions_.size(), {}}); }
    void leaveStruct() { structs_.pop_back(); }
    void addMember(const std::wstring& name) { structs_.back().members.push_back(Fold(name)); }
    bool inStruct() const { return !structs_.empty(); }

    std::size_t addLocal(const std::wstring& name);
    void addGlobal(const std::wstring& name); // `global name`, hides locals of the name
    ExpressionPtr resolve(const std::wstring& name);
    ExpressionPtr global(const std::wstring& name);

    // Where a definition of that name goes: a new local, or a global at the top level.
    ExpressionPtr definitionTarget(const std::wstring& name);

private:
    using Block = std::map<std::wstring, std::size_t>; // by the name in lower case
    struct Function {
        std::vector<Block> blocks;
        std::size_t slots = 0;
    };
    struct Structure {
        std::size_t functions; // how many surround it
        std::vector<std::wstring> members;
    };

    bool atTopLevel() const;
    bool isMember(const std::wstring& folded) const;

    Globals& globals_;
    std::vector<Function> functions_;
    std::vector<Structure> structs_;
};

} // namespace maxscript
} // namespace standin
