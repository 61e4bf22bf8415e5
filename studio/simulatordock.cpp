#include "simulatordock.h"

#include "emptyhint.h"
#include "languages.h"
#include "orbelformular.h"
#include "palettes.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QProcess>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QTableWidget>

#include <algorithm>
#include <utility>

namespace Orbel
{

namespace
{

enum SourceColumn { PathColumn, NowColumn, DeviceColumn, GeneratorColumn, FromColumn, ToColumn };

/// Milliseconds between two reports.
constexpr int BeatTime = 50;

QString TextOf(const QVariant &value)
{
    if (value.type() != QVariant::List)
        return value.toString();
    QStringList items;
    for (const QVariant &item : value.toList())
        items.append(item.toString());
    return items.join(QLatin1String("; "));
}

/// As the table's author types it: items of lists are parted by semicolons.
QVariant ValueOf(const QString &text, const ControlInfo &control)
{
    if (control.What != ControlInfo::List)
        return text;
    QVariantList items;
    for (const QString &item : text.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        items.append(item.trimmed());
    return items;
}

QTableWidgetItem *NewCell(const QString &text, bool isEditable)
{
    auto *cell = new QTableWidgetItem(text);
    cell->setFlags(isEditable ? cell->flags() : cell->flags() & ~Qt::ItemIsEditable);
    return cell;
}

} // namespace

SimulatorDock::SimulatorDock(Workbench &bench)
    : StudioDock(bench, tr("Host"), "host"), OwnPalette(QApplication::palette()), Table(new QTableWidget),
      Locked(new QCheckBox(tr("&Locked:"))), Reason(new QLineEdit(tr("No connection"))), Languages(new QComboBox),
      Palettes(new QComboBox), TextSize(new QSpinBox), Scales(new QComboBox), Error(new QLabel)
{
    auto *page = new QWidget;
    auto *lines = new QVBoxLayout(page);
    lines->addWidget(NewSurroundings());
    lines->addWidget(Table, 1);
    lines->addWidget(Error);
    setWidget(page);
    Error->setWordWrap(true);
    Table->setObjectName(QStringLiteral("simulatedNodes"));
    Table->setColumnCount(6);
    Table->setHorizontalHeaderLabels(
        {tr("Parameter"), tr("Form"), tr("Report"), tr("Generator"), tr("From"), tr("To")});
    Table->verticalHeader()->hide();
    new EmptyHint(Table, tr("The form has no parameters."));
    Table->horizontalHeader()->setDefaultSectionSize(72);
    connect(Table, &QTableWidget::itemChanged, this, &SimulatorDock::TakeCell);
    connect(Table, &QTableWidget::itemClicked, this,
        [this](const QTableWidgetItem *cell) { Bench.PickPath(Table->item(cell->row(), PathColumn)->text()); });
    connect(&Bench, &Workbench::formChanged, this, &SimulatorDock::TakeForm);
    connect(&Beat, &QTimer::timeout, this, &SimulatorDock::Generate);
    connect(&Look, &QTimer::timeout, this, [this] {
        if (isVisible())
            ShowValues();
    });
    Beat.setInterval(BeatTime);
    Look.start(500);
    Clock.start();
}

SimulatorDock::~SimulatorDock()
{
    QApplication::setPalette(OwnPalette);
}

QWidget *SimulatorDock::NewSurroundings()
{
    auto *box = new QWidget;
    auto *lines = new QFormLayout(box);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addRow(Locked, Reason);
    Locked->setObjectName(QStringLiteral("simulatedLock"));
    connect(Locked, &QCheckBox::toggled, this, &SimulatorDock::Lock);
    connect(Reason, &QLineEdit::editingFinished, this, &SimulatorDock::Lock);
    Languages->setEditable(true);
    Languages->addItems(LanguagesOf(Bench.GetFile()));
    Languages->setCurrentText(QLocale().name());
    Languages->setToolTip(tr("Texts of the form come from FORM_LANGUAGE.qm beside it"));
    lines->addRow(tr("Lan&guage:"), Languages);
    connect(Languages, &QComboBox::textActivated, this, &SimulatorDock::SetLanguage);
    Palettes->addItems(QStringList{tr("as the desktop")} + PaletteNames());
    Palettes->setObjectName(QStringLiteral("simulatedPalette"));
    lines->addRow(tr("&Colours:"), Palettes);
    connect(Palettes, &QComboBox::textActivated, this, &SimulatorDock::SetPalette);
    TextSize->setRange(5, 60);
    TextSize->setSuffix(tr(" pt"));
    TextSize->setValue(QApplication::font().pointSize());
    TextSize->setObjectName(QStringLiteral("simulatedTextSize"));
    lines->addRow(tr("&Text size:"), TextSize);
    connect(TextSize, qOverload<int>(&QSpinBox::valueChanged), this, &SimulatorDock::SetTextSize);
    Scales->addItems({tr("this one"), QStringLiteral("1"), QStringLiteral("1.25"), QStringLiteral("1.5"),
        QStringLiteral("2"), QStringLiteral("3")});
    Scales->setToolTip(tr("A factor counts from the start of a program on: another studio is opened beside this one"));
    lines->addRow(tr("&Scale:"), Scales);
    connect(Scales, &QComboBox::textActivated, this, &SimulatorDock::OpenScaled);
    return box;
}

void SimulatorDock::TakeForm()
{
    const QScopedValueRollback<bool> filling(IsFilling, true);
    const auto isSame = [](const ControlInfo &one, const ControlInfo &other) {
        return one.Path == other.Path && one.What == other.What;
    };
    const QVector<ControlInfo> before = std::exchange(Controls, {});
    if (Bench.GetSession()) {
        // A form that comes later finds what was chosen before.
        if (Locked->isChecked() && !Bench.GetSession()->IsLocked())
            Lock();
        for (const ControlInfo &control : Bench.GetSession()->Controls()) {
            if (control.What != ControlInfo::None)
                Controls.append(control);
        }
    }
    if (std::equal(Controls.begin(), Controls.end(), before.begin(), before.end(), isSame))
        return ShowValues();
    Table->setRowCount(0);
    Table->setRowCount(Controls.size());
    for (int row = 0; row < Controls.size(); ++row)
        FillRow(row, Controls.at(row));
    Table->resizeColumnToContents(PathColumn);
    ShowValues();
}

void SimulatorDock::FillRow(int row, const ControlInfo &control)
{
    if (!Generators.contains(control.Path)) {
        const bool isChoice = control.What == ControlInfo::OneOf;
        Generators.insert(control.Path,
            {ValueGenerator::None, control.Minimum.isValid() ? control.Minimum.toDouble() : 0,
                isChoice                        ? control.Choices.size()
                    : control.Maximum.isValid() ? control.Maximum.toDouble()
                                                : 100});
    }
    const ValueGenerator &generator = Generators[control.Path];
    Table->setItem(row, PathColumn, NewCell(control.Path, false));
    Table->setItem(row, NowColumn, NewCell(QString(), false));
    Table->setItem(row, DeviceColumn, NewCell(QString(), true));
    Table->setItem(row, FromColumn, NewCell(QString::number(generator.From, 'g', 12), true));
    Table->setItem(row, ToColumn, NewCell(QString::number(generator.To, 'g', 12), true));
    if (control.What == ControlInfo::List)
        return;
    auto *kinds = new QComboBox;
    kinds->addItems(GeneratorNames());
    kinds->setCurrentIndex(generator.What);
    Table->setCellWidget(row, GeneratorColumn, kinds);
    connect(kinds, qOverload<int>(&QComboBox::activated), this, [this, path = control.Path](int kind) {
        Generators[path].What = ValueGenerator::Kind(kind);
        Beat.start();
    });
}

void SimulatorDock::ShowValues()
{
    const QScopedValueRollback<bool> filling(IsFilling, true);
    for (int row = 0; row < Controls.size() && Bench.GetSession(); ++row) {
        const QString text = TextOf(Bench.GetSession()->Value(Controls.at(row).Path));
        if (Table->item(row, NowColumn)->text() != text)
            Table->item(row, NowColumn)->setText(text);
    }
}

void SimulatorDock::TakeCell(QTableWidgetItem *cell)
{
    if (IsFilling || !Bench.GetSession())
        return;
    const ControlInfo control = Controls.at(cell->row());
    if (cell->column() == FromColumn)
        TakeNumber(cell, Generators[control.Path].From);
    if (cell->column() == ToColumn)
        TakeNumber(cell, Generators[control.Path].To);
    if (cell->column() != DeviceColumn)
        return;
    QString error;
    {
        const PropertyOrigins::Act act(Bench.GetOrigins(), tr("host, reported by hand"));
        Bench.GetSession()->Report(control.Path, ValueOf(cell->text(), control), &error);
    }
    Tell(error);
    ShowValues();
}

/// What is no number leaves the generator as it is.
void SimulatorDock::TakeNumber(QTableWidgetItem *cell, double &number)
{
    bool isNumber = false;
    const double typed = cell->text().toDouble(&isNumber);
    isNumber = isNumber && qIsFinite(typed);
    Tell(isNumber ? QString() : tr("\"%1\" is no number").arg(cell->text()));
    if (isNumber)
        number = typed;
    const QScopedValueRollback<bool> filling(IsFilling, true);
    cell->setText(QString::number(number, 'g', 12));
}

void SimulatorDock::Generate()
{
    QVariantMap values;
    for (const ControlInfo &control : qAsConst(Controls)) {
        const QVariant value = Generators.value(control.Path).At(Clock.elapsed(), control);
        if (value.isValid())
            values.insert(control.Path, value);
    }
    if (values.isEmpty() || !Bench.GetSession())
        return Beat.stop();
    QString error;
    const PropertyOrigins::Act act(Bench.GetOrigins(), tr("host, reported by a generator"));
    Bench.GetSession()->Report(values, &error);
    Tell(error);
}

void SimulatorDock::Tell(const QString &error)
{
    if (Error->text() != error)
        Error->setText(error);
}

void SimulatorDock::Lock()
{
    if (!Bench.GetSession())
        return;
    const PropertyOrigins::Act act(Bench.GetOrigins(), tr("host, a lock"));
    if (Locked->isChecked())
        Bench.GetSession()->Lock(Reason->text().isEmpty() ? tr("Locked") : Reason->text());
    else
        Bench.GetSession()->Unlock();
}

void SimulatorDock::SetLanguage(const QString &name)
{
    const PropertyOrigins::Act act(Bench.GetOrigins(), tr("host, the language"));
    SwitchLanguage(name);
}

void SimulatorDock::SetPalette(const QString &name)
{
    QApplication::setPalette(NamedPalette(name).value_or(OwnPalette));
}

void SimulatorDock::SetTextSize(int points)
{
    if (Bench.GetForm())
        Bench.GetForm()->GetSheet().SetFontSize(points);
}

void SimulatorDock::OpenScaled(const QString &factor)
{
    bool isNumber = false;
    factor.toDouble(&isNumber);
    if (!isNumber)
        return;
    Scales->setCurrentIndex(0);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), factor);
    QProcess other;
    other.setProgram(QCoreApplication::applicationFilePath());
    other.setArguments(Bench.GetStartArguments());
    other.setProcessEnvironment(environment);
    if (!other.startDetached())
        Tell(other.errorString());
}

} // namespace Orbel
