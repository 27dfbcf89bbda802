#pragma once

#include <string>
#include <vector>

#include "engine/window/State.h"

/// A state that records its calls, such as "A.onEnter", in the test's list.
class RecordingState : public zel::State {
public:
    RecordingState(const char* name, std::vector<std::string>& calls, int32_t flags = None)
        : State(name, flags), calls(calls) {}

    void update() override {}
    void render() override { record("render"); }
    void reset() override { record("reset"); }
    void onFirstEnter() override { record("onFirstEnter"); }
    void onEnter() override { record("onEnter"); }
    void onEntered() override { record("onEntered"); }
    void onLeaving() override { record("onLeaving"); }
    void onLeave() override { record("onLeave"); }
    void onPause() override { record("onPause"); }
    void onContinue() override { record("onContinue"); }
    void onEvent(zel::Widget* /*widget*/, int32_t /*eventType*/) override {}

private:
    void record(const char* what) { calls.push_back(std::string(getName().view()) + "." + what); }

    std::vector<std::string>& calls;
};
