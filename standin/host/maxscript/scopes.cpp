#include "standin/host/maxscript/scopes.h"

#include "standin/host/maxscript/simple_expressions.h"

#include <algorithm>

namespace standin {
namespace maxscript {
namespace {

constexpr std::size_t kGlobal =
    static_cast<std::size_t>(-1); // the block said that it means the global

} // namespace

void Scopes::reset() {
    functions_.assign(1, Function());
    structs_.clear();
}

void Scopes::enterFunction() {
    functions_.emplace_back();
    functions_.back().blocks.emplace_back();
}

void Scopes::leaveFunction() {
    functions_.pop_back();
}

bool Scopes::atTopLevel() const {
    return functions_.size() == 1 && functions_[0].blocks.empty() && structs_.empty();
}

std::size_t Scopes::addLocal(const std::wstring& name) {
    Function& function = functions_.back();
    if (function.blocks.empty()) {
        function.blocks.emplace_back(); // a local of a single top-level expression
    }
    const std::size_t slot = function.slots++;
    function.blocks.back()[Fold(name)] = slot;
    return slot;
}

void Scopes::addGlobal(const std::wstring& name) {
    globals_.findOrMake(name);
    if (!functions_.back().blocks.empty()) {
        functions_.back().blocks.back()[Fold(name)] = kGlobal;
    }
}

// A structure's function sees the members that stand before it.
bool Scopes::isMember(const std::wstring& folded) const {
    if (structs_.empty() || functions_.size() <= structs_.back().functions) {
        return false;
    }
    const auto& members = structs_.back().members;
    return std::find(members.begin(), members.end(), folded) != members.end();
}

ExpressionPtr Scopes::global(const std::wstring& name) {
    return std::make_shared<GlobalVariable>(globals_.findOrMake(name));
}

ExpressionPtr Scopes::resolve(const std::wstring& name) {
    const std::wstring folded = Fold(name);
    for (std::size_t i = functions_.size(); i-- > 0;) {
        const auto& blocks = functions_[i].blocks;
        for (auto block = blocks.rbegin(); block != blocks.rend(); ++block) {
            const auto found = block->find(folded);
            if (found == block->end()) {
                continue;
            }
            if (found->second == kGlobal) {
                return global(name);
            }
            if (i + 1 != functions_.size()) {
                throw ScriptError(L"No outer local variable references permitted here: " + name);
            }
            return std::make_shared<LocalVariable>(found->second);
        }
        // The members of a structure stand between its functions and what is around it.
        if (i + 1 == functions_.size() && isMember(folded)) {
            return std::make_shared<OwnMember>(folded);
        }
    }
    if (globals_.find(name) != nullptr || atTopLevel()) {
        return global(name);
    }
    return std::make_shared<LocalVariable>(addLocal(name));
}

ExpressionPtr Scopes::definitionTarget(const std::wstring& name) {
    if (atTopLevel()) {
        return global(name);
    }
    const auto& blocks = functions_.back().blocks;
    if (!blocks.empty()) {
        const auto found = blocks.back().find(Fold(name));
        if (found != blocks.back().end()) {
            return resolve(name);
        }
    }
    return std::make_shared<LocalVariable>(addLocal(name));
}

} // namespace maxscript
} // namespace standin
