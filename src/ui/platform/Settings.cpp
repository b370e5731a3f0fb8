#include "platform/Settings.h"

#include <QSettings>

namespace orr::ui {

namespace {

const QString kApplication = QStringLiteral("Orrerion");
const QString kGroup = QStringLiteral("Options");

QString fullKey(const QString& key) {
    return kGroup + QLatin1Char('/') + key;
}

}  // namespace

QString Settings::defaultPaintProgram() {
    return QString::fromStdString(programs::defaultPaintProgram());
}

QString Settings::defaultPaintOptions() {
    return QString::fromStdString(programs::defaultPaintOptions());
}

QString Settings::defaultZipProgram() {
    return QString::fromStdString(programs::defaultZipProgram());
}

QString Settings::defaultZipOptions() {
    return QString::fromStdString(programs::defaultZipOptions());
}

QString Settings::defaultGameLauncher() {
    return QString::fromStdString(programs::defaultGameLauncher());
}

QString Settings::text(const QString& key, const QString& fallback) {
    QSettings store(kApplication, kApplication);
    const QVariant value = store.value(fullKey(key));
    if (!value.isValid()) return fallback;
    // A hand-edited settings file may hold a text with commas unquoted, which the store reads
    // as a list: it is still the one text the user wrote.
    if (value.userType() == QMetaType::QStringList) {
        return value.toStringList().join(QStringLiteral(", "));
    }
    return value.toString();
}

void Settings::setText(const QString& key, const QString& value) {
    QSettings store(kApplication, kApplication);
    store.setValue(fullKey(key), value);
}

bool Settings::flag(const QString& key, bool fallback) {
    const QString value = text(key, QString()).trimmed();
    if (value.isEmpty()) return fallback;
    bool isNumber = false;
    const long long number = value.toLongLong(&isNumber);
    if (isNumber) return number != 0;
    if (value.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0) return true;
    if (value.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0) return false;
    return fallback;
}

void Settings::setFlag(const QString& key, bool on) {
    setText(key, on ? QStringLiteral("-1") : QStringLiteral("0"));
}

bool Settings::displayAsteroids() {
    return flag(kDisplayAsteroids, true);
}
void Settings::setDisplayAsteroids(bool on) {
    setFlag(kDisplayAsteroids, on);
}
bool Settings::showAbout() {
    return flag(kShowAbout, true);
}
void Settings::setShowAbout(bool on) {
    setFlag(kShowAbout, on);
}

QString Settings::paintProgram() {
    return text(kPaintProgram, defaultPaintProgram());
}
void Settings::setPaintProgram(const QString& program) {
    setText(kPaintProgram, program);
}
QString Settings::paintOptions() {
    return text(kPaintOptions, defaultPaintOptions());
}
void Settings::setPaintOptions(const QString& options) {
    setText(kPaintOptions, options);
}
QString Settings::zipProgram() {
    return text(kZipProgram, defaultZipProgram());
}
void Settings::setZipProgram(const QString& program) {
    setText(kZipProgram, program);
}
QString Settings::zipOptions() {
    return text(kZipOptions, defaultZipOptions());
}
void Settings::setZipOptions(const QString& options) {
    setText(kZipOptions, options);
}
QString Settings::gameLauncher() {
    return text(kGameLauncher, defaultGameLauncher());
}
void Settings::setGameLauncher(const QString& launcher) {
    setText(kGameLauncher, launcher);
}

}  // namespace orr::ui
