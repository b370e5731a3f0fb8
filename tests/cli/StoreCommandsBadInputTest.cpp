// orrerion-cli on damaged game folders: missing files, descriptors without or with a damaged
// system block, and folders it may not write. Nothing may crash, every refusal is one error
// line, and a refused or failed change leaves every file as it was. (How damaged lists and
// descriptors are read is the store tests' business.)

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QtTest>

#include "cli/support/CliFixture.h"

using orr::clitest::CliFixture;
using orr::clitest::crlf;

class StoreCommandsBadInputTest : public QObject {
    Q_OBJECT

  private:
    CliFixture cli;

    // A change on the system must be refused with exit 1 and leave the folder as it was.
    void verifyChangesRefused(const QString& name) {
        const auto before = cli.snapshot();
        const QList<QStringList> changes = {{"add-planet", name},
                                            {"insert-planet", name, "1"},
                                            {"delete-planet", name, "1"},
                                            {"swap-planets", name, "1", "2"},
                                            {"clear-planets", name}};
        for (const QStringList& change : changes) {
            const QString reason = cli.fails(change);
            QVERIFY2(!reason.isEmpty(), qPrintable(change.join(' ')));
        }
        QCOMPARE(cli.snapshot(), before);
    }

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void init() { cli.freshFolder(); }

    void aMissingSystemListOffersNothingAndNewMakesCustomSystems() {
        QCOMPARE(cli.ok({"offered"}), QByteArray());
        cli.ok({"new", "4Harrow"});
        QVERIFY(cli.read("ORBDescriptor/4Harrow.orb").contains(";\"4Harrow             \",0,0"));
    }

    void aDescriptorWithoutABlockShowsAndTakesKeysButNoPlanetChanges() {
        const QByteArray text =
            crlf({"[General]", "PlanetPics=YY", "Messages=NN", "[Names]", "1=Lost"});
        cli.write("ORBDescriptor/Bare.orb", text);
        const auto doc = QJsonDocument::fromJson(cli.ok({"show", "Bare"}));
        QCOMPARE(doc["name"].toString(), QString("Bare"));
        QCOMPARE(doc["planets"].toArray().size(), 0);
        verifyChangesRefused("Bare");
        QVERIFY(cli.fails({"add-planet", "Bare"}).contains("no system block"));
        cli.ok({"set", "Bare", "1", "Info", "kept"});
        QCOMPARE(cli.read("ORBDescriptor/Bare.orb"), text + crlf({"[1]", "Info=kept"}));
    }

    void aDamagedBlockIsShownButNeverRewritten() {
        const QList<QByteArray> blocks = {
            crlf({";SolarSystem", ";\"Short               \",0,5", ";400,2,0,0,1,0"}),
            crlf({";SolarSystem", ";\"Nul                 \",0,2", ";400,2,0,0,1,0"}) +
                QByteArray(";430,2\0\0,0,1,0\r\n", 17),
        };
        for (const QByteArray& block : blocks) {
            cli.freshFolder();
            const QByteArray text = crlf({"[General]", "PlanetPics=NN", "Messages=NN", ""}) +
                                    block + crlf({"[Names]", "1=Keep me", "[1]", "Info=mine"});
            cli.write("ORBDescriptor/Damaged.orb", text);
            const auto shown = cli.run({"show", "Damaged"});
            QCOMPARE(shown.exitCode, 0);
            QVERIFY(QJsonDocument::fromJson(shown.out).isObject());
            verifyChangesRefused("Damaged");
            QVERIFY(cli.fails({"set", "Damaged", "1", "Info", "x"}).contains("damaged"));
            QCOMPARE(cli.read("ORBDescriptor/Damaged.orb"), text);
            QVERIFY(!cli.exists("ORBDescriptor/Damaged.edt"));
        }
    }

    void aMissingAlienListIsNoObstacle() {
        cli.demoCopy();
        QFile::remove(cli.path("aliens.txt"));
        QCOMPARE(QJsonDocument::fromJson(cli.ok({"show", "Kestrel"}))["planets"].toArray().size(),
                 6);
        cli.ok({"add-planet", "Kestrel"});
        QVERIFY(cli.read("ORBDescriptor/Kestrel.orb").contains(";1750,2,0,0,1,0\r\n[Names]"));
    }

    void aReadOnlyDescriptorFolderRefusesEveryChange() {
        cli.demoCopy();
        const QString folder = cli.path("ORBDescriptor");
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
        const auto restore = qScopeGuard([&] {
            QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        });
        const bool enforced = orr::clitest::permissionsEnforced(cli.path("PICTURES"));
        if (enforced) {
            const auto before = cli.snapshot();
            const QList<QStringList> changes = {{"add-planet", "Kestrel"},
                                                {"set", "Kestrel", "2", "Info", "x"},
                                                {"set-name", "Kestrel", "1", "Ash"},
                                                {"rename", "Kestrel", "Merlin"},
                                                {"delete", "Kestrel"},
                                                {"new", "Nova"}};
            for (const QStringList& change : changes) {
                const QString reason = cli.fails(change);
                QVERIFY2(!reason.isEmpty(), qPrintable(change.join(' ')));
            }
            QCOMPARE(cli.snapshot(), before);
            QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList{"Kestrel.orb"});
        }
        if (!enforced) QSKIP("file permissions are not enforced for this user (root)");
    }
};

QTEST_GUILESS_MAIN(StoreCommandsBadInputTest)
#include "StoreCommandsBadInputTest.moc"
