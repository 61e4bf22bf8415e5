// What the eye sees of a form with every class: contrast, whole texts, and nothing outside its place,
// measured in pictures, in all colours, styles, directions and text sizes, which change while the form stands.

#include "frequencyfield.h"
#include "glyphbutton.h"
#include "liveform.h"
#include "palettes.h"
#include "rowlabel.h"
#include "valuenumeric.h"
#include "vcfrequency.h"

#include <cmath>

namespace
{

constexpr double LeastContrast = 4.5;

double Luminance(const QColor &colour)
{
    const auto linear = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double Contrast(QRgb one, QRgb other)
{
    const double a = Luminance(one), b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// Colours that the eye takes for one, as those of a button's ground from top to bottom.
QRgb Shade(QRgb colour)
{
    return colour & 0xfff0f0f0;
}

using Points = QVector<QPointF>;

/// A text of a form and the place that is its own, in the widget that draws it.
struct Text {
    QWidget *Widget;
    QRect Place;
    QString Words;
};

QRect Inside(const QWidget *widget, int frame)
{
    return widget->rect().adjusted(frame, frame, -frame, -frame);
}

/// The middle of a place, as large as the words.
QRect Middle(const QWidget *widget, const QString &words)
{
    QRect middle(QPoint(), widget->fontMetrics().size(Qt::TextShowMnemonic, words) + QSize(4, 2));
    middle.moveCenter(widget->rect().center());
    return middle & Inside(widget, 3);
}

QVector<Text> TextsOfTable(QTableWidget *table)
{
    QVector<Text> texts;
    QHeaderView *header = table->horizontalHeader();
    for (int column = 0; column < table->columnCount(); ++column) {
        const QRect section(header->sectionViewportPosition(column), 0, header->sectionSize(column), header->height());
        texts.append({header->viewport(), section.adjusted(3, 3, -3, -3), table->horizontalHeaderItem(column)->text()});
        for (int row = 0; row < table->rowCount(); ++row) {
            if (const QTableWidgetItem *item = table->item(row, column); item && !item->text().isEmpty())
                texts.append({table->viewport(), table->visualItemRect(item).adjusted(1, 1, -1, -1), item->text()});
        }
    }
    return texts;
}

/// The texts that a widget draws itself; none for one that is locked.
QVector<Text> TextsOf(QWidget *widget)
{
    if (!widget->isVisible() || !widget->isEnabled())
        return {};
    if (auto *label = qobject_cast<QLabel *>(widget))
        return {{label, label->rect(), label->text()}};
    if (auto *box = qobject_cast<QCheckBox *>(widget)) {
        QStyleOptionButton option;
        option.initFrom(box);
        return {{box, box->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, box), box->text()}};
    }
    if (auto *button = qobject_cast<QPushButton *>(widget))
        return {{button, Middle(button, button->text()), button->text()}};
    if (auto *field = qobject_cast<QLineEdit *>(widget))
        return {{field, Inside(field, field->hasFrame() ? 3 : 0), field->displayText()}};
    if (auto *table = qobject_cast<QTableWidget *>(widget))
        return TextsOfTable(table);
    if (auto *combo = qobject_cast<QComboBox *>(widget)) {
        QStyleOptionComboBox option;
        option.initFrom(combo);
        const QRect edit
            = combo->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo);
        return {{combo, edit.adjusted(1, 1, -1, -1), combo->currentText()}};
    }
    if (auto *line = qobject_cast<QGroupBox *>(widget); line && !line->title().isEmpty()) {
        const int indicator = line->style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, line) + 2;
        const QRect title(indicator, 0, line->fontMetrics().horizontalAdvance(line->title()) + 6, line->height());
        return {{line, QStyle::visualRect(line->layoutDirection(), line->rect(), title), line->title()}};
    }
    return {};
}

