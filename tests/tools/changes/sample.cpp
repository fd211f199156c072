// A program with one place for each kind of change: whatever is changed, it prints something else.
#include "resources/texts.h"

#include <cstdio>

namespace {

struct Row {
    int code;
    unsigned text;
};

constexpr Row kRows[] = {{10001, IDS_CAPTION}};
constexpr int kStep = 3;

bool IsBelow(int value, int limit) {
    return value < limit;
}

int Difference(int left, int right) {
    return left - right;
}

void Print(const char* name, int value) {
    std::printf("%s %d\n", name, value);
}

} // namespace

int main() {
    for (int value = 6; value < 9; ++value)
        Print(IsBelow(value, 7) ? "below" : "not below", value);
    int sum = kStep;
    if (sum == 3)
        sum += 10;
    bool isTold = true;
    if (isTold)
        Print("sum", sum);
    Print("difference", Difference(sum, 5));
    for (const Row& row : kRows) {
        Print("code", row.code);
        Print("text", static_cast<int>(row.text));
    }
    return 0;
}
