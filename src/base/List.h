#pragma once

#include "base/Error.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace ZelkBase {

/// Elements in the order in which they were appended; each stays where it is, because they are kept in
/// blocks. `Entry` says who owns them and is all that differs between List and OwningList. An entry may be
/// empty. A constant list gives constant elements.
template <typename T, typename Entry>
class BasicList {
public:
    /// Visits the entries from head to tail. Dereferencing an empty entry throws Error ("Null pointer
    /// dereferenced").
    template <typename Element>
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = Element*;
        using reference = Element&;

        Iterator() noexcept = default;
        Iterator(const BasicList& list, std::size_t index) noexcept
            : m_list(&list)
            , m_index(index) {}

        reference operator*() const {
            T* const element = m_list->elementAt(m_index);
            if (!element)
                throw Error(L"Null pointer dereferenced");
            return *element;
        }
        pointer operator->() const { return &**this; }

        Iterator& operator++() noexcept {
            ++m_index;
            return *this;
        }
        Iterator operator++(int) noexcept { return Iterator(*m_list, m_index++); }

        friend bool operator==(Iterator a, Iterator b) noexcept { return a.m_index == b.m_index; }

    private:
        const BasicList* m_list = nullptr;
        std::size_t m_index = 0;
    };

    /// `other` is left without entries.
    BasicList(BasicList&& other) noexcept
        : m_blocks(std::move(other.m_blocks))
        , m_count(std::exchange(other.m_count, 0)) {}

    /// Number of entries, the empty ones included.
    std::int32_t count() const noexcept { return static_cast<std::int32_t>(m_count); }

    /// The first and the last element; null in a list without entries and for an empty entry.
    T* head() noexcept { return m_count == 0 ? nullptr : elementAt(0); }
    T* tail() noexcept { return m_count == 0 ? nullptr : elementAt(m_count - 1); }
    const T* head() const noexcept { return m_count == 0 ? nullptr : elementAt(0); }
    const T* tail() const noexcept { return m_count == 0 ? nullptr : elementAt(m_count - 1); }

    Iterator<T> begin() noexcept { return {*this, 0}; }
    Iterator<T> end() noexcept { return {*this, m_count}; }
    Iterator<const T> begin() const noexcept { return {*this, 0}; }
    Iterator<const T> end() const noexcept { return {*this, m_count}; }

protected:
    BasicList() = default;

    /// The entry behind the last one, empty; countIt() makes it the last one. Throws std::bad_alloc.
    Entry& nextEntry() {
        if (m_count == m_blocks.size() * blockSize)
            m_blocks.push_back(std::make_unique<Entry[]>(blockSize));
        return m_blocks.back()[m_count % blockSize];
    }
    void countIt() noexcept { ++m_count; }

private:
    static constexpr std::size_t blockSize = 64;

    T* elementAt(std::size_t index) const noexcept {
        Entry& entry = m_blocks[index / blockSize][index % blockSize];
        return entry ? &*entry : nullptr;
    }

    std::vector<std::unique_ptr<Entry[]>> m_blocks;
    std::size_t m_count = 0;
};

/// A list of elements that somebody else owns.
template <typename T>
class List : public BasicList<T, T*> {
public:
    /// Appends an entry and returns its element; null appends an empty entry. Throws std::bad_alloc.
    T* append(T* element) {
        this->nextEntry() = element;
        this->countIt();
        return element;
    }
};

/// A list that holds its elements itself and deletes them when it is destroyed.
template <typename T>
class OwningList : public BasicList<T, std::optional<T>> {
public:
    /// Appends an element made from `arguments`. Throws std::bad_alloc and what its constructor throws;
    /// nothing is appended then.
    template <typename... Arguments>
    T& append(Arguments&&... arguments) {
        T& element = this->nextEntry().emplace(std::forward<Arguments>(arguments)...);
        this->countIt();
        return element;
    }

    /// Appends an empty entry. Throws std::bad_alloc.
    void appendEmpty() {
        this->nextEntry();
        this->countIt();
    }
};

} // namespace ZelkBase
