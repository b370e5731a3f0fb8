#pragma once
// A tiny animation made by the tests themselves: an MJPEG AVI (a RIFF file whose frames are
// JPEG pictures in "00dc" chunks), so no video tool is needed to make one.

#include <QByteArray>
#include <QSize>

namespace orr::test {

// `frames` frames of `size` pixels, each filled with another colour, at 10 frames a second.
QByteArray tinyAvi(int frames = 4, QSize size = QSize(32, 24));

}  // namespace orr::test
