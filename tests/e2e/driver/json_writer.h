#pragma once
// A minimal JSON writer for the driver's answers. Texts come from other
// programs' controls in the ANSI code page and are written as UTF-8.
#include <string>

class JsonWriter {
public:
    JsonWriter& BeginObject();
    JsonWriter& EndObject();
    JsonWriter& BeginArray();
    JsonWriter& EndArray();
    JsonWriter& Key(const char* name);
    JsonWriter& String(const std::string& ansiText);
    JsonWriter& Number(long long value);
    JsonWriter& Bool(bool value);
    const std::string& Text() const { return out; }

private:
    void Separate();
    JsonWriter& Open(char bracket);
    JsonWriter& Close(char bracket);
    std::string out;
    bool first = true;  // nothing written yet in the current object or array
};
