// A test of the library upon recording engines, as if the library had just been loaded.
#pragma once

#include "tests/fakes/RecordingEngines.h"
#include "tests/runtime/FreshLibrary.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace tn::test {

using Lines = std::vector<std::string>;

class EngineTest : public testing::Test {
protected:
    bool Start() { return TheBinding().Start(RecordingEngines::FirstGetAddress()); }

    RecordingEngines engines;
    FreshLibrary library;
};

/// The lines that do not begin with a word.
inline Lines Without(std::string_view word, Lines lines) {
    std::erase_if(lines, [=](const std::string& line) { return std::string_view(line).starts_with(word); });
    return lines;
}

/// What is left of the log when references are not told.
inline Lines WithoutReferences(const Lines& lines) {
    return Without("KelErrorReleaseProc", Without("KelErrorAddReferenceProc", lines));
}

/// The place of a line, or the number of lines.
inline std::size_t PlaceOf(const std::string& line, const Lines& lines) {
    return static_cast<std::size_t>(std::ranges::find(lines, line) - lines.begin());
}

} // namespace tn::test
