#pragma once
// Where pictures come from: a file the user chooses ("Choose Picture"), or the user's paint
// program. A picture edited in the user's paint program ("Paint Program" with "Paint Options",
// every
// "%1" replaced by the picture's file): the picture is written to a scratch file in a new
// temporary folder, the program runs on it and the editor waits, and the file is read back when
// the program changed it. Used for the star picture and the planet pictures.

#include <QImage>
#include <QString>
#include <optional>

class QWidget;

namespace orr::ui {

// The picture as the paint program left it; nullopt when the program left the file unchanged,
// or (after telling the user why) when the program cannot be found or started or the file
// cannot be written or read. `scratchName` is the scratch file's name ("StarPic.bmp").
std::optional<QImage> paintInProgram(QWidget* parent, const QImage& picture,
                                     const QString& scratchName);

// The picture of a file the user chooses in the "Choose Picture" dialog; nullopt when the dialog
// was cancelled or (after telling the user why) the file is no picture that can be used.
std::optional<QImage> choosePicture(QWidget* parent);

}  // namespace orr::ui