/// What a picture of a form shows in the place of a text, in pixels of the screen.
struct Ink {
    Ink(const QImage &picture, const QWidget *window, const Text &text)
    {
        const double scale = picture.devicePixelRatioF();
        const QPoint corner = text.Widget->mapTo(window, text.Place.topLeft());
        const QRect place
            = QRectF(corner.x() * scale, corner.y() * scale, text.Place.width() * scale, text.Place.height() * scale)
                  .toAlignedRect()
            & picture.rect();
        QHash<QRgb, int> counts;
        for (int y = place.top(); y <= place.bottom(); ++y) {
            for (int x = place.left(); x <= place.right(); ++x)
                ++counts[Shade(picture.pixel(x, y))];
        }
        const auto lessOften
            = [&](QRgb a, QRgb b) { return std::pair(counts.value(a), a) < std::pair(counts.value(b), b); };
        const QRgb ground = *std::max_element(counts.keyBegin(), counts.keyEnd(), lessOften);
        QHash<QRgb, double> contrasts;
        for (auto it = counts.keyBegin(); it != counts.keyEnd(); ++it)
            Strongest = std::max(Strongest, contrasts[*it] = Contrast(*it, ground));
        const double drawn = 1 + (Strongest - 1) * 0.25;
        for (int y = place.top(); y <= place.bottom(); ++y) {
            for (int x = place.left(); x <= place.right(); ++x) {
                if (contrasts.value(Shade(picture.pixel(x, y))) > drawn)
                    Bounds |= QRect(x, y, 1, 1);
            }
        }
        // Whole words are as high and wide as their letters; the colour of the ink has soft edges.
        Letters = text.Widget->fontMetrics().tightBoundingRect(text.Words);
        Letters = QRectF(Letters.x() * scale, Letters.y() * scale, Letters.width() * scale, Letters.height() * scale);
        Scale = scale;
    }

    /// What is wrong with the text; empty when it is all there.
    QString Fault() const
    {
        if (Strongest < LeastContrast)
            return QString("contrast %1").arg(Strongest);
        // Letters may stand closer together than they are measured, less than one of them.
        const double slack = Scale > 1 ? 3 * Scale : 2;
        if (std::fabs(Bounds.height() - Letters.height()) > slack || Bounds.width() < Letters.width() * 0.9 - slack)
            return QString("drawn %1x%2, not %3x%4")
                .arg(Bounds.width())
                .arg(Bounds.height())
                .arg(Letters.width())
                .arg(Letters.height());
        return QString();
    }

    double Strongest = 1;
    double Scale = 1;
    QRect Bounds;
    QRectF Letters;
};

/// A form in a window that is large enough for all of it.
struct Shown {
    Shown() : form(Example("all_controls.orbel"))
    {
        form->CreateValueTree("/All");
        window = Build(form);
        window->show();
        Resize(9);
    }
    void Resize(int points)
    {
        form->GetSheet().SetFontSize(points);
        window->resize(110 * points, 65 * points + 230);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        // A frame around what has the focus is no text.
        if (QWidget *focused = QApplication::focusWidget())
            focused->clearFocus();
        Picture = window->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    template <class Widget> QList<Widget *> All() const { return window->findChildren<Widget *>(); }
    Ink InkOf(const Text &text) const { return Ink(Picture, window.get(), text); }

    QStringList FaultsOfTexts() const
    {
        QStringList faults;
        for (QWidget *widget : All<QWidget>()) {
            for (const Text &text : TextsOf(widget)) {
                const QString fault = text.Words.isEmpty() ? QString() : InkOf(text).Fault();
                if (!fault.isEmpty())
                    faults << QString("%1 \"%2\": %3").arg(widget->objectName(), text.Words, fault);
            }
        }
        return faults;
    }

    QStringList FaultsOfPlaces() const
    {
        QStringList faults;
        for (const QWidget *widget : All<QWidget>()) {
            const bool scrolled = widget->objectName() == "sheetArea";
            if (widget->isVisible() && !widget->isWindow() && !scrolled
                && !widget->parentWidget()->rect().contains(widget->geometry()))
                faults << widget->metaObject()->className() + (' ' + widget->objectName()) + " is outside";
        }
        return faults;
    }

    Form form;
    std::unique_ptr<QWidget> window;
    QImage Picture;
};

/// For whoever wants to look as well: ORBEL_LOOKS names a folder.
void Save(const QImage &picture, const QString &name)
{
    const QString folder = qEnvironmentVariable("ORBEL_LOOKS");
    if (!folder.isEmpty())
        picture.save(folder + '/' + name + ".png");
}

} // namespace

