// How long the player waits: from the start of the process to the first picture of the main menu at
// full strength, against a bare program that opens the same window and decodes the same pictures.
// Both are run as processes of their own, turn by turn. A second line shows the same for a large
// window with pictures of twice the size, a third when the plates, which slide in for a tenth of a
// second, have come to rest.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#ifndef _WIN32
#include <sys/resource.h>
#include <sys/wait.h>
#endif

#include <SDL.h>
#include <SDL_opengl.h>
#include <stb_image.h>

#include "app/mission/Configuration.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/Window.h"
#include "engine/window/ZelLoop.h"

namespace {

constexpr int Turns = 11;
constexpr double Limit = 1.5;
constexpr double MostWakeUps = 150; // a second
struct Size {
    int width, height;
};
constexpr Size Plain{1024, 768};
constexpr Size Large{1440, 1080}; // what a screen of 1920 by 1080 shows of the design
// Beside the folder of the staged data, which a package is compared with.
constexpr const char* ListFile = "../start_bench.lst"; // the pictures that ours has loaded
constexpr const char* UserFolder = "../start_bench.user";
constexpr const char* Simulator = "../start_bench.simulator";

std::vector<std::string>& loadedPictures() {
    static std::vector<std::string> files;
    return files;
}

/// Keeps "[System] Loaded FILE", which comes for each picture.
void noteLine(const zel::String& line) {
    constexpr std::string_view Mark = "[System] Loaded ";
    const size_t place = line.view().find(Mark);
    if (place == std::string_view::npos)
        return;
    const std::string_view rest = line.view().substr(place + Mark.size());
    const std::string name(rest.substr(0, rest.find(" (")));
    std::vector<std::string>& known = loadedPictures();
    if (std::find(known.begin(), known.end(), name) == known.end())
        known.push_back(name);
}

/// A simulator's folder in which the main menu finds nothing wrong.
void makeSimulator() {
    std::filesystem::create_directories(std::string(Simulator) + "/data");
    std::ofstream(std::string(Simulator) + "/data/startup.cfg") << "mission_text_log = 1\n";
}

void prepareOurs() {
    zel::setLogSink(noteLine);
    zel::setUserDirectory(zel::system::absolutePath(UserFolder));
    Configuration::set("rof.directory", Simulator);
}

int startOurs(bool atRest, const Size& size) {
    prepareOurs();
    zel::ZelLoop loop;
    if (zel::Window* window = zel::Window::current())
        window->resize(size.width, size.height);
    const zel::StatesMachine& machine = zel::StatesMachine::getInstance();
    const auto isFull = [&] {
        return machine.getActiveState() != nullptr &&
               (atRest ? machine.isSettled() : machine.getPhase() == zel::StatesMachine::FadeIn);
    };
    while (!isFull())
        loop.step();
    loop.step(); // draws it
    loop.step(); // shows it
    std::ofstream list(ListFile);
    for (const std::string& file : loadedPictures())
        list << file << '\n';
    list.close();
    std::_Exit(zel::Window::current() != nullptr ? 0 : 1);
}

/// How often all threads of the process have waited for something so far; 0 where the system
/// doesn't report it.
int64_t waits() {
#ifdef _WIN32
    return 0;
#else
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_nvcsw;
#endif
}

enum IdleCode { Calm, Restless, NoWindow }; // exit codes of idleOurs()

/// How often a second the program wakes up while nobody does anything.
int idleOurs() {
    using Clock = std::chrono::steady_clock;
    constexpr double Seconds = 5;
    prepareOurs();
    zel::ZelLoop loop;
    const zel::StatesMachine& machine = zel::StatesMachine::getInstance();
    while (machine.getActiveState() == nullptr || !machine.isSettled())
        loop.step();
    if (zel::Window::current() == nullptr) {
        std::fprintf(stderr, "start_bench: no window\n");
        std::_Exit(NoWindow);
    }
    const Clock::time_point start = Clock::now();
    const int64_t before = waits();
    std::chrono::duration<double> passed{};
    for (; passed.count() < Seconds; passed = Clock::now() - start)
        loop.step();
    const double rate = static_cast<double>(waits() - before) / passed.count();
    std::printf("%-34s %7.1f a second %29.0f%s\n", "idle wake-ups", rate, MostWakeUps,
                rate <= MostWakeUps ? "" : "  BROKEN");
    std::fflush(stdout);
    std::_Exit(rate <= MostWakeUps ? Calm : Restless);
}

int startBare(const Size& size) {
    if (SDL_Init(SDL_INIT_EVERYTHING) != 0 && SDL_Init(SDL_INIT_VIDEO | SDL_INIT_TIMER) != 0)
        return 1;
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    if (SDL_SetVideoMode(size.width, size.height, 32, SDL_OPENGL | SDL_RESIZABLE) == nullptr)
        return 1;
    std::ifstream list(ListFile);
    for (std::string file; std::getline(list, file);) {
        int width = 0, height = 0, channels = 0;
        std::ifstream stream(file, std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(stream)), {});
        stbi_uc* pixels =
            stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(bytes.data()),
                                  static_cast<int>(bytes.size()), &width, &height, &channels, 0);
        if (pixels == nullptr)
            return 1;
        stbi_image_free(pixels);
    }
    glClear(GL_COLOR_BUFFER_BIT);
    SDL_GL_SwapBuffers();
    std::_Exit(0);
}

