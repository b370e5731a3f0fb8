#pragma once
// The about window: the product, its version and what it is for. Shown at start-up while the
// setting "Show About" is on (its check box turns that off) and from Help > About.

#include <QDialog>
#include <QString>

class QCheckBox;
class QLabel;
class QPushButton;

namespace orr::ui {

class frmAbout : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kProduct = QStringLiteral("Orrerion");
    static inline const QString kDescription =
        QStringLiteral("A solar system editor for Voidrunner for Windows 9x.");

    explicit frmAbout(QWidget* parent = nullptr);

    static QString version();  // the program's version, "1.2.3"

    // Controls.
    QLabel* lblProduct;
    QLabel* lblVersion;
    QLabel* lblDescription;
    QCheckBox* chkShowAbout;
    QPushButton* cmdOK;

  protected:
    void showEvent(QShowEvent* event) override;
};

}  // namespace orr::ui
