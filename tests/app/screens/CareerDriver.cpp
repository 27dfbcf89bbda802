#include "tests/app/screens/CareerDriver.h"

#include <sstream>

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/mission/Configuration.h"
#include "app/mission/DailyMission.h"
#include "app/screens/Application.h"
#include "app/screens/SimulatorPlaces.h"
#include "app/war/SquadronSimulator.h"
#include "engine/core/Clock.h"
#include "engine/core/Language.h"
#include "engine/core/Random.h"
#include "engine/core/Registry.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "engine/graphics/Canvas.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/State.h"
#include "engine/window/Window.h"

namespace {

constexpr int32_t LookTime = 9000; // milliseconds
constexpr int32_t SecondPressTime = 600;
// Seeds depend on the clock, so a career doesn't depend on what came before it.
constexpr uint32_t EnlistmentTime = 60000;
constexpr int32_t MostWidgets = 64;
constexpr float QuickFades = 100;    // nobody looks at them here
constexpr int32_t YesPutAway = 2807; // of the language tables
#ifdef _WIN32
constexpr const char* HomeVariable = "USERPROFILE";
#else
constexpr const char* HomeVariable = "HOME";
#endif

} // namespace

void setHome(const std::string& folder) { zel::system::setEnvironment(HomeVariable, folder); }

PlayerHome::PlayerHome(const std::string& simulator) : simulator(simulator) {
    tools::Finding finding;
    EXPECT_TRUE(standin::makeSimulatorFolder(simulatorFolder(), finding)) << finding.text();
    folder.write("user/wtysettings.ini", "rof.directory=" + simulatorFolder() + "\n");
}

std::string PlayerHome::mission() const {
    return folder.read(simulator + "/data/Missions/" + MissionFileName);
}

CareerDriver::CareerDriver(const PlayerHome& home, uint32_t seed, bool inWindow, const char* locale)
    : home(home) {
    Configuration::reset();
    Configuration::set("rof.directory", home.simulatorFolder());
    setWindowWanted(inWindow);
    zel::setWallTimeSource([] { return zel::WallTime{2009, 5, 7, 12, 0, 0}; });
    zel::setTickSource([] { return uint32_t(0); }); // a seed of 0 depends on the time
    zel::sharedRandom(); // built at its first use, which takes a static number
    zel::Random::setStaticNumber(seed);
    zel::seedSharedRandom(0);
    SearchRoots roots;
    roots.lastTime = home.simulatorFolder();
    SimulatorPlaces::setRoots(roots);
    homeBefore = zel::system::environment(HomeVariable);
    setHome(home.folder.path());
    screens = std::make_unique<ScreenDriver>(zel::system::currentDirectory().c_str(), locale);
    zel::setUserDirectory(home.folder.file("user"));
    zel::Registry::reset();
    zel::State::setFadeSpeed(QuickFades);
    zel::State::setCrossFadeSpeed(QuickFades);
}

CareerDriver::~CareerDriver() {
    screens.reset();
    SimulatorPlaces::resetRoots();
    setHome(homeBefore.c_str());
    zel::setWallTimeSource(nullptr);
    Configuration::reset();
    zel::Registry::reset();
}

void CareerDriver::press(const std::string& name, How how) {
    switch (how) {
    case How::Pointer:
        screens->press(name.c_str());
        break;
    case How::Keys:
        for (int32_t i = 0; i < MostWidgets && !widget(name)->isFocused(); ++i)
            screens->key(zel::KeyTab);
        if (widget(name)->isFocused())
            screens->key(zel::KeyReturn);
        break;
    case How::Name:
        screens->menu().hitWidget(name);
        break;
    }
}

testing::AssertionResult CareerDriver::go(const std::string& name, const std::string& target,
                                          How how) {
    const std::string from = state();
    if (widget(name) == nullptr || !widget(name)->isVisible())
        return testing::AssertionFailure() << from << " shows no " << name;
    const zel::PixelRect pressed = widget(name)->getBounds().currentRect();
    if (from == "MenuEnlist")
        ScreenDriver::waitUntil(EnlistmentTime);
    const bool endsWait = from == "MenuGameFinishMission" && name == "menuButton4";
    // A press by name takes no frame. Seeds depend on the clock, so the wait must leave no trace.
    const int32_t wait = endsWait && how == How::Name ? SecondPressTime : 0;
    if (target == "quitApp" || (endsWait && wait == 0))
        screens->step(SecondPressTime);
    ScreenDriver::shiftClock(wait);
    press(name, how);
    ScreenDriver::shiftClock(-wait);
    const bool isThere = screens->untilIdle(target.c_str()) || readLetters(target);
    if (!isThere)
        return testing::AssertionFailure()
               << name << " of " << from << " leads to " << state() << ", not to " << target;
    if (const std::string end = target == "quitApp" ? "" : endAt(pressed); !end.empty())
        return testing::AssertionFailure() << "A second press on " << name << " of " << from
                                           << " would hit " << end << " of " << target;
    return testing::AssertionSuccess();
}

