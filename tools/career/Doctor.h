#pragma once

#include <utility>
#include <vector>

#include "app/mission/SearchRoots.h"
#include "app/mission/SimulatorChecks.h"
#include "engine/core/String.h"

struct Wording;
namespace wording {
struct Complaint;
}

/// What the doctor checks, in its order.
enum class DoctorCheck {
    Simulator,
    TextLog,
    Template,
    WriteAccess,
    Save,
    Record,
    Data,
    Pictures,
    Languages,
    OpenGl,
};
constexpr int32_t DoctorCheckCount = static_cast<int32_t>(DoctorCheck::OpenGl) + 1;

/// Checks everything that a career needs, and says what to do about each fault. The working
/// directory is that of the program's files. Changes nothing unless it was asked to fix: then it
/// sets the simulator's folder to the one that it finds, and switches the text log on.
class Doctor {
public:
    /// roots: where it searches for the simulator.
    Doctor(bool fixes, bool isQuiet, SearchRoots roots = SearchRoots::ofSystem())
        : roots(std::move(roots)), fixes(fixes), isQuiet(isQuiet) {}

    /// Runs all checks and prints a line or a few for each. Returns how many found something wrong,
    /// for the program's error line; empty if all is well.
    zel::String examine();

private:
    void examineSimulator();
    void examineTextLog();
    void examineWriteAccess();
    void examineSave();
    void examineRecord();
    void examineData();
    void examinePictures();
    void examineLanguages();
    void examineOpenGl();

    void chooseSimulator();
    void switchLogOn();

    // `files`: names in the system's encoding, for the marks of the text in turn.
    using Files = std::vector<zel::String>;
    void say(const Wording& kind, DoctorCheck check, const Wording& what, const Files& files = {});
    void good(DoctorCheck check, const Wording& what, const Files& files = {});
    void note(DoctorCheck check, const Wording& what, const Files& files = {});
    void complain(DoctorCheck check, const wording::Complaint& complaint,
                  const std::vector<zel::String>& details = {});
    /// A further line of a check, in the terminal's encoding.
    void addDetail(const zel::String& printed) const;

    SearchRoots roots;
    bool fixes;
    bool isQuiet;
    int32_t complaints = 0;
    zel::String folder; // the simulator's
    SimulatorChecks simulator;
};
