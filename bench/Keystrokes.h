#pragma once

// Times the filter keystroke by keystroke: each run types the words once, one
// character more at a time, and Lumbra and its floor take turns run by run.
#include <QElapsedTimer>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

namespace Keystrokes {

// What a player types: every prefix of each text, in order.
inline QStringList Typed(const QStringList& texts) {
    QStringList typed;
    for (const QString& text : texts) {
        for (qsizetype length = 1; length <= text.size(); ++length)
            typed.append(text.left(length));
    }
    return typed;
}

inline int Runs() {
    const int runs = qEnvironmentVariableIntValue("BENCH_RUNS");
    return runs > 0 ? runs : 21;
}

inline double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// The time of each keystroke, in milliseconds, over every run.
struct Timing {
    std::vector<std::vector<double>> PerKeystroke; // [keystroke][run]

    // The median of the runs' mean keystroke, and the median of the slowest keystroke.
    std::pair<double, double> Figures() const {
        std::vector<double> means(PerKeystroke.front().size(), 0.0);
        double slowest = 0.0;
        for (const std::vector<double>& runs : PerKeystroke) {
            for (size_t run = 0; run < runs.size(); ++run)
                means[run] += runs[run] / static_cast<double>(PerKeystroke.size());
            slowest = std::max(slowest, Median(runs));
        }
        return {Median(means), slowest};
    }
};

using Keystroke = std::function<void(const QString& typed)>;

// One warm-up each, then the runs, Lumbra and the floor taking turns.
inline std::pair<Timing, Timing> TakeTurns(const QStringList& typed, const Keystroke& lumbra,
                                           const Keystroke& floor) {
    Timing lumbraTiming{std::vector<std::vector<double>>(typed.size())};
    Timing floorTiming{std::vector<std::vector<double>>(typed.size())};
    const auto runOnce = [&typed](const Keystroke& keystroke, Timing* timing) {
        for (qsizetype i = 0; i < typed.size(); ++i) {
            QElapsedTimer timer;
            timer.start();
            keystroke(typed.at(i));
            if (timing)
                timing->PerKeystroke[i].push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        }
    };
    runOnce(lumbra, nullptr);
    runOnce(floor, nullptr);
    for (int run = 0; run < Runs(); ++run) {
        runOnce(lumbra, &lumbraTiming);
        runOnce(floor, &floorTiming);
    }
    return {lumbraTiming, floorTiming};
}

// One line: the mean keystroke beside the floor's and, with a target, the slowest
// keystroke beside it.
inline void Report(const char* label, const Timing& lumbra, const Timing& floor,
                   double targetMs = 0) {
    const auto [mean, slowest] = lumbra.Figures();
    const auto [floorMean, floorSlowest] = floor.Figures();
    std::printf("%-13s %7.3f ms   floor %6.3f ms   ratio %6.2fx", label, mean, floorMean,
                mean / floorMean);
    if (targetMs > 0)
        std::printf("   slowest key %.3f ms (target < %.0f ms), floor's %.3f ms", slowest, targetMs,
                    floorSlowest);
    std::printf("\n");
}

} // namespace Keystrokes
