#pragma once

#include <cstdint>
#include <map>

#include "engine/core/String.h"
#include "engine/window/Timer.h"
#include "engine/window/UpdateObject.h"

namespace zel {

class StateOverlay;
class Widget;

/// A screen or mode of the program. It is in the state machine's map from its construction to its
/// destruction; the machine doesn't own it.
///
/// A state never changes to another by itself: it names a target by setTransition(), and the
/// machine follows at the end of a frame.
class State : public UpdateAndRenderObject {
public:
    enum Flags : int32_t { None = 0, DrawnOnTop = 1 };

    /// flags: DrawnOnTop draws it above the state that it replaces, and above the one that replaces
    /// it.
    explicit State(const String& name, int32_t flags = None);
    ~State() override; // unregisters from state machine and scheduler
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    virtual String getName() const { return name; }
    virtual void reset() = 0;        // after every onEnter()
    virtual void onFirstEnter() = 0; // once; may load whole screens
    virtual void onEnter() = 0;      // before the fade to it begins
    virtual void onEntered() = 0;    // it is fully visible
    virtual void onLeaving() = 0;    // the fade away from it begins
    virtual void onLeave() = 0;      // it is no longer visible
    virtual void onPause() = 0;      // the program is suspended
    virtual void onContinue() = 0;   // the program is resumed
    /// The widget was hit. eventType: Widget::EventHit.
    virtual void onEvent(Widget* widget, int32_t eventType) = 0;
    virtual StateOverlay* getBackgroundOverlay() const { return backgroundOverlay; }
    virtual StateOverlay* getForegroundOverlay() const { return foregroundOverlay; }
    virtual bool query() { return true; } // no caller depends on it
    /// The theme's pictures, for states with a theme; null otherwise.
    virtual StateOverlay* getThemeBackground() const { return nullptr; }
    virtual StateOverlay* getThemeForeground() const { return nullptr; }

    /// Requests a change to the state of that name; the empty name withdraws the request. The
    /// machine follows it in the first idle frame; until then a later request replaces it.
    void setTransition(const String& target);
    const String& getTransition() const { return transitionTarget; }
    bool isTransitionRequested() const { return transitionRequested; }
    /// After that many seconds in this state the machine changes to the target. Null, or the empty
    /// name, removes it.
    void setAutoTransition(State* target, float seconds);
    void setAutoTransition(const String& target, float seconds);

    /// Lengths of the phases in seconds, before the division by the global speeds; initially 0.5.
    void setFadeTimes(float fadeOut, float crossFade, float fadeIn);

    /// The speeds of all states: fade-out and fade-in are divided by the first, cross-fades by the
    /// second. Initially 1.0; a speed that isn't above 0 counts as 1.0.
    static void setFadeSpeed(float speed);
    static void setCrossFadeSpeed(float speed);

    int32_t getContentPhase() const { return contentPhase; }     // 0 entering, 1 leaving
    float getContentProgress() const { return contentProgress; } // 0 to 1, for effects of its own
    int32_t getOpacityPhase() const { return opacityPhase; }     // 0 entering, 1 leaving
    float getOpacity() const { return opacity; }                 // 0 to 1
    /// The opacity as 0 to 255.
    int32_t getOpacityByte() const { return static_cast<int32_t>(opacity * 255); }
    bool isDrawnOnTop() const { return (flags & DrawnOnTop) != 0; }

    /// Key-value pairs for any use. An unset key reads empty.
    void setProperty(const String& key, const String& value) { properties[key] = value; }
    String getProperty(const String& key) const;

    void setBackgroundOverlay(StateOverlay* overlay) { backgroundOverlay = overlay; }
    void setForegroundOverlay(StateOverlay* overlay) { foregroundOverlay = overlay; }

private:
    friend class StateCalls;
    friend class StatesMachine;

    void setContent(int32_t newPhase, float progress);
    void setOpacity(int32_t newPhase, float newOpacity);

    bool hasAutoTransition = false;
    String autoTransitionName; // used if autoTransitionState is null
    State* autoTransitionState = nullptr;
    float autoTransitionTime = 0; // seconds
    bool firstEnterDone = false;
    String name;
    String transitionTarget;
    bool transitionRequested = false;
    float fadeOutTime = 0.5F;
    float crossFadeTime = 0.5F;
    float fadeInTime = 0.5F;
    int32_t contentPhase = 0;
    float contentProgress = 1;
    int32_t opacityPhase = 0;
    float opacity = 1;
    Timer stateTimer; // since its construction
    std::map<String, String> properties;
    int32_t flags;
    StateOverlay* backgroundOverlay = nullptr;
    StateOverlay* foregroundOverlay = nullptr;

    static float fadeSpeed;
    static float crossFadeSpeed;
};

} // namespace zel
