// What Windows knows of the loaded library.
#include "TnGraphics/TnGraphics.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <winternl.h>

namespace {

// What the loader notes of a library, as far as the flags.
struct LoaderEntry {
    LIST_ENTRY inLoadOrder;
    LIST_ENTRY inMemoryOrder;
    LIST_ENTRY inInitializationOrder;
    void* base;
    void* entryPoint;
    ULONG imageSize;
    UNICODE_STRING path;
    UNICODE_STRING name;
    ULONG flags;
};

constexpr ULONG kNoThreadCalls = 0x00040000;

const PEB& Process() {
    using GetCurrentPeb = PEB*(NTAPI*)();
    const auto get = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb");
    return *reinterpret_cast<GetCurrentPeb>(reinterpret_cast<void*>(get))();
}

const LoaderEntry* EntryOf(HMODULE library) {
    LIST_ENTRY& modules = Process().Ldr->InMemoryOrderModuleList;
    for (LIST_ENTRY* link = modules.Flink; link != &modules; link = link->Flink) {
        const auto* const entry = CONTAINING_RECORD(link, LoaderEntry, inMemoryOrder);
        if (entry->base == library) {
            return entry;
        }
    }
    return nullptr;
}

TEST(Library, IsNotToldOfThreads) {
    const LoaderEntry* const entry = EntryOf(GetModuleHandleW(L"TnGraphics.dll"));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->flags & kNoThreadCalls, kNoThreadCalls);
}

TEST(Library, DiffersInThatFromTheProgram) {
    const LoaderEntry* const entry = EntryOf(GetModuleHandleW(nullptr));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->flags & kNoThreadCalls, 0U);
}

} // namespace
