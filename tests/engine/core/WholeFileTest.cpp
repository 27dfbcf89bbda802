#include "engine/core/WholeFile.h"

#include <csignal>
#include <filesystem>
#include <numeric>
#include <set>

#include <gtest/gtest.h>

#include "engine/core/LockFile.h"
#include "tests/support/TemporaryFolder.h"

#ifndef _WIN32
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

using namespace std::string_literals;
using zel::FileFault;
using zel::writeFileWhole;

class WholeFile : public testing::Test {
protected:
    /// The names in the folder, each followed by a blank.
    std::string names() const {
        std::set<std::string> sorted;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder.path()))
            sorted.insert(entry.path().filename().string() + " ");
        return std::accumulate(sorted.begin(), sorted.end(), std::string());
    }

    TemporaryFolder folder;
    const zel::String path{folder.file("save")};
    const zel::String backup{folder.file("save.bak")};
};

TEST_F(WholeFile, KeepsTheOneBefore) {
    EXPECT_EQ(writeFileWhole(path, "first", backup), FileFault::None);
    EXPECT_FALSE(fs::exists(folder.file("save.bak"))) << "there was none before";
    EXPECT_EQ(writeFileWhole(path, "second", backup), FileFault::None);
    EXPECT_EQ(writeFileWhole(path, "third\0!"s, backup), FileFault::None);
    EXPECT_EQ(folder.read("save"), "third\0!"s);
    EXPECT_EQ(folder.read("save.bak"), "second");
    fs::remove(folder.file("save"));
    EXPECT_EQ(writeFileWhole(path, "fourth", backup), FileFault::None);
    EXPECT_EQ(folder.read("save.bak"), "second") << "with none before it stays as it is";
    EXPECT_EQ(writeFileWhole(path, "fifth"), FileFault::None);
    EXPECT_EQ(folder.read("save") + folder.read("save.bak"), "fifthsecond") << "replaced";
    EXPECT_EQ(names(), "save save.bak ");
}

TEST_F(WholeFile, LeavesTheOldOneOnError) {
    EXPECT_EQ(writeFileWhole(zel::String(folder.path()) + "/none/save", "x"), FileFault::Missing);
    folder.write("save", "old");
    folder.write("save.bak/x", "in the way");
    EXPECT_NE(writeFileWhole(path, "new", backup), FileFault::None);
    EXPECT_NE(writeFileWhole(folder.file("save.bak"), "new"), FileFault::None) << "a folder";
    {
        zel::WholeFile file(path);
        EXPECT_TRUE(file.write("never committed"));
    }
    EXPECT_EQ(folder.read("save"), "old");
    EXPECT_EQ(names(), "save save.bak ") << "no draft is left";
}

TEST_F(WholeFile, RemovesTheDraftsOfDeadPrograms) {
    folder.write("save.2147483646-1.new", "of a process that can't exist");
    folder.write("save.new", "of an earlier version");
    const std::set<std::string> others = {"saved.1-1.new", "save.1-1.new.txt", "save.x.new"};
    for (const std::string& other : others)
        folder.write(other, "of somebody else");
    EXPECT_EQ(zel::leftDrafts(path).size(), 2u);
    EXPECT_EQ(writeFileWhole(path, "whole"), FileFault::None);
    EXPECT_EQ(names(), "save save.1-1.new.txt save.x.new saved.1-1.new ");

    folder.write("save.2147483646-1.new", "all that there is of it, perhaps");
    folder.write("save.bak.2147483646.new", "left");
    folder.write("a b.2147483646-7.new", "left");
    fs::remove(folder.file("saved.1-1.new")); // such a process may run
    zel::removeLeftDrafts(folder.path(), "save");
    zel::removeLeftDrafts(folder.file("nowhere"), "save");
    EXPECT_EQ(names(), "save save.1-1.new.txt save.2147483646-1.new save.x.new ");
}

