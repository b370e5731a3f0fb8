#include "session/SystemEdits.h"

#include "session/PictureStrip.h"
#include "store/PictureFiles.h"
#include "store/Tables.h"
#include "text/Text.h"

namespace orr {

namespace {

bool isDefaultAnswer(const std::string& answer) {
    const std::string word = text::toLower(text::trim(answer));
    return word.empty() || word == "default" || word == "none";
}

std::string starTypeName(int type) {
    return type >= 0 && type < static_cast<int>(Tables::StarTypeNames.size())
               ? Tables::StarTypeNames[static_cast<std::size_t>(type)]
               : std::string();
}

bool hasControlCharacter(const std::string& s) {
    for (char c : s) {
        if (static_cast<unsigned char>(c) < 32) return true;
    }
    return false;
}

// Which part of the system a key belongs to, for the notice of a raw key change.
ChangeNotice noticeForSection(const std::string& section) {
    const std::string name = text::trim(section);
    if (text::equalsIgnoreCase(name, "Names")) return {kNamesChanged};
    if (text::equalsIgnoreCase(name, "General")) return {kFlagsChanged};
    const long long planet = text::leadingValue(name);
    return {kPlanetKeysChanged,
            planet >= 1 && planet <= kMaxPlanets ? static_cast<int>(planet) : 0};
}

}  // namespace

std::string planetNameProblem(const std::string& name) {
    if (hasControlCharacter(name))
        return "A name cannot contain line breaks, tabs or other control characters.";
    if (name.size() > kMaxValueLength)
        return "A name can have at most " + std::to_string(kMaxValueLength) + " characters.";
    return {};
}

bool setPlanetName(EditSession& session, int n, const std::string& answer) {
    if (n != 0 && (n < 1 || n > session.record().PlanetCount))
        return session.fail("There is no planet " + std::to_string(n) + " in this system.");
    if (const std::string problem = planetNameProblem(answer); !problem.empty())
        return session.fail(problem);
    const bool restoreDefault =
        isDefaultAnswer(answer) || (n == 0 && answer == starTypeName(session.record().StarType));
    auto command = session.command(n == 0 ? "Describe Star" : "Rename Planet " + std::to_string(n),
                                   {kNamesChanged});
    return command.commit(command.store().SetName(n, restoreDefault ? std::string() : answer));
}

std::string planetName(const SystemStore& store, int n) {
    if (n != 0) return store.GetName(n, store.record().DisplayName);
    const std::string description = store.GetName(0, "");
    return description == kNotUsed ? starTypeName(store.record().StarType) : description;
}

std::string planetLabel(const SystemStore& store, int n) {
    if (n == 0) return planetName(store, 0);
    // Only a default name depends on the base it is built from.
    if (store.GetName(n, "XXX") != store.GetName(n, "YYY")) return "Planet " + std::to_string(n);
    return store.GetName(n, store.record().DisplayName);
}

bool setStarType(EditSession& session, int starType) {
    if (!session.requireSystemBlock()) return false;
    if (starType < 0 || starType >= static_cast<int>(Tables::StarTypeNames.size()))
        return session.fail("There is no star type " + std::to_string(starType) + ".");
    auto command = session.command("Change Star Type", {kStarChanged | kNamesChanged});
    command.record().StarType = static_cast<std::int16_t>(starType);
    return command.commit(command.store().SaveSystemBlock());
}

std::string displayNameProblem(const std::string& name) {
    if (name.find('"') != std::string::npos)
        return "A display name cannot contain the character '\"'.";
    if (hasControlCharacter(name))
        return "A display name cannot contain line breaks, tabs or other control characters.";
    return {};
}

bool setDisplayName(EditSession& session, const std::string& name) {
    if (!session.requireSystemBlock()) return false;
    if (const std::string problem = displayNameProblem(name); !problem.empty())
        return session.fail(problem);
    SystemRecord renamed = session.record();
    renamed.setDisplayName(name);
    if (renamed.DisplayName == session.record().DisplayName) return true;
    // Default planet names are built from the display name, so they change with it.
    auto command = session.command("Change Display Name", {kStarChanged | kNamesChanged});
    command.record().setDisplayName(name);
    return command.commit(command.store().SaveSystemBlock());
}

bool setPlanetPicture(EditSession& session, int n, PictureRef picture) {
    if (n < 1 || n > std::max<int>(session.record().PlanetCount, 1))
        return session.fail("There is no planet " + std::to_string(n) + " in this system.");
    auto command =
        session.command("Change Picture of Planet " + std::to_string(n), {kPicturesChanged});
    command.pictures().setPlanet(n, std::move(picture));
    return command.commit();
}

bool setStarPicture(EditSession& session, PictureRef picture) {
    if (picture && !isStarPictureSize(picture->width(), picture->height()))
        return session.fail(kStarPictureSizeMessage);
    auto command = session.command(picture ? "Change Star Picture" : "Remove Star Picture",
                                   {kPicturesChanged | kStarChanged});
    command.pictures().setStar(std::move(picture));
    return command.commit();
}

namespace {

bool requirePlanet(EditSession& session, int n) {
    if (n >= 1 && n <= session.record().PlanetCount) return true;
    return session.fail("There is no planet " + std::to_string(n) + " in this system.");
}

// Planet n's picture and its custom-pictures switch, and its animation gone if `dropAnimation`.
bool changePlanetPicture(EditSession& session, const std::string& name, int n, PictureRef picture,
                         bool dropAnimation) {
    if (!requirePlanet(session, n)) return false;
    const bool custom = picture != nullptr;
    auto command = session.command(name, {kPicturesChanged | kFlagsChanged});
    command.pictures().setPlanet(n, std::move(picture));
    if (dropAnimation && planetAnimation(session, n)) command.pictures().removeAnimation(n);
    return command.commit(
        command.store().SetGeneralFlag(kPlanetPics, n, command.record().PlanetCount, custom));
}

}  // namespace

bool assignPlanetPicture(EditSession& session, int n, PictureRef picture) {
    if (!picture) return removePlanetPicture(session, n);
    return changePlanetPicture(session, "New Picture for Planet " + std::to_string(n), n,
                               std::move(picture), true);
}

bool removePlanetPicture(EditSession& session, int n) {
    return changePlanetPicture(session, "Remove Picture of Planet " + std::to_string(n), n, nullptr,
                               false);
}

bool removeAllPlanetPictures(EditSession& session) {
    auto command = session.command("Remove All Pictures", {kPicturesChanged});
    command.pictures().resetPictures(command.pictures().count());
    return command.commit();
}

bool removeAnimation(EditSession& session, int n) {
    if (!requirePlanet(session, n)) return false;
    if (!planetAnimation(session, n))
        return session.fail("Planet " + std::to_string(n) + " has no animation.");
    auto command =
        session.command("Remove Animation of Planet " + std::to_string(n), {kPicturesChanged});
    command.pictures().removeAnimation(n);
    return command.commit();
}

std::optional<fs::path> planetAnimation(const EditSession& session, int n) {
    if (!session.isOpen() || session.pictures().animationRemoved(n)) return std::nullopt;
    return findAnimation(session.folder(), session.name(), n);
}

std::string keyProblem(const std::string& section, const std::string& key) {
    const auto breaksLine = [](const std::string& s) {
        return s.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos;
    };
    if (section.empty() || breaksLine(section) || section.find(']') != std::string::npos)
        return "A section name cannot be empty or hold ']' or a line break.";
    const std::string trimmed = text::trim(key);
    if (trimmed.empty() || breaksLine(key) || key.find('=') != std::string::npos ||
        trimmed.front() == '[' || trimmed.front() == ';')
        return "A key cannot be empty, hold '=' or a line break, or begin with '[' or ';'.";
    return {};
}

bool writeKey(EditSession& session, const std::string& section, const std::string& key,
              const std::string& value) {
    if (const std::string problem = keyProblem(section, key); !problem.empty())
        return session.fail(problem);
    if (value.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos)
        return session.fail("A value cannot hold a line break or a NUL character.");
    auto command = session.command("Set " + key, noticeForSection(section));
    return command.commit(command.store().WriteKey(section, key, value));
}

bool deleteKey(EditSession& session, const std::string& section, const std::string& key) {
    if (const std::string problem = keyProblem(section, key); !problem.empty())
        return session.fail(problem);
    auto command = session.command("Delete " + key, noticeForSection(section));
    return command.commit(command.store().DeleteKey(section, key));
}

}  // namespace orr
