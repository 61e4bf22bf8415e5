#include "palettes.h"

#include <algorithm>
#include <iterator>

namespace Orbel
{

namespace
{

struct Row {
    const char *name;
    QRgb window, text, base, alternate, button, disabled, highlight, highlightedText, link, tip, tipText;
};

// clang-format off
constexpr Row Table[] = {
    {"light",    0xffefefef, 0xff1b1b1b, 0xffffffff, 0xfff5f5f5, 0xffefefef, 0xff8c8c8c, 0xff2a75b8, 0xffffffff, 0xff1a5fb4, 0xffffffdc, 0xff1b1b1b},
    {"dark",     0xff2d2f33, 0xffe6e6e6, 0xff1f2124, 0xff26282c, 0xff3a3d42, 0xff86898e, 0xff3d84c6, 0xffffffff, 0xff7db8f0, 0xff3a3d42, 0xffe6e6e6},
    {"contrast", 0xff262626, 0xffffffff, 0xff000000, 0xff101010, 0xff383838, 0xff9a9a9a, 0xffffe000, 0xff000000, 0xff66ccff, 0xff000000, 0xffffffff},
};
// clang-format on

QPalette Make(const Row &row)
{
    // The shades of frames and grooves come from the button's colour.
    QPalette palette(QColor(row.button), QColor(row.window));
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, QColor(row.text));
        palette.setColor(QPalette::Disabled, role, QColor(row.disabled));
    }
    palette.setColor(QPalette::Base, QColor(row.base));
    palette.setColor(QPalette::AlternateBase, QColor(row.alternate));
    palette.setColor(QPalette::Highlight, QColor(row.highlight));
    palette.setColor(QPalette::HighlightedText, QColor(row.highlightedText));
    palette.setColor(QPalette::Link, QColor(row.link));
    palette.setColor(QPalette::ToolTipBase, QColor(row.tip));
    palette.setColor(QPalette::ToolTipText, QColor(row.tipText));
    palette.setColor(QPalette::PlaceholderText, QColor(row.disabled));
    return palette;
}

} // namespace

QStringList PaletteNames()
{
    QStringList names;
    for (const Row &row : Table)
        names.append(QLatin1String(row.name));
    return names;
}

std::optional<QPalette> NamedPalette(const QString &name)
{
    const auto isIt = [&](const Row &row) { return name == QLatin1String(row.name); };
    const Row *row = std::find_if(std::begin(Table), std::end(Table), isIt);
    return row == std::end(Table) ? std::nullopt : std::optional(Make(*row));
}

} // namespace Orbel
