#include "app/report/LogText.h"

#include <gtest/gtest.h>

#include "engine/core/File.h"
#include "engine/core/Random.h"
#include "tests/support/TemporaryFolder.h"

namespace {

// Compares the lines with those of zel::File, which finds them one after the other.
TEST(LogText, HasTheLinesOfItsFiles) {
    const TemporaryFolder folder;
    zel::Random random(3);
    const std::string parts[] = {"\r\n",
                                 "\n",
                                 "\r",
                                 std::string(1, '\0'),
                                 " ",
                                 "T:1",
                                 "\xEF\xBB\xBF",
                                 std::string(61, 'x'),
                                 std::string(64, 'y')};
    for (int32_t round = 0; round < 300; ++round) {
        LogText text;
        std::vector<std::string> expected;
        for (int32_t piece = 0; piece < 3; ++piece) {
            std::string content;
            for (int32_t count = random.getInt(0, 20); count > 0; --count)
                content += parts[random.getInt(0, int32_t(std::size(parts)) - 1)];
            const std::string name = folder.write("piece", content);
            zel::File file(zel::String(name), zel::FileRead);
            while (file.hasLine())
                expected.emplace_back(file.lineView());
            ASSERT_TRUE(text.appendFile(zel::String(name)));
        }
        ASSERT_FALSE(text.appendFile("none"));
        ASSERT_EQ(text.lineCount(), int32_t(expected.size()));
        for (int32_t i = 0; i < text.lineCount(); ++i)
            ASSERT_EQ(text.line(i), expected[i]) << round;
    }
}

} // namespace
