#pragma once

#include <memory>

#include "engine/core/String.h"
#include "engine/window/StateOverlay.h"

namespace zel {

/// A full-window picture behind or in front of menus, known by its identifier. Menus that show the
/// same one share the object, and it keeps full strength in a fade between them.
///
/// The table of overlays owns them, from their creation to the end of the loop.
class MenuOverlay : public StateOverlay {
public:
    explicit MenuOverlay(const String& identifier) : identifier(identifier) {}

    const String& getIdentifier() const { return identifier; }

    /// Adds it to the table. On error, an identifier in use: a log line, and the existing overlay
    /// is kept and returned.
    static MenuOverlay* add(std::unique_ptr<MenuOverlay> overlay);
    /// Null for an unknown identifier.
    static MenuOverlay* find(const String& identifier);
    /// Deletes all. No menu may be alive.
    static void release();

private:
    String identifier;
};

} // namespace zel
