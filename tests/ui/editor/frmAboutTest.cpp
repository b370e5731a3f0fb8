// The about window: the build's version, and its check box as the "Show About" setting.

#include <QtTest>

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "editor/frmAbout.h"
#include "platform/Settings.h"

using namespace orr::ui;

class frmAboutTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        QStandardPaths::setTestModeEnabled(true);
        QSettings(QStringLiteral("Orrerion"), QStringLiteral("Orrerion")).clear();
    }

    void showsTheBuildsVersionAndItsBoxIsTheShowAboutSetting() {
        frmAbout about;
        QVERIFY(QRegularExpression(QStringLiteral("^\\d+\\.\\d+\\.\\d+$"))
                    .match(frmAbout::version())
                    .hasMatch());
        QVERIFY(frmAbout::version() != QStringLiteral("0.0.0"));  // the build's own version
        QVERIFY(about.findChild<QLabel*>("lblVersion")->text().contains(frmAbout::version()));

        auto* box = about.findChild<QCheckBox*>("chkShowAbout");
        QVERIFY(box->isChecked());  // the default
        box->click();
        QVERIFY(!Settings::showAbout());
        Settings::setShowAbout(true);
        about.show();  // shown again: reads the setting afresh
        QVERIFY(box->isChecked());
        about.findChild<QPushButton*>("cmdOK")->click();
        QVERIFY(!about.isVisible());
        QVERIFY(Settings::showAbout());
    }
};

QTEST_MAIN(frmAboutTest)
#include "frmAboutTest.moc"
