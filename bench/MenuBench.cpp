// Screens without a window: reading a drawn layout, and a frame in which nobody does anything.

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/RatioReport.h"
#include "bench/WorkFolder.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/graphics/Bitmap.h"
#include "engine/menu/HandledMenu.h"
#include "engine/menu/style/LayoutHandler.h"
#include "engine/menu/style/LayoutImage.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/HighLevelScheduler.h"
#include "engine/window/StatesMachine.h"

namespace {

constexpr int32_t Width = 1024;
constexpr int32_t Height = 768;
constexpr int32_t ElementCount = 30;

/// The position of an element: five in a row.
zel::PixelRect placeOf(int32_t index) {
    return {20 + index % 5 * 200, 20 + index / 5 * 120, 180, 80};
}

uint32_t colorOf(int32_t index) { return 0x102030U + static_cast<uint32_t>(index) * 0x050301U; }

void appendNumber(std::string& bytes, uint32_t value, int32_t size) {
    for (int32_t place = 0; place < size; ++place)
        bytes += static_cast<char>(value >> (8 * place));
}

/// The elements in their colours on white, 24 bits a pixel.
std::string paintedBmp() {
    std::vector<uint32_t> pixels(size_t(Width) * Height, 0xFFFFFF);
    for (int32_t index = 0; index < ElementCount; ++index) {
        const zel::PixelRect place = placeOf(index);
        for (int32_t y = place.y; y < place.y + place.height; ++y)
            for (int32_t x = place.x; x < place.x + place.width; ++x)
                pixels[static_cast<size_t>(y * Width + x)] = colorOf(index);
    }
    std::string bytes = "BM";
    for (const uint32_t value : {54U + 3U * Width * Height, 0U, 54U, 40U, uint32_t(Width)})
        appendNumber(bytes, value, 4);
    appendNumber(bytes, uint32_t(-Height), 4); // the top line first
    appendNumber(bytes, 1, 2);
    appendNumber(bytes, 24, 2);
    bytes.append(24, '\0');
    for (const uint32_t pixel : pixels)
        appendNumber(bytes, pixel, 3);
    return bytes;
}

std::string paintedIndex() {
    std::string text;
    for (int32_t index = 0; index < ElementCount; ++index) {
        char line[64];
        std::snprintf(line, sizeof line, "widget w%d\npickcolor #%06X\n", index, colorOf(index));
        text += line;
    }
    return text;
}

/// A menu of that many buttons, without pictures or fonts.
std::string idleScript() {
    std::string layout = "init:\nlayout.definelayout idle\n";
    std::string enter = "setlayout idle\n\nonenter:\n";
    for (int32_t index = 0; index < ElementCount; ++index) {
        const zel::PixelRect place = placeOf(index);
        const std::string name = "w" + std::to_string(index);
        layout += "layout.definewidget " + name + " button\nlayout.definewidgetposition " +
                  std::to_string(place.x) + " " + std::to_string(place.y) +
                  "\nlayout.definewidgetsize " + std::to_string(place.width) + " " +
                  std::to_string(place.height) + "\n";
        enter += "addwidget " + name + "\n";
    }
    return layout + enter;
}

void writeFile(const char* name, const std::string& content) {
    std::ofstream(name, std::ios::binary) << content;
}

const zel::Bitmap& painted() {
    static zel::Bitmap picture;
    static const bool loaded = picture.load("painted.bmp", false);
    static_cast<void>(loaded);
    return picture;
}

void loadLayout(benchmark::State& state) {
    for (auto unused : state) {
        static_cast<void>(unused);
        zel::Layout layout;
        zel::loadLayoutImage("painted.bmp", layout);
        if (layout.widgets.size() != size_t(ElementCount))
            state.SkipWithError("not all elements were found");
    }
}

/// Counts the lines that differ from the line above: the least that a search has to look at.
int32_t countLines(const zel::BitmapData& picture) {
    const size_t size =
        static_cast<size_t>(picture.pictureWidth) * static_cast<size_t>(picture.depth);
    int32_t lines = 1;
    for (int32_t y = 1; y < picture.pictureHeight; ++y)
        lines += std::memcmp(picture.line(y), picture.line(y - 1), size) != 0 ? 1 : 0;
    return lines;
}

void loadLayoutBare(benchmark::State& state) {
    for (auto unused : state) {
        static_cast<void>(unused);
        zel::Bitmap picture;
        if (!picture.load("painted.bmp", false))
            state.SkipWithError("the picture is gone");
        benchmark::DoNotOptimize(countLines(picture.getData()));
    }
}

void search(benchmark::State& state) {
    std::vector<uint32_t> colors;
    for (int32_t index = 0; index < ElementCount; ++index)
        colors.push_back(colorOf(index));
    for (auto unused : state) {
        static_cast<void>(unused);
        benchmark::DoNotOptimize(zel::findBoxes(painted().getData(), colors));
    }
}

void searchBare(benchmark::State& state) {
    for (auto unused : state) {
        static_cast<void>(unused);
        benchmark::DoNotOptimize(countLines(painted().getData()));
    }
}

void idleFrame(benchmark::State& state) {
    zel::StatesMachine& machine = zel::StatesMachine::getInstance();
    zel::HighLevelScheduler& scheduler = zel::HighLevelScheduler::getInstance();
    zel::HandledMenu menu("Idle", zel::State::None);
    menu.setFadeTimes(0, 0, 0);
    machine.setActiveState(&menu);
    for (int32_t frame = 0; frame < 100; ++frame) {
        machine.update();
        zel::system::sleepMilliseconds(1);
    }
    if (!machine.isSettled() || menu.getWidgets().size() != size_t(ElementCount))
        state.SkipWithError("the menu did not come up");
    for (auto unused : state) {
        static_cast<void>(unused);
        scheduler.render();
        machine.update();
    }
}

/// A list of that many rows, made one by one and removed.
void makeRows(benchmark::State& state, int32_t count) {
    zel::LayoutHandler& layouts = zel::LayoutHandler::getInstance();
    layouts.defineLayout("rows");
    layouts.defineWidget("list", "scrollingarea");
    std::vector<zel::String> names{"list"};
    for (int32_t index = 0; index < count; ++index) {
        names.push_back("list.row" + std::to_string(index));
        layouts.defineWidget(names.back(), "button");
        layouts.currentWidget()->rect = placeOf(index);
    }
    zel::HandledMenu menu("Rows", zel::State::None);
    menu.setLayout("rows");
    for (auto unused : state) {
        static_cast<void>(unused);
        for (const zel::String& name : names)
            menu.createWidget(name);
        if (menu.getWidgets().size() != names.size())
            state.SkipWithError("rows are missing");
        menu.clearWidgets();
    }
}

void makeManyRows(benchmark::State& state) { makeRows(state, 8000); }
void makeFewRows(benchmark::State& state) { makeRows(state, 1000); }

} // namespace

