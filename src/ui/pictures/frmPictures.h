#pragma once
// "Planet Pictures": the planets of the open system one at a time, with their pictures and
// animations. A planet gets a picture from a file (New) or from the paint program (Edit), loses
// it (Remove) or all planets lose theirs (Remove All); an animation plays in place of the picture
// and Remove takes it away. "Use Custom Picture" switches the planet's flag that tells the game
// to show the picture.
//
// Every change is a command of the edit session (one step of the history); the pictures reach
// the picture files when the system is saved. The window's "DIRTY" mark is the session's
// "pictures differ from the saved ones", shown as the modified mark of its title.

#include <QDialog>

#include "session/EditSession.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QScrollBar;
class QStackedWidget;

namespace orr::ui {

class AnimationView;

class frmPictures : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaption = QStringLiteral("Planet Pictures");

    explicit frmPictures(EditSession& session, QWidget* parent = nullptr);
    ~frmPictures() override;

    // Shows planet n (the scroll bar runs over the system's planets) and runs the window
    // modally until Close.
    void ShowPictures(int planet);
    // Planet n shown, as the scroll bar's change does.
    void showPlanet(int planet);
    int planet() const;
    // Whether the planet's animation plays (or tries to) in place of its picture.
    bool showsAnimation() const;

    // Controls.
    QScrollBar* hsbPlanet;
    QLabel* lblNameText;
    QLabel* lblName;
    QStackedWidget* display_;  // the display area: picPlanet, lblNoPic or AVI
    QLabel* picPlanet;
    QLabel* lblNoPic;
    AnimationView* AVI;
    QCheckBox* chkCustom;
    QPushButton* cmdNew;
    QPushButton* cmdEdit;
    QPushButton* cmdRemove;
    QPushButton* cmdRemAll;
    QPushButton* cmdClose;

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    void buildControls();
    void refresh();
    void showNameOf(int planet);
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdRemove_Click();
    void cmdRemAll_Click();
    void cmdClose_Click();
    void chkCustom_Click(bool checked);
    bool confirm(const QString& question);

    EditSession& session_;
    int listener_ = 0;
    std::weak_ptr<const void> lifetime_;
    QString animation_;  // the file playing, empty when none
};

}  // namespace orr::ui
