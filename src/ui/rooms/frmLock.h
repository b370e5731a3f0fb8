#pragma once
// "Lock Action": which action of the room to lock and the message the player gets while it is
// locked. "&OK" refuses an empty choice or message and stays open; "&Cancel" (and the close box)
// clears the dialog. The room editor then asks for the flag and stores the lock.

#include <QDialog>
#include <QString>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace orr::ui {

class frmLock : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaption = QStringLiteral("Lock Action");
    static inline const QString kNoAction = QStringLiteral("Please select an action to lock.");
    static inline const QString kNoMessage =
        QStringLiteral("Please enter a message for the locked action.");

    explicit frmLock(QWidget* parent = nullptr);

    void Clear();
    void AddItem(const QString& text, int number);
    // The chosen action's number; 0 when none is chosen.
    int SelectedID() const;
    QString Description() const;

  public slots:
    void reject() override;

  private:
    void okClicked();

    QLabel* Label1;
    QComboBox* cboAction;
    QLabel* Label2;
    QLineEdit* txtDesc;
    QLabel* Label3;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
};

}  // namespace orr::ui
