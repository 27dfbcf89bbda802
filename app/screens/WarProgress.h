#pragma once

#include "app/war/WarAdvance.h"
#include "engine/window/LongWork.h"

namespace zel {
class Menu;
}

/// Shows the progress while the war is fought, for as long as this object lives: the element
/// "progressDate" of the active screen shows the date reached, and the pressed picture of the
/// widget "progress" covers it in proportion to the work done. Both are hidden before and after.
class WarProgress : public WarObserver {
public:
    WarProgress();
    ~WarProgress() override;
    WarProgress(const WarProgress&) = delete;
    WarProgress& operator=(const WarProgress&) = delete;

    /// Hides both elements, for a page that has no progress to show yet.
    static void hide(const zel::Menu* menu) { show(menu, false); }

    void onWarProgress(const Calendar& date, float share) override;

private:
    static void show(const zel::Menu* menu, bool shown);
    static void drawBar(const zel::Menu& menu, float share);

    zel::LongWork work;
};
