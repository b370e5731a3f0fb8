#include "MessageEditorFixture.h"

#include <QtTest>

#include "platform/QtText.h"
#include "session/SystemEdits.h"

namespace orr::test {

std::string section(int planet, std::initializer_list<std::string_view> lines) {
    return "[" + std::to_string(planet) + "]\r\n" + crlf(lines);
}

MessageEditorFixture::MessageEditorFixture(std::string_view sections) : session(game.folder()) {
    game.writeDescriptor(TempGameFolder::systemRecord("Nova", 3), sections);
    game.write("SPECIAL.LST", readBytes(fs::path(ORRERION_SOURCE_DIR) / "data/SPECIAL.LST"));
    session.InitTables();
    if (!session.open("Nova", [] { return false; }))
        QTest::qFail("Nova could not be opened", __FILE__, __LINE__);
    previousDialogs_ = ui::setDialogRunner([this](QDialog& dialog) {
        if (!answer(dialog)) dialog.reject();
    });
    previousMenus_ = ui::setMenuRunner([this](QMenu& menu, const QPoint&) { answer(menu); });
}

MessageEditorFixture::~MessageEditorFixture() {
    window_.reset();
    ui::setDialogRunner(std::move(previousDialogs_));
    ui::setMenuRunner(std::move(previousMenus_));
    const QString asked = prompts.messageTexts().join(QStringLiteral(" | "));
    QVERIFY2(prompts.unexpectedCount() + prompts.unusedAnswerCount() + unexpectedRuns_ +
                     static_cast<int>(answers_.size()) ==
                 0,
             qPrintable("unexpected or unused questions, dialogs or menus: " + asked));
}

bool MessageEditorFixture::answer(QWidget& widget) {
    if (answers_.empty()) {
        ++unexpectedRuns_;
        return false;
    }
    auto next = std::move(answers_.front());
    answers_.pop_front();
    next(widget);
    return true;
}

ui::frmMessages& MessageEditorFixture::window() {
    if (!window_) {
        window_ = std::make_unique<ui::frmMessages>(session);
        // The program's own copy is never the one beside the test program.
        window_->setProgramSpecialList(game.path("program/SPECIAL.LST"));
    }
    return *window_;
}

ui::frmMessages& MessageEditorFixture::open(int planet, bool customMessages) {
    ui::frmMessages& editor = window();
    editor.prepareForPlanet(planet, ui::toQString(planetName(session.store(), planet)),
                            customMessages);
    editor.show();
    editor.activateWindow();
    if (!QTest::qWaitForWindowActive(&editor))
        QTest::qFail("the editor did not become active", __FILE__, __LINE__);
    return editor;
}

std::string MessageEditorFixture::key(int planet, const std::string& key) {
    session.recheck();
    return session.store().GetPlanetKey(planet, key, true);
}

void MessageEditorFixture::click(const char* name) {
    auto* button = find<QAbstractButton>(name);
    if (!button) QFAIL(qPrintable(QStringLiteral("no button %1").arg(name)));
    button->click();
}

QString MessageEditorFixture::text(const char* name) {
    QWidget* widget = find<QWidget>(name);
    if (auto* label = qobject_cast<QLabel*>(widget)) return label->text();
    if (auto* line = qobject_cast<QLineEdit*>(widget)) return line->text();
    if (auto* box = qobject_cast<QPlainTextEdit*>(widget)) return box->toPlainText();
    if (auto* combo = qobject_cast<QComboBox*>(widget)) return combo->currentText();
    if (auto* frame = qobject_cast<QGroupBox*>(widget)) return frame->title();
    return QStringLiteral("<no text control %1>").arg(name);
}

QStringList MessageEditorFixture::items(const char* name) {
    QStringList texts;
    if (auto* combo = find<QComboBox>(name)) {
        for (int i = 0; i < combo->count(); ++i) texts << combo->itemText(i);
    } else if (auto* list = find<QListWidget>(name)) {
        for (int i = 0; i < list->count(); ++i) texts << list->item(i)->text();
    }
    return texts;
}

void MessageEditorFixture::typeGroup(const QString& text) {
    auto* combo = find<QComboBox>("cboGroup");
    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo->lineEdit(), text);
}

void MessageEditorFixture::select(int row) {
    auto* list = find<QListWidget>("lstMessages");
    QListWidgetItem* item = list->item(row);
    if (!item) QFAIL(qPrintable(QStringLiteral("no entry %1").arg(row)));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
}

int MessageEditorFixture::specialIndex(const QString& code) {
    return items("cboSpecial")
        .indexOf(QRegularExpression(QRegularExpression::escape(code + " - ") + ".*"));
}

void MessageEditorFixture::attach(const QString& code) {
    const int index = specialIndex(code);
    if (index < 0) QFAIL(qPrintable(QStringLiteral("no entry for %1").arg(code)));
    find<QComboBox>("cboSpecial")->setCurrentIndex(index);
    click("cmdSpAdd");
}

}  // namespace orr::test
