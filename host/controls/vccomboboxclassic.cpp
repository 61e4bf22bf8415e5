#include "vccomboboxclassic.h"

#include "editquery.h"
#include "outofview.h"
#include "sharedsizes.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace
{

/// The room that the items of a box need, by their texts.
Orbel::SharedSizes<QStringList> &Rooms()
{
    static auto *const rooms = new Orbel::SharedSizes<QStringList>;
    return *rooms;
}

/// The room that `measure` finds for a box, which boxes of the same texts share.
template <class Measure> QSize SharedRoom(const QComboBox &box, const Measure &measure)
{
    QStringList texts;
    for (int i = 0; i < box.count(); ++i) {
        if (box.itemData(i, Qt::DecorationRole).isValid())
            return measure();
        texts.append(box.itemText(i));
    }
    return Rooms().Get(box, texts, measure);
}

} // namespace

static QString Translated(const QByteArray &context, const QString &name)
{
    return context.isEmpty() ? name : QCoreApplication::translate(context.constData(), name.toUtf8().constData());
}

VCComboBoxClassic::VCComboBoxClassic(QWidget *parent, const char *name) : QComboBox(parent), WatchedModel(model())
{
    setObjectName(QString::fromUtf8(name));
    const auto count = [this] { ++Change; };
    connect(WatchedModel, &QAbstractItemModel::dataChanged, this, count);
    connect(WatchedModel, &QAbstractItemModel::rowsInserted, this, count);
    connect(WatchedModel, &QAbstractItemModel::rowsRemoved, this, count);
    connect(WatchedModel, &QAbstractItemModel::modelReset, this, count);
    setFocusPolicy(Qt::StrongFocus);
    // The last of the signals that the base class sends after a choice in the open list, where no handler of this class
    // comes later to write the node.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    connect(this, QOverload<const QString &>::of(&QComboBox::activated), this,
        [this] { Late.Request(&VCComboBoxClassic::WriteNode); });
    QT_WARNING_POP
}

bool VCComboBoxClassic::SetValueSelection(ValueSelection *node)
{
    const bool bound = Node.Bind(node);
    ShowNode();
    return bound;
}

void VCComboBoxClassic::Update(Observable *subject, TChangeCode code)
{
    if (Node.TakeNotification(subject, code))
        ShowNode();
}

bool VCComboBoxClassic::event(QEvent *event)
{
    if (event->type() != EditQuery::Kind())
        return QComboBox::event(event);
    event->setAccepted(view()->isVisible());
    return true;
}

void VCComboBoxClassic::showPopup()
{
    const QRect room = screen()->availableGeometry();
    view()->setMinimumWidth(std::min(PopupWidth(), room.width()));
    QComboBox::showPopup();
    // The base class placed it for the width of the box.
    QWidget *popup = view()->window();
    if (popup->geometry().right() > room.right())
        popup->move(std::max(room.left(), room.right() + 1 - popup->width()), popup->y());
}

// The base class measures the texts of all items three times until a box is shown: for each hint, and again on the
// first show. All three come to the same while nothing changed. These keep and drop the hints as the base class does.

QSize VCComboBoxClassic::sizeHint() const
{
    if (sizeAdjustPolicy() != AdjustToContentsOnFirstShow) {
        Hint = QSize();
        return QComboBox::sizeHint();
    }
    if (std::exchange(HintIcons, iconSize()) != iconSize())
        Hint = QSize();
    if (!Hint.isValid())
        Hint = Measured([this] { return QComboBox::sizeHint(); });
    return Hint;
}

QSize VCComboBoxClassic::minimumSizeHint() const
{
    if (!MinimumHint.isValid())
        MinimumHint = Measured([this] { return QComboBox::minimumSizeHint(); });
    return MinimumHint;
}

template <class Base> QSize VCComboBoxClassic::Measured(const Base &measure) const
{
    const bool asMade = sizeAdjustPolicy() == AdjustToContentsOnFirstShow && minimumContentsLength() == 0
        && !isEditable() && hasFrame() && WatchedModel && model() == WatchedModel && modelColumn() == 0
        && !rootModelIndex().isValid();
    if (!asMade)
        Measure = measure();
    else if (MeasuredChange != Change || MeasuredIcons != iconSize())
        Measure = SharedRoom(*this, measure);
    MeasuredChange = asMade ? Change : -1;
    MeasuredIcons = iconSize();
    return Measure;
}

