#include "standin/host/maxscript/globals.h"

namespace standin {
namespace maxscript {

std::shared_ptr<GlobalCell> Globals::find(const std::wstring& name) const {
    const auto found = cells_.find(Fold(name));
    return found == cells_.end() ? nullptr : found->second;
}

std::shared_ptr<GlobalCell> Globals::findOrMake(const std::wstring& name) {
    std::shared_ptr<GlobalCell>& cell = cells_[Fold(name)];
    if (!cell) {
        cell = std::make_shared<GlobalCell>();
        cell->name = name;
    }
    return cell;
}

bool Globals::remove(const std::wstring& name) {
    const auto found = cells_.find(Fold(name));
    if (found == cells_.end() || found->second->isSystem) {
        return false;
    }
    cells_.erase(found);
    return true;
}

std::vector<std::wstring> Globals::names() const {
    std::vector<std::wstring> all;
    for (const auto& each : cells_) {
        if (!each.second->isSystem) {
            all.push_back(each.second->name);
        }
    }
    return all;
}

void Globals::addValue(const std::wstring& name, const Value& value) {
    const auto cell = findOrMake(name);
    cell->value = value;
    cell->isSystem = true;
}

void Globals::addFunction(const std::wstring& name, int least, int most,
                          NativeFunction::Body body) {
    addValue(name, Value(std::make_shared<NativeFunction>(name, least, most, std::move(body))));
}

void Globals::addVariable(const std::wstring& name, std::function<Value()> read,
                          std::function<void(const Value&)> write) {
    const auto cell = findOrMake(name);
    cell->read = std::move(read);
    cell->write = std::move(write);
    cell->isSystem = true;
}

} // namespace maxscript
} // namespace standin
