#pragma once

#include "orbelexport.h"

#include <memory>
#include <QSharedData>
#include <QString>

class FloatGroupLayout;
class QWidget;
class QXmlStreamReader;
class QXmlStreamWriter;

namespace KV218
{

class OrbelDelegate;
class OrbelFormular;
class OrbelSheet;

/// One `Widget` element of a form: its name, its class, and the delegate that does all the work. Shared through
/// QExplicitlySharedDataPointer. A widget that outlives its sheet stays usable, but stands in no form any more.
class ORBEL_EXPORT OrbelWidget : public QSharedData
{
public:
    /// `sheet` is not owned.
    explicit OrbelWidget(OrbelSheet *sheet);
    /// The copy shares the delegate, which goes on naming the original as its widget.
    OrbelWidget(const OrbelWidget &other);
    virtual ~OrbelWidget();

    /// Null once the sheet was destroyed or its form has ended.
    OrbelSheet *GetSheet() const { return Place ? *Place : nullptr; }
    /// The form of the sheet; null without a sheet.
    OrbelFormular *GetFormular() const;
    const QString &GetName() const { return Name; }
    const QString &GetClass() const { return Class; }
    /// Owned by the widget; null until ParseORBEL() or SetExtWidget().
    OrbelDelegate *GetDelegate() const { return Delegate.get(); }
    /// The name of the widget's parameter element. The delegate must exist.
    const QString &GetXmlTagName() const;

    /// Whether the widget takes part in parameter documents; true at first.
    void SetSelected(bool selected) { Selected = selected; }
    bool IsSelected() const { return Selected; }
    /// The delegate must exist.
    bool isModified() const;
    void resetModified();

    /// Reads the `Widget` element on which `reader` stands; `index` is the widget's place in its sheet, from 0, and
    /// names a widget that has no name. A class that no control answers to gives a plain delegate.
    void ParseORBEL(QXmlStreamReader &reader, int index);
    /// Makes this the element of a host's own control, which must not be null and stays the host's.
    void SetExtWidget(QString name, QString labelText, QWidget *widget);

    /// The delegate makes its nodes under `path`, or brings them in line with its properties.
    void CreateValueTree(const QString &path);
    void ResyncValueTree();
    /// The delegate must exist.
    void CreateGUI(FloatGroupLayout *layout);
    /// Writes a selected widget that is modified, and clears the mark, unless `keepsMark`; an unmodified one only
    /// without `onlyModified`.
    void GetXml(QXmlStreamWriter &writer, bool onlyModified, bool keepsMark = false) const;
    /// Reads the widget's parameter element and clears the modified mark.
    void ReadXml(QXmlStreamReader &reader);

private:
    void createDelegate();
    void Hold(OrbelDelegate *delegate);

    QString Name;
    QString Class;
    /// Shared with the sheet, which empties it.
    std::shared_ptr<OrbelSheet *> Place;
    std::shared_ptr<OrbelDelegate> Delegate;
    bool Selected = true;
};

} // namespace KV218
