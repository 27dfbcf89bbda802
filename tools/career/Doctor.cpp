#include "tools/career/Doctor.h"

#include <cstdio>
#include <iterator>

#include "app/career/Database.h"
#include "app/career/SavePages.h"
#include "app/career/SaveSummary.h"
#include "app/mission/Configuration.h"
#include "app/mission/SimulatorSearch.h"
#include "app/mission/SimulatorSetting.h"
#include "app/mission/TextLogSwitch.h"
#include "app/record/CareerRecord.h"
#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Language.h"
#include "engine/core/System.h"
#include "engine/core/SystemPlaces.h"
#include "engine/core/UserDirectory.h"
#include "engine/core/WholeFile.h"
#include "tools/career/DoctorWording.h"
#include "tools/career/ProgramFiles.h"
#include "tools/common/Print.h"
#include "tools/datacheck/DataCheck.h"

namespace {

constexpr int32_t LabelWidth = 9; // of the first column, in letters

zel::String printedWording(const Wording& what, const std::vector<zel::String>& files = {}) {
    return zel::fillMarks(zel::system::printedText(textOf(what, {"$1", "$2"})), files);
}

zel::String printedFault(zel::FileFault fault) {
    return zel::system::printedText(faultSentence(fault));
}

/// Why no file can be created in a folder or, if it doesn't exist, in the first existing folder
/// above it.
zel::FileFault folderFault(zel::String folder) {
    while (!folder.empty() && !zel::system::isDirectory(folder)) {
        const std::string_view path = folder;
        const size_t end = path.find_last_of("\\/", path.find_last_not_of("\\/"));
        folder = end == path.npos ? std::string_view() : path.substr(0, end);
    }
    zel::WholeFile draft(folder + "/trial");
    return draft.write("") ? zel::FileFault::None : draft.fault();
}

using zel::system::printedName;

/// The folder without the separator at its end.
zel::String printedFolder(const zel::String& folder) {
    return printedName(zel::withoutSeparator(folder));
}

zel::String saveFile() { return zel::getUserDirectory() + SaveFileName; }

/// Whether the save is as it was written, according to its record or the notes beside it. Nothing
/// is moved.
SaveMatch matchOf(const std::string& content) {
    Database career;
    career.isReadOnly = true;
    CareerRecord record;
    int32_t number = summaryOf(saveFile()).careerNumber;
    const SaveMatch match = record.matchSave(career, content, number);
    return match != SaveMatch::Whole && isKnownWhole(saveFile(), content) ? SaveMatch::Whole
                                                                          : match;
}

static_assert(std::size(wording::CheckNames) == DoctorCheckCount);

/// Faults of one kind among those of the data files.
struct DataFaults {
    int32_t count = 0;
    zel::String first;

    void add(const tools::Finding& finding) {
        if (++count == 1)
            first = finding.text();
    }
};

} // namespace

void Doctor::say(const Wording& kind, DoctorCheck check, const Wording& what, const Files& files) {
    if (isQuiet)
        return;
    zel::String label = textOf(kind);
    while (label.length() < LabelWidth)
        label += " ";
    const Wording& name = wording::CheckNames[static_cast<int32_t>(check)];
    const zel::String line =
        printedWording(wording::DoctorLine, {printedWording(name), printedWording(what, files)});
    tools::print(stdout, zel::system::printedText(label) + line + "\n");
}

void Doctor::good(DoctorCheck check, const Wording& what, const Files& files) {
    say(wording::DoctorGood, check, what, files);
}

void Doctor::note(DoctorCheck check, const Wording& what, const Files& files) {
    say(wording::DoctorNote, check, what, files);
}

void Doctor::addDetail(const zel::String& printed) const {
    if (!printed.empty() && !isQuiet)
        tools::print(stdout, std::string(LabelWidth, ' ') + std::string(printed.view()) + "\n");
}

