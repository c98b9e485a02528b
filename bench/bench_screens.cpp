// SPDX-License-Identifier: MIT
// The three game screens of the real main window: the redraw of a full board and the handling of one
// click, and the processor time of the pause after a won level. Google Benchmark; figures only.
//
// The window is started as the program starts it (Form_Load, show), on a data and runtime folder of
// its own. Each game is then set up at the level with the most cells of its store, the way a start
// sets it up (prepare the screen, set up the level), and driven through the window's own handlers.
#include "frmFond.h"
#include "level_store.h"
#include "modBase.h"
#include "pause.h"
#include "sound.h"
#include "sound_cues.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <memory>
#include <sys/resource.h>

namespace {

frmFond *fond = nullptr;

constexpr int kTilesLevel = 77; // 37 sockets, the most of game 1's store
constexpr int kPairsLevel = 95; // 66 tiles, the most of game 3's store
constexpr int kStonesLevel = 0; // its stones are replaced by a full board of 72

void startLevel(int jeu, int level)
{
    gJeu = 10;
    gNbNiveaux = levelCount(jeu);
    gNiveau = level;
    fond->prepareScreenOf(jeu);
    fond->setUpLevelOf(jeu);
    gJeu = jeu;
    fond->tambour.played.clear();
}

// Keeps the list of cues played, which a test listens to, from growing without end.
void forgetCues()
{
    if (fond->tambour.played.size() > 4096) fond->tambour.played.clear();
}

int socketsOf(const TileBoard &b, int value)
{
    int n = 0;
    for (int y = 0; y < TileBoard::kLignes; ++y)
        for (int x = 0; x < TileBoard::kColonnes; ++x) n += b.tabJeu1[x][y] == value;
    return n;
}

// Game 1 with a tile placed on every socket of the level.
void fullTiles()
{
    startLevel(1, kTilesLevel);
    for (int y = 0; y < TileBoard::kLignes; ++y)
        for (int x = 0; x < TileBoard::kColonnes; ++x)
            if (fond->tiles.tabJeu1[x][y] == TileBoard::kSocle) fond->tiles.Pose1(x, y);
}

// Game 2 with a stone on each of the 72 cells.
void fullStones()
{
    startLevel(2, kStonesLevel);
    for (int y = 0; y < StoneBoard::kLignes; ++y)
        for (int x = 0; x < StoneBoard::kColonnes; ++x) fond->stones.tabPions2[x][y] = StoneBoard::kVrai;
    fond->DessinePions2();
    fond->pctEcran2->refresh();
}

int stonesOf(const StoneBoard &b)
{
    int n = 0;
    for (int y = 0; y < StoneBoard::kLignes; ++y)
        for (int x = 0; x < StoneBoard::kColonnes; ++x) n += b.tabPions2[x][y] == StoneBoard::kVrai;
    return n;
}

int tilesOf(const PairBoard &b)
{
    int n = 0;
    for (int y = 0; y < PairBoard::kCotes; ++y)
        for (int x = 0; x < PairBoard::kCotes; ++x) n += b.tabPions3[x][y] > 0;
    return n;
}

// --- Redraws -------------------------------------------------------------------------------------

void Redraw1_DessineJeu1(benchmark::State &state)
{
    fullTiles();
    for (auto _ : state) fond->DessineJeu1();
    state.counters["tiles"] = socketsOf(fond->tiles, 1) + socketsOf(fond->tiles, 2) + socketsOf(fond->tiles, 3)
                              + socketsOf(fond->tiles, 4);
}

void Redraw1_DessineJeu1_and_repaint(benchmark::State &state)
{
    fullTiles();
    for (auto _ : state) {
        fond->DessineJeu1();
        fond->pctEcran1->refresh();
    }
}

void Redraw2_DessinePions2(benchmark::State &state)
{
    fullStones();
    for (auto _ : state) fond->DessinePions2();
    state.counters["stones"] = stonesOf(fond->stones);
}

void Redraw2_DessinePions2_and_repaint(benchmark::State &state)
{
    fullStones();
    for (auto _ : state) {
        fond->DessinePions2();
        fond->pctEcran2->refresh();
    }
}

// DessineTout3 repaints the screen itself.
void Redraw3_DessineTout3_and_repaint(benchmark::State &state)
{
    startLevel(3, kPairsLevel);
    for (auto _ : state) fond->DessineTout3(-1);
    state.counters["tiles"] = tilesOf(fond->pairs);
}

// --- Clicks --------------------------------------------------------------------------------------

// A left click on a socket places a tile, a right click takes it back: one pair of clicks per iteration.
void Click1_place_and_take_back_pair(benchmark::State &state)
{
    startLevel(1, kTilesLevel);
    int cx = -1;
    int cy = -1;
    for (int y = 0; y < TileBoard::kLignes && cx < 0; ++y)
        for (int x = 0; x < TileBoard::kColonnes; ++x)
            if (fond->tiles.tabJeu1[x][y] == TileBoard::kSocle) {
                cx = x;
                cy = y;
                break;
            }
    const double X = 54 * cx + 27;
    const double Y = 278 + 54 * cy + 27;
    for (auto _ : state) {
        fond->pctEcran1_MouseDown(Qt::LeftButton, {}, X, Y);
        fond->pctEcran1_MouseDown(Qt::RightButton, {}, X, Y);
        forgetCues();
    }
    if (fond->tiles.iCoup1 != -1) state.SkipWithError("the click pair did not leave the board as it found it");
}

// A left click on a cell of the full board flips it and its neighbours; the next one flips them back.
void Click2_flip(benchmark::State &state)
{
    fullStones();
    for (auto _ : state) {
        fond->pctEcran2_MouseDown(Qt::LeftButton, {}, 3 * 60 + 30, 4 * 60 + 30);
        forgetCues();
    }
}

// A left click on a tile selects it, a second one on the same tile cancels: one pair per iteration.
void Click3_select_and_cancel_pair(benchmark::State &state)
{
    startLevel(3, kPairsLevel);
    int cx = -1;
    int cy = -1;
    for (int y = 0; y < PairBoard::kCotes && cx < 0; ++y)
        for (int x = 0; x < PairBoard::kCotes; ++x)
            if (fond->pairs.tabPions3[x][y] > 0) {
                cx = x;
                cy = y;
                break;
            }
    const double X = 52 * cx + 26;
    const double Y = 52 * cy + 26;
    for (auto _ : state) {
        fond->pctEcran3_MouseDown(Qt::LeftButton, {}, X, Y);
        fond->pctEcran3_MouseDown(Qt::LeftButton, {}, X, Y);
        forgetCues();
    }
    if (fond->pairs.iChoix3 != -1) state.SkipWithError("the click pair did not leave the board as it found it");
}

// The sound cue that every click plays: a part of each click above.
void Cue_JoueSon(benchmark::State &state)
{
    startLevel(2, kStonesLevel);
    for (auto _ : state) {
        JoueSon(fond->tambour, cue::kBoardMove);
        forgetCues();
    }
}

// The window disabled and enabled again around a pass of the event loop, as every click does.
void Click_setEnabled_pair_and_events(benchmark::State &state)
{
    startLevel(2, kStonesLevel);
    for (auto _ : state) {
        fond->setEnabled(false);
        QCoreApplication::processEvents();
        fond->setEnabled(true);
        QCoreApplication::processEvents();
    }
}

// --- The pause after a won level ----------------------------------------------------------------

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage); // every thread of the process
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
           + static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

