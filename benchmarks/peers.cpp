#include "peers.h"

#include "work.h"

#include <QAbstractEventDispatcher>
#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QtUiTools/QUiLoader>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace peer
{

namespace
{

constexpr QSize WindowSize(500, 800);

// Of the library's layout.
constexpr int Spacing = 4;
constexpr int LabelHeight = 24;

/// Sets a control from the text that a parameter document has for it.
void SetText(QWidget *widget, const QString &text)
{
    if (auto *spin = qobject_cast<QDoubleSpinBox *>(widget))
        spin->setValue(text.toDouble());
    else if (auto *line = qobject_cast<QLineEdit *>(widget))
        line->setText(text);
    else if (auto *check = qobject_cast<QCheckBox *>(widget))
        check->setChecked(text == QLatin1String("on"));
    else if (auto *combo = qobject_cast<QComboBox *>(widget))
        combo->setCurrentIndex(text.toInt());
}

} // namespace

void RunToIdle()
{
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) { }
}

void Show(QWidget *window)
{
    window->resize(WindowSize);
    window->show();
    RunToIdle();
}

std::unique_ptr<QWidget> LoadUi(const QByteArray &uiText)
{
    static QUiLoader loader;
    QBuffer buffer;
    buffer.setData(uiText);
    buffer.open(QIODevice::ReadOnly);
    return std::unique_ptr<QWidget>(loader.load(&buffer));
}

HandForm::HandForm(int controls, bool withLayout) : window(new QScrollArea)
{
    auto *area = static_cast<QScrollArea *>(window.get());
    area->setWidgetResizable(true);
    auto *content = new QWidget;
    auto *rows = withLayout ? new QFormLayout(content) : nullptr;
    for (int control = 0; control < controls; ++control) {
        if (!work::TitleAt(control).isEmpty()) {
            auto *title = new QGroupBox(work::TitleAt(control), content);
            title->setFlat(true);
            title->setCheckable(true);
            if (rows)
                rows->addRow(title);
        }
        auto *label = new QLabel(work::LabelOf(control), content);
        QWidget *widget = NewControl(control, content);
        widget->setToolTip(work::ToolTipOf(control));
        if (rows)
            rows->addRow(label, widget);
    }
    area->setWidget(content);
}

QWidget *HandForm::NewControl(int control, QWidget *parent)
{
    constexpr int version = 0;
    QWidget *made = nullptr;
    switch (work::KindOf(control)) {
    case work::Kind::Spin: {
        auto *spin = new QDoubleSpinBox(parent);
        spin->setDecimals(work::SpinDecimals);
        spin->setMaximum(work::SpinMaximum);
        spin->setValue(work::SpinValue(control, version));
        made = spin;
        break;
    }
    case work::Kind::Line: {
        auto *line = new QLineEdit(work::ValueText(control, version), parent);
        line->setMaxLength(work::LineLength);
        made = line;
        break;
    }
    case work::Kind::Check: {
        auto *check = new QCheckBox(parent);
        check->setChecked(work::IsChecked(control, version));
        made = check;
        break;
    }
    case work::Kind::Combo: {
        auto *combo = new QComboBox(parent);
        for (int item = 0; item < work::ComboItems; ++item)
            combo->addItem(work::ItemText(item));
        combo->setCurrentIndex(work::ComboIndex(control, version));
        made = combo;
        break;
    }
    }
    made->setObjectName(work::NameOf(control));
    widgets.insert(work::NameOf(control), made);
    return made;
}

QDoubleSpinBox *HandForm::Spin(const QString &name) const
{
    return qobject_cast<QDoubleSpinBox *>(widgets.value(name));
}

void HandForm::Read(const QString &document) const
{
    QXmlStreamReader reader(document);
    reader.readNextStartElement();
    while (reader.readNextStartElement()) {
        QWidget *widget = widgets.value(reader.name().toString());
        SetText(widget, reader.readElementText());
    }
}

