#include "MessageEditorFixture.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QtTest>
#include <fstream>
#include <iterator>

#include "platform/QtText.h"
#include "session/SystemEdits.h"

namespace orr::test {

namespace fs = std::filesystem;

namespace {

void writeFile(const fs::path& file, std::string_view bytes) {
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string readFile(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

SystemRecord nova() {
    SystemRecord record;
    record.Name = "Nova";
    record.setDisplayName("Nova");
    record.PlanetCount = 3;
    for (int n = 1; n <= 3; ++n) {
        record.planet(n).Position = static_cast<std::int16_t>(400 + 30 * (n - 1));
        record.planet(n).Size = 2;
        record.planet(n).PlanetClass = 1;
    }
    return record;
}

}  // namespace

std::string section(int planet, std::initializer_list<std::string_view> lines) {
    std::string text = "[" + std::to_string(planet) + "]\r\n";
    for (std::string_view line : lines) text += std::string(line) + "\r\n";
    return text;
}

MessageEditorFixture::MessageEditorFixture(std::string_view sections, SpecialList special)
    : session(game.folder()) {
    const fs::path folder = root();
    writeFile(folder / "voidrunner.exe", "MZ");
    fs::create_directories(folder / "PICTURES");
    writeFile(folder / "ORBDescriptor" / "Nova.orb",
              newDescriptorText(nova()) + std::string(sections));
    if (special == SpecialList::InGameFolder) {
        fs::copy_file(fs::path(ORRERION_SOURCE_DIR) / "data" / "SPECIAL.LST",
                      folder / "SPECIAL.LST");
    }
    session.InitTables();
    LoadResult loaded;
    ok = session.open("Nova", [] { return false; }, &loaded) && loaded.blockFound;
}

MessageEditorFixture::~MessageEditorFixture() = default;

fs::path MessageEditorFixture::root() const {
    return game.root();
}

ui::frmMessages& MessageEditorFixture::window() {
    if (!window_) {
        window_ = std::make_unique<ui::frmMessages>(session);
        // The program's own copy is never the one beside the test program.
        window_->setProgramSpecialList(root() / "program" / "SPECIAL.LST");
        window_->setDialogRunner([this](QDialog& dialog) {
            ++dialogsRun_;
            if (answers_.empty()) {
                dialog.reject();
                return;
            }
            auto answer = std::move(answers_.front());
            answers_.pop_front();
            answer(dialog);
        });
    }
    return *window_;
}

ui::frmMessages& MessageEditorFixture::open(int planet, bool customMessages) {
    ui::frmMessages& editor = window();
    editor.prepareForPlanet(planet, ui::toQString(planetName(session.store(), planet)),
                            customMessages);
    editor.show();
    return editor;
}

std::string MessageEditorFixture::key(int planet, const std::string& key) {
    session.recheck();
    return session.store().GetPlanetKey(planet, key, true);
}

std::string MessageEditorFixture::descriptor() const {
    return readFile(root() / "ORBDescriptor" / "Nova.edt");
}

void MessageEditorFixture::click(const char* name) {
    auto* button = find<QAbstractButton>(name);
    if (!button) QFAIL(qPrintable(QStringLiteral("no button %1").arg(name)));
    button->click();
}

bool MessageEditorFixture::enabled(const char* name) {
    auto* widget = find<QWidget>(name);
    return widget && widget->isEnabled();
}

bool MessageEditorFixture::visible(const char* name) {
    auto* widget = find<QWidget>(name);
    return widget && widget->isVisible();
}

void MessageEditorFixture::chooseDirection(int index) {
    click(qPrintable(QStringLiteral("optDir%1").arg(index)));
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

namespace {

QStringList texts(const QListWidget* list) {
    QStringList all;
    for (int i = 0; i < list->count(); ++i) all << list->item(i)->text();
    return all;
}

}  // namespace

QStringList MessageEditorFixture::entries() {
    return texts(find<QListWidget>("lstMessages"));
}

QStringList MessageEditorFixture::items(const char* comboName) {
    QStringList texts;
    auto* combo = find<QComboBox>(comboName);
    for (int i = 0; i < combo->count(); ++i) texts << combo->itemText(i);
    return texts;
}

void MessageEditorFixture::type(const QString& text) {
    find<QPlainTextEdit>("txtMessage")->setPlainText(text);
}

void MessageEditorFixture::attach(const QString& code) {
    auto* combo = find<QComboBox>("cboSpecial");
    int index = -1;
    for (int i = 0; i < combo->count() && index < 0; ++i)
        if (combo->itemText(i).startsWith(code + QStringLiteral(" - "))) index = i;
    if (index < 0) QFAIL(qPrintable(QStringLiteral("no entry for %1").arg(code)));
    combo->setCurrentIndex(index);
    click("cmdSpAdd");
}

QStringList MessageEditorFixture::attached() {
    return texts(find<QListWidget>("lstSpecial"));
}

void MessageEditorFixture::onDialog(std::function<void(QDialog&)> answer) {
    answers_.push_back(std::move(answer));
}

}  // namespace orr::test
