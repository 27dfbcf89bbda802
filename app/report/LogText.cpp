#include "app/report/LogText.h"

#include <algorithm>

#include "app/report/ByteMarks.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/TextLines.h"

namespace {

void logReading(const zel::String& message, int32_t level = zel::LogInfo) {
    zel::log(message, "CombatReport", level);
}

// Gives the same lines as the reader of whole text files.
void logFile(const char* operation, const zel::String& name) {
    if (zel::isLogged("EntireFile", zel::LogInfo))
        zel::log(operation + name, "EntireFile", zel::LogInfo);
}

/// The reason if the piece is there and could not be read; None if the log has ended.
zel::FileFault unreadPiece(const zel::String& piece, zel::FileFault reason) {
    if (!zel::system::fileStatus(piece).exists)
        return zel::FileFault::None;
    logReading("Piece cannot be read: " + piece, zel::LogWarning);
    return reason != zel::FileFault::None ? reason : zel::FileFault::Other; // it became shorter
}

} // namespace

bool LogText::loadFile(const zel::String& name) {
    logFile("loadFile ", name);
    clear();
    return appendFile(name);
}

bool LogText::appendFile(const zel::String& name) {
    logFile("appendFile ", name);
    zel::File file(name, zel::FileRead);
    const int32_t bytes = file.hasFailed() ? 0 : file.fileSize();
    const bool isRead = !file.hasFailed() && file.read(makeRoom(size_t(bytes)), bytes);
    appendFault = file.fault();
    if (!isRead)
        return false;
    size += size_t(bytes);
    splitFrom(size - size_t(bytes));
    return true;
}

void LogText::add(std::string_view added) {
    std::copy_n(added.data(), added.size(), makeRoom(added.size()));
    size += added.size();
    splitFrom(size - added.size());
}

void LogText::clear() {
    size = 0;
    lines.clear();
}

/// Reserves that many bytes after those in use.
char* LogText::makeRoom(size_t bytes) {
    if (size + bytes > capacity) {
        capacity = std::max(size + bytes, 2 * capacity);
        std::unique_ptr<char[]> larger(new char[capacity]);
        std::copy_n(text.get(), size, larger.get());
        text = std::move(larger);
    }
    return text.get() + size;
}

bool LogText::readPieces(const zel::String& folder, const zel::String& name) {
    unread = zel::FileFault::None;
    if (!loadFile(folder + name)) {
        unread = unreadPiece(folder + name, appendFault);
        return false;
    }
    // The bracket of the file's own name: the folder may have one too.
    const std::string_view own = name.view();
    const size_t open = own.find('[');
    const size_t close = open != own.npos ? own.find(']', open) : own.npos;
    const zel::String base = folder + own.substr(0, open);
    const zel::String appendix(close != own.npos ? own.substr(close + 1) : std::string_view());
    logReading("Base Filename: " + base);
    logReading("Appendix Filename: " + appendix);
    if (close != own.npos) {
        int32_t piece = 1;
        const auto file = [&] { return base + "[" + piece + "]" + appendix; };
        while (appendFile(file()))
            ++piece;
        unread = unreadPiece(file(), appendFault);
    }
    logReading(zel::String("Total Lines Read: ") + lineCount());
    return !hasUnreadPiece();
}

/// Finds the lines of the text from `start` on, where a file begins.
void LogText::splitFrom(size_t start) {
    using LineMarks = ByteMarks<'\r', '\n'>;
    const std::string_view all(text.get(), size);
    if (all.substr(start, zel::ByteOrderMark.size()) == zel::ByteOrderMark)
        start += zel::ByteOrderMark.size();
    size_t lineStart = start;
    uint64_t endedBefore = 0; // bit 0: the byte before the current ones ends a line
    for (; start < all.size(); start += LineMarks::Width) {
        const LineMarks marks(all, start);
        const uint64_t ends = marks.first | marks.second;
        // The first of each run of ends.
        for (uint64_t left = ends & ~(ends << 1 | endedBefore); left != 0; left &= left - 1) {
            const size_t end = start + LineMarks::lowest(left);
            addLine(lineStart, end);
            lineStart = end + 1;
        }
        endedBefore = ends >> (LineMarks::Width - 1);
    }
    addLine(lineStart, all.size());
}

void LogText::addLine(size_t start, size_t end) {
    while (start < end && (text[start] == '\0' || text[start] == '\n' || text[start] == '\r'))
        ++start;
    if (start < end)
        lines.push_back({start, end - start});
}
