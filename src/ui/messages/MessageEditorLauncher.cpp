#include "messages/MessageEditorLauncher.h"

#include <QCoreApplication>
#include <QPointer>

#include "messages/frmMessages.h"
#include "platform/QtText.h"
#include "session/SystemEdits.h"

namespace orr::ui {

namespace {

// The editor of the program's windows that have no parent; removed when the program ends.
QPointer<frmMessages>& parentlessEditor() {
    static QPointer<frmMessages> editor;
    return editor;
}

}  // namespace

frmMessages& messageEditorFor(QWidget* parent, EditSession& store) {
    if (parent) {
        if (auto* editor = parent->findChild<frmMessages*>(QString(), Qt::FindDirectChildrenOnly))
            return *editor;
        return *new frmMessages(store, parent);
    }
    QPointer<frmMessages>& editor = parentlessEditor();
    if (!editor) {
        editor = new frmMessages(store);
        QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, editor,
                         &QObject::deleteLater);
    }
    return *editor;
}

bool openMessageEditor(QWidget* parent, EditSession& store, int planet) {
    return openMessageEditor(parent, store, planet,
                             store.store().GetGeneralFlag(kMessagesFlag, planet) == 1);
}

bool openMessageEditor(QWidget* parent, EditSession& store, int planet, bool customMessages) {
    frmMessages& editor = messageEditorFor(parent, store);
    return editor.openForPlanet(planet, toQString(planetName(store.store(), planet)),
                                customMessages);
}

}  // namespace orr::ui
