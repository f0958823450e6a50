#include "updates/update_check.h"

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/runtime_error.h"
#include "core/settings.h"
#include "platform/dates.h"
#include "platform/win_constants.h"
#include "updates/inet_class.h"
#include "version.h"

namespace {

constexpr const char* kLabel = "CheckForUpdates";
constexpr const char* kLineBreak = "\r\n";
constexpr int kMonthsBetweenChecks = 2;
constexpr std::size_t kBuildDigitsChecked = 3;

constexpr const char* kAccessing = "Accessing the server... Please wait.";
constexpr const char* kNoUpdates = "No updates available at this time.";

std::string Heading(App& app) {
    return "Updates for " + app.appTitle + " Build " + std::to_string(KW_BUILD_NUMBER);
}

class UpdatesDialog : public UpdatesEvents {
public:
    explicit UpdatesDialog(App& app) : app_(app), view_(app.ui.updates), folder_(UpdateFolder(app)) {}

    void Loaded() override {
        Trapped(app_, kLabel, [&] {
            view_.SetDisplay(kAccessing);
            app_.os.clock.Yield();
            std::string answer = INetClass(app_.os, app_.ui.boxes, app_.appTitle)
                                     .OpenURL(folder_ + "CurVersion.txt", kUpdateTimeoutMs);
            std::string build = ServerBuild(answer);
            if (!OffersUpdate(build, KW_BUILD_NUMBER)) {
                view_.SetDisplay(kNoUpdates);
                return;
            }
            view_.SetDisplay(std::string("There is an update available!") + kLineBreak +
                             "Press download button to download build " + build);
            view_.SetDownloadEnabled(true);
        });
    }

    void Download() override {
        Trapped(app_, kLabel, [&] {
            app_.os.shell.Open(folder_ + "klickwerk.zip", "0", "0", win::kSwShowMaximized);
            app_.ui.boxes.Show("Please close " + app_.appTitle + " before installing the update.", app_.appTitle,
                               BoxStyle::SystemModalInformation);
        });
        Close();
    }

    void OpenUpdates() override {
        Trapped(app_, kLabel, [&] { app_.os.shell.Open(folder_ + "Updates.htm", "", "", win::kSwShowNormal); });
    }

    // Declining the reminder keeps "LastCheck"; only a shown window counts as a check.
    void Close() override {
        Trapped(app_, kLabel, [&] {
            WriteSetting(app_, Setting::LastCheck, app_.os.clock.FormatShortDate(app_.os.clock.Today()));
            app_.os.windows.SetPos(view_.Window(), win::kHwndNoTopmost, 0, 0, 0, 0,
                                   win::kSwpNoMove | win::kSwpNoSize);
        });
        view_.Close();
    }

private:
    App& app_;
    UpdatesView& view_;
    std::string folder_;
};

}  // namespace

std::string UpdateFolder(App& app) {
    std::string folder = Trim(ReadSetting(app, Setting::UpdateServer));
    if (folder.empty()) return kUpdateFolder;
    folder = WebAddress(folder);
    return EndsWith(folder, "/") ? folder : folder + "/";
}

std::string ServerBuild(const std::string& answer) {
    if (!IsNumeric(answer.substr(0, kBuildDigitsChecked))) return kNoServerBuild;
    return Trim(answer);
}

bool OffersUpdate(const std::string& serverBuild, long ownBuild) {
    return serverBuild != kNoServerBuild && Val(serverBuild) > static_cast<double>(ownBuild);
}

bool ReminderDue(Date lastCheck, Date today) { return AddMonths(lastCheck, kMonthsBetweenChecks) <= today; }

void CheckForUpdates(App& app) {
    Trapped(app, kLabel, [&] {
        Clock& clock = app.os.clock;
        std::string text = ReadSetting(app, Setting::LastCheck);
        if (text.empty()) return;
        std::optional<Date> lastCheck = clock.ParseShortDate(text);
        if (!lastCheck) RaiseTypeMismatch();
        if (!ReminderDue(*lastCheck, clock.Today())) return;
        std::string question = "You have not checked for updates since " + clock.FormatShortDate(*lastCheck) +
                               kLineBreak + "Would you like to check for updates now?";
        if (app.ui.boxes.Show(question, app.appTitle, BoxStyle::QuestionYesNo) == BoxAnswer::Yes) ShowUpdates(app);
    });
}

void ShowUpdates(App& app) {
    UpdatesDialog dialog(app);
    app.ui.updates.Run(Heading(app), dialog);
}
