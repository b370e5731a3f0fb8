#include "testmode/TestLauncher.h"

#include <memory>

#include "platform/Modal.h"
#include "testmode/PlanetUnderTest.h"
#include "testmode/TestShip.h"
#include "testmode/frmSSOptions.h"

namespace orr::ui {

frmSSOptions* makeTestOptions(QWidget* parent, EditSession& session, int planet) {
    session.recheck();
    return new frmSSOptions(testShip(), testRandom(), PlanetUnderTest(session.store(), planet),
                            PlanetFlagItems(session.store(), planet), parent);
}

void startTest(QWidget* parent, EditSession& session, int planet) {
    const std::unique_ptr<frmSSOptions> options(makeTestOptions(parent, session, planet));
    runDialog(*options);
}

}  // namespace orr::ui