int main(int argc, char** argv) {
    zel::setConsoleShown(false);
    zel::disableLogging();
    zel::system::setEnvironment("SDL_VIDEODRIVER", "dummy");
    zel::system::setEnvironment("SDL_AUDIODRIVER", "dummy");
    RatioReport report;
    if (!report.takeArguments(argc, argv))
        return 1;
    const std::filesystem::path folderBefore = std::filesystem::current_path();
    const WorkFolder folder;
    std::filesystem::current_path(folder.path);
    std::filesystem::create_directory("Menus");
    writeFile("painted.bmp", paintedBmp());
    writeFile("painted.idx", paintedIndex());
    writeFile("Menus/Idle.ini", idleScript());
    benchmark::RegisterBenchmark("drawn layout of 30 elements/ours", loadLayout);
    benchmark::RegisterBenchmark("drawn layout of 30 elements/bare", loadLayoutBare);
    benchmark::RegisterBenchmark("frame of 30 idle widgets/ours", idleFrame);
    benchmark::RegisterBenchmark("search of its 30 colours/ours", search);
    benchmark::RegisterBenchmark("search of its 30 colours/bare", searchBare);
    benchmark::RegisterBenchmark("8000 list rows against 1000/ours", makeManyRows);
    benchmark::RegisterBenchmark("8000 list rows against 1000/bare", makeFewRows);
    // 8 would be linear, caches included; 64 would be quadratic.
    RatioReport::setLimit("8000 list rows against 1000", 20);
    RatioReport::setLimit("search of its 30 colours", 3);
    RatioReport::setLimit("drawn layout of 30 elements", 2);
    RatioReport::setTimeLimit("frame of 30 idle widgets", 5e-6);
    const int result = report.run();
    std::filesystem::current_path(folderBefore); // the other is removed
    return result;
}
