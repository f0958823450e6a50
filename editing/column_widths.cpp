#include "editing/column_widths.h"

#include <string>
#include <vector>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "script/step_grid.h"

namespace {
long WholeWidthTotal(App& app) {
    long total = 0;
    for (int column = 0; column < app.ui.grid.ColumnCount(); ++column) total += CLng(app.ui.grid.ColumnWidth(column));
    return total;
}
}  // namespace

void NewWidth(App& app) {
    Trapped(app, "NewWidth", [&] {
        std::vector<std::string> widths;
        for (int column = 0; column < kColumnCount; ++column) {
            widths.push_back(NumberText(CLng(app.ui.grid.ColumnWidth(column))));
        }
        std::vector<std::string> entries = Split(Join(widths, ","), ",");
        for (int column = 0; column < kColumnCount; ++column) app.columnWidths[column] = entries[column];
        app.columnWidthTotal = WholeWidthTotal(app);
    });
}

void OnColResizeTimer(App& app) {
    if (WholeWidthTotal(app) != app.columnWidthTotal) NewWidth(app);
}
