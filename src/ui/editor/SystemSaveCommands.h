#pragma once
// The main window's commands that write or remove whole systems: Save, Save As, Delete and
// Clear Planets, with their questions. The session does the work; this asks and reports.

#include <QObject>
#include <optional>
#include <string>

namespace orr {
class EditSession;
}

namespace orr::ui {

class SystemLifecycle;
class SystemListBox;

class SystemSaveCommands : public QObject {
    Q_OBJECT
  public:
    SystemSaveCommands(QWidget& window, EditSession& session, SystemListBox& list,
                       SystemLifecycle& lifecycle);

    bool save();
    void saveAs();
    void deleteSystem();
    void clearPlanets();

  signals:
    void statusMessage(const QString& text);

  private:
    std::optional<std::string> askSaveAsName();

    QWidget& window_;
    EditSession& session_;
    SystemListBox& list_;
    SystemLifecycle& lifecycle_;
};

}  // namespace orr::ui
