#pragma once

#include "reader/DxfRecords.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace rasterplan_tool {

/// The records of a drawing by their handles. They must outlive it.
class DxfHandles {
public:
    explicit DxfHandles(std::span<const DxfRecord> records);

    /// The first record with the handle that this text means; null if there is none, and for 0.
    const DxfRecord* find(std::string_view handle) const;

    /// As that, but null as well if the record is of another type.
    const DxfRecord* find(std::string_view handle, std::string_view type) const;

    /// Records whose handle another one before them has, in their order.
    const std::vector<const DxfRecord*>& repeated() const { return m_repeated; }

private:
    std::unordered_map<std::uint64_t, const DxfRecord*> m_records;
    std::vector<const DxfRecord*> m_repeated;
};

/// Whether two texts mean the same handle, and not 0.
bool isSameHandle(std::string_view a, std::string_view b);

/// The handles in a record's group of reactors, as they are written.
std::vector<std::string> reactorsOf(const DxfRecord& record);

/// The handle of a record's owner, as it is written: its first code 330 outside of groups (102); empty if it
/// names none.
std::string ownerOf(const DxfRecord& record);

/// The entries of a DICTIONARY in their order: names, and handles as they are written.
std::vector<std::pair<std::string, std::string>> entriesOf(const DxfRecord& dictionary);

} // namespace rasterplan_tool
