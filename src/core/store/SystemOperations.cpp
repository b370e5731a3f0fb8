#include "store/SystemOperations.h"

#include <functional>

#include "text/Text.h"

namespace orr {

namespace {

constexpr const char* kNoRoomMessage =
    "There is no room for another orbit: the planets already fill every orbit out to the edge.";

// One planet edit: its writes go to disk together, and the holder of the pictures hears of the
// edit only once it has reached the disk, so pictures and planets never part.
class PlanetEdit {
  public:
    PlanetEdit(SystemStore& store, PictureSlots* pictures)
        : transaction_(store), pictures_(pictures) {}

    void tellPictures(std::function<void(PictureSlots&)> action) {
        if (pictures_) actions_.push_back(std::move(action));
    }

    bool finish(bool ok) {
        if (!transaction_.commit(ok)) return false;
        for (const auto& action : actions_) action(*pictures_);
        return true;
    }

  private:
    SystemStore::Transaction transaction_;
    PictureSlots* pictures_;
    std::vector<std::function<void(PictureSlots&)>> actions_;
};

bool isPlanet(const SystemStore& store, int n) {
    return n >= 1 && n <= store.record().PlanetCount;
}

bool noSuchPlanet(SystemStore& store, int n) {
    return store.fail("There is no planet " + std::to_string(n) + " in this system.");
}

// The orbit pass before a planet is added: the last planet comes in to 1970 at most, and any
// planet that now lies outside its successor moves 30 units inside it. Returns false when the
// pass had to move planet 1 as well: then there is no room for another planet.
bool makeRoomOutside(SystemRecord& record) {
    const int count = record.PlanetCount;
    if (count <= 0) return true;
    PlanetRecord& last = record.planet(count);
    if (last.Position > 1969) last.Position = 1970;
    for (int i = count - 1; i >= 1; --i) {
        PlanetRecord& inner = record.planet(i);
        const PlanetRecord& outer = record.planet(i + 1);
        if (inner.Position <= outer.Position) return true;
        inner.Position = static_cast<std::int16_t>(outer.Position - 30);
    }
    return count == 1;
}

AddPlanetResult addWithin(SystemStore& store, PlanetEdit& edit) {
    SystemRecord moved = store.record();
    if (!makeRoomOutside(moved)) {
        store.fail(kNoRoomMessage);
        return AddPlanetResult::NoRoom;
    }
    if (moved.PlanetCount >= kMaxPlanets) {
        store.fail(kMaxPlanetsMessage);
        return AddPlanetResult::Full;
    }
    store.record() = moved;
    if (!store.AddPlanet()) return AddPlanetResult::Failed;
    // The picture holder always has a slot for planet 1.
    if (store.record().PlanetCount > 1)
        edit.tellPictures([](PictureSlots& p) { p.addPictureSlot(); });
    return AddPlanetResult::Added;
}

bool swapWithin(SystemStore& store, PlanetEdit& edit, int a, int b) {
    if (!store.SwapPlanets(a, b)) return false;
    edit.tellPictures([a, b](PictureSlots& p) { p.swapPictures(a, b); });
    return true;
}

bool isDefaultAnswer(const std::string& answer) {
    const std::string word = text::toLower(text::trim(answer));
    return word.empty() || word == "default" || word == "none";
}

std::string starTypeName(const SystemStore& store) {
    const int type = store.record().StarType;
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

// Changes the record with `change` and saves the block; on failure the record stays as it was.
bool changeAndSave(SystemStore& store, const std::function<void(SystemRecord&)>& change) {
    SystemStore::Transaction transaction(store);
    change(store.record());
    return transaction.commit(store.SaveSystemBlock());
}

}  // namespace

bool canAddPlanet(const SystemStore& store) {
    SystemRecord moved = store.record();
    return makeRoomOutside(moved) && moved.PlanetCount < kMaxPlanets;
}

AddPlanetResult addPlanet(SystemStore& store, PictureSlots* pictures) {
    PlanetEdit edit(store, pictures);
    const AddPlanetResult result = addWithin(store, edit);
    if (result != AddPlanetResult::Added) {
        edit.finish(false);
        return result;
    }
    return edit.finish(store.SaveSystemBlock()) ? result : AddPlanetResult::Failed;
}

AddPlanetResult insertPlanet(SystemStore& store, int n, PictureSlots* pictures) {
    // Inserting after the last planet is adding.
    if (n < 1 || n > store.record().PlanetCount + 1) {
        noSuchPlanet(store, n);
        return AddPlanetResult::Failed;
    }
    PlanetEdit edit(store, pictures);
    const AddPlanetResult result = addWithin(store, edit);
    if (result != AddPlanetResult::Added) {
        edit.finish(false);
        return result;
    }
    bool ok = true;
    for (int i = store.record().PlanetCount; ok && i > n; --i)
        ok = swapWithin(store, edit, i, i - 1);
    return edit.finish(ok && store.SaveSystemBlock()) ? result : AddPlanetResult::Failed;
}

bool canDeletePlanet(const SystemStore& store, int n) {
    return isPlanet(store, n);
}

bool deletePlanet(SystemStore& store, int n, PictureSlots* pictures) {
    if (!canDeletePlanet(store, n)) return noSuchPlanet(store, n);
    PlanetEdit edit(store, pictures);
    const int count = store.record().PlanetCount;
    bool ok = true;
    for (int i = n + 1; ok && i <= count; ++i) ok = swapWithin(store, edit, i, i - 1);
    edit.tellPictures([](PictureSlots& p) { p.dropLastPictureSlot(); });
    ok = ok && store.RemoveLastPlanet() && store.SaveSystemBlock();
    return edit.finish(ok);
}

bool canSwapPlanets(const SystemStore& store, int a, int b) {
    return isPlanet(store, a) && isPlanet(store, b);
}

bool swapPlanets(SystemStore& store, int a, int b, PictureSlots* pictures) {
    if (!canSwapPlanets(store, a, b)) return noSuchPlanet(store, isPlanet(store, a) ? b : a);
    if (a == b) return true;
    PlanetEdit edit(store, pictures);
    return edit.finish(swapWithin(store, edit, a, b) && store.SaveSystemBlock());
}

bool setPlanetClass(SystemStore& store, int n, int planetClass) {
    if (!isPlanet(store, n)) return noSuchPlanet(store, n);
    if (planetClass < 0 || planetClass >= static_cast<int>(Tables::ClassCaptions.size())) {
        return store.fail("There is no planet class " + std::to_string(planetClass) + ".");
    }
    return changeAndSave(store, [&](SystemRecord& record) {
        PlanetRecord& planet = record.planet(n);
        planet.PlanetClass = static_cast<std::int16_t>(planetClass);
        if (planetClass == 0) {
            // An asteroid belt has no size and no moons.
            planet.Size = 0;
            planet.Moons = 0;
        } else if (planet.Size == 0) {
            planet.Size = 2;
        }
    });
}

bool setPlanetName(SystemStore& store, int n, const std::string& answer) {
    if (n != 0 && !isPlanet(store, n)) return noSuchPlanet(store, n);
    if (hasControlCharacter(answer)) {
        return store.fail("A name cannot contain line breaks, tabs or other control characters.");
    }
    if (answer.size() > kMaxValueLength) {
        return store.fail("A name can have at most " + std::to_string(kMaxValueLength) +
                          " characters.");
    }
    const bool restoreDefault =
        isDefaultAnswer(answer) || (n == 0 && answer == starTypeName(store));
    return store.SetName(n, restoreDefault ? std::string() : answer);
}

std::string planetName(SystemStore& store, int n) {
    if (n != 0) return store.GetName(n, store.record().DisplayName);
    const std::string description = store.GetName(0, "");
    return description == kNotUsed ? starTypeName(store) : description;
}

std::string planetLabel(SystemStore& store, int n) {
    if (n == 0) return planetName(store, 0);
    // Only a default name depends on the base it is built from.
    if (store.GetName(n, "XXX") != store.GetName(n, "YYY")) return "Planet " + std::to_string(n);
    return store.GetName(n, store.record().DisplayName);
}

bool setStarType(SystemStore& store, int starType) {
    if (starType < 0 || starType >= static_cast<int>(Tables::StarTypeNames.size())) {
        return store.fail("There is no star type " + std::to_string(starType) + ".");
    }
    return changeAndSave(store, [&](SystemRecord& record) {
        record.StarType = static_cast<std::int16_t>(starType);
    });
}

bool setDisplayName(SystemStore& store, const std::string& name) {
    if (name.find('"') != std::string::npos) {
        return store.fail("A display name cannot contain the character '\"'.");
    }
    if (hasControlCharacter(name)) {
        return store.fail(
            "A display name cannot contain line breaks, tabs or other control characters.");
    }
    SystemRecord renamed = store.record();
    renamed.setDisplayName(name);
    if (renamed.DisplayName == store.record().DisplayName) return true;
    return changeAndSave(store, [&](SystemRecord& record) { record.setDisplayName(name); });
}

bool setPlanetFlag(SystemStore& store, const std::string& key, int n, bool yes) {
    if (key != kPlanetPics && key != kMessagesFlag) {
        return store.fail("\"" + key + "\" is no planet flag; the flags are \"" + kPlanetPics +
                          "\" and \"" + kMessagesFlag + "\".");
    }
    if (!isPlanet(store, n)) return noSuchPlanet(store, n);
    return store.SetGeneralFlag(key, n, store.record().PlanetCount, yes);
}

bool clearPlanets(SystemStore& store, PictureSlots* pictures) {
    PlanetEdit edit(store, pictures);
    SystemRecord& record = store.record();
    bool ok = true;
    for (int n = 1; ok && n <= record.PlanetCount; ++n) {
        PlanetRecord& planet = record.planet(n);
        planet.PlanetClass = 1;
        planet.Size = 3;
        planet.Attributes = 0;
        planet.Moons = 0;
        ok = store.RemovePlanetSection(n) && store.SetName(n, "");
    }
    record.PlanetCount = 0;
    edit.tellPictures([](PictureSlots& p) { p.resetPictures(0); });
    return edit.finish(ok && store.SaveSystemBlock());
}

}  // namespace orr