void VCComboBoxClassic::showEvent(QShowEvent *event)
{
    if (!std::exchange(ShownOnce, true))
        Hint = QSize();
    QComboBox::showEvent(event);
}

void VCComboBoxClassic::keyPressEvent(QKeyEvent *event)
{
    const bool searching = LastLetter.isValid() && !LastLetter.hasExpired(QApplication::keyboardInputInterval());
    const bool blank = event->key() == Qt::Key_Space;
    // The base class opens the list on a blank, but finds it for any other key that has this text.
    QKeyEvent letter(event->type(), Qt::Key_unknown, event->modifiers(), event->text());
    QKeyEvent *handled = searching && blank ? &letter : event;
    if (!event->text().isEmpty() && event->text().at(0).isPrint() && (searching || !blank))
        LastLetter.start();
    Late.After([this, handled] { QComboBox::keyPressEvent(handled); });
}

void VCComboBoxClassic::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        Late.After([this, event] { QComboBox::wheelEvent(event); });
    else
        event->ignore();
}

void VCComboBoxClassic::changeEvent(QEvent *event)
{
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::StyleChange) {
        MinimumHint = QSize();
        Rooms().Clear();
    }
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange) {
        Hint = QSize();
        ++Change;
    }
    if (event->type() != QEvent::LanguageChange)
        return;
    // A host may have added rows of its own.
    for (int i = 0; i < qMin(count(), Names.size()); ++i)
        setItemText(i, Translated(Context, Names.at(i)));
    if (sizeAdjustPolicy() != AdjustToContentsOnFirstShow)
        return;
    // The base class keeps the room for the texts of the first show until the policy is another one.
    setSizeAdjustPolicy(AdjustToContents);
    setSizeAdjustPolicy(AdjustToContentsOnFirstShow);
    Hint = QSize();
}

void VCComboBoxClassic::WriteNode()
{
    if (Node)
        Node.Write(this, [this] { Node->SelectIndex(currentIndex(), this); });
    else
        ShowNode();
}

void VCComboBoxClassic::ShowNode()
{
    if (Node) {
        ShowItems();
        ShownIndex = int(Node->GetCurrentIndex());
    }
    Choose(ShownIndex);
}

/// setCurrentIndex(); a box out of view asks for no repaint.
void VCComboBoxClassic::Choose(int row)
{
    if (isEditable() || !Orbel::IsOutOfView(this)) {
        setCurrentIndex(row);
        return;
    }
    const int former = currentIndex();
    {
        const Orbel::RepaintsNothing quiet(this);
        setCurrentIndex(row);
    }
    if (currentIndex() == former)
        return;
    const QString text = currentText();
    const auto tell = [&] {
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        Q_EMIT currentIndexChanged(currentIndex());
        Q_EMIT currentIndexChanged(text);
        QT_WARNING_POP
    };
    if (Orbel::Survives(this, tell))
        Q_EMIT currentTextChanged(text);
}

/// Replaces the rows between the first and the last that differ, so that items that come or go one by one are not each
/// a new list.
void VCComboBoxClassic::ShowItems()
{
    QStringList names;
    for (long i = 0; i < Node->GetItemCount(); ++i)
        names << Node->GetItemIndex(i)->GetName();
    const bool sameContext = Context == Node->GetTranslationNamespace();
    if (sameContext && names == Names)
        return;
    // With rows of a host among them, the whole list is replaced.
    const QStringList former = sameContext && count() == Names.size() ? Names : QStringList();
    const auto differs = std::mismatch(names.begin(), names.end(), former.begin(), former.end());
    const auto sameBehind = std::mismatch(names.rbegin(), std::make_reverse_iterator(differs.first), former.rbegin(),
        std::make_reverse_iterator(differs.second));
    const int first = int(differs.first - names.begin());
    const int behind = int(sameBehind.first - names.rbegin());

    Names = names;
    Context = Node->GetTranslationNamespace();
    for (int row = count() - 1 - behind; row >= first; --row)
        removeItem(row);
    QStringList texts;
    for (const QString &name : names.mid(first, names.size() - behind - first))
        texts << Translated(Context, name);
    insertItems(first, texts);
}

int VCComboBoxClassic::PopupWidth() const
{
    int width = view()->sizeHintForColumn(modelColumn()) + 2 * view()->frameWidth();
    if (count() > maxVisibleItems())
        width += view()->verticalScrollBar()->sizeHint().width();
    return width;
}
