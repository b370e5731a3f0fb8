// The message editor's way into the away-team rooms: "Edit R&oom" and "Adventure &Wizard". The
// room windows are rooms/; afterwards the groups they made or showed are listed here.

#include <QCheckBox>
#include <QPushButton>
#include <QSignalBlocker>

#include "messages/frmFlag.h"
#include "messages/frmMessages.h"
#include "platform/Modal.h"
#include "platform/QtText.h"
#include "rooms/AdventureWizard.h"
#include "rooms/RoomNames.h"
#include "rooms/frmEditRoom.h"

namespace orr::ui {

void frmMessages::connectRoomButtons() {
    connect(cmdEditRoom, &QPushButton::clicked, this, &frmMessages::editRoom);
    connect(cmdWizard, &QPushButton::clicked, this, &frmMessages::startWizard);
}

frmEditRoom& frmMessages::roomEditor() {
    if (!roomEditor_) {
        roomEditor_ = new frmEditRoom(
            session_,
            [this](QWidget* over, const QString& current) { return chooseFlagOver(over, current); },
            this);
    }
    return *roomEditor_;
}

QString frmMessages::chooseFlagOver(QWidget* over, const QString& current) {
    // A chooser of the asking window, so that it opens over that window.
    frmFlag chooser(session_, over);
    chooser.setPlanet(planet());
    chooser.prepare(current);
    runDialog(chooser);
    return chooser.chosenFlag();
}

void frmMessages::editRoom() {
    const std::string group = state_.group();
    if (group == kNoRoom || !canEditAsRoom(group)) return;
    if (editing_) cancelEditing(false);
    frmEditRoom& editor = roomEditor();
    editor.setPlanet(planet());
    // Nothing to show (the first room refused, or Cancel before any room was shown): the editor
    // does not open empty.
    if (!editor.LoadRoom(toQString(roomOfGroup(group))) && editor.shownRoom().isEmpty()) return;
    {
        // The room editor shows its own changes; this window reads them all when it is back.
        const Busy own(ownChange_);
        runDialog(editor);
    }
    const std::string last = toBytes(editor.shownRoom());
    state_.reread(messages());
    switchDirection(state_.direction(), last.empty() ? group : last, true);
}

void frmMessages::startWizard() {
    if (editing_) cancelEditing(false);
    state_.markForReload();
    {
        const Busy own(ownChange_);
        runAdventureWizard(this, session_, planet(), [this](QWidget* over, const QString& current) {
            return chooseFlagOver(over, current);
        });
    }
    // Finish switches the planet's custom messages on.
    {
        const QSignalBlocker blocker(chkCustom);
        chkCustom->setChecked(session_.store().GetGeneralFlag(kMessagesFlag, planet()) == 1);
    }
    windowActivated();
}

}  // namespace orr::ui
