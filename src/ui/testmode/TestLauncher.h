#pragma once
// Starting a test of a planet of the open system, as the message editor's "&Test" does: the
// upgrade levels are reset, the planet's flag list is read, and "Test Options" opens modally on
// a copy of the planet's record with the run's one ship. The test only reads the system.

#include "session/EditSession.h"

class QWidget;

namespace orr::ui {

class frmSSOptions;

// Opens "Test Options" for `planet` and returns when it closes.
void startTest(QWidget* parent, EditSession& session, int planet);

// The options window startTest runs, made but not run (for tests and screenshots).
frmSSOptions* makeTestOptions(QWidget* parent, EditSession& session, int planet);

}  // namespace orr::ui
