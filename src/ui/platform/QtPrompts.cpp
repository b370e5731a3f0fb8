#include "platform/QtPrompts.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QRegularExpression>
#include <QStringList>

namespace orr::ui {

namespace {

QMessageBox::StandardButtons standardButtons(PromptButtons buttons) {
    switch (buttons) {
        case PromptButtons::Ok:
            return QMessageBox::Ok;
        case PromptButtons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case PromptButtons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case PromptButtons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton standardButton(PromptAnswer answer) {
    switch (answer) {
        case PromptAnswer::Ok:
            return QMessageBox::Ok;
        case PromptAnswer::Cancel:
            return QMessageBox::Cancel;
        case PromptAnswer::Yes:
            return QMessageBox::Yes;
        case PromptAnswer::No:
            return QMessageBox::No;
    }
    return QMessageBox::NoButton;
}

QMessageBox::Icon messageIcon(PromptIcon icon) {
    switch (icon) {
        case PromptIcon::None:
            return QMessageBox::NoIcon;
        case PromptIcon::Information:
            return QMessageBox::Information;
        case PromptIcon::Question:
            return QMessageBox::Question;
        case PromptIcon::Exclamation:
            return QMessageBox::Warning;
        case PromptIcon::Critical:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

PromptAnswer QtPrompts::message(QWidget* parent, const MessagePrompt& prompt) {
    QMessageBox box(messageIcon(prompt.icon), prompt.caption, prompt.text,
                    standardButtons(prompt.buttons), parent);
    // Texts from the game's files ("Hello <b>") are shown as they are written.
    box.setTextFormat(Qt::PlainText);
    if (prompt.defaultButton) box.setDefaultButton(standardButton(*prompt.defaultButton));
    switch (box.exec()) {
        case QMessageBox::Ok:
            return PromptAnswer::Ok;
        case QMessageBox::Cancel:
            return PromptAnswer::Cancel;
        case QMessageBox::Yes:
            return PromptAnswer::Yes;
        case QMessageBox::No:
            return PromptAnswer::No;
        default:
            return escapeAnswer(prompt.buttons);
    }
}

std::optional<QString> QtPrompts::input(QWidget* parent, const InputPrompt& prompt) {
    bool ok = false;
    QString text = QInputDialog::getText(parent, prompt.caption, prompt.text, QLineEdit::Normal,
                                         prompt.defaultText, &ok);
    if (!ok) return std::nullopt;
    return text;
}

QString QtPrompts::openFile(QWidget* parent, const FilePrompt& prompt) {
    // Qt's own dialog matches the patterns ignoring case, so "*.BMP" also lists "planet.bmp"
    // as it does on Windows; native dialogs of some desktops would not.
    return QFileDialog::getOpenFileName(parent, prompt.title, prompt.folder,
                                        qtFileFilter(prompt.filter), nullptr,
                                        QFileDialog::DontUseNativeDialog);
}

QString QtPrompts::saveFile(QWidget* parent, const FilePrompt& prompt) {
    return QFileDialog::getSaveFileName(parent, prompt.title, prompt.folder,
                                        qtFileFilter(prompt.filter), nullptr,
                                        QFileDialog::DontUseNativeDialog);
}

QString QtPrompts::chooseFolder(QWidget* parent, const QString& title) {
    return QFileDialog::getExistingDirectory(parent, title, QString(), QFileDialog::ShowDirsOnly);
}

PromptAnswer QtPrompts::escapeAnswer(PromptButtons buttons) {
    switch (buttons) {
        case PromptButtons::Ok:
            return PromptAnswer::Ok;
        case PromptButtons::YesNo:
            return PromptAnswer::No;
        case PromptButtons::OkCancel:
        case PromptButtons::YesNoCancel:
            return PromptAnswer::Cancel;
    }
    return PromptAnswer::Cancel;
}

QString QtPrompts::qtFileFilter(const QString& classic) {
    if (classic.trimmed().isEmpty()) return {};
    const QStringList parts = classic.split(QLatin1Char('|'));
    static const QRegularExpression trailingPatterns(QStringLiteral("\\s*\\([^()]*\\)\\s*$"));
    QStringList filters;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        QString name = parts[i].trimmed();
        const QString patternText = i + 1 < parts.size() ? parts[i + 1] : parts[i];
        QStringList patterns;
        for (const QString& raw : patternText.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            const QString pattern = raw.trimmed();
            if (pattern.isEmpty()) continue;
            patterns << (pattern == QLatin1String("*.*") ? QStringLiteral("*") : pattern);
        }
        if (patterns.isEmpty()) continue;
        name.remove(trailingPatterns);
        if (name.isEmpty()) name = patterns.join(QLatin1Char(' '));
        filters << name + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
    }
    return filters.join(QStringLiteral(";;"));
}

}  // namespace orr::ui
