#pragma once

#include <vector>

#include "app/book/PilotRecord.h"

// A record of service and the page of a pilot as text, in the language in use. The examples are the
// English ones.

/// "Distinguished Service Order"; its key for one that the language tables don't know.
zel::String awardText(const AwardRow& award);
/// The same with its bars and palms: "Military Cross and bar", "Croix de guerre, 3 palms"; with
/// isBrief "MC and bar".
zel::String awardText(const AwardRow& award, const Honours& honours, bool isBrief = false);
/// A decoration with its day, on lines of their own.
zel::String awardCard(const AwardGiven& given, const Honours& honours);
/// Whether the squadron has a name.
bool isNamedUnit(const Database& career, int32_t squadron);
/// "No 56 Squadron RFC"; "another squadron" for one without a name.
zel::String unitText(const Database& career, int32_t squadron);
/// The same; for one without a name that of its service on that day.
zel::String unitOrServiceText(const Database& career, int32_t squadron, int32_t date);
/// "No 56 Squadron RFC, near Arras", of the player's squadron.
zel::String unitNearText(const Database& career);
/// "Flying since 9 April 1917: 41 flights"; "41 flights" where that day isn't known; for pilots
/// other than the player's "Missions: 41". If the record can't be read, it says so.
zel::String flyingText(const PilotRecord& pilot);
/// "Victories: 17"; it says how many aren't in the record.
zel::String victoriesText(const PilotRecord& pilot);
/// How many victories were won in the month up to today.
int32_t victoriesOfLastMonth(const PilotRecord& pilot);
/// What he did in the real war, up to that day of the career; empty if he isn't a pilot of history.
zel::String realText(const PilotRecord& pilot, int32_t today);

/// The record of service as lines: title, unit, flights, ranks, decorations, victories by machine.
std::vector<zel::String> serviceLines(const PilotRecord& pilot, const Database& career);
/// The page of a pilot as lines: title and victories, postings, victories with date and victim, and
/// who he really was.
std::vector<zel::String> pilotLines(const PilotRecord& pilot, const Database& career);
/// What became of him, by date: postings, ranks and decorations, a line each. Never empty.
std::vector<zel::String> stationLines(const PilotRecord& pilot, const Database& career);
/// A victory in columns of the typewriter face, VictoryLetters wide: date, machine and victim, with
/// a mark if the victim died. A name that is too long is shortened, then cut.
zel::String victoryLine(const PilotVictory& victory);
constexpr size_t VictoryLetters = 54;
/// "Several pilots have such a name:" and the first dozen with units and
/// victories, and how many more; no lines without any.
std::vector<zel::String> severalPilots(const Database& career, const std::vector<int32_t>& pilots);
