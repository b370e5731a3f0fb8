#pragma once
// The user's preferences: the per-user settings store of the application "Orrerion", group
// "Options". Values are kept as texts, as the game's tools always stored them; yes/no values as
// "-1" and "0".

#include <QString>

namespace orr::ui {

class Settings {
  public:
    static inline const QString kDisplayAsteroids = QStringLiteral("Display Asteroids");
    static inline const QString kShowAbout = QStringLiteral("Show About");
    static inline const QString kPaintProgram = QStringLiteral("Paint Program");
    static inline const QString kPaintOptions = QStringLiteral("Paint Options");
    static inline const QString kZipProgram = QStringLiteral("Zip Program");
    static inline const QString kZipOptions = QStringLiteral("Zip Options");

    static QString defaultPaintProgram();  // C:\Program Files\Accessories\MsPaint.exe
    static QString defaultPaintOptions();  // "%1"
    static QString defaultZipProgram();    // C:\Program Files\WinZip\WinZip32.exe
    static QString defaultZipOptions();    // -min -a "%1.zip" "%1"

    static bool displayAsteroids();
    static void setDisplayAsteroids(bool on);
    static bool showAbout();
    static void setShowAbout(bool on);
    static QString paintProgram();
    static void setPaintProgram(const QString& program);
    static QString paintOptions();
    static void setPaintOptions(const QString& options);
    static QString zipProgram();
    static void setZipProgram(const QString& program);
    static QString zipOptions();
    static void setZipOptions(const QString& options);

    // Any key of the group; `fallback` when it is not stored.
    static QString text(const QString& key, const QString& fallback);
    static void setText(const QString& key, const QString& value);
    // A yes/no key: "-1" or any other non-zero number, or "true", is yes; "0" or "false" is no;
    // anything else (or nothing) gives `fallback`.
    static bool flag(const QString& key, bool fallback);
    static void setFlag(const QString& key, bool on);
};

}  // namespace orr::ui
