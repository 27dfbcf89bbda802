#include "engine/menu/MenuEventHandler.h"

#include <algorithm>
#include <vector>

#include "engine/menu/HandledMenuExtension.h"
#include "engine/menu/Menu.h"
#include "engine/window/StatesMachine.h"

namespace zel {

namespace {

struct Filter {
    bool active = false; // otherwise every menu matches
    String menuName;
    const State* resolved = nullptr;
    bool wasTried = false; // the name was looked up; an unknown one is logged once

    bool matches(const Menu& menu) {
        if (!active)
            return true;
        if (!wasTried) {
            wasTried = true;
            resolved = StatesMachine::getInstance().getState(menuName);
        }
        return resolved == &menu;
    }
};

template <typename Handler> struct HandlerRow {
    Filter filter;
    Handler* handler; // null if removed during a walk
};

template <typename Handler> class HandlerTable {
public:
    void add(const Filter& filter, Handler* handler) { rows.push_back({filter, handler}); }
    void clear() {
        forget([](const HandlerRow<Handler>&) { return true; });
    }
    void remove(const Handler* handler) {
        forget([&](const HandlerRow<Handler>& row) { return row.handler == handler; });
    }
    void forgetMenu(const Menu& menu) {
        for (HandlerRow<Handler>& row : rows) {
            if (row.filter.resolved == &menu)
                row.filter = {row.filter.active, row.filter.menuName};
        }
    }

    /// Handlers may be added and removed in the calls: added ones are called from the next time on.
    template <typename Call> void callMatching(const Menu& menu, const Call& call) {
        ++walks;
        const size_t count = rows.size();
        for (size_t i = 0; i < count; ++i) {
            if (rows[i].handler != nullptr && rows[i].filter.matches(menu))
                call(*rows[i].handler);
        }
        if (--walks == 0)
            dropForgotten();
    }

private:
    template <typename Predicate> void forget(const Predicate& predicate) {
        for (HandlerRow<Handler>& row : rows) {
            if (predicate(row))
                row.handler = nullptr;
        }
        if (walks == 0)
            dropForgotten();
    }

    void dropForgotten() {
        rows.erase(
            std::remove_if(rows.begin(), rows.end(),
                           [](const HandlerRow<Handler>& row) { return row.handler == nullptr; }),
            rows.end());
    }

    std::vector<HandlerRow<Handler>> rows;
    int32_t walks = 0;
};

HandlerTable<MenuListener>& listeners() {
    static HandlerTable<MenuListener> table;
    return table;
}

HandlerTable<HandledMenuExtension>& extensions() {
    static HandlerTable<HandledMenuExtension> table;
    return table;
}

Filter filterFor(const String& menuName) { return {true, menuName}; }

void notifyExtension(HandledMenuExtension& extension, MenuCallback what) {
    switch (what) {
    case MenuCallback::Update:
        return extension.update();
    case MenuCallback::Render:
        return extension.render();
    case MenuCallback::Reset:
        return extension.reset();
    case MenuCallback::FirstEnter:
        return extension.onFirstEnter();
    case MenuCallback::Enter:
        return extension.onEnter();
    case MenuCallback::Entered:
        return extension.onEntered();
    case MenuCallback::Leaving:
        return extension.onLeaving();
    case MenuCallback::Leave:
        return extension.onLeave();
    case MenuCallback::Pause:
        return extension.onPause();
    case MenuCallback::Continue:
        return extension.onContinue();
    }
}

} // namespace

void MenuEventHandler::addListener(const String& menuName, MenuListener* listener) {
    listeners().add(filterFor(menuName), listener);
}

void MenuEventHandler::addExtension(const String& menuName, HandledMenuExtension* extension) {
    extensions().add(filterFor(menuName), extension);
}

void MenuEventHandler::addListener(MenuListener* listener) { listeners().add({}, listener); }

void MenuEventHandler::addExtension(HandledMenuExtension* extension) {
    extensions().add({}, extension);
}

void MenuEventHandler::remove(const MenuListener* listener) { listeners().remove(listener); }

void MenuEventHandler::remove(const HandledMenuExtension* extension) {
    extensions().remove(extension);
}

void MenuEventHandler::clear() {
    listeners().clear();
    extensions().clear();
}

void MenuEventHandler::forgetMenu(const Menu& menu) {
    listeners().forgetMenu(menu);
    extensions().forgetMenu(menu);
}

void MenuEventHandler::notify(Menu& menu, MenuCallback what) {
    listeners().callMatching(menu, [&](MenuListener& listener) { listener.notify(menu, what); });
    extensions().callMatching(menu, [&](HandledMenuExtension& extension) {
        extension.setMenu(&menu);
        notifyExtension(extension, what);
    });
}

void MenuEventHandler::onEvent(Menu& menu, Widget* widget, int32_t eventType) {
    listeners().callMatching(
        menu, [&](MenuListener& listener) { listener.onEvent(menu, widget, eventType); });
    extensions().callMatching(menu, [&](HandledMenuExtension& extension) {
        extension.setMenu(&menu);
        extension.onEvent(widget, eventType);
    });
}

void MenuEventHandler::onKey(Menu& menu, const KeyPress& key) {
    extensions().callMatching(menu, [&](HandledMenuExtension& extension) {
        extension.setMenu(&menu);
        extension.onKey(key);
    });
}

bool MenuEventHandler::query(Menu& menu) {
    bool answer = true;
    extensions().callMatching(menu, [&](HandledMenuExtension& extension) {
        extension.setMenu(&menu);
        answer = extension.query() && answer;
    });
    return answer;
}

} // namespace zel
