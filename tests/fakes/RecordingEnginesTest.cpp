#include "tests/fakes/RecordingEngines.h"

#include "TnEngines/abi/huex.h"
#include "TnEngines/abi/interfaces.h"
#include "TnEngines/abi/vec.h"

#include <bit>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <string>
#include <vector>

namespace tn::test {
namespace {

using Lines = std::vector<std::string>;

template <class Type> Type Found(const char* interfaceName, const char* procedure) {
    return reinterpret_cast<Type>(RecordingEngines::FirstGetAddress()(interfaceName, "", procedure));
}

VecPort NewPort() {
    const VecBitmap bitmap = {nullptr, 40, 0, 0, 10, 5, 32, kHuexAlphaRgb};
    VecPort port = nullptr;
    Found<VecRasterPortNewBitmapPortV3Type>("VecNewRasterPortInterface", "VecRasterPortNewBitmapPortV3Proc")(&bitmap,
                                                                                                             &port);
    return port;
}

template <std::size_t count>
void CollectAll(const char* interfaceName, const std::array<abi::ProcedureName, count>& names,
                std::set<void*>& addresses) {
    for (const abi::ProcedureName& name : names) {
        void* const address = RecordingEngines::FirstGetAddress()(interfaceName, name.method, name.procedure);
        EXPECT_NE(address, nullptr) << name.procedure;
        EXPECT_TRUE(addresses.insert(address).second) << name.procedure << " is another procedure as well";
    }
}

TEST(RecordingEngines, OfferEveryProcedure) {
    const RecordingEngines engines;
    std::set<void*> addresses;
    CollectAll(abi::kKel, abi::kCoreProcedures, addresses);
    CollectAll(abi::kBaseInterface, abi::kBaseProcedures, addresses);
    CollectAll(abi::kErrorInterface, abi::kErrorProcedures, addresses);
    CollectAll(abi::kMemoryInterface, abi::kMemoryProcedures, addresses);
    CollectAll(abi::kContainerInterface, abi::kContainerProcedures, addresses);
    CollectAll(abi::kColorInterface, abi::kColorProcedures, addresses);
    CollectAll(abi::kNewRasterPortInterface, abi::kNewRasterPortProcedures, addresses);
    CollectAll(abi::kGStatePortInterface, abi::kGStatePortProcedures, addresses);
    CollectAll(abi::kRasterPortInterface, abi::kPortProcedures, addresses);
    EXPECT_EQ(addresses.size(), 93U);
}

TEST(RecordingEngines, OfferNothingElse) {
    const RecordingEngines engines;
    const KelGetAddressProc get = RecordingEngines::FirstGetAddress();
    EXPECT_EQ(get("Kel", "", "KelNewErrorProc"), nullptr);
    EXPECT_EQ(get("kel", "", "KelReportError"), nullptr);
    EXPECT_EQ(get("Kel", "", "KelReportErrorV2"), nullptr);
    EXPECT_EQ(get(nullptr, nullptr, nullptr), nullptr);
    EXPECT_EQ(engines.Log().back(), "get null null null");
}

TEST(RecordingEngines, HideAndOfferProcedures) {
    RecordingEngines engines;
    engines.Hide("KelReportError");
    EXPECT_EQ(Found<void*>("Kel", "KelReportError"), nullptr);
    engines.ShowAll();
    EXPECT_NE(Found<void*>("Kel", "KelReportError"), nullptr);
    engines.Offer("Kel", "KelReportError", &engines);
    EXPECT_EQ(Found<void*>("Kel", "KelReportError"), &engines);
}

TEST(RecordingEngines, NoteArgumentsWithoutLoss) {
    const RecordingEngines engines;
    const VecPort port = NewPort();
    const auto moveTo = Found<VecPortPointType>("VecRasterPortInterface", "VecPortMoveToProc");
    moveTo(port, 1.5F, -1.52587890625e-05F);
    moveTo(port, -0.0F, std::numeric_limits<float>::infinity());
    moveTo(port, std::bit_cast<float>(0x7FC00001U), 0.1F);
    Found<VecPortCommandType>("VecRasterPortInterface", "VecPortReleaseProc")(port);
    EXPECT_EQ(engines.Calls(), (Lines{"VecRasterPortNewBitmapPortV3Proc 40 0 0 10 5 32 1",
                                      "VecPortMoveToProc port#1 1.5 -1.5258789e-05", "VecPortMoveToProc port#1 -0 inf",
                                      "VecPortMoveToProc port#1 nan 2143289345 0.1", "VecPortReleaseProc port#1"}));
}

TEST(RecordingEngines, ComplainOfReleasedHandles) {
    const RecordingEngines engines;
    const VecPort port = NewPort();
    const auto release = Found<VecPortCommandType>("VecRasterPortInterface", "VecPortReleaseProc");
    const VecPort gstate = Found<VecPortGetGStatePortType>("VecRasterPortInterface", "VecPortGetGStatePortProc")(port);
    release(port);
    EXPECT_NONFATAL_FAILURE(release(port), "VecPortReleaseProc is given port#1 after its last reference was released");
    EXPECT_NONFATAL_FAILURE(Found<VecGStatePortSetMatrixType>("VecGStatePortInterface",
                                                              "VecGStatePortSetMatrixProc")(gstate, 1, 0, 0, 1, 0, 0),
                            "VecGStatePortSetMatrixProc is given gstate#1 after its last reference was released");
}

TEST(RecordingEngines, ComplainOfForeignHandles) {
    RecordingEngines engines;
    const auto release = Found<KelErrorReleaseType>("KelErrorInterface", "KelErrorReleaseProc");
    EXPECT_NONFATAL_FAILURE(release(reinterpret_cast<KelError>(&engines)), "a handle that nobody made");
    const VecPort port = NewPort();
    EXPECT_NONFATAL_FAILURE(release(reinterpret_cast<KelError>(port)), "instead of a handle of the kind error");
    Found<VecPortCommandType>("VecRasterPortInterface", "VecPortReleaseProc")(port);
}

void LeaveAnError() {
    const RecordingEngines engines;
    Found<KelNewErrorType>("KelErrorInterface", "KelNewErrorProc")("some", "Kel", 3);
}

void LeaveAReferenceToACoreError() {
    const RecordingEngines engines;
    const KelError error = Found<KelGetCoreErrorType>("KelErrorInterface", "KelGetCoreErrorProc")(1);
    Found<KelErrorAddReferenceType>("KelErrorInterface", "KelErrorAddReferenceProc")(error);
}

void LeaveAColor() {
    const RecordingEngines engines;
    const float gray = 0.5F;
    Found<HuexNewColorType>("HuexColorInterface", "HuexNewColorProc")(kHuexGray, &gray, 1);
}

void LeaveAPort() {
    const RecordingEngines engines;
    NewPort();
}

TEST(RecordingEngines, ComplainOfReferencesThatAreLeft) {
    EXPECT_NONFATAL_FAILURE(LeaveAnError(), "references are left to error#1: 1");
    EXPECT_NONFATAL_FAILURE(LeaveAReferenceToACoreError(), "references are left to core#1: 1");
    EXPECT_NONFATAL_FAILURE(LeaveAColor(), "references are left to color#1: 1");
    EXPECT_NONFATAL_FAILURE(LeaveAPort(), "references are left to port#1: 1");
}

TEST(RecordingEngines, ComplainOfCallsWithoutThem) {
    EXPECT_NONFATAL_FAILURE(VecShutdown(), "VecShutdown is used without engines");
    EXPECT_NONFATAL_FAILURE(KelStartup(0), "KelStartup is used without engines");
}

TEST(RecordingEngines, LendErrorsUntilThePortsNextCall) {
    RecordingEngines engines;
    const VecPort port = NewPort();
    const auto fill = Found<VecPortPaintType>("VecRasterPortInterface", "VecPortFillProcV2");
    engines.Fail("VecPortFillProcV2", "no luck", "Vec", 3);
    const KelError first = fill(port);
    EXPECT_EQ(engines.handles.ReferencesTo(first), 1);
    const KelError second = fill(port);
    EXPECT_EQ(engines.handles.ReferencesTo(first), 0);
    EXPECT_EQ(engines.handles.ReferencesTo(second), 1);
    engines.FailNothing();
    EXPECT_EQ(fill(port), nullptr);
    EXPECT_EQ(engines.handles.ReferencesTo(second), 0);
    Found<VecPortCommandType>("VecRasterPortInterface", "VecPortReleaseProc")(port);
}

TEST(RecordingEngines, RegisterAndUnregisterProcedures) {
    RecordingEngines engines;
    EXPECT_EQ(Found<KelRegisterProcAddressType>("Kel", "KelRegisterProcAddress")("Mine", "MineProc", &engines), 1);
    EXPECT_EQ(Found<void*>("Mine", "MineProc"), &engines);
    const std::uint32_t* const count = Found<KelGetUnregisterCountAddrType>("Kel", "KelGetUnregisterCountAddr")();
    RecordingEngines::UnregisterCount() = 0xFFFFFFFF;
    Found<KelUnregisterInterfaceType>("Kel", "KelUnregisterInterface")("Mine");
    EXPECT_EQ(*count, 0U);
    EXPECT_EQ(Found<void*>("Mine", "MineProc"), nullptr);
}

TEST(RecordingEngines, GiveWhatTheyAreTold) {
    RecordingEngines engines;
    engines.huexStatus = 0;
    engines.vecStatus = 9;
    EXPECT_EQ(HuexStartup(nullptr, 0), 0U);
    EXPECT_EQ(VecStartup(RecordingEngines::SecondGetAddress(), 1, 2, 3), 9U);
    engines.makesPorts = false;
    EXPECT_EQ(NewPort(), nullptr);
    engines.Fail("VecRasterPortNewBitmapPortV3Proc", "no room", "QMZ", 1);
    EXPECT_EQ(NewPort(), nullptr);
    engines.makesColors = false;
    const float gray = 0.5F;
    EXPECT_EQ(Found<HuexNewColorType>("HuexColorInterface", "HuexNewColorProc")(kHuexGray, &gray, 1), nullptr);
    EXPECT_EQ(engines.Calls().back(), "HuexNewColorProc 0 1 0.5");
    EXPECT_EQ(engines.Calls()[1], "VecStartup second 1 2 3");
}

TEST(RecordingEngines, CountBlocksOfMemory) {
    RecordingEngines engines;
    const auto allocate = Found<KelAllocateType>("KelMemoryInterface", "KelAllocateProc");
    const auto free = Found<KelFreeType>("KelMemoryInterface", "KelFreeProc");
    void* const block = allocate(10);
    EXPECT_EQ(engines.liveBlocks, 1);
    free(block);
    EXPECT_EQ(engines.liveBlocks, 0);
    engines.givesMemory = false;
    EXPECT_EQ(allocate(10), nullptr);
}

} // namespace
} // namespace tn::test
