// Files and folders that somebody else holds, and names beyond the system's code page.
#include <gtest/gtest.h>

#include "engine/core/Clock.h"
#include "engine/core/File.h"
#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "tests/support/HeldFile.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

#ifdef _WIN32
#include <thread>
#endif

namespace {

namespace system = zel::system;

TEST(HeldFiles, AreThereAndDontOpen) {
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "text");
    HeldFile held(path);
    if (!held.isHeld())
        GTEST_SKIP() << "no file can be held here";
    EXPECT_EQ(system::openFile(path, "rb"), nullptr);
    EXPECT_FALSE(zel::File::exists(path));
    EXPECT_TRUE(system::fileStatus(path).exists);
    EXPECT_EQ(system::fileStatus(path).size, 4);
    held.release();
    EXPECT_TRUE(zel::File::exists(path));
}

#ifdef _WIN32

/// Opening a held file for writing is retried for at least 480 milliseconds: an operation that
/// takes less hasn't waited in vain.
constexpr uint32_t Soon = 400;    // milliseconds
constexpr uint32_t HoldTime = 40; // milliseconds

/// Whether the operation succeeds although somebody holds the file when it begins.
template <typename Operation> bool outlasts(const std::string& path, const Operation& operation) {
    HeldFile held(path);
    EXPECT_TRUE(held.isHeld());
    std::thread holder([&held] {
        system::sleepMilliseconds(HoldTime);
        held.release();
    });
    const bool isDone = operation();
    holder.join();
    return isDone;
}

/// Whether the operation fails without waiting. It is tried three times: on a busy machine one may
/// take long by itself.
template <typename Operation> testing::AssertionResult failsSoon(const Operation& operation) {
    std::string taken;
    for (int32_t attempt = 0; attempt < 3; ++attempt) {
        const uint32_t start = zel::ticks();
        if (operation())
            return testing::AssertionFailure() << "it goes through";
        const uint32_t time = zel::ticks() - start;
        if (time < Soon)
            return testing::AssertionSuccess();
        taken += " " + std::to_string(time);
    }
    return testing::AssertionFailure() << "it takes" << taken << " ms";
}

TEST(HeldFiles, AreWaitedFor) {
    const TemporaryFolder folder;
    const std::string target = folder.write("target", "old");
    const std::string source = folder.write("source", "new");
    EXPECT_TRUE(outlasts(target, [&] { return system::replaceFile(source, target); }));
    EXPECT_EQ(folder.read("target"), "new");
    folder.write("source", "newer");
    EXPECT_TRUE(outlasts(source, [&] { return system::replaceFile(source, target); }));
    EXPECT_EQ(folder.read("target"), "newer");
    folder.write("source", "newest");
    EXPECT_TRUE(outlasts(
        source, [&] { return system::replaceFileKeeping(source, target, target + ".bak"); }));
    EXPECT_EQ(folder.read("target") + folder.read("target.bak"), "newestnewer");
    EXPECT_TRUE(outlasts(target, [&] { return zel::File(target, zel::FileWrite).isOpen(); }));
    EXPECT_EQ(folder.read("target"), "") << "opened for writing";
}

/// An open handle that shares everything but deletion, as most programs leave one.
TEST(HeldFiles, AreWaitedForWhenTheyAreOnlyOpen) {
    const TemporaryFolder folder;
    const std::string target = folder.write("target", "old");
    const std::string source = folder.write("source", "new");
    FILE* open = system::openFile(target, "rb");
    EXPECT_FALSE(system::replaceFile(source, target));
    EXPECT_EQ(folder.read("target") + folder.read("source"), "oldnew") << "nothing is lost";
    std::thread holder([open] {
        system::sleepMilliseconds(HoldTime);
        std::fclose(open);
    });
    EXPECT_TRUE(system::replaceFile(source, target));
    holder.join();
    EXPECT_EQ(folder.read("target"), "new");
}

TEST(HeldFiles, AreNotWaitedForInVain) {
    const TemporaryFolder folder;
    const std::string source = folder.write("source", "new");
    const std::string missing = folder.path() + "\\missing";
    const std::string place = folder.file("folder");
    folder.write("folder/file", "");
    const auto opens = [](const std::string& path, const char* mode) {
        return system::openFile(path, mode) != nullptr;
    };
    EXPECT_TRUE(failsSoon([&] { return opens(missing, "rb"); }));
    EXPECT_TRUE(failsSoon([&] { return opens(missing + "\\file", "wb"); }));
    EXPECT_TRUE(failsSoon([&] { return opens(place, "wb"); }));
    EXPECT_TRUE(failsSoon([&] { return system::replaceFile(missing, source); }));
    EXPECT_TRUE(failsSoon([&] { return system::replaceFile(source, place); }));
    EXPECT_TRUE(
        failsSoon([&] { return system::replaceFileKeeping(source, place, place + ".bak"); }));
    EXPECT_EQ(folder.read("source"), "new");

    HeldFile held(source);
    EXPECT_TRUE(failsSoon([&] { return opens(source, "rb"); })) << "the player waits";
}

