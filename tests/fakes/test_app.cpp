#include "fakes/test_app.h"

#include <fstream>
#include <random>

namespace {
constexpr const char* kMemoryFolder = "C:\\Klickwerk";

std::filesystem::path FreshFolder() {
    std::random_device random;
    auto path = std::filesystem::temp_directory_path() / ("klickwerk-test-" + std::to_string(random()));
    std::filesystem::create_directories(path);
    return path;
}
}  // namespace

TestApp::TestApp() : folder(FreshFolder()) {
    osInfo.folder = folder.string();
    Place(app);
}

TestApp::TestApp(MemoryFiles& memory) : fileSeam(memory) {
    osInfo.folder = kMemoryFolder;
    Place(app);
}

void TestApp::Place(App& target) const {
    target.programFolder = osInfo.folder;
    target.appTitle = "Klickwerk v1.0";
    target.settingsPath = target.programFolder + "\\Settings.ini";
    target.scriptStorePath = target.programFolder + "\\Data.dat";
    target.errorLogPath = target.programFolder + "\\Error.log";
    target.hookLibraryLoaded = true;
}

TestApp::~TestApp() {
    if (folder.empty()) return;
    std::error_code ignored;
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(folder, ignored);
}

std::string TestApp::ReadFile(const std::string& name) const {
    return StdFiles().ReadAll(NativePath(name).string()).value_or("");
}

void TestApp::WriteFile(const std::string& name, const std::string& data) const {
    std::filesystem::create_directories(NativePath(name).parent_path());
    std::ofstream(NativePath(name), std::ios::binary) << data;
}

std::string TestApp::Column(int column) const {
    std::string cells;
    for (int row = 1; row <= grid.RowCount(); ++row) cells += (row > 1 ? " " : "") + grid.Cell(row, column);
    return cells;
}

std::string TestApp::Flags(bool (StepGrid::*flag)(int) const) const {
    std::string flags;
    for (int row = 1; row <= grid.RowCount(); ++row) flags += (grid.*flag)(row) ? "1" : "0";
    return flags;
}

void TestApp::AddColumns() {
    for (int column = 0; column < kColumnCount; ++column) {
        grid.AddColumn(kColumnHeaders[column], kFirstRunWidths[column], true);
    }
}

void AppendStep(StepGrid& grid, const std::array<std::string, kColumnCount>& cells, bool checked) {
    int row = grid.RowCount() + 1;
    grid.InsertRow(row);
    for (int column = 0; column < kColumnCount; ++column) grid.SetCell(row, column, cells[column]);
    grid.SetChecked(row, checked);
}
