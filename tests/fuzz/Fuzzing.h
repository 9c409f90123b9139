#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

/// One input of a fuzzer; each fuzzer defines it, and ends the program where something does not hold.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace rasterplan::fuzz {

/// Says what does not hold and ends the program, so that the fuzzer keeps the input.
[[noreturn]] inline void fail(const std::string& what) {
    std::fprintf(stderr, "%s\n", what.c_str());
    std::abort();
}

inline void demand(bool holds, const std::string& what) {
    if (!holds)
        fail(what);
}

/// The bytes of an input, taken off one value after the other. Behind the end there are zeros.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_data(data)
        , m_size(size) {}

    bool empty() const { return m_size == 0; }

    /// The next bytes as a value of a plain type.
    template <typename Value>
    Value next() {
        Value value{};
        const std::size_t taken = m_size < sizeof value ? m_size : sizeof value;
        if (taken > 0)
            std::memcpy(&value, m_data, taken);
        m_data += taken;
        m_size -= taken;
        return value;
    }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
};

} // namespace rasterplan::fuzz
