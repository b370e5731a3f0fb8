#pragma once
// "Planet Properties": one planet's life, attitude, technology, energy, alien race, size and
// moons, and whether it uses custom pictures and custom messages.
//
// Option groups: each group is an array of four radio buttons, gpInh[0..3], gpAtt[0..3],
// gpAdv[0..3], gpEnr[0..3], whose object names are "gpInh0".."gpInh3" and so on, in the frames
// fraInh, fraAtt, fraAdv, fraEnr.
// Spinners: spnSize and spnMoons are small up/down button pairs beside the value labels
// lblSize and lblMoons; their buttons are named "spnSizeUp"/"spnSizeDown" and
// "spnMoonsUp"/"spnMoonsDown".
//
// A click in an option group is stored at once (the session applies the rule that a planet
// without animal life has no attitude and no technology, and an extinct one no attitude), so it
// stays when the dialog is cancelled; size, moons, alien and the two switches are stored on OK.
// Everything one opening of the dialog changes is one step of the history.

#include <QDialog>
#include <QString>
#include <array>
#include <functional>

#include "session/EditSession.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QWidget;

namespace orr::ui {

class frmPlanet : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaptionPrefix = QStringLiteral("Planet Properties - ");

    frmPlanet(EditSession& session, QWidget* parent = nullptr);

    // Fills the dialog for planet p, shows it modally and stores the answers on OK. Returns
    // whether the user pressed OK.
    bool ShowPlanetProperties(int planet);
    // The first part of ShowPlanetProperties: fills the controls.
    void loadPlanet(int planet);

    int planet() const { return planet_; }

    // "Edit" beside "Use Custom Messages": opens the message editor for the planet with the
    // box's value and returns the editor's value of it when it closes.
    using MessageEditorOpener = std::function<bool(int planet, bool customMessages)>;
    // "Edit" beside "Use Custom Picture": opens the pictures window at the planet.
    using PictureEditorOpener = std::function<void(int planet)>;
    // The buttons stay disabled while their opener is unset.
    void setMessageEditorOpener(MessageEditorOpener opener);
    void setPictureEditorOpener(PictureEditorOpener opener);

    // Controls.
    QGroupBox* fraInh;
    QGroupBox* fraAtt;
    QGroupBox* fraAdv;
    QGroupBox* fraEnr;
    std::array<QRadioButton*, 4> gpInh{};
    std::array<QRadioButton*, 4> gpAtt{};
    std::array<QRadioButton*, 4> gpAdv{};
    std::array<QRadioButton*, 4> gpEnr{};
    QLabel* lblAlien;
    QComboBox* cboAlienName;
    QLabel* lblSizeText;
    QLabel* lblSize;
    QWidget* spnSize;
    QLabel* lblMoonsText;
    QLabel* lblMoons;
    QWidget* spnMoons;
    QCheckBox* chkPicture;
    QPushButton* cmdPic;
    QCheckBox* chkMessage;
    QPushButton* cmdMsg;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

  private:
    enum Group { Inhabited, Attitude, Advanced, Energy };

    QGroupBox* makeGroup(const QString& frameName, const QString& caption, const char* prefix,
                         const std::array<std::string, 4>& captions,
                         std::array<QRadioButton*, 4>& options, Group group);
    QWidget* makeSpinner(const QString& name, QLabel* value, int low, int high);
    void fillAlienNames();
    void selectOptions(const PlanetAttributes& attributes);
    void option_Click(Group group, int index);
    void cmdOK_Click();
    void cmdMsg_Click();
    void cmdPic_Click();
    bool systemHasPictures();
    void applyPictureEnabling();
    void applyMessageEnabling();
    bool report(bool ok);

    EditSession& session_;
    int planet_ = 1;
    std::string mergeKey_;  // the changes of one opening make one step
    MessageEditorOpener messageEditorOpener_;
    PictureEditorOpener pictureEditorOpener_;
};

}  // namespace orr::ui
