#include "startup.h"

#include "compare/handmade.h"
#include "orbelform.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QScrollArea>
#include <QXmlStreamWriter>

#include <sys/resource.h>

namespace startup
{

namespace
{

const char *const Example = ORBEL_EXAMPLES_DIR "/forms/receiver.orbel";

void WriteLayout(QXmlStreamWriter &out, const QLayout &layout);

void WriteProperty(QXmlStreamWriter &out, const char *name, const QVariant &value)
{
    const bool isText = value.userType() == QMetaType::QString;
    const bool isBool = value.userType() == QMetaType::Bool;
    out.writeStartElement(QStringLiteral("property"));
    out.writeAttribute(QStringLiteral("name"), QLatin1String(name));
    out.writeTextElement(isText ? QStringLiteral("string")
            : isBool            ? QStringLiteral("bool")
                                : QStringLiteral("double"),
        value.toString());
    out.writeEndElement();
}

void WriteWidget(QXmlStreamWriter &out, const QWidget &widget)
{
    out.writeStartElement(QStringLiteral("widget"));
    out.writeAttribute(QStringLiteral("class"), QLatin1String(widget.metaObject()->className()));
    for (const char *name : {"text", "checked", "inputMask", "minimum", "maximum", "suffix", "value"}) {
        if (widget.metaObject()->indexOfProperty(name) >= 0)
            WriteProperty(out, name, widget.property(name));
    }
    if (const auto *box = qobject_cast<const QComboBox *>(&widget)) {
        for (int i = 0; i < box->count(); ++i) {
            out.writeStartElement(QStringLiteral("item"));
            WriteProperty(out, "text", box->itemText(i));
            out.writeEndElement();
        }
    }
    if (const QLayout *layout = widget.layout())
        WriteLayout(out, *layout);
    out.writeEndElement();
}

void WriteLayout(QXmlStreamWriter &out, const QLayout &layout)
{
    out.writeStartElement(QStringLiteral("layout"));
    out.writeAttribute(QStringLiteral("class"), QLatin1String(layout.metaObject()->className()));
    const auto *rows = qobject_cast<const QFormLayout *>(&layout);
    for (int i = 0; i < layout.count(); ++i) {
        const QWidget *widget = layout.itemAt(i)->widget();
        if (!widget)
            continue;
        out.writeStartElement(QStringLiteral("item"));
        if (rows) {
            int row = 0;
            QFormLayout::ItemRole role = QFormLayout::FieldRole;
            rows->getItemPosition(i, &row, &role);
            out.writeAttribute(QStringLiteral("row"), QString::number(row));
            out.writeAttribute(QStringLiteral("column"), QString::number(role == QFormLayout::FieldRole));
            if (role == QFormLayout::SpanningRole)
                out.writeAttribute(QStringLiteral("colspan"), QStringLiteral("2"));
        }
        WriteWidget(out, *widget);
        out.writeEndElement();
    }
    out.writeEndElement();
}

double ChildrensTime()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto nanoseconds = [](const timeval &time) { return double(time.tv_sec) * 1e9 + double(time.tv_usec) * 1e3; };
    return nanoseconds(usage.ru_utime) + nanoseconds(usage.ru_stime);
}

double TimeOfProcess(const char *program, const QStringList &arguments)
{
    const double start = ChildrensTime();
    if (QProcess::execute(QLatin1String(program), arguments) != 0)
        qFatal("%s failed", program);
    return ChildrensTime() - start;
}

} // namespace

Pictures::Pictures()
{
    QFile example(QString::fromUtf8(Example));
    QFile ui(UiFile());
    if (!example.open(QIODevice::ReadOnly) || !ui.open(QIODevice::WriteOnly))
        qFatal("no %s, or no place for its likeness", Example);
    OrbelForm form;
    form.Build(QString::fromUtf8(example.readAll()));
    const auto *area = form.Window()->findChild<QScrollArea *>();
    const std::unique_ptr<QWidget> likeness = HandMade(*area->widget()->layout());
    QXmlStreamWriter out(&ui);
    out.writeStartElement(QStringLiteral("ui"));
    out.writeAttribute(QStringLiteral("version"), QStringLiteral("4.0"));
    WriteWidget(out, *likeness);
    out.writeEndElement();
}

QString Pictures::UiFile() const
{
    return folder.filePath(QStringLiteral("form.ui"));
}

double Pictures::Ours() const
{
    const QString picture = folder.filePath(QStringLiteral("ours.png"));
    return TimeOfProcess(
        ORBEL_COMMAND, {QStringLiteral("render"), QString::fromUtf8(Example), QStringLiteral("-o"), picture});
}

double Pictures::Peer() const
{
    return TimeOfProcess(ORBEL_UI_PICTURE, {UiFile(), folder.filePath(QStringLiteral("peer.png"))});
}

} // namespace startup
