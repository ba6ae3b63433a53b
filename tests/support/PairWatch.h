// The order in which the two surfaces of an operation are polled.
#pragma once

#include "tests/support/CancelAtPoll.h"

#include <cstddef>
#include <string>

namespace tn::test {

/// Notes the polls of a source and a destination while it lives and throws Cancelled at one of them.
///
/// The procedures have no arguments, so one watch lives at a time and in one thread.
class PairWatch {
public:
    /// \param cancelledPoll counts those of both surfaces, the first being 1; 0 cancels nothing
    explicit PairWatch(std::size_t cancelledPoll = 0) : cancelledPoll_(cancelledPoll) { current_ = this; }
    ~PairWatch() { current_ = nullptr; }
    PairWatch(const PairWatch&) = delete;
    PairWatch& operator=(const PairWatch&) = delete;

    /// A letter for each poll: 's' for the source, 'd' for the destination.
    const std::string& Polls() const { return polls_; }

    /// The cancel procedures to give to the surfaces. Without a watch they do nothing.
    static void SourceProc() { PollCurrent('s'); }
    static void DestinationProc() { PollCurrent('d'); }

private:
    static void PollCurrent(char surface) {
        if (current_ != nullptr) {
            current_->Poll(surface);
        }
    }

    void Poll(char surface) {
        polls_ += surface;
        if (polls_.size() == cancelledPoll_) {
            throw Cancelled();
        }
    }

    static inline PairWatch* current_ = nullptr;

    std::size_t cancelledPoll_;
    std::string polls_;
};

} // namespace tn::test
