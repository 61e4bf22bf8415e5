#pragma once

#include <memory>

namespace KV218
{

class OrbelSheet;

/// Where the widgets of a sheet find it: null once the sheet was closed or destroyed. A copied sheet has a place of
/// its own.
class SheetPlace
{
public:
    /// Widgets hold the place itself, so that it outlives the sheet.
    using Shared = std::shared_ptr<OrbelSheet *>;

    SheetPlace() = default;
    SheetPlace(const SheetPlace &) { }
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): nothing is taken over.
    SheetPlace &operator=(const SheetPlace &) { return *this; }
    ~SheetPlace() { Clear(); }

    /// The place, which names `sheet` from the first call on.
    Shared Of(OrbelSheet *sheet)
    {
        if (!Sheet)
            Sheet = std::make_shared<OrbelSheet *>(sheet);
        return Sheet;
    }
    /// The place names no sheet from now on.
    void Clear()
    {
        if (Sheet)
            *Sheet = nullptr;
    }

private:
    Shared Sheet;
};

} // namespace KV218
