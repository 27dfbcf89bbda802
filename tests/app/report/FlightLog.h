#pragma once

#include "app/mission/MissionGenerator.h"
#include "tests/support/HandMade.h"

// A flight of four, made up: the player is Erich Sommer with one wing man, against two Camels. He
// shoots down Reed, who lives; Brandt is shot down by Hall and dies of the fall; a machine gun on
// the ground takes part; Hall never meets the player.

constexpr const char* FlightPieces[] = {
    R"(T:0 AType:15 VER:18
T:0 AType:0 GDate:1918.3.21 GTime:9:7:0 MFile:Missions/WingtallyMission.mission MID: GType:0 CNTRS:0:0,101:1,501:2 SETTS:0101 MODS:0 PRESET:0
T:1 AType:11 GID:53247 IDS:20479,28671 LID:20479
T:5 AType:12 ID:20479 TYPE:Fokker Dr.I COUNTRY:501 NAME:Erich Sommer/7 PID:-1
T:5 AType:12 ID:21503 TYPE:Common Bot COUNTRY:501 NAME: PID:20479
T:5 AType:10 PLID:20479 PID:21503 BUL:1000 SH:0 BOMB:0 RCT:0 (211540.000,1612.500,64980.250) IDS:1 LOGIN:2 NAME:Desk Pilot: Two TYPE:Fokker Dr.I COUNTRY:501 FORM:0 SKIN:fokkerdr1/fdr_blue.dds WM:1
T:58 AType:17 ID:20479 POS(211540.125,1611.750,64941.500)
)",
    R"(T:0 AType:15 VER:18
T:2480 AType:12 ID:36863 TYPE:Sopwith Camel COUNTRY:102 NAME:Albert Reed PID:-1
T:2480 AType:1 AMMO:BULLET_GER_792x57_SS AID:20479 TID:36863
T:2480 AType:2 DMG:0.012 AID:20479 TID:36863 POS(211602.250,1580.125,63020.500)
T:2711 AType:12 ID:37887 TYPE:Common Bot COUNTRY:102 NAME: PID:36863
T:2711 AType:2 DMG:0.250 AID:20479 TID:37887 POS(211610.500,1498.000,62870.750)
T:2850 AType:2 DMG:0.981 AID:20479 TID:36863 POS(211655.000,1320.625,62790.000)
T:2850 AType:3 AID:20479 TID:36863 POS(211655.000,1320.625,62790.000)
)",
    R"(T:0 AType:15 VER:18
)",
    R"(T:0 AType:15 VER:18
T:3120 AType:12 ID:45055 TYPE:Sopwith Camel COUNTRY:102 NAME:Ernest M. Hall/11 PID:-1
T:3120 AType:12 ID:28671 TYPE:Fokker Dr.I COUNTRY:501 NAME:Kurt Brandt PID:-1
T:3120 AType:3 AID:45055 TID:28671 POS(211300.000,1190.500,62500.125)
T:3302 AType:2 DMG:0.250 AID:45055 TID:21503 POS(211410.250,1102.375,62433.625)
T:3377 AType:12 ID:29695 TYPE:Common Bot COUNTRY:501 NAME: PID:28671
T:3377 AType:3 AID:-1 TID:29695 POS(211120.875,84.125,62390.000)
T:3401 AType:12 ID:37888 TYPE:LMG08AAA COUNTRY:501 NAME:lmg08aaa PID:-1
T:3401 AType:1 AMMO:BULLET_GER_792x57_SS AID:37888 TID:20479
T:9020 AType:6 PID:20479 POS(210980.500, 83.250, 66120.750)
T:9312 AType:16 BOTID:21503 POS(210975.125,82.875,66131.000)
T:9313 AType:7 
T:9313 AType:12 ID:46079 TYPE:Common Bot COUNTRY:102 NAME: PID:45055
)"};

/// The plan of that flight: its pilots are 10 to 13.
inline std::vector<PlannedPlane> flightPlan() {
    return {plannedPlane(10, "Erich Sommer", Germany, {8, 7, 30}),
            plannedPlane(11, "Kurt Brandt", Germany, {2, 0, 3}),
            plannedPlane(12, "Albert Reed", England, {1, 1, 4}),
            plannedPlane(13, "Ernest M. Hall", England, {9, 11, 50})};
}