bool CareerDriver::readLetters(const std::string& target) {
    constexpr int32_t MostLetters = 9;
    for (int32_t i = 0; i < MostLetters; ++i) {
        if (state() != "MenuGameCitation" && state() != "MenuGameFallen")
            break;
        press(widget("menuButton1")->isVisible() ? "menuButton1" : "close", How::Name);
        screens->untilIdle(target.c_str());
    }
    return state() == target;
}

std::string CareerDriver::endAt(const zel::PixelRect& place) const {
    for (const auto& [name, shown] : screens->menu().getWidgets()) {
        const zel::PixelRect other = shown->getBounds().currentRect();
        const bool isEnd = shown->getTransition() == "quitApp" ||
                           shown->getText() == zel::Language::get(YesPutAway);
        if (shown->isVisible() && isEnd && place.x < other.x + other.width &&
            other.x < place.x + place.width && place.y < other.y + other.height &&
            other.y < place.y + place.height)
            return name.c_str();
    }
    return "";
}

std::string CareerDriver::allTexts() const {
    std::string texts;
    for (const auto& [name, shown] : screens->menu().getWidgets())
        texts += std::string((shown->getText() + " " + shown->getKind()).view()) + "\n";
    for (const auto& [name, shown] : screens->menu().getTextAreas())
        texts += std::string(shown->getText().view()) + "\n";
    return texts;
}

testing::AssertionResult CareerDriver::walk(const std::string& steps, How how) {
    std::istringstream stream(steps);
    for (std::string step; stream >> step;) {
        const size_t arrow = step.find('>');
        const std::string target = arrow == step.npos ? state() : step.substr(arrow + 1);
        const std::string name = step.substr(0, arrow);
        const std::string before = arrow == step.npos ? allTexts() : "";
        if (const auto result = go(name, target, how); !result)
            return result;
        const zel::Widget* pressed = widget(name);
        const bool isShown = pressed != nullptr && pressed->isVisible();
        if (arrow == step.npos && isShown && allTexts() == before)
            return testing::AssertionFailure() << name << " of " << state() << " does nothing";
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult CareerDriver::begin(const std::string& way) {
    if (!screens->untilIdle("MenuMain"))
        return testing::AssertionFailure() << "no main menu, but " << state();
    return walk("careers>MenuCareers another>MenuNewService " + way +
                " menuButton1>MenuNewCareer menuButton4>MenuGameMain");
}

testing::AssertionResult CareerDriver::toOrders() {
    press("menuButton1", How::Name);
    if (screens->untilIdle("MenuGameStartMission"))
        return testing::AssertionSuccess();
    if (state() == "MenuGameInvite")
        return walk("menuButton4>MenuGameMain menuButton1>MenuGameStartMission");
    return testing::AssertionFailure() << "no orders, but " << state();
}

testing::AssertionResult CareerDriver::takeOff() {
    const auto result = toOrders();
    return result ? go("menuButton4", "MenuGameFinishMission") : result;
}

testing::AssertionResult CareerDriver::fly(const standin::FlightOptions& options) {
    tools::Finding finding;
    standin::FlightOptions flight = options;
    if (flight.seed == 0)
        flight.seed = 1;
    if (standin::flyMission(home.simulatorFolder(), MissionFileName, flight, finding, nullptr))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << finding.text();
}

int32_t CareerDriver::invite() {
    Database& career = *Database::instance();
    int32_t best = -1;
    for (int32_t i = 0; i < int32_t(career.squadrons.size()); ++i)
        if (career.squadrons[size_t(i)].nation == career.player().nation &&
            i != career.player().squadron &&
            (best < 0 ||
             SquadronSimulator::squadronStrength(i) > SquadronSimulator::squadronStrength(best)))
            best = i;
    career.invitationSquadron = best;
    career.invitationYear = career.year;
    career.invitationMonth = career.month;
    return best;
}

void CareerDriver::look() {
    screens->step(LookTime);
    screens->step();
}

testing::AssertionResult CareerDriver::comeBack() {
    look();
    if (!screens->untilIdle("MenuGameCombatReport"))
        return testing::AssertionFailure() << "no report, but " << state();
    return closeReport();
}

testing::AssertionResult CareerDriver::closeReport() {
    const auto result = go("menuButton1", "MenuGameAdvance");
    const Database& career = *Database::instance();
    const bool isOver = career.hasCareer() && isWarOver(career);
    return !result ? result
                   : walk(isOver ? "menuButton1>MenuGameWarOver menuBack>MenuGameMain"
                                 : "menuButton1>MenuGameDiary menuButton1>MenuGameMain");
}

Picture CareerDriver::shot() {
    screens->moveTo(5, 5);
    screens->step(); // draws
    screens->step(); // shows it and draws it again
    const zel::Window* window = zel::Window::current();
    if (window == nullptr)
        return {};
    return {window->getRealWidth(), window->getRealHeight(),
            zel::Canvas::getInstance().readPixels()};
}

InFront::InFront(bool isDrawn) {
    zel::Platform::getInstance().setAppState(7);
    zel::Canvas::getInstance().setSeen(isDrawn);
}

InFront::~InFront() {
    zel::Platform::getInstance().setAppState(-1);
    zel::Canvas::getInstance().setSeen(true);
}
