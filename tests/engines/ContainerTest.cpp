#include "tests/engines/Runtime.h"
#include "tests/support/AllocationFailure.h"

#include "TnEngines/kel/Containers.h"

namespace tn::test {
namespace {

KelError First(void*, std::int32_t) { return nullptr; }
KelError Second(void*, std::int32_t) {
    ADD_FAILURE() << "called";
    return nullptr;
}

class KelContainers : public testing::Test {
protected:
    ~KelContainers() override { EXPECT_EQ(LiveAllocations(), before_) << "a callback is still remembered"; }

    template <class Type> static Type At(abi::Container place) {
        return Procedure<Type>(abi::kContainerInterface, abi::kContainerProcedures, place);
    }

    KelRegisterContainerCallbackType register_ =
        At<KelRegisterContainerCallbackType>(abi::Container::kRegisterCallback);
    KelUnregisterContainerCallbackType unregister_ =
        At<KelUnregisterContainerCallbackType>(abi::Container::kUnregisterCallback);
    std::int64_t before_ = LiveAllocations();
};

TEST_F(KelContainers, RememberACallbackUntilItIsUnregistered) {
    EXPECT_FALSE(kel::IsContainerCallback(&First, 1));
    EXPECT_EQ(register_(&First, 1), nullptr);
    EXPECT_TRUE(kel::IsContainerCallback(&First, 1));
    EXPECT_FALSE(kel::IsContainerCallback(&Second, 1));
    EXPECT_EQ(unregister_(&First, 1), nullptr);
    EXPECT_FALSE(kel::IsContainerCallback(&First, 1));
}

TEST_F(KelContainers, RememberSeveralCallbacks) {
    register_(&First, 1);
    register_(&Second, 1);
    unregister_(&First, 1);
    EXPECT_FALSE(kel::IsContainerCallback(&First, 1));
    EXPECT_TRUE(kel::IsContainerCallback(&Second, 1));
    unregister_(&Second, 1);
    EXPECT_FALSE(kel::IsContainerCallback(&Second, 1));
}

TEST_F(KelContainers, RememberACallbackForEachOfItsFlags) {
    register_(&First, 1);
    EXPECT_FALSE(kel::IsContainerCallback(&First, 2));
    register_(&First, 2);
    unregister_(&First, 1);
    EXPECT_FALSE(kel::IsContainerCallback(&First, 1));
    EXPECT_TRUE(kel::IsContainerCallback(&First, 2));
    unregister_(&First, 2);
}

TEST_F(KelContainers, RememberACallbackOnce) {
    register_(&First, 1);
    const std::int64_t once = LiveAllocations();
    EXPECT_EQ(register_(&First, 1), nullptr);
    EXPECT_EQ(LiveAllocations(), once);
    unregister_(&First, 1);
    EXPECT_FALSE(kel::IsContainerCallback(&First, 1));
}

TEST_F(KelContainers, ForgetUnknownCallbacksAsNothing) {
    EXPECT_EQ(unregister_(&First, 1), nullptr);
    register_(&First, 1);
    EXPECT_EQ(unregister_(&First, 2), nullptr);
    EXPECT_EQ(unregister_(&Second, 1), nullptr);
    EXPECT_TRUE(kel::IsContainerCallback(&First, 1));
    unregister_(&First, 1);
}

TEST_F(KelContainers, IgnoreNull) {
    EXPECT_EQ(register_(nullptr, 1), nullptr);
    EXPECT_FALSE(kel::IsContainerCallback(nullptr, 1));
    EXPECT_EQ(unregister_(nullptr, 1), nullptr);
}

TEST_F(KelContainers, WithoutMemoryGiveTheCoresOutOfMemory) {
    for (const AllocationFault fault : {AllocationFault::kBadAlloc, AllocationFault::kOther}) {
        const FailAllocation fail(1, fault);
        EXPECT_EQ(register_(&First, 1), ErrorProcedures().core(1));
        EXPECT_TRUE(fail.HasFailed());
        EXPECT_FALSE(kel::IsContainerCallback(&First, 1));
    }
}

} // namespace
} // namespace tn::test
