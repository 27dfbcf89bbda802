#include "app/mission/SimulatorSearch.h"

#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

#include "engine/core/Clock.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

/// In the folder of a test: "HERE" is replaced by its path.
struct SearchCase {
    const char* name;
    std::vector<std::pair<std::string, std::string>> files; // content "" for a startup.cfg
    std::vector<std::pair<std::string, std::string>> links; // name, target
    std::vector<std::string> places;                        // "FOUND-BY folder"
    SearchRoots roots = {"", "", "", "HERE/home", "", {}};
};

std::string manifest(const std::string& folder) {
    return "\"AppState\"\n{\n\t\"appid\"\t\t\"244050\"\n\t\"installdir\"\t\t\"" + folder +
           "\"\n}\n";
}
std::string simulator(const std::string& folder) { return folder + "/data/startup.cfg"; }
const std::string Steam = "home/.local/share/Steam";
const std::string Flatpak = "home/.var/app/com.valvesoftware.Steam/.local/share/Steam";

std::vector<SearchCase> steamCases() {
    std::vector<SearchCase> cases;
    cases.push_back({"none", {{"home/Games/other/data/start.cfg", "x"}}, {}, {}});
    cases.push_back({"Steam's old list",
                     {{Steam + "/steamapps/libraryfolders.vdf",
                       "\"LibraryFolders\"\n{\n\t\"TimeNextStatsReport\"\t\t\"1500000000\"\n"
                       "\t\"1\"\t\t\"HERE/disk\"\n}\n"},
                      {"disk/steamapps/appmanifest_244050.acf", manifest("Rise of Flight")},
                      {simulator("disk/steamapps/common/Rise of Flight"), ""}},
                     {},
                     {"Steam disk/steamapps/common/Rise of Flight"}});
    cases.push_back({"Steam's new list, with a comment and without an end",
                     {{Steam + "/config/libraryfolders.vdf",
                       "// \"0\" { \"path\" \"HERE/wrong\" }\n\"libraryfolders\"\r\n{\r\n"
                       "\t\"0\"\r\n\t{\r\n\t\t\"path\"\t\t\"HERE/home/none\"\r\n"
                       "\t\t\"apps\" { \"244050\" \"1/2\" }\r\n\t}\r\n"
                       "\t\"1\"\r\n\t{\r\n\t\t\"path\"\t\t\"HERE/disk\""},
                      {simulator("wrong/steamapps/common/a"), ""},
                      {simulator("disk/steamapps/common/a"), ""}},
                     {},
                     {"Steam disk/steamapps/common/a"}});
    cases.push_back({"a later simulator of the same make beside it",
                     {{simulator(Steam + "/steamapps/common/later"), ""},
                      {Steam + "/steamapps/common/later/bin/game/x", ""},
                      {Steam + "/steamapps/appmanifest_244050.acf", manifest("../../elsewhere")},
                      {simulator(Steam + "/elsewhere"), ""}},
                     {},
                     {}});
    cases.push_back({"Flatpak",
                     {{simulator(Flatpak + "/steamapps/common/ROF"), ""},
                      {simulator("home/.var/app/com.usebottles.bottles/data/bottles/bottles/b/"
                                 "drive_c/Rise of Flight"),
                       ""}},
                     {},
                     {"Steam " + Flatpak + "/steamapps/common/ROF",
                      "Wine home/.var/app/com.usebottles.bottles/data/bottles/bottles/b/drive_c/"
                      "Rise of Flight"}});
    cases.push_back(
        {"Proton",
         {{simulator(Steam + "/steamapps/compatdata/77/pfx/drive_c/Games/777/ROF"), ""}},
         {},
         {"Proton " + Steam + "/steamapps/compatdata/77/pfx/drive_c/Games/777/ROF"}});
    return cases;
}

std::vector<SearchCase> otherCases() {
    std::vector<SearchCase> cases;
    cases.push_back(
        {"Wine and Lutris",
         {{simulator("home/.wine/drive_c/Program Files (x86)/Rise of Flight"), ""},
          {simulator("home/.wine/drive_c/windows/ROF"), ""},
          {simulator("prefix/drive_c/ROF"), ""},
          {"home/.config/lutris/games/rof-1.yml", "game:\n  exe: x\n  prefix: HERE/of lutris\n"},
          {simulator("of lutris/drive_c/ROF"), ""}},
         {},
         {"Wine prefix/drive_c/ROF", "Wine of lutris/drive_c/ROF",
          "Wine home/.wine/drive_c/Program Files (x86)/Rise of Flight"},
         {"", "", "", "HERE/home", "HERE/prefix", {}}});
    cases.push_back(
        {"the registry, the place before, and the disks",
         {{simulator("before"), ""},
          {simulator("registry"), ""},
          {simulator("disk/Games/Rise of Flight"), ""},
          {simulator("disk/SteamLibrary/steamapps/common/a"), ""},
          {simulator("disk/a/b/c"), ""},
          {simulator("disk/Data/Games/ROF"), ""},
          {simulator("disk/a/b/c/d/e"), ""}, // too deep
          {simulator("disk/.hidden"), ""}},
         {},
         {"Last time before", "Registry registry", "Steam disk/SteamLibrary/steamapps/common/a",
          "Disk disk/Games/Rise of Flight", "Disk disk/Data/Games/ROF", "Disk disk/a/b/c"},
         {"HERE/before", "HERE/registry/", "HERE/none", "", "", {"HERE/disk/"}}});
    cases.push_back({"one place by two ways, and the one before is gone",
                     {{simulator("disk/ROF"), ""}},
                     {},
                     {"Registry disk/ROF"},
                     {"HERE/gone", "HERE/disk/ROF", "", "", "", {"HERE/disk"}}});
    return cases;
}