/// The exit code of a process that was started; negative if there is none.
int run(const std::string& command) {
    const int result = std::system(command.c_str());
#ifdef _WIN32
    return result;
#else
    return WIFEXITED(result) ? WEXITSTATUS(result) : -1;
#endif
}

/// Seconds until the process has ended; negative if it failed.
double timed(const std::string& command) {
    const auto before = std::chrono::steady_clock::now();
    const int result = run(command);
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - before;
    return result == 0 ? passed.count() : -1;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Prints a line of the table. The ratio; negative on error.
double compare(const std::string& program, const char* name, const std::string& ours,
               const std::string& bare, double limit) {
    timed(program + " " + ours); // warms the caches up and lists the pictures
    std::vector<double> oursTimes, bareTimes;
    for (int turn = 0; turn < Turns; ++turn) {
        oursTimes.push_back(timed(program + " " + ours));
        bareTimes.push_back(timed(program + " " + bare));
        if (oursTimes.back() < 0 || bareTimes.back() < 0) {
            std::fprintf(stderr, "start_bench: no window, or a picture that can't be read\n");
            return -1;
        }
    }
    const double ratio = median(oursTimes) / median(bareTimes);
    std::printf("%-34s %7.2f ms %7.2f ms %7.2f", name, median(oursTimes) * 1000,
                median(bareTimes) * 1000, ratio);
    if (limit > 0)
        std::printf(" %10.2f%s", limit, ratio <= limit ? "" : "  BROKEN");
    std::printf("\n");
    return ratio;
}

int compareAll(const std::string& program, bool enforce) {
    makeSimulator();
    const double full = compare(program, "start", "--ours", "--bare", Limit);
    const double large =
        compare(program, "start, large window", "--ours-large", "--bare-large", Limit);
    const double atRest = compare(program, "start, at rest", "--ours-at-rest", "--bare", 0);
    const int idle = run(program + " --idle");
    const bool failed = full < 0 || large < 0 || atRest < 0 || (idle != Calm && idle != Restless);
    const bool holds = full <= Limit && large <= Limit && idle == Calm;
    return failed || (enforce && !holds) ? 1 : 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto has = [&](const char* word) {
        return std::find(arguments.begin(), arguments.end(), word) != arguments.end();
    };
    if (has("--ours") || has("--ours-at-rest") || has("--ours-large"))
        return startOurs(has("--ours-at-rest"), has("--ours-large") ? Large : Plain);
    if (has("--idle"))
        return idleOurs();
    if (has("--bare") || has("--bare-large"))
        return startBare(has("--bare-large") ? Large : Plain);
    return compareAll(argv[0], has("--enforce"));
}
