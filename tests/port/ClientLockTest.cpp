#include "TnGraphics/port/ClientLock.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace tn::test {
namespace {

// Something lockable that writes down what happens, in order: its name to lock, the name with a minus to unlock.
class Diarist {
public:
    Diarist(std::string& diary, const char* name) : diary_(diary), name_(name) {}

    void AddClient() const {
        if (refuses) {
            throw std::runtime_error("refused");
        }
        diary_ += name_;
    }
    void RemoveClient() const { diary_ += '-' + name_; }

    bool refuses = false;

private:
    std::string& diary_;
    std::string name_;
};

class ClientLockTest : public testing::Test {
protected:
    using Lock = ClientLock<Diarist>;

    std::string diary_;
    Diarist a_{diary_, "a"};
    Diarist b_{diary_, "b"};
};

TEST_F(ClientLockTest, LocksForItsLife) {
    {
        const Lock lock(a_);
        EXPECT_EQ(lock.Surface(), &a_);
        EXPECT_EQ(diary_, "a");
    }
    EXPECT_EQ(diary_, "a-a");
}

TEST_F(ClientLockTest, HoldsNothingByDefault) {
    {
        const Lock lock;
        const Lock copy(lock);
        EXPECT_EQ(copy.Surface(), nullptr);
    }
    EXPECT_EQ(diary_, "");
}

TEST_F(ClientLockTest, CopyHoldsALockOfItsOwn) {
    const Lock lock(a_);
    { const Lock copy(lock); }
    EXPECT_EQ(diary_, "aa-a");
}

TEST_F(ClientLockTest, AssignmentLocksTheNewBeforeItUnlocksTheOld) {
    Lock lock(a_);
    const Lock other(b_);
    diary_.clear();
    lock = other;
    EXPECT_EQ(lock.Surface(), &b_);
    EXPECT_EQ(diary_, "b-a");
}

TEST_F(ClientLockTest, AssignmentFromNothingUnlocks) {
    Lock lock(a_);
    lock = Lock();
    EXPECT_EQ(lock.Surface(), nullptr);
    EXPECT_EQ(diary_, "a-a");
}

TEST_F(ClientLockTest, FailedAssignmentKeepsTheOldLock) {
    Lock lock(a_);
    const Lock other(b_);
    b_.refuses = true;
    EXPECT_THROW(lock = other, std::runtime_error);
    EXPECT_EQ(lock.Surface(), &a_);
    EXPECT_EQ(diary_, "ab");
}

TEST_F(ClientLockTest, FailedLockIsNotUndone) {
    a_.refuses = true;
    EXPECT_THROW(Lock lock(a_), std::runtime_error);
    EXPECT_EQ(diary_, "");
}

} // namespace
} // namespace tn::test
