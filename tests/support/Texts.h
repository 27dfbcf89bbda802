#pragma once

#include <fstream>
#include <iterator>
#include <map>
#include <string>

/// A file's bytes; empty if it isn't there.
inline std::string fileText(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
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
