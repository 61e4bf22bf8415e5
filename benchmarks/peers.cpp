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

int Arrange(const QVector<ItemSize> &items, int spacing, QVector<QRect> &rectangles)
{
    int labels = 0;
    int controls = 0;
    for (const ItemSize &item : items) {
        if (item.what == ItemSize::Label)
            labels = qMax(labels, item.size.width());
        else if (item.what == ItemSize::Control)
            controls = qMax(controls, item.size.width());
    }
    int y = 0;
    for (int i = 0; i < items.size(); ++i) {
        const ItemSize &item = items.at(i);
        const int height = item.size.height();
        if (item.what == ItemSize::Title) {
            y += i > 0 ? item.topMargin : 0;
            rectangles[i] = QRect(0, y, labels + controls + spacing, height);
            y += height + spacing;
        } else if (item.what == ItemSize::Label) {
            rectangles[i] = QRect(0, y, labels, height);
        } else {
            const int row = qMax(height, items.at(i - 1).size.height()) + spacing;
            rectangles[i] = QRect(labels + spacing, y, controls, height);
            rectangles[i - 1].setHeight(qMin(row, 24));
            y += row;
        }
    }
    return y - spacing;
}

} // namespace peer
