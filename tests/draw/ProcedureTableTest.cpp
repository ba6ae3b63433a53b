#include "TnGraphics/draw/ProcedureTable.h"

#include "tests/fakes/EngineTest.h"

#include "TnGraphics/draw/Binding.h"
#include "TnGraphics/draw/CKelError.h"

#include <array>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

enum class Place { kFirst, kSecond };
constexpr std::array<abi::ProcedureName, 2> kNames = {{{"First", "FirstProc"}, {"Second", "SecondProc"}}};
using Table = ProcedureTable<Place, 2>;
using Counting = int (*)();

int One() { return 1; }
int Two() { return 2; }
int Three() { return 3; }

void* AddressOf(Counting procedure) { return reinterpret_cast<void*>(procedure); }

const Lines kSomeLookups = {"get SomeInterface Second SecondProc", "get SomeInterface First FirstProc"};

class ProcedureTables : public EngineTest {
protected:
    ProcedureTables() {
        engines.Offer("SomeInterface", "FirstProc", AddressOf(&One));
        engines.Offer("SomeInterface", "SecondProc", AddressOf(&Two));
        EXPECT_TRUE(Start());
        engines.ForgetLog();
    }

    bool UseOptional() { return TheBinding().Validate(table.Cache(), Need::kOptional); }
    void Use() { EXPECT_TRUE(TheBinding().Validate(table.Cache(), Need::kRequired)); }

    /// The lookups of a use of the table.
    Lines LookupsOfUse() {
        engines.ForgetLog();
        Use();
        return engines.Lookups();
    }

    Table table = {"SomeInterface", kNames};
};

TEST_F(ProcedureTables, AreAskedForAtTheirFirstUse) {
    EXPECT_EQ(LookupsOfUse(), kSomeLookups);
    EXPECT_EQ(table.At<Counting>(Place::kFirst)(), 1);
    EXPECT_EQ(table.At<Counting>(Place::kSecond)(), 2);
}

TEST_F(ProcedureTables, AreAskedForOnce) {
    Use();
    EXPECT_EQ(LookupsOfUse(), Lines());
    EXPECT_EQ(&TheBinding().Valid(table), &table);
}

TEST_F(ProcedureTables, AreAskedForAgainWhenTheCounterHasChanged) {
    Use();
    ++RecordingEngines::UnregisterCount();
    EXPECT_EQ(LookupsOfUse(), kSomeLookups);
    EXPECT_EQ(LookupsOfUse(), Lines());
}

TEST_F(ProcedureTables, AreAskedForAgainForAnyOtherCount) {
    for (const std::uint32_t count : {0xFFFFFFFFU, 0U, 0x80000000U, 0x7FFFFFFFU, 1U}) {
        RecordingEngines::UnregisterCount() = count;
        EXPECT_EQ(LookupsOfUse(), kSomeLookups) << count;
        EXPECT_EQ(LookupsOfUse(), Lines()) << count;
    }
}

TEST_F(ProcedureTables, AreAskedForAgainWhenTheRuntimeUnregistersAnInterface) {
    Use();
    TheBinding().CoreProcedure<KelUnregisterInterfaceType>(abi::Core::kUnregisterInterface)("AnotherInterface");
    EXPECT_EQ(LookupsOfUse(), kSomeLookups);
}

TEST_F(ProcedureTables, AreEachAskedForAgainAtTheirNextUse) {
    Table other("SomeInterface", kNames);
    Use();
    TheBinding().Valid(other);
    ++RecordingEngines::UnregisterCount();
    EXPECT_EQ(LookupsOfUse(), kSomeLookups);
    engines.ForgetLog();
    TheBinding().Valid(other);
    EXPECT_EQ(engines.Lookups(), kSomeLookups);
}

TEST_F(ProcedureTables, HoldTheNewAddresses) {
    Use();
    engines.Offer("SomeInterface", "FirstProc", AddressOf(&Three));
    EXPECT_EQ(TheBinding().Valid(table).At<Counting>(Place::kFirst)(), 1);
    ++RecordingEngines::UnregisterCount();
    EXPECT_EQ(TheBinding().Valid(table).At<Counting>(Place::kFirst)(), 3);
    EXPECT_EQ(TheBinding().Valid(table).At<Counting>(Place::kSecond)(), 2);
}

TEST_F(ProcedureTables, AreAskedForAgainIfTheCounterChangesMeanwhile) {
    engines.whenAskedFor = [](const std::string& procedure) {
        if (procedure == "FirstProc") {
            ++RecordingEngines::UnregisterCount();
        }
    };
    EXPECT_EQ(LookupsOfUse(), kSomeLookups);
    engines.whenAskedFor = nullptr;
    EXPECT_EQ(LookupsOfUse(), kSomeLookups);
    EXPECT_EQ(LookupsOfUse(), Lines());
}

TEST_F(ProcedureTables, AreAskedForAgainAfterAnotherStart) {
    Use();
    TheBinding().Stop();
    EXPECT_TRUE(Start());
    EXPECT_EQ(LookupsOfUse(), kSomeLookups);
}

