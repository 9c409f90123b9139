#include "reader/DxfPointers.h"

#include <algorithm>

namespace rasterplan_tool {

DxfHandles::DxfHandles(std::span<const DxfRecord> records) {
    m_records.reserve(records.size());
    for (const DxfRecord& record : records) {
        const std::uint64_t handle = handleNumber(record.handle()).value_or(0);
        if (handle != 0 && !m_records.emplace(handle, &record).second)
            m_repeated.push_back(&record);
    }
}

const DxfRecord* DxfHandles::find(std::string_view handle) const {
    const auto found = m_records.find(handleNumber(handle).value_or(0));
    return found == m_records.end() ? nullptr : found->second;
}

const DxfRecord* DxfHandles::find(std::string_view handle, std::string_view type) const {
    const DxfRecord* const record = find(handle);
    return record != nullptr && record->type == type ? record : nullptr;
}

bool isSameHandle(std::string_view a, std::string_view b) {
    const std::uint64_t handle = handleNumber(a).value_or(0);
    return handle != 0 && handleNumber(b) == handle;
}

std::vector<std::string> reactorsOf(const DxfRecord& record) {
    std::vector<std::string> found;
    bool isInside = false;
    for (const DxfGroup& group : record.groups)
        if (group.code == 102)
            isInside = trimmed(group.value) == "{ACAD_REACTORS";
        else if (isInside && group.code == 330)
            found.push_back(group.value);
    return found;
}

std::string ownerOf(const DxfRecord& record) {
    bool isInside = false;
    for (const DxfGroup& group : record.groups)
        if (group.code == 102)
            isInside = trimmed(group.value) != "}";
        else if (!isInside && group.code == 330)
            return group.value;
    return {};
}

std::vector<std::pair<std::string, std::string>> entriesOf(const DxfRecord& dictionary) {
    std::vector<std::pair<std::string, std::string>> found;
    const std::vector<DxfGroup>& groups = dictionary.groups;
    for (std::size_t i = 1; i < groups.size(); ++i)
        if (groups[i - 1].code == 3 && (groups[i].code == 350 || groups[i].code == 360))
            found.emplace_back(groups[i - 1].value, groups[i].value);
    return found;
}

} // namespace rasterplan_tool
