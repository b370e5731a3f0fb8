#pragma once
// The main window's list of the game folder's custom systems (cboSystems). Each entry carries the
// system's name as the game folder's bytes; the shown text is only its rendering. chosen() is
// emitted only for the user's choice, never for the changes the window makes itself.

#include <QComboBox>
#include <string>
#include <vector>

namespace orr::ui {

class SystemListBox : public QComboBox {
    Q_OBJECT
  public:
    explicit SystemListBox(QWidget* parent = nullptr);

    void fill(const std::vector<std::string>& names);
    // The system name of an entry; empty for an index outside the list.
    std::string entryName(int index) const;
    // The entry with exactly this name, -1 when none.
    int findEntry(const std::string& name) const;
    // The entry with this name, else one that differs only in letter case; -1 when none.
    int findEntryIgnoringCase(const std::string& name) const;

    // Changes that do not count as the user's choice.
    int addEntry(const std::string& name);  // returns its index
    void respellEntry(int index, const std::string& name);
    void removeEntry(int index);
    void selectQuietly(int index);

  signals:
    void chosen(int index);

  private:
    bool quiet_ = false;
};

}  // namespace orr::ui
