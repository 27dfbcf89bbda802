#pragma once

#include <fstream>
#include <map>
#include <sstream>
#include <string>

/// A file's bytes; empty if it isn't there.
inline std::string fileText(const std::string& path) {
    std::ostringstream text; // by blocks: a sanitizer makes single bytes slow
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

/// The text with each `from` replaced.
inline std::string replacedAll(std::string text, const std::string& from, const std::string& to) {
    for (size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

/// The text with each {key} replaced by its value.
inline std::string filled(std::string text, const std::map<std::string, std::string>& values) {
    for (const auto& [key, value] : values)
        text = replacedAll(text, "{" + key + "}", value);
    return text;
}
