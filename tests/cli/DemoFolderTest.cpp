// The bundled demo game folder is sound: Windows text files, enough alien names, and a custom
// system whose descriptor, dialogue and pictures fit together. (That the system list is read to
// its end shows in the command tests' "offered" output.)

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QtEndian>
#include <QtTest>
#include <cstdlib>
#include <tuple>

#include "cli/support/CliFixture.h"
#include "messages/MessageGroups.h"
#include "messages/MessageList.h"
#include "messages/PlanetMessageStore.h"
#include "store/SystemStore.h"

using orr::clitest::demoFolder;

namespace {

QByteArray demoFile(const QString& relative) {
    QFile file(demoFolder() + "/" + relative);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Width and height of a Windows bitmap, from its header.
QSize bitmapSize(const QByteArray& bmp) {
    if (bmp.size() < 26 || !bmp.startsWith("BM")) return {};
    const auto le32 = [&](int at) {
        return qFromLittleEndian<qint32>(reinterpret_cast<const uchar*>(bmp.constData() + at));
    };
    return {le32(18), std::abs(le32(22))};
}

}  // namespace

class DemoFolderTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void everyTextFileIsWindowsText() {
        QStringList texts = {"SOLARSYS.TXT", "aliens.txt", "voidrunner.exe", "ORBInst.dat",
                             "ORBDescriptor/Kestrel.orb"};
        for (const QString& name : texts) {
            const QByteArray text = demoFile(name);
            QVERIFY2(text.endsWith("\r\n") && !text.contains('\0'), qPrintable(name));
            QCOMPARE(text.count('\n'), text.count("\r\n"));
            QCOMPARE(text.count('\r'), text.count("\r\n"));
        }
        const QList<QByteArray> aliens = demoFile("aliens.txt").trimmed().split('\n');
        QVERIFY(aliens.size() >= 20);
        for (const QByteArray& name : aliens) QVERIFY(!name.trimmed().isEmpty());
    }

    void theCustomSystemLoadsWithItsPicturesAndCompleteDialogue() {
        orr::clitest::CliFixture copy;
        copy.demoCopy();
        orr::SystemStore store(orr::GameFolder(copy.game().toStdString()));
        store.record().Name = "Kestrel";
        const orr::LoadResult loaded = store.LoadSystem("Kestrel");
        QVERIFY(loaded.blockFound);
        QVERIFY(loaded.warning.empty());
        const int count = store.record().PlanetCount;
        QCOMPARE(store.ReadKey("General", "PlanetPics").size(), size_t(count));
        QCOMPARE(store.ReadKey("General", "Messages").size(), size_t(count));
        QCOMPARE(bitmapSize(demoFile("PICTURES/Kestrel.bmp")), QSize(160 * count, 120));
        QCOMPARE(bitmapSize(demoFile("PICTURES/KestrelSun.bmp")), QSize(16, 16));

        // Every listed line exists and fits the game's limit, and every answer tag leads to
        // lines that exist.
        int tags = 0;
        for (int n = 1; n <= count; ++n) {
            orr::PlanetMessageStore planet(store, n);
            const orr::GroupLists lists = orr::MessageGroups().LoadGroupLists(planet);
            for (const auto& [groups, direction, tag, answers] :
                 {std::tuple{lists.messageGroups, orr::Direction::Message, 'R',
                             orr::Direction::Response},
                  std::tuple{lists.responseGroups, orr::Direction::Response, 'M',
                             orr::Direction::Message}}) {
                for (const std::string& group : groups) {
                    for (const std::string& line :
                         orr::MessageList(planet, group, direction).lines()) {
                        QVERIFY2(line != "ERR" && line.size() <= 254, line.c_str());
                        const std::string target = orr::scannedAnswerGroup(line, tag, "\x01");
                        if (target == "\x01" || target == "None") continue;
                        QVERIFY2(orr::MessageList(planet, target, answers).count() >= 1,
                                 line.c_str());
                        ++tags;
                    }
                }
            }
        }
        QVERIFY(tags >= 20);
    }
};

QTEST_GUILESS_MAIN(DemoFolderTest)
#include "DemoFolderTest.moc"
