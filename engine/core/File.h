#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "engine/core/DataStream.h"
#include "engine/core/FileFault.h"
#include "engine/core/String.h"

namespace zel {

/// How a file is opened: to read it, to write a new one, to change it, to write at its end.
enum FileMode : int32_t { FileRead = 0, FileWrite = 1, FileUpdate = 2, FileAppend = 3 };

/// A file as binary blocks and as lines of text.
///
/// Only regular files open. A name may contain backslashes on every system. Errors set hasFailed(),
/// which stays set for the life of the object; a caller checks it once at the end.
class File : public DataStream {
public:
    /// Opens the file in one of the modes above.
    File(const String& name, int32_t mode);
    ~File() override = default;

    /// One block of `count` bytes. False, and hasFailed(), unless all of it is read or written. A
    /// read past the end leaves the block unchanged.
    bool write(const void* block, int32_t count);
    bool read(void* block, int32_t count);
    /// whence: 0 from the start, 1 from here, 2 from the end.
    bool seek(int32_t offset, int32_t whence);
    /// Flushes and closes; a write that fails only now also sets hasFailed().
    void close();

    bool isOpen() const { return stream != nullptr; }
    bool hasFailed() const { return failed; }
    FileFault fault() const { return why; } // of the first failure that the system has a reason for
    bool atEnd() const { return position >= size; } // of blocks: everything has been read
    int32_t fileSize() const { return size; }       // bytes, when it was opened
    int32_t bufferSize() const override { return static_cast<int32_t>(filled); }

    /// Finds the next line; false at the end of the file. A line ends at a carriage return, a line
    /// feed or the end of the file. These two and zero bytes are skipped before a line, so no line
    /// is empty. A byte order mark before the first line is skipped.
    bool hasLine();
    /// The line that hasLine() found, without its line end.
    String getLine() const { return String(lineView()); }
    /// The same without a copy; valid until the next hasLine().
    std::string_view lineView() const;
    /// Number of that line in the file as an editor counts: from 1, empty lines included.
    int32_t lineNumber() const { return physicalLine; }

    /// The whole file, read at once. False if it can't be read.
    bool readWhole(std::string& content);

    /// Whether the file opens for reading.
    static bool exists(const String& name);

private:
    struct Closer {
        void operator()(FILE* file) const { std::fclose(file); }
    };
    static constexpr size_t Unknown = SIZE_MAX;
    bool fail();
    size_t readBlock(void* block, size_t count);
    void beginLines();
    bool fillBuffer();
    size_t lineEndFrom(size_t start);

    std::unique_ptr<FILE, Closer> stream;
    int32_t position = 0; // after the last read or write
    int32_t size = 0;
    bool failed = false;
    FileFault why = FileFault::None;

    // For lines: a window of the file, which moves on as lines are taken.
    std::vector<char> buffer;
    size_t filled = 0;       // bytes of it in use
    size_t readPosition = 0; // where the search for the next line begins
    size_t lineStart = 0;    // of the current line, and its end
    size_t lineEnd = 0;
    size_t nextFeed = Unknown; // the next line feed in the buffer, or its end
    bool readsLines = false;
    bool afterReturn = false; // a line feed here belongs to the carriage return before it
    int32_t physicalLine = 1;
};

/// Reads a file of at most `most` bytes. False, with `content` undefined, if it is missing or
/// longer or can't be read.
[[nodiscard]] bool readFile(const String& name, int32_t most, std::string& content);
/// Reads a whole file, whatever its length. On error: the reason, and no content.
[[nodiscard]] FileFault readFileWhole(const String& name, std::string& content);

} // namespace zel
