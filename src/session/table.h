#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <vector>

/// Called with 9 (index out of range) when a session array is addressed outside its bounds, and with the
/// number of any other calculation fault that a floor below the shell meets. The shell installs the
/// reporter; until then a fault is silent. A fault never ends the process: the access lands on a spare.
using FaultTeller = void (*)(int number);
extern FaultTeller tellfault;

/// Asked before an array takes memory: false and there is none. Null: whatever the machine gives. So tests
/// reach what a large machine hardly ever shows.
using MemoryAsker = bool (*)(std::size_t bytes);
extern MemoryAsker memorygranted;
inline constexpr int indexFault = 9;

namespace detail {
struct FreeMemory {
    void operator()(void* p) const { std::free(p); }
};
} // namespace detail

/// Array of two indices, both from 0 to an inclusive upper bound; row(i) is one contiguous run.
/// The memory is zero pages until it is touched, so a large capacity costs only what the data use.
template <class T>
class Table {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    /// Takes the bounds and zeroes every element. False when there is not enough memory: the table is then
    /// empty, and every access a fault.
    bool size(std::ptrdiff_t firstBound, std::ptrdiff_t secondBound) {
        cells.reset();
        rows = firstBound + 1;
        columns = secondBound + 1;
        const auto count = static_cast<std::size_t>(rows * columns);
        if (!memorygranted || memorygranted(count * sizeof(T)))
            cells.reset(static_cast<T*>(std::calloc(count, sizeof(T))));
        if (!cells) rows = columns = 0;
        return cells != nullptr;
    }
    std::ptrdiff_t firstbound() const { return rows - 1; }
    std::ptrdiff_t secondbound() const { return columns - 1; }

    T& operator()(std::ptrdiff_t i, std::ptrdiff_t j) {
        if (inside(i) && j >= 0 && j < columns) [[likely]]
            return cells[i * columns + j];
        return fault();
    }
    const T& operator()(std::ptrdiff_t i, std::ptrdiff_t j) const { return const_cast<Table&>(*this)(i, j); }

    void fill(const T& value) { std::fill_n(cells.get(), rows * columns, value); }

    /// Row i as one run, index 0 included; empty for a row that does not exist.
    std::span<T> row(std::ptrdiff_t i) {
        if (inside(i)) [[likely]]
            return {cells.get() + i * columns, static_cast<std::size_t>(columns)};
        fault();
        return {};
    }

private:
    bool inside(std::ptrdiff_t i) const { return i >= 0 && i < rows; }
    static T& fault() {
        static T spare;
        spare = T{};
        if (tellfault) tellfault(indexFault);
        return spare;
    }

    std::unique_ptr<T[], detail::FreeMemory> cells;
    std::ptrdiff_t rows = 0;
    std::ptrdiff_t columns = 0;
};

/// Array of one index from 0 to an inclusive upper bound.
template <class T>
class List {
public:
    /// Takes the bound and sets every element to value. False when there is not enough memory.
    bool size(std::ptrdiff_t bound, const T& value = T{}) {
        const auto count = static_cast<std::size_t>(bound + 1);
        try {
            if (memorygranted && !memorygranted(count * sizeof(T))) throw std::bad_alloc();
            cells.assign(count, value);
        } catch (const std::bad_alloc&) {
            cells.clear();
            return false;
        }
        return true;
    }
    std::ptrdiff_t bound() const { return static_cast<std::ptrdiff_t>(cells.size()) - 1; }
    void fill(const T& value) { cells.assign(cells.size(), value); }

    T& operator()(std::ptrdiff_t i) {
        if (i >= 0 && i <= bound()) [[likely]]
            return cells[static_cast<std::size_t>(i)];
        static T spare;
        spare = T{};
        if (tellfault) tellfault(indexFault);
        return spare;
    }
    const T& operator()(std::ptrdiff_t i) const { return const_cast<List&>(*this)(i); }
    auto begin() { return cells.begin(); }
    auto end() { return cells.end(); }

private:
    std::vector<T> cells;
};