class TestLooks : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        QApplication::setLayoutDirection(Qt::LeftToRight);
        QApplication::setStyle("Fusion");
        QApplication::setPalette(*Orbel::NamedPalette("light"));
        QCOMPARE(LeftOver(), QString());
    }

    /// As an operator's change leaves it.
    void marks()
    {
        Shown shown;
        for (const char *colours : {"light", "dark", "contrast"}) {
            QApplication::setPalette(*Orbel::NamedPalette(colours));
            for (RowLabel *label : shown.All<RowLabel>()) {
                const QSize size = label->sizeHint();
                const QImage before = label->grab().toImage().convertToFormat(QImage::Format_RGB32);
                QVector<QImage> seen;
                for (const auto mark :
                    {RowLabel::Changed, RowLabel::Refused, RowLabel::Differs, RowLabel::Unconfirmed}) {
                    label->SetMark(mark);
                    const QImage now = label->grab().toImage().convertToFormat(QImage::Format_RGB32);
                    QVERIFY2(label->sizeHint() == size, "the mark takes no room");
                    QVERIFY2(!seen.contains(now), "each mark has a look of its own");
                    seen << now;
                    double strongest = 1;
                    int last = 0;
                    for (int at = 0; at < now.width() * now.height(); ++at) {
                        const QPoint place(at % now.width(), at / now.width());
                        if (now.pixel(place) != before.pixel(place)) {
                            strongest = std::max(
                                strongest, Contrast(now.pixel(place), label->palette().color(QPalette::Window).rgb()));
                            last = place.y() + 1;
                        }
                    }
                    QVERIFY2(strongest >= 3, "a sign is seen from 3:1 on");
                    const int under = label->Baseline() + label->fontMetrics().descent() + 1;
                    QVERIFY2(last == std::min(now.height(), under), "right under the letters");
                }
                label->SetMark(RowLabel::None);
            }
        }
    }

    void aWrongTextIsSeenInAllColours()
    {
        Shown shown;
        auto *field = shown.window->findChild<QLineEdit *>("frequencyRangeEdit_StartFrequency");
        const QColor plain = field->palette().color(QPalette::Text);
        QTest::keyClicks(field, "no");
        for (const char *colours : {"light", "dark", "contrast"}) {
            QApplication::setPalette(*Orbel::NamedPalette(colours));
            const QColor wrong = field->palette().color(QPalette::Text);
            QVERIFY(wrong.hue() < 20 && wrong.saturation() > 100);
            QVERIFY(Contrast(wrong.rgb(), field->palette().color(QPalette::Base).rgb()) >= LeastContrast);
        }
        QTest::keyClick(field, Qt::Key_Escape);
        QCOMPARE(field->palette().color(QPalette::Text), QColor(Qt::white));
        QApplication::setPalette(*Orbel::NamedPalette("light"));
        QCOMPARE(field->palette().color(QPalette::Text), plain);
    }

    /// A host's style sheet builds on it.
    void headlinesHaveTheirStyleSheet()
    {
        LiveForm live(Widget("h", "Headline", {"text=String:One"}) + Labelled("a", "LineEdit"));
        const QImage plain = live.Find("h")->grab().toImage();
        QTest::keyClick(live.Find("a"), Qt::Key_Backtab);
        QVERIFY2(live.Find("h")->hasFocus() && live.Find("h")->grab().toImage() != plain, "the focus is seen");
        QCOMPARE(live.Find("h")->styleSheet(),
            QString("QGroupBox::indicator:unchecked {image: url(:/OrbelParser/HeadlineClosed.svg);}"
                    "QGroupBox::indicator:checked {image: url(:/OrbelParser/HeadlineOpened.svg);}"));
    }

    /// By the points of a grid of 16 that are inked, and such that are not.
    void signsAreDrawn_data()
    {
        const auto row = Columns<int, Points, Points>({"sign", "inked", "blank"});
        // clang-format off
        row("up", int(Orbel::GlyphButton::Up), Points({{8, 5.5}, {4, 10}, {12, 10}}), Points({{8, 10}, {4, 6}}));
        row("down", int(Orbel::GlyphButton::Down), Points({{8, 10.5}, {4, 6}, {12, 6}}), Points({{8, 6}, {4, 10}}));
        row("pencil", int(Orbel::GlyphButton::Pencil), Points({{2.7, 13.3}, {10.5, 3.2}, {10, 6.1}}), Points({{6.8, 10.4}, {12, 12}}));
        row("clock", int(Orbel::GlyphButton::Clock), Points({{8, 13.5}, {8, 6.5}, {10, 9.3}}), Points({{6, 10}, {8, 11}}));
        // clang-format on
    }
    void signsAreDrawn()
    {
        const auto [sign, inked, blank] = Fetch<int, Points, Points>({"sign", "inked", "blank"});
        Orbel::GlyphButton button(Orbel::GlyphButton::Glyph(sign), nullptr);
        QFont font;
        font.setPixelSize(200);
        button.setFont(font);
        button.resize(162, 162);
        const QImage drawn = button.grab().toImage();
        const auto isInked = [&](const QPointF &point) {
            return Contrast(drawn.pixel((point * 10 + QPointF(1, 1)).toPoint()), drawn.pixel(1, 80)) > 3;
        };
        QVERIFY(std::all_of(inked.begin(), inked.end(), isInked));
        QVERIFY(std::none_of(blank.begin(), blank.end(), isInked));
    }

    void theLargeFieldCutsNoDigit()
    {
        VCFrequency control(nullptr, nullptr, false, nullptr, true);
        auto *node = new ValueDouble("f");
        Tree::Instance()->AddNode("/L", node);
        control.SetFrequency_ValuePath("/L/f");
        control.show();
        auto *field = control.findChild<Orbel::FrequencyField *>();
        const qreal full = field->font().pointSizeF();
        const QSize hint = control.sizeHint();
        for (const auto &[hertz, fits] : {std::pair(145.5e6, true), {123456789012.125, false}, {9000.0, true}}) {
            node->SetValue(hertz, nullptr);
            QCOMPARE(field->font().pointSizeF() == full, fits);
            const int room = field->width() - QFontMetrics(field->font()).horizontalAdvance(field->text());
            QVERIFY2(room >= 0 && control.sizeHint() == hint, qPrintable(field->text()));
        }
        Tree::Instance()->RemoveNode("/L/f");
    }

    /// Wherever the field gets its width from, and however narrow it was before.
    void noLabelIsCutBesideALargeField()
    {
        const QFont former = QApplication::font();
        const auto restored = qScopeGuard([&] { QApplication::setFont(former); });
        for (int step = 0; step < 40; ++step) {
            QApplication::setFont(QFont(former.family(), 8 + step / 4));
            const Form form = Bind(Definition(Labelled("frequency", "FrequencyEdit", {"MainFreqEdit=Bool:true"})));
            const auto window = Build(form, false);
            window->resize(200 + step % 4 * 150, 20);
            window->show();
            window->resize(window->width(), 100);
            Orbel::Settle();
            const auto *label = window->findChild<RowLabel *>("labelfrequency");
            QVERIFY(label->height() >= label->Baseline() + label->fontMetrics().descent());
        }
    }

    void everyTextCanBeRead_data()
    {
        const auto row = Columns<QString, QString, bool>({"colours", "style", "mirrored"});
        for (const QString colours : {"light", "dark", "contrast"})
            for (const QString style : {"Fusion", "Windows"})
                for (const bool mirrored : {false, true})
                    row(qPrintable(colours + ' ' + style + (mirrored ? " rtl" : " ltr")), colours, style, mirrored);
    }

    void everyTextCanBeRead()
    {
        const auto [colours, style, mirrored] = Fetch<QString, QString, bool>({"colours", "style", "mirrored"});
        Shown shown;
        QApplication::setStyle(style);
        QApplication::setPalette(*Orbel::NamedPalette(colours));
        QApplication::setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
        QStringList faults;
        for (int points : {8, 9, 12, 18, 24}) {
            shown.Resize(points);
            for (const QString &fault : shown.FaultsOfTexts() + shown.FaultsOfPlaces())
                faults << QString("%1 pt: %2").arg(points).arg(fault);
            Save(shown.Picture, QString("%1-%2").arg(QTest::currentDataTag()).arg(points));
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
    }
};

ORBEL_TEST_MAIN(TestLooks)
#include "tst_looks.moc"
