#include "engine/core/Language.h"
#include "fuzz/FuzzFile.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text = asText(data, size);
    for (const auto& [number, entry] : zel::parseLanguage(text)) {
        require(number >= 0, "no number below 0");
        require(entry.view().find_first_of(std::string_view("\r\0", 2)) == std::string_view::npos,
                "an entry is a part of one line");
        require(entry.view().find("\\n") == std::string_view::npos, "and has its own line feeds");
        require(entry == zel::String(zel::trimmed(entry.view(), ' ')), "no blanks around");
    }
    zel::findLanguageCode(text, "1033");
    return 0;
}
