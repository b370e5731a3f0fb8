#include "session/PlanetEdits.h"

#include <algorithm>

#include "store/Tables.h"

namespace orr {

namespace {

bool isPlanet(const EditSession& session, int n) {
    return n >= 1 && n <= session.record().PlanetCount;
}

bool noSuchPlanet(EditSession& session, int n) {
    return session.requireSystemBlock() &&
           session.fail("There is no planet " + std::to_string(n) + " in this system.");
}

std::string planetWord(int n) {
    return "Planet " + std::to_string(n);
}

// The orbit pass before a planet is added outside the last one: the last planet comes in to
// 1970 at most, and every planet that now lies outside its successor moves 30 units inside it.
void makeRoomOutside(SystemRecord& record) {
    const int count = record.PlanetCount;
    if (count <= 0) return;
    PlanetRecord& last = record.planet(count);
    if (last.Position > 1969) last.Position = 1970;
    for (int i = count - 1; i >= 1; --i) {
        PlanetRecord& inner = record.planet(i);
        const PlanetRecord& outer = record.planet(i + 1);
        if (inner.Position <= outer.Position) return;
        inner.Position = static_cast<std::int16_t>(outer.Position - 30);
    }
}

bool addWithin(EditSession::Command& command) {
    makeRoomOutside(command.record());
    if (!command.store().AddPlanet()) return false;
    // The pictures always have a slot for planet 1.
    if (command.record().PlanetCount > 1) command.pictures().addPictureSlot();
    return true;
}

bool swapWithin(EditSession::Command& command, int a, int b) {
    if (!command.store().SwapPlanets(a, b)) return false;
    command.pictures().swapPictures(a, b);
    return true;
}

constexpr ChangeNotice kPlanetsAndKeys{
    kPlanetsChanged | kNamesChanged | kPlanetKeysChanged | kFlagsChanged | kPicturesChanged, 0};

}  // namespace

bool canAddPlanet(const EditSession& session) {
    return session.isOpen() && session.record().PlanetCount < kMaxPlanets;
}

AddPlanetResult addPlanet(EditSession& session) {
    if (!session.requireSystemBlock()) return AddPlanetResult::Failed;
    if (session.isOpen() && !canAddPlanet(session)) {
        session.fail(kMaxPlanetsMessage);
        return AddPlanetResult::Full;
    }
    auto command = session.command("Add Planet", kPlanetsAndKeys);
    const bool ok = addWithin(command) && command.store().SaveSystemBlock();
    return command.commit(ok) ? AddPlanetResult::Added : AddPlanetResult::Failed;
}

AddPlanetResult insertPlanet(EditSession& session, int n) {
    if (!session.requireSystemBlock()) return AddPlanetResult::Failed;
    // Inserting after the last planet is adding.
    if (n < 1 || n > session.record().PlanetCount + 1) {
        noSuchPlanet(session, n);
        return AddPlanetResult::Failed;
    }
    if (session.isOpen() && !canAddPlanet(session)) {
        session.fail(kMaxPlanetsMessage);
        return AddPlanetResult::Full;
    }
    auto command = session.command("Insert Planet " + std::to_string(n), kPlanetsAndKeys);
    bool ok = addWithin(command);
    for (int i = command.record().PlanetCount; ok && i > n; --i) ok = swapWithin(command, i, i - 1);
    ok = ok && command.store().SaveSystemBlock();
    return command.commit(ok) ? AddPlanetResult::Added : AddPlanetResult::Failed;
}

bool canDeletePlanet(const EditSession& session, int n) {
    return isPlanet(session, n);
}

bool deletePlanet(EditSession& session, int n) {
    if (!session.requireSystemBlock()) return false;
    if (!canDeletePlanet(session, n)) return noSuchPlanet(session, n);
    auto command = session.command("Delete " + planetWord(n), kPlanetsAndKeys);
    const int count = command.record().PlanetCount;
    bool ok = true;
    for (int i = n + 1; ok && i <= count; ++i) ok = swapWithin(command, i, i - 1);
    if (ok) command.pictures().dropLastPictureSlot();
    ok = ok && command.store().RemoveLastPlanet() && command.store().SaveSystemBlock();
    return command.commit(ok);
}

bool canSwapPlanets(const EditSession& session, int a, int b) {
    return isPlanet(session, a) && isPlanet(session, b);
}

bool swapPlanets(EditSession& session, int a, int b, const std::string& stepName) {
    if (!session.requireSystemBlock()) return false;
    if (!canSwapPlanets(session, a, b)) return noSuchPlanet(session, isPlanet(session, a) ? b : a);
    if (a == b) return true;
    auto command =
        session.command(stepName.empty() ? "Swap Planets " + std::to_string(std::min(a, b)) +
                                               " and " + std::to_string(std::max(a, b))
                                         : stepName,
                        kPlanetsAndKeys);
    return command.commit(swapWithin(command, a, b) && command.store().SaveSystemBlock());
}

bool movePlanet(EditSession& session, int n, int position, int dragId) {
    if (!session.requireSystemBlock()) return false;
    if (!isPlanet(session, n)) return noSuchPlanet(session, n);
    auto command = session.command("Move " + planetWord(n), {kPlanetsChanged},
                                   "orbit " + std::to_string(dragId) + " " + std::to_string(n));
    command.record().planet(n).Position =
        static_cast<std::int16_t>(std::clamp(position, -32768, 32767));
    return command.commit(command.store().SaveSystemBlock());
}

bool setPlanetClass(EditSession& session, int n, int planetClass) {
    if (!session.requireSystemBlock()) return false;
    if (!isPlanet(session, n)) return noSuchPlanet(session, n);
    if (planetClass < 0 || planetClass >= static_cast<int>(Tables::ClassCaptions.size()))
        return session.fail("There is no planet class " + std::to_string(planetClass) + ".");
    auto command = session.command("Change Class of " + planetWord(n), {kPlanetsChanged});
    PlanetRecord& planet = command.record().planet(n);
    planet.PlanetClass = static_cast<std::int16_t>(planetClass);
    if (planetClass == 0) {
        planet.Size = 0;
        planet.Moons = 0;
    } else if (planet.Size == 0) {
        planet.Size = 2;
    }
    return command.commit(command.store().SaveSystemBlock());
}

PlanetAttributes normalisedAttributes(PlanetAttributes a) {
    if (a.Inhabited < 2) {
        a.Attitude = 0;
        a.Advanced = 0;
    }
    if (a.Inhabited == 3) a.Attitude = 0;
    return a;
}

bool setPlanetAttribute(EditSession& session, int n, AttributeGroup group, int value,
                        const std::string& mergeKey) {
    if (!session.requireSystemBlock()) return false;
    if (!isPlanet(session, n)) return noSuchPlanet(session, n);
    if (value < 0 || value > 3)
        return session.fail("An option of a planet's properties is 0 to 3.");
    PlanetAttributes a = PlanetAttributes::unpack(session.record().planet(n).Attributes);
    switch (group) {
        case AttributeGroup::Inhabited:
            a.Inhabited = value;
            break;
        case AttributeGroup::Attitude:
            a.Attitude = value;
            break;
        case AttributeGroup::Advanced:
            a.Advanced = value;
            break;
        case AttributeGroup::Energy:
            a.Energy = value;
            break;
    }
    auto command =
        session.command("Change Properties of " + planetWord(n), {kPlanetsChanged}, mergeKey);
    command.record().planet(n).Attributes = normalisedAttributes(a).pack();
    return command.commit(command.store().SaveSystemBlock());
}

bool setPlanetProperties(EditSession& session, int n, const PlanetProperties& p,
                         const std::string& mergeKey) {
    if (!session.requireSystemBlock()) return false;
    if (!isPlanet(session, n)) return noSuchPlanet(session, n);
    const PlanetRecord& current = session.record().planet(n);
    // An asteroid belt has no size and no moons to change.
    const bool belt = current.Size == 0;
    if (!belt && (p.size < 1 || p.size > 5)) return session.fail("A planet's size is 1 to 5.");
    if (!belt && (p.moons < 0 || p.moons > 25)) return session.fail("A planet has 0 to 25 moons.");
    ChangeNotice notice{kPlanetsChanged};
    if (p.customPictures || p.customMessages) notice.changes |= kFlagsChanged;
    auto command = session.command("Change Properties of " + planetWord(n), notice, mergeKey);
    PlanetRecord& planet = command.record().planet(n);
    planet.Attributes = normalisedAttributes(p.attributes).pack();
    if (!belt) {
        planet.Size = static_cast<std::int16_t>(p.size);
        planet.Moons = static_cast<std::int16_t>(p.moons);
    }
    const int count = command.record().PlanetCount;
    bool ok = true;
    if (p.customPictures)
        ok = command.store().SetGeneralFlag(kPlanetPics, n, count, *p.customPictures);
    if (ok && p.customMessages)
        ok = command.store().SetGeneralFlag(kMessagesFlag, n, count, *p.customMessages);
    return command.commit(ok && command.store().SaveSystemBlock());
}

bool setPlanetFlag(EditSession& session, const std::string& key, int n, bool yes) {
    if (key != kPlanetPics && key != kMessagesFlag) {
        return session.fail("\"" + key + "\" is no planet switch; the switches are \"" +
                            kPlanetPics + "\" and \"" + kMessagesFlag + "\".");
    }
    if (!isPlanet(session, n)) return noSuchPlanet(session, n);
    const std::string what = key == kPlanetPics ? "Custom Pictures" : "Custom Messages";
    auto command = session.command((yes ? "Use " : "Stop Using ") + what + " for " + planetWord(n),
                                   {kFlagsChanged});
    return command.commit(
        command.store().SetGeneralFlag(key, n, command.record().PlanetCount, yes));
}

bool clearPlanets(EditSession& session) {
    if (!session.requireSystemBlock()) return false;
    auto command = session.command("Clear Planets", kPlanetsAndKeys);
    SystemRecord& record = command.record();
    bool ok = true;
    for (int n = 1; ok && n <= record.PlanetCount; ++n) {
        PlanetRecord& planet = record.planet(n);
        planet.PlanetClass = 1;
        planet.Size = 3;
        planet.Attributes = 0;
        planet.Moons = 0;
        ok = command.store().RemovePlanetSection(n) && command.store().SetName(n, "");
    }
    record.PlanetCount = 0;
    command.pictures().resetPictures(0);
    return command.commit(ok && command.store().SaveSystemBlock());
}

}  // namespace orr