std::vector<SearchCase> oddCases() {
    std::vector<SearchCase> cases;
    SearchCase many{"ten at once", {}, {}, {}};
    for (int32_t i = 0; i < 10; ++i) {
        const std::string place =
            "home/.local/share/bottles/bottles/" + std::to_string(i) + "/drive_c/ROF";
        many.files.emplace_back(simulator(place), "");
        many.places.push_back("Wine " + place);
    }
    cases.push_back(many);
#ifndef _WIN32
    cases.push_back(
        {"link loops, a locked folder, other names of one place, a prefix that has all disks",
         {{simulator("disk/ROF"), ""}, {"home/.wine/drive_c/x", "x"}, {"disk/locked/x", "x"}},
         {{"disk/loop", "."},
          {"disk/itself", "itself"},
          {"disk/up", ".."},
          {"home/.steam/steam", "../loop"},
          {"home/loop", "loop"},
          {"home/.wine/dosdevices/z:", "/"},
          {"home/.wine/dosdevices/d:", "../../../disk/ROF"}},
         {"Wine home/.wine/dosdevices/d:"},
         {"", "", "", "HERE/home", "", {"HERE/disk"}}});
    cases.push_back({"other capitals",
                     {{"home/.wine/drive_c/ROF/Data/Startup.CFG", "x"}},
                     {},
                     {"Wine home/.wine/drive_c/ROF"}});
#endif
    return cases;
}

std::string filled(std::string text, const std::string& here) {
    for (size_t at = text.find("HERE"); at != text.npos; at = text.find("HERE"))
        text.replace(at, 4, here);
    return text;
}

void makeTree(const SearchCase& one, const TemporaryFolder& folder, const std::string& here) {
    for (const auto& [name, content] : one.files)
        folder.write(name, content.empty() ? "x" : filled(content, here));
    for (const auto& [name, target] : one.links)
        fs::create_symlink(target, folder.file(name));
    folder.file("home/x");
    if (fs::exists(here + "/disk/locked"))
        fs::permissions(here + "/disk/locked", fs::perms::none);
}

TEST(SimulatorSearch, FindsThePlacesOfATree) {
    std::vector<SearchCase> cases = steamCases();
    for (const auto& more : {otherCases(), oddCases()})
        cases.insert(cases.end(), more.begin(), more.end());
    for (const SearchCase& one : cases) {
        const TemporaryFolder folder;
        const std::string here = fs::path(folder.path()).generic_string();
        makeTree(one, folder, here);
        SearchRoots roots = one.roots;
        for (zel::String* root :
             {&roots.lastTime, &roots.registry, &roots.steam, &roots.home, &roots.winePrefix})
            *root = filled(std::string(root->view()), here);
        for (zel::String& drive : roots.drives)
            drive = filled(std::string(drive.view()), here);
        std::vector<std::string> found;
        SimulatorSearch search;
        search.start(roots);
        search.wait();
        for (const SimulatorPlace& place : search.places()) {
            const std::string path = fs::path(place.folder.c_str()).generic_string();
            EXPECT_EQ(path.rfind(here + "/", 0), 0u) << path;
            found.push_back(std::string(foundByText(place.foundBy).view()) + " " +
                            path.substr(here.size() + 1));
        }
        EXPECT_EQ(found, one.places) << one.name;
        EXPECT_TRUE(search.isWhole()) << one.name;
        EXPECT_FALSE(search.isRunning());
    }
}

TEST(SimulatorSearch, EndsAtItsBounds) {
    const TemporaryFolder folder;
    for (int32_t i = 0; i < 20; ++i)
        folder.write("disk/" + std::to_string(i) + "/data/startup.cfg", "x");
    SearchRoots roots;
    roots.drives = {folder.path() + "/disk"};
    EXPECT_EQ(findSimulators(roots).size(), 20u);
    EXPECT_EQ(findSimulators(roots, {2000, 100, 5}).size(), 5u) << "places";
    const size_t few = findSimulators(roots, {2000, 6, 100}).size();
    EXPECT_TRUE(few >= 4 && few <= 6) << few << " of six folders";
    EXPECT_TRUE(findSimulators(roots, {0, 100, 100}).empty()) << "time";
    SimulatorSearch search;
    search.start(roots, {0, 100, 100});
    search.wait();
    EXPECT_FALSE(search.isWhole());
}

} // namespace
