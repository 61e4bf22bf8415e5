// The canonical layout of definitions: what it looks like, and that it means the same.
//
// ORBEL_LAYOUTS says how many definitions are made up, ORBEL_LAYOUT_SEED which; under the same seed they are the same.

#include "brokenforms.h"
#include "definitionlayout.h"
#include "forms.h"
#include "orbelcheck.h"
#include "xmlscanner.h"

using Orbel::DefinitionLayout;
using Orbel::XmlToken;

namespace
{

/// All that a form knows: classes, properties, script, and the document that it writes.
QString Known(const Form &form)
{
    QStringList known;
    for (int i = 0; i < form->GetSheet().GetWidgetCount(); ++i) {
        const auto widget = form->GetSheet().GetWidgetAt(i);
        known << widget->GetClass() + ' ' + widget->GetName();
        for (const QByteArray &name : widget->GetDelegate()->dynamicPropertyNames())
            known << name + '=' + widget->GetDelegate()->property(name).toString();
    }
    return known.join('\n') + form->GetScript().GetCode();
}

QString Known(const QByteArray &definition)
{
    QTemporaryDir folder;
    const Form form(OrbelParser().ParseORBELFile(WriteFile(folder, "a.orbel", definition)));
    if (!form)
        return QString();
    const QString before = Known(form);
    form->CreateValueTree("/Form");
    const auto window = Build(form);
    return before + form->GetXmlString(false);
}

QImage PictureOf(const QString &definition)
{
    const Form form = Bind(definition);
    const auto window = Build(form);
    window->resize(500, 900);
    window->show();
    if (QWidget *focused = QApplication::focusWidget())
        focused->clearFocus();
    return window->grab().toImage();
}

QFileInfoList Examples()
{
    QFileInfoList files;
    QDirIterator walk(ORBEL_EXAMPLES_DIR, {"*.orbel"}, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext())
        files << QFileInfo(walk.next());
    return files;
}

/// Takes widgets out of a definition, and writes the rest as nobody would.
QString Untidy(const QString &definition, QRandomGenerator &dice)
{
    const QStringList gaps{"", " ", "\n", "\n\n\n\t", "<!-- a  'b' -->", " <!--c\n  d-->\n", "\n<?e  f?>", " stray ",
        "<![CDATA[ g ]]>", "\n<Unknown  a = '1'> h <i></i></Unknown>", "\r\n"};
    const QVector<XmlToken> tokens = Orbel::ScanXml(definition);
    QString untidy;
    for (int i = 0; i < tokens.size(); ++i) {
        QString text = definition.mid(tokens.at(i).From, tokens.at(i).To - tokens.at(i).From);
        if (text.startsWith("<Widget") && !text.endsWith("/>") && dice.bounded(3) == 0) {
            while (definition.midRef(tokens.at(i).From, 9) != "</Widget>")
                ++i;
            continue;
        }
        if (tokens.at(i).What == XmlToken::Text && text.trimmed().isEmpty() && text.contains('\n')) {
            // An element in a list of properties ends its reading, which is right but leaves little of the form.
            const int kinds = dice.bounded(20) ? gaps.size() - 2 : gaps.size();
            text = untidy.contains("<ZkParamGui") && i + 2 < tokens.size()
                ? gaps.at(dice.bounded(kinds)) + gaps.at(dice.bounded(3))
                : text;
        } else if (text.startsWith("<Property") || text.startsWith("<Widget") || text.startsWith("</")) {
            text.replace(
                QRegularExpression(text.startsWith("</") ? ">$" : " (?=\\w+=\")"), dice.bounded(2) ? "\n\t" : "  ");
            if (text.startsWith("</"))
                text += '>';
            else if (dice.bounded(2) && !text.contains('\''))
                text.replace('"', '\'').replace("=", " = ");
        }
        untidy += text;
    }
    return untidy;
}

} // namespace

class TestLayout : public TestCase
{
    Q_OBJECT

private:
    /// Gives the layout of a definition, if it is one.
    QByteArray Checked(const QByteArray &definition)
    {
        const DefinitionLayout layout = DefinitionLayout::OfFile(definition);
        [&] {
            QVERIFY2(layout.GetRefusal().isEmpty(), qPrintable(layout.GetRefusal().value(0).Text));
            QCOMPARE(DefinitionLayout::OfFile(layout.GetDocument()).GetDocument(), layout.GetDocument());
            QCOMPARE(Known(layout.GetDocument()), Known(definition));
        }();
        return layout.GetDocument();
    }

private Q_SLOTS:
    void examplesAreLaidOutAndLookTheSame_data()
    {
        const auto row = Columns<QString>({"path"});
        for (const QFileInfo &file : Examples())
            row(qPrintable(QDir(ORBEL_EXAMPLES_DIR).relativeFilePath(file.filePath())), file.filePath());
    }

    void examplesAreLaidOutAndLookTheSame()
    {
        const auto [path] = Fetch<QString>({"path"});
        const QByteArray definition = BytesOf(path);
        QCOMPARE(QString(Checked(definition)), QString(definition));
        QRandomGenerator dice(1);
        QString crowded = definition;
        crowded.replace(QRegularExpression("\\n *(?=</?(Widget|Property|Sheet|Enum))"), " ")
            .replace("\" class", "\"\n class");
        QCOMPARE(QString(Checked(crowded.toUtf8())).replace(QRegularExpression("\n+"), "\n"),
            QString(definition).replace(QRegularExpression("\n+"), "\n"));
        QVERIFY(PictureOf(crowded) == PictureOf(DefinitionLayout::OfText(crowded).GetText()));
    }

