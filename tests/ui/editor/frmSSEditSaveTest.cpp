// The main window's commands that write whole systems: Save, Save As and New, with the
// names, files and list entries they must get right.

#include <QtTest>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStandardPaths>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "editor/frmNewSS.h"
#include "platform/QtText.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;
using orr::test::TempGameFolder;
namespace fs = std::filesystem;

namespace {

// The entries of the list, sorted (the list keeps the folder's order).
QStringList entries(const QComboBox* box) {
    QStringList texts;
    for (int i = 0; i < box->count(); ++i) texts << box->itemText(i);
    texts.sort();
    return texts;
}

QStringList files(MainWindowHarness& h, const char* folder) {
    QStringList names = QDir(QString::fromStdString(h.game.path(folder).string()))
                            .entryList(QDir::Files | QDir::Hidden, QDir::Name);
    return names;
}

QImage filled(int width, int height, Qt::GlobalColor colour) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

QImage pictureFile(MainWindowHarness& h, const std::string& relative) {
    return QImage(QString::fromStdString(h.game.path(relative).string()));
}

// Makes a folder read-only while it lives; for root, whom permissions do not bind, also
// immutable where the file system allows it. enforced() says whether it worked.
class ReadOnlyFolder {
  public:
    explicit ReadOnlyFolder(fs::path folder) : folder_(std::move(folder)) {
        fs::permissions(folder_, fs::perms::owner_read | fs::perms::owner_exec);
        if (geteuid() == 0) setImmutable(true);
        const fs::path probe = folder_ / "probe";
        const int fd = open(probe.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
        enforced_ = fd < 0;
        if (fd >= 0) {
            close(fd);
            unlink(probe.c_str());
        }
    }
    ~ReadOnlyFolder() {
        if (geteuid() == 0) setImmutable(false);
        std::error_code ec;
        fs::permissions(folder_, fs::perms::owner_all, ec);
    }
    bool enforced() const { return enforced_; }

  private:
    void setImmutable(bool on) {
        const int fd = open(folder_.c_str(), O_RDONLY | O_DIRECTORY);
        if (fd < 0) return;
        int flags = 0;
        if (ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0) {
            flags = on ? (flags | FS_IMMUTABLE_FL) : (flags & ~FS_IMMUTABLE_FL);
            ioctl(fd, FS_IOC_SETFLAGS, &flags);
        }
        close(fd);
    }

    fs::path folder_;
    bool enforced_ = false;
};

}  // namespace

class frmSSEditSaveTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void saveAsOverAnotherSystemReplacesItsPictures() {
        MainWindowHarness h;
        h.addSystem(TempGameFolder::systemRecord("Nova", 3));
        h.addSystem(TempGameFolder::systemRecord("Vega", 2));
        QVERIFY(filled(3 * 160, 120, Qt::darkGreen)
                    .save(QString::fromStdString(h.game.path("PICTURES/Nova.bmp").string())));
        QVERIFY(filled(16, 16, Qt::magenta)
                    .save(QString::fromStdString(h.game.path("PICTURES/NovaSun.bmp").string())));
        h.game.write("PICTURES/Nova3.avi", "Nova's animation");
        h.game.write("PICTURES/vega.JPG", "Vega's strip");
        h.game.write("PICTURES/VegaSun.gif", "Vega's star");
        h.game.write("PICTURES/Vega1.avi", "Vega's animation");
        QVERIFY(h.start());
        h.choose("Nova");
        const QStringList novaPictures = {"Nova.bmp", "Nova3.avi", "NovaSun.bmp"};

        h.prompts.answerInput(QStringLiteral("Vega"));
        h.prompts.answerMessage(PromptAnswer::Yes);
        h.action("mnuFSaveAs")->trigger();
        QCOMPARE(h.prompts.messageTexts().size(), 1);  // the overwrite question only
        QCOMPARE(files(h, "PICTURES"),
                 novaPictures + QStringList({"Vega.bmp", "Vega3.avi", "VegaSun.bmp"}));
        QCOMPARE(pictureFile(h, "PICTURES/Vega.bmp").pixelColor(170, 10), QColor(Qt::darkGreen));
        QCOMPARE(pictureFile(h, "PICTURES/VegaSun.bmp").pixelColor(3, 3), QColor(Qt::magenta));
        QCOMPARE(h.game.read("PICTURES/Vega3.avi"), std::string("Nova's animation"));
        QCOMPARE(entries(h.window().cboSystems), QStringList({"Nova", "Vega"}));
        QCOMPARE(h.selected(), QStringLiteral("Vega"));
        QCOMPARE(h.record().PlanetCount, 3);
        QCOMPARE(h.prompts.unexpectedCount(), 0);
    }

