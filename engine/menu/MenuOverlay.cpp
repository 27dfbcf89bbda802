#include "engine/menu/MenuOverlay.h"

#include <map>

#include "engine/core/Log.h"
#include "engine/core/Shutdown.h"

namespace zel {

namespace {

using OverlayTable = std::map<String, std::unique_ptr<MenuOverlay>>;

OverlayTable& overlays() {
    static OverlayTable table;
    return table;
}

} // namespace

MenuOverlay* MenuOverlay::add(std::unique_ptr<MenuOverlay> overlay) {
    setShutdownStep(ShutdownStep::Overlays, release);
    std::unique_ptr<MenuOverlay>& place = overlays()[overlay->identifier];
    if (place)
        log(String("Duplicate MenuOverlay identifier: ") + overlay->identifier, "MenuOverlay",
            LogError);
    else
        place = std::move(overlay);
    return place.get();
}

MenuOverlay* MenuOverlay::find(const String& identifier) {
    const auto found = overlays().find(identifier);
    return found != overlays().end() ? found->second.get() : nullptr;
}

void MenuOverlay::release() { overlays().clear(); }

} // namespace zel