void Doctor::complain(DoctorCheck check, const wording::Complaint& complaint,
                      const std::vector<zel::String>& details) {
    ++complaints;
    say(wording::DoctorWrong, check, complaint.what);
    for (const zel::String& detail : details)
        addDetail(detail);
    addDetail(printedWording(wording::DoctorToDo, {printedWording(complaint.advice)}));
}

zel::String Doctor::examine() {
    examineSimulator();
    examineTextLog();
    examineData(); // the template is one of its files
    examineWriteAccess();
    examineSave();
    examineRecord();
    examinePictures();
    examineLanguages();
    examineOpenGl();
    if (complaints == 0)
        return {};
    return complaints == 1 ? zel::String("1 check found something wrong")
                           : zel::String(complaints) + " checks found something wrong";
}

void Doctor::examineSimulator() {
    folder = Configuration::getRofDirectory();
    simulator = checkSimulatorIn(folder);
    if (simulator.isThere)
        return good(DoctorCheck::Simulator, wording::DoctorFolder, {printedFolder(folder)});
    chooseSimulator();
}

void Doctor::chooseSimulator() {
    const bool isSet = !folder.empty();
    SimulatorSearch search;
    search.start(roots);
    search.wait();
    const std::vector<SimulatorPlace> places = search.places();
    SettingWritten written;
    if (fixes && !places.empty())
        written = writeSimulatorFolder(places.front().folder);
    folder = Configuration::getRofDirectory();
    simulator = checkSimulatorIn(folder);
    std::vector<zel::String> details;
    if (written.fault != zel::FileFault::None)
        details.push_back(printedWording(wording::PlaceUnset,
                                         {printedName(written.file), printedFault(written.fault)}));
    for (const SimulatorPlace& place : places)
        details.push_back(printedWording(
            wording::FoundPlace,
            {printedName(place.folder), zel::system::printedText(foundByText(place.foundBy))}));
    if (places.empty())
        details.push_back(printedWording(wording::FoundNothing));
    if (!search.isWhole())
        details.push_back(printedWording(wording::SearchCut));
    if (!simulator.isThere) {
        details.insert(details.begin(), printedFolder(folder));
        return complain(DoctorCheck::Simulator,
                        isSet ? wording::NotTheSimulator : wording::NoSimulator, details);
    }
    say(wording::DoctorFixed, DoctorCheck::Simulator, wording::PlaceTaken,
        {printedName(places.front().folder), printedName(written.file)});
    for (const zel::String& detail : details)
        addDetail(detail);
}

void Doctor::examineTextLog() {
    if (!simulator.isThere)
        return note(DoctorCheck::TextLog, wording::NotLookedAt);
    if (simulator.textLog == TextLog::Off && fixes)
        return switchLogOn();
    if (simulator.textLog == TextLog::Off)
        return complain(DoctorCheck::TextLog, wording::TextLogOff);
    if (simulator.textLog == TextLog::Unknown)
        return complain(DoctorCheck::TextLog, wording::TextLogUnknown,
                        {printedFault(simulator.settingsFault)});
    if (simulator.newestLog.empty())
        return good(DoctorCheck::TextLog, wording::LogNone);
    good(DoctorCheck::TextLog, wording::LogNewest, {simulator.newestLog});
}

void Doctor::switchLogOn() {
    const TextLogSwitch result = switchTextLogOn(folder);
    if (!result.isOn())
        return complain(DoctorCheck::TextLog, wording::TextLogOff,
                        {zel::system::printedText(result.text())});
    say(wording::DoctorFixed, DoctorCheck::TextLog, wording::LogSwitchedOn);
    addDetail(zel::system::printedText(result.text()));
}

void Doctor::examineWriteAccess() {
    const zel::FileFault own = folderFault(zel::getUserDirectory() + CurrentFolder);
    if (own != zel::FileFault::None)
        complain(DoctorCheck::WriteAccess, wording::UserFolderLocked,
                 {printedName(zel::system::absolutePath(zel::getUserDirectory())) + ": " +
                  printedFault(own)});
    const bool isLocked = simulator.isThere && simulator.missionsFault != zel::FileFault::None;
    if (isLocked)
        complain(DoctorCheck::WriteAccess, wording::MissionsLocked,
                 {printedFault(simulator.missionsFault)});
    if (own == zel::FileFault::None && !isLocked)
        good(DoctorCheck::WriteAccess,
             simulator.isThere ? wording::FoldersOpen : wording::OwnFolderOpen);
}

