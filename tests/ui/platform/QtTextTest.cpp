// Windows-1252 bytes and Qt strings meet only here; the round trip must keep every character
// Windows-1252 can hold.

#include <QtTest>

#include "platform/QtText.h"

using namespace orr::ui;

class QtTextTest : public QObject {
    Q_OBJECT

  private slots:
    void windowsCharactersBecomeTheirUnicodeForms() {
        QCOMPARE(toQString("Caf\xe9 \x80 \x93ok\x94"),
                 QStringLiteral("Caf\u00e9 \u20ac \u201cok\u201d"));
        QCOMPARE(toBytes(QStringLiteral("Caf\u00e9 \u20ac \u201cok\u201d")),
                 std::string("Caf\xe9 \x80 \x93ok\x94"));
    }

    void everyDefinedByteSurvivesTheRoundTrip() {
        for (int b = 1; b < 256; ++b) {
            if (b == 0x81 || b == 0x8D || b == 0x8F || b == 0x90 || b == 0x9D) continue;
            const std::string byte(1, static_cast<char>(b));
            QCOMPARE(toBytes(toQString(byte)), byte);
        }
    }

    void charactersOutsideTheCodePageBecomeQuestionMarks() {
        QCOMPARE(toBytes(QStringLiteral("A\u0100B")), std::string("A?B"));
        QVERIFY(toQString("").isEmpty());
    }
};

QTEST_MAIN(QtTextTest)
#include "QtTextTest.moc"
