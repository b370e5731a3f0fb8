#include "editor/SystemListBox.h"

#include "platform/QtText.h"
#include "text/Text.h"

namespace orr::ui {

SystemListBox::SystemListBox(QWidget* parent) : QComboBox(parent) {
    setObjectName(QStringLiteral("cboSystems"));
    setMinimumContentsLength(20);
    connect(this, &QComboBox::activated, this, [this](int index) {
        if (!quiet_) emit chosen(index);
    });
}

void SystemListBox::fill(const std::vector<std::string>& names) {
    quiet_ = true;
    clear();
    for (const std::string& name : names) addItem(toQString(name), QByteArray::fromStdString(name));
    setCurrentIndex(-1);
    quiet_ = false;
}

std::string SystemListBox::entryName(int index) const {
    if (index < 0 || index >= count()) return {};
    return itemData(index).toByteArray().toStdString();
}

int SystemListBox::findEntry(const std::string& name) const {
    for (int i = 0; i < count(); ++i)
        if (entryName(i) == name) return i;
    return -1;
}

int SystemListBox::findEntryIgnoringCase(const std::string& name) const {
    const int exact = findEntry(name);
    if (exact >= 0) return exact;
    for (int i = 0; i < count(); ++i)
        if (text::equalsIgnoreCase(entryName(i), name)) return i;
    return -1;
}

int SystemListBox::addEntry(const std::string& name) {
    addItem(toQString(name), QByteArray::fromStdString(name));
    return count() - 1;
}

void SystemListBox::respellEntry(int index, const std::string& name) {
    setItemText(index, toQString(name));
    setItemData(index, QByteArray::fromStdString(name));
}

void SystemListBox::removeEntry(int index) {
    quiet_ = true;
    removeItem(index);
    quiet_ = false;
}

void SystemListBox::selectQuietly(int index) {
    quiet_ = true;
    setCurrentIndex(index);
    quiet_ = false;
}

}  // namespace orr::ui
