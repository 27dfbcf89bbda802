#include "tools/career/Progress.h"

#include <cstdio>

#include "app/career/CareerTexts.h"
#include "engine/core/Printable.h"
#include "engine/core/System.h"

namespace {

constexpr uint32_t Interval = 100; // milliseconds between two updates of the line

} // namespace

Progress::Progress(bool wanted) {
    if (wanted && zel::system::isTerminal(stderr))
        setWarObserver(this);
}

Progress::~Progress() {
    setWarObserver(nullptr);
    clear();
}

void Progress::onWarProgress(const Calendar& date, float share) {
    // The real time, which a pinned clock doesn't stop.
    const uint32_t now = zel::system::ticks();
    if (lineShown && now - lastShown < Interval)
        return;
    lastShown = now;
    lineShown = true;
    const zel::String shown = zel::system::printedText(dateInLanguage(date));
    std::fprintf(stderr, "\r%-20s %3d %%", zel::printable(shown).c_str(),
                 static_cast<int>(share * 100));
    std::fflush(stderr);
}

void Progress::clear() {
    if (lineShown)
        std::fprintf(stderr, "\r%30s\r", "");
    lineShown = false;
}
