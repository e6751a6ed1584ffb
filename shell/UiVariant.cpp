#include "shell/UiVariant.h"

#include <array>

namespace {

enum class Want { No, Yes, Any };

constexpr bool fits(Want want, bool is) {
    return want == Want::Any || (want == Want::Yes) == is;
}

struct Row {
    Want controller;
    Want managed;
    Want fullMirlWhenManaged;
    UiVariant variant;
};

constexpr std::array<Row, 5> kRows = {{
    {Want::Yes, Want::No, Want::Any, UiVariant::Master},
    {Want::Yes, Want::Yes, Want::Yes, UiVariant::Master},
    {Want::Yes, Want::Yes, Want::No, UiVariant::Managed},
    {Want::No, Want::Yes, Want::Any, UiVariant::Managed},
    {Want::No, Want::No, Want::Any, UiVariant::Slave},
}};

constexpr bool fits(const Row& row, bool controller, bool managed, bool full) {
    return fits(row.controller, controller) && fits(row.managed, managed) &&
           fits(row.fullMirlWhenManaged, full);
}

constexpr bool eachCaseFitsOneRow() {
    for (int bits = 0; bits < 8; ++bits) {
        int fitting = 0;
        for (const Row& row : kRows) fitting += fits(row, bits & 1, bits & 2, bits & 4);
        if (fitting != 1) return false;
    }
    return true;
}
static_assert(eachCaseFitsOneRow());

} // namespace

UiVariant uiVariantFor(bool controller, bool managed, bool fullMirlWhenManaged) {
    for (const Row& row : kRows) {
        if (fits(row, controller, managed, fullMirlWhenManaged)) return row.variant;
    }
    return UiVariant::Slave;
}
