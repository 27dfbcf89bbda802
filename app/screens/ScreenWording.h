#pragma once

#include "app/career/Wording.h"

/// The two texts of a switch; "$1" is the name of what it turns.
struct SwitchForms {
    Wording on, off;
};

// clang-format off
namespace wording {

inline constexpr Wording FlyAndReturn    {802, "Start Rise of Flight and fly WingtallyMission, then come back here. You may close Wingtally meanwhile: your orders are kept."};
inline constexpr Wording SkipNotYet      {809, "The war hasn't moved on. Press \"Skip Mission\" once more to go on without a report."};
inline constexpr Wording FinishFlight    {902, "Finish the mission in the simulator. Then come back and leave the pointer on this window."};
inline constexpr Wording MayGoOnWithout  {905, "If you do not want to fly, go on without a report: the war moves on, and nothing of this flight is counted."};
inline constexpr Wording QuietLog        {920, "No new log for $1 min. If you have flown: was it WingtallyMission, and is mission_text_log = 1 in the simulator's data\\startup.cfg?"}; // minutes
inline constexpr Wording LooksForLog     {921, "Wingtally looks for the log every eight seconds."};
inline constexpr Wording LookedForLog    {922, "Last look for the log at $1. The next one follows within eight seconds."}; // the time of day
inline constexpr Wording PointerElsewhere{923, "Put the pointer on this window. Wingtally looks for the log only while it is there."};
inline constexpr Wording KeyboardElsewhere{924, "Click into this window. Wingtally looks for the log only while it has the keyboard."};
inline constexpr Wording GoOnNotYet      {926, "The war hasn't moved on: this flight may still be reported. Press \"Go on without a report\" once more to go on without it."};
inline constexpr Wording GoOn            {1001, "Continue"};
inline constexpr Wording GoOnWithHim     {4028, "Go On with Him"};
inline constexpr Wording SheetOf         {1018, "$1 of $2"}; // which, how many
inline constexpr Wording PageIsWritten   {3940, "The page is written: $1"}; // its path
inline constexpr Wording PageNotWritten  {3941, "The page could not be written. $1"};
inline constexpr Wording ToTheLogBook    {1005, "Log Book"};
inline constexpr Wording NobodyOpposite  {3470, "You met nobody."};
inline constexpr Wording MovedOn         {1102, "The war has moved on to $1."}; // the date
inline constexpr SwitchForms Sound       {{1404, "Sound: On"}, {1405, "Sound: Off"}};
inline constexpr SwitchForms FullScreen  {{1406, "Full screen: On"}, {1407, "Full screen: Off"}};
inline constexpr SwitchForms WesternFront{{1510, "Western Front: On"}, {1511, "Western Front: Off"}};
inline constexpr SwitchForms TheChannel  {{1512, "The Channel: On"}, {1513, "The Channel: Off"}};
inline constexpr SwitchForms Plane       {{1610, "$1: On"}, {1611, "$1: Off"}};

inline constexpr Wording MissionFaults[] = { // by MissionFault, from the first fault on; the file
    {2211, "The mission template can't be read: $1"},
    {2212, "The mission template is damaged: $1"},
    {2213, "No mission can be planned for to-day."},
    {2214, "This file could not be written: $1"},
    {2215, "The logs of the simulator can't be listed in this folder: $1"},
    {2216, "Another program has this career open. Its mission stays in the simulator, and none is written here."},
};
inline constexpr Wording CloseTheOther   {2305, "What was done here since the career was loaded can't be kept. Close the other program, leave for the main menu and press Continue."};
inline constexpr Wording LeaveUnsaved    {2306, "Leave without saving"};
inline constexpr Wording CloseAndSave    {2307, "Close the other program, then go back and save again."};
inline constexpr Wording SaveFaults[] = { // by SaveFault, from the first fault on; the two versions
    {2410, "There is no saved career."},
    {2411, "The career file can't be read."},
    {2412, "The career file is not a Wingtally save."},
    {2413, "The career file was written by another version of Wingtally: its format is $1, and this version reads $2."},
    {2414, "Too much of the career file is lost to continue."},
};
inline constexpr Wording ChangedAndLost  {2415, "The career file was changed or damaged outside of Wingtally. Too much of it is lost to continue."};
inline constexpr Wording EndMissing      {2511, "The end of the file is missing."};
inline constexpr Wording RepairCounts[] = { // in the order of CareerRepairs
    {2512, "References to squadron and pilot files that led nowhere: $1"},
    {2513, "Pilots without a squadron: $1"},
    {2514, "Wrong places in squadrons: $1"},
    {2515, "Impossible entries of an invitation: $1"},
    {2517, "Impossible names, nations and figures: $1"},
};
inline constexpr Wording PlayerMoved     {2516, "Your pilot was in no squadron. You are now $1."}; // his name
inline constexpr Wording EndExceeded     {2518, "Bytes after the end of the file: $1"}; // their number
inline constexpr Wording ChangedOutside  {2519, "It was changed or damaged outside of Wingtally."};
inline constexpr Wording ChangedSoundly  {2520, "It was changed or damaged outside of Wingtally. All that can be checked is in order."};
inline constexpr Wording DraftTaken      {2521, "The file was missing. An interrupted save had written it whole under another name, and it was renamed."};
inline constexpr Wording BackupTaken     {2522, "The file is missing. The save before it is used."};
inline constexpr Wording UnreportedFlight{2604, "Your flight has not been reported"};

inline constexpr Wording QuitWithOrders  {2602, "Your orders are out. If you save, the flight can still be reported when you come back."};

inline constexpr Wording NewOrders       {2701, "New orders"};
inline constexpr Wording OrdersAreOut    {2710, "Your orders of $1 are out."}; // the date
inline constexpr Wording OrdersFaults[] = { // by OrdersFile, from the first fault on
    {2711, "The mission in the simulator isn't that of your orders any more. If you haven't flown yet, ask for new orders."},
    {2712, "The mission of your orders is gone from the simulator. If you haven't flown yet, ask for new orders."},
};
inline constexpr Wording OrdersUnkept    {2713, "These orders could not be saved. Leave Wingtally open until the report has come."};
inline constexpr Wording FlyAndStay      {2715, "Start Rise of Flight and fly WingtallyMission. These orders could not be saved: leave Wingtally open until the report has come."};
inline constexpr Wording QuitLosesOrders {2721, "Your orders are out, and they could not be saved. If you quit now, the flight can never be reported, whether you save the career or not."};

inline constexpr Wording DrawerIsEmpty   {2801, "The drawer is empty"};
inline constexpr Wording NoBookHere      {2802, "There is no log book here. Begin the first one: choose a service, a year and a month."};
inline constexpr Wording BeginAnother    {2803, "Begin Another"};
inline constexpr Wording BeginABook      {2804, "Begin a Book"};
inline constexpr Wording EarlierPages    {2805, "Earlier Pages"};
inline constexpr Wording PutAway         {2806, "Put Away"};
inline constexpr Wording YesPutAway      {2807, "Yes, Put Away"};
inline constexpr Wording KeepIt          {2808, "Keep It"};
inline constexpr Wording PutThisAway     {2809, "Put this book away? Its files stay in the folder \"Put away\"."};
inline constexpr Wording BooksSeen       {2810, "Books $1 to $2 of $3"};
inline constexpr Wording NearBase        {2813, "Near $1"};
inline constexpr Wording BookFigures     {2822, "$1, $2"};
inline constexpr Wording LastFlown       {2823, "Last flown $1, $2"}; // the day, the time of day
inline constexpr Wording CantBeRead      {2824, "This log book is damaged. It stays as it is:"}; // its path
inline constexpr Wording OtherVersionBook{2827, "This log book is of another version of Wingtally. It stays as it is:"}; // its path
inline constexpr Wording UnreadableBook  {2825, "Unreadable log book"};
inline constexpr Wording NotPossible     {2826, "That wasn't possible, and nothing has changed. $1"}; // sentences
inline constexpr Wording PagesSeen       {2856, "Pages $1 to $2 of $3"};
inline constexpr Wording SavedToday      {2858, "to-day, $1"}; // the time of day
inline constexpr Wording SavedThisYear   {2859, "$1 $2, $3"};  // day, month, the time of day
inline constexpr Wording PageIsDamaged   {2862, "This page is damaged. It stays as it is."};
inline constexpr Wording DamagedPage     {2863, "Damaged page"};


inline constexpr Wording GoBack          {1, "Back"};
inline constexpr Wording QuitProgram     {2, "Quit"};
inline constexpr Wording FoundOne        {4810, "Found $1."}; // the ways
inline constexpr Wording FoundSeveral    {4811, "Found $1. Choose one."};
inline constexpr Wording FoundWays[] = { // by FoundBy
    {4812, "where it was before"}, {4813, "by you"}, {4814, "in the registry"}, {4815, "in the libraries of Steam"},
    {4816, "in the prefixes of Proton"}, {4817, "in the prefixes of Wine"}, {4818, "on the disks"},
};
inline constexpr Wording FoundNowhere    {4819, "Nothing was found in the registry, in the libraries of Steam or on the disks."};
inline constexpr Wording FoundNowhereHere{4820, "Nothing was found in the libraries of Steam, in the prefixes of Wine and Proton or on the disks."}; // off Windows
inline constexpr Wording StillSearching  {4821, "Wingtally is looking for Rise of Flight."};
inline constexpr Wording GoneFromThere   {4822, "It is gone from where it was. $1"}; // another of these
inline constexpr Wording PlaceRow        {4823, "$1: $2"}; // how it was found, its folder
inline constexpr Wording OpenChecks[]    {{4830, "The folder"}, {4831, "The text log"}, {4832, "Writing missions"}, {4833, "The last log"}};
inline constexpr Wording FolderIsThere   {4834, "The folder is there."};
inline constexpr Wording FolderIsGone    {4835, "data\\startup.cfg is missing."};
inline constexpr Wording TextLogIsOn     {4836, "The text log is on."};
inline constexpr Wording TextLogIsOff    {4837, "The text log is off."};
inline constexpr Wording TextLogUnknown  {4838, "startup.cfg can't be read."};
inline constexpr Wording LineToWrite     {4839, "Write: mission_text_log = 1"};
inline constexpr Wording MissionsWritable{4840, "Missions can be written."};
inline constexpr Wording MissionsKeptOut {4841, "Windows keeps this folder from being written."};
inline constexpr Wording MissionsUnwritable{4842, "The folder data\\Missions can't be written."};
inline constexpr Wording MissionsMissing {4852, "The folder data\\Missions is missing."};
inline constexpr Wording MissionsReadOnly{4853, "WingtallyMission or the disk is read-only."};
inline constexpr Wording LastLog         {4843, "Last log: $1, $2"}; // the day, the time of day
inline constexpr Wording NoLogYet        {4844, "No flight has left a log yet."};
inline constexpr CountForms ThingsMissing = {
    {4845, "Everything is as it should be."},
    {4846, "One thing is missing before you can fly."},
    {4847, "$1 things are missing before you can fly."},
};
inline constexpr Wording LookOrStandIn   {4848, "Look elsewhere, or use the stand-in."};
inline constexpr Wording ChoiceUnkept    {4849, "The choice can't be kept: $1 can't be written. $2"}; // the file, why
inline constexpr Wording StandInUnmade   {4850, "The stand-in's folder can't be made: $1"};
inline constexpr Wording StandInFlies    {4851, "The stand-in flies your missions now. To fly them yourself, choose a place."};
inline constexpr Wording StandInOffered  {4807, "No simulator on this machine? The stand-in flies your missions for you and leaves the same log."};

inline constexpr Wording Drives          {4883, "Drives"};
inline constexpr Wording WhichFolder     {4886, "It contains the folder data with the file startup.cfg. Its name is often Rise of Flight."};
inline constexpr Wording RightFolder     {4888, "data\\startup.cfg is here: this is the folder of Rise of Flight. Press Choose This Folder."};
inline constexpr Wording InsideData      {4889, "This is the folder data, with startup.cfg in it. The folder above is that of Rise of Flight. Press Choose This Folder."};
inline constexpr Wording FoldersSeen     {4890, "Folders $1 to $2 of $3"};
inline constexpr Wording NoFolders       {4891, "No folders"};
inline constexpr Wording FolderUnreadable{4892, "This folder can't be read."};
inline constexpr Wording StandInFlight   {4893, "The stand-in flies WingtallyMission for you within seconds: take off, and wait for its log."};
inline constexpr Wording StandInFlying   {4894, "The stand-in flies your mission. Leave the pointer on this window."};
inline constexpr Wording StandInIdle     {4895, "The stand-in isn't flying. Press \"New orders\" in the office."};
inline constexpr Wording StandInRefuses  {4896, "The stand-in can't fly this mission: $1"}; // why, in English
inline constexpr Wording QuietStandIn    {4897, "No new log for $1 min. Press \"New orders\" in the office to have the stand-in fly again."}; // minutes

} // namespace wording
// clang-format on
