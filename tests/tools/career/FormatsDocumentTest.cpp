// Compares docs/formats.md with the files whose dumps it shows: a save and a font.
#include <algorithm>
#include <cstdio>
#include <regex>

#include <gtest/gtest.h>

#include "app/career/Records.h"
#include "tests/support/ProgramCall.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Texts.h"

namespace {

/// The page's text from the first of the two on, up to the second.
std::string section(const std::string& from, const std::string& to) {
    const std::string page = fileText(FORMATS);
    const size_t begin = std::min(page.find(from), page.size());
    return page.substr(begin, page.find(to, begin) - begin);
}

/// A line of a dump, as the page writes it; without bytes that aren't there.
std::string dumpLine(const std::string& content, const std::string& offset, size_t count) {
    constexpr size_t BytesInLine = 16;
    std::string line = "    " + offset + "  ";
    std::string shown;
    for (size_t i = 0; i < BytesInLine; ++i) {
        const size_t at = std::stoul(offset, nullptr, 16) + i;
        char hex[4] = "   ";
        if (i < count && at < content.size()) {
            const auto byte = static_cast<uint8_t>(content[at]);
            std::snprintf(hex, sizeof hex, "%02x ", byte);
            shown += byte >= ' ' && byte < 127 ? content[at] : '.';
        }
        line += hex;
    }
    return line + " " + shown;
}

void expectDumps(const std::string& text, const std::string& content, int32_t count) {
    const std::regex dump("    ([0-9a-f]{4,6})  ((?:[0-9a-f]{2} )+) .*");
    for (std::sregex_iterator at(text.begin(), text.end(), dump), end; at != end; ++at, --count)
        EXPECT_EQ(at->str(), dumpLine(content, at->str(1), at->str(2).size() / 3));
    EXPECT_EQ(count, 0) << "lines of dumps";
}

int32_t numberAt(const std::string& content, size_t offset) {
    int32_t number = 0;
    for (size_t i = sizeof number; i-- > 0;)
        number = number << 8 | static_cast<uint8_t>(content.at(offset + i));
    return number;
}

} // namespace

TEST(FormatsDocument, ShowsTheSaveThatItsCommandMakes) {
    const std::string text = section("### Example", "### When it is damaged");
    std::smatch command;
    ASSERT_TRUE(std::regex_search(text, command, std::regex("`wingtally-career ([^`]+)`")));
    const TemporaryFolder folder;
    const ProgramCall call(WINGTALLY_CAREER, "--user \"" + folder.path() + "\" " + command.str(1));
    ASSERT_EQ(call.status, 0) << call.errors;
    const std::string save = folder.read("Saves/savegame_v03.wty");
    expectDumps(text, save, 12);

    std::string size = std::to_string(save.size());
    for (size_t at = size.size(); at > 3;)
        size.insert(at -= 3, ",");
    const int32_t squadrons = numberAt(save, 36);
    const size_t pilots = 40 + squadrons * sizeof(Squadron);
    const std::string player = std::to_string(numberAt(save, 8));
    for (const std::string& part :
         {size + " bytes", "pilot " + player + " (", "number " + player + ",",
          "career " + std::to_string(numberAt(save, 32)) + ";",
          "; " + std::to_string(squadrons) + " squadrons.", "= " + std::to_string(pilots) + ",",
          "pilots, " + std::to_string(numberAt(save, pilots)) + ","})
        EXPECT_NE(text.find(part), std::string::npos) << part;
}

TEST(FormatsDocument, ShowsTheFont) {
    expectDumps(section("The head of `print30.fnt`", "## Font metrics"),
                fileText(RUN_FOLDER "/Fonts/print30.fnt"), 8);
}
