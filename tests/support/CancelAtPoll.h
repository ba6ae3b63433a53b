// Cancel procedures that count, look around and throw.
#pragma once

#include <functional>
#include <utility>

namespace tn::test {

/// What CancelAtPoll throws.
struct Cancelled {};

/// Counts the calls of the one cancel procedure Proc and runs an action at each of them.
///
/// The procedure has no arguments, so one watch lives at a time and in one thread.
class PollWatch {
public:
    /// \param action gets the number of the poll, the first being 1
    explicit PollWatch(std::function<void(int poll)> action = {}) : action_(std::move(action)) { current_ = this; }
    ~PollWatch() { current_ = nullptr; }
    PollWatch(const PollWatch&) = delete;
    PollWatch& operator=(const PollWatch&) = delete;

    int Polls() const { return polls_; }

    /// The cancel procedure to give to surfaces. Without a watch it does nothing.
    static void Proc() {
        if (current_ != nullptr) {
            current_->Poll();
        }
    }

private:
    void Poll() {
        ++polls_;
        if (action_) {
            action_(polls_);
        }
    }

    static inline PollWatch* current_ = nullptr;

    std::function<void(int)> action_;
    int polls_ = 0;
};

/// Counts the polls and throws Cancelled at the given one, the first being 1.
class CancelAtPoll : public PollWatch {
public:
    explicit CancelAtPoll(int cancelledPoll)
        : PollWatch([cancelledPoll](int poll) {
              if (poll == cancelledPoll) {
                  throw Cancelled();
              }
          }) {}
};

} // namespace tn::test
