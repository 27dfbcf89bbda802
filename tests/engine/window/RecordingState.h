#pragma once

#include <string>
#include <vector>

#include "engine/window/State.h"

/// A state that records its calls, such as "A.onEnter", in the test's list.
class RecordingState : public zel::State {
public:
    RecordingState(const char* name, std::vector<std::string>& told, int32_t flags = None)
        : State(name, flags), told(told) {}

    void update() override {}
    void render() override { tell("render"); }
    void reset() override { tell("reset"); }
    void onFirstEnter() override { tell("onFirstEnter"); }
    void onEnter() override { tell("onEnter"); }
    void onEntered() override { tell("onEntered"); }
    void onLeaving() override { tell("onLeaving"); }
    void onLeave() override { tell("onLeave"); }
    void onPause() override { tell("onPause"); }
    void onContinue() override { tell("onContinue"); }
    void onEvent(zel::Widget* /*widget*/, int32_t /*eventType*/) override {}

private:
    void tell(const char* what) { told.push_back(std::string(getName().view()) + "." + what); }

    std::vector<std::string>& told;
};
