// The message editor as it opens and edits: Save writes what the controls say, the information
// text, the one-line text box and the limits, the questions before a save would change a stored
// line, the caption, the direction animation, closing during an edit, the launcher, and undo.

#include <QtTest>

#include "messages/DirectionPicture.h"
#include "messages/MessageEditRules.h"
#include "messages/MessageEditorLauncher.h"
#include "messages/frmFlag.h"
#include "platform/QtText.h"
#include "session/PlanetEdits.h"
#include "support/MessageEditorFixture.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MessageEditorFixture;
using orr::test::section;

class MessageEditingTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void aNewMessageIsComposedFromEveryControl() {
        MessageEditorFixture f;
        f.open(1);
        f.click("cmdNew");
        auto* text = f.find<QPlainTextEdit>("txtMessage");
        f.type("Welcome, ");
        text->moveCursor(QTextCursor::End);
        QTest::mouseClick(f.find<QLabel>("lblInsert1"), Qt::LeftButton);
        QTest::keyClicks(text, ".");
        // The bars run upside down: the top is the largest setting.
        for (const auto& [bar, setting] : {std::pair{"vsbWait", 2}, std::pair{"vsbPercent", 5}})
            f.find<QScrollBar>(bar)->setValue(f.find<QScrollBar>(bar)->maximum() - setting);
        QCOMPARE(f.text("lblWait"), QStringLiteral("After 2 seconds"));
        QCOMPARE(f.text("lblPercent"), QStringLiteral("50% of the time"));
        f.click("optDisplay1");
        QCOMPARE(f.text("txtDisplay"), QStringLiteral("<none>"));
        f.find<QComboBox>("cboAnswerGroup")->setEditText(QStringLiteral("Trade"));
        f.attach("*SF");
        f.answerNext<frmFlag>([](frmFlag& chooser) {
            chooser.cboFlag->setCurrentIndex(1);
            chooser.txtDesc->setText(QStringLiteral("Met the trader"));
            chooser.cmdOK->click();
        });
        f.click("cmdSpEdit");

