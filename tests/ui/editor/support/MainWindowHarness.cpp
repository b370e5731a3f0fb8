#include "MainWindowHarness.h"

#include <QtTest>

#include "editor/StarView.h"
#include "editor/SystemCanvas.h"
#include "editor/SystemListBox.h"

namespace orr::test {

MainWindowHarness::~MainWindowHarness() {
    window_.reset();
    ui::setDialogRunner(previousDialogs_);
    ui::setMenuRunner(previousMenus_);
    QString unexpected;
    for (const auto& asked : prompts.asked())
        if (asked.unexpected) unexpected += QStringLiteral(" \"") + asked.text + QLatin1Char('"');
    QVERIFY2(unexpected.isEmpty(), qPrintable(QStringLiteral("unexpected:") + unexpected));
    QVERIFY2(prompts.unusedAnswerCount() == 0, "an answer was queued for a question never asked");
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
    window_->activateWindow();
    return QTest::qWaitForWindowActive(window_.get());
}

bool MainWindowHarness::open(const SystemRecord& record, std::string_view sections) {
    game.writeDescriptor(record, sections);
    if (!start()) return false;
    choose(record.Name);
    return true;
}

QStringList MainWindowHarness::texts(const QWidget* box) {
    QStringList found;
    if (auto* combo = qobject_cast<const QComboBox*>(box))
        for (int i = 0; i < combo->count(); ++i) found << combo->itemText(i);
    if (auto* list = qobject_cast<const QListWidget*>(box))
        for (int i = 0; i < list->count(); ++i) found << list->item(i)->text();
    return found;
}

QString MainWindowHarness::lastQuestion() const {
    if (prompts.asked().empty()) return {};
    const auto& asked = prompts.asked().back();
    const QString shown = asked.caption + QStringLiteral(": ") + asked.text + QStringLiteral(" [");
    if (asked.kind == ui::ScriptedPrompts::Kind::Input) return shown + asked.defaultText + ']';
    static const char* const buttons[] = {"Ok", "OkCancel", "YesNo", "YesNoCancel"};
    static const char* const icons[] = {"", " Information", " Question", " Exclamation",
                                        " Critical"};
    return shown + buttons[static_cast<int>(asked.buttons)] + icons[static_cast<int>(asked.icon)] +
           (asked.defaultButton == ui::PromptAnswer::No ? QStringLiteral(", default No")
                                                        : QString()) +
           ']';
}

void MainWindowHarness::choose(const std::string& name) {
    auto* list = find<ui::SystemListBox>("cboSystems");
    const int index = list->findEntry(name);
    list->setCurrentIndex(index);
    emit list->activated(index);
}

void MainWindowHarness::press(const QKeySequence& keys) {
    QWidget* target = QApplication::focusWidget();
    QTest::keySequence(target ? target : window_.get(), keys);
}

namespace {

QAction* findEntry(QMenu* menu, const QString& name, int data) {
    for (QAction* entry : menu->findChildren<QAction*>(name))
        if (data < 0 || entry->data().toInt() == data) return entry;
    return nullptr;
}

}  // namespace

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
    if (whileMenuOpen_) std::exchange(whileMenuOpen_, {})();
    const QString wanted = menu->property("harnessPick").toString();
    if (wanted.isEmpty()) return;
    if (QAction* entry = findEntry(menu, wanted, menu->property("harnessData").toInt()))
        entry->trigger();
}

void MainWindowHarness::arm(const char* name, const char* entry, int data) {
    QMenu* menu = find<QMenu>(name);
    menu->setProperty("harnessPick", entry ? QString::fromLatin1(entry) : QString());
    menu->setProperty("harnessData", data);
}

void MainWindowHarness::pickPlanetMenu(int planet, const char* entry, int data) {
    arm("mnuPopup", entry, data);
    mouse(QEvent::MouseButtonPress, planetCentre(planet), Qt::RightButton);
    mouse(QEvent::MouseButtonRelease, planetCentre(planet), Qt::RightButton);
}

void MainWindowHarness::pickStarMenu(const char* entry, int data) {
    arm("mnuPopupStar", entry, data);
    QTest::mouseClick(find<ui::StarView>("picStar"), Qt::RightButton);
}

void MainWindowHarness::mouse(QEvent::Type type, OrbitGeometry::Point units,
                              Qt::MouseButton button) {
    ui::SystemCanvas* target = canvas();
    const QPointF at = target->toPixels(units);
    Qt::MouseButtons held = button;
    if (type == QEvent::MouseButtonRelease) held = Qt::NoButton;
    if (type == QEvent::MouseMove && target->draggedPlanet() != 0) held = Qt::LeftButton;
    // The pointer is where the event happens, for whatever asks for it later.
    QCursor::setPos(target->mapToGlobal(at.toPoint()));
    QMouseEvent event(type, at, target->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

}  // namespace orr::test
