// orrerion-cli's picture and package commands on the demo system Kestrel: what pictures reports,
// a picture removed and a star picture refused by the editor's rules, and a package zipped by
// the editor's own writer when no zip program is named.

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QtTest>

#include "cli/support/CliFixture.h"

using orr::clitest::CliFixture;

class PictureCommandsTest : public QObject {
    Q_OBJECT

  private:
    CliFixture cli;

    QJsonObject pictures() {
        return QJsonDocument::fromJson(cli.ok({"pictures", "Kestrel"})).object();
    }

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void picturesStarPictureAndPackage() {
        cli.demoCopy();
        QCOMPARE(pictures()["strip"].toString(), QStringLiteral("Kestrel.bmp"));
        QCOMPARE(pictures()["planets"].toArray().size(), 6);
        QCOMPARE(cli.fails({"star-picture", "Kestrel", cli.path("PICTURES/Kestrel.bmp")}),
                 QStringLiteral("The picture must be 16 x 16 pixels in size to be used for a "
                                "star picture."));
        cli.ok({"picture-remove", "Kestrel", "2"});
        const QJsonObject second = pictures()["planets"].toArray()[1].toObject();
        QVERIFY(!second["picture"].toBool() && !second["customPicture"].toBool());

        QVERIFY(QDir().mkpath(cli.path("out")));
        QCOMPARE(cli.ok({"package", "Kestrel", cli.path("out")}),
                 (cli.path("out/Kestrel") + "\n" + cli.path("out/Kestrel.zip") + "\n").toUtf8());
        QVERIFY(cli.fails({"package", "Kestrel", cli.path("out")}).contains("exists already"));
        QVERIFY(!cli.exists("ORBDescriptor/Kestrel.edt"));
    }
};

QTEST_GUILESS_MAIN(PictureCommandsTest)
#include "PictureCommandsTest.moc"
