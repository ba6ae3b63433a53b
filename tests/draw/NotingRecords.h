// Client records that note their start and stop among the calls of the engines.
#pragma once

#include "tests/fakes/RecordingEngines.h"

#include "TnGraphics/draw/ClientRecords.h"

#include <array>
#include <stdexcept>

namespace tn::test {

enum class Outcome { kStarts, kFails, kThrowsException, kThrowsNumber };

/// What comes of starting each of them.
inline std::array<Outcome, 3> outcomes = {};

/// Whether stopping one of them throws.
inline bool stopsThrow = false;

inline constexpr std::array<const char*, 3> kStartLines = {"start 1", "start 2", "start 3"};
inline constexpr std::array<const char*, 3> kStopLines = {"stop 1", "stop 2", "stop 3"};

inline void NoteInLog(const char* line) {
    if (RecordingEngines* const engines = RecordingEngines::Current(line)) {
        engines->Note(line);
    }
}

template <int number> bool StartNumber() {
    NoteInLog(kStartLines[number - 1]);
    switch (outcomes[number - 1]) {
    case Outcome::kStarts:
        return true;
    case Outcome::kFails:
        return false;
    case Outcome::kThrowsException:
        throw std::runtime_error("not today");
    case Outcome::kThrowsNumber:
        throw number;
    }
    return false;
}

template <int number> void StopNumber() {
    NoteInLog(kStopLines[number - 1]);
    if (stopsThrow) {
        throw number;
    }
}

inline constexpr std::array<ClientRecord, 3> kNotingRecords = {{{"first", &StartNumber<1>, &StopNumber<1>},
                                                                {"second", &StartNumber<2>, &StopNumber<2>},
                                                                {"third", &StartNumber<3>, &StopNumber<3>}}};

// Containers are never started.
inline void StopFirstContainer() { NoteInLog("stop container 1"); }
inline void StopSecondContainer() { NoteInLog("stop container 2"); }
inline bool StartContainer() {
    NoteInLog("start container");
    return true;
}

inline constexpr std::array<ClientRecord, 2> kNotingContainers = {
    {{"first", &StartContainer, &StopFirstContainer}, {"second", &StartContainer, &StopSecondContainer}}};

} // namespace tn::test