    void brokenFormsStayWhatTheyAre_data()
    {
        const auto row = Columns<int>({"index"});
        for (int i = 0; i < BrokenForms().size(); ++i) {
            if (BrokenForms().at(i).kind == BrokenForm::Definition)
                row(BrokenForms().at(i).name, i);
        }
    }

    /// What is wrong with them is wrong with their layout; only what the layout cannot have is refused, with its place.
    void brokenFormsStayWhatTheyAre()
    {
        QFETCH(int, index);
        const QByteArray definition = QString(BrokenForms().at(index).text).remove('@').toUtf8();
        const auto refusal = DefinitionLayout::OfFile(definition).GetRefusal();
        const auto told = Orbel::Check::Definition(definition);
        if (refusal.isEmpty()) {
            const QByteArray laidOut = Checked(definition);
            const auto stays = Orbel::Check::Definition(laidOut);
            QCOMPARE(stays.size(), told.size());
            for (int i = 0; i < told.size(); ++i)
                QCOMPARE(stays.at(i).Code + stays.at(i).Text, told.at(i).Code + told.at(i).Text);
            return;
        }
        const auto isIt = [&](const Orbel::Finding &each) {
            return each.Code == refusal[0].Code && each.Line == refusal[0].Line && each.Column == refusal[0].Column;
        };
        QVERIFY(std::any_of(told.begin(), told.end(), isIt));
    }

    void layoutsOfMadeUpDefinitions()
    {
        const int seed = FromEnvironment("ORBEL_LAYOUT_SEED", 1);
        QRandomGenerator dice{quint32(seed)};
        const QFileInfoList examples = Examples();
        for (int i = FromEnvironment("ORBEL_LAYOUTS", 200); i > 0; --i) {
            const QByteArray untidy
                = Untidy(BytesOf(examples.at(dice.bounded(examples.size())).filePath()), dice).toUtf8();
            Checked(untidy);
            if (QTest::currentTestFailed()) {
                qWarning().noquote() << "seed" << seed << "with" << i << "left:\n" + untidy;
                return;
            }
        }
    }

    void pieces_data()
    {
        const auto add = Columns<QByteArray, QByteArray>({"piece", "laidOut"});
        const auto in = [](const QByteArray &piece) { return "<ZkParamGui>" + piece + "</ZkParamGui>"; };
        const auto out = [](const QByteArray &piece) { return "<ZkParamGui>\n" + piece + "\n</ZkParamGui>\n"; };
        const QByteArray utf16 = QTextCodec::codecForName("UTF-16")->fromUnicode(QString("<ZkParamGui a='\u00e4'/>"));
        // clang-format off
        add("nothing in it", in(" \n "), "<ZkParamGui/>\n");
        add("comments", in("<!-- a\n b --><Sheet/> <!--c-->\n<!--d-->"), "<ZkParamGui> <!-- a\n b -->\n  <Sheet/> <!--c-->\n  <!--d-->\n</ZkParamGui>\n");
        add("blank lines", in("\n\n<Sheet/>\n\n\n<Script/>\n\n"), out("  <Sheet/>\n\n  <Script/>"));
        add("attributes", in("<Sheet\n\tname = 'a'  b='\"'></Sheet >"), out("  <Sheet name=\"a\" b='\"'/>"));
        add("values", in("<Sheet><Widget><Property name='a'>\n<String> &#x20;a\n</String>\n</Property></Widget></Sheet>"), out("  <Sheet>\n    <Widget>\n      <Property name=\"a\"><String> &#x20;a\n</String></Property>\n    </Widget>\n  </Sheet>"));
        add("rows", in("<Enums><Enum>\n<EnumValue>\n<Value>1</Value>\n</EnumValue></Enum></Enums>"), out("  <Enums>\n    <Enum>\n      <EnumValue><Value>1</Value></EnumValue>\n    </Enum>\n  </Enums>"));
        add("script", in("<Script>\n a<![CDATA[ < b\n]]>\n\n</Script>"), out("  <Script>\n a<![CDATA[ < b\n]]>\n\n</Script>"));
        add("what nobody reads", in("<Other>\n <a ></a>\n</Other> x "), out("  <Other>\n <a ></a>\n</Other>\n  x"));
        add("line ends", in("\r\n<Sheet/>\n<!-- a\n-->"), "<ZkParamGui>\r\n  <Sheet/>\r\n  <!-- a\n-->\r\n</ZkParamGui>\r\n");
        add("byte order mark", "\xef\xbb\xbf<ZkParamGui/>", "\xef\xbb\xbf<ZkParamGui/>\n");
        add("Latin 1", "<?xml version='1.0' encoding='ISO-8859-1'?><ZkParamGui a='\xe4'/>", "<?xml version='1.0' encoding='ISO-8859-1'?>\n<ZkParamGui a=\"\xe4\"/>\n");
        add("UTF-16", utf16, QTextCodec::codecForName("UTF-16")->fromUnicode(QString("<ZkParamGui a=\"\u00e4\"/>\n")));
        add("entities", "<!DOCTYPE a [<!ENTITY b \"<Sheet/>]>\">]><ZkParamGui>&b;</ZkParamGui>", "<!DOCTYPE a [<!ENTITY b \"<Sheet/>]>\">]>\n<ZkParamGui>\n  &b;\n</ZkParamGui>\n");
        add("other elements around", "<List> <Form> <ZkParamGui/> </Form> <Title> a </Title> </List>", "<List>\n  <Form>\n    <ZkParamGui/>\n  </Form>\n  <Title> a </Title>\n</List>\n");
        // clang-format on
    }

    void pieces()
    {
        const auto [piece, laidOut] = Fetch<QByteArray, QByteArray>({"piece", "laidOut"});
        QCOMPARE(Checked(piece), laidOut);
    }
};

ORBEL_TEST_MAIN(TestLayout)
#include "tst_layout.moc"
