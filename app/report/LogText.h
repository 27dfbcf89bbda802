#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "engine/core/FileFault.h"
#include "engine/core/String.h"

/// The text of a mission's log as lines: all pieces that the simulator wrote, joined, in one
/// buffer.
///
/// A line ends at a carriage return or a line feed, and has neither. Empty lines and a file's byte
/// order mark are left out, and so are zero bytes before a line; blanks stay.
class LogText {
public:
    /// Replaces the lines. On error: false and no lines.
    [[nodiscard]] bool loadFile(const zel::String& name);
    /// Adds the file's lines after those held. On error: false, and the lines stay as they were.
    [[nodiscard]] bool appendFile(const zel::String& name);
    /// Adds the lines of a text, which is copied.
    void add(std::string_view added);
    void clear();

    /// Replaces the lines by those of a whole log: the piece "[0]" of that name in the folder
    /// (which ends in a separator), then "[1]", "[2]" and so on up to the first that is missing.
    /// False if there is no first piece, or if hasUnreadPiece().
    [[nodiscard]] bool readPieces(const zel::String& folder, const zel::String& name);
    /// Whether a piece was there at the last readPieces and could not be read, for example because
    /// another program holds it: reading again may give more, even if the log hasn't grown.
    bool hasUnreadPiece() const { return unread != zel::FileFault::None; }
    /// Why it could not be read; None if there was no such piece.
    zel::FileFault unreadFault() const { return unread; }

    int32_t lineCount() const { return int32_t(lines.size()); }
    /// Valid until lines are added or replaced. REQUIRES: 0 <= index < lineCount().
    std::string_view line(int32_t index) const {
        return {text.get() + lines[index].start, lines[index].length};
    }
    /// The line and all text after it, likewise.
    std::string_view textFrom(int32_t index) const {
        return {text.get() + lines[index].start, size - lines[index].start};
    }

private:
    /// Part of the text, in bytes.
    struct LineSpan {
        size_t start;
        size_t length;
    };
    char* makeRoom(size_t bytes);
    void splitFrom(size_t start);
    void addLine(size_t start, size_t end);

    // No std::string: it would clear every piece's room before it is read into.
    std::unique_ptr<char[]> text;
    size_t size = 0;     // bytes of the text in use
    size_t capacity = 0; // bytes
    std::vector<LineSpan> lines;
    zel::FileFault appendFault = zel::FileFault::None; // of the last appendFile
    zel::FileFault unread = zel::FileFault::None;      // of the piece of hasUnreadPiece()
};
