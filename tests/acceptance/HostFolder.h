#pragma once

#include "support/TestFolder.h"

#include <optional>
#include <string>
#include <string_view>

namespace rasterplan::test {

/// What one run of the small host left: its status, and what it printed, with '\n' at line ends.
struct HostRun {
    int status;
    std::string out;
    std::string err;
};

/// A folder of its own with the library, a template beside it, and the small host that uses them.
class HostFolder {
public:
    /// With this template; without one, with none.
    explicit HostFolder(std::optional<std::string_view> templateText);

    const TestFolder& folder() const { return m_folder; }
    std::filesystem::path templateFile() const;

    /// Plays a scene, with the folder as current one. `before` are words of the shell before the host's name.
    HostRun play(std::string_view scene, const std::string& before = {}) const;

    /// As play, but starts `program`, words of the shell, instead of the host.
    HostRun playBy(const std::string& program, std::string_view scene) const;

    /// What the host wrote to the default output of a scene.
    std::string drawing() const { return readBytes(m_folder / "drawing.dxf"); }

private:
    TestFolder m_folder;
};

/// The template that is delivered.
std::string deliveredTemplate();

} // namespace rasterplan::test
