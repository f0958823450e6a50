#include "fakes/ini_text_file.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "core/basic_text.h"

namespace {

// The read buffer is 255 characters including the terminating zero.
constexpr std::size_t kReadBufferChars = 255;

std::string_view TrimBlanks(std::string_view text) {
    std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    std::size_t last = text.find_last_not_of(" \t");
    return text.substr(first, last - first + 1);
}

// The text as the profile calls take it: a UTF-8 byte-order mark is skipped
// and a UTF-16 file (little-endian, with its mark) is read as text; this fake
// keeps the ASCII characters of such a file and puts "?" for the others.
std::string Decoded(std::string text) {
    if (text.starts_with("\xEF\xBB\xBF")) return text.substr(3);
    if (!text.starts_with("\xFF\xFE")) return text;
    std::string narrow;
    for (std::size_t i = 2; i + 1 < text.size(); i += 2) narrow += text[i + 1] == 0 ? text[i] : '?';
    return narrow;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        std::size_t end = std::min(text.find('\n', start), text.size());
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(std::move(line));
        start = end + 1;
    }
    return lines;
}

std::optional<std::string> SectionName(std::string_view line) {
    std::string_view trimmed = TrimBlanks(line);
    if (trimmed.size() < 2 || trimmed.front() != '[') return std::nullopt;
    std::size_t close = trimmed.find(']');
    if (close == std::string_view::npos) return std::nullopt;
    return std::string(TrimBlanks(trimmed.substr(1, close - 1)));
}

// The key of a "key=value" line, or nothing for comments and other lines.
std::optional<std::string> KeyName(std::string_view line) {
    std::string_view trimmed = TrimBlanks(line);
    if (trimmed.empty() || trimmed.front() == ';') return std::nullopt;
    std::size_t equals = trimmed.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    return std::string(TrimBlanks(trimmed.substr(0, equals)));
}

std::string ValueOf(std::string_view line) { return std::string(TrimBlanks(line.substr(line.find('=') + 1))); }

bool SameName(const std::string& a, const std::string& b) { return Lower(a) == Lower(b); }

struct Location {
    int keyLine = -1;   // index of the key's line
    int lastLine = -1;  // last non-blank line of the section, its header at least
};

Location Find(const std::vector<std::string>& lines, const std::string& section, const std::string& key) {
    Location found;
    bool inside = false;
    for (int i = 0; i < static_cast<int>(lines.size()); ++i) {
        if (auto name = SectionName(lines[i])) {
            if (inside) break;
            inside = SameName(*name, section);
            if (inside) found.lastLine = i;
            continue;
        }
        if (!inside) continue;
        if (!TrimBlanks(lines[i]).empty()) found.lastLine = i;
        auto name = KeyName(lines[i]);
        if (found.keyLine < 0 && name && SameName(*name, key)) found.keyLine = i;
    }
    return found;
}

}  // namespace

const std::vector<std::string>& IniTextFile::LinesOf(const std::string& file) {
    std::string text = files_.ReadAll(file).value_or("");
    if (text != parsedText_) {
        parsedText_ = std::move(text);
        parsedLines_ = Lines(Decoded(parsedText_));
    }
    return parsedLines_;
}

std::string IniTextFile::Read(const std::string& section, const std::string& key, const std::string& file) {
    const std::vector<std::string>& lines = LinesOf(file);
    Location at = Find(lines, section, key);
    if (at.keyLine < 0) return "";
    return ValueOf(lines[at.keyLine]).substr(0, kReadBufferChars - 1);
}

int IniTextFile::Write(const std::string& section, const std::string& key, const std::string& value,
                       const std::string& file) {
    writes.push_back(key + "=" + value);
    std::vector<std::string> lines = LinesOf(file);
    Location at = Find(lines, section, key);
    std::string entry = key + "=" + value;
    if (at.keyLine >= 0) {
        lines[at.keyLine] = entry;
    } else if (at.lastLine >= 0) {
        lines.insert(lines.begin() + at.lastLine + 1, entry);
    } else {
        lines.push_back("[" + section + "]");
        lines.push_back(entry);
    }
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return files_.WriteAtomically(file, text) ? 1 : 0;
}
