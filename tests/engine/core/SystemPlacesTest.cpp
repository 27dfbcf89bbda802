#include "engine/core/SystemPlaces.h"

#ifndef _WIN32
#include <csignal>
#include <filesystem>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "engine/core/System.h"
#include "tests/support/TemporaryFolder.h"

namespace {

/// Whether a program is seen that was started with these arguments, within a second.
bool isSeen(const std::string& file, std::vector<std::string> words, const char* name) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t process = 0;
    if (posix_spawn(&process, file.c_str(), nullptr, nullptr, arguments.data(), environ) != 0)
        return false;
    bool isFound = false;
    for (int32_t attempt = 0; attempt < 50 && !isFound; ++attempt) {
        isFound = zel::system::isProgramRunning(name);
        zel::system::sleepMilliseconds(20);
    }
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    return isFound;
}

TEST(SystemPlaces, SeeARunningProgram) {
    const TemporaryFolder folder;
    const std::string copy = folder.file("WtSeen.exe");
    std::filesystem::copy("/bin/sleep", copy);
    EXPECT_FALSE(zel::system::isProgramRunning("wtseen.EXE"));
    EXPECT_TRUE(isSeen(copy, {"sleep", "9"}, "wtseen.EXE")) << "by its file";
    EXPECT_TRUE(isSeen("/bin/sleep", {"C:\\Games\\WtSeen.exe", "9"}, "WtSeen.exe"))
        << "as Wine names its processes";
    // A program that only has the name among its arguments isn't it, except for Wine's loader.
    const std::vector<std::string> shell = {"sh", "-c", "sleep 9; true", "/x/WtSeen.exe"};
    std::vector<std::string> loader = shell;
    loader.front() = "/usr/bin/wine64-preloader";
    EXPECT_TRUE(isSeen("/bin/sh", loader, "WtSeen.exe"));
    EXPECT_FALSE(isSeen("/bin/sh", shell, "WtSeen.exe"));
}

} // namespace
#endif
