#include "rooms/AdventureWizard.h"

#include <QSpinBox>

#include "platform/Modal.h"
#include "platform/QtText.h"
#include "rooms/frmAdvancedRoom.h"
#include "rooms/frmWizard.h"
#include "session/RoomEdits.h"

namespace orr::ui {

bool runAdventureWizard(QWidget* parent, EditSession& session, int planet,
                        const FlagChooser& chooseFlag) {
    frmWizard wizard(parent);
    frmAdvancedRoom advanced(session, planet, chooseFlag, &wizard);
    advanced.Load();
    wizard.SetAdvanced(&advanced);
    WizardOwner owner;
    owner.Validate = [](frmWizard& shown) {
        for (int axis = 0; axis < 2; ++axis) {
            QSpinBox* box = shown.sizeBox(axis);
            box->setValue(std::stoi(validatedGridSize(toBytes(box->text()))));
        }
        return true;
    };
    owner.Finish = [&](frmWizard& shown) {
        return report(&shown, finishGridWizard(session, planet, shown.choices()),
                      session.lastError());
    };
    return wizard.Go(owner);
}

}  // namespace orr::ui
