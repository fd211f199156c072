#include "standin/host/maxscript/language_library.h"

#include <algorithm>

namespace standin {
namespace maxscript {
namespace {

std::size_t PlaceIn(const Array& array, const Value& index, std::size_t most) {
    const int place = IntegerOf(index);
    if (place < 1 || static_cast<std::size_t>(place) > most) {
        throw ScriptError(L"Array index out of range: " + ToText(index) + L" of " +
                          std::to_wstring(array.values.size()));
    }
    return static_cast<std::size_t>(place) - 1;
}

Value Append(Interpreter&, const Arguments& a) {
    ArrayOf(a.values[0])->values.push_back(a.values[1]);
    return a.values[0];
}

// From 1; 0 when it is not there.
Value FindItem(Interpreter&, const Arguments& a) {
    const Values all =
        a.values[0].is(Value::Kind::Object) ? a.values[0].object()->items() : Values();
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (AreEqual(all[i], a.values[1])) {
            return Value(static_cast<int>(i) + 1);
        }
    }
    return Value(0);
}

Value AppendIfUnique(Interpreter& interpreter, const Arguments& a) {
    if (FindItem(interpreter, a).integer() != 0) {
        return Value(false);
    }
    Append(interpreter, a);
    return Value(true);
}

Value Join(Interpreter&, const Arguments& a) {
    const auto array = ArrayOf(a.values[0]);
    const Values more = ArrayOf(a.values[1])->values;
    array->values.insert(array->values.end(), more.begin(), more.end());
    return a.values[0];
}

Value DeleteItem(Interpreter&, const Arguments& a) {
    const auto array = ArrayOf(a.values[0]);
    const std::size_t place = PlaceIn(*array, a.values[1], array->values.size());
    array->values.erase(array->values.begin() + static_cast<std::ptrdiff_t>(place));
    return a.values[0];
}

Value InsertItem(Interpreter&, const Arguments& a) {
    const auto array = ArrayOf(a.values[1]);
    const std::size_t place = PlaceIn(*array, a.values[2], array->values.size() + 1);
    array->values.insert(array->values.begin() + static_cast<std::ptrdiff_t>(place), a.values[0]);
    return a.values[1];
}

// A merge sort: a comparison that contradicts itself must not do harm.
void SortStably(Values& values, const std::function<bool(const Value&, const Value&)>& isLess) {
    Values other(values.size());
    for (std::size_t width = 1; width < values.size(); width *= 2) {
        for (std::size_t from = 0; from < values.size(); from += 2 * width) {
            const std::size_t middle = std::min(from + width, values.size());
            const std::size_t end = std::min(from + 2 * width, values.size());
            std::size_t left = from;
            std::size_t right = middle;
            for (std::size_t to = from; to < end; ++to) {
                const bool takeRight =
                    left >= middle || (right < end && isLess(values[right], values[left]));
                other[to] = values[takeRight ? right++ : left++];
            }
        }
        values.swap(other);
    }
}

Value Sort(Interpreter&, const Arguments& a) {
    const auto array = ArrayOf(a.values[0]);
    Values sorted = array->values;
    SortStably(sorted, [](const Value& left, const Value& right) {
        return Calculate(L"<", left, right).boolean();
    });
    array->values = sorted;
    return a.values[0];
}

// The function gives a negative number when the first of its two arguments comes first.
Value QuickSort(Interpreter& interpreter, const Arguments& a) {
    const auto array = ArrayOf(a.values[0]);
    const Value compare = a.values[1];
    Values sorted = array->values;
    SortStably(sorted, [&](const Value& left, const Value& right) {
        return IntegerOf(interpreter.call(compare, {left, right})) < 0;
    });
    array->values = sorted;
    return a.values[0];
}

Value MakeUnique(Interpreter&, const Arguments& a) {
    Values kept;
    for (const Value& each : ArrayOf(a.values[0])->values) {
        const bool isNew = std::none_of(kept.begin(), kept.end(), [&each](const Value& other) {
            return AreEqual(each, other);
        });
        if (isNew) {
            kept.push_back(each);
        }
    }
    return MakeArray(kept);
}

} // namespace

void AddArrayFunctions(Globals& globals) {
    globals.addFunction(L"append", 2, 2, Append);
    globals.addFunction(L"appendIfUnique", 2, 2, AppendIfUnique);
    globals.addFunction(L"findItem", 2, 2, FindItem);
    globals.addFunction(L"join", 2, 2, Join);
    globals.addFunction(L"deleteItem", 2, 2, DeleteItem);
    globals.addFunction(L"insertItem", 3, 3, InsertItem);
    globals.addFunction(L"sort", 1, 1, Sort);
    globals.addFunction(L"qsort", 2, 2, QuickSort);
    globals.addFunction(L"makeUniqueArray", 1, 1, MakeUnique);
}

} // namespace maxscript
} // namespace standin