#ifndef _WIN32
TEST_F(WholeFile, FollowsALinkAndKeepsPermissions) {
    folder.write("far/target", "old");
    fs::create_symlink("far/middle", folder.file("save"));
    fs::create_symlink("target", folder.file("far/middle"));
    const auto mode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read;
    fs::permissions(folder.file("far/target"), mode);
    EXPECT_EQ(writeFileWhole(path, "new", backup), FileFault::None);
    EXPECT_TRUE(fs::is_symlink(folder.file("save")) && fs::is_symlink(folder.file("far/middle")));
    EXPECT_EQ(folder.read("far/target") + folder.read("save.bak"), "newold");
    EXPECT_EQ(fs::status(folder.file("far/target")).permissions(), mode);
    fs::remove(folder.file("far/target"));
    EXPECT_EQ(writeFileWhole(path, "newer"), FileFault::None) << "the link leads nowhere";
    EXPECT_EQ(folder.read("far/target"), "newer");
}

TEST_F(WholeFile, WritesNoDraftThroughALink) {
    const std::string victim = folder.write("victim", "untouched");
    const std::string draft = "save." + std::to_string(zel::system::processId()) + "-1.new";
    fs::create_symlink(victim, folder.file(draft));
    EXPECT_EQ(writeFileWhole(path, "new"), FileFault::None);
    EXPECT_EQ(folder.read("victim") + folder.read("save"), "untouchednew");
}
#endif

#ifdef __linux__
TEST_F(WholeFile, LeavesTheOldOneOnAFullDisk) {
    folder.write("save", "old");
    rlimit before;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{100, before.rlim_max}; // no file grows beyond 100 bytes
    setrlimit(RLIMIT_FSIZE, &small);
    const FileFault large = writeFileWhole(path, std::string(101, 'x'));
    const FileFault fits = writeFileWhole(path + "2", std::string(100, 'x'));
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(large, FileFault::TooLarge);
    EXPECT_EQ(fits, FileFault::None);
    EXPECT_EQ(folder.read("save"), "old");
    EXPECT_EQ(names(), "save save2 ");
}
#endif

TEST(LockFile, IsHeldByOneAlone) {
    const TemporaryFolder folder;
    const zel::String path(folder.write("lock", "12345678 of a dead process, longer than ours\n"));
    zel::LockFile first;
    zel::LockFile second;
    EXPECT_TRUE(first.take(path) && first.take(path)) << "what is only left there is taken over";
    EXPECT_EQ(folder.read("lock"), std::to_string(zel::system::processId()) + "\n");
    EXPECT_FALSE(second.take(path));
    EXPECT_EQ(second.fault(), FileFault::Held);
    EXPECT_EQ(second.holder(), zel::system::processId());
    first.release();
    EXPECT_FALSE(fs::exists(folder.file("lock")));
    EXPECT_TRUE(second.take(path));
    EXPECT_FALSE(first.take(path) || first.isHeld());
    EXPECT_FALSE(first.take(folder.path() + "/none/lock"));
    EXPECT_EQ(first.fault(), FileFault::Missing);
    EXPECT_EQ(first.holder(), 0u);
}

#ifndef _WIN32
TEST(LockFile, IsLostWithItsFile) {
    const TemporaryFolder folder;
    const zel::String path(folder.file("lock"));
    zel::LockFile first;
    zel::LockFile second;
    ASSERT_TRUE(first.take(path));
    fs::remove(folder.file("lock"));
    EXPECT_TRUE(first.take(path) && fs::exists(folder.file("lock"))) << "and taken again";
    fs::remove(folder.file("lock"));
    EXPECT_TRUE(second.take(path));
    EXPECT_FALSE(first.take(path));
    first.release();
    EXPECT_TRUE(fs::exists(folder.file("lock"))) << "it is the other's";
}

TEST(LockFile, IsTakenOverFromADeadProcess) {
    const TemporaryFolder folder;
    const zel::String path(folder.file("lock"));
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        zel::LockFile lock;
        const char isTaken = lock.take(path) ? 'y' : 'n';
        if (write(ready[1], &isTaken, 1) != 1)
            _exit(1);
        for (;;)
            pause();
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    zel::LockFile lock;
    EXPECT_FALSE(lock.take(path));
    EXPECT_EQ(lock.holder(), static_cast<uint32_t>(child));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(fs::exists(folder.file("lock")));
    EXPECT_TRUE(lock.take(path));
    close(ready[0]);
    close(ready[1]);
}
#endif

} // namespace
