// Texts crossing between Qt and the game's Windows-1252 files.
#include <QTest>

#include "platform/QtText.h"

using namespace orr::ui;

class QtTextTest : public QObject {
    Q_OBJECT

  private slots:
    void windows1252CharactersRoundTrip() {
        const QString text = QStringLiteral("Ossère – “Quorn” €5 ½");
        const std::string bytes = toBytes(text);
        QCOMPARE(bytes, std::string("Oss\xe8re \x96 \x93Quorn\x94 \x80"
                                    "5 \xbd"));
        QCOMPARE(toQString(bytes), text);
        QVERIFY(unstorableCharacters(text).isEmpty());
        QCOMPARE(toStorableBytes(text), std::optional<std::string>(bytes));
    }

    void charactersOutsideWindows1252AreNamedOnce() {
        const QString text = QStringLiteral("Snow ☃ and → arrows ☃ 🚀");
        QCOMPARE(unstorableCharacters(text), QStringLiteral("☃→🚀"));
        QCOMPARE(toStorableBytes(text), std::nullopt);
        QVERIFY(unstorableMessage(unstorableCharacters(text)).contains(QStringLiteral("☃ → 🚀")));
    }
};

QTEST_GUILESS_MAIN(QtTextTest)
#include "QtTextTest.moc"