        const std::string expected = "%W2%05$BOX$Welcome, %RK.*RTrade*SFB";
        QCOMPARE(f.text("lblLength"), QStringLiteral("Length: %1").arg(expected.size()));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "Message1"), expected);
        QCOMPARE(f.entries(), QStringList{QStringLiteral("Welcome, %RK.")});
        QVERIFY(!f.enabled("fraOptions"));

        // The text is one line, and the limits warn.
        f.click("cmdNew");
        QTest::keyClicks(text, "ab");
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClicks(text, "c");
        QCOMPARE(text->toPlainText(), QStringLiteral("abc"));
        f.type(QStringLiteral("one\ntwo"));
        QCOMPARE(text->toPlainText(), QStringLiteral("one two"));
        QVERIFY(f.window().isVisible());

        f.type(QString(255, QLatin1Char('a')));
        QCOMPARE(f.text("lblLength"), QStringLiteral("Length: 255"));
        QCOMPARE(f.text("lblError"), QStringLiteral("(Length Limit Exceeded)"));
        QVERIFY(f.visible("lblError"));
        // A line over the limit can still be saved (the game will read only 254 characters).
        f.click("cmdSave");
        QVERIFY(f.game.read("ORBDescriptor/Nova.edt")
                    .find("Message2=" + std::string(255, 'a') + "\r\n") != std::string::npos);

        // Only a response's text has a width limit.
        const QString wide(150, QLatin1Char('W'));
        f.click("cmdNew");
        f.type(wide);
        QVERIFY(!f.visible("lblError"));
        f.click("cmdCancel");
        f.chooseDirection(2);
        f.click("cmdNew");
        f.type(wide);
        QCOMPARE(f.text("lblError"), QStringLiteral("(Response Text Width Limit Exceeded)"));
    }

    // Each case is a part of the stored line the editor keeps beside the controls (codes the list
    // does not know, a tag as stored; the others are the core's): No keeps the stored line and
    // the edit, Yes writes the line as the editor composes it.
    void aSaveThatWouldChangeALineAsksFirst() {
        // Each row: the key, its stored line, what the question names, the line after Yes.
        for (const auto& [key, stored, named, afterYes] :
             {std::tuple{"Message1", "%ZZHello.*QQ5", "*QQ5", "Hello."},
              std::tuple{"ResponseHail1", "Deal*RDeal", "\"*RDeal\"", "Deal*MDeal"}}) {
            const bool response = key[0] == 'R';
            MessageEditorFixture f(section(
                1, {response ? "ResponsesHail=1" : "Messages=1", std::string(key) + "=" + stored}));
            f.open(1);
            if (response) f.chooseDirection(2);
            f.edit(0);
            f.prompts.answerMessage(PromptAnswer::No);
            f.click("cmdSave");
            QVERIFY2(f.prompts.messageTexts().front().contains(QString::fromLatin1(named)), stored);
            QCOMPARE(f.prompts.asked().front().buttons, PromptButtons::YesNo);
            QCOMPARE(f.key(1, key), std::string(stored));
            QVERIFY(f.visible("txtMessage"));  // back to editing
            f.prompts.answerMessage(PromptAnswer::Yes);
            f.click("cmdSave");
            QCOMPARE(f.key(1, key), std::string(afterYes));
        }
    }

    void whatCannotBeStoredIsRefusedAndInformationIsEditedInPlace() {
        MessageEditorFixture f(
            section(1, {"Messages=1", "Message1=Old text", "Info=A cold world."}));
        f.open(1);
        f.edit(0);
        const QString snowy = QStringLiteral("Snow \u2603 and caf\u00e9");
        f.type(snowy);
        f.prompts.answerMessage(PromptAnswer::Ok);
        f.click("cmdSave");
        QCOMPARE(f.prompts.messageTexts().last(), unstorableMessage(QStringLiteral("\u2603")));
        QCOMPARE(f.text("txtMessage"), snowy);  // nothing lost
        // A message's tag to "S1" would be a ship-system condition.
        f.type(QStringLiteral("Hello"));
        f.find<QComboBox>("cboAnswerGroup")->setEditText(QStringLiteral("S1"));
        f.prompts.answerMessage(PromptAnswer::Ok);
        f.click("cmdSave");
        QCOMPARE(f.prompts.messageTexts().last(),
                 toQString(answerGroupProblem("S1", Direction::Message)));
        QCOMPARE(f.key(1, "Message1"), std::string("Old text"));

        // Information is edited in place.
        f.click("cmdCancel");
        f.chooseDirection(1);
        QVERIFY(f.visible("pnlInfo"));
        QVERIFY(!f.enabled("cboGroup"));
        QVERIFY(!f.enabled("fraOptions"));
        QCOMPARE(f.text("txtMessage"), QStringLiteral("A cold world."));
        f.type("A frozen world.");
        QCOMPARE(f.text("lblM1Text"), QStringLiteral("A frozen world."));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "Info"), std::string("A frozen world."));
        QVERIFY(f.visible("txtMessage"));  // still editing
        f.click("cmdDelete");
        QCOMPARE(f.key(1, "Info"), std::string("ERR"));
        QVERIFY(!f.enabled("cmdDelete"));  // nothing left to delete
    }

    void openingShowsThePlanetClosingCancelsAnEditAndTheLauncherReusesTheEditor() {
        MessageEditorFixture f(section(2, {"Messages=1", "Message1=Saved"}));
        frmMessages& editor = f.open(2, true);
        QCOMPARE(editor.windowTitle(), QStringLiteral("Planet Messages - Nova II"));
        QVERIFY(f.find<QCheckBox>("chkCustom")->isChecked());  // shown as given, not written
        QCOMPARE(f.session.store().GetGeneralFlag(kMessagesFlag, 2), 0);
        for (const char* name : {"vsbWait", "vsbPercent"}) {
            auto* bar = f.find<QScrollBar>(name);
            // Two arrows take a bar's width each; the groove between them gets at least four.
            QVERIFY2(bar->height() >= 6 * bar->width(), name);
        }

        auto* picture = f.find<DirectionPicture>("picDirection");
        QCOMPARE(picture->direction(), Direction::Message);
        QTRY_VERIFY(picture->frame() > 0);
        f.chooseDirection(1);
        QCOMPARE(picture->direction(), Direction::Information);
        QTRY_VERIFY(!picture->questionMarkShown());
        QTRY_VERIFY(picture->questionMarkShown());

        f.chooseDirection(0);
        f.edit(0);
        f.type(QStringLiteral("Never saved"));
        f.click("cmdClose");
        QVERIFY(!f.find<QTimer>("tmrAnim")->isActive());
        QCOMPARE(f.key(2, "Message1"), std::string("Saved"));
        // Opened again, the window shows the list, not the abandoned edit.
        f.open(2);
        QCOMPARE(f.entries(), QStringList{"Saved"});
        QVERIFY(f.visible("lstMessages"));

        // The launcher reuses one editor per main window.
        QVERIFY(setPlanetFlag(f.session, kMessagesFlag, 2, true));
        QWidget mainWindow;
        frmMessages& launched = messageEditorFor(&mainWindow, f.session);
        QCOMPARE(&messageEditorFor(&mainWindow, f.session), &launched);
        launched.setProgramSpecialList(f.game.path("program/SPECIAL.LST"));
        f.answerNext<QDialog>([&](QDialog& dialog) {
            QCOMPARE(&dialog, static_cast<QDialog*>(&launched));
            auto* box = dialog.findChild<QCheckBox*>("chkCustom");
            QVERIFY(box->isChecked());
            box->click();
            dialog.findChild<QPushButton*>("cmdClose")->click();
        });
        QVERIFY(!openMessageEditor(&mainWindow, f.session, 2));
        QCOMPARE(f.session.store().GetGeneralFlag(kMessagesFlag, 2), 0);
        // The planet dialog hands over its own box's value.
        f.answerNext<QDialog>([](QDialog& dialog) { dialog.reject(); });
        QVERIFY(openMessageEditor(&mainWindow, f.session, 1, true));
        QCOMPARE(launched.windowTitle(), QStringLiteral("Planet Messages - Nova I"));
    }

    // Undo and redo: the session's history from the keys (text boxes keep their own), and every
    // undo or redo, from here or from the main window, shown from the file.
    void undoAndRedoReachTheSessionAndTheWindowShowsTheFile() {
        MessageEditorFixture f(
            section(1, {"Messages=2", "Message1=One", "Message2=Two", "Info=Cold"}));
        f.open(1);
        f.edit(0);
        f.type(QStringLiteral("Uno"));
        f.click("cmdSave");
        auto* list = f.find<QListWidget>("lstMessages");
        const QKeySequence undo(Qt::CTRL | Qt::Key_Z), redo(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
            redoY(Qt::CTRL | Qt::Key_Y);
        list->setFocus();
        for (const auto& [keys, stored] : {std::pair{undo, "One"}, std::pair{redo, "Uno"},
                                           std::pair{undo, "One"}, std::pair{redoY, "Uno"}}) {
            QTest::keySequence(list, keys);
            QCOMPARE(f.key(1, "Message1"), std::string(stored));
            QCOMPARE(f.entries().front(), QString::fromLatin1(stored));
        }
        // "Use Custom Messages" is a step as well, and its undo shows in the box.
        f.click("chkCustom");
        QVERIFY(QString::fromStdString(f.session.undoName()).startsWith("Use Custom Messages"));
        list->setFocus();
        QTest::keySequence(list, undo);
        QCOMPARE(f.session.store().GetGeneralFlag(kMessagesFlag, 1), 0);
        QVERIFY(!f.find<QCheckBox>("chkCustom")->isChecked());

        // Undo from the main window's Edit menu: another line's edit goes on and the list
        // follows once it ends; an edit of the line that changes is cancelled.
        f.edit(1);
        f.type(QStringLiteral("Draft"));
        QVERIFY(f.session.undo());
        QVERIFY(f.window().isEditing());
        QCOMPARE(f.text("txtMessage"), QStringLiteral("Draft"));
        f.click("cmdCancel");
        QCOMPARE(f.entries(), (QStringList{"One", "Two"}));
        f.edit(0);
        f.type(QStringLiteral("Draft"));
        QVERIFY(f.session.redo());
        QVERIFY(!f.window().isEditing());
        QCOMPARE(f.entries(), (QStringList{"Uno", "Two"}));

        // The answer groups and the information text follow as well.
        f.chooseDirection(2);
        f.click("cmdNew");
        f.type(QStringLiteral("Deal?"));
        f.find<QComboBox>("cboAnswerGroup")->setEditText(QStringLiteral("Trade"));
        f.click("cmdSave");
        QVERIFY(f.items("cboAnswerGroup").contains(QStringLiteral("Trade")));
        QVERIFY(f.session.undo());
        QVERIFY(f.entries().isEmpty());
        QVERIFY(!f.items("cboAnswerGroup").contains(QStringLiteral("Trade")));
        QVERIFY(f.session.redo());
        QCOMPARE(f.entries(), QStringList{"Deal?"});
        f.chooseDirection(1);
        f.type(QStringLiteral("Frozen"));
        f.click("cmdSave");
        f.type(QStringLiteral("Draft"));
        QVERIFY(f.session.undo());
        QCOMPARE(f.text("txtMessage"), QStringLiteral("Cold"));

        // With a step to undo and one to redo, the text boxes' keys stay their own.
        f.chooseDirection(0);
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
            for (const QKeySequence& keys : {redoY, redo}) QTest::keySequence(box, keys);
            QCOMPARE(f.session.history().index(), steps);
        }
    }
};

QTEST_MAIN(MessageEditingTest)
#include "MessageEditingTest.moc"
