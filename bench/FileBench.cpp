// Reading and writing against the C and C++ library's plain calls on the same bytes.

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "app/career/Database.h"
#include "app/mission/MissionGenerator.h"
#include "app/report/CombatReport.h"
#include "bench/Benches.h"
#include "bench/RatioReport.h"
#include "bench/WorkFolder.h"
#include "engine/core/Random.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/UserDirectory.h"

namespace fs = std::filesystem;

namespace {

constexpr uint32_t FileSeed = 20260;
constexpr int32_t LogLines = 100000;
constexpr int32_t UsualPlanes = 8; // in a log
constexpr int32_t ManyPlanes = 2000;
constexpr int32_t FewerPlanes = ManyPlanes / 10;

const std::string& workFolder() {
    static const WorkFolder folder;
    return folder.path;
}

std::vector<std::string> dataFiles() {
    std::vector<std::string> names;
    for (const char* folder : {"Data/Historical/Squadrons", "Data/Historical/Pilots"})
        for (const auto& entry : fs::directory_iterator(folder))
            names.push_back(entry.path().string());
    return names;
}

size_t readPlainly(const std::string& name, std::vector<char>& buffer) {
    FILE* file = std::fopen(name.c_str(), "rb");
    if (file == nullptr)
        return 0;
    const size_t count = std::fread(buffer.data(), 1, buffer.size(), file);
    std::fclose(file);
    return count;
}

void newCareer(benchmark::State& state) {
    zel::Random::setStaticNumber(FileSeed);
    Database career;
    const MissionGenerator generator;
    for (auto unused : state) {
        static_cast<void>(unused);
        career.createCareer(ServiceFrench);
    }
}

void newCareerBare(benchmark::State& state) {
    const std::vector<std::string> names = dataFiles();
    std::vector<char> buffer(1 << 20);
    for (auto unused : state) {
        static_cast<void>(unused);
        size_t bytes = 0;
        for (const std::string& name : names)
            bytes += readPlainly(name, buffer);
        benchmark::DoNotOptimize(bytes);
    }
}

/// A career as it is in the middle of the war.
Database& grownCareer() {
    zel::setUserDirectory(workFolder()); // other benchmarks have folders of their own
    static const auto career = [] {
        zel::Random::setStaticNumber(FileSeed);
        auto grown = std::make_unique<Database>();
        const MissionGenerator generator;
        grown->createCareer(ServiceGerman);
        grown->simulateToDate(1917, 6, 1);
        return grown;
    }();
    return *career;
}

std::string saveFile() { return workFolder() + "/Saves/savegame_v03.wty"; }

void store(benchmark::State& state) {
    for (auto unused : state) {
        static_cast<void>(unused);
        grownCareer().storeFile(SaveFileName);
    }
}

void storeBare(benchmark::State& state) {
    grownCareer().storeFile(SaveFileName);
    std::vector<char> buffer(fs::file_size(saveFile()));
    readPlainly(saveFile(), buffer);
    for (auto unused : state) {
        static_cast<void>(unused);
        fs::remove(workFolder() + "/bare");
        zel::system::NewFile file;
        if (!file.create(workFolder() + "/bare") || !file.write({buffer.data(), buffer.size()}) ||
            !file.sync() || !file.close())
            state.SkipWithError("the bytes can't be written");
    }
}

void load(benchmark::State& state) {
    grownCareer().storeFile(SaveFileName);
    Database career;
    for (auto unused : state) {
        static_cast<void>(unused);
        if (!career.loadFile(SaveFileName))
            state.SkipWithError("the save file can't be read");
    }
}

// The bytes in memory, and a copy of them as records: the least that checking a save before using
// it needs.
void loadBare(benchmark::State& state) {
    grownCareer().storeFile(SaveFileName);
    std::vector<char> buffer(fs::file_size(saveFile()));
    std::vector<char> records(buffer.size());
    for (auto unused : state) {
        static_cast<void>(unused);
        benchmark::DoNotOptimize(readPlainly(saveFile(), buffer));
        std::memcpy(records.data(), buffer.data(), buffer.size());
        benchmark::ClobberMemory();
    }
}

void writeLog(const std::string& path, int32_t planes) {
    std::ofstream log(path, std::ios::binary);
    log << "T:0 AType:15 VER:18\r\n";
    for (int32_t i = 0; i < planes; ++i) {
        log << "T:5 AType:12 ID:" << 20000 + i
            << " TYPE:SPAD 7.C1 150hp COUNTRY:" << (i < planes / 2 ? 101 : 501)
            << " NAME:Jean Martin " << i << " PID:-1\r\n"
            << "T:5 AType:12 ID:" << 30000 + i
            << " TYPE:Common Bot COUNTRY:101 NAME: PID:" << 20000 + i << "\r\n";
    }
    zel::Random random(FileSeed);
    int32_t from = 20000;
    int32_t to = 20000 + planes / 2;
    for (int32_t i = 1 + 2 * planes; i < LogLines; ++i) {
        if (i % 20 == 0) { // after a burst somebody else fires
            from = 20000 + random.getInt(0, planes - 1);
            to = 20000 + random.getInt(0, planes - 1);
        }
        if (i % 3 == 0)
            log << "T:" << i << " AType:2 DMG:0.012 AID:" << from << " TID:" << to
                << " POS(211602.250,1580.125,63020.500)\r\n";
        else
            log << "T:" << i << " AType:1 AMMO:BULLET_GER_792x57_SS AID:" << from << " TID:" << to
                << "\r\n";
    }
}

/// The name, in the work folder, of a log of one long fight: planes and pilots first, then hits,
/// damage and positions.
std::string logOf(int32_t planes) {
    std::string name = "log" + std::to_string(planes) + "[0].txt";
    const std::string path = workFolder() + "/" + name;
    if (!fs::exists(path))
        writeLog(path, planes);
    return name;
}

void readLog(benchmark::State& state, int32_t planes) {
    const std::string name = logOf(planes);
    CombatReport report;
    for (auto unused : state) {
        static_cast<void>(unused);
        state.PauseTiming(); // giving the last one's memory back is not reading
        report.clear();
        state.ResumeTiming();
        benchmark::DoNotOptimize(report.readMission(workFolder() + "/", name));
    }
}

void readLogBare(benchmark::State& state) {
    const std::string path = workFolder() + "/" + logOf(UsualPlanes);
    for (auto unused : state) {
        static_cast<void>(unused);
        std::ifstream file(path, std::ios::binary);
        std::string line;
        size_t bytes = 0;
        while (std::getline(file, line))
            bytes += line.size();
        if (bytes == 0)
            state.SkipWithError("the log is gone");
    }
}

} // namespace

