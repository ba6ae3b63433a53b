// Running tests at each processor level.
#pragma once

#include "TnGraphics/rows/ProcessorLevel.h"
#include "TnGraphics/rows/RowKernels.h"

#include <cctype>
#include <gtest/gtest.h>
#include <string>

namespace tn::test {

/// Forces a level while it lives.
class ForcedLevel {
public:
    explicit ForcedLevel(ProcessorLevel level) : previous_(ActiveLevel()) { ForceLevel(level); }
    ~ForcedLevel() { ForceLevel(previous_); }
    ForcedLevel(const ForcedLevel&) = delete;
    ForcedLevel& operator=(const ForcedLevel&) = delete;

private:
    ProcessorLevel previous_;
};

/// Runs the body with each level that this processor supports in force, until one fails.
template <class Body> void ForEachSupportedLevel(const Body& body) {
    for (const ProcessorLevel level : kProcessorLevels) {
        if (IsSupported(level) && !::testing::Test::HasFailure()) {
            SCOPED_TRACE(NameOf(level));
            const ForcedLevel forced(level);
            body(level);
        }
    }
}

/// Base of tests with a level as parameter: forces it, or skips the test where the processor lacks it.
class AtLevel : public ::testing::TestWithParam<ProcessorLevel> {
protected:
    void SetUp() override {
        if (!IsSupported(GetParam())) {
            GTEST_SKIP() << "this processor lacks the level " << NameOf(GetParam());
        }
        ForceLevel(GetParam());
    }
    void TearDown() override { ForceLevel(previous_); }

private:
    ProcessorLevel previous_ = ActiveLevel();
};

/// The name of a test with a level as parameter.
inline std::string LevelTestName(const ::testing::TestParamInfo<ProcessorLevel>& info) {
    std::string name = NameOf(info.param);
    std::erase_if(name, [](unsigned char c) { return std::isalnum(c) == 0; });
    return name;
}

} // namespace tn::test