TEST(HeldFolders, LoseNothing) {
    const TemporaryFolder folder;
    const std::string place = folder.file("held");
    const std::string target = folder.write("held/target", "old");
    const std::string source = folder.write("held/source", "new");
    HeldFile held(place);
    ASSERT_TRUE(held.isHeld());
    std::vector<system::DirectoryEntry> entries;
    EXPECT_TRUE(!system::listDirectory(place, entries) || entries.size() == 2) << entries.size();
    EXPECT_TRUE(system::isDirectory(place));
    EXPECT_EQ(folder.read("held/target"), "old");
    const bool isReplaced = system::replaceFileKeeping(source, target, target + ".bak");
    EXPECT_EQ(folder.read("held/target"), isReplaced ? "new" : "old");
    held.release();
    folder.write("held/source", "new");
    EXPECT_TRUE(system::replaceFileKeeping(source, target, target + ".bak"));
    EXPECT_EQ(folder.read("held/target"), "new");
    EXPECT_TRUE(system::listDirectory(place, entries));
    EXPECT_EQ(entries.size(), 2u);
}

TEST(HeldFolders, ArentRenamedForThatReason) {
    const TemporaryFolder folder;
    folder.write("career/pages/page", "text");
    HeldFile held(folder.file("career/pages/page"));
    ASSERT_TRUE(held.isHeld());
    if (system::renameFolder(folder.file("career"), folder.file("other")))
        GTEST_SKIP() << "Wine renames them";
    EXPECT_EQ(system::lastFault(), zel::FileFault::Held);
    held.release();
    EXPECT_TRUE(system::renameFolder(folder.file("career"), folder.file("other")));
    EXPECT_EQ(folder.read("other/pages/page"), "text");
}

TEST(Names, OfFilesComeFromUtf8) {
    using system::nameFromUtf8;
    ASSERT_EQ(GetACP(), 1252U) << "the code page that these texts are written for";
    EXPECT_EQ(nameFromUtf8("D:\\Spiele\\F\u00FCr mich \u20AC"), "D:\\Spiele\\F\xFCr mich \x80");
    EXPECT_EQ(nameFromUtf8("D:\\Spiele\\F\xFCr mich"), "D:\\Spiele\\F\xFCr mich") << "already";
    EXPECT_EQ(nameFromUtf8("D:\\Spiele"), "D:\\Spiele");
    EXPECT_EQ(nameFromUtf8(""), "");
    EXPECT_EQ(nameFromUtf8("D:\\F\u00FCr\xFC"), "D:\\F\u00FCr\xFC") << "not UTF-8 as a whole";
    EXPECT_EQ(nameFromUtf8("D:\\no such folder\\\u0141ukasz"), "D:\\no such folder\\?ukasz")
        << "\"Lukasz\" would be somebody else";
}

/// A folder whose name the code page lacks, such as a player's name in Chinese.
struct DistantNames : testing::Test {
    DistantNames() {
        const std::string parent = folder.path();
        distant = std::wstring(parent.begin(), parent.end()) + L"\\\u4E2D\u6587 \u540D\u5B57";
        CreateDirectoryW(distant.c_str(), nullptr);
    }
    ~DistantNames() override {
        system::changeDirectory(before);
        SetEnvironmentVariableW(L"APPDATA", appData.c_str());
    }
    /// Whether a file written through that name ends up in the folder.
    bool isIts(const zel::String& name) const {
        if (FILE* file = system::openFile(name + "\\file", "wb"))
            std::fclose(file);
        const bool isThere =
            GetFileAttributesW((distant + L"\\file").c_str()) != INVALID_FILE_ATTRIBUTES;
        DeleteFileW((distant + L"\\file").c_str());
        return isThere;
    }

    TemporaryFolder folder;
    std::wstring distant;
    zel::String before = system::currentDirectory();
    std::wstring appData = _wgetenv(L"APPDATA");
};

TEST_F(DistantNames, AreReachedByShortOnes) {
    SetEnvironmentVariableW(L"APPDATA", distant.c_str());
    const zel::String name = system::applicationDataDirectory();
    EXPECT_TRUE(isIts(name)) << name.c_str();
    SetCurrentDirectoryW(distant.c_str());
    EXPECT_TRUE(isIts(system::currentDirectory())) << system::currentDirectory().c_str();
    EXPECT_TRUE(isIts(system::absolutePath("."))) << system::absolutePath(".").c_str();
}

TEST_F(DistantNames, AreTakenFromUtf8) {
    std::string utf8(folder.path());
    utf8 += "\\\u4E2D\u6587 \u540D\u5B57";
    EXPECT_TRUE(isIts(system::nameFromUtf8(utf8))) << system::nameFromUtf8(utf8).c_str();
}

TEST_F(DistantNames, AreToldOfWhereNothingReachesThem) {
    LogCapture lines;
    SetEnvironmentVariableW(L"APPDATA", (distant + L"\\\u7121").c_str());
    EXPECT_EQ(system::applicationDataDirectory().find('?') >= 0, true);
    static_cast<void>(system::applicationDataDirectory());
    EXPECT_EQ(lines.linesWith("nothing can be kept"), 1);
}

/// The data are in the working folder, which has no name at all.
TEST_F(DistantNames, KeepNobodyFromTheDataBesideHim) {
    const std::wstring lost = distant + L"\\lost";
    CreateDirectoryW(lost.c_str(), nullptr);
    CreateDirectoryW((lost + L"\\Data").c_str(), nullptr);
    CreateDirectoryW((lost + L"\\Data\\Historical").c_str(), nullptr);
    SetCurrentDirectoryW(lost.c_str());
    const zel::String found = zel::findRunDirectory();
    EXPECT_TRUE(system::isDirectory(found + "\\Data\\Historical")) << found.c_str();
    EXPECT_TRUE(system::changeDirectory(found));
    EXPECT_TRUE(system::isDirectory("Data\\Historical"));
    for (const wchar_t* part : {L"\\Data\\Historical", L"\\Data"})
        RemoveDirectoryW((lost + part).c_str());
}

#endif

} // namespace
