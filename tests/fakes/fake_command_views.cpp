#include "fakes/fake_command_views.h"

#include "core/runtime_error.h"

std::optional<std::string> ScriptedDialogs::Answer(bool save, const FileDialogRequest& request) {
    shown.push_back({save, request});
    if (onShow) onShow(shown.back());
    if (fail) throw RuntimeError(errors::kInvalidCall, "CommDlgExtendedError 65535");
    if (answers.empty()) return std::nullopt;
    std::optional<std::string> answer = answers.front();
    answers.pop_front();
    return answer;
}
