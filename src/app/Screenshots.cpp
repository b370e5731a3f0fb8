#include "Screenshots.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <cstdio>

#include "editor/frmSSEdit.h"
#include "messages/MessageEditorLauncher.h"
#include "messages/frmMessages.h"
#include "platform/Modal.h"

namespace orr::app {

namespace {

void fail(const QString& message) {
    std::fprintf(stderr, "orrerion: %s\n", qPrintable(message));
}

// Saves `widget` as `file` once the layout has settled, then ends the program.
void grabLater(ui::frmSSEdit& window, QWidget& widget, const QString& file) {
    QTimer::singleShot(300, &window, [&window, &widget, file] {
        const bool saved = widget.grab().save(file);
        if (!saved) fail(QStringLiteral("cannot write '%1'.").arg(file));
        if (&widget != &window) widget.close();
        closeWithoutSaving(window);
        QCoreApplication::exit(saved ? 0 : 1);
    });
}

}  // namespace

void closeWithoutSaving(ui::frmSSEdit& window) {
    // Pictures are taken of a copy of the demo folder, and a question would wait for nobody
    // under a virtual display: the working copy goes without one.
    if (window.session().isOpen()) window.session().discard();
    window.endWithoutQuestions();
    window.close();
}

void screenshotMainWindow(ui::frmSSEdit& window, const QString& file) {
    if (window.session().record().PlanetCount >= 2) window.highlightPlanet(2);
    grabLater(window, window, file);
}

bool screenshotMessageEditor(ui::frmSSEdit& window, const QString& file) {
    constexpr int kPlanet = 2;
    const QString group = QStringLiteral("Treaty");
    EditSession& session = window.session();
    if (session.record().PlanetCount < kPlanet) {
        fail(QStringLiteral("the open system has no planet %1.").arg(kPlanet));
        return false;
    }
    ui::frmMessages& editor = ui::messageEditorFor(&window, session);
    // Shown without a modal loop of its own, so the picture can be taken while it is open.
    ui::setDialogRunner([](QDialog& dialog) { dialog.show(); });
    ui::openMessageEditor(&window, session, kPlanet);

    editor.findChild<QRadioButton*>(QStringLiteral("optDir2"))->click();  // Response
    auto* groups = editor.findChild<QComboBox*>(QStringLiteral("cboGroup"));
    const int groupIndex = groups->findText(group);
    if (groupIndex < 0) {
        fail(QStringLiteral("planet %1 has no response group '%2'.").arg(kPlanet).arg(group));
        return false;
    }
    groups->setCurrentIndex(groupIndex);
    editor.findChild<QListWidget*>(QStringLiteral("lstMessages"))->setCurrentRow(0);
    editor.findChild<QPushButton*>(QStringLiteral("cmdEdit"))->click();
    grabLater(window, editor, file);
    return true;
}

}  // namespace orr::app
