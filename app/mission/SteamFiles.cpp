#include "app/mission/SteamFiles.h"

#include <algorithm>
#include <cctype>

#include "engine/core/System.h"
#include "engine/core/TextLines.h"

namespace {

constexpr size_t DeepestBlock = 32;

enum class Token { Text, Open, Close, End };

/// Splits a text into quoted or bare words and braces; comments are left out.
class SteamTokens {
public:
    explicit SteamTokens(std::string_view text) : rest(text) {
        if (rest.substr(0, zel::ByteOrderMark.size()) == zel::ByteOrderMark)
            rest.remove_prefix(zel::ByteOrderMark.size());
    }

    Token next(std::string& word) {
        skipBlanks();
        word.clear();
        if (rest.empty())
            return Token::End;
        const char first = rest.front();
        if (first == '{' || first == '}') {
            rest.remove_prefix(1);
            return first == '{' ? Token::Open : Token::Close;
        }
        if (first == '"')
            takeQuoted(word);
        else
            takeBare(word);
        return Token::Text;
    }

private:
    static bool isBlank(char character) {
        return std::isspace(static_cast<unsigned char>(character)) != 0 || character == '\0';
    }

    void skipBlanks() {
        while (!rest.empty()) {
            if (isBlank(rest.front()))
                rest.remove_prefix(1);
            else if (rest.substr(0, 2) == "//")
                rest.remove_prefix(std::min(rest.find_first_of("\r\n"), rest.size()));
            else
                return;
        }
    }

    void takeQuoted(std::string& word) {
        rest.remove_prefix(1);
        while (!rest.empty() && rest.front() != '"') {
            if (rest.front() == '\\' && rest.size() > 1)
                rest.remove_prefix(1); // the next character itself: a backslash or a quotation mark
            word += rest.front();
            rest.remove_prefix(1);
        }
        rest.remove_prefix(std::min<size_t>(1, rest.size()));
    }

    void takeBare(std::string& word) {
        const auto end = std::find_if(rest.begin(), rest.end(), [](char character) {
            return isBlank(character) || character == '{' || character == '}' || character == '"';
        });
        word.assign(rest.begin(), end);
        rest.remove_prefix(word.size());
    }

    std::string_view rest;
};

bool isNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

} // namespace

std::vector<SteamValue> readSteamText(std::string_view text) {
    std::vector<SteamValue> values;
    SteamTokens tokens(text);
    std::vector<zel::String> keys; // of the blocks
    size_t tooDeep = 0;            // open blocks beyond the deepest one
    std::string key;
    bool hasKey = false;
    std::string word;
    for (Token token = tokens.next(word); token != Token::End; token = tokens.next(word)) {
        if (token == Token::Text && !hasKey) {
            key = word;
        } else if (token == Token::Text && tooDeep == 0) {
            values.push_back({keys, word});
            values.back().keys.emplace_back(key);
        } else if (token == Token::Open && keys.size() < DeepestBlock) {
            keys.emplace_back(hasKey ? key : std::string());
        } else if (token == Token::Open) {
            ++tooDeep;
        } else if (token == Token::Close && tooDeep > 0) {
            --tooDeep;
        } else if (token == Token::Close && !keys.empty()) {
            keys.pop_back();
        }
        hasKey = token == Token::Text && !hasKey;
    }
    return values;
}

std::vector<zel::String> steamLibraries(std::string_view libraryFolders) {
    std::vector<zel::String> folders;
    for (const SteamValue& one : readSteamText(libraryFolders)) {
        const bool isOld = one.keys.size() == 2 && isNumber(one.keys[1]);
        const bool isNew =
            one.keys.size() == 3 && isNumber(one.keys[1]) && zel::equalsNoCase(one.keys[2], "path");
        if ((isOld || isNew) && one.value.view().find_first_of("\\/") != std::string_view::npos)
            folders.push_back(zel::system::nameFromUtf8(one.value));
    }
    return folders;
}

zel::String steamInstallFolder(std::string_view appManifest) {
    for (const SteamValue& one : readSteamText(appManifest)) {
        const std::string_view name = one.value;
        if (one.keys.size() == 2 && zel::equalsNoCase(one.keys[1], "installdir") && name != "." &&
            name != ".." && name.find_first_of("\\/:") == name.npos)
            return zel::system::nameFromUtf8(one.value);
    }
    return {};
}
