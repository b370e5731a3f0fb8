// The bundled demo game folder is sound: a system list the game and the editor read to the end,
// enough alien names, Windows text files, and a custom system whose descriptor, dialogue and
// pictures fit together.

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QStandardPaths>
#include <QtEndian>
#include <QtTest>
#include <cstdlib>

#include "cli/support/CliFixture.h"
#include "store/SystemList.h"
#include "store/SystemStore.h"

using orr::clitest::demoFolder;

namespace {

QByteArray demoFile(const QString& relative) {
    QFile file(demoFolder() + "/" + relative);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QList<QByteArray> lines(const QByteArray& text) {
    QList<QByteArray> result = text.split('\n');
    if (!result.isEmpty() && result.last().isEmpty()) result.removeLast();
    for (QByteArray& line : result) line.chop(line.endsWith('\r') ? 1 : 0);
    return result;
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
        QStringList texts = {"SOLARSYS.TXT", "aliens.txt", "voidrunner.exe", "ORBInst.dat"};
        for (const QString& orb : QDir(demoFolder() + "/ORBDescriptor").entryList({"*.orb"}))
            texts << "ORBDescriptor/" + orb;
        for (const QString& name : texts) {
            const QByteArray text = demoFile(name);
            QVERIFY2(!text.isEmpty(), qPrintable(name));
            QVERIFY2(text.endsWith("\r\n"), qPrintable(name));
            QCOMPARE(text.count('\n'), text.count("\r\n"));
            QCOMPARE(text.count('\r'), text.count("\r\n"));
            QVERIFY2(!text.contains('\0'), qPrintable(name));
        }
    }

    void theSystemListIsReadToTheEnd() {
        const QByteArray text = demoFile("SOLARSYS.TXT");
        const auto systems =
            orr::ReadSystemList(std::filesystem::path(demoFolder().toStdString()) / "SOLARSYS.TXT");
        QCOMPARE(qsizetype(systems.size()), text.count("\r\n\"") + (text.startsWith('"') ? 1 : 0));
        QVERIFY(systems.size() >= 8);

        QMap<QString, QSet<int>> countsByName;
        bool hasHash = false;
        for (const auto& system : systems) {
            const auto& record = system.record;
            const QString name = QString::fromStdString(record.trimmedDisplayName());
            hasHash = hasHash || name.contains('#');
            countsByName[name].insert(record.PlanetCount);
            QVERIFY(record.StarType >= 0 && record.StarType <= 7);
            for (int n = 1; n <= record.PlanetCount; ++n) {
                const auto& planet = record.planet(n);
                QVERIFY(planet.Position >= 400 && planet.Position <= 1900);
                if (n > 1) QVERIFY(planet.Position > record.planet(n - 1).Position);
                QVERIFY(planet.Size >= 1 && planet.Size <= 5);
                QVERIFY(planet.PlanetClass >= 0 && planet.PlanetClass <= 14);
                QVERIFY(planet.Moons >= 0 && planet.Moons <= 25);
                const auto attributes = orr::PlanetAttributes::unpack(planet.Attributes);
                QCOMPARE(attributes.pack(), planet.Attributes);
            }
        }
        QVERIFY(hasHash);
        bool duplicate = false;
        for (const auto& counts : countsByName) duplicate = duplicate || counts.size() > 1;
        QVERIFY(duplicate);
    }

    void thereAreEnoughAlienNames() {
        const auto names = lines(demoFile("aliens.txt"));
        QVERIFY(names.size() >= 20);
        for (const QByteArray& name : names) QVERIFY(!name.trimmed().isEmpty());
    }

    void theCustomSystemLoadsWithItsPictures() {
        orr::clitest::CliFixture copy;
        copy.demoCopy();
        orr::SystemStore store(orr::GameFolder(copy.game().toStdString()));
        QVERIFY(store.InitTables());
        store.record().Name = "Kestrel";
        const orr::LoadResult loaded = store.LoadSystem("Kestrel");
        QVERIFY(loaded.blockFound);
        QVERIFY(loaded.warning.empty());
        const auto& record = store.record();
        QVERIFY(record.PlanetCount >= 5 && record.PlanetCount <= 7);
        int belts = 0;
        for (int n = 1; n <= record.PlanetCount; ++n) {
            belts += record.planet(n).PlanetClass == 0;
            QVERIFY(record.planet(n).Position > (n > 1 ? record.planet(n - 1).Position : 199));
            QVERIFY(record.planet(n).Position <= 2000);
            // Every planet with custom messages has them.
            if (store.GetGeneralFlag(orr::kMessagesFlag, n) == 1)
                QVERIFY(store.SectionExists(std::to_string(n)));
        }
        QCOMPARE(belts, 1);
        QCOMPARE(store.ReadKey("General", "PlanetPics").size(), size_t(record.PlanetCount));
        QCOMPARE(store.ReadKey("General", "Messages").size(), size_t(record.PlanetCount));
        QVERIFY(store.GetName(0, record.DisplayName) != orr::kNotUsed);

        QCOMPARE(bitmapSize(demoFile("PICTURES/Kestrel.bmp")),
                 QSize(160 * record.PlanetCount, 120));
        QCOMPARE(bitmapSize(demoFile("PICTURES/KestrelSun.bmp")), QSize(16, 16));
    }

    // Every count has its items, every answer tag leads to lines that exist, and no stored line
    // is longer than the game reads.
    void theDialogueIsComplete() {
        QMap<QByteArray, QMap<QByteArray, QByteArray>> sections;
        QByteArray section;
        for (const QByteArray& line : lines(demoFile("ORBDescriptor/Kestrel.orb"))) {
            if (line.startsWith('[')) {
                section = line.mid(1, line.indexOf(']') - 1);
            } else if (line.contains('=') && !line.startsWith(';')) {
                QVERIFY2(line.size() - line.indexOf('=') - 1 <= 254, line.constData());
                sections[section][line.left(line.indexOf('='))] = line.mid(line.indexOf('=') + 1);
            }
        }
        int checkedTags = 0;
        for (auto it = sections.begin(); it != sections.end(); ++it) {
            bool number = false;
            it.key().toInt(&number);
            if (!number) continue;
            const auto& keys = it.value();
            const auto countKey = [](const QByteArray& list, const QByteArray& group) {
                if (list == "Message" && group == "Beam") return QByteArray("BeamMessages");
                return list + "s" + group;
            };
            const auto itemKey = [](const QByteArray& list, const QByteArray& group, int n) {
                if (list == "Message" && group == "Beam") return "Beam" + QByteArray::number(n);
                return list + group + QByteArray::number(n);
            };
            const QRegularExpression count("^(Message|Response)s(.*)$");
            for (auto key = keys.begin(); key != keys.end(); ++key) {
                QByteArray list, group;
                if (key.key() == "BeamMessages") {
                    list = "Message", group = "Beam";
                } else if (const auto m = count.match(QString::fromLatin1(key.key()));
                           m.hasMatch()) {
                    list = m.captured(1).toLatin1(), group = m.captured(2).toLatin1();
                } else {
                    continue;
                }
                const int items = key.value().toInt();
                QVERIFY(items >= 1);
                for (int n = 1; n <= items; ++n) {
                    const QByteArray line = keys.value(itemKey(list, group, n));
                    QVERIFY2(!line.isEmpty(), itemKey(list, group, n).constData());
                    // A message's *R leads to responses, a response's *M to messages.
                    const QByteArray tag = list == "Message" ? "*R" : "*M";
                    const int at = line.indexOf(tag);
                    if (at < 0) continue;
                    QByteArray target = line.mid(at + 2);
                    target =
                        target.left(target.indexOf('*') < 0 ? target.size() : target.indexOf('*'));
                    if (target == "None") continue;
                    const QByteArray other = list == "Message" ? "Response" : "Message";
                    QVERIFY2(keys.contains(countKey(other, target)),
                             (it.key() + ": " + line).constData());
                    ++checkedTags;
                }
            }
        }
        QVERIFY(checkedTags >= 20);
    }
};

QTEST_GUILESS_MAIN(DemoFolderTest)
#include "DemoFolderTest.moc"
