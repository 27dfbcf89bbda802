#pragma once

#include <cstdint>

#include "app/career/Database.h"
#include "app/career/Wording.h"
#include "app/report/Flight.h"
#include "app/war/InvitationLetter.h"
#include "engine/core/String.h"
#include "tools/career/Progress.h"

/// One run of the career program: the objects that the window's program holds, and the commands on
/// them. Each command returns true on success; otherwise problem() is the one line that says why.
class Session {
public:
    /// waitSeconds: how long report() waits for the simulator's log.
    Session(bool quiet, int32_t waitSeconds)
        : quiet(quiet), waitSeconds(waitSeconds), progress(!quiet) {}

    bool newCareer(int32_t service, int32_t year, int32_t month);
    bool load();
    bool save();
    bool status();
    bool mission();
    bool fly();
    bool report();
    bool advance(int32_t periods);
    /// Mission, flight and report over and over, invitations accepted, up to that date (yyyymmdd)
    /// or the end of the war.
    bool until(int32_t date);
    bool squadron();
    bool aces();
    bool showInvitation();
    bool acceptInvitation();
    bool refuseInvitation();

    const zel::String& problem() const { return trouble; }

private:
    bool fail(const zel::String& why);
    bool needCareer();
    bool needSimulator();
    void say(const zel::String& line) const;
    void sayFile(const Wording& wording, const zel::String& file) const;
    void sayReport();
    void advanceOnePeriod();
    zel::String nextStep() const;

    bool quiet;
    int32_t waitSeconds;
    zel::String trouble;
    Database career;
    Flight flight;
    InvitationLetter letter;
    Progress progress;
    bool missionWritten = false; // by this run, whose plan the report needs
};
