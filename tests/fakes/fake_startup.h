#pragma once
// Start-up services that record every call in order; loading the main window
// runs MainLoad as the real window's creation does.
#include <algorithm>
#include <string>
#include <vector>

#include "app/startup.h"
#include "fakes/test_app.h"

class FakeStartupServices : public StartupServices {
public:
    explicit FakeStartupServices(App& app) : app_(app) {}
    void ShowSplash(const std::string& title, const std::string& buildText) override {
        calls.push_back("ShowSplash " + title + " / " + buildText);
    }
    void HideSplash() override { calls.push_back("HideSplash"); }
    void CloseSplash() override { calls.push_back("CloseSplash"); }
    void LoadMainWindow() override {
        calls.push_back("LoadMainWindow");
        MainLoad(app_, *this);
    }
    void FinishLoad() override { calls.push_back("FinishLoad"); }
    void ShowHint() override { calls.push_back("ShowHint"); }
    void CheckForUpdates() override { calls.push_back("CheckForUpdates"); }
    void StartPlayback() override { calls.push_back("StartPlayback"); }
    void LoadHookLibrary() override { calls.push_back("LoadHookLibrary"); }
    void ReleaseHooks() override { calls.push_back("ReleaseHooks"); }
    void UnloadWindows() override { calls.push_back("UnloadWindows"); }

    bool Called(const std::string& call) const { return std::ranges::find(calls, call) != calls.end(); }

    std::vector<std::string> calls;

private:
    App& app_;
};

// A TestApp with start-up services over it.
struct StartupApp : TestApp {
    FakeStartupServices services{app};
};
