#include "engine/menu/style/OverlayOptions.h"

#include <algorithm>
#include <cmath>

namespace zel {

namespace {

struct OptionWord {
    const char* word;
    bool OverlayOptions::*option;
    bool value;
};

constexpr OptionWord OptionWords[] = {
    {"keepaspectratio", &OverlayOptions::keepsAspect, true},
    {"ignoreaspectratio", &OverlayOptions::keepsAspect, false},
    {"dontkeepaspectratio", &OverlayOptions::keepsAspect, false},
    {"donotkeepaspectratio", &OverlayOptions::keepsAspect, false},
    {"scaleinintegers", &OverlayOptions::scalesInIntegers, true},
    {"arbitraryscale", &OverlayOptions::scalesInIntegers, false},
    {"dontscaleinintegers", &OverlayOptions::scalesInIntegers, false},
    {"donotscaleinintegers", &OverlayOptions::scalesInIntegers, false},
    {"oversize", &OverlayOptions::isOversized, true},
    {"overscan", &OverlayOptions::isOversized, true},
    {"nooversize", &OverlayOptions::isOversized, false},
    {"nooverscan", &OverlayOptions::isOversized, false},
};

int32_t scaledLength(int32_t length, float factor) {
    return static_cast<int32_t>(std::lround(static_cast<float>(length) * factor));
}

} // namespace

bool OverlayOptions::take(std::string_view word) {
    for (const OptionWord& known : OptionWords) {
        if (!equalsNoCase(known.word, word))
            continue;
        this->*known.option = known.value;
        return true;
    }
    return false;
}

String OverlayOptions::key() const {
    String text;
    text += keepsAspect ? "a" : "-";
    text += scalesInIntegers ? "i" : "-";
    text += isOversized ? "o" : "-";
    return text;
}

PixelRect OverlayOptions::pictureRect(int32_t width, int32_t height) const {
    if (width < 1 || height < 1)
        return {};
    float factorX = static_cast<float>(DesignWidth) / static_cast<float>(width);
    float factorY = static_cast<float>(DesignHeight) / static_cast<float>(height);
    if (keepsAspect)
        factorX = factorY = isOversized ? std::max(factorX, factorY) : std::min(factorX, factorY);
    if (scalesInIntegers) {
        factorX = std::max(1.0F, isOversized ? std::ceil(factorX) : std::floor(factorX));
        factorY = std::max(1.0F, isOversized ? std::ceil(factorY) : std::floor(factorY));
    }
    const int32_t wide = scaledLength(width, factorX);
    const int32_t high = scaledLength(height, factorY);
    return {(DesignWidth - wide) / 2, (DesignHeight - high) / 2, wide, high};
}

} // namespace zel
