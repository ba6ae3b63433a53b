// What a fake notes, kept apart from the memory that tests let run out.
#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace tn::test {

/// Blocks that do not come from operator new.
template <class T> struct QuietAllocator {
    using value_type = T;

    QuietAllocator() = default;
    template <class Other> QuietAllocator(const QuietAllocator<Other>&) {}

    T* allocate(std::size_t count) {
        void* const block = std::malloc(count * sizeof(T));
        if (block == nullptr) {
            std::abort();
        }
        return static_cast<T*>(block);
    }
    void deallocate(T* block, std::size_t) { std::free(block); }

    friend bool operator==(const QuietAllocator&, const QuietAllocator&) = default;
};

template <class T> using QuietVector = std::vector<T, QuietAllocator<T>>;
using QuietString = std::basic_string<char, std::char_traits<char>, QuietAllocator<char>>;

/// A call as a line of text: the procedure's name and its arguments, each after a space.
///
/// Texts stand in quotes, numbers as short as they can be without loss.
class CallLine {
public:
    template <class... Arguments>
    explicit CallLine(std::string_view procedure, const Arguments&... arguments) : text_(procedure) {
        (Add(arguments), ...);
    }

    const QuietString& Text() const { return text_; }

    /// An argument that is told by a word.
    struct Word {
        QuietString text;
    };

private:
    void Add(const Word& word) { Append(word.text); }

    void Add(const char* text) {
        if (text == nullptr) {
            return Append("null");
        }
        Append("\"");
        (text_ += text) += '"';
    }

    template <std::integral Number> void Add(Number number) { AddNumber(number); }

    void Add(float number) {
        if (!std::isnan(number)) {
            return AddNumber(number);
        }
        std::uint32_t bits = 0;
        std::memcpy(&bits, &number, sizeof(bits));
        Append("nan");
        AddNumber(bits);
    }

    template <class Number> void AddNumber(Number number) {
        std::array<char, 64> digits = {};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
        Append({digits.data(), end.ptr});
    }

    void Append(std::string_view text) { (text_ += ' ') += text; }

    QuietString text_;
};

} // namespace tn::test
