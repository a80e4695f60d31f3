#pragma once

#include <QString>

namespace mervak::bench {

// The sheet position of each Area's centre pressed by the bench, in sheet units.
struct BenchArea {
    int x = 0;
    int y = 0;
    char key = 0; // what the Area types
};

// Left half of the sheet types "a", right half "b": alternating between them
// keeps repeat suppression from dropping a press.
constexpr BenchArea kLeftArea{30, 60, 'a'};
constexpr BenchArea kRightArea{90, 60, 'b'};

// MERVAK.INI in `homeFolder` for a device of `model` on `port`. False with the reason.
bool writeBenchHome(const QString& homeFolder, const QString& model, const QString& port,
                    QString* error);

// A one-page Template at `path` whose two Areas type into the window titled
// `targetTitle`. False with the reason.
bool writeBenchTemplate(const QString& path, const QString& targetTitle, QString* error);

} // namespace mervak::bench
