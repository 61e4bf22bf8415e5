#pragma once

#include <QPointer>
#include <QWidget>

namespace Orbel
{

class Workbench;

/// Drawn over the form, and takes no events: a frame around the control that the studio speaks of, and how the layout
/// has placed everything. It is there while there is something to draw.
class FormOverlay : public QWidget
{
    Q_OBJECT

public:
    explicit FormOverlay(Workbench &bench);

    void SetHints(bool shown);
    /// A control to frame for as long as the operator points at it; empty for none.
    void Point(const QString &name);
    /// Covers the form of now.
    void Cover();

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void TakePicked(const QString &name);
    void ShowIfNeeded();
    QRect PlaceInView(const QWidget &widget) const;
    QVector<QRect> PlacesOf(const QString &name) const;
    void PaintFrame(QPainter &painter, const QString &name, const QColor &color) const;
    void PaintHints(QPainter &painter) const;

    Workbench &Bench;
    QString Pointed;
    bool HasHints = false;
};

} // namespace Orbel
