#pragma once

#include "orbelformular.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <QByteArray>

/// What the fuzzing programs share. Its source gives a program its application: without a display, quiet, with the
/// locale and style of the tests.
namespace fuzz
{

/// The bytes of one input; valid while that is.
inline QByteArray Bytes(const uint8_t *data, size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size));
}
inline QString Text(const uint8_t *data, size_t size)
{
    return QString::fromUtf8(Bytes(data, size));
}

/// A form with its nodes, its controls and its window, which is laid out but drawn nowhere. Its script does not run.
/// The end of it ends the program when nodes or windows are left that were not there before.
class LiveForm
{
public:
    /// Takes the form, which may be null: then there is none.
    explicit LiveForm(KV218::OrbelFormular *form, bool applyUi = true);
    ~LiveForm();
    Q_DISABLE_COPY(LiveForm)

    explicit operator bool() const { return Form; }
    KV218::OrbelFormular *operator->() const { return Form.data(); }

private:
    int Before;
    QExplicitlySharedDataPointer<KV218::OrbelFormular> Form;
    std::unique_ptr<QWidget> Window;
};

/// A form that goes on living from input to input, made anew now and then, so that an input starts from little that the
/// ones before it left. There is one at a time.
LiveForm &KeptForm(const QByteArray &definition);
/// The same for the example with every control class.
LiveForm &AllControls();
/// Ends that form; the next call makes another.
void EndKeptForm();

} // namespace fuzz
