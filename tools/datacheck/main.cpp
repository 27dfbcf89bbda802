#include <cstdio>
#include <string_view>

#include "engine/core/System.h"
#include "tools/datacheck/DataCheck.h"

namespace {

constexpr const char* Usage =
    "Usage: wingtally-datacheck [--coverage] [FOLDER]\n"
    "Checks the squadron, pilot and name files and the mission template in FOLDER, the folder "
    "Data\n"
    "or the one that holds it; without FOLDER, those that the program itself would use. Prints "
    "each\n"
    "fault as file:line: what is wrong and what to write instead.\n"
    "  --coverage  prints, for each nation and month, how many of the squadrons have one and\n"
    "              every type that is then in use in the career\n"
    "Exit status: 0 no fault, 1 faults, 2 a wrong call or no data.\n";

struct Call {
    bool coverage = false;
    bool help = false;
    bool isWrong = false;
    zel::String folder;
};

Call readCall(int argc, char** argv) {
    Call call;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--coverage")
            call.coverage = true;
        else if (argument == "--help" || argument == "-h")
            call.help = true;
        else if (argument.empty() || argument.front() == '-' || !call.folder.empty())
            call.isWrong = true;
        else
            call.folder = zel::String(argument);
    }
    return call;
}

int run(const Call& call) {
    const zel::String found = call.folder.empty() ? zel::findRunDirectory() : zel::String();
    const zel::String start = found.empty() ? call.folder : zel::system::absolutePath(found);
    const zel::String folder = start.empty() ? start : datacheck::findDataFolder(start);
    if (folder.empty()) {
        std::fprintf(stderr, "wingtally-datacheck: no data in %s\n",
                     start.empty() ? "the places where the program looks" : start.c_str());
        return 2;
    }
    if (call.coverage) {
        std::fputs(datacheck::coverageTable(folder).c_str(), stdout);
        return 0;
    }
    const datacheck::Faults faults = datacheck::checkData(folder);
    for (const datacheck::Fault& fault : faults)
        std::printf("%s:%d: %s\n", fault.file.c_str(), fault.line, fault.what.c_str());
    return faults.empty() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    const Call call = readCall(argc, argv);
    if (call.help || call.isWrong) {
        std::fputs(Usage, call.help ? stdout : stderr);
        return call.help ? 0 : 2;
    }
    return run(call);
}
