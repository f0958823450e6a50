#pragma once
#include <string>

enum class BoxStyle { Plain, Information, Exclamation, Error, QuestionYesNo, YesNoCancel };
enum class BoxAnswer { Ok, Yes, No, Cancel };

// Modal message boxes; tests script the user's answers.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    virtual BoxAnswer Show(const std::string& text, const std::string& title, BoxStyle style) = 0;
};
