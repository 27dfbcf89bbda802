#include "app/career/Problem.h"

#include <string_view>

#include "app/career/Wording.h"
#include "engine/core/Language.h"
#include "engine/core/System.h"

namespace {

/// A screen has no room for whole paths.
std::string_view lastPart(std::string_view path) {
    const size_t separator = path.find_last_of("/\\");
    return separator == path.npos ? path : path.substr(separator + 1);
}

} // namespace

zel::String Problem::english() const {
    if (empty())
        return {};
    const zel::String sentence = zel::fillMarks(wording->english, arguments);
    return reason == zel::FileFault::None ? sentence : sentence + ": " + zel::faultText(reason);
}

zel::String Problem::text() const {
    if (empty())
        return {};
    std::vector<zel::String> shown;
    shown.reserve(arguments.size());
    for (const zel::String& argument : arguments)
        shown.push_back(zel::system::shownText(zel::String(lastPart(argument.view()))));
    const zel::String sentence = zel::fillMarks(textOf(*wording, {"$1", "$2"}), shown);
    return reason == zel::FileFault::None
               ? textOf(wording::ProblemAlone, {sentence})
               : textOf(wording::ProblemAndReason, {sentence, faultSentence(reason)});
}
