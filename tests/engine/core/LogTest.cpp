#include "engine/core/Log.h"

#include <gtest/gtest.h>

#include "engine/core/Clock.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"

namespace {

TEST(Log, MarksEachLevel) {
    zel::setTickSource([] { return 4000000000U; });
    const LogCapture log(7);
    for (int32_t level = 0; level <= 7; ++level)
        zel::log(zel::String("level ") + level, "Some", level);
    EXPECT_EQ(log.text(), "   4000000000 [Some] level 0\n!! 4000000000 [Some] level 1\n"
                          "!! 4000000000 [Some] level 2\n w 4000000000 [Some] level 3\n"
                          "   4000000000 [Some] level 4\nd  4000000000 [Some] level 5\n"
                          "   4000000000 [Some] level 6\n   4000000000 [Some] level 7\n");
    zel::setTickSource(nullptr);
}

TEST(Log, ShowsLinesUpToTheLevelOfTheirCategory) {
    EXPECT_TRUE(zel::isLogged("Some", 3)) << "as at the start";
    EXPECT_FALSE(zel::isLogged("Some", 4));
    const LogCapture log(2);
    zel::setCategoryLogLevel("LogTestLoud", 5);
    zel::setCategoryLogLevel("LogTestQuiet", 1);
    EXPECT_FALSE(zel::isLogged("LogTestQuiet", 2));
    zel::log("not shown", "Some", 3);
    zel::log("percent %s stays", "LogTestLoud", 5);
    zel::log("\x1B[2J\x7F \xC2\x9B \xC3\x9B \x9B\t\n", "LogTestLoud", 5);
    EXPECT_TRUE(log.holds(" [LogTestLoud] percent %s stays\n"));
    EXPECT_TRUE(log.holds(" [LogTestLoud] ?[2J? ? \xC3\x9B \x9B\t\n\n")) << log.text();
    EXPECT_FALSE(log.holds("not shown"));
}

TEST(Log, IsSwitchedOffForGood) {
    const auto silenced = [] {
        zel::disableLogging();
        std::exit(zel::isLogged("Some", 1) ? 1 : 0);
    };
    EXPECT_EXIT(silenced(), testing::ExitedWithCode(0), "") << "in a process of its own";
}

TEST(Log, GoesToAFileToo) {
    const TemporaryFolder folder;
    const LogCapture log;
    EXPECT_FALSE(zel::startLogFile(folder.path() + "/none/words.log"));
    zel::setTickSource([] { return 5U; });
    for (const char* run : {"first", "second", "third"}) {
        EXPECT_TRUE(zel::startLogFile(folder.path() + "/words.log"));
        zel::console("hello");
        zel::log(run, "Some", 2);
    }
    zel::setTickSource(nullptr);
    EXPECT_EQ(folder.read("words.log"), "hello\n!! 5 [Some] third\n") << "written at once";
    EXPECT_EQ(folder.read("words.log.bak"), "hello\n!! 5 [Some] second\n");
    EXPECT_EQ(log.linesWith("[Some]"), 3) << "and to the stream as before";
    zel::startLogFile("");
}

TEST(Log, KeepsConsoleLinesApart) {
    const LogCapture log(0);
    zel::console("plain line");
    zel::setConsoleShown(false);
    zel::console("hidden");
    zel::setConsoleShown(true);
    EXPECT_EQ(log.text(), "plain line\n") << "no prefix, and the log's level doesn't matter";
}

} // namespace
