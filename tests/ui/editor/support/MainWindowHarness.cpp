#include "MainWindowHarness.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QMenu>
#include <QMouseEvent>

#include "editor/StarView.h"
#include "editor/SystemCanvas.h"
#include "editor/SystemListBox.h"
#include "platform/QtText.h"

namespace orr::test {

MainWindowHarness::MainWindowHarness() {
    game.writeAliens({"Klingar", "Vossk"});
}

MainWindowHarness::~MainWindowHarness() {
    window_.reset();
    ui::setDialogRunner(previousDialogs_);
    ui::setMenuRunner(previousMenus_);
}

SystemRecord MainWindowHarness::spacedSystem(const std::string& name, int planets) {
    SystemRecord record = TempGameFolder::systemRecord(name, planets);
    for (int n = 1; n <= planets; ++n)
        record.planet(n).Position = static_cast<std::int16_t>(400 + 300 * (n - 1));
    return record;
}

bool MainWindowHarness::start() {
    window_ = std::make_unique<ui::frmSSEdit>(game.folder());
    if (!window_->startUp()) return false;
    previousMenus_ = ui::setMenuRunner([this](QMenu& menu, const QPoint&) { recordMenu(&menu); });
    previousDialogs_ = ui::setDialogRunner([this](QDialog& dialog) {
        ++dialogsRun_;
        if (fill_) fill_(dialog);
    });
    window_->resize(900, 760);
    window_->show();
    QCoreApplication::processEvents();
    return true;
}

void MainWindowHarness::choose(const std::string& name) {
    auto* list = find<ui::SystemListBox>("cboSystems");
    const int index = list->findEntry(name);
    list->setCurrentIndex(index);
    emit list->activated(index);
}

int MainWindowHarness::indexOf(const std::string& name) const {
    return find<ui::SystemListBox>("cboSystems")->findEntry(name);
}

QString MainWindowHarness::selected() const {
    return find<ui::SystemListBox>("cboSystems")->currentText();
}

QAction* MainWindowHarness::action(const char* name) const {
    return window_->findChild<QAction*>(QString::fromLatin1(name));
}

namespace {

QAction* findEntry(QMenu* menu, const QString& name, int data) {
    for (QAction* entry : menu->findChildren<QAction*>(name))
        if (data < 0 || entry->data().toInt() == data) return entry;
    return nullptr;
}

}  // namespace

bool MainWindowHarness::wasChecked(const char* entry, int data) const {
    return checkedAtPopup_.value(QString::fromLatin1(entry) + QString::number(data), false);
}

void MainWindowHarness::recordMenu(QMenu* menu) {
    enabledAtPopup_.clear();
    checkedAtPopup_.clear();
    for (QAction* entry : menu->findChildren<QAction*>()) {
        enabledAtPopup_[entry->objectName()] = entry->isEnabled();
        const int data = entry->data().isValid() ? entry->data().toInt() : -1;
        checkedAtPopup_[entry->objectName() + QString::number(data)] = entry->isChecked();
    }
    for (QMenu* sub : menu->findChildren<QMenu*>())
        enabledAtPopup_[sub->objectName()] = sub->isEnabled();
    const QString wanted = menu->property("harnessPick").toString();
    const int data = menu->property("harnessData").toInt();
    if (wanted.isEmpty()) return;
    if (QAction* entry = findEntry(menu, wanted, data)) entry->trigger();
}

void MainWindowHarness::pickPlanetMenu(int planet, const char* entry, int data) {
    QMenu* menu = find<QMenu>("mnuPopup");
    menu->setProperty("harnessPick", entry ? QString::fromLatin1(entry) : QString());
    menu->setProperty("harnessData", data);
    mouse(QEvent::MouseButtonPress, planetCentre(planet), Qt::RightButton);
    mouse(QEvent::MouseButtonRelease, planetCentre(planet), Qt::RightButton);
}

void MainWindowHarness::pickStarMenu(const char* entry, int data) {
    QMenu* menu = find<QMenu>("mnuPopupStar");
    menu->setProperty("harnessPick", entry ? QString::fromLatin1(entry) : QString());
    menu->setProperty("harnessData", data);
    auto* star = find<ui::StarView>("picStar");
    const QPointF at(star->width() / 2.0, star->height() / 2.0);
    QMouseEvent press(QEvent::MouseButtonPress, at, star->mapToGlobal(at), Qt::RightButton,
                      Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(star, &press);
}

void MainWindowHarness::onDialog(std::function<void(QDialog&)> fill) {
    fill_ = std::move(fill);
}

void MainWindowHarness::mouse(QEvent::Type type, OrbitGeometry::Point units,
                              Qt::MouseButton button) {
    auto* canvas = find<ui::SystemCanvas>("picSolarSystem");
    const QPointF at = canvas->toPixels(units);
    Qt::MouseButtons held = button;
    if (type == QEvent::MouseButtonRelease) held = Qt::NoButton;
    if (type == QEvent::MouseMove && canvas->draggedPlanet() != 0) held = Qt::LeftButton;
    QMouseEvent event(type, at, canvas->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(canvas, &event);
}

OrbitGeometry::Point MainWindowHarness::planetCentre(int planet) {
    return OrbitGeometry::planetCentre(record(), planet);
}

std::string MainWindowHarness::descriptor(const std::string& name, const std::string& extension) {
    return game.read("ORBDescriptor/" + name + extension);
}

}  // namespace orr::test
