#include "app/career/Wording.h"

#include <algorithm>
#include <iterator>

#include "engine/core/Language.h"

zel::String textOf(const Wording& wording, std::initializer_list<zel::String> arguments) {
    const zel::String* translated = zel::Language::find(wording.number);
    const bool isTranslated = translated != nullptr && !translated->empty();
    return zel::fillMarks(isTranslated ? translated->view() : wording.english, arguments);
}

zel::String countText(const CountForms& forms, int32_t count) {
    return textOf(forms[std::clamp(count, 0, 2)], {count});
}

zel::String faultSentence(zel::FileFault fault) {
    return textOf(wording::FileFaults[static_cast<int32_t>(fault) - 1]);
}

zel::String nameInLanguage(const zel::String& english) {
    const auto* const known =
        std::find_if(std::begin(wording::Names), std::end(wording::Names),
                     [&](const Wording& name) { return english == name.english; });
    return known == std::end(wording::Names) ? english : textOf(*known);
}
