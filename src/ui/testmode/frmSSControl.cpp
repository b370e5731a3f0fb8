// The ship console: running it, the timers, and showing what the console reports.

#include "testmode/frmSSControl.h"

#include <QCheckBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <filesystem>

#include "platform/Modal.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "store/FileIo.h"
#include "testmode/PlayNumbers.h"
#include "testmode/frmGetNumber.h"
#include "testmode/frmRespond.h"

namespace orr::ui {

frmSSControl::frmSSControl(ShipState& ship, TestPlanet& planet, RandomSource& random,
                           QWidget* parent)
    : QDialog(parent), console_(ship, planet, random, *this) {
    setObjectName(QStringLiteral("frmSSControl"));
    setWindowTitle(QStringLiteral("Solar System Control Panel"));
    setModal(true);
    buildControls();
    connectControls();
}

frmRespond& frmSSControl::respondDialog() {
    if (!respond_) respond_ = new frmRespond(this);
    return *respond_;
}

frmGetNumber& frmSSControl::numberDialog() {
    if (!number_) number_ = new frmGetNumber(this);
    return *number_;
}

bool frmSSControl::start(const ConsoleSetup& setup) {
    // Shown first, so the messages of the opening stand in front of the console.
    show();
    console_.open(setup);
    if (!console_.state().open) return false;
    tmrFlags->start();
    flagTick();
    return true;
}

void frmSSControl::run(const ConsoleSetup& setup) {
    if (start(setup)) runDialog(*this);
    tmrMessage->stop();
    tmrFlags->stop();
    hide();
}

void frmSSControl::messageTick() {
    console_.tick();
}

void frmSSControl::flagTick() {
    if (mirror_) mirror_();
    QString caption = toQString(console_.notesCaption());
    caption.replace(QLatin1Char('&'), QStringLiteral("&&"));  // a level is text, not a key
    if (cmdNotes->text() != caption) cmdNotes->setText(caption);
    if (!chkShipState->isChecked()) return;
    const std::vector<StateRow> rows = console_.rows();
    for (std::size_t i = 0; i < rows.size() && i < stateValues_.size(); ++i)
        stateValues_[i]->setText(toQString(rows[i].value));
}

void frmSSControl::reject() {
    if (console_.state().open)
        console_.exit();
    else
        QDialog::reject();
}

void frmSSControl::note(const QString& line) {
    transcript_ << line;
    txtTranscript->appendPlainText(line);
}

void frmSSControl::messageShown(const MessagePanel& panel) {
    lblMessage->setText(toQString(panel.title));
    Message->setText(toQString(panel.text));
    pnlMessage->show();
    if (panel.title == shown_.title && panel.text.starts_with(shown_.text) && !shown_.text.empty())
        note(QStringLiteral("    + ") + toQString(panel.text.substr(shown_.text.size())));
    else
        note(toQString(panel.title + " " + panel.text));
    shown_ = panel;
}

void frmSSControl::titleChanged(const std::string& title) {
    lblMessage->setText(toQString(title));
    shown_.title = title;
}

void frmSSControl::messageHidden() {
    pnlMessage->hide();
    lblMessage->setText(QString::fromLatin1(kStandardTitle));
    Message->clear();
    shown_ = {};
}

void frmSSControl::boxShown(const std::string& text) {
    note(QStringLiteral("[Box] ") + toQString(text));
    prompts().inform(this, toQString(text));
}

bool frmSSControl::questionAsked(const std::string& text, bool exclamation) {
    const bool yes =
        prompts().message(this,
                          MessagePrompt::question(
                              toQString(text), QStringLiteral("Orrerion"), PromptButtons::YesNo,
                              exclamation ? PromptIcon::Exclamation : PromptIcon::Question)) ==
        PromptAnswer::Yes;
    note(QStringLiteral("[Question] ") + toQString(text) +
         (yes ? QStringLiteral(" -> Yes") : QStringLiteral(" -> No")));
    return yes;
}

int frmSSControl::responseChosen(const std::vector<OfferedResponse>& offered) {
    const int number = respondDialog().choose(offered);
    QString line = QStringLiteral("[Respond] nothing sent");
    for (const OfferedResponse& response : offered)
        if (response.number == number)
            line = QStringLiteral("[Respond] ") + toQString(response.caption);
    note(line);
    return number;
}

float frmSSControl::numberChosen(const NumberRequest& request) {
    const float number = numberDialog().GetNumber(request);
    note(number < request.min
             ? QStringLiteral("[Number] cancelled")
             : QStringLiteral("[Number] ") + toQString(play::formatNumber(number)) +
                   QLatin1Char(' ') + toQString(request.unit));
    return number;
}

void frmSSControl::buttonsChanged(const ConsoleButtons& buttons) {
    cmdHail->setEnabled(buttons.hail);
    cmdBeam->setEnabled(buttons.beam);
    cmdEnergy->setEnabled(buttons.energy);
    cmdPhaser->setEnabled(buttons.phaser);
    cmdPhoton->setEnabled(buttons.photon);
    cmdEnterOrbit->setEnabled(buttons.enterOrbit);
}

void frmSSControl::orbitChanged(const std::string& caption) {
    pnlOrbiting->setText(toQString(caption));
    pnlOrbiting->setVisible(!caption.empty());
    // The transcript starts each visit with the seed that replays it.
    if (!caption.empty())
        note(
            QStringLiteral("[Test] %1, seed %2").arg(toQString(caption)).arg(console_.seedInUse()));
}

void frmSSControl::messageTimerChanged(bool running) {
    if (running)
        tmrMessage->start();
    else
        tmrMessage->stop();
}

void frmSSControl::upgradesChanged() {
    if (mirror_) mirror_();
}

void frmSSControl::stateChanged(const std::vector<std::string>& changes) {
    for (const std::string& change : changes) note(QStringLiteral("    ") + toQString(change));
}

void frmSSControl::consoleClosed() {
    tmrMessage->stop();
    tmrFlags->stop();
    flagTick();
    note(QStringLiteral("[Console closed]"));
    QDialog::done(QDialog::Accepted);
}

void frmSSControl::saveTranscript() {
    const QString path = prompts().saveFile(
        this, {QStringLiteral("Save Transcript"), QStringLiteral("Text Files (*.txt)|*.txt"), {}});
    if (path.isEmpty()) return;
    std::string bytes;
    for (const QString& line : transcript_) {
        QString text = line;
        bytes += toBytes(text.replace(QLatin1Char('\n'), QStringLiteral("\r\n"))) + "\r\n";
    }
    std::string error;
    if (!writeFileAtomically(std::filesystem::path(path.toStdU16String()), bytes, &error))
        report(this, false, error, "The transcript could not be written.");
}

}  // namespace orr::ui
