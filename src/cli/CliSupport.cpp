#include "CliSupport.h"

#include <iostream>
#include <system_error>

#include "Command.h"
#include "text/Cp1252.h"
#include "text/Text.h"

namespace orr::cli {

namespace {

std::string planetsPhrase(int count) {
    if (count == 0) return "it has no planets";
    if (count == 1) return "it has 1 planet";
    return "it has " + std::to_string(count) + " planets";
}

}  // namespace

QString argumentFromRaw(std::string_view raw) {
    if (text::isValidUtf8(raw))
        return QString::fromUtf8(raw.data(), static_cast<qsizetype>(raw.size()));
    return textOf(raw);
}

std::string bytesOf(const QString& argument) {
    return text::utf8ToCp1252(argument.toUtf8().toStdString());
}

std::string storableBytesOf(const QString& argument, const std::string& what) {
    return storableBytes(argument.toUtf8().toStdString(), what);
}

std::string storableBytes(const std::string& utf8, const std::string& what) {
    text::Cp1252Conversion converted = text::utf8ToCp1252Strict(utf8);
    if (!converted.storable())
        throw CliError(what + ": " + text::unstorableMessage(converted.unstorable));
    return std::move(converted.bytes);
}

QString textOf(std::string_view cp1252) {
    return QString::fromStdString(text::cp1252ToUtf8(cp1252));
}

std::string inQuotes(const std::string& what) {
    return "'" + what + "'";
}

int numberArgument(const QString& argument, int min, int max, const std::string& what) {
    long long value = 0;
    if (!text::parseInteger(bytesOf(argument), min, max, value)) {
        throw CliError(what + " must be a whole number from " + std::to_string(min) + " to " +
                       std::to_string(max) + ", not " + inQuotes(bytesOf(argument)) + ".");
    }
    return static_cast<int>(value);
}

void requireSingleLine(const std::string& text, const std::string& what) {
    if (text.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos)
        throw CliError(what + " cannot hold a line break or a NUL character.");
}

std::string existingSystem(const SystemStore& store, const QString& argument) {
    const std::string name = bytesOf(argument);
    const auto unknown = [&] {
        return CliError("There is no system named " + inQuotes(name) + ".");
    };
    // Names never reach outside the descriptor folder.
    if (name.empty() || name.find_first_of(std::string_view("/\\\0", 3)) != std::string::npos ||
        name == "." || name == "..")
        throw unknown();
    const fs::path path = store.descriptorPath(name, ".orb");
    std::error_code error;
    if (!fs::is_regular_file(path, error)) throw unknown();
    const std::string file = path.filename().string();
    return file.substr(0, file.size() - 4);  // as spelled on disk, less ".orb"
}

SystemStore openSavedSystem(const GameFolder& folder, const QString& argument) {
    SystemStore store(folder);
    const std::string found = existingSystem(store, argument);
    store.record().Name = found;
    store.LoadSystem(found);
    return store;
}

int savedPlanetArgument(const SystemStore& store, const QString& argument) {
    const int planet = numberArgument(argument, 1, kMaxPlanets, "A planet number");
    const int count = store.record().PlanetCount;
    if (planet > count) {
        throw CliError("There is no planet " + std::to_string(planet) + " in " +
                       inQuotes(store.record().Name) + ": " + planetsPhrase(count) + ".");
    }
    return planet;
}

void requireNoWorkingCopy(const SystemStore& store, const std::string& name) {
    std::error_code error;
    const fs::path workingCopy = store.descriptorPath(name, ".edt");
    if (fs::exists(workingCopy, error)) {
        throw CliError("The system " + inQuotes(name) + " has a working copy (" +
                       workingCopy.filename().string() +
                       "): it is open in the editor, or a backup waits. Open it in Orrerion "
                       "to finish or discard it first.");
    }
}

SystemChange::SystemChange(const GameFolder& folder, const QString& argument, PictureCodec* codec)
    : session_(folder) {
    session_.setPictureCodec(codec);
    const std::string name = existingSystem(session_.store(), argument);
    requireNoWorkingCopy(session_.store(), name);
    LoadResult loaded;
    // No backup exists (checked above), so the question is never asked.
    if (!session_.open(
            name, [] { return false; }, &loaded)) {
        throw CliError(session_.lastError().empty()
                           ? "The system " + inQuotes(name) + " could not be opened."
                           : session_.lastError());
    }
    if (!loaded.warning.empty()) {
        session_.discard();
        throw CliError(loaded.warning + " Nothing was changed.");
    }
}

SystemChange::~SystemChange() {
    if (!committed_ && session_.isOpen()) session_.discard();
}

int SystemChange::planetArgument(const QString& argument, int min) const {
    const int count = session_.record().PlanetCount;
    long long value = 0;
    if (!text::parseInteger(bytesOf(argument), -1000000, 1000000, value))
        throw CliError(inQuotes(bytesOf(argument)) + " is not a planet number.");
    if (value < min || value > count) {
        throw CliError("There is no planet " + std::to_string(value) + " in " +
                       inQuotes(session_.name()) + ": " + planetsPhrase(count) + ".");
    }
    return static_cast<int>(value);
}

void SystemChange::require(bool ok, const std::string& fallback) const {
    if (!ok) throw CliError(session_.lastError().empty() ? fallback : session_.lastError());
}

void SystemChange::commit() {
    const std::string name = session_.name();
    require(session_.commit(), "The system " + inQuotes(name) + " could not be saved.");
    committed_ = true;
    // Saved; a working copy that could not be deleted is reported but changes nothing.
    if (!session_.lastWarning().empty())
        std::cerr << "orrerion-cli: warning: " << session_.lastWarning() << '\n';
}

}  // namespace orr::cli
