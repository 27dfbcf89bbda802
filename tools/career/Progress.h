#pragma once

#include <cstdint>

#include "app/war/WarAdvance.h"

/// Shows the progress of a simulated war on a terminal. Its line is removed at the end.
class Progress : public WarObserver {
public:
    explicit Progress(bool wanted);
    ~Progress() override;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void onWarProgress(const Calendar& date, float share) override;
    /// Removes the line, so that other text may follow.
    void clear();

private:
    uint32_t lastShown = 0; // in ticks
    bool lineShown = false;
};
