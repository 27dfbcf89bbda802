#pragma once

#include <cstdint>
#include <string_view>

#include "app/career/Checksum.h"
#include "app/career/SaveCheck.h"

class Database;
struct FlownMission;
struct Posting;
struct Victory;
namespace zel {
class String;
}

/// Is notified of what happens in a career (CareerEvents.h). It must not change the career or draw
/// from any generator: with and without an observer a seed gives the same career.
///
/// Each operation is called in the middle of the career's work, with the career's date already the
/// day on which it happens. Database::observer names the one of a career.
class CareerObserver {
public:
    virtual ~CareerObserver() = default;

    /// A new career is whole, its player chosen.
    virtual void onCareerBegun(const Database&) {}
    /// A career was loaded, and fixed where it was damaged. Its saveCheck has the file's checksum.
    virtual void onCareerLoaded(const Database&) {}
    /// Whether those bytes are a save as it was written, if that is known. `careerNumber` is the
    /// one in them; if all but it is right, it is set to the right one.
    virtual SaveMatch matchSave(const Database&, const CheckedBytes& /*content*/,
                                int32_t& /*careerNumber*/) {
        return SaveMatch::Unknown;
    }
    /// The career is about to be written; `content` is the whole save file, which is on the disk
    /// but doesn't have its name yet. That may still fail. False if matchSave() will not know the
    /// content.
    virtual bool onSaving(const Database&, std::string_view /*content*/) { return true; }
    /// The save that onSaving() announced has its final name.
    virtual void onSaved(const Database&) {}

    /// Called before the victor's victories are raised and before anybody is marked dead.
    virtual void onVictory(const Database&, const Victory&) {}
    /// Called after the records have changed.
    virtual void onPosting(const Database&, const Posting&) {}
    /// The player's squadron has another base.
    virtual void onBaseChange(const Database&) {}
    /// A period of the war is over.
    virtual void onWarAdvanced(const Database&) {}
    /// A flight of the player is carried into the career, with the victories and deaths that
    /// follow.
    virtual void onFlight(const Database&, const FlownMission&) {}
};
