#include "work.h"

#include <QTextStream>

namespace work
{

namespace
{

const char *const Classes[] = {"DoubleSpinBox", "LineEdit", "CheckBox", "ComboBox"};
const char *const UiClasses[] = {"QDoubleSpinBox", "QLineEdit", "QCheckBox", "QComboBox"};
const char *const Signals[] = {"valueChanged", "textChanged", "toggled", "currentValueChanged"};
const char *const Values[] = {"value", "text", "checked", "currentValue"};

/// Versions of the values that the texts hold: the definition, and what its script assigns.
constexpr int DefinedVersion = 0;
constexpr int AssignedVersion = 1;

template <class Text> Text Of(const Text (&texts)[4], int control)
{
    return texts[int(KindOf(control))];
}

void WriteProperty(QTextStream &out, const char *type, const char *name, const QString &text)
{
    out << "   <Property name=\"" << name << "\"><" << type << '>' << text << "</" << type << "></Property>\n";
}

void WriteOwnProperties(QTextStream &out, int control)
{
    const QString value = ValueText(control, DefinedVersion);
    switch (KindOf(control)) {
    case Kind::Spin:
        WriteProperty(out, "Double", "value", value);
        WriteProperty(out, "Double", "maximum", QString::number(SpinMaximum));
        WriteProperty(out, "Int", "decimals", QString::number(SpinDecimals));
        break;
    case Kind::Line:
        WriteProperty(out, "String", "text", value);
        WriteProperty(out, "Int", "maxLength", QString::number(LineLength));
        WriteProperty(out, "Bool", "readOnly", QStringLiteral("false"));
        break;
    case Kind::Check:
        WriteProperty(out, "Bool", "checked", IsChecked(control, DefinedVersion) ? "true" : "false");
        WriteProperty(out, "String", "checkedValue", QStringLiteral("on"));
        WriteProperty(out, "String", "uncheckedValue", QStringLiteral("off"));
        break;
    case Kind::Combo:
        WriteProperty(out, "String", "enumName", QStringLiteral("Choice"));
        WriteProperty(out, "String", "currentValue", value);
        WriteProperty(out, "String", "parameterXmlTag", NameOf(control));
        break;
    }
}

void WriteWidget(QTextStream &out, int control)
{
    if (!TitleAt(control).isEmpty()) {
        out << "  <Widget name=\"group" << control / RowsOfGroup << "\" class=\"Headline\">\n";
        WriteProperty(out, "Bool", "visible", QStringLiteral("true"));
        WriteProperty(out, "String", "text", TitleAt(control));
        out << "  </Widget>\n";
    }
    out << "  <Widget name=\"" << NameOf(control) << "\" class=\"" << Of(Classes, control) << "\">\n";
    WriteProperty(out, "String", "labelText", LabelOf(control));
    WriteProperty(out, "String", "toolTip", ToolTipOf(control));
    WriteProperty(out, "Bool", "visible", QStringLiteral("true"));
    WriteProperty(out, "Bool", "enabled", QStringLiteral("true"));
    WriteProperty(out, "Bool", "generateParameterXml", QStringLiteral("true"));
    WriteOwnProperties(out, control);
    out << "  </Widget>\n";
}

/// A value as a script writes it.
QString ScriptValue(int control, int version)
{
    switch (KindOf(control)) {
    case Kind::Spin:
        return ValueText(control, version);
    case Kind::Check:
        return IsChecked(control, version) ? QStringLiteral("true") : QStringLiteral("false");
    default:
        return QLatin1Char('\'') + ValueText(control, version) + QLatin1Char('\'');
    }
}

void WriteUiProperty(QTextStream &out, const char *name, const char *type, const QString &text)
{
    out << "<property name=\"" << name << "\"><" << type << '>' << text << "</" << type << "></property>";
}

void WriteUiControl(QTextStream &out, int control)
{
    out << "<widget class=\"" << Of(UiClasses, control) << "\" name=\"" << NameOf(control) << "\">";
    WriteUiProperty(out, "toolTip", "string", ToolTipOf(control));
    WriteUiProperty(out, "enabled", "bool", QStringLiteral("true"));
    const QString value = ValueText(control, DefinedVersion);
    switch (KindOf(control)) {
    case Kind::Spin:
        WriteUiProperty(out, "decimals", "number", QString::number(SpinDecimals));
        WriteUiProperty(out, "maximum", "double", QString::number(SpinMaximum));
        WriteUiProperty(out, "value", "double", value);
        break;
    case Kind::Line:
        WriteUiProperty(out, "maxLength", "number", QString::number(LineLength));
        WriteUiProperty(out, "text", "string", value);
        WriteUiProperty(out, "readOnly", "bool", QStringLiteral("false"));
        break;
    case Kind::Check:
        WriteUiProperty(out, "checked", "bool", IsChecked(control, DefinedVersion) ? "true" : "false");
        break;
    case Kind::Combo:
        WriteUiProperty(out, "currentIndex", "number", QString::number(ComboIndex(control, DefinedVersion)));
        for (int item = 0; item < ComboItems; ++item) {
            out << "<item>";
            WriteUiProperty(out, "text", "string", ItemText(item));
            out << "</item>";
        }
        break;
    }
    out << "</widget>";
}

void WriteUiRow(QTextStream &out, int control, int &row)
{
    if (!TitleAt(control).isEmpty()) {
        out << "<item row=\"" << row++ << "\" column=\"0\" colspan=\"2\"><widget class=\"QGroupBox\" name=\"group"
            << control / RowsOfGroup << "\">";
        WriteUiProperty(out, "title", "string", TitleAt(control));
        WriteUiProperty(out, "flat", "bool", QStringLiteral("true"));
        WriteUiProperty(out, "checkable", "bool", QStringLiteral("true"));
        out << "</widget></item>\n";
    }
    out << "<item row=\"" << row << "\" column=\"0\"><widget class=\"QLabel\" name=\"label" << NameOf(control) << "\">";
    WriteUiProperty(out, "text", "string", LabelOf(control));
    out << "</widget></item>\n<item row=\"" << row++ << "\" column=\"1\">";
    WriteUiControl(out, control);
    out << "</item>\n";
}

} // namespace

Kind KindOf(int control)
{
    constexpr Kind kinds[] = {Kind::Spin, Kind::Line, Kind::Check, Kind::Spin, Kind::Combo};
    return kinds[control % 5];
}

QString NameOf(int control)
{
    return QStringLiteral("c%1").arg(control);
}

QString LabelOf(int control)
{
    return QStringLiteral("Control %1").arg(control);
}

QString ToolTipOf(int control)
{
    return QStringLiteral("What control %1 is for").arg(control);
}

QString TitleAt(int control)
{
    return control % RowsOfGroup == 0 ? QStringLiteral("Group %1").arg(control / RowsOfGroup) : QString();
}

QString ItemText(int item)
{
    return QStringLiteral("Item %1").arg(item);
}

double SpinValue(int control, int version)
{
    return (control * 7 + version * 3) % 1000 + 0.25 * ((control + version) % 4);
}

bool IsChecked(int control, int version)
{
    return (control / 5 + version) % 2 == 1;
}

int ComboIndex(int control, int version)
{
    return (control / 5 + version) % ComboItems;
}

QString ValueText(int control, int version)
{
    switch (KindOf(control)) {
    case Kind::Spin:
        return QString::number(SpinValue(control, version), 'f', SpinDecimals);
    case Kind::Line:
        return QStringLiteral("text %1 of %2").arg(version).arg(control);
    case Kind::Check:
        return IsChecked(control, version) ? QStringLiteral("on") : QStringLiteral("off");
    case Kind::Combo:
        return QString::number(ComboIndex(control, version));
    }
    return QString();
}

QString Definition(int controls)
{
    QString text;
    QTextStream out(&text);
    out << "<ZkParamGui version=\"1.0\">\n <Enums>\n  <Enum name=\"Choice\">\n";
    for (int item = 0; item < ComboItems; ++item)
        out << "   <EnumValue><DisplayName>" << ItemText(item) << "</DisplayName><EnumIdentifier>CHOICE_" << item
            << "</EnumIdentifier><Value>" << item << "</Value></EnumValue>\n";
    out << "  </Enum>\n </Enums>\n <Sheet name=\"sheet\">\n";
    for (int control = 0; control < controls; ++control)
        WriteWidget(out, control);
    out << " </Sheet>\n <Script language=\"QtScript\">" << Script(controls) << "</Script>\n</ZkParamGui>\n";
    return text;
}

QString Script(int controls)
{
    QString text;
    QTextStream out(&text);
    out << "var last;\nfunction onChange(value) { last = value; }\n";
    for (int control = 0; control < controls; ++control) {
        const QString name = NameOf(control);
        out << name << '.' << Of(Signals, control) << ".connect(onChange);\n"
            << name << '.' << Of(Values, control) << " = " << ScriptValue(control, AssignedVersion) << ";\n";
    }
    return text;
}

QByteArray UiText(int controls)
{
    QString text;
    QTextStream out(&text);
    out << "<ui version=\"4.0\"><class>Form</class><widget class=\"QScrollArea\" name=\"Form\">";
    WriteUiProperty(out, "widgetResizable", "bool", QStringLiteral("true"));
    out << "<widget class=\"QWidget\" name=\"content\"><layout class=\"QFormLayout\" name=\"rows\">\n";
    int row = 0;
    for (int control = 0; control < controls; ++control)
        WriteUiRow(out, control, row);
    out << "</layout></widget></widget></ui>\n";
    return text.toUtf8();
}

} // namespace work
