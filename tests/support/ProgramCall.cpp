#include "tests/support/ProgramCall.h"

#include <algorithm>
#include <cstdlib>

#include "tests/support/TemporaryFolder.h"

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace {

#ifdef _WIN32
constexpr const char* EnterFolder = "cd /d ";
int exitStatus(int status) { return status; }
#else
constexpr const char* EnterFolder = "cd ";
int exitStatus(int status) { return WIFEXITED(status) ? WEXITSTATUS(status) : -1; }
#endif

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

/// The text of a file, with line ends of one byte on every system.
std::string wordsIn(const TemporaryFolder& folder, const char* name) {
    std::string text = folder.read(name);
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    return text;
}

} // namespace

ProgramCall::ProgramCall(const std::string& program, const std::string& arguments,
                         const std::string& from, const std::string& wrapper) {
    const TemporaryFolder folder;
    const std::string command = EnterFolder + quoted(from) + " && " + wrapper + quoted(program) +
                                " " + arguments + " >" + quoted(folder.path() + "/output") + " 2>" +
                                quoted(folder.path() + "/errors");
    status = exitStatus(std::system(command.c_str()));
    output = wordsIn(folder, "output");
    errors = wordsIn(folder, "errors");
}
