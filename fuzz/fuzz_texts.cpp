// Texts of numbers and frequencies as documents, scripts and operators write them.

#include "fuzzsupport.h"

#include "freqrangetable.h"
#include "frequencytext.h"
#include "numberreader.h"
#include "numbertext.h"
#include "suffixeddouble.h"
#include "todoubleex.h"
#include "valuecommentedrangemap.h"
#include "valuenumeric.h"
#include "vcnumericfloatspin.h"

#include <cstdlib>
#include <QLineEdit>

namespace
{

void Expect(bool condition)
{
    if (!condition)
        std::abort();
}

/// The text of a number reads back as the same number.
void CheckNumber(double number)
{
    double again = 0;
    Expect(Orbel::TextToNumber(Orbel::NumberToText(number), again) && again == number);
    for (int suffix = SuffixedDouble::ekPlain; suffix <= SuffixedDouble::ekGiga; ++suffix) {
        SuffixedDouble text(QStringLiteral("Hz"), 1000, false);
        text.SetSuffix(SuffixedDouble::ESuffix(suffix));
        text.GetString(number);
    }
}

/// What is written is read back to the last bit, and each digit is found where it stands.
void CheckFrequency(double hertz)
{
    const QString text = Orbel::FrequencyText::Write(hertz);
    if (text.isEmpty())
        return;
    Expect(Orbel::NumberReader::OfHertz().Read(text).Number == hertz);
    for (int position = 0; position < text.size(); ++position) {
        if (const auto power = Orbel::FrequencyText::PowerAt(text, position))
            Expect(Orbel::FrequencyText::PositionOf(text, *power) == position);
    }
}

void TypeIntoCell(const QString &text)
{
    KV218::FreqRangeTable table(nullptr);
    table.setRowCount(1);
    table.setItem(0, 0, new QTableWidgetItem(text));
    table.SlotSortByStartFrequencies();
}

/// The text of a node is taken by a second node, which then says the same.
template <class Node> void CheckNode(const QString &text)
{
    Node node(QStringLiteral("node"), ekStateUsable);
    node.SetStringValue(text, nullptr);
    Node second(QStringLiteral("second"), ekStateUsable);
    second.SetStringValue(node.GetStringValue(), nullptr);
    Expect(second.GetStringValue() == node.GetStringValue());
}

void Type(const QString &text)
{
    ValueDouble node(QStringLiteral("node"), ekStateUsable);
    VCNumericFloatSpin spin;
    spin.SetNumericValue(&node);
    spin.setAdditionalPrecision(text.size());
    spin.findChild<QLineEdit *>()->setText(text);
    spin.interpretText();
    spin.stepBy(1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = fuzz::Text(data, size);
    double number = 0;
    if (Orbel::TextToNumber(text, number))
        CheckNumber(number);
    bool ok = false;
    number = Ember::toDoubleEx(text, &ok);
    if (ok)
        CheckNumber(number);
    const Orbel::TypedNumber frequency = Orbel::NumberReader::OfHertz().Read(text);
    if (frequency.IsNumber())
        CheckFrequency(frequency.Number);
    TypeIntoCell(text);
    qint64 integer = 0;
    Orbel::TextToInteger(text, integer);
    CheckNode<ValueInt>(text);
    CheckNode<ValueInt64>(text);
    CheckNode<ValueDouble>(text);
    CheckNode<ValueCommentedRangeMap>(text);
    Type(text);
    return 0;
}
