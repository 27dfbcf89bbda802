#include "app/screens/BookPage.h"

#include "app/book/BookTables.h"
#include "app/book/WebPage.h"
#include "app/record/CareerRecord.h"
#include "app/screens/ScreenWording.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "engine/core/WholeFile.h"
#include "engine/window/Window.h"

namespace {

constexpr const char* WebPageFile = "logbook.html";

} // namespace

zel::String writeBookPage(CareerRecord& record, const Database& career) {
    const zel::String file = zel::system::absolutePath(zel::getUserDirectory() + WebPageFile);
    const WebPage page = webPageOf(record.read(career), career, BookTables::instance());
    if (page.html.empty()) {
        zel::log(page.problem, "BookPage", zel::LogWarning);
        return textOf(wording::PageNotWritten, {page.reason});
    }
    if (const zel::FileFault fault = zel::writeFileWhole(file, page.html);
        fault != zel::FileFault::None)
        return textOf(wording::PageNotWritten, {faultSentence(fault)});
    zel::Window::openFile(file);
    return textOf(wording::PageIsWritten, {zel::system::shownText(file)});
}
