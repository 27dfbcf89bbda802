#include "engine/window/State.h"

#include <algorithm>

#include "engine/window/HighLevelScheduler.h"
#include "engine/window/StatesMachine.h"

namespace zel {

float State::fadeSpeed = 1;
float State::crossFadeSpeed = 1;

namespace {

float usableSpeed(float speed) { return speed > 0 ? speed : 1; }

} // namespace

State::State(const String& name, int32_t flags) : name(name), flags(flags) {
    StatesMachine::getInstance().registerState(this);
}

State::~State() {
    StatesMachine::getInstance().unregisterState(this);
    if (HighLevelScheduler::exists())
        HighLevelScheduler::getInstance().removeState(this);
}

void State::setTransition(const String& target) {
    transitionTarget = target;
    transitionRequested = !target.empty();
}

void State::setAutoTransition(State* target, float seconds) {
    hasAutoTransition = target != nullptr;
    autoTransitionState = target;
    autoTransitionName = {};
    autoTransitionTime = seconds;
}

void State::setAutoTransition(const String& target, float seconds) {
    hasAutoTransition = !target.empty();
    autoTransitionState = nullptr;
    autoTransitionName = target;
    autoTransitionTime = seconds;
}

void State::setFadeTimes(float fadeOut, float crossFade, float fadeIn) {
    fadeOutTime = fadeOut;
    crossFadeTime = crossFade;
    fadeInTime = fadeIn;
}

void State::setFadeSpeed(float speed) { fadeSpeed = usableSpeed(speed); }
void State::setCrossFadeSpeed(float speed) { crossFadeSpeed = usableSpeed(speed); }

String State::getProperty(const String& key) const {
    const auto found = properties.find(key);
    return found != properties.end() ? found->second : String();
}

void State::setContent(int32_t newPhase, float progress) {
    contentPhase = newPhase;
    contentProgress = std::clamp(progress, 0.0F, 1.0F);
}

void State::setOpacity(int32_t newPhase, float newOpacity) {
    opacityPhase = newPhase;
    opacity = std::clamp(newOpacity, 0.0F, 1.0F);
}

} // namespace zel
