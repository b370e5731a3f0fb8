#include "CliSupport.h"

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

EditSession::EditSession(SystemStore& store, const std::string& name) : store_(store) {
    requireNoWorkingCopy(store_, name);
    store_.record().Name = name;
    try {
        // No backup exists (checked above), so the question is never asked.
        if (!store_.BeginEdit([] { return false; }))
            fail("The working copy of " + inQuotes(name) + " could not be made.");
        loaded_ = store_.LoadSystem(name);
        if (!loaded_.warning.empty()) {
            throw CliError("Nothing was changed. " + loaded_.warning +
                           " Open the system in the editor to repair it.");
        }
    } catch (...) {
        discard();
        throw;
    }
}

EditSession::~EditSession() {
    if (!committed_) discard();
}

void EditSession::requireBlock() const {
    if (!loaded_.blockFound) {
        throw CliError("The descriptor of " + inQuotes(store_.record().Name) +
                       " holds no system block, so its planets cannot be changed.");
    }
}

int EditSession::planetArgument(const QString& argument, int min) const {
    const int count = store_.record().PlanetCount;
    long long value = 0;
    if (!text::parseInteger(bytesOf(argument), -1000000, 1000000, value))
        throw CliError(inQuotes(bytesOf(argument)) + " is not a planet number.");
    if (value < min || value > count) {
        throw CliError("There is no planet " + std::to_string(value) + " in " +
                       inQuotes(store_.record().Name) + ": " + planetsPhrase(count) + ".");
    }
    return static_cast<int>(value);
}

void EditSession::fail(const std::string& fallback) const {
    throw CliError(store_.lastError().empty() ? fallback : store_.lastError());
}

void EditSession::commit() {
    const std::string name = store_.record().Name;
    if (!store_.SaveSystemBlock()) fail("The system " + inQuotes(name) + " could not be saved.");
    if (!store_.EndEdit(true)) fail("The system " + inQuotes(name) + " could not be saved.");
    committed_ = true;
    // The store deletes the working copy after a successful save; make sure of it.
    std::error_code error;
    fs::remove(store_.descriptorPath(name, ".edt"), error);
}

void EditSession::discard() noexcept {
    try {
        if (store_.IsEditing()) store_.EndEdit(false);
        std::error_code error;
        fs::remove(store_.descriptorPath(store_.record().Name, ".edt"), error);
    } catch (...) {
        // Discarding is the last resort after a failure; the failure is already being reported.
    }
}

}  // namespace orr::cli
