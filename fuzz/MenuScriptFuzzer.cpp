#include "engine/core/Clock.h"
#include "engine/core/Language.h"
#include "engine/core/Registry.h"
#include "engine/graphics/Font.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/HandledMenu.h"
#include "engine/menu/MenuOverlay.h"
#include "engine/menu/style/LayoutHandler.h"
#include "engine/menu/style/ThemeHandler.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/HighLevelScheduler.h"
#include "engine/window/Platform.h"
#include "engine/window/StatesMachine.h"
#include "fuzz/FuzzFile.h"
#include "tests/engine/graphics/Pictures.h"

namespace {

constexpr int32_t FramesOfTransition = 12; // five calls and three phases, and some to spare
constexpr size_t MostHits = 24;
constexpr uint32_t FrameTicks = 500; // no fade is longer

uint32_t now = 0;

/// The folder of a small program, in which scripts look for files while it lives. The fuzzer itself
/// keeps its own.
class ProgramFolder {
public:
    ProgramFolder() : before(zel::system::currentDirectory()) {
        static const FuzzFolder folder;
        static const bool isWritten = prepare(folder);
        require(isWritten && zel::system::changeDirectory(folder.path),
                "the folder can be entered");
    }
    ~ProgramFolder() { require(zel::system::changeDirectory(before), "and left"); }
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

private:
    static bool prepare(const FuzzFolder& folder) {
        zel::system::setEnvironment("SDL_VIDEODRIVER", "dummy");
        zel::system::setEnvironment("SDL_AUDIODRIVER", "dummy");
        const auto write = [&](const char* name, const std::string& content) {
            folder.write(name, reinterpret_cast<const uint8_t*>(content.data()), content.size());
        };
        // A red and a blue pixel, the row padded to 8 bytes.
        const std::string dots = bmpFile(2, 1, 24, std::string_view("\0\0\xFF\xFF\0\0\0\0", 8));
        write("dot.bmp", dots);
        write("dot.idx", "image p\ndims 0 0 1 1\nimage q\ndims 1 0 1 1\nlifetime short\n");
        write("l.bmp", dots);
        write("l.idx", "resolution 1024 768\nwidget a\npickcolor #ff0000\nscrollin 9 9 1\n"
                       "textarea t\npickcolor #0000ff\nalign right\nwidget lost\n");
        std::string letters;
        for (const char letter : {' ', 'a', 'b'})
            letters += glyph(static_cast<uint8_t>(letter), 7, {0, 0, 1, 1});
        write("f.fnt", fontFile(letters, "", "dot.bmp"));
        write("block.inc", "setlayout l\nsettheme t\n");
        std::filesystem::create_directories(folder.file("Language"));
        write("Language/en.txt", "1: a b\\na\n2: $1\n");
        return true;
    }

    zel::String before;
};

/// Nothing may carry over from one input to the next.
void releaseAll() {
    zel::HandledMenu::releaseShared();
    zel::LayoutHandler::release();
    zel::ThemeHandler::release();
    zel::MenuOverlay::release();
    zel::HighLevelScheduler::destroy();
    zel::StatesMachine::getInstance().reset();
    zel::FontHandler::clear();
    zel::ImageHandler::getInstance().clear();
    zel::Language::reset();
    zel::Registry::clear();
}

void runFrame() {
    now += FrameTicks;
    zel::ImageHandler::getInstance().getQueue().step();
    zel::StatesMachine::getInstance().update();
    zel::StatesMachine::getInstance().render();
}

void goTo(zel::HandledMenu& menu) {
    zel::StatesMachine& machine = zel::StatesMachine::getInstance();
    if (machine.getActiveState() != &menu)
        machine.setActiveState(&menu);
    runFrame();
    for (int32_t frame = 1; frame < FramesOfTransition && !machine.isSettled(); ++frame)
        runFrame();
}

/// Runs sections by themselves, whatever event they belong to.
void runSections(zel::HandledMenu& menu) {
    zel::MenuConfigFile& script = menu.getScript();
    const auto lines = static_cast<int32_t>(script.getLines().size());
    const std::vector<zel::MenuConfigFile::Section> sections = script.getSections();
    for (const zel::MenuConfigFile::Section& section : sections) {
        require(section.first >= 1 && section.last < lines && section.first <= section.last + 1,
                "a section is within the lines");
        script.executeSection(section.name, &menu);
    }
}

/// Hits what is there now, but opens no web page.
void hitWidgets(zel::HandledMenu& menu) {
    std::vector<zel::String> names;
    for (const auto& [name, widget] : menu.getWidgets()) {
        require(widget != nullptr && widget->getName() == name, "a widget by its name");
        if (names.size() < MostHits)
            names.push_back(name);
    }
    for (const zel::String& name : names) {
        const zel::Widget* widget = menu.getWidget(name);
        const bool isSafe = widget != nullptr && widget->getTransition().find(':') < 0;
        if (isSafe && menu.hitWidget(name))
            runFrame();
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const ProgramFolder folder;
    zel::setTickSource([] { return ++now; });
    zel::Registry::clear();
    zel::Registry::setDeferSave(true);
    if (!zel::Language::load("en"))
        require(false, "the language can be read");
    zel::MenuConfigFile::setFaultSink([](const zel::ScriptFault& fault) {
        require(!fault.text.empty(), "a report says something");
    });
    {
        zel::HandledMenu other("Other", zel::State::None);
        zel::HandledMenu menu("Fuzzed", zel::State::None);
        menu.getScript().loadText(asText(data, size), "fuzzed.ini");
        menu.getScript().executeSection("init", &menu);
        goTo(menu);
        hitWidgets(menu);
        goTo(menu);
        runSections(menu);
        menu.onPause();
        menu.onContinue();
        hitWidgets(menu);
        goTo(other);
    }
    releaseAll();
    return 0;
}
