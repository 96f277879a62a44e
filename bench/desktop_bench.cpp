/// What the user waits for: the first sight of the window, and the plot after a key.

#include "shell/words.h" // ahead of Qt, which has a global Display

#include <QApplication>
#include <QTest>
#include <benchmark/benchmark.h>
#include <clocale>
#include <string>

#include "platform/headless/headless.h"
#include "platform/qt/form2.h"
#include "platform/qt/icons.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/gridedit.h"

namespace {

/// The console's platform with the desktop's window.
class Benched : public HeadlessPlatform {
public:
    ::MainWindow* shown = nullptr;
    ::MainWindow& window() override { return shown ? *shown : HeadlessPlatform::window(); }
};

/// A session on the life side with a set of that many points.
void freshsession(int points) {
    session = Session{};
    chooseside(lifeSide);
    allocatearrays();
    if (points == 0) return;
    session.gridCells.assign(1, {});
    for (int j = 0; j < points; ++j) session.gridCells[0].push_back(std::to_string(100 + (j * 7919) % 90000));
}

/// From nothing to a painted window, in a process that has its application.
void firstpaint(benchmark::State& state) {
    for (auto _ : state) {
        freshsession(0);
        Benched desktop;
        platform = &desktop;
        Form2 window;
        desktop.shown = &window;
        bool painted = false;
        window.painted = [&] { painted = true; };
        window.show();
        while (!painted) QApplication::processEvents();
        platform = nullptr;
    }
}
BENCHMARK(firstpaint)->Unit(benchmark::kMillisecond);

/// A key in the grid that ends in a run: to the plot on the screen.
void keytoplot(benchmark::State& state) {
    freshsession(static_cast<int>(state.range(0)));
    Benched desktop;
    platform = &desktop;
    Form2 window;
    desktop.shown = &window;
    window.resize(1180, 760);
    window.show();
    calcplot();
    QApplication::processEvents();
    QWidget* const grid = window.findChild<QWidget*>(QStringLiteral("Grid1"));
    gridgo(1, 2); // an empty cell: Enter runs the cycle
    for (auto _ : state) {
        QTest::keyClick(grid, Qt::Key_Return);
        window.repaint();
    }
    platform = nullptr;
}
BENCHMARK(keytoplot)->Arg(20)->Arg(1500)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
