#include "tests/support/LogCapture.h"

#include <sstream>

LogCapture::LogCapture(int32_t level) : stream(std::tmpfile()) {
    zel::setLogStream(stream);
    zel::setLogLevel(level);
}

LogCapture::~LogCapture() {
    zel::setLogStream(stdout);
    zel::setLogLevel(zel::LogWarning);
    std::fclose(stream);
}

std::string LogCapture::text() const {
    std::fflush(stream);
    std::string lines(static_cast<size_t>(std::ftell(stream)), '\0');
    std::rewind(stream);
    lines.resize(std::fread(lines.data(), 1, lines.size(), stream));
    std::fseek(stream, 0, SEEK_END);
    return lines;
}

int32_t LogCapture::linesWith(const std::string& part) const {
    std::istringstream lines(text());
    int32_t count = 0;
    for (std::string line; std::getline(lines, line);)
        count += line.find(part) != std::string::npos;
    return count;
}
