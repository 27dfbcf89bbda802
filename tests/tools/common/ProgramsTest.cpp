#include <regex>
#include <set>

#include <gtest/gtest.h>

#include "tests/support/ProgramCall.h"
#include "tests/support/Texts.h"

namespace {

using Options = std::set<std::string>;

Options optionsIn(const std::string& text) {
    static const std::regex option("--[a-z][a-z-]*");
    return {std::sregex_token_iterator(text.begin(), text.end(), option), {}};
}

ProgramCall call(const std::string& program, const std::string& arguments) {
    return ProgramCall(PROGRAM_FOLDER + program + PROGRAM_ENDING, arguments);
}

// The programs' own tests say what the options do.
TEST(Programs, HaveOneFormOfHelpAndOfErrors) {
    for (const std::string program :
         {"wingtally-career", "wingtally-datacheck", "wingtally-makedata", "wingtally-menucheck",
          "wingtally-standin"}) {
        const std::string usage = "Usage: " + program + " ";
        const ProgramCall help = call(program, "--help");
        EXPECT_EQ(help.status, 0) << program;
        EXPECT_EQ(help.output.rfind(usage, 0), 0u) << help.output;
        EXPECT_EQ(help.errors, "") << program;
        EXPECT_EQ(call(program, "-h").output, help.output);
        const ProgramCall wrong = call(program, "--no-such-option");
        EXPECT_EQ(wrong.status, 2) << program;
        EXPECT_EQ(wrong.output, "") << program;
        EXPECT_EQ(wrong.errors.rfind(program + ": ", 0), 0u) << wrong.errors;
        EXPECT_NE(wrong.errors.find("\n" + usage), std::string::npos) << wrong.errors;
        if (program != "wingtally-makedata") { // which is not delivered
            const std::string page = fileText(MANUAL_FOLDER + program + ".1");
            EXPECT_EQ(optionsIn(replacedAll(page, "\\-", "-")), optionsIn(help.output)) << program;
        }
    }
}

} // namespace