void registerFileBenches() {
    using benchmark::kMillisecond;
    struct Bench {
        const char* name;
        std::function<void(benchmark::State&)> run;
    };
    const auto logWith = [](int32_t planes) {
        return [planes](benchmark::State& state) { readLog(state, planes); };
    };
    const Bench benches[] = {
        {"createCareer/ours", newCareer},
        {"createCareer/bare", newCareerBare},
        {"storeFile/ours", store},
        {"storeFile/bare", storeBare},
        {"loadFile/ours", load},
        {"loadFile/bare", loadBare},
        {"log of 100000 lines/ours", logWith(UsualPlanes)},
        {"log of 100000 lines/bare", readLogBare},
        {"log of 2000 planes against 200/ours", logWith(ManyPlanes)},
        {"log of 2000 planes against 200/bare", logWith(FewerPlanes)},
    };
    for (const Bench& bench : benches)
        benchmark::RegisterBenchmark(bench.name, bench.run)->Unit(kMillisecond);
    RatioReport::setLimit("createCareer", 3);
    RatioReport::setLimit("storeFile", 3);
    RatioReport::setLimit("loadFile", 3);
    RatioReport::setLimit("log of 100000 lines", 4);
    RatioReport::setLimit("log of 2000 planes against 200", 2);
}