void Pause2_processor_time(benchmark::State &state)
{
    fullStones();
    for (auto _ : state) {
        const double cpu0 = cpuSeconds();
        const auto wall0 = std::chrono::steady_clock::now();
        Pause(2);
        const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - wall0).count();
        state.counters["process_cpu_ms"] = (cpuSeconds() - cpu0) * 1e3;
        state.counters["wall_ms"] = wall * 1e3;
    }
}

} // namespace

BENCHMARK(Redraw1_DessineJeu1)->Unit(benchmark::kMicrosecond);
BENCHMARK(Redraw1_DessineJeu1_and_repaint)->Unit(benchmark::kMicrosecond);
BENCHMARK(Redraw2_DessinePions2)->Unit(benchmark::kMicrosecond);
BENCHMARK(Redraw2_DessinePions2_and_repaint)->Unit(benchmark::kMicrosecond);
BENCHMARK(Redraw3_DessineTout3_and_repaint)->Unit(benchmark::kMicrosecond);
BENCHMARK(Click1_place_and_take_back_pair)->Unit(benchmark::kMicrosecond);
BENCHMARK(Click2_flip)->Unit(benchmark::kMicrosecond);
BENCHMARK(Click3_select_and_cancel_pair)->Unit(benchmark::kMicrosecond);
BENCHMARK(Cue_JoueSon)->Unit(benchmark::kMicrosecond);
BENCHMARK(Click_setEnabled_pair_and_events)->Unit(benchmark::kMicrosecond);
BENCHMARK(Pause2_processor_time)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

// Google Benchmark's own main, under another name: it runs inside the life of the application below.
#define main benchmarkMain
BENCHMARK_MAIN();
#undef main

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir data;
    QTemporaryDir runtime;
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());

    QApplication app(argc, argv);
    auto window = std::make_unique<frmFond>();
    fond = window.get();
    if (!fond->Form_Load()) {
        std::fputs("bench_screens: the window did not start\n", stderr);
        return 1;
    }
    fond->show();
    if (!QTest::qWaitForWindowExposed(fond)) {
        std::fputs("bench_screens: the window was never shown\n", stderr);
        return 1;
    }
    return benchmarkMain(argc, argv);
}