void Doctor::examineSave() {
    if (!zel::system::fileStatus(saveFile()).exists)
        return good(DoctorCheck::Save, wording::NoSaveYet);
    std::string content;
    const zel::FileFault unread = zel::readFileWhole(saveFile(), content);
    const zel::String fault =
        unread != zel::FileFault::None ? zel::faultText(unread) : saveFault(content);
    if (!fault.empty())
        return complain(DoctorCheck::Save, wording::SaveUnusable,
                        {printedName(saveFile()) + ": " + fault});
    switch (matchOf(content)) {
    case SaveMatch::Changed:
        return complain(DoctorCheck::Save, wording::SaveChanged, {printedName(saveFile())});
    case SaveMatch::Unknown:
        return good(DoctorCheck::Save, wording::SaveUnmatched);
    case SaveMatch::Whole:
        return good(DoctorCheck::Save, wording::SaveWhole);
    }
}

void Doctor::examineRecord() {
    const zel::String path = zel::getUserDirectory() + CurrentFolder + "/" + RecordFileName;
    if (!zel::system::fileStatus(path).exists)
        return good(DoctorCheck::Record, wording::NoRecordYet);
    const SaveSummary save = summaryOf(saveFile());
    if (!save.isReadable)
        return note(DoctorCheck::Record, wording::NotLookedAt);
    SqliteFile copy;
    const RecordState state = openRecordCopy(copy, path, save.careerNumber);
    if (state == RecordState::Ready)
        return good(DoctorCheck::Record, wording::RecordWhole);
    complain(DoctorCheck::Record, wording::RecordUnusable,
             {printedName(path) + ": " + recordStateTexts(state).text});
}

void Doctor::examineData() {
    DataFaults own;
    DataFaults delivered;
    DataFaults ofTemplate;
    for (const tools::Finding& finding : datacheck::checkData("Data")) {
        const std::string_view file = finding.file;
        if (finding.isWarning)
            continue;
        if (file.find("Custom") != file.npos)
            own.add(finding);
        else if (file.find("Missions") != file.npos)
            ofTemplate.add(finding);
        else
            delivered.add(finding);
    }
    if (ofTemplate.count > 0)
        complain(DoctorCheck::Template, wording::TemplateDamaged, {ofTemplate.first});
    else
        good(DoctorCheck::Template, wording::TemplateWhole);
    if (delivered.count > 0)
        complain(DoctorCheck::Data, wording::DataDamaged, {delivered.first});
    if (own.count > 0)
        complain(DoctorCheck::Data, wording::OwnDataFaulty, {own.first});
    if (delivered.count + own.count == 0)
        good(DoctorCheck::Data, wording::DataWhole);
}

void Doctor::examinePictures() {
    const FilesLook look = lookThroughScreens();
    if (look.faults.empty())
        return good(DoctorCheck::Pictures, wording::FilesWhole, {look.count});
    complain(DoctorCheck::Pictures, wording::PicturesDamaged, {look.faults.front()});
}

void Doctor::examineLanguages() {
    const FilesLook look = lookThroughLanguages();
    if (look.faults.empty())
        return good(DoctorCheck::Languages, wording::TablesWhole, {look.count});
    complain(DoctorCheck::Languages, wording::LanguagesIncomplete, {look.faults.front()});
}

void Doctor::examineOpenGl() {
    if (!zel::system::hasOpenGl())
        return complain(DoctorCheck::OpenGl, wording::NoOpenGl);
    good(DoctorCheck::OpenGl, wording::OpenGlThere);
    if (!zel::system::hasDisplay())
        note(DoctorCheck::OpenGl, wording::NoScreen);
}
