#pragma once
// The adventure grid wizard as the message editor starts it ("Adventure &Wizard"): frmWizard
// with the requirements dialog attached, sizes clamped to 2..10 when the first step is left
// (Validate), and on Finish the whole grid written as one step of the edit session.

#include "rooms/FlagChooser.h"
#include "session/EditSession.h"

class QWidget;

namespace orr::ui {

// Runs the wizard modally over `parent` for `planet`; true when it wrote a grid.
bool runAdventureWizard(QWidget* parent, EditSession& session, int planet,
                        const FlagChooser& chooseFlag);

}  // namespace orr::ui
