#include "tests/fakes/FakeShell.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

FakeShell* current = nullptr;

// An item list is the address of its folder's number.
constinit std::array<int, 2> folderNumbers = {static_cast<int>(ShellFolder::kCommonProgramFiles),
                                              static_cast<int>(ShellFolder::kLocalApplicationData)};
constinit int theAllocator = 0;

ShellItemList ItemListOf(ShellFolder folder) {
    const auto number = std::ranges::find(folderNumbers, static_cast<int>(folder));
    return number == folderNumbers.end() ? nullptr : &*number;
}

int NumberOf(ShellItemList items) {
    const bool isOurs = items == &folderNumbers[0] || items == &folderNumbers[1];
    EXPECT_TRUE(isOurs) << "the shell is given an item list that it never gave";
    return isOurs ? *static_cast<int*>(items) : 0;
}

std::string Line(std::string line, int number) { return line.append(" ").append(std::to_string(number)); }

} // namespace

FakeShell::FakeShell() {
    static constexpr Shell kShell = {&GetFolderLocation, &GetPath, &GetAllocator, &Free};
    EXPECT_EQ(current, nullptr) << "there is another shell";
    current = this;
    previous_ = ExchangeShell(&kShell);
}

FakeShell::~FakeShell() {
    ExchangeShell(previous_);
    current = nullptr;
}

FakeShell::Folder& FakeShell::ByNumber(int number) {
    return number == static_cast<int>(ShellFolder::kCommonProgramFiles) ? shared : user;
}

bool FakeShell::GetFolderLocation(ShellFolder folder, ShellItemList* items) {
    const int number = static_cast<int>(folder);
    current->log_.push_back(Line("location", number));
    const bool isThere = current->ByNumber(number).hasLocation;
    *items = isThere ? ItemListOf(folder) : nullptr;
    return isThere && *items != nullptr;
}

bool FakeShell::GetPath(ShellItemList items, char16_t* path) {
    const int number = NumberOf(items);
    current->log_.push_back(Line("path", number));
    const Folder& folder = current->ByNumber(number);
    if (!folder.hasPath) {
        return false;
    }
    EXPECT_LT(folder.path.size(), kPathUnits) << "the test's path does not fit";
    const std::size_t length = std::min(folder.path.size(), kPathUnits - 1);
    folder.path.copy(path, length);
    path[length] = 0;
    return true;
}

bool FakeShell::GetAllocator(ShellAllocator* allocator) {
    current->log_.emplace_back("allocator");
    *allocator = current->hasAllocator ? &theAllocator : nullptr;
    return current->hasAllocator;
}

void FakeShell::Free(ShellAllocator allocator, ShellItemList items) {
    EXPECT_EQ(allocator, &theAllocator) << "item lists are freed by another allocator";
    current->log_.push_back(Line("free", NumberOf(items)));
}

} // namespace tn::test
