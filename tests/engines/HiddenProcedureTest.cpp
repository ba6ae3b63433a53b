#include "tests/engines/Runtime.h"

#include "TnEngines/kel/TestHooks.h"

#include <memory>

namespace tn::test {
namespace {

constexpr const char* kMake = "KelNewErrorProc";
constexpr const char* kRelease = "KelErrorReleaseProc";

bool IsFound(const char* procedureName) { return Lookup(abi::kErrorInterface, procedureName) != nullptr; }

TEST(HiddenProcedure, IsMissingWhileItIsHidden) {
    {
        const kel::HiddenProcedure hidden(abi::kErrorInterface, kMake);
        EXPECT_FALSE(IsFound(kMake));
        EXPECT_TRUE(IsFound(kRelease));
    }
    EXPECT_TRUE(IsFound(kMake));
}

TEST(HiddenProcedure, IsMissingInItsInterfaceOnly) {
    const kel::HiddenProcedure hidden(abi::kMemoryInterface, kMake);
    EXPECT_TRUE(IsFound(kMake));
}

TEST(HiddenProcedure, IsMissingWhenAClientRegisteredItToo) {
    int procedure = 0;
    Core<KelRegisterProcAddressType>(abi::Core::kRegisterProcAddress)("HostInterface", "Play", &procedure);
    {
        const kel::HiddenProcedure hidden("HostInterface", "Play");
        EXPECT_EQ(Lookup("HostInterface", "Play"), nullptr);
    }
    EXPECT_EQ(Lookup("HostInterface", "Play"), &procedure);
    Core<KelUnregisterInterfaceType>(abi::Core::kUnregisterInterface)("HostInterface");
}

TEST(HiddenProcedure, RaisesTheCounterAtItsBeginningAndAtItsEnd) {
    const std::uint32_t before = UnregisterCountNow();
    {
        const kel::HiddenProcedure hidden(abi::kErrorInterface, kMake);
        EXPECT_EQ(UnregisterCountNow(), before + 1);
    }
    EXPECT_EQ(UnregisterCountNow(), before + 2);
}

TEST(HiddenProcedure, IsOneOfSeveralThatEndInAnyOrder) {
    auto first = std::make_unique<kel::HiddenProcedure>(abi::kErrorInterface, kMake);
    auto second = std::make_unique<kel::HiddenProcedure>(abi::kErrorInterface, kRelease);
    auto third = std::make_unique<kel::HiddenProcedure>(abi::kErrorInterface, kMake);
    EXPECT_FALSE(IsFound(kMake));
    EXPECT_FALSE(IsFound(kRelease));
    second.reset();
    EXPECT_TRUE(IsFound(kRelease));
    first.reset();
    EXPECT_FALSE(IsFound(kMake)) << "it is still hidden a second time";
    third.reset();
    EXPECT_TRUE(IsFound(kMake));
}

TEST(UnregisterCount, IsSetToAnyValue) {
    const std::uint32_t before = UnregisterCountNow();
    kel::SetUnregisterCount(before + 1000);
    EXPECT_EQ(UnregisterCountNow(), before + 1000);
    kel::SetUnregisterCount(before);
}

} // namespace
} // namespace tn::test
