#pragma once

#include "app/career/Wording.h"

// What the doctor says. docs/manual.md has a row for each complaint with what to do about it, in
// the same words.
// clang-format off
namespace wording {

inline constexpr Wording DoctorGood {4620, "ok"};
inline constexpr Wording DoctorWrong{4621, "WRONG"};
inline constexpr Wording DoctorNote {4622, "note"};
inline constexpr Wording DoctorFixed{4623, "fixed"};
inline constexpr Wording DoctorLine {4624, "$1: $2"}; // the check, the result
inline constexpr Wording DoctorToDo {4625, "What to do: $1"};

inline constexpr Wording CheckNames[] = { // by DoctorCheck
    {4630, "Simulator"}, {4631, "Text log"}, {4632, "Template"},  {4633, "Write access"}, {4634, "Save"},
    {4635, "Record"},    {4636, "Data"},     {4637, "Pictures"},  {4638, "Languages"},    {4639, "OpenGL"},
};

/// What is wrong, and what to do about it.
struct Complaint {
    Wording what, advice;
};
inline constexpr Complaint NoSimulator{
    {4640, "No folder is set for Rise of Flight."},
    {4660, "Choose it on the page \"The Simulator\", or run wingtally-career doctor --fix, which takes the first one that it finds."}};
inline constexpr Complaint NotTheSimulator{
    {4641, "The folder that is set for Rise of Flight lacks data\\startup.cfg, has an empty one, or belongs to a later simulator."},
    {4661, "Choose another one on the page \"The Simulator\", or run wingtally-career doctor --fix. If it is the right one, start Rise of Flight once."}};
inline constexpr Complaint TextLogOff{
    {4642, "The simulator writes no text log."},
    {4662, "Close it and press \"Switch it on\" on the page \"The Simulator\", or run wingtally-career doctor --fix."}};
inline constexpr Complaint TextLogUnknown{
    {4643, "The simulator's data\\startup.cfg can't be read."},
    {4663, "Give yourself permission to read it, and close the program that has it open."}};
inline constexpr Complaint MissionsLocked{
    {4644, "Missions can't be written into the simulator's folder data\\Missions."},
    {4664, "Make the folder if it is missing, and give yourself permission to write in it. WingtallyMission.Mission must not be write-protected."}};
inline constexpr Complaint UserFolderLocked{
    {4645, "Nothing can be written into Wingtally's folder of your careers."},
    {4665, "Make room on the disk, and give yourself permission to write there."}};
inline constexpr Complaint TemplateDamaged{
    {4646, "The mission template can't be read, or is damaged."},
    {4666, "Install Wingtally again."}};
inline constexpr Complaint SaveUnusable{
    {4647, "The saved career can't be used."},
    {4667, "Go back to a page before it: \"Earlier Pages\" under \"Log Books\", or wingtally-career pages and page."}};
inline constexpr Complaint SaveChanged{
    {4648, "The saved career was changed or damaged outside of Wingtally."},
    {4668, "Open it: a page shows what was fixed and offers the save before it."}};
inline constexpr Complaint RecordUnusable{
    {4649, "The record of the war can't be used."},
    {4669, "Close other programs that have it open. A damaged one is set aside and a new one started when the career is saved."}};
inline constexpr Complaint DataDamaged{
    {4650, "Wingtally's data files are missing or damaged."},
    {4670, "Install Wingtally again. Your own files stay."}};
inline constexpr Complaint OwnDataFaulty{
    {4651, "Your own squadron or pilot files have faults."},
    {4671, "wingtally-datacheck lists them with file and line."}};
inline constexpr Complaint PicturesDamaged{
    {4652, "Pictures, fonts, pages or sounds are missing or damaged."},
    {4672, "Install Wingtally again."}};
inline constexpr Complaint LanguagesIncomplete{
    {4653, "A language is missing or lacks texts."},
    {4673, "Install Wingtally again. What a language lacks is shown in English."}};
inline constexpr Complaint NoOpenGl{
    {4654, "This system has no OpenGL."},
    {4674, "Install the driver of the graphics card; on Linux the package libgl1 as well."}};

inline constexpr Wording DoctorFolder {4698, "It is in $1"};
inline constexpr Wording NotLookedAt  {4699, "It can't be checked until that is fixed."};
inline constexpr Wording DataWhole    {4700, "All data files are in order."};
inline constexpr Wording OwnFolderOpen{4701, "Careers can be written."};
inline constexpr Wording LogSwitchedOn{4702, "It was off."};
inline constexpr Wording LogNewest    {4680, "It is on. The newest log is $1."};
inline constexpr Wording LogNone      {4681, "It is on. There is no log yet."};
inline constexpr Wording TemplateWhole{4682, "It is whole."};
inline constexpr Wording FoldersOpen  {4683, "Missions and careers can be written."};
inline constexpr Wording NoSaveYet    {4684, "There is no career yet."};
inline constexpr Wording SaveUnmatched{4685, "It can be read. Without its record Wingtally can't tell whether it was changed."};
inline constexpr Wording SaveWhole    {4686, "It is as it was saved."};
inline constexpr Wording RecordWhole  {4687, "It is whole."};
inline constexpr Wording NoRecordYet  {4688, "There is none yet. The next save begins one."};
inline constexpr Wording FilesWhole   {4689, "$1 files are whole."};
inline constexpr Wording TablesWhole  {4690, "All $1 languages are complete."};
inline constexpr Wording OpenGlThere  {4691, "Its library is there. Whether the graphics card draws with it shows only when the window opens."};
inline constexpr Wording NoScreen     {4692, "There is no screen here, so no window can be opened."};
inline constexpr Wording FoundPlace   {4693, "Found: $1 ($2)"};
inline constexpr Wording FoundNothing {4694, "Nothing was found in the registry, in Steam, Wine and Proton, and on the disks."};
inline constexpr Wording SearchCut    {4695, "The search ended before it had looked everywhere."};
inline constexpr Wording PlaceTaken   {4696, "$1 is set as its folder in $2."};
inline constexpr Wording PlaceUnset   {4697, "The setting can't be written into $1. $2"};

} // namespace wording
// clang-format on
