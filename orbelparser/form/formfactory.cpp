#include "formfactory.h"

#include "formlimits.h"
#include "orbelformular.h"
#include "xmlwalk.h"

namespace KV218
{

OrbelFormular *NewFormular(QXmlStreamReader &reader)
{
    OrbelFormular *formular = nullptr;
    int forms = 0;
    ForEachForm(reader, [&] {
        if (++forms > limit::FormsPerDocument) {
            reader.raiseError(QStringLiteral("Too many forms in one document"));
            return;
        }
        auto *next = new OrbelFormular;
        next->ParseORBEL(reader);
        // Meant: the last form of a document counts. The ones before it are not freed here; they end with it.
        if (formular)
            formular->setParent(next);
        formular = next;
    });
    return formular;
}

} // namespace KV218