    void saveAsUnderANewLetterCaseRenamesTheSystem() {
        MainWindowHarness h;
        h.addSystem(TempGameFolder::systemRecord("Sol", 2));
        h.addSystem(TempGameFolder::systemRecord("Vega", 1));
        h.game.write("PICTURES/Sol2.avi", "animation");
        QVERIFY(h.start());
        h.choose("Sol");

        h.prompts.answerInput(QStringLiteral("SOL"));
        h.prompts.answerMessage(PromptAnswer::Yes);
        h.action("mnuFSaveAs")->trigger();
        QCOMPARE(h.prompts.asked()[1].text,
                 QStringLiteral("This system aready exists.  Are you sure you want to overwrite?"));
        QCOMPARE(files(h, "ORBDescriptor"), QStringList({"SOL.edt", "SOL.orb", "Vega.orb"}));
        QCOMPARE(files(h, "PICTURES"), QStringList({"SOL2.avi"}));
        QCOMPARE(entries(h.window().cboSystems), QStringList({"SOL", "Vega"}));
        QCOMPARE(h.selected(), QStringLiteral("SOL"));
        QCOMPARE(h.record().Name, std::string("SOL"));
        QVERIFY(h.descriptor("SOL", ".orb").find("\"SOL                 \",0,2") !=
                std::string::npos);
        QVERIFY(!h.store().IsModified());
        QCOMPARE(h.prompts.unexpectedCount(), 0);
    }

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

    void aFreshWorkingCopyThatCannotBeMadeLeavesTheSystem() {
        MainWindowHarness h;
        h.addSystem(TempGameFolder::systemRecord("Nova", 3));
        QVERIFY(h.start());
        h.choose("Nova");
        h.action("mnuPAdd")->trigger();
        // After the commit the working copy's name leads into a folder that cannot be written,
        // to a stale file that must not be taken for the fresh copy.
        const fs::path locked = h.game.path("locked");
        h.game.write("locked/Nova.edt", "stale");
        fs::create_symlink(locked / "Nova.edt", h.game.path("ORBDescriptor/NOVA.EDT"));
        const ReadOnlyFolder readOnly(locked);
        if (!readOnly.enforced()) QSKIP("the folder cannot be made read-only here");

        h.window().cmdSave->click();
        QVERIFY(h.descriptor("Nova", ".orb").find(",0,4\r\n") != std::string::npos);
        QCOMPARE(h.prompts.messageTexts().size(), 1);
        QVERIFY(h.prompts.messageTexts().front().contains(QStringLiteral("working copy")));
        // No system is open: nothing can write into the saved descriptor behind a working copy.
        QVERIFY(!h.store().IsEditing());
        QCOMPARE(h.window().cboSystems->currentIndex(), -1);
        QVERIFY(!h.window().cmdSave->isEnabled());
        QVERIFY(!h.window().mnuPlanet->isEnabled());
        QCOMPARE(h.record().PlanetCount, 0);
    }

    void aCustomNameEqualToAListedKeyMakesACustomSystem() {
        MainWindowHarness h;
        h.game.writeSystemList({"\"Sol\",3,2", "400,2,0,0,1,0", "430,3,1,0,13,0"});
        QVERIFY(h.start());
        h.onDialog([](QDialog& dialog) {
            auto* add = qobject_cast<frmNewSS*>(&dialog);
            QVERIFY(add);
            add->refresh();
            QCOMPARE(add->cboSystems->currentText(), QStringLiteral("2Sol"));
            add->chkCustom->click();
            add->txtName->setText(QStringLiteral("2Sol"));
            add->cmdOK->click();
        });
        h.window().cmdAdd->click();
        QCOMPARE(h.selected(), QStringLiteral("2Sol"));
        QCOMPARE(h.record().PlanetCount, 0);
        QCOMPARE(h.record().StarType, 0);
        QCOMPARE(h.record().trimmedDisplayName(), std::string("2Sol"));
        QVERIFY(h.descriptor("2Sol", ".orb").find(";\"2Sol                \",0,0\r\n") !=
                std::string::npos);
        QCOMPARE(h.prompts.unexpectedCount(), 0);
    }
};

QTEST_MAIN(frmSSEditSaveTest)
#include "frmSSEditSaveTest.moc"
