#pragma once
// The user's preferences: the per-user settings store of the application "Orrerion", group
// "Options". Values are kept as texts, as the game's tools always stored them; yes/no values as
// "-1" and "0".

#include <QString>

#include "external/ProgramSettings.h"

namespace orr::ui {

class Settings {
  public:
    static inline const QString kDisplayAsteroids = QStringLiteral("Display Asteroids");
    static inline const QString kShowAbout = QStringLiteral("Show About");
    static inline const QString kPaintProgram = QString::fromLatin1(programs::kPaintProgram);
    static inline const QString kPaintOptions = QString::fromLatin1(programs::kPaintOptions);
    static inline const QString kZipProgram = QString::fromLatin1(programs::kZipProgram);
    static inline const QString kZipOptions = QString::fromLatin1(programs::kZipOptions);
    static inline const QString kGameLauncher = QString::fromLatin1(programs::kGameLauncher);

    // The defaults of the external programs (see core/external/ProgramSettings.h): MsPaint on
    // Windows, else a paint program found in PATH; no zip program (the editor zips itself);
    // the game started under wine except on Windows.
    static QString defaultPaintProgram();
    static QString defaultPaintOptions();  // "%1"
    static QString defaultZipProgram();
    static QString defaultZipOptions();  // -min -a "%1.zip" "%1"
    static QString defaultGameLauncher();

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
    static QString gameLauncher();
    static void setGameLauncher(const QString& launcher);

    // Any key of the group; `fallback` when it is not stored.
    static QString text(const QString& key, const QString& fallback);
    static void setText(const QString& key, const QString& value);
    // A yes/no key: "-1" or any other non-zero number, or "true", is yes; "0" or "false" is no;
    // anything else (or nothing) gives `fallback`.
    static bool flag(const QString& key, bool fallback);
    static void setFlag(const QString& key, bool on);
};

}  // namespace orr::ui
