#include "json_writer.h"

#include <windows.h>

#include <cstdio>

namespace {

std::string AnsiToUtf8(const std::string& text) {
    if (text.empty()) return text;
    const int wideLength = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring wide(static_cast<size_t>(wideLength), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), wide.data(), wideLength);
    const int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), wideLength, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), wideLength, utf8.data(), length, nullptr, nullptr);
    return utf8;
}

std::string Quoted(const std::string& utf8) {
    std::string quoted = "\"";
    for (unsigned char c : utf8) {
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += static_cast<char>(c);
        } else if (c < 0x20) {
            char escape[8];
            snprintf(escape, sizeof escape, "\\u%04x", c);
            quoted += escape;
        } else {
            quoted += static_cast<char>(c);
        }
    }
    return quoted + "\"";
}

}  // namespace

void JsonWriter::Separate() {
    if (!first) out += ',';
    first = false;
}

JsonWriter& JsonWriter::Open(char bracket) {
    Separate();
    out += bracket;
    first = true;
    return *this;
}

JsonWriter& JsonWriter::Close(char bracket) {
    out += bracket;
    first = false;
    return *this;
}

JsonWriter& JsonWriter::BeginObject() { return Open('{'); }
JsonWriter& JsonWriter::EndObject() { return Close('}'); }
JsonWriter& JsonWriter::BeginArray() { return Open('['); }
JsonWriter& JsonWriter::EndArray() { return Close(']'); }

JsonWriter& JsonWriter::Key(const char* name) {
    Separate();
    out += Quoted(name) + ':';
    first = true;  // the value that follows needs no comma
    return *this;
}

JsonWriter& JsonWriter::String(const std::string& ansiText) {
    Separate();
    out += Quoted(AnsiToUtf8(ansiText));
    return *this;
}

JsonWriter& JsonWriter::Number(long long value) {
    Separate();
    out += std::to_string(value);
    return *this;
}

JsonWriter& JsonWriter::Bool(bool value) {
    Separate();
    out += value ? "true" : "false";
    return *this;
}
