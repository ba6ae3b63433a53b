// A dialog that records the failed assertions instead of showing them.
#pragma once

#include "TnEngines/basekit/AssertionDialog.h"

#include <string>
#include <vector>

namespace tn::test {

/// A report that outlives the assertion.
struct RecordedAssertion {
    std::string expression;
    std::string function;
    std::string file;
    int line;

    friend bool operator==(const RecordedAssertion&, const RecordedAssertion&) = default;
};

/// Takes the dialog's place while it lives. One of these lives at a time.
class AssertionRecorder {
public:
    enum class Answer {
        kReportAgain,    ///< The site may report again.
        kSilenceForGood, ///< The site says nothing more for the rest of the run, also to later recorders.
    };

    explicit AssertionRecorder(Answer answer = Answer::kReportAgain) : answer_(answer) {
        current_ = this;
        previous_ = basekit::ExchangeAssertionDialog(&Record);
    }
    ~AssertionRecorder() {
        basekit::ExchangeAssertionDialog(previous_);
        current_ = nullptr;
    }
    AssertionRecorder(const AssertionRecorder&) = delete;
    AssertionRecorder& operator=(const AssertionRecorder&) = delete;

    const std::vector<RecordedAssertion>& Reports() const { return reports_; }

private:
    static bool Record(const basekit::AssertionReport& report) {
        current_->reports_.push_back({report.expression, report.function, report.file, report.line});
        return current_->answer_ == Answer::kSilenceForGood;
    }

    static inline AssertionRecorder* current_ = nullptr;

    Answer answer_;
    basekit::AssertionDialog previous_;
    std::vector<RecordedAssertion> reports_;
};

} // namespace tn::test
