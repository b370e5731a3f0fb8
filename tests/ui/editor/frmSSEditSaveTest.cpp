// The main window's commands that write whole systems: Save, Save As and New, with the
// names, files and list entries they must get right.

#include <QtTest>

#include <QStandardPaths>

#include "platform/QtText.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;
using orr::test::TempGameFolder;

namespace {

QStringList files(MainWindowHarness& h, const char* folder) {
    QStringList names = QDir(QString::fromStdString(h.game.path(folder).string()))
                            .entryList(QDir::Files | QDir::Hidden, QDir::Name);
    return names;
}

}  // namespace

class frmSSEditSaveTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void saveAsRefusesCharactersTheGameCannotStore() {
        MainWindowHarness h;
        h.addSystem(TempGameFolder::systemRecord("Nova", 1));
        QVERIFY(h.start());
        h.choose("Nova");
        const QString snowman = QString::fromUtf8("Nova \u2603");
        h.prompts.answerInput(snowman);
        h.prompts.answerMessage(PromptAnswer::Ok);
        h.prompts.answerInput(std::nullopt);
        h.action("mnuFSaveAs")->trigger();
        const auto& asked = h.prompts.asked();
        QCOMPARE(asked.size(), std::size_t(3));
        QCOMPARE(asked[1].text, unstorableMessage(QString::fromUtf8("\u2603")));
        QCOMPARE(asked[2].defaultText, snowman);  // asked again with the text as typed
        QCOMPARE(files(h, "ORBDescriptor"), QStringList({"Nova.edt", "Nova.orb"}));
        QCOMPARE(h.record().Name, std::string("Nova"));
    }
};

QTEST_MAIN(frmSSEditSaveTest)
#include "frmSSEditSaveTest.moc"