class MissingTables : public ProcedureTables {
protected:
    void ExpectMissingInterface() {
        try {
            TheBinding().Validate(table.Cache(), Need::kRequired);
            ADD_FAILURE() << "nothing is thrown";
        } catch (const CKelError& error) {
            EXPECT_STREQ(error.what(), "Missing Interface");
            EXPECT_STREQ(error.Component(), "Kel");
        }
    }
};

TEST_F(MissingTables, ThrowMissingInterfaceAtTheirFirstUse) {
    engines.Hide("SecondProc");
    ExpectMissingInterface();
    EXPECT_EQ(engines.CountOf("KelNewErrorProc \"Missing Interface\" Kel 0"), 1U);
    EXPECT_EQ(engines.CountOf("KelNewErrorProc \"\" Kel 0"), 0U);
}

TEST_F(MissingTables, ThrowMissingInterfaceWhenTheCounterHasChanged) {
    Use();
    engines.Hide("FirstProc");
    Use();
    ++RecordingEngines::UnregisterCount();
    ExpectMissingInterface();
}

TEST_F(MissingTables, AreAskedForAgainAtEachUse) {
    Use();
    ++RecordingEngines::UnregisterCount();
    engines.Hide("SecondProc");
    for (int use = 0; use < 2; ++use) {
        engines.ForgetLog();
        ExpectMissingInterface();
        EXPECT_EQ(engines.CountOf("get SomeInterface Second SecondProc"), 1U);
        EXPECT_EQ(engines.CountOf("get SomeInterface First FirstProc"), 0U);
    }
    engines.ShowAll();
    EXPECT_EQ(LookupsOfUse(), kSomeLookups);
    EXPECT_EQ(LookupsOfUse(), Lines());
}

TEST_F(MissingTables, ThatAreOptionalAreCleared) {
    EXPECT_TRUE(UseOptional());
    EXPECT_NE(table.At<Counting>(Place::kFirst), nullptr);
    ++RecordingEngines::UnregisterCount();
    engines.Hide("SecondProc");
    engines.ForgetLog();
    EXPECT_FALSE(UseOptional());
    EXPECT_EQ(table.At<Counting>(Place::kFirst), nullptr);
    EXPECT_EQ(engines.CountOf("KelNewErrorProc \"Missing Interface\" Kel 0"), 0U);
}

TEST_F(MissingTables, ThatAreOptionalMayComeBack) {
    engines.Hide("FirstProc");
    EXPECT_FALSE(UseOptional());
    EXPECT_FALSE(UseOptional());
    engines.ShowAll();
    EXPECT_TRUE(UseOptional());
    EXPECT_EQ(table.At<Counting>(Place::kFirst)(), 1);
}

TEST_F(MissingTables, AreAllTablesOfAStoppedBinding) {
    Use();
    TheBinding().Stop();
    ExpectMissingInterface();
    EXPECT_FALSE(UseOptional());
    EXPECT_EQ(table.At<Counting>(Place::kFirst), nullptr);
}

TEST_F(MissingTables, ThrowEvenIfNoErrorCanBeMade) {
    engines.Hide("SecondProc");
    engines.Hide("KelNewErrorProc");
    ++RecordingEngines::UnregisterCount();
    try {
        TheBinding().Validate(table.Cache(), Need::kRequired);
        ADD_FAILURE() << "nothing is thrown";
    } catch (const CKelError& error) {
        EXPECT_EQ(error.Handle(), nullptr);
        EXPECT_STREQ(error.what(), "");
        EXPECT_STREQ(error.Component(), "");
        EXPECT_EQ(error.Number(), 0);
    }
    engines.ShowAll(); // for the stop, which releases errors
}

TEST_F(MissingTables, ThrowEvenIfThereIsNoMemoryForAnError) {
    engines.Hide("SecondProc");
    engines.errorMaking = RecordingEngines::ErrorMaking::kGivesOutOfMemory;
    try {
        TheBinding().Validate(table.Cache(), Need::kRequired);
        ADD_FAILURE() << "nothing is thrown";
    } catch (const CKelError& error) {
        EXPECT_STREQ(error.Component(), "QMZ");
        EXPECT_EQ(error.Number(), 1);
    }
    engines.errorMaking = RecordingEngines::ErrorMaking::kGivesNull;
    EXPECT_THROW(TheBinding().Validate(table.Cache(), Need::kRequired), CKelError);
}

TEST_F(MissingTables, ThrowBeforeAnyStartToo) {
    TheBinding().Stop();
    FreshLibrary::Forget();
    engines.ForgetLog();
    try {
        TheBinding().Validate(table.Cache(), Need::kRequired);
        ADD_FAILURE() << "nothing is thrown";
    } catch (const CKelError& error) {
        EXPECT_EQ(error.Handle(), nullptr);
    }
    EXPECT_TRUE(engines.Log().empty());
}

} // namespace
} // namespace tn::test
