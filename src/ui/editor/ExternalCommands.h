#pragma once
// The main window's commands that reach beyond the descriptor: the star's picture (painted in the
// user's paint program or chosen from a file), the planet pictures window, Make Package (a folder
// for the game's installer, zipped) and Test in Voidrunner (the game started at the system).
// Each asks its questions here; the rules are in the core (external/, session/SystemEdits.h).

#include <QImage>
#include <QObject>
#include <filesystem>

namespace orr {
class EditSession;
}

namespace orr::ui {

class SystemSaveCommands;

class ExternalCommands : public QObject {
    Q_OBJECT
  public:
    ExternalCommands(QWidget& window, EditSession& session, SystemSaveCommands& saving);

    // `shown` is the star's picture as the canvas shows it (its own or its type's).
    void starPicture(const QImage& shown);
    void showPictures(int planet);
    void makePackage();
    void testInVoidrunner();

  signals:
    void statusMessage(const QString& text);

  private:
    void paintStar(const QImage& shown);
    // Zips the package folder; says why it stayed unzipped (empty when it was zipped).
    QString zipPackage(const std::filesystem::path& folder);

    QWidget& window_;
    EditSession& session_;
    SystemSaveCommands& saving_;
};

}  // namespace orr::ui
