#include "app/career/InvitationSchedule.h"

#include "app/career/Database.h"
#include "engine/core/Log.h"

void scheduleInvitation(Database& career, int32_t monthsAhead) {
    career.invitationYear = career.year;
    career.invitationMonth = career.month + monthsAhead;
    career.invitationSquadron = NoInvitation;
    for (; career.invitationMonth > 12; career.invitationMonth -= 12)
        ++career.invitationYear;
    zel::console("PROGRESS INVITATION DATE TO " +
                 yearAndMonth(career.invitationYear, career.invitationMonth));
}

zel::String yearAndMonth(int32_t year, int32_t month) { return zel::String(year) + "/" + month; }
