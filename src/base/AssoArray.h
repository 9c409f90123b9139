#pragma once

#include <cstdint>
#include <utility>
#include <vector>

namespace ZelkBase {

/// An entry of an AssoArray.
template <typename K, typename V>
struct HAssoEintrag {
    K key;
    V value;
};

/// Entries of key and value in the order in which they were appended. A key may occur more than once.
template <typename K, typename V>
class AssoArray {
public:
    using Entry = HAssoEintrag<K, V>;

    /// Appends an entry. Throws std::bad_alloc.
    void append(K key, V value) { m_entries.push_back({std::move(key), std::move(value)}); }

    /// The value of the first entry whose key equals `key` exactly, or null; valid until the next append.
    const V* find(const K& key) const {
        for (const Entry& entry : m_entries)
            if (entry.key == key)
                return &entry.value;
        return nullptr;
    }

    /// Number of entries.
    std::int32_t count() const noexcept { return static_cast<std::int32_t>(m_entries.size()); }

    auto begin() const noexcept { return m_entries.begin(); }
    auto end() const noexcept { return m_entries.end(); }

private:
    std::vector<Entry> m_entries;
};

} // namespace ZelkBase