void WalkXml(const QString &text)
{
    QXmlStreamReader reader(text);
    while (!reader.atEnd())
        reader.readNext();
}

RawWriter::RawWriter(int controls, int version)
{
    for (int control = 0; control < controls; ++control)
        texts.append({work::NameOf(control), work::ValueText(control, version)});
}

QString RawWriter::Write() const
{
    QString document;
    QXmlStreamWriter writer(&document);
    writer.setAutoFormatting(true);
    writer.writeStartElement(QStringLiteral("Parameters"));
    for (const auto &text : texts)
        writer.writeTextElement(text.first, text.second);
    writer.writeEndElement();
    return document;
}

RawScript::RawScript(int controls)
{
    script = work::Script(controls);
    for (const char *signal : {"valueChanged", "textChanged", "toggled", "currentValueChanged"})
        script.replace(QLatin1Char('.') + QLatin1String(signal), QStringLiteral(".objectNameChanged"));
    QScriptValue global = engine.globalObject();
    for (int control = 0; control < controls; ++control) {
        auto *object = new QObject(&objects);
        for (const char *value : {"value", "text", "checked", "currentValue"})
            object->setProperty(value, 0);
        global.setProperty(work::NameOf(control), engine.newQObject(object));
    }
}

void RawScript::Run()
{
    engine.evaluate(script);
}

int Arrange(const QVector<ItemSize> &items, int width, QVector<QRect> &rectangles)
{
    struct Column {
        int first, label, control, title, left;
    };
    QVector<Column> groups;
    for (int i = 0; i < items.size(); ++i) {
        const ItemSize &item = items.at(i);
        if (item.what == ItemSize::Title)
            groups.append({i, 0, 0, item.size.width() + Spacing, 0});
        else if (item.what == ItemSize::Label)
            groups.last().label = qMax(groups.last().label, item.size.width());
        else
            groups.last().control = qMax(groups.last().control, item.size.width());
    }
    QVector<Column> columns;
    int fitting = groups.size();
    for (int count = 0; fitting > 0 && count != fitting;) {
        count = fitting;
        const int share = (groups.size() + count - 1) / count;
        columns.clear();
        int left = 0;
        for (fitting = 0; fitting < count; ++fitting) {
            Column column{items.size(), 0, 0, 0, left};
            for (int group = fitting * share; group < qMin((fitting + 1) * share, groups.size()); ++group) {
                const Column &other = groups.at(group);
                column.first = qMin(column.first, other.first);
                column.label = qMax(column.label, other.label);
                column.control = qMax(column.control, other.control);
                column.title = qMax(column.title, other.title);
            }
            left += qMax(column.label + column.control + 3 * Spacing, column.title);
            if (fitting > 0 && left >= width)
                break;
            columns.append(column);
        }
    }
    int height = 0;
    for (int i = 0; i < columns.size(); ++i) {
        const Column &column = columns.at(i);
        const int end = i + 1 < columns.size() ? columns.at(i + 1).first : items.size();
        const int line = qMax(column.label + column.control + Spacing, column.title);
        int y = 0;
        for (int item = column.first; item < end; ++item) {
            const ItemSize &placed = items.at(item);
            const int itemHeight = placed.size.height();
            if (placed.what == ItemSize::Title) {
                y += item > 0 ? placed.topMargin : 0;
                rectangles[item] = QRect(column.left, y, qMin(line, width), itemHeight);
                y += itemHeight + Spacing;
            } else if (placed.what == ItemSize::Label) {
                rectangles[item] = QRect(column.left, y, column.label, itemHeight);
            } else {
                const int row = qMax(itemHeight, items.at(item - 1).size.height()) + Spacing;
                rectangles[item] = QRect(column.left + column.label + Spacing, y, column.control, itemHeight);
                rectangles[item - 1].setHeight(qMin(row, LabelHeight));
                y += row;
            }
            height = qMax(height, rectangles.at(item).bottom() + 1);
        }
    }
    return height;
}

} // namespace peer
