#include "engine/menu/script/PlatformCondition.h"

#include <algorithm>

#include "engine/menu/script/MenuWords.h"
#include "engine/window/Window.h"

namespace zel {

namespace {

constexpr size_t MostWords = 7; // the condition and six more

struct Condition {
    const char* word;
    bool isForTablets;
};

constexpr Condition Conditions[] = {
    {"@iphone", false}, {"@(iphone)", false}, {"@phone", false}, {"@(phone)", false},
    {"@ipad", true},    {"@(ipad)", true},    {"@tablet", true}, {"@(tablet)", true},
};

bool hasTabletSize() {
    const Window* window = Window::current();
    return window != nullptr ? isTabletSize(window->getRealWidth(), window->getRealHeight())
                             : isTabletSize(DesignWidth, DesignHeight);
}

} // namespace

bool isTabletSize(int32_t width, int32_t height) {
    const auto fits = [](int32_t length) { return length >= 768 && length <= 1024; };
    return fits(width) && fits(height);
}

ConditionResult resolveCondition(const std::vector<String>& words) {
    if (words.empty())
        return ConditionResult::Unknown;
    for (const Condition& condition : Conditions) {
        if (equalsNoCase(condition.word, words.front()))
            return condition.isForTablets == hasTabletSize() ? ConditionResult::Holds
                                                             : ConditionResult::Fails;
    }
    return ConditionResult::Unknown;
}

String conditionalLine(const std::vector<String>& words) {
    String line;
    for (size_t i = 1; i < std::min(words.size(), MostWords); ++i) {
        if (i > 1)
            line += " ";
        line += words[i];
    }
    return line;
}

} // namespace zel
