// Undo and redo in the message editor: the session's history from the keys (text boxes keep
// their own), and every undo or redo, from here or from the main window, shown from the file.

#include <QtTest>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>

#include "session/PlanetEdits.h"
#include "support/MessageEditorFixture.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MessageEditorFixture;
using orr::test::section;

namespace {

std::string twoMessages() {
    return section(1, {"Messages=2", "Message1=One", "Message2=Two", "Info=Cold"});
}

void press(QWidget* widget, const QKeySequence& keys) {
    widget->setFocus();
    QTest::keySequence(widget, keys);
}

}  // namespace

class MessageUndoTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void theKeysUndoAndRedoTheSessionsSteps() {
        MessageEditorFixture f(twoMessages());
        f.open(1);
        f.edit(0);
        f.type(QStringLiteral("Uno"));
        f.click("cmdSave");
        auto* list = f.find<QListWidget>("lstMessages");
        struct Step {
            QKeySequence keys;
            const char* stored;
        };
        const Step steps[] = {{QKeySequence(Qt::CTRL | Qt::Key_Z), "One"},
                              {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), "Uno"},
                              {QKeySequence(Qt::CTRL | Qt::Key_Z), "One"},
                              {QKeySequence(Qt::CTRL | Qt::Key_Y), "Uno"}};
        for (const Step& step : steps) {
            press(list, step.keys);
            QCOMPARE(f.key(1, "Message1"), std::string(step.stored));
            QCOMPARE(f.entries().front(), QString::fromLatin1(step.stored));
        }
        // "Use Custom Messages" is a step as well, and its undo shows in the box.
        f.click("chkCustom");
        QVERIFY(QString::fromStdString(f.session.undoName()).startsWith("Use Custom Messages"));
        press(list, QKeySequence::Undo);
        QCOMPARE(f.session.store().GetGeneralFlag(kMessagesFlag, 1), 0);
        QVERIFY(!f.find<QCheckBox>("chkCustom")->isChecked());
    }

    void textBoxesKeepTheirOwnUndo() {
        MessageEditorFixture f(twoMessages());
        f.open(1);
        for (const auto& [row, text] : {std::pair{0, "Uno"}, std::pair{1, "Dos"}}) {
            f.edit(row);
            f.type(QString::fromLatin1(text));
            f.click("cmdSave");
        }
        QVERIFY(f.session.undo());  // so that there is something to undo and to redo
        f.edit(0);
        f.click("optDisplay2");  // a caption of its own can be typed
        const std::size_t steps = f.session.history().index();
        for (const char* name : {"txtMessage", "txtDisplay", "cboGroup"}) {
            QWidget* box = f.find<QWidget>(name);
            if (auto* combo = qobject_cast<QComboBox*>(box)) box = combo->lineEdit();
            box->setFocus();
            QTest::keyClicks(box, "abc");
            QTest::keySequence(box, QKeySequence::Undo);
            QVERIFY2(!f.text(name).endsWith(QStringLiteral("abc")), name);
            for (const QKeySequence& keys : {QKeySequence(Qt::CTRL | Qt::Key_Y),
                                             QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)})
                QTest::keySequence(box, keys);
            QCOMPARE(f.session.history().index(), steps);
        }
        QCOMPARE(f.key(1, "Message2"), std::string("Two"));
    }

    void anUndoFromAnywhereShowsTheFile() {
        MessageEditorFixture f(twoMessages());
        f.open(1);
        f.chooseDirection(2);
        f.click("cmdNew");
        f.type(QStringLiteral("Deal?"));
        f.find<QComboBox>("cboAnswerGroup")->setEditText(QStringLiteral("Trade"));
        f.click("cmdSave");
        QVERIFY(f.items("cboAnswerGroup").contains(QStringLiteral("Trade")));
        // As the main window's Edit menu does it: the list and the groups follow.
        QVERIFY(f.session.undo());
        QVERIFY(f.entries().isEmpty());
        QVERIFY(!f.items("cboAnswerGroup").contains(QStringLiteral("Trade")));
        QVERIFY(f.session.redo());
        QCOMPARE(f.entries(), QStringList{"Deal?"});

        // The information text.
        f.chooseDirection(1);
        f.type(QStringLiteral("Frozen"));
        f.click("cmdSave");
        f.type(QStringLiteral("Draft"));
        QVERIFY(f.session.undo());
        QCOMPARE(f.text("txtMessage"), QStringLiteral("Cold"));
    }

    void anEditGoesOnUnlessItsLineChangesUnderneath() {
        MessageEditorFixture f(twoMessages());
        f.open(1);
        f.edit(0);
        f.type(QStringLiteral("Uno"));
        f.click("cmdSave");
        // Another line's edit goes on; the list follows once it ends.
        f.edit(1);
        f.type(QStringLiteral("Draft"));
        QVERIFY(f.session.undo());
        QVERIFY(f.window().isEditing());
        QCOMPARE(f.text("txtMessage"), QStringLiteral("Draft"));
        f.click("cmdCancel");
        QCOMPARE(f.entries(), (QStringList{"One", "Two"}));
        // An edit of the line that changes is cancelled.
        f.edit(0);
        f.type(QStringLiteral("Draft"));
        QVERIFY(f.session.redo());
        QVERIFY(!f.window().isEditing());
        QCOMPARE(f.entries(), (QStringList{"Uno", "Two"}));
    }
};

QTEST_MAIN(MessageUndoTest)
#include "MessageUndoTest.moc"
