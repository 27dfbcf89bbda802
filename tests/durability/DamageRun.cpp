// Damages a career's save and its record in many ways, one bit or one cut at a time, and loads the
// career each time: nothing may crash, and whatever changes the career or the record must be
// reported. durability.py makes the career and runs this.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "app/career/Database.h"
#include "app/record/CareerRecord.h"
#include "app/record/RecordExport.h"
#include "engine/core/Log.h"
#include "engine/core/Random.h"
#include "engine/core/UserDirectory.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* Usage =
    R"(Usage: damage-run USER_FOLDER NUMBER [SEED]

In the folder is a saved career. Damages its save NUMBER times and then its record as often, and
loads it each time. Exit status: 0 if all that changed anything was reported, otherwise 1.)";

int32_t linesLogged = 0;

std::string contentOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream content;
    content << stream.rdbuf();
    return content.str();
}

void write(const std::string& file, const std::string& content) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << content;
}

/// One damage of a file, which is put back at its end.
class Damage {
public:
    Damage(std::string path, const std::string& whole, zel::Random& random)
        : path(std::move(path)), whole(whole) {
        const auto place =
            static_cast<size_t>(random.getInt(0, static_cast<int32_t>(whole.size()) - 1));
        const bool isCut = random.getInt(0, 3) == 0;
        const int32_t bit = random.getInt(0, 7);
        text = isCut ? "cut at " : "bit " + std::to_string(bit) + " of ";
        text += std::to_string(place);
        if (isCut) {
            fs::resize_file(this->path, place);
            return;
        }
        std::fstream file(this->path, std::ios::binary | std::ios::in | std::ios::out);
        file.seekp(static_cast<std::streamoff>(place));
        file.put(static_cast<char>(whole[place] ^ 1 << bit));
    }
    ~Damage() { write(path, whole); }
    Damage(const Damage&) = delete;
    Damage& operator=(const Damage&) = delete;

    std::string text;

private:
    std::string path;
    const std::string& whole;
};

template <typename Record> bool isSame(const std::vector<Record>& a, const std::vector<Record>& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(Record)) == 0;
}

bool isSame(const Database& a, const Database& b) {
    return isSame(a.squadrons, b.squadrons) && isSame(a.pilots, b.pilots) &&
           isSame(a.dataLines, b.dataLines) && isSame(a.squadronFiles, b.squadronFiles) &&
           isSame(a.pilotFiles, b.pilotFiles) && a.playerPilot == b.playerPilot &&
           a.year == b.year && a.month == b.month && a.day == b.day &&
           a.careerNumber == b.careerNumber && a.unusedA == b.unusedA && a.unusedB == b.unusedB &&
           a.invitationYear == b.invitationYear && a.invitationMonth == b.invitationMonth &&
           a.invitationSquadron == b.invitationSquadron &&
           a.previousInvitation == b.previousInvitation;
}

struct Figures {
    int32_t refused = 0;
    int32_t reported = 0;
    int32_t harmless = 0; // everything is as it was
    int32_t silent = 0;   // something is not, and nothing was reported

    void print(const char* what) const {
        std::printf("%s: %d refused, %d reported, %d harmless, %d changed in silence\n", what,
                    refused, reported, harmless, silent);
        std::fflush(stdout);
    }
};

class DamageRun {
public:
    DamageRun(const std::string& folder, int32_t number, uint32_t seed)
        : saves(folder + "/Saves/"), number(number) {
        random.seed(seed);
        zel::setUserDirectory(folder);
        zel::setConsoleShown(false);
        zel::setLogSink([](const zel::String&) { ++linesLogged; });
    }

    bool run() {
        fs::remove(saves + "record.db-wal");
        save = contentOf(saves + "savegame_v03.wty");
        record = contentOf(saves + "record.db");
        {
            CareerRecord tables;
            whole.observer = &tables;
            const bool isLoaded = whole.loadFile(SaveFileName);
            rows = recordAsJson(tables.read(whole));
            whole.observer = nullptr;
            if (!isLoaded || whole.repairs.any() || rows.empty() || linesLogged > 0) {
                std::printf("there is no whole career\n");
                return false;
            }
        }
        const Figures ofSave = damage("savegame_v03.wty", save);
        ofSave.print("save");
        const Figures ofRecord = damage("record.db", record);
        ofRecord.print("record");
        return ofSave.silent + ofRecord.silent == 0;
    }

private:
    Figures damage(const std::string& name, const std::string& content) {
        Figures figures;
        for (int32_t i = 0; i < number; ++i) {
            const Damage done(saves + name, content, random);
            load(done.text, figures);
            putRecordBack();
        }
        return figures;
    }

    void load(const std::string& what, Figures& figures) {
        linesLogged = 0;
        CareerRecord tables;
        Database career;
        career.observer = &tables;
        if (!career.loadFile(SaveFileName)) {
            ++(linesLogged > 0 ? figures.refused : figures.silent);
            return;
        }
        if (career.repairs.any() || linesLogged > 0) {
            ++figures.reported;
            return;
        }
        const bool isWhole = isSame(career, whole) && recordAsJson(tables.read(career)) == rows;
        ++(isWhole ? figures.harmless : figures.silent);
        if (!isWhole && figures.silent <= MostShown)
            std::printf("  %s was not reported\n", what.c_str());
    }

    /// Removes what loading has set aside.
    void putRecordBack() const {
        for (const auto& entry : fs::directory_iterator(saves)) {
            const std::string name = entry.path().filename().string();
            if (name != "savegame_v03.wty" && name != "record.db")
                fs::remove(entry.path());
        }
        if (!fs::exists(saves + "record.db"))
            write(saves + "record.db", record);
    }

    static constexpr int32_t MostShown = 10;
    std::string saves;
    int32_t number;
    zel::Random random;
    Database whole;
    std::string save;
    std::string record;
    std::string rows; // of the whole record, as JSON
};

} // namespace

int main(int count, char** words) {
    if (count < 3) {
        std::fprintf(stderr, "%s\n", Usage);
        return 2;
    }
    const auto seed = static_cast<uint32_t>(count > 3 ? std::atoi(words[3]) : 1);
    return DamageRun(fs::absolute(words[1]).string(), std::atoi(words[2]), seed).run() ? 0 : 1;
}
