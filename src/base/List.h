#pragma once

#include "base/Error.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <optional>
#include <utility>

namespace ZelkBase {

/// Elements in the order in which they were appended; each stays where it is. `Entry` says who owns them and
/// is all that differs between List and OwningList. An entry may be empty. A constant list gives constant
/// elements.
template <typename T, typename Entry>
class BasicList {
public:
    /// Visits the entries from head to tail. Dereferencing an empty entry throws Error ("Null pointer
    /// dereferenced").
    template <typename Element, typename Position>
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = Element*;
        using reference = Element&;

        Iterator() noexcept = default;
        explicit Iterator(Position entry) noexcept
            : m_entry(entry) {}

        reference operator*() const {
            if (!*m_entry)
                throw Error(L"Null pointer dereferenced");
            return **m_entry;
        }
        pointer operator->() const { return &**this; }

        Iterator& operator++() noexcept {
            ++m_entry;
            return *this;
        }
        Iterator operator++(int) noexcept { return Iterator(m_entry++); }

        friend bool operator==(Iterator a, Iterator b) noexcept { return a.m_entry == b.m_entry; }

    private:
        Position m_entry;
    };

    /// Number of entries, the empty ones included.
    std::int32_t count() const noexcept { return static_cast<std::int32_t>(m_entries.size()); }

    /// The first and the last element; null in a list without entries and for an empty entry.
    T* head() noexcept { return m_entries.empty() ? nullptr : elementOf(m_entries.front()); }
    T* tail() noexcept { return m_entries.empty() ? nullptr : elementOf(m_entries.back()); }
    const T* head() const noexcept { return const_cast<BasicList*>(this)->head(); }
    const T* tail() const noexcept { return const_cast<BasicList*>(this)->tail(); }

    auto begin() noexcept { return Iterator<T, typename Entries::iterator>(m_entries.begin()); }
    auto end() noexcept { return Iterator<T, typename Entries::iterator>(m_entries.end()); }
    auto begin() const noexcept {
        return Iterator<const T, typename Entries::const_iterator>(m_entries.begin());
    }
    auto end() const noexcept { return Iterator<const T, typename Entries::const_iterator>(m_entries.end()); }

protected:
    using Entries = std::deque<Entry>;

    BasicList() = default;

    static T* elementOf(Entry& entry) noexcept { return entry ? &*entry : nullptr; }

    Entries m_entries;
};

/// A list of elements that somebody else owns.
template <typename T>
class List : public BasicList<T, T*> {
public:
    /// Appends an entry and returns its element; null appends an empty entry. Throws std::bad_alloc.
    T* append(T* element) {
        this->m_entries.push_back(element);
        return element;
    }
};

/// A list that holds its elements itself, a block of them at a time, and deletes them when it is destroyed.
/// A copy of it has copies.
template <typename T>
class OwningList : public BasicList<T, std::optional<T>> {
public:
    /// Appends an element made from `arguments`. Throws std::bad_alloc and what its constructor throws;
    /// nothing is appended then.
    template <typename... Arguments>
    T& append(Arguments&&... arguments) {
        return *this->m_entries.emplace_back(std::in_place, std::forward<Arguments>(arguments)...);
    }

    /// Appends an empty entry. Throws std::bad_alloc.
    void appendEmpty() { this->m_entries.emplace_back(); }
};

} // namespace ZelkBase
