#include "engine/graphics/Font.h"

#include <map>
#include <memory>

#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/graphics/ImageHandler.h"

namespace zel {

namespace {

constexpr int32_t MaxFontFileSize = 1 << 24; // bytes, of a description or a metrics file

/// Where the file's folder ends; 0 without one.
size_t folderEnd(std::string_view name) {
    const size_t slash = name.find_last_of("/\\");
    return slash == name.npos ? 0 : slash + 1;
}

/// Where the ending begins, with its dot; the name's end if it has none.
size_t endingStart(std::string_view name) {
    const size_t dot = name.rfind('.');
    return dot == name.npos || dot < folderEnd(name) ? name.size() : dot;
}

std::map<String, std::unique_ptr<Font>>& allFonts() {
    static std::map<String, std::unique_ptr<Font>> fonts;
    return fonts;
}

} // namespace

Font::Font(const String& name) : name(name) {
    const bool hasEnding = endingStart(name) < name.view().size();
    valid = read(hasEnding ? name : name + ".fnt");
}

Font::Font(const String& name, FontDescription description)
    : name(name), description(std::move(description)), valid(true) {}

bool Font::read(const String& fileName) {
    std::string content;
    if (!readFile(fileName, MaxFontFileSize, content)) {
        log("Font " + name + " not found", "Font", LogError);
        return false;
    }
    if (!parseFontDescription(content, description)) {
        log("Font " + name + " invalid", "Font", LogError);
        return false;
    }
    const std::string_view path = fileName.view();
    const String metricsName = String(path.substr(0, endingStart(path))) + ".cfg";
    if (readFile(metricsName, MaxFontFileSize, content))
        applyFontMetrics(content, metricsName, description);
    loadPages(fileName);
    return true;
}

void Font::loadPages(const String& fileName) {
    ImageHandler& handler = ImageHandler::getInstance();
    const String folder(fileName.view().substr(0, folderEnd(fileName.view())));
    for (const String& page : description.pageNames) {
        const String pageName = folder + page;
        const bool isLoaded = handler.loadBitmap(pageName, LifetimePersistent);
        pageImages.push_back(isLoaded ? handler.getImage(pageName) : nullptr);
    }
}

int32_t Font::lineHeight() const { return description.lineHeight > 0 ? description.lineHeight : 1; }

const Glyph* Font::glyph(uint32_t code) const {
    if (code >= description.glyphIndex.size() || description.glyphIndex[code] < 0)
        return nullptr;
    return &description.glyphs[description.glyphIndex[code]];
}

int32_t Font::kerning(uint32_t first, uint32_t second) const {
    const uint64_t index = uint64_t(first) * description.glyphs.size() + second;
    return index < description.kerning.size() ? description.kerning[index] : 0;
}

int32_t Font::width(std::string_view line) const {
    int64_t pen = 0;
    bool hasPrevious = false;
    char previous = 0;
    for (const char character : line) {
        const Glyph* found = glyph(character);
        if (found == nullptr)
            continue;
        if (hasPrevious)
            pen += kerning(previous, character) + description.charOffset;
        pen += found->xAdvance;
        previous = character;
        hasPrevious = true;
    }
    return static_cast<int32_t>(pen);
}

const Image* Font::pageImage(int32_t page) const {
    const bool exists = page >= 0 && page < static_cast<int32_t>(pageImages.size());
    return exists ? pageImages[page] : nullptr;
}

const Font* FontHandler::getFont(const String& name) {
    const auto known = allFonts().find(name);
    if (known != allFonts().end())
        return known->second.get();
    auto font = std::make_unique<Font>(name);
    if (font->isValid()) {
        log("Successfully created new font " + name, "FontHandler", LogInfo);
    } else {
        log("Invalid font " + name, "FontHandler", LogWarning);
        font.reset(); // remembered as invalid, so that it isn't logged every frame
    }
    return (allFonts()[name] = std::move(font)).get();
}

void FontHandler::clear() { allFonts().clear(); }

} // namespace zel
