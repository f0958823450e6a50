// grid_bench.exe: how fast the shown step grid takes a long script in and
// gives it back. Writes a script of many steps, then, in the program's own
// main window with its list view on screen, times reading the script into the
// grid until the list has painted, and writing the grid to the working copy.
// Prints the best and the worst of a few rounds next to their targets; the
// exit code is 1 when the saved file differs from the script read.
//
//   grid_bench.exe [steps] [rounds]
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "app/program_parts_win.h"
#include "core/vocabulary.h"
#include "platform/message_pump_win.h"
#include "script/script_file.h"

namespace {

constexpr int kDefaultSteps = 100000;
constexpr int kDefaultRounds = 5;

std::string ScriptOf(int steps) {
    std::string text;
    for (int step = 1; step <= steps; ++step) {
        text += step % 7 ? "True|||" : "False|||";
        text += std::to_string(step) + "||" + std::to_string(step % 1024) + "||" + std::to_string(step % 768) +
                "||Left Click||{ENTER}step " + std::to_string(step) + "||0||1||0\r\n";
    }
    return text;
}

double Now() {
    LARGE_INTEGER counter, frequency;
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// Runs the posted updates, then paints the window and the list at once.
void ShowPendingChanges(HWND window) {
    PumpPendingMessages();
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

struct Figures {
    std::vector<double> load, save;
};

void Report(const char* what, std::vector<double> seconds, const char* target) {
    std::sort(seconds.begin(), seconds.end());
    printf("%s: best %.3f s, worst %.3f s (target: under %s)\n", what, seconds.front(), seconds.back(), target);
}

}  // namespace

int main(int argc, char** argv) {
    const int steps = argc > 1 ? std::max(1, atoi(argv[1])) : kDefaultSteps;
    const int rounds = argc > 2 ? std::max(1, atoi(argv[2])) : kDefaultRounds;
    char folder[MAX_PATH];
    GetTempPathA(MAX_PATH, folder);
    const std::string scriptPath = std::string(folder) + "grid_bench.kwf";
    const std::string script = ScriptOf(steps);

    WinSystem system;
    WinViews windows;
    App app{system.platform, windows.views};
    app.scriptStorePath = std::string(folder) + "grid_bench.dat";
    if (!system.files.WriteAtomically(scriptPath, script) || !windows.main.Create()) {
        printf("cannot write %s or create the main window\n", scriptPath.c_str());
        return 1;
    }
    for (int column = 0; column < kColumnCount; ++column) {
        windows.steps.AddColumn(kColumnHeaders[column], 1000, column != kColNumber);
    }
    windows.main.Show();
    ShowPendingChanges(windows.main.Handle());

    Figures figures;
    bool same = true;
    for (int round = 0; round < rounds; ++round) {
        windows.steps.Clear();
        ShowPendingChanges(windows.main.Handle());
        double start = Now();
        ReadData(app, scriptPath, false);
        ShowPendingChanges(windows.main.Handle());
        figures.load.push_back(Now() - start);
        const int shown = ListView_GetItemCount(windows.list.Handle());

        start = Now();
        SaveData(app, false);
        figures.save.push_back(Now() - start);
        same = same && shown == steps && system.files.ReadAll(app.scriptStorePath) == script;
    }
    printf("%d steps, %d rounds\n", steps, rounds);
    Report("load into the shown grid", figures.load, "0.5 s");
    Report("save", figures.save, "0.2 s");
    if (!same) printf("the list did not show every step, or the saved file differs from the script read\n");
    DeleteFileA(scriptPath.c_str());
    DeleteFileA(app.scriptStorePath.c_str());
    return same ? 0 : 1;
}
