#include "engine/core/Registry.h"
#include "engine/graphics/Font.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/HandledMenu.h"
#include "engine/menu/LayoutHandler.h"
#include "engine/menu/MenuOverlay.h"
#include "engine/menu/TextArea.h"
#include "engine/menu/ThemeHandler.h"
#include "engine/menu/Widget.h"
#include "fuzz/FuzzFile.h"

namespace {

/// Nothing of one input may reach the next.
void releaseAll() {
    zel::HandledMenu::releaseShared();
    zel::LayoutHandler::release();
    zel::ThemeHandler::release();
    zel::MenuOverlay::release();
    zel::FontHandler::clear();
    zel::ImageHandler::getInstance().clear();
    zel::Registry::clear();
}

/// The folder in which scripts look for files while it lives: empty, so that none is found. The
/// fuzzer itself keeps its own.
class EmptyFolder {
public:
    EmptyFolder() : before(zel::system::currentDirectory()) {
        static const FuzzFolder folder;
        require(zel::system::changeDirectory(folder.path), "the folder can be entered");
    }
    ~EmptyFolder() { require(zel::system::changeDirectory(before), "and left"); }
    EmptyFolder(const EmptyFolder&) = delete;
    EmptyFolder& operator=(const EmptyFolder&) = delete;

private:
    zel::String before;
};

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const EmptyFolder folder;
    zel::Registry::setDeferSave(true);
    zel::MenuConfigFile::setFaultSink([](const zel::ScriptFault& fault) {
        require(!fault.text.empty(), "a report says something");
    });
    {
        zel::HandledMenu menu("Fuzzed", zel::State::None);
        zel::MenuConfigFile script;
        script.loadText(asText(data, size), "fuzzed.ini");
        const auto lines = static_cast<int32_t>(script.getLines().size());
        for (const zel::MenuConfigFile::Section& section : script.getSections()) {
            require(section.first >= 1 && section.last < lines && section.first <= section.last + 1,
                    "a section lies within the lines");
            script.executeSection(section.name, &menu);
        }
        for (const auto& [name, widget] : menu.getWidgets())
            require(widget != nullptr && widget->getName() == name, "a widget by its name");
        menu.render();
        menu.recreateElements();
        menu.resetWidgets();
    }
    releaseAll();
    return 0;
}
