#pragma once

#include <initializer_list>

#include "engine/core/FileFault.h"
#include "engine/core/String.h"

/// A text that code writes on a screen or on the command line. The language tables (data/Language)
/// have it under its number; the English is here too, for a program without tables and for a table
/// that lacks the text. check-texts.py compares the two.
struct Wording {
    int32_t number;
    const char* english; // "$1", "$2" and so on mark where the arguments go
};

/// The text in the language in use, its marks replaced by the arguments in turn. English if no
/// language is loaded, or its table lacks the text or has it empty.
zel::String textOf(const Wording& wording, std::initializer_list<zel::String> arguments = {});

/// The forms of a text for none, one and more of something; the count itself is "$1" of the last.
using CountForms = Wording[3];
zel::String countText(const CountForms& forms, int32_t count);

/// A proper name, such as a town's, as the language in use writes it; a name that is the same in
/// all languages comes back unchanged.
zel::String nameInLanguage(const zel::String& english);

/// Why an operation on a file failed, as a sentence. REQUIRES: not None.
zel::String faultSentence(zel::FileFault fault);

// In the order of the tables. Sentences are whole, so that each language has its own order of
// words. A number that is written out belongs to a form that some language needs.
// clang-format off
namespace wording {

inline constexpr Wording Date        {20, "$1-$2-$3"}; // day, month, year
inline constexpr Wording FirstOfMonth{21, "1-$1-$2"};
inline constexpr Wording Months[] = {
    {31, "January"}, {32, "February"}, {33, "March"},     {34, "April"},   {35, "May"},      {36, "June"},
    {37, "July"},    {38, "August"},   {39, "September"}, {40, "October"}, {41, "November"}, {42, "December"},
};

inline constexpr Wording Escadrille          {50, "Esc $1"};
inline constexpr Wording FirstChasse         {51, "1eme Esc de Chasse"};
inline constexpr Wording Chasse              {52, "$1eme Esc de Chasse"};
inline constexpr Wording Observation         {53, "3eme Esc Observation"};
inline constexpr Wording FlyingCorps         {54, "No $1 Squadron RFC"};
inline constexpr Wording AustralianCorps     {55, "No $1 Squadron AFC"};
inline constexpr Wording NavalService        {56, "No $1 Squadron RNAS"};
inline constexpr Wording Jasta               {57, "Jasta $1"};
inline constexpr Wording Schlasta            {58, "Schlasta $1"};
inline constexpr Wording Fliegerabteilung    {59, "FA $1"};
inline constexpr Wording MarineFeldjagdstaffel{60, "Marine-Feldjagdstaffel $1"};
inline constexpr Wording Seefrontstaffel     {61, "SFL $1"};
inline constexpr Wording FirstAero           {62, "1th Aero"}; // sic
inline constexpr Wording Aero[] = {{63, "$1th Aero"}, {64, "$1st Aero"}, {65, "$1nd Aero"}, {66, "$1rd Aero"}};
inline constexpr Wording ShortMarineUnit     {4417, "MFJ $1"};
inline constexpr Wording ShortChasse         {4418, "$1eme Esc de Chasse"};

// Names that some language writes otherwise.
inline constexpr Wording PlaceNames[] = {
    {70, "Dunkerque"},      {71, "Ypres"},         {72, "St. Omer"}, {73, "Zeebrugge"},
    {3480, "Bruges"},         {3481, "Ghent"},          {3482, "Armentieres"},    {3483, "Bethune"},
    {3484, "La Bassee"},      {3485, "Peronne"},        {3486, "Compiegne"},      {3487, "Epernay"},
    {3488, "Chateau-Thierry"},{3489, "Chalons"},        {3490, "Ste. Menehould"}, {3491, "Etain"},
    {3492, "Pont-a-Mousson"}, {3493, "Chateau-Salins"}, {3494, "Luneville"},
};
inline constexpr Wording PlaneNames[] = { // as in the rows of app/aircraft/AircraftTable.h
    {74, "SPAD VII Early"}, {75, "SPAD VII Late"}, {76, "Albatros D. II Late"},
};

inline constexpr Wording FileFaults[] = { // by FileFault, from the first fault on
    {80, "The disk is full."},
    {81, "You have no permission for it."},
    {82, "The file or the disk is read-only."},
    {83, "The file or its folder is missing."},
    {84, "A folder or a device has its name."},
    {85, "Another program is using it."},
    {86, "The disk reports an error."},
    {87, "Its name is too long."},
    {88, "It is too large for the disk."},
    {89, "Too many files are open."},
    {90, "A file of that name exists already."},
    {91, "The system refuses it."},
};

inline constexpr Wording Services[] = { // by the number of the service
    {510, "Service: French"}, {511, "Service: English"}, {512, "Service: German"},
};
inline constexpr Wording StartDate{513, "Start date: $1 $2"}; // month, year
inline constexpr Wording PilotName{514, "Your pilot's name: $1"};

inline constexpr Wording NextMission{603, "Next Mission"};
inline constexpr Wording WarIsOver  {608, "The War is over!"};
inline constexpr Wording Base       {609, "Current base: Near $1"};
inline constexpr Wording Successor  {611, "$2 is dead. His place is taken by $1."};
inline constexpr Wording RecordGap  {612, "There is no record of the war from $1 to $2."};
inline constexpr Wording RecordGapOfDay{613, "The record of the war may lack part of $1."};

inline constexpr Wording HeldElsewhere{614, "Process $1 has this career open as well. You can read it here, and nothing is saved."};

inline constexpr Wording LeaderInvites      {710, "$1 has invited you to join $2."};
inline constexpr Wording LeaderInvitesToHis {711, "$1 has invited you to join his squadron."};
inline constexpr Wording Invited            {712, "You have been invited to join $1."};
inline constexpr Wording InvitedToANew      {713, "You have been invited to join a new squadron."};
inline constexpr Wording OneAce             {714, "The squadron also includes the ace $1."};
inline constexpr Wording Aces               {715, "The squadron also includes the following aces: $1."};
inline constexpr Wording ListGoesOn         {716, "$1, $2"};
inline constexpr Wording ListEnds           {717, "$1 and $2"};
inline constexpr CountForms Shotdowns = {
    {718, "The pilots of the new squadron have a total number of 0 shotdowns."},
    {719, "The pilots of the new squadron have a total number of 1 shotdowns."},
    {720, "The pilots of the new squadron have a total number of $1 shotdowns."},
};
inline constexpr Wording WillYouAccept{721, "Will you accept the invitation?"};

inline constexpr Wording StartMission{804, "Start Mission"};
inline constexpr Wording SkipMission {807, "Skip Mission (no flyable plane available)"};
inline constexpr Wording PlaneOfPilot{808, "$1 ($2)"};

inline constexpr Wording LogNewsTexts[] = { // by LogState
    {910, "No log of your flight has come yet."},
    {911, "No log can come: the simulator's text log is off. Set mission_text_log = 1 in its data\\startup.cfg, start it again, and fly the mission again."},
    {912, "This folder of the simulator is gone, or can't be read: $1"},
    {913, "A log has come, but it can't be read: $1"},
    {914, "The log of your flight has come. It isn't complete yet."},
    {915, "Your flight isn't over yet: the log is still growing."},
    {916, "The end of your flight is being written: one more look, and the report is there."},
    {917, "The log of your flight has stopped before the end. Finish the mission in the simulator, or fly it again."},
    {918, "The newest log belongs to another mission, \"$1\". Fly WingtallyMission."},
    {925, "The newest log belongs to the orders of another day. Fly WingtallyMission as it is now."},
    {919, "The newest log belongs to other orders: to-day's don't name its pilot, $1. Fly WingtallyMission as it is now."},
};

inline constexpr Wording ReportedPilot {1010, "$1 - Kills: $2"};
inline constexpr Wording NoMission     {1011, "(No mission played.)"};
inline constexpr Wording UnknownPlayer {1012, "In the log you are \"$1\". Your orders don't name him: the flight is not counted."};
inline constexpr Wording DiedInTheAir  {1020, "Died in the air"};
inline constexpr Wording CrashedAndDied{1021, "Crashed and died"};
inline constexpr Wording SevereInjuries{1022, "Severe injuries"};
inline constexpr Wording Injured       {1023, "Injured"};
inline constexpr Wording SlightInjuries{1024, "Slightly injured"};
inline constexpr Wording LandedDamaged {1025, "Landed with damaged plane"};
inline constexpr Wording LandedDestroyed{1026, "Landed with destroyed plane"};
inline constexpr Wording Damaged       {1027, "Damaged plane"};
inline constexpr Wording Destroyed     {1028, "Destroyed plane"};
inline constexpr Wording Escaped       {1029, "Escaped and landed"};
inline constexpr Wording Survived      {1030, "Survived without injuries"};
inline constexpr Wording NoDamage      {1031, "No damage"};
inline constexpr Wording KilledBy      {1040, "Killed By: $1"};
inline constexpr Wording ShotdownBy    {1041, "Shotdown By: $1"};
inline constexpr Wording KilledByOwn   {1042, "Killed By Own: $1"};
inline constexpr Wording ShotdownByOwn {1043, "Shotdown By Own: $1"};
inline constexpr Wording Crashed       {1044, "Crashed"};
inline constexpr Wording MachineGun    {1050, "machine gun on the ground"};
inline constexpr Wording AntiAircraftFire{1051, "anti-aircraft fire"};
inline constexpr Wording FieldGun      {1052, "field gun"};
inline constexpr Wording Lorry         {1053, "lorry"};
inline constexpr Wording Tank          {1054, "tank"};
inline constexpr Wording Balloon       {1055, "observation balloon"};
inline constexpr Wording Searchlight   {1056, "searchlight"};

inline constexpr Wording Score      {1210, "$1: $2"};
inline constexpr Wording OwnScore   {1211, "$1 (you!): $2"};
inline constexpr Wording LastScore  {1310, "$1: $2 RIP"};
inline constexpr Wording OwnLastScore{1311, "$1 (you!): $2 RIP"};
inline constexpr Wording NoAces     {1312, "(NO PILOTS WITH MORE THAN 5 SHOTDOWNS)"}; // sic: five are enough

inline constexpr Wording OrdersVoid {2714, "Your orders of $1 are void: the save is older."}; // the date

inline constexpr Wording BookDate        {2814, "$1 $2 $3"}; // day, month, year
inline constexpr Wording BookFirstOfMonth{2815, "1 $1 $2"};
inline constexpr CountForms Victories  = {{2816, "0 victories"}, {2817, "1 victory"}, {2818, "$1 victories"}};
inline constexpr CountForms Missions   = {{2819, "0 missions"}, {2820, "1 mission"}, {2821, "$1 missions"}};
inline constexpr Wording ShortDate       {2860, "$1 $2 $3"};
inline constexpr Wording ShortFirstOfMonth{3456, "1 $1 $2"};
inline constexpr Wording ShortMonths[] = {
    {2871, "Jan"},  {2872, "Feb"}, {2873, "Mar"},  {2874, "Apr"}, {2875, "May"}, {2876, "June"},
    {2877, "July"}, {2878, "Aug"}, {2879, "Sept"}, {2880, "Oct"}, {2881, "Nov"}, {2882, "Dec"},
};

/// Why a career can't be moved or saved (Problem.h).
inline constexpr Wording NoSuchCareer    {2890, "There is no career number $1"};
inline constexpr Wording DamagedCareer   {2891, "The career $1 is damaged"};
inline constexpr Wording CareerOfOther   {2892, "The career $1 is of another version of Wingtally"};
inline constexpr Wording CareerHeld      {2893, "Process $1 has the career open"};
inline constexpr Wording CareerUnwritten {2894, "The career can't be written to $1"};
inline constexpr Wording FileUnwritten   {2895, "$1 can't be written"};
inline constexpr Wording FolderNotMade   {2896, "The folder $1 can't be made"};
inline constexpr Wording NotMoved        {2897, "$1 can't be moved to $2"};
inline constexpr Wording LinkNotMoved    {2898, "$1 can't be moved: it is a link, which may lead nowhere from there"};
inline constexpr Wording NameTaken       {2899, "$1 can't be moved: $2 is there already"};
inline constexpr Wording RecordNotKept   {2901, "The record of the war can't be kept as $1"};
inline constexpr Wording PresentPage     {2902, "That page is already the current one"};
inline constexpr Wording DamagedPageFile {2903, "The page $1 is damaged"};
inline constexpr Wording SavesNotKept    {2904, "The current saves can't be kept as pages"};
inline constexpr Wording PageNotTurned   {2905, "The page can't replace $1"};
inline constexpr Wording ProblemAlone    {2906, "$1."};
inline constexpr Wording ProblemAndReason{2907, "$1. $2"}; // FileFaults
inline constexpr Wording FolderUnread    {2920, "The folder $1 can't be read"};

} // namespace wording
// clang-format on
