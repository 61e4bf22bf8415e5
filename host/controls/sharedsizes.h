#pragma once

#include <QFont>
#include <QGuiApplication>
#include <QPointer>
#include <QProxyStyle>
#include <QWidget>

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace Orbel
{

/// What widgets of one kind measure alike: those that show the same in the same look are measured once for all of them.
/// `Content` is all that such a size depends on beside the look, and can be compared. A widget whose style may look at
/// the widget itself, by a style sheet or a proxy, is measured each time.
///
/// One for each kind is made and never destroyed, since fonts do not outlive the application. Exported to nobody.
template <class Content> class SharedSizes
{
public:
    /// The size that `measure()` gives for such a widget.
    template <class Measure> QSize Get(const QWidget &widget, const Content &content, const Measure &measure)
    {
        QStyle *const style = widget.style();
        if (style->inherits("QStyleSheetStyle") || qobject_cast<QProxyStyle *>(style))
            return measure();
        FollowFonts();
        const Known wanted{style, widget.font(), widget.layoutDirection(), widget.logicalDpiY(),
            widget.devicePixelRatioF(), content, QSize()};
        const auto isIt = [&](const Known &known) { return known.Key() == wanted.Key(); };
        const auto known = std::find_if(Sizes.begin(), Sizes.end(), isIt);
        if (known != Sizes.end())
            return known->Size;
        const QSize size = measure();
        Known &oldest = Sizes[Next++ % Sizes.size()];
        oldest = wanted;
        oldest.Size = size;
        return size;
    }

    /// Must be called when a style measures otherwise than before.
    void Clear() { Sizes.fill(Known()); }

private:
    struct Known {
        auto Key() const { return std::tie(Style, Held, Font, Direction, Dpi, PixelRatio); }

        QPointer<QStyle> Style;
        QFont Font;
        Qt::LayoutDirection Direction = Qt::LeftToRight;
        int Dpi = 0;
        double PixelRatio = 0;
        Content Held{};
        QSize Size;
    };

    /// A font that is installed, or removed, may be what another one stands for.
    void FollowFonts()
    {
        if (Application == qGuiApp)
            return;
        Clear();
        Application = qGuiApp;
        QObject::connect(Application, &QGuiApplication::fontDatabaseChanged, Application, [this] { Clear(); });
    }

    std::array<Known, 16> Sizes;
    size_t Next = 0;
    QPointer<QGuiApplication> Application;
};

} // namespace Orbel
