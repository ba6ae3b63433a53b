// A long transform that shows how far it is and can be stopped. Its cancel procedure, which is called every 32 rows,
// draws a progress bar; after Ctrl-C it throws. Then the rows so far are done, no lock is left behind, and the program
// goes on.
//
//   Progress [percent]         presses Ctrl-C itself there
#include "TnGraphics/TnGraphics.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr TnPoint kSize = {1920, 1080};
constexpr int kRowsPerCall = 32;
constexpr int kBarLength = 50;

std::atomic<bool> stopWanted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "else signal handlers may not write it");

extern "C" void NoteInterrupt(int) { stopWanted = true; }

// Any type can be thrown; it reaches the caller of the transform as it is.
struct Stopped {};

// A cancel procedure has no arguments, so what it knows about the work is global.
int rowsDone = 0;
int percentOfInterrupt = 101;

int PercentDone() { return rowsDone * 100 / kSize.y; }

void ShowProgress() {
    const auto marks = static_cast<std::size_t>(kBarLength * PercentDone() / 100);
    const std::string bar = std::string(marks, '#') + std::string(kBarLength - marks, '.');
    std::fprintf(stderr, "\r[%s] %3d %%", bar.c_str(), PercentDone());
}

void ShowProgressOrStop() {
    rowsDone += kRowsPerCall;
    ShowProgress();
    if (PercentDone() >= percentOfInterrupt) {
        std::raise(SIGINT);
    }
    if (stopWanted) {
        throw Stopped();
    }
}

TnImage Chessboard() {
    TnImage board(kSize);
    ColorFill(board, board.Bounds(), TnColor(255, 255, 255, 255));
    CrossHatchFill(board, board.Bounds(), TnColor(255, 16, 22, 48), TnColor(255, 255, 176, 32), 6);
    return board;
}

// True when it was done to the end.
bool TurnSmoothly(const TnImage& source, TnImage& destination) {
    try {
        Transform(source, destination, MakeMatrix<double>::Rotate(10.0), InterpolationType::kSmooth);
        rowsDone = kSize.y;
        ShowProgress();
        return true;
    } catch (const Stopped&) {
        return false;
    }
}

// Rows that are not as they were: all pixels were 0, and no pixel of the turned board is.
int CountWrittenRows(const TnImage& image) {
    int rows = 0;
    for (int y = 0; y < image.Size().y; ++y) {
        rows += image.Get(0, y).value != 0 ? 1 : 0;
    }
    return rows;
}

} // namespace

int main(int argc, char** argv) {
    if (argc > 1) {
        percentOfInterrupt = std::atoi(argv[1]);
    }
    std::signal(SIGINT, &NoteInterrupt);

    const TnImage source = Chessboard();
    TnImage turned(kSize, true, &ShowProgressOrStop);
    const bool isDone = TurnSmoothly(source, turned);
    std::fprintf(stderr, "\n");

    std::printf("%s: %d of %d rows\n", isDone ? "done" : "stopped", CountWrittenRows(turned), kSize.y);
    std::printf("locks left: %u on the source, %u on the destination\n", source.Clients(), turned.Clients());
}
