#pragma once

#include "face.h"

#include <QHash>
#include <QObject>
#include <QVector>

class RowLabel;

namespace KV218
{

class OrbelDelegate;

/// What assistive tools, a screen reader for instance, hear of a form: for each face of a control its name, made of row
/// label and part, its limits, whether its text would be refused and whether it waits to be applied, and which label
/// belongs to it. Row labels are no buddies of their controls, so that an `&` in one stays a letter.
///
/// Nothing is made before a tool asks, and every answer is made when it is asked for: a new label, limit or language
/// needs no care here, and a form that nobody listens to costs nothing.
class Assistive : public QObject
{
public:
    /// Belongs to `form`, the widget in which the controls stand.
    explicit Assistive(QWidget *form);
    ~Assistive() override;

    /// Adds a control whose widgets were made. Not owned; it may be destroyed before.
    void Add(OrbelDelegate *delegate);
    /// Notifies tools that listen to ask again for what follows from a property of a control.
    static void PropertyChanged(OrbelDelegate *delegate, const QString &property);

    /// Whether a tool listens.
    static bool IsHeard();
    /// Speaks for the form in which a widget stands; null for a widget in none.
    static Assistive *Of(const QWidget *widget);
    /// `own` is what Qt would say.
    QString NameOf(const QWidget *widget, const QString &own);
    QString DescriptionOf(const QWidget *widget, const QString &own);
    RowLabel *LabelOf(const QWidget *widget);
    QVector<QWidget *> LabelledBy(const RowLabel *label) const;

private:
    class Listening;
    struct Shown {
        QPointer<OrbelDelegate> Delegate;
        Face Of;
    };

    /// The face that a widget is, or that it is a part of; its widget is null for none.
    Shown FaceAround(const QWidget *widget);
    void FindFaces();
    static QString NameOfFace(const Shown &shown);

    QWidget *Form;
    QVector<QPointer<OrbelDelegate>> Delegates;
    /// The faces with their controls, by their widgets; found anew when a tool asks after a control was added.
    QHash<const QWidget *, Shown> Faces;
    bool FacesFound = false;
};

} // namespace KV218
