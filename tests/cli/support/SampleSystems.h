#pragma once
// Small hand-made descriptors for the command-line tests, with the exact files the editor's
// operations make of them.

#include <QByteArray>

namespace orr::clitest {

// Vega: star type 0, three planets at 400, 430, 460; PlanetPics YNN, Messages NYN; a star
// description; names for planets 1 and 3; sections [1] and [3].
QByteArray vegaDescriptor();

// A system with `count` planets 30 units apart from 400 on, all flags N, no names.
QByteArray plainDescriptor(const char* displayName, int count);

}  // namespace orr::clitest
