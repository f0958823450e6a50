#pragma once
#include <string>

// SystemModalInformation stays above the windows of every program.
enum class BoxStyle { Plain, Information, SystemModalInformation, Exclamation, Error, QuestionYesNo, YesNoCancel };
enum class BoxAnswer { Ok, Yes, No, Cancel };

// Modal message boxes; tests script the user's answers.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    virtual BoxAnswer Show(const std::string& text, const std::string& title, BoxStyle style) = 0;
};
