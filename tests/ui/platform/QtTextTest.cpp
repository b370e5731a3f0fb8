// Texts crossing between Qt and the game's Windows-1252 files (the code page itself is
// Cp1252Test's).
#include <QTest>

#include "platform/QtText.h"

using namespace orr::ui;

class QtTextTest : public QObject {
    Q_OBJECT

  private slots:
    void windows1252CharactersRoundTripAndOthersAreNamedOnce() {
        const QString text = QStringLiteral("Ossère “Quorn” €5");
        const std::string bytes =
            "Oss\xe8re \x93Quorn\x94 \x80"
            "5";
        QCOMPARE(toBytes(text), bytes);
        QCOMPARE(toQString(bytes), text);
        QCOMPARE(toStorableBytes(text), std::optional<std::string>(bytes));

        const QString snow = QStringLiteral("Snow ☃ and → arrows ☃ 🚀");
        QCOMPARE(unstorableCharacters(snow), QStringLiteral("☃→🚀"));
        QCOMPARE(toStorableBytes(snow), std::nullopt);
        QVERIFY(unstorableMessage(unstorableCharacters(snow)).contains(QStringLiteral("☃ → 🚀")));
    }
};

QTEST_GUILESS_MAIN(QtTextTest)
#include "QtTextTest.moc"
